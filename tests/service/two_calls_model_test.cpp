#include "tests/service/model_fixture.h"

namespace btservice {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

class TwoCallsModelTest : public ModelTest {
 protected:
  void SetUp() override {
    PairBeforehand(kSmartphone);
    ConnectDevice(kSmartphone, BT_PROFILE_HFP);
    Stack().FromOutside().Call(kSmartphone, "+49170555101");
    Calls().Accept();
    log.Clear();
  }
  CallControl& Calls() { return Stack().Calls(); }
  void LetWait() { ASSERT_TRUE(Stack().FromOutside().Call(kSmartphone, "+49170555102")); }
  void LetHold() {
    LetWait();
    ASSERT_TRUE(Calls().Accept());
  }
  /// State and membership in a conference by call id.
  std::map<int, std::pair<CallStatus, bool>> Table() {
    std::map<int, std::pair<CallStatus, bool>> table;
    for (const CallInfo& call : Calls().Calls()) {
      table[call.id] = {call.status, call.multiparty};
    }
    return table;
  }
  std::map<CallAction, bool> Actions() const {
    std::map<CallAction, bool> actions;
    for (const CallActionChanged& change : log.Of<CallActionChanged>()) {
      actions[change.action] = change.possible;
    }
    return actions;
  }
};

TEST_F(TwoCallsModelTest, ASecondIncomingCallWaits) {
  LetWait();
  EXPECT_THAT(Table(), UnorderedElementsAre(Pair(1, Pair(BT_CALL_ACTIVE, false)),
                                            Pair(2, Pair(BT_CALL_WAITING, false))));
  EXPECT_FALSE(Stack().FromOutside().Call(kSmartphone, "+49170555103"));
}

TEST_F(TwoCallsModelTest, AcceptingTheWaitingCallHoldsTheOther) {
  LetHold();
  EXPECT_THAT(Table(),
              UnorderedElementsAre(Pair(1, Pair(BT_CALL_HELD, false)), Pair(2, Pair(BT_CALL_ACTIVE, false))));
}

TEST_F(TwoCallsModelTest, RejectingTheWaitingCallKeepsTheOther) {
  LetWait();
  EXPECT_TRUE(Calls().Perform(BT_CALL_RELEASE_HELD, 0));
  EXPECT_THAT(Table(), UnorderedElementsAre(Pair(1, Pair(BT_CALL_ACTIVE, false))));
}

TEST_F(TwoCallsModelTest, CallsAreSwapped) {
  LetHold();
  EXPECT_TRUE(Calls().Perform(BT_CALL_HOLD_ACTIVE, 0));
  EXPECT_THAT(Table(),
              UnorderedElementsAre(Pair(1, Pair(BT_CALL_ACTIVE, false)), Pair(2, Pair(BT_CALL_HELD, false))));
}

TEST_F(TwoCallsModelTest, ASingleCallIsHeldAndTakenUpAgain) {
  EXPECT_TRUE(Calls().Perform(BT_CALL_HOLD_ACTIVE, 0));
  EXPECT_THAT(Table(), UnorderedElementsAre(Pair(1, Pair(BT_CALL_HELD, false))));
  EXPECT_TRUE(Calls().Perform(BT_CALL_HOLD_ACTIVE, 0));
  EXPECT_THAT(Table(), UnorderedElementsAre(Pair(1, Pair(BT_CALL_ACTIVE, false))));
}

TEST_F(TwoCallsModelTest, TheActiveCallIsReleasedForTheWaitingOne) {
  LetWait();
  EXPECT_TRUE(Calls().Perform(BT_CALL_RELEASE_ACTIVE, 0));
  EXPECT_THAT(Table(), UnorderedElementsAre(Pair(2, Pair(BT_CALL_ACTIVE, false))));
}

TEST_F(TwoCallsModelTest, TheActiveCallIsReleasedForTheHeldOne) {
  LetHold();
  EXPECT_TRUE(Calls().Perform(BT_CALL_RELEASE_ACTIVE, 0));
  EXPECT_THAT(Table(), UnorderedElementsAre(Pair(1, Pair(BT_CALL_ACTIVE, false))));
}

TEST_F(TwoCallsModelTest, TheActiveCallIsReleasedByItsIdAndTheOtherStaysOnHold) {
  LetHold();
  EXPECT_TRUE(Calls().Perform(BT_CALL_RELEASE_ACTIVE, 2));
  EXPECT_THAT(Table(), UnorderedElementsAre(Pair(1, Pair(BT_CALL_HELD, false))));
}

TEST_F(TwoCallsModelTest, OnlyAnActiveCallIsReleasedByItsId) {
  LetHold();
  ASSERT_TRUE(Stack().FromOutside().Call(kSmartphone, "+49170555103"));
  EXPECT_FALSE(Calls().Perform(BT_CALL_RELEASE_ACTIVE, 1)) << "it is on hold";
  EXPECT_FALSE(Calls().Perform(BT_CALL_RELEASE_ACTIVE, 3)) << "it waits";
  EXPECT_EQ(Table().size(), 3U);
}

TEST_F(TwoCallsModelTest, OneMemberOfAConferenceIsReleasedByItsId) {
  LetHold();
  Calls().Perform(BT_CALL_CONFERENCE, 0);
  EXPECT_TRUE(Calls().Perform(BT_CALL_RELEASE_ACTIVE, 1));
  EXPECT_THAT(Table(), UnorderedElementsAre(Pair(2, Pair(BT_CALL_ACTIVE, false))));
}

TEST_F(TwoCallsModelTest, HangingUpEndsTheActiveCallAndLeavesTheHeldOne) {
  LetHold();
  EXPECT_TRUE(Calls().HangUp());
  EXPECT_THAT(Table(), UnorderedElementsAre(Pair(1, Pair(BT_CALL_HELD, false))));
  EXPECT_FALSE(Calls().HangUp());
  EXPECT_TRUE(Calls().Perform(BT_CALL_RELEASE_HELD, 0));
  EXPECT_THAT(Table(), IsEmpty());
}

TEST_F(TwoCallsModelTest, HangingUpEndsAConference) {
  LetHold();
  Calls().Perform(BT_CALL_CONFERENCE, 0);
  EXPECT_TRUE(Calls().HangUp());
  EXPECT_THAT(Table(), IsEmpty());
}

TEST_F(TwoCallsModelTest, HangingUpEndsTheCallThatIsDialed) {
  ASSERT_TRUE(Calls().Dial("110"));
  EXPECT_TRUE(Calls().HangUp());
  EXPECT_THAT(Table(), UnorderedElementsAre(Pair(1, Pair(BT_CALL_HELD, false))));
}

TEST_F(TwoCallsModelTest, ALoneHeldCallIsTakenUpAgainByReleasingTheActiveOnes) {
  LetHold();
  Calls().HangUp();
  EXPECT_TRUE(Calls().Perform(BT_CALL_RELEASE_ACTIVE, 0));
  EXPECT_THAT(Table(), UnorderedElementsAre(Pair(1, Pair(BT_CALL_ACTIVE, false))));
}

TEST_F(TwoCallsModelTest, AWaitingCallIsIncomingWhenTheOtherIsHungUp) {
  LetWait();
  log.Clear();
  EXPECT_TRUE(Calls().HangUp());
  EXPECT_THAT(Table(), UnorderedElementsAre(Pair(2, Pair(BT_CALL_INCOMING, false))));
  EXPECT_THAT(log.Values(&CallChanged::callId), ElementsAre(1, 2));
  EXPECT_THAT(log.Values(&CallChanged::status), ElementsAre(BT_CALL_IDLE, BT_CALL_INCOMING));
  EXPECT_TRUE(Calls().PlayRingtone());
  EXPECT_TRUE(Calls().Accept());
  EXPECT_THAT(Table(), UnorderedElementsAre(Pair(2, Pair(BT_CALL_ACTIVE, false))));
}

TEST_F(TwoCallsModelTest, AWaitingCallIsIncomingWhenTheOtherIsEndedAtTheOtherEnd) {
  LetWait();
  EXPECT_TRUE(Stack().FromOutside().HangUp(kSmartphone, 1));
  EXPECT_THAT(Table(), UnorderedElementsAre(Pair(2, Pair(BT_CALL_INCOMING, false))));
  EXPECT_TRUE(Calls().Reject());
  EXPECT_THAT(Table(), IsEmpty());
}

TEST_F(TwoCallsModelTest, AWaitingCallThatIsIncomingStopsRingingAsAnyOther) {
  LetWait();
  Calls().HangUp();
  Pass(world.delays.ringTimeout);
  EXPECT_THAT(Table(), IsEmpty());
}

TEST_F(TwoCallsModelTest, AWaitingCallThatIsIncomingIsAnsweredAutomatically) {
  Stack().Adapter().SetCapability(BT_CAP_AUTO_ANSWER, true);
  LetWait();
  Pass(world.delays.autoAnswer);
  EXPECT_EQ(Table().at(2).first, BT_CALL_WAITING);
  Calls().HangUp();
  Pass(world.delays.autoAnswer);
  EXPECT_EQ(Table().at(2).first, BT_CALL_ACTIVE);
}

TEST_F(TwoCallsModelTest, ACallWaitsWhileAnotherIsOnHold) {
  Calls().Perform(BT_CALL_HOLD_ACTIVE, 0);
  LetWait();
  EXPECT_EQ(Table().at(2).first, BT_CALL_WAITING);
  EXPECT_FALSE(Stack().FromOutside().HangUp(kSmartphone, 7));
  EXPECT_EQ(Table().at(2).first, BT_CALL_WAITING);
  EXPECT_TRUE(Calls().Perform(BT_CALL_RELEASE_ACTIVE, 0)) << "nothing to release, and one to accept";
  EXPECT_THAT(Table(),
              UnorderedElementsAre(Pair(1, Pair(BT_CALL_HELD, false)), Pair(2, Pair(BT_CALL_ACTIVE, false))));
}

TEST_F(TwoCallsModelTest, TheHeldCallIsReleased) {
  LetHold();
  EXPECT_TRUE(Calls().Perform(BT_CALL_RELEASE_HELD, 0));
  EXPECT_THAT(Table(), UnorderedElementsAre(Pair(2, Pair(BT_CALL_ACTIVE, false))));
}

TEST_F(TwoCallsModelTest, CallsAreJoined) {
  LetHold();
  EXPECT_TRUE(Calls().Perform(BT_CALL_CONFERENCE, 0));
  EXPECT_THAT(Table(),
              UnorderedElementsAre(Pair(1, Pair(BT_CALL_ACTIVE, true)), Pair(2, Pair(BT_CALL_ACTIVE, true))));
}

TEST_F(TwoCallsModelTest, AConferenceOfOneIsAnOrdinaryCall) {
  LetHold();
  Calls().Perform(BT_CALL_CONFERENCE, 0);
  Stack().FromOutside().HangUp(kSmartphone, 2);
  EXPECT_THAT(Table(), UnorderedElementsAre(Pair(1, Pair(BT_CALL_ACTIVE, false))));
}

TEST_F(TwoCallsModelTest, AWordInPrivateHoldsTheRestOfTheConference) {
  LetHold();
  Calls().Perform(BT_CALL_CONFERENCE, 0);
  EXPECT_TRUE(Calls().Perform(BT_CALL_HOLD_ACTIVE, 2));
  EXPECT_THAT(Table(),
              UnorderedElementsAre(Pair(1, Pair(BT_CALL_HELD, false)), Pair(2, Pair(BT_CALL_ACTIVE, false))));
}

TEST_F(TwoCallsModelTest, AThirdCallWaitsBesideAConference) {
  LetHold();
  Calls().Perform(BT_CALL_CONFERENCE, 0);
  EXPECT_TRUE(Stack().FromOutside().Call(kSmartphone, "+49170555103"));
  EXPECT_EQ(Table().at(3).first, BT_CALL_WAITING);
  EXPECT_TRUE(Calls().Accept());
  EXPECT_THAT(Table(),
              UnorderedElementsAre(Pair(1, Pair(BT_CALL_HELD, true)), Pair(2, Pair(BT_CALL_HELD, true)),
                                   Pair(3, Pair(BT_CALL_ACTIVE, false))));
}

TEST_F(TwoCallsModelTest, AThirdCallCannotBeAcceptedBesideTwoSeparateOnes) {
  LetHold();
  EXPECT_TRUE(Stack().FromOutside().Call(kSmartphone, "+49170555103"));
  EXPECT_FALSE(Calls().Accept());
  EXPECT_TRUE(Calls().Reject());
}

TEST_F(TwoCallsModelTest, TransferLeavesTheOthersToThemselves) {
  LetHold();
  EXPECT_TRUE(Calls().Perform(BT_CALL_TRANSFER, 0));
  EXPECT_THAT(Table(), IsEmpty());
  EXPECT_EQ(log.Count<CallHungUp>(), 2U);
}

TEST_F(TwoCallsModelTest, WhatIsPossibleIsReportedAsItChanges) {
  LetWait();
  EXPECT_THAT(Actions(), UnorderedElementsAre(Pair(BT_CALL_RELEASE_HELD, true)));
  log.Clear();
  Calls().Accept();
  EXPECT_THAT(Actions(), UnorderedElementsAre(Pair(BT_CALL_CONFERENCE, true), Pair(BT_CALL_TRANSFER, true)));
  log.Clear();
  Calls().HangUp();
  EXPECT_THAT(Actions(), UnorderedElementsAre(Pair(BT_CALL_CONFERENCE, false), Pair(BT_CALL_TRANSFER, false)))
      << "the call on hold can be taken up again, or released";
  log.Clear();
  Calls().Perform(BT_CALL_RELEASE_HELD, 0);
  EXPECT_THAT(Actions(),
              UnorderedElementsAre(Pair(BT_CALL_RELEASE_HELD, false), Pair(BT_CALL_RELEASE_ACTIVE, false),
                                   Pair(BT_CALL_HOLD_ACTIVE, false)));
}

TEST_F(TwoCallsModelTest, WhatIsImpossibleIsRefused) {
  EXPECT_FALSE(Calls().Perform(BT_CALL_RELEASE_HELD, 0));
  EXPECT_FALSE(Calls().Perform(BT_CALL_CONFERENCE, 0));
  EXPECT_FALSE(Calls().Perform(BT_CALL_TRANSFER, 0));
  EXPECT_FALSE(Calls().Perform(BT_CALL_HOLD_ACTIVE, 7));
  EXPECT_FALSE(Calls().Perform(static_cast<CallAction>(9), 0));
  Calls().HangUp();
  EXPECT_FALSE(Calls().Perform(BT_CALL_HOLD_ACTIVE, 0));
  EXPECT_FALSE(Calls().Perform(BT_CALL_RELEASE_ACTIVE, 0));
}

TEST_F(TwoCallsModelTest, HeldCallsTickAsWell) {
  LetHold();
  log.Clear();
  Pass(1s);
  EXPECT_THAT(log.Values(&CallTimeChanged::callId), ElementsAre(1, 2));
  EXPECT_THAT(log.Values(&CallTimeChanged::active), ElementsAre(false, true));
}

/// Calls as they can stand, brought about by the letters of a text: c a call comes, a it is accepted, d one
/// is dialed, h the active ones are held, e the active or the outgoing one is ended, j they are joined.
class CallActionTest : public ModelTest, public testing::WithParamInterface<const char*> {
 protected:
  bool Do(char step) {
    CallControl& calls = Stack().Calls();
    switch (step) {
      case 'c':
        return Stack().FromOutside().Call(kSmartphone, "112");
      case 'a':
        return calls.Accept();
      case 'd':
        return calls.Dial("110");
      case 'h':
        return calls.Perform(BT_CALL_HOLD_ACTIVE, 0);
      case 'e':
        return calls.HangUp();
      default:
        return calls.Perform(BT_CALL_CONFERENCE, 0);
    }
  }
};

TEST_P(CallActionTest, AnActionIsAcceptedExactlyIfItIsReportedAsPossible) {
  PairBeforehand(kSmartphone);
  for (const CallAction action : {BT_CALL_RELEASE_HELD, BT_CALL_RELEASE_ACTIVE, BT_CALL_HOLD_ACTIVE,
                                  BT_CALL_CONFERENCE, BT_CALL_TRANSFER}) {
    stack.reset();
    ConnectDevice(kSmartphone, BT_PROFILE_HFP);
    for (const char* step = GetParam(); *step != '\0'; ++step) {
      ASSERT_TRUE(Do(*step)) << step;
    }
    bool possible = false;
    for (const CallActionChanged& change : log.Of<CallActionChanged>()) {
      possible = change.action == action ? change.possible : possible;
    }
    EXPECT_EQ(Stack().Calls().Perform(action, 0), possible) << action;
  }
}

INSTANTIATE_TEST_SUITE_P(Calls, CallActionTest,
                         testing::Values("", "c", "ca", "cah", "d", "cad", "cadc", "dc", "cac", "caca",
                                         "cacae", "cacac", "cacace", "cahc", "cacaj", "cacajc"));

}  // namespace
}  // namespace btservice
