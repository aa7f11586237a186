// Coroutines that a scope holds.

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <btasync/Coroutine.h>
#include <btasync/Outcome.h>
#include <btasync/testing/FakeService.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/LogCapture.h"
#include "tests/async/AsyncFixture.h"

namespace {

using namespace btasync;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A local of a coroutine, which says when it is destroyed.
struct Local {
  explicit Local(std::vector<std::string>& log) : log(log) {}
  Local(const Local&) = delete;
  Local& operator=(const Local&) = delete;
  ~Local() { log.emplace_back("destroyed"); }
  std::vector<std::string>& log;
};

class CoroutineTest : public testing::Test {
 public:
  FakeService service;
  std::vector<std::string> log;
  std::unique_ptr<Scope> scope = std::make_unique<Scope>();

  Job Dial(std::string number) {
    const Local local(log);
    log.push_back("dials " + number);
    const Answer<> answer = co_await service.DialCall(number);
    log.emplace_back(answer ? "accepted" : answer.Refused() ? "refused" : ToText(answer.Why().reason));
  }
};

TEST_F(CoroutineTest, RunsUntilItWaitsAndGoesOnByTheLoop) {
  service.WillAccept(&Service::DialCall).Once();
  Dial("110").StartIn(*scope);
  EXPECT_THAT(log, ElementsAre("dials 110"));
  EXPECT_FALSE(scope->IsEmpty());
  service.Settle();
  EXPECT_THAT(log, ElementsAre("dials 110", "accepted", "destroyed"));
  EXPECT_TRUE(scope->IsEmpty());
}

TEST_F(CoroutineTest, GetsARefusalAndAFailureAsAValue) {
  service.WillRefuse(&Service::DialCall);
  Dial("110").StartIn(*scope);
  service.Settle();
  service.WillFail(&Service::DialCall, Reason::ServiceGone);
  Dial("112").StartIn(*scope);
  service.Settle();
  EXPECT_THAT(log,
              ElementsAre("dials 110", "refused", "destroyed", "dials 112", "service gone", "destroyed"));
}

TEST_F(CoroutineTest, DoesNothingUnlessItIsStarted) {
  { const Job job = Dial("110"); }
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(CoroutineTest, IsDestroyedWhereItWaitsWhenItsScopeGoes) {
  service.WillAccept(&Service::DialCall);
  Dial("110").StartIn(*scope);
  scope.reset();
  EXPECT_THAT(log, ElementsAre("dials 110", "destroyed"));
  service.Settle();
  EXPECT_EQ(log.size(), 2u);
}

TEST_F(CoroutineTest, WaitsForSeveralThingsOneAfterTheOther) {
  service.WillAccept(&Service::SetPower).Emits(PowerChanged{BT_POWER_ON});
  service.WillAnswer(&Service::GetPowerStatus, BT_POWER_ON);
  [](CoroutineTest& test) -> Job {
    Next<PowerChanged> changed(test.service,
                               [](const PowerChanged& event) { return event.status == BT_POWER_ON; });
    const Answer<> answer = co_await test.service.SetPower(true).Within(5s);
    test.log.emplace_back(answer ? "accepted" : "not");
    const PowerChanged event = co_await changed;
    test.log.push_back("changed to " + std::to_string(event.status));
    co_await Sleep(test.service, 200ms);
    test.log.emplace_back("slept");
    const Answer<PowerStatus> status = co_await test.service.GetPowerStatus();
    test.log.push_back("is " + std::to_string(*status));
  }(*this)
                                 .StartIn(*scope);
  service.Settle();
  EXPECT_THAT(log, ElementsAre("accepted", "changed to " + std::to_string(BT_POWER_ON)));
  service.Advance(199ms);
  EXPECT_EQ(log.size(), 2u);
  service.Advance(1ms);
  EXPECT_THAT(log, ElementsAre("accepted", "changed to " + std::to_string(BT_POWER_ON), "slept",
                               "is " + std::to_string(BT_POWER_ON)));
  EXPECT_TRUE(scope->IsEmpty());
}

TEST_F(CoroutineTest, NextGivesTheEventsThatFitOneByOne) {
  [](CoroutineTest& test) -> Job {
    Next<SignalChanged> next(test.service, [](const SignalChanged& event) {
      if (event.bars == 5) {
        throw std::runtime_error("a fault of the application");
      }
      return event.bars != 0;
    });
    for (int i = 0; i < 2; ++i) {
      const SignalChanged event = co_await next;
      test.log.push_back(std::to_string(event.bars));
    }
    const SignalChanged last = co_await Next<SignalChanged>(test.service);
    test.log.push_back("last " + std::to_string(last.bars));
  }(*this)
                                 .StartIn(*scope);
  bttest::LogCapture complaints;
  const auto emit = [this](int bars) {
    service.Emit(SignalChanged{bars});
    service.Settle();
  };
  emit(0);
  EXPECT_THAT(log, IsEmpty());
  emit(5);
  EXPECT_THAT(complaints.Complaints(), ElementsAre(HasSubstr("a fault of the application")));
  EXPECT_THAT(log, IsEmpty());
  emit(1);
  emit(2);
  emit(0);
  EXPECT_THAT(log, ElementsAre("1", "2", "last 0"));
  EXPECT_TRUE(scope->IsEmpty());
}

TEST_F(CoroutineTest, WaitsForARequestAndTheEventThatEndsIt) {
  const Address phone("00:1A:7D:DA:71:13");
  service.WillAccept(&Service::Pair)
      .Emits(PairChanged{BT_PAIR_FAILED, BT_PAIR_REASON_TIMEOUT, phone}, 2s)
      .Once();
  service.WillAccept(&Service::Pair).Emits(PairChanged{BT_PAIR_PAIRED, BT_PAIR_REASON_NONE, phone}).After(1s);
  service.WillHang(&Service::Connect);
  service.WillRefuse(&Service::DialCall);
  [](CoroutineTest& test, Address phone) -> Job {
    const Answer<PairChanged> failed = co_await PairDevice(test.service, phone);
    test.log.push_back(
        failed.RefusedBy() != nullptr ? "refused for " + std::to_string(failed.RefusedBy()->reason) : "not");
    const Answer<PairChanged> paired = co_await PairDevice(test.service, phone);
    test.log.push_back(paired ? "paired with " + paired->address.ToText() : "not");
    const Answer<ConnectionChanged> connected = co_await ConnectDevice(test.service, phone).Within(3s);
    test.log.emplace_back(connected.Failed() ? ToText(connected.Why().reason) : "not");
    // One of its own, whose condition captures what has to be destroyed.
    const std::string number = "a number that does not fit into the text itself";
    auto own = Follow<CallStatusChanged>(test.service, test.service.DialCall(number),
                                         [number](const CallStatusChanged&) { return Verdict::NotYet; });
    const Answer<CallStatusChanged> dialed = co_await std::move(own);
    test.log.emplace_back(dialed.Refused() && dialed.RefusedBy() == nullptr ? "refused" : "not");
  }(*this, phone)
                                                .StartIn(*scope);
  service.Advance(1999ms);
  EXPECT_THAT(log, IsEmpty());
  service.Advance(1ms);
  EXPECT_THAT(log, ElementsAre("refused for " + std::to_string(BT_PAIR_REASON_TIMEOUT)));
  service.Advance(1s);
  EXPECT_EQ(log.back(), "paired with 00:1A:7D:DA:71:13") << "the event came before the answer";
  service.Advance(3s);
  EXPECT_THAT(log, testing::SizeIs(4));
  EXPECT_EQ(log[2], "timed out");
  EXPECT_EQ(log[3], "refused");
  EXPECT_TRUE(scope->IsEmpty());
  EXPECT_FALSE(service.IsAwaited<PairChanged>() || service.IsAwaited<ConnectionChanged>() ||
               service.IsAwaited<CallStatusChanged>());
}

/// Waits for what is named, in whichever service.
Job WaitFor(std::string what, Service& service, std::vector<std::string>& log) {
  const Local local(log);
  if (what == "Request") {
    static_cast<void>(co_await service.DialCall("110"));
  } else if (what == "Outcome") {
    static_cast<void>(co_await SwitchPower(service, true));
  } else if (what == "Sleep") {
    co_await Sleep(service, 5ms);
  } else {
    co_await Next<PowerChanged>(service);
  }
  log.emplace_back("goes on");
}

/// What a coroutine may wait for, by turns.
class WaitingTest : public CoroutineTest, public testing::WithParamInterface<const char*> {
 public:
  WaitingTest() {
    service.WillAccept(&Service::DialCall);
    service.WillAccept(&Service::SetPower);
  }

  Job Wait() { return WaitFor(GetParam(), service, log); }
  /// Waits, after it has done something that destroys its scope.
  Job Ruin(std::function<void()> what) {
    co_await Sleep(service, 0ms);
    what();
    log.emplace_back("ruined");
    const std::string kind = GetParam();
    const Local local(log);
    if (kind == "Request") {
      static_cast<void>(co_await service.DialCall("110"));
    } else if (kind == "Outcome") {
      static_cast<void>(co_await SwitchPower(service, true));
    } else if (kind == "Sleep") {
      co_await Sleep(service, 5ms);
    } else {
      Next<PowerChanged> next(service);
      co_await next;
    }
    log.emplace_back("goes on");
  }
  void Happen() {
    service.Emit(PowerChanged{BT_POWER_ON});
    service.Advance(10ms);
  }
};

INSTANTIATE_TEST_SUITE_P(For, WaitingTest, testing::Values("Request", "Outcome", "Sleep", "Next"),
                         [](const auto& test) { return std::string(test.param); });

TEST_P(WaitingTest, GoesOn) {
  Wait().StartIn(*scope);
  EXPECT_THAT(log, IsEmpty());
  Happen();
  EXPECT_THAT(log, ElementsAre("goes on", "destroyed"));
  EXPECT_TRUE(scope->IsEmpty());
}

TEST_P(WaitingTest, IsDestroyedWithItsScope) {
  Wait().StartIn(*scope);
  service.Settle();
  if (std::string(GetParam()) == "Request") {
    scope->Clear();
    Wait().StartIn(*scope);
    log.clear();
  }
  scope.reset();
  EXPECT_THAT(log, ElementsAre("destroyed"));
  Happen();
  EXPECT_EQ(log.size(), 1u);
}

TEST_P(WaitingTest, IsDestroyedByACallback) {
  Timer timer(service);
  timer.Start(0ms, [this] { scope->Clear(); });
  Wait().StartIn(*scope);
  service.Settle();
  Happen();
  EXPECT_THAT(log, ElementsAre("destroyed"));
}

TEST_P(WaitingTest, MayDestroyItsScopeAndEndsWhereItWaitsNext) {
  Ruin([this] { scope.reset(); }).StartIn(*scope);
  Happen();
  EXPECT_THAT(log, ElementsAre("ruined", "destroyed"));
  EXPECT_THAT(service.Requests(), IsEmpty()) << "it does not send what it would wait for";
  Happen();
  EXPECT_EQ(log.size(), 2u);
}

TEST_P(WaitingTest, MayDestroyItsScopeBeforeItFirstWaits) {
  [](WaitingTest& test) -> Job {
    test.scope.reset();
    const Local local(test.log);
    co_await Sleep(test.service, 0ms);
    test.log.emplace_back("goes on");
  }(*this)
                               .StartIn(*scope);
  EXPECT_THAT(log, ElementsAre("destroyed"));
  Happen();
  EXPECT_EQ(log.size(), 1u);
}

TEST_P(WaitingTest, MayDestroyItsScopeAndEnd) {
  [](WaitingTest& test) -> Job {
    const Local local(test.log);
    co_await Sleep(test.service, 0ms);
    test.scope.reset();
  }(*this)
                               .StartIn(*scope);
  Happen();
  EXPECT_THAT(log, ElementsAre("destroyed"));
}

TEST_P(WaitingTest, NeverGoesOnOnceTheServiceIsGone) {
  auto other = std::make_unique<FakeService>();
  other->WillAccept(&Service::DialCall);
  other->WillAccept(&Service::SetPower);
  WaitFor(GetParam(), *other, log).StartIn(*scope);
  other.reset();
  EXPECT_THAT(log, IsEmpty());
  EXPECT_FALSE(scope->IsEmpty());
  scope.reset();
  EXPECT_THAT(log, ElementsAre("destroyed"));
}

TEST_P(WaitingTest, MayDestroyTheServiceAndStaysUntilItsScopeGoes) {
  auto other = std::make_unique<FakeService>();
  [](std::unique_ptr<FakeService>& service, std::vector<std::string>& log,
     std::string what) -> Job {
    const Local local(log);
    Request<> request = service->DialCall("110");
    Outcome<PowerChanged> outcome = SwitchPower(*service, true);
    Sleep sleep(*service, 5ms);
    Next<PowerChanged> next(*service);
    co_await Sleep(*service, 0ms);
    service.reset();
    log.emplace_back("ruined");
    if (what == "Request") {
      static_cast<void>(co_await std::move(request));
    } else if (what == "Outcome") {
      static_cast<void>(co_await std::move(outcome));
    } else if (what == "Sleep") {
      co_await std::move(sleep);
    } else {
      co_await next;
    }
    log.emplace_back("goes on");
  }(other, log, GetParam())
                              .StartIn(*scope);
  other->Advance(10ms);
  EXPECT_EQ(other, nullptr);
  EXPECT_THAT(log, ElementsAre("ruined"));
  scope.reset();
  EXPECT_THAT(log, ElementsAre("ruined", "destroyed"));
}

TEST_F(CoroutineTest, MayWaitForWhatOthersOwn) {
  auto next = std::make_unique<Next<PowerChanged>>(service);
  const auto wait = [](CoroutineTest& test, Next<PowerChanged>& next) -> Job {
    const Local local(test.log);
    co_await next;
    test.log.emplace_back("goes on");
  };
  wait(*this, *next).StartIn(*scope);
  scope->Clear();
  EXPECT_THAT(log, ElementsAre("destroyed"));
  service.Emit(PowerChanged{BT_POWER_ON});
  service.Settle();
  EXPECT_EQ(log.size(), 1u);
  wait(*this, *next).StartIn(*scope);
  EXPECT_THAT(log, ElementsAre("destroyed", "goes on", "destroyed")) << "with the event that came before";
  log.clear();
  wait(*this, *next).StartIn(*scope);
  next.reset();
  service.Emit(PowerChanged{BT_POWER_ON});
  service.Settle();
  EXPECT_THAT(log, IsEmpty());
  scope.reset();
  EXPECT_THAT(log, ElementsAre("destroyed"));
}

TEST_F(CoroutineTest, MayBeDestroyedByTheConditionOfItsEvent) {
  [](CoroutineTest& test) -> Job {
    const Local local(test.log);
    Next<PowerChanged> next(test.service, [&test, text = std::string("captured")](const PowerChanged&) {
      test.scope.reset();
      EXPECT_EQ(text, "captured");
      return true;
    });
    co_await next;
    test.log.emplace_back("goes on");
  }(*this)
                                 .StartIn(*scope);
  service.Emit(PowerChanged{BT_POWER_ON});
  service.Settle();
  EXPECT_THAT(log, ElementsAre("destroyed"));
}

TEST_F(CoroutineTest, AnExceptionIsLoggedAndGoesNoFurther) {
  bttest::LogCapture complaints;
  const auto fail = [](CoroutineTest& test, bool waits) -> Job {
    const Local local(test.log);
    if (waits) {
      co_await Sleep(test.service, 0ms);
    }
    throw std::runtime_error("a fault of the application");
  };
  EXPECT_NO_THROW(fail(*this, false).StartIn(*scope));
  EXPECT_THAT(log, ElementsAre("destroyed"));
  fail(*this, true).StartIn(*scope);
  EXPECT_NO_THROW(service.Settle());
  EXPECT_THAT(log, ElementsAre("destroyed", "destroyed"));
  EXPECT_TRUE(scope->IsEmpty());
  EXPECT_THAT(complaints.Complaints(),
              ElementsAre(HasSubstr("a coroutine has thrown an exception: a fault"),
                          HasSubstr("a coroutine has thrown an exception: a fault")));
}

TEST_F(CoroutineTest, IsRefusedToAnotherThreadThanItsScopes) {
  Dial("110").StartIn(*scope);
  bttest::LogCapture complaints;
  std::thread([this] { Dial("112").StartIn(*scope); }).join();
  EXPECT_THAT(log, ElementsAre("dials 110"));
  std::thread([this] {
    Scope own;
    Dial("113").StartIn(own);
    EXPECT_FALSE(own.IsEmpty());
  }).join();
  EXPECT_THAT(log, ElementsAre("dials 110", "dials 113", "destroyed")) << "its request is not sent";
  EXPECT_THAT(complaints.Complaints(),
              ElementsAre(HasSubstr("another thread"),
                          HasSubstr("another thread than the loop's asks for DialCall")));
}

TEST_F(CoroutineTest, DoesNotGoOnOnceAnotherThreadHasDestroyedItsScope) {
  service.WillAccept(&Service::DialCall);
  Dial("110").StartIn(*scope);
  bttest::LogCapture complaints;
  std::thread([this] { scope.reset(); }).join();
  EXPECT_THAT(complaints.Complaints(), ElementsAre(HasSubstr("has destroyed a scope")));
  EXPECT_THAT(log, ElementsAre("dials 110"));
  service.Settle();
  EXPECT_THAT(log, ElementsAre("dials 110", "destroyed")) << "by the loop";
}

/// Against a bus.
class CoroutineOnTheBusTest : public testing::Test {
 public:
  bttest::BusDaemon bus;
  bttest::Recorder recorder;
  Service service;
  Scope scope;
};

TEST_F(CoroutineOnTheBusTest, AsksListensAndSleeps) {
  recorder.SetReply("GetPowerStatus", g_variant_new("(y)", BT_POWER_ON));
  bool isDone = false;
  [](CoroutineOnTheBusTest& test, bool& isDone) -> Job {
    Next<SignalChanged> next(test.service);
    const Answer<PowerStatus> status = co_await test.service.GetPowerStatus();
    EXPECT_EQ(*status, BT_POWER_ON);
    test.recorder.Emit("OnBtSignalChanged", g_variant_new("(y)", 4));
    const SignalChanged event = co_await next;
    EXPECT_EQ(event.bars, 4);
    co_await Sleep(test.service, 1ms);
    test.recorder.DieOn("SetPower");
    const Answer<> answer = co_await test.service.SetPower(false);
    EXPECT_TRUE(answer.Failed() && answer.Why().reason == Reason::ServiceGone);
    isDone = true;
  }(*this, isDone)
                                                       .StartIn(scope);
  EXPECT_TRUE(bttest::RunUntil([&] { return isDone; }));
}

TEST_F(CoroutineOnTheBusTest, WaitsForAnOutcome) {
  recorder.SetReply("SetPower", g_variant_new("(i)", 1));
  bool isDone = false;
  [](CoroutineOnTheBusTest& test, bool& isDone) -> Job {
    const Answer<PowerChanged> power = co_await SwitchPower(test.service, true);
    EXPECT_TRUE(power && power->status == BT_POWER_ON);
    test.recorder.DieOn("SetPower");
    const Answer<PowerChanged> dead = co_await SwitchPower(test.service, false);
    EXPECT_TRUE(dead.Failed() && dead.Why().reason == Reason::ServiceGone);
    isDone = true;
  }(*this, isDone)
                                                       .StartIn(scope);
  ASSERT_TRUE(bttest::RunUntil([&] { return recorder.WaitForCalls(1, {}); }));
  EXPECT_FALSE(isDone);
  recorder.Emit("OnOpenBtStatusChanged", g_variant_new("(y)", BT_POWER_ON));
  EXPECT_TRUE(bttest::RunUntil([&] { return isDone; }));
}

TEST_F(CoroutineOnTheBusTest, IsDestroyedWhileItsRequestIsUnderWay) {
  std::vector<std::string> log;
  recorder.Hang("SetPower");
  [](Service& service, std::vector<std::string>& log) -> Job {
    const Local local(log);
    static_cast<void>(co_await service.SetPower(true));
    log.emplace_back("goes on");
  }(service, log)
                                                             .StartIn(scope);
  ASSERT_TRUE(bttest::WaitFor(service, Availability::Present));
  ASSERT_TRUE(recorder.WaitForCalls(1));
  scope.Clear();
  EXPECT_THAT(log, ElementsAre("destroyed"));
  recorder.Release("SetPower");
  EXPECT_TRUE(bttest::Wait(service.GetPowerStatus()).Accepted());
  EXPECT_EQ(log.size(), 1u);
}

}  // namespace
