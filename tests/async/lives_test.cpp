// Who may be destroyed when: callbacks that destroy everything, and what outlives the service object.

#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/async/AsyncFixture.h"

namespace {

using namespace btasync;
using namespace std::chrono_literals;
using bttest::RunPending;
using bttest::RunUntil;
using bttest::WaitFor;
using testing::ElementsAre;

/// Says when it is destroyed: as what a callback has captured is.
class Trace {
 public:
  explicit Trace(bool& isGone) : m_isGone(&isGone) {}
  Trace(Trace&& other) noexcept : m_isGone(std::exchange(other.m_isGone, nullptr)) {}
  Trace(const Trace&) = delete;
  Trace& operator=(const Trace&) = delete;
  ~Trace() {
    if (m_isGone != nullptr) {
      *m_isGone = true;
    }
  }

 private:
  bool* m_isGone;
};

/// What a callback of each kind may destroy.
class LivesTest : public testing::Test {
 protected:
  LivesTest() : service(std::make_unique<Service>()), scope(std::make_unique<Scope>()) {
    EXPECT_TRUE(WaitFor(*service, Availability::Present));
  }

  /// Calls something in a callback of the kind, held by `scope`, and waits until that has returned.
  enum class In { COMPLETION, LATE_COMPLETION, EVENT, AVAILABILITY, TIMER };
  static constexpr In kAll[] = {In::COMPLETION, In::LATE_COMPLETION, In::EVENT, In::AVAILABILITY, In::TIMER};
  void Run(In in, const std::function<void()>& action) {
    bool hasRun = false;
    const auto run = [&hasRun, &action, text = std::string("what the callback has captured")] {
      action();
      EXPECT_EQ(text, "what the callback has captured") << "it is there until the callback returns";
      hasRun = true;
    };
    Timer timer(*service);
    switch (in) {
      case In::COMPLETION:
        service->GetPowerStatus().Then(*scope, [run](Answer<PowerStatus>) { run(); });
        break;
      case In::LATE_COMPLETION:
        service->DialCall(Text(nullptr)).Then(*scope, [run](Answer<>) { run(); });
        break;
      case In::EVENT:
        service->On<PowerChanged>(*scope, [run](const PowerChanged&) { run(); });
        Settle();
        recorder.Emit("OnOpenBtStatusChanged", g_variant_new("(y)", BT_POWER_ON));
        break;
      case In::AVAILABILITY:
        service->OnAvailability(*scope, [run](Availability) { run(); });
        break;
      case In::TIMER:
        timer.Start(0ms, run);
        break;
    }
    EXPECT_FALSE(hasRun) << "never inside the calling function";
    ASSERT_TRUE(RunUntil([&] { return hasRun; }));
    RunPending();
  }

  /// Waits until the bus has done what it was asked for so far.
  void Settle() { ASSERT_TRUE(bttest::Wait(service->GetPowerStatus()).Accepted()); }

  /// Everything anew.
  void Renew() {
    scope = std::make_unique<Scope>();
    service = std::make_unique<Service>();
    ASSERT_TRUE(WaitFor(*service, Availability::Present));
  }

