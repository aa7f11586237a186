// A day in the life of the model. That everything that can be reported comes from something that happens is
// shown from outside, in tests/conformance/events_test.cpp.

#include "tests/service/model_fixture.h"

namespace btservice {
namespace {

using namespace std::chrono_literals;

class AllEventsTest : public ModelTest {};

TEST_F(AllEventsTest, ALongDriveLeavesNothingRunningWild) {
  world.settings.capabilities[BT_CAP_AUTO_CONNECT] = 1;
  world.settings.capabilities[BT_CAP_AUTO_DOWNLOAD] = 1;
  PairBeforehand(kSmartphone);
  PairBeforehand(kOldPhone);
  PowerOn();
  Pass(1min);
  for (int round = 0; round < 200; ++round) {
    Stack().Music().Play();
    Stack().FromOutside().Call(kSmartphone, "112");
    Stack().Calls().Accept();
    Stack().FromOutside().Call(kOldPhone, "110");
    Pass(10s);
    Stack().FromOutside().SetInRange(kSmartphone, false);
    Pass(10s);
    Stack().FromOutside().SetInRange(kSmartphone, true);
    Pass(30s);
    ASSERT_EQ(Stack().Devices().Connection(BT_PROFILE_A2DP).address, kSmartphone) << round;
    Stack().FromOutside().HangUp(kOldPhone, 0);
    log.Clear();
  }
  EXPECT_TRUE(Stack().Adapter().SetPower(false));
  Pass(1s);
  log.Clear();
  Pass(24h);
  EXPECT_EQ(log.All().size(), 0U) << "an adapter that is off has nothing to say";
}

}  // namespace
}  // namespace btservice
