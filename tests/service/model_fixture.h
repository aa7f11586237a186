#ifndef TESTS_SERVICE_MODEL_FIXTURE_H
#define TESTS_SERVICE_MODEL_FIXTURE_H

#include <memory>
#include <string>
#include <variant>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "service/simulation/SimulatedStack.h"
#include "service/time/ManualScheduler.h"

namespace btservice {

constexpr const char* kSmartphone = "00:1A:7D:DA:71:13";  // pairs by confirmation, has it all
constexpr const char* kOldPhone = "00:02:EE:5A:10:4C";    // pairs by PIN, calls only
constexpr const char* kAccessory = "F0:08:D1:C0:FF:EE";   // pairs without a question, serial only
constexpr const char* kNobody = "AA:BB:CC:DD:EE:FF";

// What would be compiled anew for each test file, and is not a template, is in model_fixture.cpp: copies of
// worlds and of events of all kinds cost a compiler more than the tests do.

/// Remembers what a stack reports.
class EventLog : public StackObserver {
 public:
  EventLog();
  ~EventLog() override;
  void OnStackEvent(const StackEvent& event) override;

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
  void Clear();

 private:
  std::vector<StackEvent> m_events;
};

/// A simulated stack in a world of the test's making, and a clock that the test drives.
class ModelTest : public testing::Test {
 protected:
  ModelTest();
  ~ModelTest() override;

  /// The world is to be changed before the stack is used for the first time.
  SimulatedStack& Stack();
  DeviceData& Device(const std::string& address);

  void Pass(Milliseconds time) { scheduler.Advance(time); }
  void PowerOn();
  void PairBeforehand(const std::string& address) { Device(address).paired = true; }
  /// Powers on and connects a device that is paired beforehand; forgets what was reported on the way.
  void ConnectDevice(const std::string& address, ProfileId profile = BT_PROFILE_HFP_A2DP);
  std::vector<ConnStatus> StatesOf(const std::string& address, ProfileId profile) const;

  ManualScheduler scheduler;
  World world;
  EventLog log;
  std::unique_ptr<SimulatedStack> stack;
};

}  // namespace btservice

#endif
