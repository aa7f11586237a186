// The client as a listener of the application manager.

#include <functional>
#include <set>
#include <utility>

#include <gmock/gmock.h>

#include <bluetooth/MWPBtCom.h>
#include <mwp/MWPAppMgrService.h>

#include "system/fixtures.h"

namespace bttest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const LogRecord kReadyLine{"libbluetooth/MWPBtClient", "OnModuleStatusChanged", 2203, 40,
                           "~~btservice regist ready~~."};

std::set<IMWPAppListener*>& Registered() { return MWP_GetAppMgrService()->GetListeners(); }

struct AppManager : WithBus {
  /// What the client logs when it hears of a module.
  static std::vector<LogRecord> LinesOf(int module, int status) {
    LogCapture log;
    MWP_GetAppMgrService()->NotifyModuleStatus({module, status});
    return log.Records();
  }
};

TEST_F(AppManager, TheClientEntersItselfOnceAndIsNotStarted) {
  ASSERT_THAT(Registered(), IsEmpty());
  IMWPAppListener* const client = Client::GetInstance();
  EXPECT_THAT(Registered(), ElementsAre(client));
  EXPECT_EQ(MWP_CreateBlueTooth(), 0);
  EXPECT_THAT(Registered(), ElementsAre(client));
}

TEST_F(AppManager, TheBluetoothServiceComingUpIsLogged) {
  Client::GetInstance();
  EXPECT_THAT(LinesOf(SERVICE_MODULE_BLUETOOTH, 1), ElementsAre(kReadyLine));
  EXPECT_THAT(LinesOf(8, -1), ElementsAre(kReadyLine)) << "any status but zero means up";
  EXPECT_THAT(LinesOf(8, 1), ElementsAre(kReadyLine)) << "every time";
}

TEST_F(AppManager, ItsGoingDownAndOtherModulesAreNot) {
  Client::GetInstance();
  EXPECT_THAT(LinesOf(8, 0), IsEmpty());
  EXPECT_THAT(LinesOf(7, 1), IsEmpty());
  EXPECT_THAT(LinesOf(9, 1), IsEmpty());
  EXPECT_THAT(LinesOf(0, 0), IsEmpty());
  EXPECT_THAT(LinesOf(-8, 1), IsEmpty());
}

TEST_F(AppManager, TheBluetoothServiceComingUpNeitherConnectsNorStartsNorTellsAListener) {
  Recorder service;
  PowerEvents listener;
  LinesOf(SERVICE_MODULE_BLUETOOTH, 1);
  EXPECT_EQ(g_BtProxy, nullptr);
  EXPECT_EQ(Flags(), 0);
  EXPECT_EQ(MWPBtCom().GetPowerStatus(), 0);
  EXPECT_THAT(service.TakeCalls(), IsEmpty());
  RunPending();
  EXPECT_THAT(listener.Seen(), IsEmpty());
}

TEST_F(AppManager, TheBluetoothServiceGoingDownLeavesAStartedClientStarted) {
  Recorder service;
  ASSERT_EQ(MWP_CreateBlueTooth(), 1);
  LinesOf(SERVICE_MODULE_BLUETOOTH, 0);
  EXPECT_EQ(Flags(), 1);
}

TEST_F(AppManager, EveryNewClientEntersItselfWhateverMakesIt) {
  Recorder service;
  ASSERT_EQ(MWP_CreateBlueTooth(), 1);
  const std::pair<const char*, std::function<void()>> makers[] = {
      {"the first use", [] { Client::GetInstance(); }},
      {"a start", [] { MWP_CreateBlueTooth(); }},
      {"a listener", [] { PowerEvents(); }},
      {"an event",
       [&] {
         EmitPower(service, MWPBtType::BT_POWER_ON);
         EXPECT_TRUE(RunUntil([] { return Client::ms_pSingleton != nullptr; }));
       }},
  };
  for (const auto& [name, make] : makers) {
    MWP_DestroyBlueTooth();
    Registered().clear();  // of clients that are gone
    make();
    IMWPAppListener* const client = Client::ms_pSingleton;
    EXPECT_THAT(Registered(), ElementsAre(client)) << name;
  }
}

// The pointers below are never followed: their clients are gone.

TEST_F(AppManager, ADestroyedClientStaysEntered) {
  IMWPAppListener* const client = Client::GetInstance();
  MWP_DestroyBlueTooth();
  EXPECT_THAT(Registered(), ElementsAre(client));
}

TEST_F(AppManager, DestroyWithoutCreateLeavesOneEntryMore) {
  MWP_DestroyBlueTooth();
  EXPECT_EQ(MWP_GetAppMgrService()->GetListenerCount(), 1u);
}

}  // namespace
}  // namespace bttest
