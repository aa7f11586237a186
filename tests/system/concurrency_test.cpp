// Many threads at once. Meant for ThreadSanitizer above all, and true without it.

#include <atomic>
#include <list>
#include <map>
#include <memory>

#include <gmock/gmock.h>

#include <bluetooth/IMWPBtBleListener.h>
#include <bluetooth/IMWPBtPhoneListener.h>
#include <bluetooth/MWPBtBle.h>
#include <bluetooth/MWPBtCom.h>
#include <bluetooth/MWPBtMedia.h>
#include <bluetooth/MWPBtMessage.h>
#include <bluetooth/MWPBtPbap.h>
#include <bluetooth/MWPBtPhone.h>
#include <bluetooth/MWPBtSpp.h>
#include <mwp/MWPAppMgrService.h>

#include "system/fixtures.h"
#include "system/run_together.h"

// GLib is not built for ThreadSanitizer, which therefore sees what GLib does with memory, but not its locks.
extern "C" __attribute__((visibility("default"))) const char* __tsan_default_options() {
  return "ignore_noninstrumented_modules=1";
}

namespace bttest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::size_t kThreads = 4;

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

struct Concurrency : WithBus {};
struct ConcurrencyStarted : Started {};

// Requests

/// Every facade is asked for something, and every answer is another.
void AskEveryFacade() {
  MWPBtMedia media;
  EXPECT_EQ(MWPBtCom().GetPowerStatus(), 2);
  std::string name;
  EXPECT_EQ(MWPBtCom().GetAttribute(MWPBtType::BT_ATTR_LOCAL_NAME, name), 3);
  EXPECT_EQ(name, "the name of the car");
  EXPECT_EQ(MWPBtPhone().GetCurCallStatus(1), 4);
  EXPECT_EQ(MWPBtPhone().GetCurrentMobilePhoneNumber(), "+49170555100");
  std::vector<MWPTypePlayMode> modes;
  EXPECT_EQ(media.GetSupportPlayMode(modes), 1);
  EXPECT_EQ(modes.size(), 2u);
  std::list<MWPTypeContact> contacts;
  EXPECT_EQ(MWPBtPbap().GetContactList(contacts), 1);
  EXPECT_EQ(MWPBtPbap().GetContactCount(), 5);
  EXPECT_EQ(MWPBtMessage().GetMessageLoadStatus(), 8);
  EXPECT_EQ(MWPBtSpp().SppSendText("11:22:33:44:55:66", "text"), 1);
  EXPECT_EQ(MWPBtBle().BleGetAllService(), 2) << "the power status";
}

TEST_F(ConcurrencyStarted, RequestsOfFourThreadsOverAllFacadesEachGetTheirOwnAnswer) {
  constexpr int kRounds = 25;
  service.SetReply("GetPowerStatus", g_variant_new("(y)", 2));
  service.SetReply("GetAttribute", g_variant_new("(sy)", "the name of the car", 3));
  service.SetReply("GetCurCallStatus", g_variant_new("(y)", 4));
  service.SetReply("GetCurrentMobilePhoneNumber", g_variant_new("(sb)", "+49170555100", TRUE));
  service.SetReply("GetSupportPlayMode", g_variant_new_parsed("([(byte 1, byte 2), (3, 4)], true)"));
  service.SetReply("GetContactList", g_variant_new("(b)", TRUE));
  service.SetReply("GetContactCount", g_variant_new("(i)", 5));
  service.SetReply("SppSendText", g_variant_new("(b)", TRUE));
  RunTogether(kThreads, [] {
    for (int round = 0; round < kRounds; ++round) {
      AskEveryFacade();
    }
  });
  std::map<std::string, unsigned> calls;
  for (const RecordedCall& call : service.TakeCalls()) {
    ++calls[call.method];
  }
  constexpr unsigned kEach = kThreads * kRounds;
  const std::map<std::string, unsigned> expected{
      {"GetPowerStatus", 2 * kEach}, {"GetAttribute", kEach},
      {"GetCurCallStatus", kEach},   {"GetCurrentMobilePhoneNumber", kEach},
      {"GetSupportPlayMode", kEach}, {"GetContactList", kEach},
      {"GetContactCount", kEach},    {"SppSendText", kEach}};
  EXPECT_EQ(calls, expected);
}

TEST_F(ConcurrencyStarted, RequestsOfFourThreadsThatFailAreEachLoggedOnce) {
  constexpr unsigned kCalls = 50;
  service.FailNext("GetPowerStatus", kThreads * kCalls);
  LogCapture log;
  RunTogether(kThreads, [] {
    for (unsigned call = 0; call < kCalls; ++call) {
      EXPECT_EQ(MWPBtCom().GetPowerStatus(), 0);
    }
  });
  EXPECT_THAT(log.OfLevel(100), SizeIs(kThreads * kCalls));
  EXPECT_THAT(log.Complaints(), IsEmpty());
}

// The client

TEST_F(Concurrency, OnlyOneClientIsMadeHoweverManyThreadsAskForTheFirst) {
  constexpr int kRounds = 20;
  for (int round = 0; round < kRounds; ++round) {
    LogCapture log;
    std::atomic<MWPBtClient*> first{nullptr};
    RunTogether(kThreads, [&] {
      MWPBtClient* const client = Client::GetInstance();
      MWPBtClient* none = nullptr;
      if (!first.compare_exchange_strong(none, client)) {
        EXPECT_EQ(client, none);
      }
      EXPECT_EQ(client->GetListenerCount(), 0u);
    });
    EXPECT_EQ(first, Client::ms_pSingleton);
    EXPECT_THAT(log.OfFunction("IMWPBtListenerBase"), SizeIs(1));
    EXPECT_THAT(log.OfFunction("InitAllShareMemory"), SizeIs(8));
    MWP_DestroyBlueTooth();
  }
}

