// Which thread hears of events, and from which threads requests may be made.

#include <atomic>
#include <mutex>
#include <thread>

#include <gmock/gmock.h>

#include <bluetooth/MWPBtCom.h>

#include "ipc/BtClientIpcAdapter.h"
#include "system/fixtures.h"

namespace bttest {
namespace {

using testing::Each;

/// Notes the thread of each event.
class ThreadNoter : public IMWPBtComListener {
 public:
  void OnOpenBtStatusChanged(MWPBtType::PowerStatus) override {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_threads.push_back(std::this_thread::get_id());
  }

  std::vector<std::thread::id> Threads() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_threads;
  }

  bool WaitFor(std::size_t count) const {
    return WaitUntil([&] { return Threads().size() >= count; });
  }

 private:
  mutable std::mutex m_mutex;
  std::vector<std::thread::id> m_threads;
};

std::thread::id IdOf(LoopThread& loop) {
  std::thread::id id;
  loop.Invoke([&] { id = std::this_thread::get_id(); });
  return id;
}

struct LoopsAndThreads : WithService {
  ThreadNoter listener;
};

TEST_F(LoopsAndThreads, WithoutARunningLoopNoEventArrivesAndWithOneTheyAllDo) {
  ASSERT_EQ(MWP_CreateBlueTooth(), 1);
  EmitPower(service, MWPBtType::BT_POWER_ON);
  EmitPower(service, MWPBtType::BT_POWER_OFF);
  BtClientIpcAdapter().SetPower(1);  // its answer comes after the signals, over the same connection
  EXPECT_TRUE(listener.Threads().empty());
  EXPECT_TRUE(RunUntil([&] { return listener.Threads().size() >= 2; }));
}

TEST_F(LoopsAndThreads, EventsArriveOnTheThreadThatRunsTheDefaultContext) {
  ASSERT_EQ(MWP_CreateBlueTooth(), 1);
  LoopThread loop;
  EmitPower(service, MWPBtType::BT_POWER_ON);
  EXPECT_TRUE(listener.WaitFor(1));
  EXPECT_THAT(listener.Threads(), Each(IdOf(loop)));
}

TEST_F(LoopsAndThreads, EventsArriveOnTheThreadWithAContextOfItsOwnThatCreatedTheLibrary) {
  LoopThread other;
  LoopThread loop(LoopThread::Context::OWN);
  loop.Invoke([] { EXPECT_EQ(MWP_CreateBlueTooth(), 1); });
  EmitPower(service, MWPBtType::BT_POWER_ON);
  EmitPower(service, MWPBtType::BT_POWER_OFF);
  EXPECT_TRUE(listener.WaitFor(2));
  EXPECT_THAT(listener.Threads(), Each(IdOf(loop)));
}

TEST_F(LoopsAndThreads, ARequestBlocksItsThreadWhileEventsArriveOnAnother) {
  ASSERT_EQ(MWP_CreateBlueTooth(), 1);
  LoopThread loop;
  service.Hang("SetPower");
  service.SetReply("SetPower", g_variant_new("(i)", 5));
  std::atomic<int> answer{-1};
  std::thread request([&] { answer = BtClientIpcAdapter().SetPower(1); });
  EXPECT_TRUE(service.WaitForCalls(1));
  EmitPower(service, MWPBtType::BT_POWER_TURNING_ON);
  EXPECT_TRUE(listener.WaitFor(1));
  EXPECT_EQ(answer, -1);
  service.Release("SetPower");
  request.join();
  EXPECT_EQ(answer, 5);
}

TEST_F(LoopsAndThreads, AWaitingRequestDoesNotKeepAnotherThreadsRequestWaiting) {
  ASSERT_EQ(MWP_CreateBlueTooth(), 1);
  service.Hang("SetPower");
  service.SetReply("GetPowerStatus", g_variant_new("(y)", MWPBtType::BT_POWER_ON));
  std::thread waiting([] { BtClientIpcAdapter().SetPower(1); });
  EXPECT_TRUE(service.WaitForCalls(1));
  EXPECT_EQ(MWPBtCom().GetPowerStatus(), MWPBtType::BT_POWER_ON);
  service.Release("SetPower");
  waiting.join();
}

/// Asks for the power status whenever it hears of it.
class Asker : public IMWPBtComListener {
 public:
  void OnOpenBtStatusChanged(MWPBtType::PowerStatus) override { answer = MWPBtCom().GetPowerStatus(); }
  std::atomic<int> answer{-1};
};

TEST_F(LoopsAndThreads, ARequestCanBeMadeInACallback) {
  Asker asker;
  ASSERT_EQ(MWP_CreateBlueTooth(), 1);
  service.SetReply("GetPowerStatus", g_variant_new("(y)", MWPBtType::BT_POWER_ON));
  EmitPower(service, MWPBtType::BT_POWER_ON);
  EXPECT_TRUE(RunUntil([&] { return asker.answer == MWPBtType::BT_POWER_ON; }));
}

}  // namespace
}  // namespace bttest
