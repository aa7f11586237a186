#include <string>

#include <gtest/gtest.h>

#include "service/time/ManualScheduler.h"
#include "service/time/Timer.h"

namespace btservice {
namespace {

using namespace std::chrono_literals;

TEST(SchedulerTest, RunsTasksInTheOrderOfTheirTimes) {
  ManualScheduler scheduler;
  std::string order;
  scheduler.After(20ms, [&] { order += 'c'; });
  scheduler.After(10ms, [&] { order += 'a'; });
  scheduler.After(10ms, [&] { order += 'b'; });
  scheduler.Advance(20ms);
  EXPECT_EQ(order, "abc");
}

TEST(SchedulerTest, ATaskSeesItsOwnTimeHoweverLateItRuns) {
  ManualScheduler scheduler;
  Milliseconds first{0};
  Milliseconds second{0};
  scheduler.After(10ms, [&] {
    first = scheduler.Now();
    scheduler.After(5ms, [&] { second = scheduler.Now(); });
  });
  scheduler.Advance(1000ms);
  EXPECT_EQ(first, 10ms);
  EXPECT_EQ(second, 15ms);
  EXPECT_EQ(scheduler.Now(), 1000ms);
}

TEST(SchedulerTest, ACancelledTaskDoesNotRun) {
  ManualScheduler scheduler;
  bool ran = false;
  const Scheduler::TaskId id = scheduler.After(10ms, [&] { ran = true; });
  scheduler.Cancel(id);
  scheduler.Cancel(id);
  scheduler.Cancel(0);
  scheduler.Advance(20ms);
  EXPECT_FALSE(ran);
}

TEST(TimerTest, StartingAgainTakesTheFirstBack) {
  ManualScheduler scheduler;
  Timer timer(scheduler);
  std::string order;
  timer.Start(10ms, [&] { order += 'a'; });
  timer.Start(15ms, [&] { order += 'b'; });
  EXPECT_TRUE(timer.IsRunning());
  scheduler.Advance(20ms);
  EXPECT_EQ(order, "b");
  EXPECT_FALSE(timer.IsRunning());
}

TEST(TimerTest, ATaskMayStartItsOwnTimer) {
  ManualScheduler scheduler;
  Timer timer(scheduler);
  int runs = 0;
  timer.Start(10ms, [&] {
    ++runs;
    timer.Start(10ms, [&] { ++runs; });
  });
  scheduler.Advance(20ms);
  EXPECT_EQ(runs, 2);
}

TEST(TimerTest, GoesWithItsObject) {
  ManualScheduler scheduler;
  bool ran = false;
  {
    Timer timer(scheduler);
    TaskGroup group(scheduler);
    timer.Start(10ms, [&] { ran = true; });
    group.After(10ms, [&] { ran = true; });
  }
  scheduler.Advance(20ms);
  EXPECT_FALSE(ran);
}

TEST(TaskGroupTest, CallsOffWhatIsStillWaiting) {
  ManualScheduler scheduler;
  TaskGroup group(scheduler);
  std::string order;
  group.After(10ms, [&] { order += 'a'; });
  group.After(20ms, [&] { order += 'b'; });
  scheduler.Advance(10ms);
  group.CancelAll();
  scheduler.Advance(20ms);
  EXPECT_EQ(order, "a");
}

}  // namespace
}  // namespace btservice