TEST_F(Concurrency, OnlyOneClientIsMadeByTheFirstListenersOfManyThreads) {
  LogCapture log;
  std::vector<std::unique_ptr<PowerEvents>> listeners(kThreads);
  std::atomic<std::size_t> next{0};
  RunTogether(kThreads, [&] { listeners[next++] = std::make_unique<PowerEvents>(); });
  EXPECT_EQ(Client::ms_pSingleton->GetListenerCount(), kThreads);
  EXPECT_THAT(log.OfFunction("InitAllShareMemory"), SizeIs(8));
}

// Start and stop

TEST_F(Concurrency, CreateOnManyThreadsConnectsOnceAndAnswersAllTheSame) {
  Recorder service;
  LogCapture log;
  RunTogether(kThreads, [] { EXPECT_EQ(MWP_CreateBlueTooth(), 1); });
  EXPECT_THAT(log.OfFunction("InitDBusConnect"), SizeIs(2));
  EXPECT_EQ(Flags(), 1);
}

TEST_F(Concurrency, FailedAttemptsOfManyThreadsGoOneAfterTheOther) {
  LogCapture log;
  RunTogether(kThreads, [] { EXPECT_EQ(MWP_CreateBlueTooth(), 0); });
  const auto lines = log.OfFunction("InitDBusConnect");
  ASSERT_THAT(lines, SizeIs(2 * kThreads));
  for (std::size_t i = 0; i < lines.size(); ++i) {
    EXPECT_EQ(lines[i].level, i % 2 == 0 ? 20 : 80) << "a start, then its warning: " << lines[i];
  }
  EXPECT_EQ(Flags(), 0);
}

TEST_F(Concurrency, StartAndStopAgainstEachOtherLeaveTheFlagsTogether) {
  Recorder service;
  MWPBtClient* const client = Client::GetInstance();
  LogCapture log;
  const auto start = [&] { EXPECT_EQ(client->Start(), 1); };
  const auto stop = [&] { client->Stop(); };
  RunTogether({start, stop, start, stop, start, stop});
  EXPECT_THAT(log.OfFunction("InitDBusConnect"), SizeIs(2)) << "a stopped client does not connect again";
  const std::size_t stops = log.OfFunction("ExitInstance").size();
  EXPECT_LE(stops, 3u);
  EXPECT_EQ(Flags(), stops == 0 ? 1 : 0);
}

// Listeners and events

TEST_F(ConcurrencyStarted, ListenersComeAndGoOnManyThreadsWhileEventsAreWalkedInOrder) {
  constexpr int kEvents = 300;
  Counter counter;
  std::atomic<bool> ends{false};
  EventThread loop;
  // Objects of the interfaces themselves: those of a derived class must come and go on the loop's thread,
  // since the registry knows them before they are whole and after they have ceased to be.
  const auto comeAndGo = [&] {
    do {
      IMWPBtPhoneListener phone;
      IMWPBtComListener com;
      IMWPBtBleListener ble;
    } while (!ends);
  };
  const auto emit = [&] {
    for (int event = 0; event < kEvents; ++event) {
      service.Emit("OnCurrentCallInfoChanged", g_variant_new("(i)", event));
    }
    EXPECT_TRUE(WaitUntil([&] { return counter.count == kEvents; }));
    ends = true;
  };
  RunTogether({emit, comeAndGo, comeAndGo, comeAndGo});
  EXPECT_EQ(counter.disorder, 0);
  EXPECT_EQ(Client::GetInstance()->GetListeners(), std::set<IMWPBtListenerBase*>{&counter});
}

TEST_F(ConcurrencyStarted, EventsAreWalkedInOrderWhileManyThreadsMakeRequests) {
  constexpr int kEvents = 300;
  Counter counter;
  std::atomic<bool> ends{false};
  EventThread loop;
  const auto request = [&] {
    do {
      MWPBtCom().GetPowerStatus();
    } while (!ends);
  };
  const auto emit = [&] {
    for (int event = 0; event < kEvents; ++event) {
      service.Emit("OnCurrentCallInfoChanged", g_variant_new("(i)", event));
    }
    EXPECT_TRUE(WaitUntil([&] { return counter.count == kEvents; }));
    ends = true;
  };
  RunTogether({emit, request, request, request});
  EXPECT_EQ(counter.disorder, 0);
}

TEST_F(ConcurrencyStarted, TheAppManagersNewsComeOnAThreadOfItsOwn) {
  constexpr int kNews = 200;
  LogCapture log;
  const auto notify = [] {
    for (int i = 0; i < kNews; ++i) {
      MWP_GetAppMgrService()->NotifyModuleStatus({SERVICE_MODULE_BLUETOOTH, 1});
    }
  };
  const auto request = [] {
    for (int i = 0; i < kNews; ++i) {
      EXPECT_EQ(MWPBtCom().GetPowerStatus(), 0);
    }
  };
  RunTogether({notify, request, request, [] { EXPECT_EQ(MWP_CreateBlueTooth(), 1); }});
  EXPECT_THAT(log.OfFunction("OnModuleStatusChanged"), SizeIs(kNews));
  EXPECT_EQ(Flags(), 1);
}

}  // namespace
}  // namespace bttest
