// Listeners that throw, with events that come from the service through the main loop.

#include <stdexcept>
#include <thread>

#include <gmock/gmock.h>

#include "system/fixtures.h"

namespace bttest {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

class Thrower : public IMWPBtComListener {
 public:
  void OnOpenBtStatusChanged(MWPBtType::PowerStatus) override {
    ++calls;
    throw std::runtime_error("out of order");
  }
  int calls = 0;
};

struct ThrowingListener : Started {
  void ExpectTwoEventsAtAll() {
    EmitPower(service, MWPBtType::BT_POWER_ON);
    EmitPower(service, MWPBtType::BT_POWER_OFF);
    EXPECT_TRUE(RunUntil([&] { return listeners.first.Seen().size() + listeners.last.Seen().size() >= 4; }));
    EXPECT_THAT(listeners.first.Seen(), ElementsAre(MWPBtType::BT_POWER_ON, MWPBtType::BT_POWER_OFF));
    EXPECT_THAT(listeners.last.Seen(), ElementsAre(MWPBtType::BT_POWER_ON, MWPBtType::BT_POWER_OFF));
    EXPECT_EQ(listeners.thrower.calls, 2);
  }

  // Listeners are told in the order of their addresses: one before the thrower and one after.
  struct {
    PowerEvents first;
    Thrower thrower;
    PowerEvents last;
  } listeners;
};

TEST_F(ThrowingListener, TheOthersAreToldAndSoAreAllOfTheNextEvent) { ExpectTwoEventsAtAll(); }

TEST_F(ThrowingListener, EachExceptionIsLoggedOnceAsAnErrorAndEndsThere) {
  LogCapture log;
  ExpectTwoEventsAtAll();
  const auto errors = log.OfLevel(100);
  ASSERT_THAT(errors, SizeIs(2));
  for (const LogRecord& error : errors) {
    EXPECT_EQ(error.function, "OnOpenBtStatusChanged");
    EXPECT_NE(error.message.find("out of order"), std::string::npos) << error.message;
  }
}

TEST_F(ThrowingListener, TheRegistryIsNotLeftLocked) {
  ExpectTwoEventsAtAll();
  std::thread([] { PowerEvents another; }).join();  // would wait for ever
}

/// Never comes to be: it has registered by the time it throws.
class HalfBuilt : public IMWPBtComListener {
 public:
  explicit HalfBuilt(int& calls) : m_calls(calls) { throw std::runtime_error("not today"); }
  void OnOpenBtStatusChanged(MWPBtType::PowerStatus) override { ++m_calls; }

 private:
  int& m_calls;
};

/// Constructs one of those in its callback.
class Constructor : public IMWPBtComListener {
 public:
  void OnOpenBtStatusChanged(MWPBtType::PowerStatus) override { HalfBuilt never(callsOfHalfBuilt); }
  int callsOfHalfBuilt = 0;
};

struct ThrowingConstructor : Started {
  struct {
    PowerEvents first;
    Constructor constructor;
    PowerEvents last;
  } listeners;
};

TEST_F(ThrowingConstructor, InsideACallbackLeavesNoListenerBehindAndTheOthersAreTold) {
  const std::size_t registered = Client::GetInstance()->GetListenerCount();
  LogCapture log;
  EmitPower(service, MWPBtType::BT_POWER_ON);
  EmitPower(service, MWPBtType::BT_POWER_OFF);
  EXPECT_TRUE(RunUntil([&] { return listeners.last.Seen().size() >= 2; }));
  EXPECT_THAT(listeners.first.Seen(), SizeIs(2));
  EXPECT_EQ(Client::GetInstance()->GetListenerCount(), registered);
  EXPECT_EQ(listeners.constructor.callsOfHalfBuilt, 0);
  const auto errors = log.OfLevel(100);
  ASSERT_THAT(errors, SizeIs(2)) << "one for each event";
  EXPECT_NE(errors[0].message.find("not today"), std::string::npos) << errors[0].message;
}

}  // namespace
}  // namespace bttest
