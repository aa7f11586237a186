#include "tests/service/model_fixture.h"

#include <algorithm>
#include <stdexcept>

namespace btservice {

EventLog::EventLog() = default;
EventLog::~EventLog() = default;
void EventLog::OnStackEvent(const StackEvent& event) { m_events.push_back(event); }
void EventLog::Clear() { m_events.clear(); }

ModelTest::ModelTest() : world(BuiltInWorld()) {}
ModelTest::~ModelTest() = default;

SimulatedStack& ModelTest::Stack() {
  if (stack == nullptr) {
    stack = std::make_unique<SimulatedStack>(scheduler, world);
    stack->AddObserver(log);
  }
  return *stack;
}

DeviceData& ModelTest::Device(const std::string& address) {
  const auto found = std::find_if(world.devices.begin(), world.devices.end(),
                                  [&](const DeviceData& device) { return device.address == address; });
  if (found == world.devices.end()) {
    throw std::invalid_argument(address);
  }
  return *found;
}

void ModelTest::PowerOn() {
  Stack().Adapter().SetPower(true);
  Pass(world.delays.powerOn);
}

void ModelTest::ConnectDevice(const std::string& address, ProfileId profile) {
  if (Stack().Adapter().Power() != BT_POWER_ON) {
    PowerOn();
  }
  ASSERT_TRUE(Stack().Devices().Connect(address, profile, false));
  Pass(std::chrono::seconds(4));
  log.Clear();
}

std::vector<ConnStatus> ModelTest::StatesOf(const std::string& address, ProfileId profile) const {
  std::vector<ConnStatus> states;
  for (const ConnectionChanged& change : log.Of<ConnectionChanged>()) {
    if (change.address == address && change.profile == profile) {
      states.push_back(change.status);
    }
  }
  return states;
}

}  // namespace btservice
