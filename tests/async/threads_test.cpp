// What another thread than the loop's asks for is refused and logged.

#include <memory>
#include <thread>

#include <btasync/Mirror.h>
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
using testing::HasSubstr;
using testing::IsEmpty;

class ThreadsTest : public testing::Test {
 protected:
  ThreadsTest() { EXPECT_TRUE(WaitFor(*service, Availability::Present)); }

  /// Runs it in another thread, and expects one line in the log.
  template <typename Function>
  void Refuses(Function function) {
    bttest::LogCapture log;
    std::thread(function).join();
    EXPECT_THAT(log.Complaints(), ElementsAre(HasSubstr("btasync: another thread than the loop's")));
  }
  /// Waits until all that is on its way is here.
  void Settle() { ASSERT_TRUE(bttest::Wait(service->GetPowerStatus()).Accepted()); }

  bttest::BusDaemon bus;
  bttest::Recorder recorder;
  std::unique_ptr<Service> service = std::make_unique<Service>();
  std::unique_ptr<Scope> scope = std::make_unique<Scope>();
};

TEST_F(ThreadsTest, Requests) {
  Refuses([this] { service->SetPower(true).Then(*scope, [](Answer<>) { ADD_FAILURE(); }); });
  Refuses([this] { service->SetPower(true).Send(); });
  Settle();
  EXPECT_THAT(recorder.TakeCallTexts(), ElementsAre("GetPowerStatus()"));
  EXPECT_TRUE(scope->IsEmpty());
}

TEST_F(ThreadsTest, Subscriptions) {
  Refuses([this] { service->On<PowerChanged>(*scope, [](const PowerChanged&) { ADD_FAILURE(); }); });
  Refuses([this] { service->OnAvailability(*scope, [](Availability) { ADD_FAILURE(); }); });
  Settle();
  recorder.Emit("OnOpenBtStatusChanged", g_variant_new("(y)", BT_POWER_ON));
  Settle();
  EXPECT_TRUE(scope->IsEmpty());
}

TEST_F(ThreadsTest, TheServicesOwn) {
  Refuses([this] { EXPECT_EQ(service->Now(), Availability::Unknown); });
  Refuses([this] { service->SetDeadline(0ms); });
  EXPECT_TRUE(bttest::Wait(service->GetPowerStatus()).Accepted()) << "not with a deadline of nothing";
}

TEST_F(ThreadsTest, TheEndOfACall) {
  recorder.Hang("SetPower");
  int accepted = 0;
  Call call =
      service->SetPower(true).Then(*scope, [&](Answer<> answer) { accepted += answer.Failed() ? 0 : 1; });
  Refuses([&] { call.Cancel(); });
  recorder.Release("SetPower");
  ASSERT_TRUE(RunUntil([&] { return scope->IsEmpty(); }));
  EXPECT_EQ(accepted, 1);
}

TEST_F(ThreadsTest, ClearingAScope) {
  int answers = 0;
  service->SetPower(true).Then(*scope, [&](Answer<>) { ++answers; });
  Refuses([&] { scope->Clear(); });
  ASSERT_TRUE(RunUntil([&] { return answers == 1; }));
}

TEST_F(ThreadsTest, TheEndOfAScopeAfterWhichNothingOfItRuns) {
  recorder.SetReply("SetPower", g_variant_new("(i)", 1));
  auto captured = std::make_shared<int>(0);
  service->SetPower(true).Then(*scope, [captured](Answer<>) { ADD_FAILURE(); });
  service->DialCall(Text(nullptr)).Then(*scope, [captured](Answer<>) { ADD_FAILURE(); });
  service->On<PowerChanged>(*scope, [captured](const PowerChanged&) { ADD_FAILURE(); });
  service->OnAvailability(*scope, [captured](Availability) { ADD_FAILURE(); });
  Refuses([this] { scope.reset(); });
  Settle();  // the bus knows by now what was subscribed
  recorder.Emit("OnOpenBtStatusChanged", g_variant_new("(y)", BT_POWER_ON));
  Settle();
  RunPending();
  EXPECT_EQ(captured.use_count(), 1) << "all of it has gone, by the loop";
}

