#include "service/simulation/Timeline.h"
#include "tests/service/model_fixture.h"

namespace btservice {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

class TimelineTest : public ModelTest {
 protected:
  void SetUp() override {
    PairBeforehand(kSmartphone);
    ConnectDevice(kSmartphone);
    timeline = std::make_unique<Timeline>(scheduler, Stack().FromOutside());
  }
  static Happening At(Milliseconds at, HappeningKind kind) {
    Happening happening;
    happening.at = at;
    happening.kind = kind;
    happening.device = kSmartphone;
    return happening;
  }

  std::unique_ptr<Timeline> timeline;
};

TEST_F(TimelineTest, ThingsHappenAtTheirTime) {
  Happening call = At(2s, HappeningKind::CALL);
  call.number = "112";
  timeline->Start({call, At(5s, HappeningKind::HANG_UP)});
  Pass(1999ms);
  EXPECT_EQ(log.Count<CallChanged>(), 0U);
  Pass(1ms);
  EXPECT_EQ(Stack().Calls().Calls()[0].number, "112");
  Pass(3s);
  EXPECT_TRUE(Stack().Calls().Calls().empty());
}

TEST_F(TimelineTest, ThingsHappenAgainInTheirPeriod) {
  Happening message = At(1s, HappeningKind::MESSAGE);
  message.every = 10s;
  timeline->Start({message});
  Pass(31s);
  EXPECT_THAT(log.Values(&MessageNotified::handle),
              ElementsAre("70000001", "70000002", "70000003", "70000004"));
}

TEST_F(TimelineTest, WhatCannotHappenJustNowDoesNot) {
  timeline->Start({At(1s, HappeningKind::LEAVE), At(2s, HappeningKind::CALL), At(3s, HappeningKind::ARRIVE),
                   At(4s, HappeningKind::CONNECT), At(20s, HappeningKind::CALL)});
  Pass(10s);
  EXPECT_EQ(log.Count<CallChanged>(), 0U);
  Pass(10s);
  EXPECT_EQ(log.Count<CallChanged>(), 1U);
}

TEST_F(TimelineTest, EveryKindOfHappeningDoesSomething) {
  Stack().Adapter().SetCapability(BT_CAP_ENABLE_SCAN, 1);
  Device(kAccessory).paired = false;
  const auto happens = [&](Happening happening) {
    log.Clear();
    timeline->Start({happening});
    Pass(10s);
    return !log.All().empty();
  };
  Happening serial = At(0s, HappeningKind::CONNECT);
  serial.profile = BT_PROFILE_SPP;
  EXPECT_TRUE(happens(serial));
  for (const HappeningKind kind :
       {HappeningKind::SERIAL, HappeningKind::CALL, HappeningKind::HANG_UP, HappeningKind::SIGNAL,
        HappeningKind::BATTERY, HappeningKind::OPERATOR, HappeningKind::ROAMING, HappeningKind::PLAY,
        HappeningKind::PAUSE, HappeningKind::MESSAGE, HappeningKind::REQUEST_PROJECTION,
        HappeningKind::DISCONNECT, HappeningKind::CONNECT, HappeningKind::LOSE_LINK}) {
    EXPECT_TRUE(happens(At(0s, kind))) << static_cast<int>(kind);
  }
  Happening pairing = At(0s, HappeningKind::REQUEST_PAIRING);
  pairing.device = kAccessory;
  EXPECT_TRUE(happens(pairing));
  pairing.kind = HappeningKind::REJECT_PAIRING;
  EXPECT_TRUE(happens(pairing));
}

TEST_F(TimelineTest, CalledPartiesChangeTheirMind) {
  Happening busy = At(0s, HappeningKind::CALLED_PARTY);
  busy.calledParty = CalledParty::NO_ANSWER;
  timeline->Start({busy, At(5s, HappeningKind::ANSWER_CALL)});
  Pass(1s);
  Stack().Calls().Dial("112");
  Pass(3s);
  EXPECT_EQ(Stack().Calls().Calls()[0].status, BT_CALL_ALERTING);
  Pass(1s);
  EXPECT_EQ(Stack().Calls().Calls()[0].status, BT_CALL_ACTIVE);
}

}  // namespace
}  // namespace btservice
