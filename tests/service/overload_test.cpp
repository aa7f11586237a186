// More happens in the world than the machine, or the bus, can keep up with.

#include <chrono>
#include <csignal>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/MainLoop.h"
#include "support/TemporaryDirectory.h"
#include "tests/drive/ProcessUsage.h"
#include "tests/service/running_service.h"

namespace btservice {
namespace {

using Clock = std::chrono::steady_clock;

/// Kilobytes. The queue used to take hundreds of megabytes in this time.
#ifdef __SANITIZE_ADDRESS__
constexpr long kMostGrowth = 1000000;  // freed memory stays in quarantine: 360 MB were seen
#else
constexpr long kMostGrowth = 20000;
#endif

/// A world whose phone changes its signal strength twice in each millisecond.
std::string WorldWithoutPause(const bttest::TemporaryDirectory& directory) {
  std::string path = directory.Path() / "without-pause.json";
  std::ofstream(path) << R"({
    "format": 1,
    "devices": [{"address": "00:1A:7D:DA:71:13", "name": "Phone", "profiles": ["hfp"], "paired": true, "phone": {}}],
    "timeline": [
      {"atMs": 1000, "do": "connect", "device": "00:1A:7D:DA:71:13", "profile": "hfp"},
      {"atMs": 5000, "everyMs": 1, "do": "signal", "device": "00:1A:7D:DA:71:13", "bars": 1},
      {"atMs": 5000, "everyMs": 1, "do": "signal", "device": "00:1A:7D:DA:71:13", "bars": 2}
    ]})";
  return path;
}

/// Asks for the power status again and again, for so long; the test ends if an answer does not come.
void AskFor(RunningService& service, std::chrono::seconds time) {
  for (const auto end = Clock::now() + time; Clock::now() < end;) {
    service.Ask("GetPowerStatus");
    bttest::RunPending();
    service.ForgetSignals();
  }
}

void ExpectAliveAndSmall(const std::vector<std::string>& options) {
  RunningService service(options);
  const long before = ProcessUsage(service.Process().Pid()).kilobytes;
  // The service used to be deaf after two and a half seconds.
  AskFor(service, std::chrono::seconds(4));
  EXPECT_LT(ProcessUsage(service.Process().Pid()).kilobytes, before + kMostGrowth);
  service.Process().Signal(SIGTERM);
  EXPECT_EQ(service.Process().Wait(), 0);
}

TEST(OverloadTest, TheHighestSpeedLeavesTimeForRequestsAndTheEnd) {
  ExpectAliveAndSmall({"--no-state", "--world", "two-phones", "--speed", "100000"});
}

TEST(OverloadTest, AWorldWithoutPauseLeavesTimeForRequestsAndTheEnd) {
  const bttest::TemporaryDirectory directory;
  ExpectAliveAndSmall({"--no-state", "--world", WorldWithoutPause(directory), "--speed", "200"});
}

}  // namespace
}  // namespace btservice
