// Two events at the same time, of two clients on two threads, as when the library is stopped and started anew
// on another thread during a callback.

#include <future>

#include <gtest/gtest.h>

#include <bluetooth/IMWPBtPhoneListener.h>

#include "libbluetooth/MWPBtClient.h"
#include "support/Waiting.h"

namespace bttest {
namespace {

/// A client and a listener whose callback ends when it may.
class SlowEvent {
 public:
  SlowEvent() { m_client.AddListener(&m_listener); }
  SlowEvent(const SlowEvent&) = delete;
  SlowEvent& operator=(const SlowEvent&) = delete;

  /// Has the event on a thread of its own, and waits until the callback runs.
  void Begin() {
    m_end = std::async(std::launch::async, [this] { m_client.OnHangupCallChanged(); });
    m_listener.begun.get_future().wait();
  }
  /// Lets the callback end; true once the event has ended as well.
  bool End() {
    m_listener.mayEnd.set_value();
    return m_end.wait_for(kBound) == std::future_status::ready;
  }

 private:
  struct Listener : IMWPBtPhoneListener {
    void OnHangupCallChanged() override {
      begun.set_value();
      mayEnd.get_future().wait();
    }
    std::promise<void> begun;
    std::promise<void> mayEnd;
  };

  Listener m_listener;
  MWPBtClient m_client;
  std::future<void> m_end;
};

TEST(TwoEvents, MayEndInTheOrderInWhichTheyBegan) {
  SlowEvent first, second;
  first.Begin();
  second.Begin();
  ASSERT_TRUE(first.End());
  ASSERT_TRUE(second.End());
}

TEST(TwoEvents, MayEndInTheOppositeOrder) {
  SlowEvent first, second;
  first.Begin();
  second.Begin();
  ASSERT_TRUE(second.End());
  ASSERT_TRUE(first.End());
}

}  // namespace
}  // namespace bttest
