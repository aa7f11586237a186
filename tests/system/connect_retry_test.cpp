// How often a connection is tried, and with what: the creation of the proxy is in this test's hands.

#include <algorithm>
#include <chrono>
#include <deque>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "system/ProxyAttempts.h"

namespace bttest {
namespace {

using testing::ElementsAre;

struct Creation {
  std::chrono::steady_clock::time_point when;
  GBusType bus;
  GDBusProxyFlags flags;
  std::string name;
  std::string path;
  bool hasCancellable;
  bool hasCleanError;  ///< a place for an error, with none in it
  ComZelkLinuxBluetooth* result;
};

/// What happened, and which of the next attempts fail; those beyond them fail, too.
std::vector<Creation> g_creations;
std::deque<bool> g_fails;

ComZelkLinuxBluetooth* NoteAttempt(const ProxyAttempt& attempt) {
  g_creations.push_back({std::chrono::steady_clock::now(), attempt.bus, attempt.flags, attempt.name,
                         attempt.path, attempt.cancellable != nullptr,
                         attempt.error != nullptr && *attempt.error == nullptr, nullptr});
  bool fails = true;
  if (!g_fails.empty()) {
    fails = g_fails.front();
    g_fails.pop_front();
  }
  if (fails) {
    g_set_error(attempt.error, G_IO_ERROR, G_IO_ERROR_FAILED, "attempt %zu was made to fail",
                g_creations.size());
    return nullptr;
  }
  g_creations.back().result = MakeProxy(attempt);
  return g_creations.back().result;
}

std::string FailureLine(int attempt, int retry) {
  return "InitDBusConnect: Failed to create proxy. Reason: attempt " + std::to_string(attempt) +
         " was made to fail.retry->" + std::to_string(retry);
}

struct ConnectRetry : WithService {
  /// Of g_creations, after an attempt to start with these failures.
  static int CreateWith(std::deque<bool> fails) {
    g_onProxyAttempt = NoteAttempt;
    g_creations.clear();
    g_fails = std::move(fails);
    return MWP_CreateBlueTooth();
  }

  static std::vector<std::string> Errors(const LogCapture& log) {
    std::vector<std::string> texts;
    for (const LogRecord& record : log.OfLevel(100)) {
      if (record.function == "InitDBusConnect") {
        texts.push_back(record.message);
      }
    }
    return texts;
  }
};

TEST_F(ConnectRetry, AsksForTheServiceOnTheSessionBusWithPlainFlags) {
  EXPECT_EQ(CreateWith({false}), 1);
  ASSERT_EQ(g_creations.size(), 1u);
  const Creation& creation = g_creations.front();
  EXPECT_EQ(creation.bus, G_BUS_TYPE_SESSION);
  EXPECT_EQ(creation.flags, G_DBUS_PROXY_FLAGS_NONE);
  EXPECT_EQ(creation.name, "com.zelk.linux.bluetooth");
  EXPECT_EQ(creation.path, "/com/zelk/linux/bluetooth");
  EXPECT_FALSE(creation.hasCancellable);
  EXPECT_TRUE(creation.hasCleanError);
  EXPECT_EQ(g_BtProxy, creation.result);
}

TEST_F(ConnectRetry, GivesUpAfterSevenFailuresEachWithItsOwnReason) {
  LogCapture log;
  EXPECT_EQ(CreateWith({}), 0);
  EXPECT_THAT(Errors(log),
              ElementsAre(FailureLine(1, 0), FailureLine(2, 1), FailureLine(3, 2), FailureLine(4, 3),
                          FailureLine(5, 4), FailureLine(6, 5), FailureLine(7, 6)));
  EXPECT_EQ(g_BtProxy, nullptr);
}

TEST_F(ConnectRetry, GivesEveryAttemptThePlaceForItsErrorEmpty) {
  EXPECT_EQ(CreateWith({}), 0);
  for (const Creation& creation : g_creations) {
    EXPECT_TRUE(creation.hasCleanError);
    EXPECT_EQ(creation.name, g_creations.front().name);
    EXPECT_EQ(creation.path, g_creations.front().path);
  }
}

TEST_F(ConnectRetry, MakesTheNextAttemptAtOnce) {
  ASSERT_EQ(CreateWith({}), 0);
  // A busy machine may delay an attempt, but hardly all of them.
  auto shortestGap = std::chrono::steady_clock::duration::max();
  for (std::size_t i = 1; i < g_creations.size(); ++i) {
    shortestGap = std::min(shortestGap, g_creations[i].when - g_creations[i - 1].when);
  }
  EXPECT_LT(shortestGap, std::chrono::milliseconds(20));
}

TEST_F(ConnectRetry, ASuccessAfterAFailureDoesNotEndTheAttempts) {
  LogCapture log;
  EXPECT_EQ(CreateWith({true, false}), 0);
  EXPECT_EQ(g_creations.size(), 8u) << "seven failures in all, and one success between them";
  EXPECT_THAT(Errors(log),
              ElementsAre(FailureLine(1, 0), FailureLine(3, 1), FailureLine(4, 2), FailureLine(5, 3),
                          FailureLine(6, 4), FailureLine(7, 5), FailureLine(8, 6)));
  EXPECT_EQ(g_BtProxy, nullptr) << "what the last attempt gave";
  EXPECT_EQ(Flags(), 0);
}

TEST_F(ConnectRetry, SuccessesAfterAFailureCountForNothing) {
  EXPECT_EQ(CreateWith({true, false, false, true, false, true, false}), 0);
  EXPECT_EQ(g_creations.size(), 11u) << "seven failures in all, and four successes between them";
}

TEST_F(ConnectRetry, AProxyThatIsGivenUpIsNeitherSubscribedNorReleased) {
  EXPECT_EQ(CreateWith({true, false}), 0);
  ComZelkLinuxBluetooth* const givenUp = g_creations[1].result;
  ASSERT_NE(givenUp, nullptr);
  EXPECT_EQ(G_OBJECT(givenUp)->ref_count, 1u);
  EXPECT_FALSE(g_signal_has_handler_pending(
      givenUp, g_signal_lookup("on-open-bt-status-changed", G_OBJECT_TYPE(givenUp)), 0, TRUE));
}

TEST_F(ConnectRetry, TheNextCreateCountsItsFailuresFromZero) {
  ASSERT_EQ(CreateWith({}), 0);
  LogCapture log;
  EXPECT_EQ(CreateWith({}), 0);
  EXPECT_EQ(Errors(log).size(), 7u);
  EXPECT_EQ(Errors(log).front(), FailureLine(1, 0));
  EXPECT_EQ(CreateWith({false}), 1);
}

}  // namespace
}  // namespace bttest
