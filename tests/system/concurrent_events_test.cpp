// Events that are walked on one thread while listeners come and go, and requests are made, on others.

#include <atomic>
#include <functional>
#include <set>
#include <thread>

#include <gmock/gmock.h>

#include <bluetooth/IMWPBtBleListener.h>
#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/IMWPBtPhoneListener.h>
#include <bluetooth/MWPBtCom.h>

#include "system/fixtures.h"
#include "system/run_together.h"

namespace bttest {
namespace {

constexpr int kEvents = 300;

/// Iterates the default main context on a thread of its own. Unlike LoopThread's, its work is handed over in
/// ways that ThreadSanitizer sees.
class EventThread {
 public:
  EventThread()
      : m_thread([this] {
          while (!m_ends) {
            if (g_main_context_iteration(nullptr, FALSE) == FALSE) {
              std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
          }
        }) {}
  ~EventThread() {
    m_ends = true;
    m_thread.join();
  }

 private:
  std::atomic<bool> m_ends{false};
  std::thread m_thread;
};

/// Counts its events, and those that are not the successor of the last one.
class Counter : public IMWPBtPhoneListener {
 public:
  void OnCurrentCallInfoChanged(int number) override {
    if (number != count) {
      ++disorder;
    }
    ++count;
  }
  std::atomic<int> count{0};
  std::atomic<int> disorder{0};
};

struct ConcurrentEvents : Started {
  /// Sends kEvents numbered events while others run, who are to return once ends is true.
  void EmitWhile(const std::function<void()>& other) {
    EventThread loop;
    const auto emit = [&] {
      for (int event = 0; event < kEvents; ++event) {
        service.Emit("OnCurrentCallInfoChanged", g_variant_new("(i)", event));
      }
      EXPECT_TRUE(WaitUntil([&] { return counter.count == kEvents; }));
      ends = true;
    };
    RunTogether({emit, other, other, other});
    EXPECT_EQ(counter.disorder, 0);
  }

  Counter counter;
  std::atomic<bool> ends{false};
};

TEST_F(ConcurrentEvents, AreWalkedInOrderWhileListenersComeAndGo) {
  // Objects of the interfaces themselves: those of a derived class must come and go on the loop's thread,
  // since the registry knows them before they are whole and after they have ceased to be.
  EmitWhile([&] {
    do {
      IMWPBtPhoneListener phone;
      IMWPBtComListener com;
      IMWPBtBleListener ble;
    } while (!ends);
  });
  EXPECT_EQ(Client::GetInstance()->GetListeners(), std::set<IMWPBtListenerBase*>{&counter});
}

TEST_F(ConcurrentEvents, AreWalkedInOrderWhileRequestsAreMade) {
  EmitWhile([&] {
    do {
      MWPBtCom().GetPowerStatus();
    } while (!ends);
  });
}

}  // namespace
}  // namespace bttest
