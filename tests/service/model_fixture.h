#ifndef TESTS_SERVICE_MODEL_FIXTURE_H
#define TESTS_SERVICE_MODEL_FIXTURE_H

#include <string>
#include <variant>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "service/model/SimulatedStack.h"
#include "service/time/ManualScheduler.h"

namespace btservice {

constexpr const char* kSmartphone = "00:1A:7D:DA:71:13";  // pairs by confirmation, has it all
constexpr const char* kOldPhone = "00:02:EE:5A:10:4C";    // pairs by PIN, calls only
constexpr const char* kAccessory = "F0:08:D1:C0:FF:EE";   // pairs without a question, serial only
constexpr const char* kNobody = "AA:BB:CC:DD:EE:FF";

/// Remembers what a stack reports.
class EventLog : public StackObserver {
 public:
  void OnStackEvent(const StackEvent& event) override { m_events.push_back(event); }

  template <typename Event>
  std::vector<Event> Of() const {
    std::vector<Event> found;
    for (const StackEvent& event : m_events) {
      if (const auto* const one = std::get_if<Event>(&event)) {
        found.push_back(*one);
      }
    }
    return found;
  }
  template <typename Event>
  std::size_t Count() const {
    return Of<Event>().size();
  }
  /// The values of one member of all events of a kind.
  template <typename Event, typename Value>
  std::vector<Value> Values(Value Event::*member) const {
    std::vector<Value> values;
    for (const Event& event : Of<Event>()) {
      values.push_back(event.*member);
    }
    return values;
  }
  const std::vector<StackEvent>& All() const { return m_events; }
  void Clear() { m_events.clear(); }

 private:
  std::vector<StackEvent> m_events;
};

/// A simulated stack in a world of the test's making, and a clock that the test drives.
class ModelTest : public testing::Test {
 protected:
  ModelTest() : world(BuiltInWorld()) {}

  /// The world is to be changed before the stack is used for the first time.
  SimulatedStack& Stack() {
    if (stack == nullptr) {
      stack = std::make_unique<SimulatedStack>(scheduler, world);
      stack->AddObserver(log);
    }
    return *stack;
  }
  DeviceData& Device(const std::string& address) {
    for (DeviceData& device : world.devices) {
      if (device.address == address) {
        return device;
      }
    }
    throw std::invalid_argument(address);
  }

  void Pass(Milliseconds time) { scheduler.Advance(time); }
  void PowerOn() {
    Stack().Adapter().SetPower(true);
    Pass(world.delays.powerOn);
  }
  void PairBeforehand(const std::string& address) { Device(address).paired = true; }
  /// Powers on and connects a device that is paired beforehand; forgets what was reported on the way.
  void ConnectDevice(const std::string& address, ProfileId profile = BT_PROFILE_HFP_A2DP) {
    if (Stack().Adapter().Power() != BT_POWER_ON) {
      PowerOn();
    }
    ASSERT_TRUE(Stack().Devices().Connect(address, profile, false));
    Pass(std::chrono::seconds(4));
    log.Clear();
  }
  std::vector<ConnStatus> StatesOf(const std::string& address, ProfileId profile) const {
    std::vector<ConnStatus> states;
    for (const ConnectionChanged& change : log.Of<ConnectionChanged>()) {
      if (change.address == address && change.profile == profile) {
        states.push_back(change.status);
      }
    }
    return states;
  }

  ManualScheduler scheduler;
  World world;
  EventLog log;
  std::unique_ptr<SimulatedStack> stack;
};

}  // namespace btservice

#endif
