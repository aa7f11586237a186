// A service that is on the bus and does not do what it should.

#include <gmock/gmock.h>

#include <bluetooth/MWPBtCom.h>

#include "system/BusPeer.h"
#include "system/fixtures.h"
#include "system/preset_requests.h"

namespace bttest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The methods that ExpectPresets() calls, directly or through the segment they publish.
constexpr const char* kMethodsOfPresets[] = {
    "SetPower",           "EnableProfile",       "GetRemotePairDeviceName", "GetPairDeviceInfoByAddress",
    "GetSupportPlayMode", "SetDeviceOOBLinkKey", "SppSendBuffer",           "GetContactList",
    "GetCallLogList"};

struct FailingService : Started {
  /// Instead of the 25 seconds that calls have by default.
  static void ShortenTimeOut() {
    g_dbus_proxy_set_default_timeout(G_DBUS_PROXY(g_BtProxy), kShortTimeOut.count());
  }

  static constexpr std::chrono::duration<int, std::milli> kShortTimeOut{100};
};

TEST_F(FailingService, AnErrorItAnswersIsLoggedOnceAndThePresetAnswered) {
  for (const char* const method : kMethodsOfPresets) {
    service.FailNext(method, 1, "com.example.Error", "this is the reason");
  }
  ExpectPresets("GDBus.Error:com.example.Error: this is the reason");
}

TEST_F(FailingService, AnswersOfAWrongTypeAreTakenAsFailures) {
  for (const char* const method : kMethodsOfPresets) {
    service.ReplyWrongType(method);
  }
  ExpectPresets("but expected");
}

TEST_F(FailingService, ItsDeathInTheMiddleOfACallEndsTheCallWithThePreset) {
  service.DieOn("SetPower");
  BtClientIpcAdapter adapter;
  ExpectPreset("SetPower", "disconnected from message bus without replying", 0,
               [&] { return adapter.SetPower(1); });
  EXPECT_EQ(service.Process().Wait(), 9);
  EXPECT_EQ(Flags(), 1) << "the library stays started";
}

TEST_F(FailingService, ItsDeathInTheMiddleOfAListIsAnsweredWithOneAndAnUntouchedList) {
  service.DieOn("GetContactList");
  BtClientIpcAdapter adapter;
  std::list<MWPTypeContact> contacts(1);
  ExpectPreset("GetContactList", "disconnected from message bus without replying", 1,
               [&] { return adapter.GetContactList(contacts); });
  EXPECT_EQ(contacts.size(), 1u);
}

TEST_F(FailingService, ACallThatIsNotAnsweredEndsWithItsTimeOut) {
  service.Hang("GetPowerStatus");
  ShortenTimeOut();
  BtClientIpcAdapter adapter;
  const auto begin = std::chrono::steady_clock::now();
  ExpectPreset("GetPowerStatus", "Timeout was reached", 0, [&] { return adapter.GetPowerStatus(); });
  EXPECT_GE(std::chrono::steady_clock::now() - begin, kShortTimeOut);
}

TEST_F(FailingService, AnAnswerThatComesTooLateIsTakenForNoOtherCall) {
  service.Hang("SetPower");
  service.SetReply("SetPower", g_variant_new("(i)", 77));
  ShortenTimeOut();
  BtClientIpcAdapter adapter;
  EXPECT_EQ(adapter.SetPower(1), 0);
  service.Release("SetPower");
  service.SetReply("SetPower", g_variant_new("(i)", 78));
  g_dbus_proxy_set_default_timeout(G_DBUS_PROXY(g_BtProxy), -1);
  EXPECT_EQ(adapter.SetPower(0), 78);
}

TEST_F(FailingService, ASignalFromAnotherProcessIsNotBelieved) {
  PowerEvents listener;
  Recorder stranger(Recorder::Name::NOT_YET);
  EmitPower(stranger, MWPBtType::BT_POWER_ON);
  EmitPower(service, MWPBtType::BT_POWER_OFF);
  EXPECT_TRUE(RunUntil([&] { return !listener.Seen().empty(); }));
  EXPECT_THAT(listener.Seen(), ElementsAre(MWPBtType::BT_POWER_OFF));
}

TEST_F(FailingService, ASignalThatTheInterfaceDoesNotHaveIsIgnored) {
  PowerEvents listener;
  LogCapture log;
  service.EmitRaw("OnNobodyKnowsWhat", g_variant_new("(s)", "?"));
  EmitPower(service, MWPBtType::BT_POWER_ON);
  EXPECT_TRUE(RunUntil([&] { return !listener.Seen().empty(); }));
  EXPECT_THAT(log.OfLevel(100), IsEmpty());
  EXPECT_THAT(log.Complaints(), IsEmpty());
}

struct NameWithoutInterface : WithBus {};

TEST_F(NameWithoutInterface, WhoOwnsTheNameIsTakenForTheServiceAndItsRequestsFail) {
  BusPeer impostor(bus.Address());
  impostor.OwnServiceName();
  EXPECT_EQ(MWP_CreateBlueTooth(), 1);
  ExpectPresets("org.freedesktop.DBus.Error.UnknownMethod");
  EXPECT_EQ(MWPBtCom().GetPowerStatus(), 0);
}

}  // namespace
}  // namespace bttest
