#include "tests/service/model_fixture.h"

namespace btservice {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

class PairingModelTest : public ModelTest {
 protected:
  DeviceControl& Devices() { return Stack().Devices(); }
  std::vector<PairStatus> Stages() const { return log.Values(&PairChanged::status); }
  PairFailedReson Reason() const { return log.Of<PairChanged>().back().reason; }

  /// Up to the question to the user.
  void AskFor(const std::string& address, const std::string& pin = "") {
    PowerOn();
    ASSERT_TRUE(Devices().Pair(address, pin));
    Pass(world.delays.page);
    ASSERT_EQ(log.Count<PairRequested>(), 1U);
  }
};

TEST_F(PairingModelTest, ByConfirmationBothSidesAccept) {
  AskFor(kSmartphone);
  const PairRequested request = log.Of<PairRequested>()[0];
  EXPECT_EQ(request.address, kSmartphone);
  EXPECT_EQ(request.state, BT_PAIR_REQUEST_CONFIRMATION);
  EXPECT_FALSE(request.projection);
  EXPECT_THAT(request.digits, MatchesRegex("[0-9]{6}"));
  EXPECT_TRUE(Devices().AcceptPairing(kSmartphone, "", BT_PAIR_REQUEST_CONFIRMATION));
  Pass(world.delays.pairRemote + world.delays.pairKeys);
  EXPECT_THAT(Stages(), ElementsAre(BT_PAIR_PAIRING, BT_PAIR_PAIRED));
  ASSERT_EQ(Devices().PairedDevices().size(), 1U);
  EXPECT_EQ(Devices().PairedDevices()[0].address, kSmartphone);
  EXPECT_EQ(log.Count<PairedDevicesChanged>(), 1U);
}

TEST_F(PairingModelTest, TheUserMayAnswerAfterTheOtherSide) {
  AskFor(kSmartphone);
  Pass(world.delays.pairRemote + 1s);
  EXPECT_TRUE(Devices().AcceptPairing(kSmartphone, "", BT_PAIR_REQUEST_CONFIRMATION));
  Pass(world.delays.pairKeys);
  EXPECT_THAT(Stages(), ElementsAre(BT_PAIR_PAIRING, BT_PAIR_PAIRED));
}

TEST_F(PairingModelTest, RefusedHere) {
  AskFor(kSmartphone);
  EXPECT_TRUE(Devices().RejectPairing(kSmartphone, BT_PAIR_REQUEST_CONFIRMATION));
  Pass(1min);
  EXPECT_THAT(Stages(), ElementsAre(BT_PAIR_PAIRING, BT_PAIR_FAILED));
  EXPECT_EQ(Reason(), BT_PAIR_REASON_REJECTED_LOCAL);
  EXPECT_THAT(Devices().PairedDevices(), IsEmpty());
}

TEST_F(PairingModelTest, RefusedThere) {
  Device(kSmartphone).acceptsPairing = false;
  AskFor(kSmartphone);
  EXPECT_TRUE(Devices().AcceptPairing(kSmartphone, "", BT_PAIR_REQUEST_CONFIRMATION));
  Pass(1min);
  EXPECT_THAT(Stages(), ElementsAre(BT_PAIR_PAIRING, BT_PAIR_FAILED));
  EXPECT_EQ(Reason(), BT_PAIR_REASON_REJECTED_REMOTE);
}

TEST_F(PairingModelTest, ThePersonThereMayBeQuickerThanUsual) {
  AskFor(kSmartphone);
  EXPECT_TRUE(Devices().AcceptPairing(kSmartphone, "", BT_PAIR_REQUEST_CONFIRMATION));
  EXPECT_TRUE(Stack().FromOutside().AcceptPairing(kSmartphone));
  EXPECT_FALSE(Stack().FromOutside().AcceptPairing(kSmartphone)) << "they are asked once";
  Pass(world.delays.pairKeys);
  EXPECT_THAT(Stages(), ElementsAre(BT_PAIR_PAIRING, BT_PAIR_PAIRED));
}

TEST_F(PairingModelTest, ThePersonThereMayAcceptWhatTheyUsuallyRefuse) {
  Device(kSmartphone).acceptsPairing = false;
  AskFor(kSmartphone);
  EXPECT_TRUE(Stack().FromOutside().AcceptPairing(kSmartphone));
  Pass(world.delays.pairRemote);
  EXPECT_TRUE(Devices().AcceptPairing(kSmartphone, "", BT_PAIR_REQUEST_CONFIRMATION));
  Pass(world.delays.pairKeys);
  EXPECT_THAT(Stages(), ElementsAre(BT_PAIR_PAIRING, BT_PAIR_PAIRED));
}

TEST_F(PairingModelTest, APersonWhoIsNotAskedAcceptsNothing) {
  PowerOn();
  EXPECT_FALSE(Stack().FromOutside().AcceptPairing(kSmartphone));
  EXPECT_FALSE(Stack().FromOutside().AcceptPairing(kNobody));
}

TEST_F(PairingModelTest, NobodyAnswers) {
  AskFor(kSmartphone);
  Pass(world.delays.pairAnswer - 1ms);
  EXPECT_THAT(Stages(), ElementsAre(BT_PAIR_PAIRING));
  Pass(1ms);
  EXPECT_THAT(Stages(), ElementsAre(BT_PAIR_PAIRING, BT_PAIR_FAILED));
  EXPECT_EQ(Reason(), BT_PAIR_REASON_TIMEOUT);
  EXPECT_FALSE(Devices().AcceptPairing(kSmartphone, "", BT_PAIR_REQUEST_CONFIRMATION));
}

TEST_F(PairingModelTest, ADeviceOutOfRangeIsUnreachable) {
  Device(kSmartphone).inRange = false;
  PowerOn();
  EXPECT_TRUE(Devices().Pair(kSmartphone, ""));
  Pass(world.delays.pageTimeout);
  EXPECT_THAT(Stages(), ElementsAre(BT_PAIR_PAIRING, BT_PAIR_FAILED));
  EXPECT_EQ(Reason(), BT_PAIR_REASON_UNREACHABLE);
}

TEST_F(PairingModelTest, SoIsOneThatDoesNotExist) {
  PowerOn();
  EXPECT_TRUE(Devices().Pair(kNobody, ""));
  Pass(world.delays.pageTimeout);
  EXPECT_EQ(Reason(), BT_PAIR_REASON_UNREACHABLE);
  EXPECT_EQ(log.Of<PairChanged>().back().address, kNobody);
}

TEST_F(PairingModelTest, APinGivenBeforehandIsNotAskedFor) {
  PowerOn();
  EXPECT_TRUE(Devices().Pair(kOldPhone, "1234"));
  Pass(world.delays.page + world.delays.pairKeys);
  EXPECT_THAT(Stages(), ElementsAre(BT_PAIR_PAIRING, BT_PAIR_PAIRED));
  EXPECT_EQ(log.Count<PairRequested>(), 0U);
}

TEST_F(PairingModelTest, APinIsAskedFor) {
  AskFor(kOldPhone);
  EXPECT_EQ(log.Of<PairRequested>()[0].state, BT_PAIR_REQUEST_PIN_CODE);
  EXPECT_EQ(log.Of<PairRequested>()[0].digits, "");
  EXPECT_TRUE(Devices().AcceptPairing(kOldPhone, "1234", BT_PAIR_REQUEST_PIN_CODE));
  Pass(world.delays.pairKeys);
  EXPECT_THAT(Stages(), ElementsAre(BT_PAIR_PAIRING, BT_PAIR_PAIRED));
}

TEST_F(PairingModelTest, AWrongPinFails) {
  AskFor(kOldPhone);
  EXPECT_TRUE(Devices().AcceptPairing(kOldPhone, "4321", BT_PAIR_REQUEST_PIN_CODE));
  Pass(world.delays.pairKeys);
  EXPECT_THAT(Stages(), ElementsAre(BT_PAIR_PAIRING, BT_PAIR_FAILED));
  EXPECT_EQ(Reason(), BT_PAIR_REASON_AUTHENTICATION);
}

TEST_F(PairingModelTest, DigitsShownThereAreTypedHere) {
  Device(kSmartphone).pairing = BT_PAIR_REQUEST_PASSKEY_ENTRY;
  Device(kSmartphone).pin = "009182";
  AskFor(kSmartphone);
  EXPECT_TRUE(Devices().AcceptPairing(kSmartphone, "009182", BT_PAIR_REQUEST_PASSKEY_ENTRY));
  Pass(world.delays.pairKeys);
  EXPECT_THAT(Stages(), ElementsAre(BT_PAIR_PAIRING, BT_PAIR_PAIRED));
}

TEST_F(PairingModelTest, DigitsShownHereAreTypedThere) {
  Device(kSmartphone).pairing = BT_PAIR_REQUEST_PASSKEY_DISPLAY;
  AskFor(kSmartphone);
  EXPECT_THAT(log.Of<PairRequested>()[0].digits, MatchesRegex("[0-9]{6}"));
  Pass(world.delays.pairRemote + world.delays.pairKeys);
  EXPECT_THAT(Stages(), ElementsAre(BT_PAIR_PAIRING, BT_PAIR_PAIRED));
}

TEST_F(PairingModelTest, AnAnswerToAnotherQuestionOrDeviceIsRefused) {
  AskFor(kSmartphone);
  EXPECT_FALSE(Devices().AcceptPairing(kSmartphone, "", BT_PAIR_REQUEST_PIN_CODE));
  EXPECT_FALSE(Devices().AcceptPairing(kOldPhone, "", BT_PAIR_REQUEST_CONFIRMATION));
  EXPECT_FALSE(Devices().RejectPairing(kOldPhone, BT_PAIR_REQUEST_CONFIRMATION));
  EXPECT_FALSE(Devices().RejectPairing(kNobody, BT_PAIR_REQUEST_CONFIRMATION));
}

TEST_F(PairingModelTest, TheAddressMayBeInLowerCase) {
  PowerOn();
  EXPECT_TRUE(Devices().Pair("00:1a:7d:da:71:13", ""));
  Pass(world.delays.page);
  EXPECT_TRUE(Devices().AcceptPairing("00:1a:7d:da:71:13", "", BT_PAIR_REQUEST_CONFIRMATION));
  Pass(world.delays.pairRemote + world.delays.pairKeys);
  EXPECT_EQ(log.Of<PairChanged>().back().address, kSmartphone);
}

TEST_F(PairingModelTest, OneAtATime) {
  AskFor(kSmartphone);
  EXPECT_FALSE(Devices().Pair(kOldPhone, "1234"));
}

TEST_F(PairingModelTest, NotWhileOffNotTwiceAndNotNonsense) {
  PairBeforehand(kSmartphone);
  EXPECT_FALSE(Devices().Pair(kOldPhone, "1234"));
  PowerOn();
  EXPECT_FALSE(Devices().Pair(kSmartphone, ""));
  EXPECT_FALSE(Devices().Pair("somebody", ""));
  EXPECT_THAT(Stages(), IsEmpty());
}

TEST_F(PairingModelTest, TheListCanBeFull) {
  world.adapter.pairedDevices = 1;
  PairBeforehand(kSmartphone);
  PowerOn();
  EXPECT_TRUE(Devices().Pair(kOldPhone, "1234"));
  Pass(world.delays.page);
  EXPECT_EQ(Reason(), BT_PAIR_REASON_LIST_FULL);
}

TEST_F(PairingModelTest, IsAnsweredWithoutAskingIfTheSettingsSaySo) {
  world.settings.autoAnswerPair = 1;
  AskFor(kSmartphone);
  Pass(world.delays.pairRemote + world.delays.pairKeys);
  EXPECT_THAT(Stages(), ElementsAre(BT_PAIR_PAIRING, BT_PAIR_PAIRED));
}

TEST_F(PairingModelTest, TurningOffEndsIt) {
  AskFor(kSmartphone);
  Stack().Adapter().SetPower(false);
  Pass(1min);
  EXPECT_THAT(Stages(), ElementsAre(BT_PAIR_PAIRING, BT_PAIR_FAILED));
}

TEST_F(PairingModelTest, AKeyFromOutOfBandPairsAtOnce) {
  PowerOn();
  EXPECT_TRUE(Devices().SetOobLinkKey(kSmartphone, Bytes(16, 0xAB)));
  Pass(world.delays.oobKey);
  ASSERT_EQ(log.Count<OobLinkKeySet>(), 1U);
  EXPECT_TRUE(log.Of<OobLinkKeySet>()[0].success);
  EXPECT_EQ(Devices().PairedDevices().size(), 1U);
}

TEST_F(PairingModelTest, AKeyFromOutOfBandDuringAPairingMakesNoSecondOne) {
  AskFor(kSmartphone);
  EXPECT_TRUE(Devices().SetOobLinkKey(kSmartphone, Bytes(16, 0xAB)));
  EXPECT_TRUE(Devices().AcceptPairing(kSmartphone, "", BT_PAIR_REQUEST_CONFIRMATION));
  Pass(world.delays.oobKey + world.delays.pairRemote + world.delays.pairKeys);
  EXPECT_THAT(Stages(), ElementsAre(BT_PAIR_PAIRING, BT_PAIR_PAIRED));
  EXPECT_EQ(Devices().PairedDevices().size(), 1U);
}

TEST_F(PairingModelTest, AKeyFromOutOfBandDuringAPairingCanTakeTheLastPlace) {
  world.adapter.pairedDevices = 1;
  AskFor(kSmartphone);
  EXPECT_TRUE(Devices().SetOobLinkKey(kOldPhone, Bytes(16, 0xAB)));
  EXPECT_TRUE(Devices().AcceptPairing(kSmartphone, "", BT_PAIR_REQUEST_CONFIRMATION));
  Pass(world.delays.oobKey + world.delays.pairRemote + world.delays.pairKeys);
  EXPECT_THAT(Stages(), ElementsAre(BT_PAIR_PAIRING, BT_PAIR_FAILED));
  EXPECT_EQ(Reason(), BT_PAIR_REASON_LIST_FULL);
  ASSERT_EQ(Devices().PairedDevices().size(), 1U);
  EXPECT_EQ(Devices().PairedDevices()[0].address, kOldPhone);
}

TEST_F(PairingModelTest, AKeyOfTheWrongSizeDoesNot) {
  PowerOn();
  EXPECT_TRUE(Devices().SetOobLinkKey(kSmartphone, Bytes(15)));
  EXPECT_TRUE(Devices().SetOobLinkKey(kNobody, Bytes(16)));
  EXPECT_FALSE(Devices().SetOobLinkKey("somebody", Bytes(16)));
  Pass(world.delays.oobKey);
  EXPECT_THAT(log.Values(&OobLinkKeySet::success), ElementsAre(false, false));
}

TEST_F(PairingModelTest, ADeletedPairingIsGone) {
  PairBeforehand(kSmartphone);
  PairBeforehand(kOldPhone);
  PowerOn();
  EXPECT_TRUE(Devices().DeletePairing(kSmartphone));
  Pass(world.delays.deletePairing);
  EXPECT_THAT(log.Values(&PairingDeleted::success), ElementsAre(true));
  ASSERT_EQ(Devices().PairedDevices().size(), 1U);
  EXPECT_EQ(Devices().PairedDevices()[0].address, kOldPhone);
  EXPECT_FALSE(Devices().DeletePairing(kSmartphone));
  EXPECT_TRUE(Devices().DeletePairings());
  Pass(world.delays.deletePairing);
  EXPECT_THAT(Devices().PairedDevices(), IsEmpty());
}

TEST_F(PairingModelTest, DeletingDisconnectsFirst) {
  PairBeforehand(kSmartphone);
  ConnectDevice(kSmartphone, BT_PROFILE_A2DP);
  Devices().DeletePairing(kSmartphone);
  Pass(world.delays.deletePairing);
  EXPECT_THAT(StatesOf(kSmartphone, BT_PROFILE_A2DP), ElementsAre(BT_CONN_DISCONNECTED));
}

TEST_F(PairingModelTest, PairedDevicesChangePlaces) {
  PairBeforehand(kSmartphone);
  PairBeforehand(kOldPhone);
  EXPECT_TRUE(Devices().MovePairing(kOldPhone, 0));
  EXPECT_EQ(Devices().PairedDevices()[0].address, kOldPhone);
  EXPECT_EQ(Devices().PairedDevices()[1].address, kSmartphone);
  EXPECT_FALSE(Devices().MovePairing(kOldPhone, 2));
  EXPECT_FALSE(Devices().MovePairing(kOldPhone, -1));
  EXPECT_FALSE(Devices().MovePairing(kAccessory, 0));
}

}  // namespace
}  // namespace btservice
