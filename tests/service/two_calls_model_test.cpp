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
    Stack().Controls().Call(kSmartphone, "+49170555101");
    Calls().Accept();
    log.Clear();
  }
  CallControl& Calls() { return Stack().Calls(); }
  void LetWait() { ASSERT_TRUE(Stack().Controls().Call(kSmartphone, "+49170555102")); }
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
  EXPECT_FALSE(Stack().Controls().Call(kSmartphone, "+49170555103"));
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

TEST_F(TwoCallsModelTest, OneOfTheCallsIsReleased) {
  LetHold();
  EXPECT_TRUE(Calls().Perform(BT_CALL_RELEASE_ACTIVE, 1));
  EXPECT_THAT(Table(), UnorderedElementsAre(Pair(2, Pair(BT_CALL_ACTIVE, false))));
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
  Stack().Controls().HangUp(kSmartphone, 2);
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
  EXPECT_TRUE(Stack().Controls().Call(kSmartphone, "+49170555103"));
  EXPECT_EQ(Table().at(3).first, BT_CALL_WAITING);
  EXPECT_TRUE(Calls().Accept());
  EXPECT_THAT(Table(),
              UnorderedElementsAre(Pair(1, Pair(BT_CALL_HELD, true)), Pair(2, Pair(BT_CALL_HELD, true)),
                                   Pair(3, Pair(BT_CALL_ACTIVE, false))));
}

TEST_F(TwoCallsModelTest, AThirdCallCannotBeAcceptedBesideTwoSeparateOnes) {
  LetHold();
  EXPECT_TRUE(Stack().Controls().Call(kSmartphone, "+49170555103"));
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
  EXPECT_THAT(Actions(),
              UnorderedElementsAre(Pair(BT_CALL_RELEASE_HELD, true), Pair(BT_CALL_RELEASE_ACTIVE, true),
                                   Pair(BT_CALL_HOLD_ACTIVE, true)));
  log.Clear();
  Calls().Accept();
  EXPECT_THAT(Actions(), UnorderedElementsAre(Pair(BT_CALL_CONFERENCE, true), Pair(BT_CALL_TRANSFER, true)));
  log.Clear();
  Calls().HangUp();
  Calls().HangUp();
  for (const auto& [action, possible] : Actions()) {
    EXPECT_FALSE(possible) << action;
  }
  EXPECT_EQ(Actions().size(), 5U);
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

}  // namespace
}  // namespace btservice
