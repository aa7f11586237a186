#include "support/LogCapture.h"

#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#define MWP_LOG_SOURCE "test/log_capture"
#include <mwp/MWPLog.h>

namespace bttest {
namespace {

using testing::ElementsAre;

TEST(LogCapture, CollectsPlaceLevelAndTextOfEachLine) {
  LogCapture log;
  MWP_LOG_AT(12, MWP_LOG_DEBUG, "a %d", 1);
  MWP_LOG_AT(34, MWP_LOG_ERROR, "%s", "b");
  EXPECT_THAT(log.Records(), ElementsAre(LogRecord{"test/log_capture", "TestBody", 12, 20, "a 1"},
                                         LogRecord{"test/log_capture", "TestBody", 34, 100, "b"}));
  EXPECT_THAT(log.OfLevel(100), ElementsAre(LogRecord{"test/log_capture", "TestBody", 34, 100, "b"}));
  EXPECT_THAT(log.Messages(), ElementsAre("a 1", "b"));
  EXPECT_EQ(2U, log.OfFunction("TestBody").size());
  EXPECT_TRUE(log.OfFunction("Other").empty());
  EXPECT_TRUE(log.Complaints().empty());
  log.Clear();
  EXPECT_TRUE(log.Records().empty());
}

TEST(LogCapture, TellsComplaintsOfGlibApart) {
  LogCapture log;
  g_log("GLib-Test", G_LOG_LEVEL_CRITICAL, "assertion failed");
  g_log_structured("Structured", G_LOG_LEVEL_WARNING, "MESSAGE", "be warned");
  g_log("GLib-Test", G_LOG_LEVEL_MESSAGE, "no complaint");
  EXPECT_THAT(log.Complaints(), ElementsAre("GLib-Test: assertion failed", "Structured: be warned"));
  EXPECT_TRUE(log.Records().empty());
}

TEST(LogCapture, CollectsOnlyWhileItLives) {
  { LogCapture first; }
  MWP_LOG(MWP_LOG_DEBUG, "between");
  LogCapture second;
  MWP_LOG(MWP_LOG_DEBUG, "within");
  EXPECT_THAT(second.Messages(), ElementsAre("within"));
}

void LogLines(int count) {
  for (int line = 0; line < count; ++line) {
    MWP_LOG(MWP_LOG_DEBUG, "line %d", line);
  }
}

TEST(LogCapture, LosesNothingOfSeveralThreads) {
  constexpr int kThreads = 4;
  constexpr int kLines = 500;
  LogCapture log;
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back(LogLines, kLines);
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(static_cast<std::size_t>(kThreads * kLines), log.Records().size());
}

}  // namespace
}  // namespace bttest
