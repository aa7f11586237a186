// The registry's lock during an event: taken once, held during the callbacks, given back whatever they do.

#include <atomic>
#include <functional>
#include <future>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

#include <bluetooth/MWPBluetooth.h>

#include "contract/EventCases.h"
#include "contract/RecordingListeners.h"
#include "support/LogCapture.h"
#include "support/ThreadState.h"
#include "support/Waiting.h"

namespace bttest {
namespace {

/// A client that notes when its registry is locked and unlocked.
class TracingClient : public MWPBtClient {
 public:
  void LockListener() override {
    MWPBtClient::LockListener();
    trace.push_back("lock");
    if (whenLocked) {
      whenLocked();
    }
  }
  void UnlockListener() override {
    trace.push_back("unlock");
    MWPBtClient::UnlockListener();
  }
  std::vector<std::string> trace;
  std::function<void()> whenLocked;
};

/// The library's only client is one that traces.
class FanOutLock : public testing::Test {
 protected:
  FanOutLock() {
    MWPSingleton<MWPBtClient>::ms_pSingleton = client;
    log.Clear();
  }
  ~FanOutLock() override { MWP_DestroyBlueTooth(); }

  /// What is traced while the client has an event.
  std::vector<std::string> TraceOf(const EventCase& event) {
    client->trace.clear();
    event.call(*client);
    return client->trace;
  }

  LogCapture log;
  TracingClient* const client = new TracingClient;
  Receptions receptions;
};

using Trace = std::vector<std::string>;

TEST_F(FanOutLock, IsAllThatAnEventTakesWithoutAListener) {
  for (const EventCase& event : EventCases()) {
    EXPECT_EQ(TraceOf(event), (Trace{"lock", "unlock"})) << event.name;
  }
}

TEST_F(FanOutLock, IsTakenAndGivenBackByAnEventThatIsOfNoConcernToTheListeners) {
  for (const EventCase& event : EventCases()) {
    std::optional<RecordingComListener> com;
    std::optional<RecordingPhoneListener> phone;
    if (event.kind == COM_LISTENER) {
      phone.emplace(receptions);
    } else {
      com.emplace(receptions);
    }
    EXPECT_EQ(TraceOf(event), (Trace{"lock", "unlock"})) << event.name;
  }
}

TEST_F(FanOutLock, IsHeldDuringEachCallback) {
  TwoListenersOfEachKind listeners(receptions);
  receptions.afterEach = [this] { client->trace.push_back("callback"); };
  for (const EventCase& event : EventCases()) {
    EXPECT_EQ(TraceOf(event), (Trace{"lock", "callback", "callback", "unlock"})) << event.name;
  }
}

TEST_F(FanOutLock, IsTakenAfterTheLineThatAnEventLogs) {
  std::vector<std::string> logged;
  for (const EventCase& event : EventCases()) {
    std::size_t linesWhenLocked = 0;
    client->whenLocked = [&] { linesWhenLocked = log.Records().size(); };
    log.Clear();
    event.call(*client);
    EXPECT_EQ(linesWhenLocked, log.Records().size()) << event.name;
    if (linesWhenLocked > 0) {
      logged.push_back(event.name);
    }
  }
  EXPECT_EQ(logged, (std::vector<std::string>{"OnOpenBtStatusChanged", "OnBtProfileEnableStatusChanged",
                                              "OnOperatorNameChanged", "OnConnectStatusChanged",
                                              "OnRoamingStatusChanged", "OnVoiceStatusChanged"}));
}

TEST_F(FanOutLock, KeepsAnotherThreadFromAddingAListenerUntilTheCallbacksAreOver) {
  RecordingPhoneListener listener(receptions);
  IMWPBtListenerBase added;
  std::atomic<bool> isAdded{false};
  std::thread adder;
  bool wasAddedTooEarly = true;
  receptions.afterEach = [&] {
    std::promise<pid_t> begin;
    adder = std::thread([&] {
      begin.set_value(gettid());
      client->AddListener(&added);
      isAdded = true;
    });
    const pid_t thread = begin.get_future().get();
    EXPECT_TRUE(WaitUntil([&] { return isAdded || IsAsleep(thread); }));
    wasAddedTooEarly = isAdded;
  };
  client->OnHangupCallChanged();
  adder.join();
  EXPECT_FALSE(wasAddedTooEarly);
  EXPECT_EQ(client->GetListeners().count(&added), 1u);
  client->RemoveListener(&added);
}

TEST_F(FanOutLock, MayBeTakenAgainInsideACallbackThatHasAnEventItself) {
  RecordingPhoneListener phone(receptions);
  RecordingPbapListener pbap(receptions);
  receptions.afterEach = [this] {
    receptions.afterEach = nullptr;
    client->OnBtCallLogListChanged();
  };
  client->OnHangupCallChanged();
  ASSERT_EQ(receptions.all.size(), 2u);
  EXPECT_EQ(receptions.all[1].event, "OnBtCallLogListChanged");
}

/// Whether another thread can lock the registry.
bool IsFree(MWPBtClient& client) {
  auto done = std::make_shared<std::promise<void>>();
  std::future<void> isDone = done->get_future();
  // Left alone if the lock is never free: the test fails then.
  std::thread([&client, done] {
    client.LockListener();
    client.UnlockListener();
    done->set_value();
  }).detach();
  return isDone.wait_for(kBound) == std::future_status::ready;
}

struct Thrower {
  const char* what;
  std::function<void()> act;
};

TEST_F(FanOutLock, IsGivenBackAndAllOthersAreCalledWhenListenersThrow) {
  TwoListenersOfEachKind listeners(receptions);
  const Thrower throwers[] = {
      {"boom", [] { throw std::runtime_error("boom"); }},
      {"", [] { throw 42; }},
      {"", [] { throw "text"; }},
      {"bad_alloc", [] { throw std::bad_alloc(); }},
      {"%s%n", [] { throw std::logic_error("%s%n"); }},
  };
  for (const Thrower& thrower : throwers) {
    receptions.afterEach = [&] {
      client->trace.push_back("callback");
      thrower.act();
    };
    for (const EventCase& event : EventCases()) {
      log.Clear();
      EXPECT_NO_THROW(EXPECT_EQ(TraceOf(event), (Trace{"lock", "callback", "callback", "unlock"})));

      const std::vector<LogRecord> errors = log.OfLevel(100);
      ASSERT_EQ(errors.size(), 2u) << event.name;  // one for each listener
      for (const LogRecord& error : errors) {
        EXPECT_EQ(error.file, "libbluetooth/MWPBtClient");
        EXPECT_EQ(error.function, event.name);
        EXPECT_NE(error.message.find(thrower.what), std::string::npos) << error.message;
      }
    }
    EXPECT_TRUE(IsFree(*client));
  }
}

TEST_F(FanOutLock, IsGivenBackWhenOneOfThreeListenersThrowsAndTheOtherTwoAreCalled) {
  RecordingPhoneListener one(receptions), two(receptions), three(receptions);
  for (std::size_t thrower = 1; thrower <= 3; ++thrower) {
    receptions.all.clear();
    log.Clear();
    receptions.afterEach = [&] {
      if (receptions.all.size() == thrower) {
        throw 1;
      }
    };
    client->OnHangupCallChanged();
    EXPECT_EQ(receptions.all.size(), 3u);
    EXPECT_EQ(log.OfLevel(100).size(), 1u);
  }
}

}  // namespace
}  // namespace bttest
