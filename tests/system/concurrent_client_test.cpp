// The creation of the client, and its start and stop, on many threads at once.

#include <atomic>
#include <memory>
#include <vector>

#include <gmock/gmock.h>

#include "system/fixtures.h"
#include "system/run_together.h"

namespace bttest {
namespace {

using testing::SizeIs;

constexpr std::size_t kThreads = 4;

struct ConcurrentClient : WithBus {};

TEST_F(ConcurrentClient, OnlyOneClientIsMadeHoweverManyThreadsAskForTheFirst) {
  constexpr int kRounds = 20;
  for (int round = 0; round < kRounds; ++round) {
    LogCapture log;
    std::atomic<MWPBtClient*> first{nullptr};
    RunTogether(kThreads, [&] {
      MWPBtClient* const client = Client::GetInstance();
      MWPBtClient* others = nullptr;
      if (!first.compare_exchange_strong(others, client)) {
        EXPECT_EQ(client, others);
      }
      EXPECT_EQ(client->GetListenerCount(), 0u);
    });
    EXPECT_EQ(first, Client::ms_pSingleton);
    EXPECT_THAT(log.OfFunction("IMWPBtListenerBase"), SizeIs(1));
    EXPECT_THAT(log.OfFunction("InitAllShareMemory"), SizeIs(8));
    MWP_DestroyBlueTooth();
  }
}

TEST_F(ConcurrentClient, OnlyOneClientIsMadeByTheFirstListenersOfManyThreads) {
  LogCapture log;
  std::vector<std::unique_ptr<PowerEvents>> listeners(kThreads);
  std::atomic<std::size_t> next{0};
  RunTogether(kThreads, [&] { listeners[next++] = std::make_unique<PowerEvents>(); });
  EXPECT_EQ(Client::ms_pSingleton->GetListenerCount(), kThreads);
  EXPECT_THAT(log.OfFunction("InitAllShareMemory"), SizeIs(8));
}

TEST_F(ConcurrentClient, CreateOnManyThreadsConnectsOnceAndAnswersAllTheSame) {
  Recorder service;
  LogCapture log;
  RunTogether(kThreads, [] { EXPECT_EQ(MWP_CreateBlueTooth(), 1); });
  EXPECT_THAT(log.OfFunction("InitDBusConnect"), SizeIs(2));
  EXPECT_EQ(Flags(), 1);
}

TEST_F(ConcurrentClient, FailedAttemptsOfManyThreadsGoOneAfterTheOther) {
  LogCapture log;
  RunTogether(kThreads, [] { EXPECT_EQ(MWP_CreateBlueTooth(), 0); });
  const auto lines = log.OfFunction("InitDBusConnect");
  ASSERT_THAT(lines, SizeIs(2 * kThreads));
  for (std::size_t i = 0; i < lines.size(); ++i) {
    EXPECT_EQ(lines[i].level, i % 2 == 0 ? 20 : 80) << "a start, then its warning: " << lines[i];
  }
  EXPECT_EQ(Flags(), 0);
}

TEST_F(ConcurrentClient, StartAndStopAgainstEachOtherLeaveTheFlagsTogether) {
  Recorder service;
  MWPBtClient* const client = Client::GetInstance();
  LogCapture log;
  const auto start = [&] { EXPECT_EQ(client->Start(), 1); };
  const auto stop = [&] { client->Stop(); };
  RunTogether({start, stop, start, stop, start, stop});
  EXPECT_THAT(log.OfFunction("InitDBusConnect"), SizeIs(2)) << "a stopped client does not connect again";
  const std::size_t stops = log.OfFunction("ExitInstance").size();
  EXPECT_LE(stops, 3u);
  EXPECT_EQ(Flags(), stops == 0 ? 1 : 0);
}

}  // namespace
}  // namespace bttest
