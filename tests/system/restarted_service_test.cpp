// A service that comes, goes and comes back while the application lives.

#include <optional>

#include <gmock/gmock.h>

#include <bluetooth/MWPBtCom.h>

#include "ipc/BtClientIpcAdapter.h"
#include "system/BusPeer.h"
#include "system/fixtures.h"
#include "system/preset_requests.h"

namespace bttest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Who owns the service's name as the proxy knows it; empty if nobody does.
std::string OwnerKnownToProxy() {
  const OwnedText owner(g_dbus_proxy_get_name_owner(G_DBUS_PROXY(g_BtProxy)));
  return owner != nullptr ? owner.get() : "";
}

struct LateService : WithBus {
  PowerEvents listener;
};

TEST_F(LateService, CreateFailsUntilTheServiceIsThereAndThenEventsArrive) {
  EXPECT_EQ(MWP_CreateBlueTooth(), 0);
  EXPECT_EQ(MWPBtCom().GetPowerStatus(), 0);
  Recorder service;
  service.SetReply("GetPowerStatus", g_variant_new("(y)", MWPBtType::BT_POWER_ON));
  EXPECT_EQ(MWP_CreateBlueTooth(), 1);
  EXPECT_EQ(MWPBtCom().GetPowerStatus(), MWPBtType::BT_POWER_ON);
  EmitPower(service, MWPBtType::BT_POWER_OFF);
  EXPECT_TRUE(RunUntil([&] { return !listener.Seen().empty(); }));
  // The proxy of the failed start is still there, but has no handlers: one event, one call.
  RunPending();
  EXPECT_THAT(listener.Seen(), ElementsAre(MWPBtType::BT_POWER_OFF));
}

struct RestartedService : WithBus {
  RestartedService() {
    service.emplace();
    if (MWP_CreateBlueTooth() == 0) {
      throw std::runtime_error("the library does not start");
    }
    proxy = g_BtProxy;
  }

  void LoseService() {
    service->Kill();
    EXPECT_TRUE(RunUntil([] { return OwnerKnownToProxy().empty(); }));
  }

  void RestartService() {
    service.reset();
    service.emplace();
    const std::string owner = BusPeer(bus.Address()).ServiceOwner();
    EXPECT_TRUE(RunUntil([&] { return OwnerKnownToProxy() == owner; }));
  }

  std::optional<Recorder> service;
  ComZelkLinuxBluetooth* proxy = nullptr;
  PowerEvents listener;
};

TEST_F(RestartedService, WhileItIsAwayRequestsAnswerTheirPresets) {
  LoseService();
  ExpectPresets("was not provided by any .service files");
  EXPECT_EQ(Flags(), 1) << "the library stays started";
}

TEST_F(RestartedService, RequestsWorkAgainOnTheOldProxy) {
  LoseService();
  RestartService();
  service->SetReply("SetPower", g_variant_new("(i)", 5));
  BtClientIpcAdapter adapter;
  EXPECT_EQ(adapter.SetPower(1), 5);
  EXPECT_THAT(service->TakeCallTexts(), ElementsAre("SetPower(byte 0x01,)"));
  EXPECT_EQ(g_BtProxy, proxy);
}

// The proxy addresses the owner that it knows, and hears of a new one through the main loop.
TEST_F(RestartedService, RequestsFailUntilTheMainLoopHasRun) {
  service.reset();
  service.emplace();
  service->SetReply("SetPower", g_variant_new("(i)", 5));
  BtClientIpcAdapter adapter;
  ExpectPreset("SetPower", "org.freedesktop.DBus.Error.ServiceUnknown", 0,
               [&] { return adapter.SetPower(1); });
  EXPECT_TRUE(RunUntil([&] { return adapter.SetPower(1) == 5; }));
}

TEST_F(RestartedService, EventsArriveAgainOnceEach) {
  LoseService();
  RestartService();
  EmitPower(*service, MWPBtType::BT_POWER_TURNING_ON);
  EmitPower(*service, MWPBtType::BT_POWER_ON);
  EXPECT_TRUE(RunUntil([&] { return listener.Seen().size() >= 2; }));
  EXPECT_THAT(listener.Seen(), ElementsAre(MWPBtType::BT_POWER_TURNING_ON, MWPBtType::BT_POWER_ON));
}

TEST_F(RestartedService, TheChangeIsNeitherLoggedNorToldToAnybody) {
  LogCapture log;
  LoseService();
  RestartService();
  EXPECT_THAT(log.Records(), IsEmpty());
  EXPECT_THAT(log.Complaints(), IsEmpty());
  EXPECT_THAT(listener.Seen(), IsEmpty());
}

TEST_F(RestartedService, AnotherProcessThatTakesTheNameOverIsTheServiceFromThenOn) {
  Recorder successor(Recorder::Name::NOT_YET);
  service->ReleaseName();
  successor.OwnName();
  const std::string owner = BusPeer(bus.Address()).ServiceOwner();
  ASSERT_TRUE(RunUntil([&] { return OwnerKnownToProxy() == owner; }));

  EmitPower(*service, MWPBtType::BT_POWER_OFF);
  EmitPower(successor, MWPBtType::BT_POWER_ON);
  EXPECT_TRUE(RunUntil([&] { return !listener.Seen().empty(); }));
  EXPECT_THAT(listener.Seen(), ElementsAre(MWPBtType::BT_POWER_ON));
  BtClientIpcAdapter().SetPower(1);
  EXPECT_THAT(successor.TakeCallTexts(), ElementsAre("SetPower(byte 0x01,)"));
  EXPECT_THAT(service->TakeCallTexts(), IsEmpty());
}

}  // namespace
}  // namespace bttest
