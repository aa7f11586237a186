// The library that never blocks: what a newcomer tries first.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/async/AsyncFixture.h"

namespace {

using namespace btasync;
using bttest::Wait;
using bttest::WaitFor;
using testing::ElementsAre;

class BasicsTest : public testing::Test {
 protected:
  bttest::BusDaemon bus;
  bttest::Recorder recorder;
  Service service;
};

TEST_F(BasicsTest, SeesTheServiceComeAndGo) {
  std::vector<Availability> seen;
  Scope scope;
  service.OnAvailability(scope, [&](Availability now) { seen.push_back(now); });
  EXPECT_TRUE(seen.empty()) << "never inside the call";
  ASSERT_TRUE(WaitFor(service, Availability::Present));
  recorder.ReleaseName();
  ASSERT_TRUE(WaitFor(service, Availability::Absent));
  recorder.OwnName();
  ASSERT_TRUE(WaitFor(service, Availability::Present));
  EXPECT_THAT(seen, ElementsAre(Availability::Unknown, Availability::Present, Availability::Absent,
                                Availability::Present));
}

TEST_F(BasicsTest, AnswersAcceptedRefusedOrAValue) {
  recorder.SetReply("SetPower", g_variant_new("(i)", 1));
  EXPECT_TRUE(Wait(service.SetPower(true)).Accepted());
  recorder.SetReply("SetPower", g_variant_new("(i)", 0));
  EXPECT_TRUE(Wait(service.SetPower(true)).Refused());
  recorder.SetReply("GetPowerStatus", g_variant_new("(y)", BT_POWER_TURNING_ON));
  EXPECT_EQ(*Wait(service.GetPowerStatus()), BT_POWER_TURNING_ON);
  EXPECT_THAT(recorder.TakeCallTexts(),
              ElementsAre("SetPower(byte 0x01,)", "SetPower(byte 0x01,)", "GetPowerStatus()"));
}

TEST_F(BasicsTest, DeliversTheEventsThatAreSubscribed) {
  ASSERT_TRUE(WaitFor(service, Availability::Present));
  std::vector<std::string> found;
  Scope scope;
  service.On<DeviceFound>(scope, [&](const DeviceFound& event) {
    found.push_back(event.address.ToText() + " " + event.name + " " + std::to_string(event.support));
  });
  ASSERT_TRUE(Wait(service.GetPowerStatus()).Accepted());  // the bus has the subscription by now
  recorder.Emit("OnScanedDeviceChanged", g_variant_new("(ssy)", "00:1A:7D:DA:71:13", "Ada's phone", 1));
  ASSERT_TRUE(bttest::RunUntil([&] { return !found.empty(); }));
  EXPECT_THAT(found, ElementsAre("00:1A:7D:DA:71:13 Ada's phone 1"));
}

TEST_F(BasicsTest, CallsNothingOnceTheScopeIsGone) {
  bool called = false;
  {
    Scope scope;
    service.GetPowerStatus().Then(scope, [&](Answer<PowerStatus>) { called = true; });
  }
  ASSERT_TRUE(Wait(service.GetPowerStatus()).Accepted());
  EXPECT_FALSE(called);
}

TEST_F(BasicsTest, TimesOutAndSaysWhy) {
  recorder.Hang("GetPowerStatus");
  const Answer<PowerStatus> answer = Wait(service.GetPowerStatus().Within(std::chrono::milliseconds(50)));
  ASSERT_TRUE(answer.Failed());
  EXPECT_EQ(answer.Why().reason, Reason::TimedOut);
}

}  // namespace
