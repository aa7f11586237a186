// Notifications of the application manager: who is called, in which order, with what.

#include <algorithm>
#include <array>
#include <chrono>
#include <functional>
#include <future>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>
#include <mwp/MWPAppMgrService.h>

namespace {

/// Notes that it was called and then does what the test wants.
class Listener : public IMWPAppListener {
 public:
  void OnModuleStatusChanged(AppBootInfo& info) override {
    seen.push_back(info);
    if (then) {
      then(info);
    }
  }

  std::vector<AppBootInfo> seen;
  std::function<void(AppBootInfo&)> then;
};

class PlatformAppManager : public ::testing::Test {
 protected:
  ~PlatformAppManager() override {
    for (Listener& listener : listeners) {
      manager.RemoveListener(&listener);
    }
  }

  void AddAll() {
    for (Listener& listener : listeners) {
      manager.AddListener(&listener);
    }
  }

  MWPAppMgrService& manager = *MWP_GetAppMgrService();
  /// In ascending order of their addresses.
  std::array<Listener, 3> listeners;
  const AppBootInfo up{SERVICE_MODULE_BLUETOOTH, 1};
};

TEST_F(PlatformAppManager, ThereIsOneForAllOfTheProcess) {
  ASSERT_NE(MWP_GetAppMgrService(), nullptr);
  EXPECT_EQ(MWP_GetAppMgrService(), &manager);
}

TEST_F(PlatformAppManager, EachListenerHearsOfTheModuleInAscendingOrderOfAddresses) {
  std::vector<int> order;
  for (int i = 2; i >= 0; --i) {
    listeners[i].then = [&order, i](AppBootInfo&) { order.push_back(i); };
    manager.AddListener(&listeners[i]);
  }
  manager.NotifyModuleStatus(up);
  EXPECT_EQ(order, (std::vector<int>{0, 1, 2}));
  EXPECT_EQ(listeners[2].seen[0].nModule, SERVICE_MODULE_BLUETOOTH);
  EXPECT_EQ(listeners[2].seen[0].nStatus, 1);
}

TEST_F(PlatformAppManager, AListenerAddedTwiceIsCalledOnceAndOneRemovedNotAtAll) {
  manager.AddListener(&listeners[0]);
  manager.AddListener(&listeners[0]);
  manager.NotifyModuleStatus(up);
  EXPECT_EQ(listeners[0].seen.size(), 1u);

  manager.RemoveListener(&listeners[0]);
  manager.NotifyModuleStatus(up);
  EXPECT_EQ(listeners[0].seen.size(), 1u);
}

TEST_F(PlatformAppManager, AListenerThatChangesWhatItIsGivenChangesItForNobodyElse) {
  listeners[0].then = [](AppBootInfo& info) { info = AppBootInfo{0, 0}; };
  AddAll();
  manager.NotifyModuleStatus(up);
  EXPECT_EQ(listeners[1].seen[0].nModule, SERVICE_MODULE_BLUETOOTH);
  EXPECT_EQ(listeners[1].seen[0].nStatus, 1);
}

TEST_F(PlatformAppManager, AListenerMayRemoveItselfAndTheNextOne) {
  listeners[0].then = [this](AppBootInfo&) {
    manager.RemoveListener(&listeners[0]);
    manager.RemoveListener(&listeners[1]);
  };
  AddAll();
  manager.NotifyModuleStatus(up);
  EXPECT_EQ(listeners[0].seen.size(), 1u);
  EXPECT_EQ(listeners[1].seen.size(), 0u);
  EXPECT_EQ(listeners[2].seen.size(), 1u);
}

TEST_F(PlatformAppManager, ListenersAddedMeanwhileAreCalledIfTheirTurnIsYetToCome) {
  listeners[1].then = [this](AppBootInfo&) { AddAll(); };
  manager.AddListener(&listeners[1]);
  manager.NotifyModuleStatus(up);
  EXPECT_EQ(listeners[0].seen.size(), 0u);
  EXPECT_EQ(listeners[1].seen.size(), 1u);
  EXPECT_EQ(listeners[2].seen.size(), 1u);
}

TEST_F(PlatformAppManager, AListenerThatThrowsDoesNotLeaveTheRegistryLocked) {
  listeners[0].then = [](AppBootInfo&) { throw std::runtime_error("listener"); };
  AddAll();
  EXPECT_THROW(manager.NotifyModuleStatus(up), std::runtime_error);

  std::future<void> other = std::async(std::launch::async, [this] {
    manager.LockListener();
    manager.UnlockListener();
  });
  ASSERT_EQ(other.wait_for(std::chrono::seconds(10)), std::future_status::ready);
}

TEST_F(PlatformAppManager, NobodyIsTakenOutWhileAnotherThreadCallsTheListeners) {
  std::future<void> removal;
  listeners[0].then = [this, &removal](AppBootInfo&) {
    removal = std::async(std::launch::async, [this] { manager.RemoveListener(&listeners[2]); });
  };
  AddAll();
  manager.NotifyModuleStatus(up);
  EXPECT_EQ(listeners[2].seen.size(), 1u);
  removal.get();
  EXPECT_EQ(manager.GetListenerCount(), 2u);
}

TEST_F(PlatformAppManager, NoListenerIsEnteredOrTakenOutForNull) {
  AddAll();
  manager.AddListener(nullptr);
  EXPECT_EQ(manager.GetListenerCount(), 3u);
  manager.RemoveListener(nullptr);
  manager.NotifyModuleStatus(up);
  EXPECT_EQ(listeners[2].seen.size(), 1u);
}

TEST_F(PlatformAppManager, AListenerThatOverridesNothingDoesNothingWhateverItHears) {
  IMWPAppListener listener;
  manager.AddListener(&listener);
  manager.AddListener(&listeners[0]);
  manager.NotifyModuleStatus(up);
  EXPECT_EQ(listeners[0].seen.size(), 1u);
  manager.RemoveListener(&listener);

  AppBootInfo info = up;
  listener.OnModuleStatusChanged(info);
  EXPECT_EQ(info.nModule, up.nModule);
  EXPECT_EQ(info.nStatus, up.nStatus);
  listener.OnSystemBootStageNotify(BOOT_STAGE_COMPLETE);
  listener.OnAndroidAutoAbortHandle(1);
  listener.OnAAConnectionTimeoutNotify(1, "device");
  listener.OnReloadLogConfigNotify(LOG_LEVEL_DEBUG);
  listener.OnResourceDataChangeNotify();
  listener.OnProcRebootNotify(SERVICE_MODULE_BLUETOOTH);
}

}  // namespace
