// The registries of the library and of the application manager have a lock each, and a callback of either
// holds its own: what waits for what when a callback registers with the other.

#include <atomic>
#include <functional>
#include <memory>
#include <thread>

#include <gtest/gtest.h>
#include <unistd.h>

#include <mwp/MWPAppMgrService.h>

#include "support/ThreadState.h"
#include "system/fixtures.h"

namespace bttest {
namespace {

class ModuleEvents : public IMWPAppListener {
 public:
  explicit ModuleEvents(std::function<void()> action = {}) : m_action(std::move(action)) {}
  void OnModuleStatusChanged(AppBootInfo&) override {
    if (m_action) {
      m_action();
    }
  }

 private:
  std::function<void()> m_action;
};

/// Runs an action inside the library's event.
class InsidePowerEvent : public IMWPBtComListener {
 public:
  explicit InsidePowerEvent(std::function<void()> action) : m_action(std::move(action)) {}
  void OnOpenBtStatusChanged(MWPBtType::PowerStatus) override { m_action(); }

 private:
  std::function<void()> m_action;
};

void RunPowerEvent() { Client::GetInstance()->OnOpenBtStatusChanged(MWPBtType::BT_POWER_ON); }

TEST(AppManagerLocks, AnEventThatRegistersWithTheApplicationManagerDoesSoAtOnce) {
  ModuleEvents registered;
  InsidePowerEvent listener([&] { MWP_GetAppMgrService()->AddListener(&registered); });
  RunPowerEvent();
  EXPECT_EQ(MWP_GetAppMgrService()->GetListeners().count(&registered), 1u);
}

TEST(AppManagerLocks, ACallbackOfTheApplicationManagerMayConstructAListenerAtOnce) {
  std::unique_ptr<PowerEvents> constructed;
  ModuleEvents listener([&] { constructed = std::make_unique<PowerEvents>(); });
  MWP_GetAppMgrService()->AddListener(&listener);
  MWP_GetAppMgrService()->NotifyModuleStatus({SERVICE_MODULE_BLUETOOTH, 1});
  RunPowerEvent();
  ASSERT_NE(constructed, nullptr);
  EXPECT_EQ(constructed->Seen().size(), 1u);
}

TEST(AppManagerLocks, AnEventThatRegistersThereWaitsForACallbackOfTheApplicationManagerOnAnotherThread) {
  Client::GetInstance();
  std::atomic<bool> isNotifying{false};
  std::atomic<bool> mayGoOn{false};
  ModuleEvents slow([&] {
    isNotifying = true;
    // If this constructed a listener now, it would wait for the event, and the event for this.
    EXPECT_TRUE(WaitUntil([&] { return mayGoOn.load(); }));
  });
  MWP_GetAppMgrService()->AddListener(&slow);
  std::thread manager([] { MWP_GetAppMgrService()->NotifyModuleStatus({SERVICE_MODULE_BLUETOOTH, 1}); });
  ASSERT_TRUE(WaitUntil([&] { return isNotifying.load(); }));

  ModuleEvents registered;
  std::atomic<pid_t> eventThread{0};
  std::atomic<bool> isRegistered{false};
  InsidePowerEvent listener([&] {
    eventThread = gettid();
    MWP_GetAppMgrService()->AddListener(&registered);
    isRegistered = true;
  });
  std::thread event(RunPowerEvent);
  EXPECT_TRUE(WaitUntil([&] { return isRegistered || (eventThread != 0 && IsAsleep(eventThread)); }));
  EXPECT_FALSE(isRegistered) << "the event and the library's registry wait for the application manager";
  mayGoOn = true;
  event.join();
  manager.join();
  EXPECT_TRUE(isRegistered);
}

}  // namespace
}  // namespace bttest
