// The construction of the client as the application manager sees it, and what is left when it fails there.

#include <atomic>
#include <cstdlib>
#include <functional>
#include <future>
#include <new>
#include <stdexcept>
#include <thread>
#include <utility>

#include <bluetooth/MWPBtBle.h>
#include <bluetooth/MWPBtCom.h>
#include <bluetooth/MWPBtMedia.h>
#include <bluetooth/MWPBtMessage.h>
#include <bluetooth/MWPBtPbap.h>
#include <bluetooth/MWPBtPhone.h>
#include <bluetooth/MWPBtSpp.h>
#include <mwp/MWPAppMgrService.h>
#include <unistd.h>

#include "ipc/ShareMemory/ShareMemory.h"
#include "support/ThreadState.h"
#include "support/Waiting.h"
#include "system/fixtures.h"

namespace {

std::function<void()> g_whenAskedForTheAppManager;

/// The memory of the client under construction, or last constructed; null once it is freed.
std::atomic<void*> g_clientMemory{nullptr};

void Release(void* memory) noexcept {
  if (memory == g_clientMemory) {
    g_clientMemory = nullptr;
  }
  std::free(memory);
}

}  // namespace

// Takes the place of the platform's function for the library under test.
__attribute__((visibility("default"))) MWPAppMgrService* MWP_GetAppMgrService() {
  static MWPAppMgrService* const service = new MWPAppMgrService;
  if (g_whenAskedForTheAppManager) {
    g_whenAskedForTheAppManager();
  }
  return service;
}

// The process's allocation, watched for the client's memory.

__attribute__((visibility("default"))) void* operator new(std::size_t size) {
  void* const memory = std::malloc(size);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  if (size == sizeof(MWPBtClient)) {
    g_clientMemory = memory;
  }
  return memory;
}

__attribute__((visibility("default"))) void operator delete(void* memory) noexcept { Release(memory); }

__attribute__((visibility("default"))) void operator delete(void* memory, std::size_t) noexcept {
  Release(memory);
}

namespace bttest {
namespace {

/// Whether the client's memory is watched. valgrind puts an allocation of its own in the place of the one
/// above.
bool IsMemoryWatched() { return std::getenv("BTTEST_UNDER") == nullptr; }

struct Construction : WithBus {
  ~Construction() override { g_whenAskedForTheAppManager = nullptr; }

  static void LetItFail() {
    g_whenAskedForTheAppManager = [] { throw std::runtime_error("no application manager"); };
  }
};

TEST_F(Construction, EntersWithTheAppManagerLastBeforeTheClientCanBeFound) {
  unsigned attached = 0;
  bool isFound = true;
  g_whenAskedForTheAppManager = [&] {
    attached = static_cast<unsigned>(ShareMemory::m_ShmId_AddrMap.size());
    isFound = Client::ms_pSingleton != nullptr;
  };
  Client::GetInstance();
  EXPECT_EQ(attached, 8u);
  EXPECT_FALSE(isFound);
}

TEST_F(Construction, AnExceptionPassesOutOfCreate) {
  LetItFail();
  EXPECT_THROW(MWP_CreateBlueTooth(), std::runtime_error);
  EXPECT_EQ(Client::ms_pSingleton, nullptr);
  EXPECT_EQ(Flags(), 0);
}

TEST_F(Construction, AnExceptionPassesOutOfDestroy) {
  LetItFail();
  EXPECT_THROW(MWP_DestroyBlueTooth(), std::runtime_error);
}

TEST_F(Construction, AnExceptionPassesOutOfAListenersConstructor) {
  LetItFail();
  EXPECT_THROW(PowerEvents(), std::runtime_error);
}

TEST_F(Construction, AnExceptionPassesOutOfAFacade) {
  Recorder service;
  // Connected by hand, the client does not count as started: its end leaves the flags alone, and a facade
  // makes the next client.
  const auto makeTheFacadesNeedAClient = [] {
    g_whenAskedForTheAppManager = nullptr;
    ASSERT_EQ(Client::GetInstance()->InitInstance(), 1);
    MWP_DestroyBlueTooth();
    ASSERT_EQ(Client::ms_pSingleton, nullptr);
    ASSERT_EQ(Flags(), 1);
    LetItFail();
  };
  const std::pair<const char*, std::function<void()>> requests[] = {
      {"MWPBtCom", [] { MWPBtCom().GetPowerStatus(); }},
      {"MWPBtCom::SetPower", [] { MWPBtCom().SetPower(1); }},
      {"MWPBtCom::GetCapability", [] { MWPBtCom().GetCapability(MWPBtType::BT_CAP_AUTO_ANSWER); }},
      {"MWPBtPhone", [] { MWPBtPhone().AcceptCall(); }},
      {"MWPBtMedia", [] { MWPBtMedia().NextMusic(); }},
      {"MWPBtPbap", [] { MWPBtPbap().StopPhoneBookDownload(); }},
      {"MWPBtMessage", [] { MWPBtMessage().StopDownloadMessage(); }},
      {"MWPBtSpp", [] { MWPBtSpp().SetRfCommUuid("uuid"); }},
      {"MWPBtBle", [] { MWPBtBle().BleInit(); }},
  };
  for (const auto& [name, make] : requests) {
    makeTheFacadesNeedAClient();
    EXPECT_THROW(make(), std::runtime_error) << name;
    EXPECT_EQ(Client::ms_pSingleton, nullptr) << name;
  }
}

TEST_F(Construction, AnExceptionFreesTheClientsMemoryAndForgetsTheSegments) {
  void* memory = nullptr;
  g_whenAskedForTheAppManager = [&] {
    memory = g_clientMemory;
    throw std::runtime_error("no application manager");
  };
  EXPECT_THROW(Client::GetInstance(), std::runtime_error);
  EXPECT_EQ(memory != nullptr, IsMemoryWatched());
  EXPECT_EQ(g_clientMemory, nullptr);
  EXPECT_EQ(ShareMemory::m_ShmId_AddrMap.size(), 1u) << "the call table alone stays";
}

TEST_F(Construction, AnExceptionLeavesTheLockHeldSoThatOtherThreadsWait) {
  LetItFail();
  EXPECT_THROW(Client::GetInstance(), std::runtime_error);
  g_whenAskedForTheAppManager = nullptr;

  std::atomic<bool> isUnlocked{false};
  std::atomic<bool> hasClient{false};
  bool hadToWait = false;
  std::promise<pid_t> begin;
  std::thread other([&] {
    begin.set_value(gettid());
    Client::GetInstance();
    hadToWait = isUnlocked;
    hasClient = true;
  });
  const pid_t id = begin.get_future().get();
  EXPECT_TRUE(WaitUntil([&] { return hasClient.load() || IsAsleep(id); }));
  EXPECT_FALSE(hasClient);
  isUnlocked = true;
  Client::ms_cs.Unlock();
  EXPECT_TRUE(WaitUntil([&] { return hasClient.load(); }));
  other.join();
  EXPECT_TRUE(hadToWait);
}

TEST_F(Construction, TheThreadThatMetTheExceptionCanTryAgain) {
  LetItFail();
  EXPECT_THROW(Client::GetInstance(), std::runtime_error);
  g_whenAskedForTheAppManager = nullptr;
  Recorder service;
  EXPECT_EQ(MWP_CreateBlueTooth(), 1);
  EXPECT_EQ(Flags(), 1);
  EXPECT_EQ(g_clientMemory, IsMemoryWatched() ? Client::ms_pSingleton : nullptr);
}

}  // namespace
}  // namespace bttest
