// The clock of the running service: turns are short, and a time that cannot be kept up with falls behind.

#include <chrono>
#include <functional>

#include <gtest/gtest.h>

#include "service/app/GLibScheduler.h"
#include "support/LogCapture.h"
#include "support/MainLoop.h"

namespace btservice {
namespace {

using namespace std::chrono_literals;

/// A task that takes longer than the time until it is due again.
class TooMuchWork {
 public:
  explicit TooMuchWork(Scheduler& scheduler) : m_scheduler(scheduler) { Next(); }
  int Runs() const { return m_runs; }

 private:
  void Next() {
    m_scheduler.After(1ms, [this] {
      ++m_runs;
      const auto end = std::chrono::steady_clock::now() + 100us;
      while (std::chrono::steady_clock::now() < end) {
      }
      Next();
    });
  }

  Scheduler& m_scheduler;
  int m_runs = 0;
};

TEST(GLibSchedulerTest, FallsBehindAndSaysSoOnce) {
  bttest::LogCapture log;
  const auto begin = std::chrono::steady_clock::now();
  GLibScheduler scheduler(100000);
  const TooMuchWork work(scheduler);
  ASSERT_TRUE(bttest::RunUntil([&] { return !log.Messages().empty(); }));
  const auto now = scheduler.Now();
  EXPECT_LT(now, (std::chrono::steady_clock::now() - begin) * 100000 / 2);
  const int runs = work.Runs();
  ASSERT_TRUE(bttest::RunUntil([&] { return work.Runs() > 3 * runs; })) << "it falls behind once more";
  EXPECT_EQ(log.Messages().size(), 1U);
}

TEST(GLibSchedulerTest, RunsNothingWhileItMayNot) {
  bool mayGoOn = false;
  bool ran = false;
  GLibScheduler scheduler(1000, [&] { return mayGoOn; });
  scheduler.After(1ms, [&] { ran = true; });
  bool timeHasPassed = false;
  g_timeout_add(
      50,
      [](gpointer passed) -> gboolean {
        *static_cast<bool*>(passed) = true;
        return G_SOURCE_REMOVE;
      },
      &timeHasPassed);
  ASSERT_TRUE(bttest::RunUntil([&] { return timeHasPassed; }));
  EXPECT_FALSE(ran);
  mayGoOn = true;
  EXPECT_TRUE(bttest::RunUntil([&] { return ran; })) << "it looks again by itself";
}

}  // namespace
}  // namespace btservice