  bttest::BusDaemon bus;
  bttest::Recorder recorder;
  std::unique_ptr<Service> service;
  std::unique_ptr<Scope> scope;
};

TEST_F(LivesTest, ACallbackMayDestroyItsScope) {
  for (const In in : kAll) {
    Run(in, [this] { scope.reset(); });
    Renew();
  }
}

TEST_F(LivesTest, ACallbackMayClearItsScopeAndUseItAgain) {
  for (const In in : kAll) {
    int answers = 0;
    Run(in, [&] {
      scope->Clear();
      EXPECT_TRUE(scope->IsEmpty());
      service->GetPowerStatus().Then(*scope, [&](Answer<PowerStatus>) { ++answers; });
    });
    EXPECT_TRUE(RunUntil([&] { return answers == 1; }));
    Renew();
  }
}

TEST_F(LivesTest, ACallbackMayDestroyTheService) {
  for (const In in : kAll) {
    Run(in, [this] { service.reset(); });
    Renew();
  }
}

TEST_F(LivesTest, ACallbackMayDestroyEverything) {
  for (const In in : kAll) {
    Run(in, [this] {
      service.reset();
      scope.reset();
    });
    Renew();
    Run(in, [this] {
      scope.reset();
      service.reset();
    });
    Renew();
  }
}

TEST_F(LivesTest, ACallbackMayDestroyAnothersScope) {
  for (const In in : kAll) {
    auto other = std::make_unique<Scope>();
    bool isGone = false;
    recorder.Hang("SetPower");
    service->SetPower(true).Then(*other, [trace = Trace(isGone)](Answer<>) { ADD_FAILURE(); });
    service->On<ScanChanged>(*other, [](const ScanChanged&) { ADD_FAILURE(); });
    Run(in, [&] {
      other.reset();
      EXPECT_TRUE(isGone);
    });
    recorder.Release("SetPower");
    recorder.Emit("OnScanStatusChanged", g_variant_new("(y)", 1));
    Settle();
    Renew();
  }
}

TEST_F(LivesTest, ASubscriptionMayBeDestroyedByTheOneBeforeIt) {
  auto second = std::make_unique<Scope>();
  int third = 0;
  bool isGone = false;
  service->On<PowerChanged>(*scope, [&](const PowerChanged&) { second.reset(); });
  service->On<PowerChanged>(*second, [trace = Trace(isGone)](const PowerChanged&) { ADD_FAILURE(); });
  service->On<PowerChanged>(*scope, [&](const PowerChanged&) { ++third; });
  Settle();
  recorder.Emit("OnOpenBtStatusChanged", g_variant_new("(y)", BT_POWER_ON));
  ASSERT_TRUE(RunUntil([&] { return third == 1; }));
  EXPECT_TRUE(isGone);
}

TEST_F(LivesTest, ASubscriptionMadeInACallbackHearsTheNextEvent) {
  int heard = 0;
  bool isMade = false;
  service->On<PowerChanged>(*scope, [&](const PowerChanged&) {
    if (!std::exchange(isMade, true)) {
      service->On<PowerChanged>(*scope, [&](const PowerChanged&) { ++heard; });
    }
  });
  Settle();
  recorder.Emit("OnOpenBtStatusChanged", g_variant_new("(y)", BT_POWER_ON));
  Settle();
  EXPECT_TRUE(isMade);
  EXPECT_EQ(heard, 0);
  recorder.Emit("OnOpenBtStatusChanged", g_variant_new("(y)", BT_POWER_OFF));
  ASSERT_TRUE(RunUntil([&] { return heard == 1; }));
}

TEST_F(LivesTest, ACallbackMayEndItsCallAndOthers) {
  Call call;
  int completions = 0;
  for (const In in : kAll) {
    recorder.Hang("SetPower");
    Call other = service->SetPower(true).Then(*scope, [&](Answer<> answer) {
      ++completions;
      EXPECT_EQ(answer.Why().reason, Reason::Cancelled);
    });
    const int before = completions;
    Run(in, [&] {
      other.Cancel();
      EXPECT_EQ(completions, before);
    });
    ASSERT_TRUE(RunUntil([&] { return completions == before + 1; }));
    recorder.Release("SetPower");
    Settle();
    scope->Clear();
  }
  EXPECT_EQ(completions, 5);
}

TEST_F(LivesTest, ACallbackMayStopAndStartTimers) {
  auto timer = std::make_unique<Timer>(*service);
  int runs = 0;
  timer->Start(0ms, [&] {
    ++runs;
    EXPECT_FALSE(timer->IsRunning());
    timer->Start(0ms, [&, text = std::string("what the callback has captured")] {
      ++runs;
      timer.reset();
      EXPECT_EQ(text, "what the callback has captured");
    });
  });
  ASSERT_TRUE(RunUntil([&] { return runs == 2; }));
  Timer stopped(*service);
  stopped.Start(0ms, [] { ADD_FAILURE(); });
  stopped.Stop();
  EXPECT_FALSE(stopped.IsRunning());
  Settle();
}

TEST_F(LivesTest, WhatIsLeftOutlivesTheService) {
  bool callIsGone = false;
  recorder.Hang("SetPower");
  Call call = service->SetPower(true).Then(*scope, [trace = Trace(callIsGone)](Answer<>) { ADD_FAILURE(); });
  service->On<PowerChanged>(*scope, [](const PowerChanged&) { ADD_FAILURE(); });
  Request<> unsent = service->SetPower(false);
  Request<> invalid = service->DialCall(Text(nullptr));
  Timer timer(*service);
  timer.Start(0ms, [] { ADD_FAILURE(); });
  Timer unstarted(*service);
  service.reset();
  EXPECT_TRUE(callIsGone) << "nothing can come for it any more";
  EXPECT_FALSE(call.IsUnderWay());
  call.Cancel();

  std::move(unsent).Then(*scope, [](Answer<>) { ADD_FAILURE(); });
  std::move(invalid).Send();
  unstarted.Start(0ms, [] { ADD_FAILURE(); });
  recorder.Release("SetPower");
  recorder.Emit("OnOpenBtStatusChanged", g_variant_new("(y)", BT_POWER_ON));
  service = std::make_unique<Service>();
  Settle();  // all that was on its way to the old one is here by now
  RunPending();
  scope.reset();
}

TEST_F(LivesTest, ADroppedCallDestroysWhatItHasCaptured) {
  bool isGone = false;
  recorder.Hang("SetPower");
  service->SetPower(true).Then(*scope, [trace = Trace(isGone)](Answer<>) { ADD_FAILURE(); });
  EXPECT_FALSE(isGone);
  scope->Clear();
  EXPECT_TRUE(isGone);
  EXPECT_TRUE(scope->IsEmpty());
  recorder.Release("SetPower");
  Settle();
}

TEST_F(LivesTest, WhatACallbackHasCapturedMayOwnItsScope) {
  // A scope that holds what owns it: gone with the callback, which comes once.
  auto own = std::make_shared<Scope>();
  std::weak_ptr<Scope> seen = own;
  int completions = 0;
  Scope& held = *own;
  service->GetPowerStatus().Then(
      held, [own = std::move(own), &completions](Answer<PowerStatus>) { ++completions; });
  ASSERT_TRUE(RunUntil([&] { return completions == 1; }));
  EXPECT_TRUE(seen.expired());

  auto other = std::make_shared<Scope>();
  seen = other;
  Scope& cleared = *other;
  recorder.Hang("SetPower");
  service->SetPower(true).Then(cleared, [other = std::move(other)](Answer<>) { ADD_FAILURE(); });
  cleared.Clear();
  EXPECT_TRUE(seen.expired());
}

TEST_F(LivesTest, ARequestIsSentOnce) {
  Request<> request = service->SetPower(true);
  std::move(request).Send();
  // NOLINTBEGIN(bugprone-use-after-move): what this is about
  std::move(request).Send();
  std::move(request).Then(*scope, [](Answer<>) { ADD_FAILURE(); });
  // NOLINTEND(bugprone-use-after-move)
  Settle();
  EXPECT_THAT(recorder.TakeCallTexts(), ElementsAre("SetPower(byte 0x01,)", "GetPowerStatus()"));
}

TEST_F(LivesTest, ARequestThatIsNotSentIsNotSent) {
  { const Request<> request = service->DialCall("110"); }
  Settle();
  EXPECT_THAT(recorder.TakeCallTexts(), ElementsAre("GetPowerStatus()"));
}

TEST_F(LivesTest, AnExceptionOfACallbackIsLoggedAndGoesNoFurther) {
  for (const In in : kAll) {
    bttest::LogCapture log;
    bool hasThrown = false;
    bool hasRun = false;
    const auto fail = [&] {
      hasThrown = true;
      throw std::runtime_error("a fault of the application");
    };
    Timer timer(*service);
    switch (in) {
      case In::COMPLETION:
        service->GetPowerStatus().Then(*scope, [&](Answer<PowerStatus>) { fail(); });
        break;
      case In::LATE_COMPLETION:
        service->DialCall(Text(nullptr)).Then(*scope, [&](Answer<>) { fail(); });
        break;
      case In::EVENT:
        service->On<PowerChanged>(*scope, [&](const PowerChanged&) { fail(); });
        service->On<PowerChanged>(*scope, [&](const PowerChanged&) { hasRun = true; });
        Settle();
        recorder.Emit("OnOpenBtStatusChanged", g_variant_new("(y)", BT_POWER_ON));
        ASSERT_TRUE(RunUntil([&] { return hasRun; })) << "the next one hears it all the same";
        break;
      case In::AVAILABILITY:
        service->OnAvailability(*scope, [&](Availability) { fail(); });
        break;
      case In::TIMER:
        timer.Start(0ms, fail);
        break;
    }
    ASSERT_TRUE(RunUntil([&] { return hasThrown; }));
    Settle();
    EXPECT_THAT(log.Complaints(), ElementsAre(testing::HasSubstr("a fault of the application")));
    scope->Clear();
  }
  bttest::LogCapture log;
  service->GetPowerStatus().Then(*scope, [](Answer<PowerStatus>) { throw 7; });
  Settle();
  EXPECT_THAT(log.Complaints(), ElementsAre(testing::HasSubstr("no std::exception")));
}

}  // namespace
