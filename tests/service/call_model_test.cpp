#include "tests/service/model_fixture.h"

namespace btservice {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kNumber = "+49170555101";

class CallModelTest : public ModelTest {
 protected:
  CallModelTest() {
    PairBeforehand(kSmartphone);
    PairBeforehand(kOldPhone);
  }
  void SetUp() override {
    PrepareWorld();
    ConnectDevice(kSmartphone, BT_PROFILE_HFP);
  }
  virtual void PrepareWorld() {}

  CallControl& Calls() { return Stack().Calls(); }
  Outside& FromOutside() { return Stack().FromOutside(); }
  std::vector<CallStatus> StatesOf(int callId) const {
    std::vector<CallStatus> states;
    for (const CallChanged& change : log.Of<CallChanged>()) {
      if (change.callId == callId) {
        states.push_back(change.status);
      }
    }
    return states;
  }
  /// One call, answered.
  void Talk() {
    ASSERT_TRUE(FromOutside().Call(kSmartphone, kNumber));
    ASSERT_TRUE(Calls().Accept());
  }
};

TEST_F(CallModelTest, ADialedCallAlertsAndIsAnswered) {
  EXPECT_TRUE(Calls().Dial("112"));
  ASSERT_EQ(Calls().Calls().size(), 1U);
  EXPECT_FALSE(Calls().Calls()[0].incoming);
  EXPECT_EQ(Calls().Calls()[0].number, "112");
  EXPECT_EQ(Calls().Calls()[0].deviceAddress, kSmartphone);
  Pass(world.delays.dial + Device(kSmartphone).phone.answersAfter);
  EXPECT_THAT(StatesOf(1), ElementsAre(BT_CALL_DIALING, BT_CALL_ALERTING, BT_CALL_ACTIVE));
  EXPECT_THAT(log.Values(&CallsChanged::callCount), ElementsAre(1, 1, 1));
}

TEST_F(CallModelTest, TheTimeOfACallTicks) {
  Talk();
  Pass(3500ms);
  EXPECT_THAT(log.Values(&CallTimeChanged::seconds), ElementsAre(1, 2, 3));
  EXPECT_THAT(log.Values(&CallTimeChanged::active), ElementsAre(true, true, true));
  EXPECT_EQ(Calls().Calls()[0].seconds, 3);
  Calls().HangUp();
  Pass(10s);
  EXPECT_EQ(log.Count<CallTimeChanged>(), 3U);
}

TEST_F(CallModelTest, HangingUpEndsTheCall) {
  Talk();
  log.Clear();
  EXPECT_TRUE(Calls().HangUp());
  EXPECT_THAT(StatesOf(1), ElementsAre(BT_CALL_IDLE));
  EXPECT_THAT(log.Values(&CallsChanged::callCount), ElementsAre(0));
  EXPECT_EQ(log.Count<CallHungUp>(), 1U);
  EXPECT_THAT(Calls().Calls(), IsEmpty());
  EXPECT_FALSE(Calls().HangUp());
}

TEST_F(CallModelTest, TheOtherEndHangsUp) {
  Talk();
  EXPECT_TRUE(FromOutside().HangUp(kSmartphone, 1));
  EXPECT_THAT(Calls().Calls(), IsEmpty());
  EXPECT_FALSE(FromOutside().HangUp(kSmartphone, 1));
}

TEST_F(CallModelTest, AnIncomingCallIsAccepted) {
  EXPECT_TRUE(FromOutside().Call(kSmartphone, kNumber));
  EXPECT_EQ(Calls().Calls()[0].status, BT_CALL_INCOMING);
  EXPECT_TRUE(Calls().Calls()[0].incoming);
  EXPECT_TRUE(Calls().Accept());
  EXPECT_THAT(StatesOf(1), ElementsAre(BT_CALL_INCOMING, BT_CALL_ACTIVE));
  EXPECT_FALSE(Calls().Accept());
}

TEST_F(CallModelTest, AnIncomingCallIsRejected) {
  FromOutside().Call(kSmartphone, kNumber);
  EXPECT_TRUE(Calls().Reject());
  EXPECT_THAT(StatesOf(1), ElementsAre(BT_CALL_INCOMING, BT_CALL_IDLE));
  EXPECT_FALSE(Calls().Reject());
}

TEST_F(CallModelTest, AnIncomingCallThatNobodyAcceptsEnds) {
  FromOutside().Call(kSmartphone, kNumber);
  Pass(world.delays.ringTimeout - 1ms);
  EXPECT_EQ(Calls().Calls().size(), 1U);
  Pass(1ms);
  EXPECT_THAT(Calls().Calls(), IsEmpty());
}

TEST_F(CallModelTest, ABusyNumberEndsTheCall) {
  FromOutside().SetCalledParty(kSmartphone, CalledParty::BUSY, 0ms);
  Calls().Dial("112");
  Pass(world.delays.dial);
  EXPECT_THAT(StatesOf(1), ElementsAre(BT_CALL_DIALING, BT_CALL_IDLE));
}

TEST_F(CallModelTest, NobodyAnswersAtTheOtherEnd) {
  FromOutside().SetCalledParty(kSmartphone, CalledParty::NO_ANSWER, 0ms);
  Calls().Dial("112");
  Pass(world.delays.dial + world.delays.ringTimeout);
  EXPECT_THAT(StatesOf(1), ElementsAre(BT_CALL_DIALING, BT_CALL_ALERTING, BT_CALL_IDLE));
}

TEST_F(CallModelTest, SomebodyAnswersEarly) {
  FromOutside().SetCalledParty(kSmartphone, CalledParty::NO_ANSWER, 0ms);
  Calls().Dial("112");
  EXPECT_FALSE(FromOutside().AnswerCall(kSmartphone));
  Pass(world.delays.dial);
  EXPECT_TRUE(FromOutside().AnswerCall(kSmartphone));
  EXPECT_EQ(Calls().Calls()[0].status, BT_CALL_ACTIVE);
  Pass(world.delays.ringTimeout);
  EXPECT_EQ(Calls().Calls().size(), 1U);
}

TEST_F(CallModelTest, TheLastNumberIsDialedAgain) {
  EXPECT_FALSE(Calls().Redial());
  Calls().Dial("112");
  Calls().HangUp();
  EXPECT_TRUE(Calls().Redial());
  EXPECT_EQ(Calls().Calls()[0].number, "112");
}

TEST_F(CallModelTest, NonsenseIsNotDialed) {
  for (const char* const number : {"", "call me", "112\n", "123456789012345678901234567890123"}) {
    EXPECT_FALSE(Calls().Dial(number)) << number;
  }
}

TEST_F(CallModelTest, WithoutAPhoneThereIsNoCall) {
  Stack().Devices().Disconnect(kSmartphone, BT_PROFILE_HFP);
  Pass(world.delays.disconnect);
  EXPECT_FALSE(Calls().Dial("112"));
  EXPECT_FALSE(FromOutside().Call(kSmartphone, kNumber));
  EXPECT_FALSE(Calls().OwnNumber());
}

TEST_F(CallModelTest, LosingThePhoneEndsItsCalls) {
  Talk();
  FromOutside().LoseLink(kSmartphone);
  EXPECT_THAT(StatesOf(1), ElementsAre(BT_CALL_INCOMING, BT_CALL_ACTIVE, BT_CALL_IDLE));
  EXPECT_THAT(Calls().Calls(), IsEmpty());
}

TEST_F(CallModelTest, ASecondCallHoldsTheFirst) {
  Talk();
  log.Clear();
  EXPECT_TRUE(Calls().Dial("112"));
  EXPECT_THAT(StatesOf(1), ElementsAre(BT_CALL_HELD));
  EXPECT_THAT(StatesOf(2), ElementsAre(BT_CALL_DIALING));
  EXPECT_FALSE(Calls().Dial("110"));
}

TEST_F(CallModelTest, TheCallThatIsSpokenInComesFirst) {
  Talk();
  Calls().Dial("112");
  Pass(world.delays.dial + Device(kSmartphone).phone.answersAfter);
  ASSERT_EQ(Calls().Calls().size(), 2U);
  EXPECT_EQ(Calls().Calls()[0].number, "112");
  EXPECT_EQ(Calls().Calls()[0].status, BT_CALL_ACTIVE);
  EXPECT_EQ(Calls().Calls()[1].status, BT_CALL_HELD);
}

TEST_F(CallModelTest, TonesAreSentInACallOnly) {
  EXPECT_FALSE(Calls().SendTone('1'));
  Talk();
  for (const char tone : std::string("0123456789*#ABCD")) {
    EXPECT_TRUE(Calls().SendTone(tone)) << tone;
  }
  EXPECT_FALSE(Calls().SendTone('x'));
  EXPECT_FALSE(Calls().SendTone('\0'));
}

TEST_F(CallModelTest, ThePhoneTellsItsNumber) { EXPECT_EQ(Calls().OwnNumber(), "+49170555100"); }

TEST_F(CallModelTest, TheRingToneRingsForAnIncomingCallOnly) {
  EXPECT_FALSE(Calls().PlayRingtone());
  FromOutside().Call(kSmartphone, kNumber);
  EXPECT_TRUE(Calls().PlayRingtone());
  EXPECT_TRUE(Calls().StopRingtone());
  EXPECT_FALSE(Calls().StopRingtone());
  Calls().PlayRingtone();
  Calls().Accept();
  EXPECT_FALSE(Calls().StopRingtone());
}

TEST_F(CallModelTest, APreviewNeedsAFile) {
  EXPECT_FALSE(Calls().PlayPreview(""));
  EXPECT_FALSE(Calls().StopPreview());
  EXPECT_TRUE(Calls().PlayPreview("/usr/share/ring.wav"));
  EXPECT_TRUE(Calls().StopPreview());
}

class AutoAnswerTest : public CallModelTest {
  void PrepareWorld() override { world.settings.capabilities[BT_CAP_AUTO_ANSWER] = 1; }
};

TEST_F(AutoAnswerTest, AnIncomingCallIsAcceptedWithoutAsking) {
  FromOutside().Call(kSmartphone, kNumber);
  Pass(world.delays.autoAnswer);
  EXPECT_THAT(StatesOf(1), ElementsAre(BT_CALL_INCOMING, BT_CALL_ACTIVE));
}

class AutoRejectTest : public CallModelTest {
  void PrepareWorld() override { world.settings.capabilities[BT_CAP_AUTO_REJECT_INCALL] = 1; }
};

TEST_F(AutoRejectTest, AnIncomingCallIsRejectedWithoutAsking) {
  FromOutside().Call(kSmartphone, kNumber);
  Pass(world.delays.hangUp);
  EXPECT_THAT(StatesOf(1), ElementsAre(BT_CALL_INCOMING, BT_CALL_IDLE));
}

}  // namespace
}  // namespace btservice
