// The calls of the audio source manager, as an observer sees them.

#include <atomic>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <mwp/MWPLog.h>
#include <mwp/MWPSource.h>
#include <mwp/MWPStandIn.h>

#include "support/LogCapture.h"

namespace {

using MWPStandIn::ObserveSourceCalls;
using MWPStandIn::SourceCall;

class PlatformSource : public ::testing::Test {
 protected:
  ~PlatformSource() override { ObserveSourceCalls({}); }
};

TEST_F(PlatformSource, AnObserverSeesEachCallWithItsArgumentsInOrder) {
  std::vector<SourceCall> calls;
  ObserveSourceCalls([&calls](const SourceCall& call) { calls.push_back(call); });

  EXPECT_EQ(MWPSource::Request(9, MWPSource::AUDIO_GAIN_DUCK), 0);
  EXPECT_EQ(MWPSource::ActiveSourceConfirm(9, 1), 0);
  EXPECT_EQ(MWPSource::DeactiveSourceConfirm(8, -2), 0);

  ASSERT_EQ(calls.size(), 3u);
  EXPECT_EQ(calls[0].kind, SourceCall::REQUEST);
  EXPECT_EQ(calls[0].source, 9);
  EXPECT_EQ(calls[0].argument, MWPSource::AUDIO_GAIN_DUCK);
  EXPECT_EQ(calls[1].kind, SourceCall::ACTIVE_CONFIRM);
  EXPECT_EQ(calls[1].source, 9);
  EXPECT_EQ(calls[1].argument, 1);
  EXPECT_EQ(calls[2].kind, SourceCall::DEACTIVE_CONFIRM);
  EXPECT_EQ(calls[2].source, 8);
  EXPECT_EQ(calls[2].argument, -2);
}

TEST_F(PlatformSource, CallsAreAnsweredWithoutAnObserverAndAfterItsEnd) {
  int calls = 0;
  EXPECT_EQ(MWPSource::Request(9, MWPSource::AUDIO_GAIN), 0);
  ObserveSourceCalls([&calls](const SourceCall&) { ++calls; });
  EXPECT_EQ(MWPSource::Request(9, MWPSource::AUDIO_GAIN), 0);
  ObserveSourceCalls({});
  EXPECT_EQ(MWPSource::Request(9, MWPSource::AUDIO_GAIN), 0);
  EXPECT_EQ(calls, 1);
}

TEST_F(PlatformSource, AnObserverMayCallTheManagerAndEndItself) {
  int calls = 0;
  ObserveSourceCalls([&calls](const SourceCall& call) {
    ++calls;
    if (call.kind == SourceCall::REQUEST) {
      MWPSource::ActiveSourceConfirm(call.source, 1);
      ObserveSourceCalls({});
    }
  });
  MWPSource::Request(9, MWPSource::AUDIO_GAIN);
  MWPSource::Request(9, MWPSource::AUDIO_GAIN);
  EXPECT_EQ(calls, 2);
}

TEST_F(PlatformSource, CallsOfSeveralThreadsAreAllSeenWhileObserversAreReplaced) {
  constexpr int kCalls = 1000;
  std::atomic<int> calls{0};
  const auto count = [&calls](const SourceCall&) { ++calls; };
  ObserveSourceCalls(count);
  const auto call = [] {
    for (int i = 0; i < kCalls; ++i) {
      MWPSource::Request(9, MWPSource::AUDIO_GAIN);
    }
  };
  std::thread one(call);
  std::thread two(call);
  for (int i = 0; i < kCalls; ++i) {
    ObserveSourceCalls(count);
  }
  one.join();
  two.join();
  EXPECT_EQ(calls, 2 * kCalls);
}

TEST_F(PlatformSource, CallsAreLoggedForDebugging) {
  bttest::LogCapture log;
  MWPSource::Request(9, MWPSource::AUDIO_GAIN_TRANSIENT);
  MWPSource::ActiveSourceConfirm(9, 1);
  MWPSource::DeactiveSourceConfirm(9, 0);

  const std::vector<bttest::LogRecord> records = log.OfLevel(MWP_LOG_DEBUG);
  ASSERT_EQ(records.size(), 3u);
  EXPECT_EQ(records[0].function, "Request");
  EXPECT_EQ(records[0].message, "source:9 gain:1");
  EXPECT_EQ(records[1].function, "ActiveSourceConfirm");
  EXPECT_EQ(records[1].message, "source:9 confirmation:1");
  EXPECT_EQ(records[2].function, "DeactiveSourceConfirm");
  EXPECT_EQ(records[2].message, "source:9 confirmation:0");
}

}  // namespace
