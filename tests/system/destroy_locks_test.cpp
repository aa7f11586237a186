// The two locks that the end of the library takes, one after the other, while somebody else holds them.

#include <atomic>
#include <future>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <unistd.h>

#include "support/ThreadState.h"
#include "system/fixtures.h"

namespace bttest {
namespace {

using testing::ElementsAre;

/// Ends the library on a thread of its own.
class Destroyer {
 public:
  Destroyer() {
    std::promise<pid_t> begin;
    std::future<pid_t> thread = begin.get_future();
    m_thread = std::thread([this, begin = std::move(begin)]() mutable {
      begin.set_value(gettid());
      MWP_DestroyBlueTooth();
      m_isDone = true;
    });
    m_id = thread.get();
  }
  ~Destroyer() { m_thread.join(); }
  Destroyer(const Destroyer&) = delete;
  Destroyer& operator=(const Destroyer&) = delete;

  bool IsDone() const { return m_isDone; }
  /// Waits until it either waits itself, or is done.
  bool WaitUntilItWaits() const {
    return WaitUntil([this] { return m_isDone || IsAsleep(m_id); }) && !m_isDone;
  }

 private:
  std::atomic<bool> m_isDone{false};
  std::thread m_thread;
  pid_t m_id = 0;
};

struct DestroyLocks : Started {};

TEST_F(DestroyLocks, TheClientIsStoppedButNotDeletedWhileTheSingletonsLockIsHeld) {
  MWPBtClient* const client = Client::ms_pSingleton;
  Client::ms_cs.Lock();
  Destroyer destroyer;
  EXPECT_TRUE(WaitUntil([] { return Flags() == 0; }));
  EXPECT_TRUE(destroyer.WaitUntilItWaits());
  EXPECT_EQ(Client::ms_pSingleton, client);
  Client::ms_cs.Unlock();
  EXPECT_TRUE(WaitUntil([&] { return destroyer.IsDone(); }));
  EXPECT_EQ(Client::ms_pSingleton, nullptr);
}

TEST_F(DestroyLocks, TheServiceLockIsFreeAgainWhileItWaitsForTheSingletons) {
  Client::ms_cs.Lock();
  Destroyer destroyer;
  EXPECT_TRUE(WaitUntil([] { return Flags() == 0; }));
  EXPECT_TRUE(destroyer.WaitUntilItWaits());
  // A start takes the service lock. What it answers is the result of the stop.
  std::future<int> start = std::async(std::launch::async, MWP_CreateBlueTooth);
  EXPECT_EQ(start.wait_for(kBound), std::future_status::ready);
  Client::ms_cs.Unlock();
  EXPECT_EQ(start.get(), 1);
}

/// A client whose start does not end before it may.
class SlowClient : public MWPBtClient {
 public:
  int InitInstance() override {
    m_begun.set_value();
    m_mayEnd.get_future().wait();
    m_trace.push_back("started");
    return MWPBtClient::InitInstance();
  }
  int ExitInstance() override {
    m_trace.push_back("stopped");
    return MWPBtClient::ExitInstance();
  }

  void WaitUntilBegun() { m_begun.get_future().wait(); }
  void LetItEnd() { m_mayEnd.set_value(); }

  explicit SlowClient(std::vector<std::string>& trace) : m_trace(trace) {}
  ~SlowClient() override { m_trace.push_back("deleted"); }

 private:
  std::vector<std::string>& m_trace;
  std::promise<void> m_begun;
  std::promise<void> m_mayEnd;
};

struct DestroyDuringStart : WithService {};

TEST_F(DestroyDuringStart, WaitsForTheStartToEndAndThenStopsTheClient) {
  std::vector<std::string> trace;
  auto* const client = new SlowClient(trace);
  Client::ms_pSingleton = client;
  std::future<int> start = std::async(std::launch::async, MWP_CreateBlueTooth);
  client->WaitUntilBegun();
  {
    Destroyer destroyer;
    EXPECT_TRUE(destroyer.WaitUntilItWaits());
    EXPECT_EQ(Client::ms_pSingleton, client);
    client->LetItEnd();
    EXPECT_EQ(start.get(), 1);
  }
  EXPECT_THAT(trace, ElementsAre("started", "stopped", "deleted"));
  EXPECT_EQ(Client::ms_pSingleton, nullptr);
  EXPECT_EQ(Flags(), 0);
}

}  // namespace
}  // namespace bttest