TEST_F(ThreadsTest, AnEmptyScopeMayGoAnywhere) {
  bttest::LogCapture log;
  service->SetPower(true).Then(*scope, [](Answer<>) {});
  ASSERT_TRUE(RunUntil([&] { return scope->IsEmpty(); }));
  std::thread([this] { scope.reset(); }).join();
  EXPECT_THAT(log.Complaints(), IsEmpty());
}

TEST_F(ThreadsTest, TheEndOfTheServiceAfterWhichNothingRuns) {
  recorder.Hang("SetPower");
  auto captured = std::make_shared<int>(0);
  service->SetPower(true).Then(*scope, [captured](Answer<>) { ADD_FAILURE(); });
  service->On<PowerChanged>(*scope, [](const PowerChanged&) { ADD_FAILURE(); });
  service->OnAvailability(*scope, [](Availability) { ADD_FAILURE(); });
  Timer timer(*service);
  timer.Start(0ms, [] { ADD_FAILURE(); });
  Refuses([this] { service.reset(); });
  recorder.Release("SetPower");
  recorder.Emit("OnOpenBtStatusChanged", g_variant_new("(y)", BT_POWER_ON));
  service = std::make_unique<Service>();
  Settle();
  RunPending();
  EXPECT_EQ(captured.use_count(), 1) << "the loop has ended it";
}

TEST_F(ThreadsTest, Timers) {
  Timer timer(*service);
  Refuses([&] { timer.Start(0ms, [] { ADD_FAILURE(); }); });
  bool hasRun = false;
  timer.Start(0ms, [&] { hasRun = true; });
  Refuses([&] { timer.Stop(); });
  ASSERT_TRUE(RunUntil([&] { return hasRun; }));
  auto other = std::make_unique<Timer>(*service);
  other->Start(0ms, [] { ADD_FAILURE(); });
  Refuses([&] { other.reset(); });
  Settle();
}

TEST_F(ThreadsTest, Mirrors) {
  recorder.SetReply("GetPowerStatus", g_variant_new("(y)", BT_POWER_ON));
  Mirror mirror(*service, PART_ADAPTER, [](const State&, unsigned) {});
  ASSERT_TRUE(RunUntil([&] { return mirror.Now().adapter.power == BT_POWER_ON; }));
  Settle();
  recorder.TakeCalls();
  Refuses([&] { EXPECT_EQ(mirror.Now().adapter.power, BT_POWER_OFF); });
  Refuses([&] { mirror.Want(PART_MUSIC); });
  Refuses([&] { mirror.Refresh(PART_ADAPTER); });
  Settle();
  EXPECT_THAT(recorder.TakeCallTexts(), ElementsAre("GetPowerStatus()")) << "but what has settled it";
}

TEST_F(ThreadsTest, AScopeThatHoldsWhatBelongsToAnotherLoop) {
  recorder.Hang("SetPower");
  service->SetPower(true).Then(*scope, [](Answer<>) {});
  Refuses([this] {
    const OwnedMainContext context(g_main_context_new());
    {
      Service other(context.get());
      other.SetPower(false).Then(*scope, [](Answer<>) { ADD_FAILURE(); });
    }
  });
  recorder.Release("SetPower");
  ASSERT_TRUE(RunUntil([&] { return scope->IsEmpty(); }));
}

TEST_F(ThreadsTest, ALoopThatRunsInAnotherThreadThanTheServicesMaker) {
  bttest::LogCapture log;
  const OwnedMainContext context(g_main_context_new());
  auto other = std::make_unique<Service>(context.get());
  other->SetPower(true).Within(0ms).Then(*scope, [](Answer<>) { ADD_FAILURE(); });
  std::thread([&] {
    ASSERT_TRUE(bttest::WaitUntil([&] {
      g_main_context_iteration(context.get(), FALSE);
      return log.Complaints().size() >= 2;
    }));
  }).join();
  EXPECT_THAT(log.Complaints(), testing::Each(HasSubstr("that it has not made")));
  other.reset();
}

}  // namespace
