// Without a log system every line is replaced by one on standard output, and nothing else changes.

#include <functional>
#include <string>

#include <gmock/gmock.h>
#include <unistd.h>

#include <mwp/MWPLog.h>

#include "ipc/BtClientIpcAdapter.h"
#include "system/fixtures.h"

namespace bttest {
namespace {

/// Lines are written as "[process][file:..][func:..][line:..]..."; this is one without its line number.
std::string FallbackLine(const std::string& file, const std::string& function) {
  return "[" + std::to_string(getpid()) + "][file:" + file + "][func:" + function +
         "][line:N]Warn:Log system not init.\n";
}

std::string WithoutLineNumbers(std::string output) {
  const std::string mark = "[line:";
  for (auto at = output.find(mark); at != std::string::npos; at = output.find(mark, at + mark.size())) {
    const auto number = at + mark.size();
    output.replace(number, output.find(']', number) - number, "N");
  }
  return output;
}

struct LogFallback : WithBus {
  LogFallback() { liblog_category = nullptr; }

  static std::string OutputOf(const std::function<void()>& action) {
    testing::internal::CaptureStdout();
    action();
    return testing::internal::GetCapturedStdout();
  }
};

TEST_F(LogFallback, ConnectingWritesOneForEachLineAndSucceedsAllTheSame) {
  Recorder service;
  Client::GetInstance();
  const std::string output = OutputOf([] { EXPECT_EQ(MWP_CreateBlueTooth(), 1); });
  const std::string line = FallbackLine("ipc/BtClientIpcAdapter", "InitDBusConnect");
  EXPECT_EQ(WithoutLineNumbers(output), line + line);
}

TEST_F(LogFallback, ConnectingWritesOneForEachFailureAndGivesUpAllTheSame) {
  bus.Stop();
  Client::GetInstance();
  const std::string output = OutputOf([] { EXPECT_EQ(MWP_CreateBlueTooth(), 0); });
  const std::string line = FallbackLine("ipc/BtClientIpcAdapter", "InitDBusConnect");
  EXPECT_EQ(WithoutLineNumbers(output), line + line + line + line + line + line + line + line);
}

TEST_F(LogFallback, StoppingWritesTheLineOfExitInstanceWithItsNumber) {
  Recorder service;
  ASSERT_EQ(MWP_CreateBlueTooth(), 1);
  const std::string output = OutputOf([] { MWP_DestroyBlueTooth(); });
  EXPECT_EQ(output, "[" + std::to_string(getpid()) +
                        "][file:libbluetooth/MWPBtClient][func:ExitInstance][line:64]Warn:Log system not "
                        "init.\n");
}

TEST_F(LogFallback, AFailedRequestWritesOneAndAnswersItsPreset) {
  BtClientIpcAdapter adapter;
  const std::string output = OutputOf([&] { EXPECT_EQ(adapter.SetPower(1), 0); });
  EXPECT_EQ(WithoutLineNumbers(output), FallbackLine("ipc/BtClientIpcAdapter", "SetPower"));
}

}  // namespace
}  // namespace bttest
