// MWPBtCom::SetPower is two requests: it asks for the status first.

#include <chrono>
#include <string>

#include <gmock/gmock.h>

#include <bluetooth/MWPBtCom.h>

#include "system/fixtures.h"

namespace bttest {
namespace {

using testing::ElementsAre;

struct SetPower : Started {
  void AnswerStatus(int status) {
    service.SetReply("GetPowerStatus", g_variant_new("(y)", static_cast<guchar>(status)));
    service.SetReply("SetPower", g_variant_new("(i)", 1));
  }
  /// What the service is asked for by one call.
  std::vector<std::string> CallsOf(int on, int answer) {
    service.TakeCalls();
    EXPECT_EQ(MWPBtCom().SetPower(on), answer) << on;
    return service.TakeCallTexts();
  }
};

TEST_F(SetPower, AsksForTheStatusAndThenSwitches) {
  AnswerStatus(MWPBtType::BT_POWER_OFF);
  EXPECT_THAT(CallsOf(1, 1), ElementsAre("GetPowerStatus()", "SetPower(byte 0x01,)"));
  AnswerStatus(MWPBtType::BT_POWER_ON);
  EXPECT_THAT(CallsOf(0, 1), ElementsAre("GetPowerStatus()", "SetPower(byte 0x00,)"));
}

TEST_F(SetPower, Of256IsComparedAsOnAndArrivesAsOff) {
  AnswerStatus(MWPBtType::BT_POWER_ON);
  EXPECT_THAT(CallsOf(256, 0), ElementsAre("GetPowerStatus()"));
  AnswerStatus(MWPBtType::BT_POWER_OFF);
  EXPECT_THAT(CallsOf(256, 1), ElementsAre("GetPowerStatus()", "SetPower(byte 0x00,)"));
}

TEST_F(SetPower, OffSendsNothingWhenTheStatusCannotBeRead) {
  AnswerStatus(MWPBtType::BT_POWER_ON);
  service.FailNext("GetPowerStatus");
  EXPECT_THAT(CallsOf(0, 0), ElementsAre("GetPowerStatus()"));
}

TEST_F(SetPower, OnIsSentWhenTheStatusCannotBeRead) {
  AnswerStatus(MWPBtType::BT_POWER_ON);
  service.FailNext("GetPowerStatus");
  EXPECT_THAT(CallsOf(1, 1), ElementsAre("GetPowerStatus()", "SetPower(byte 0x01,)"));
}

TEST_F(SetPower, WaitsForTheTimeLimitTwiceWithAServiceThatHangs) {
  service.Hang("GetPowerStatus");
  service.Hang("SetPower");
  constexpr std::chrono::milliseconds kLimit{300};  // instead of 25 seconds
  g_dbus_proxy_set_default_timeout(G_DBUS_PROXY(g_BtProxy), static_cast<int>(kLimit.count()));
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_THAT(CallsOf(1, 0), ElementsAre("GetPowerStatus()", "SetPower(byte 0x01,)"));
  EXPECT_GE(std::chrono::steady_clock::now() - begin, 2 * kLimit);
}

}  // namespace
}  // namespace bttest
