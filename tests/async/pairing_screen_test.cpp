// The screen of an example, with the service in memory: how an application tests its screens.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include <btasync/testing/FakeService.h>

#include "examples/PairingScreen.h"

namespace {

using namespace btasync;
using std::chrono::seconds;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

const Address kAda{"00:1A:7D:DA:71:13"};

class PairingScreenTest : public testing::Test {
 protected:
  PairingScreenTest() {
    fake.WillAnswer(&Service::GetPowerStatus, BT_POWER_ON);
    fake.WillAccept(&Service::SetScanAction);
    fake.WillAccept(&Service::Pair).Emits(PairRequested{kAda, "123456", false, BT_PAIR_REQUEST_CONFIRMATION});
    fake.WillAccept(&Service::AnswerPair)
        .Emits(PairChanged{BT_PAIR_PAIRED, BT_PAIR_REASON_NONE, kAda}, seconds(1));
    fake.WillAccept(&Service::RejectPair)
        .Emits(PairChanged{BT_PAIR_FAILED, BT_PAIR_REASON_REJECTED_LOCAL, kAda}, seconds(1));
    fake.WillAccept(&Service::Connect)
        .Emits(ConnectionChanged{kAda, BT_PROFILE_HFP, BT_CONN_CONNECTED}, seconds(1))
        .Emits(ConnectionChanged{kAda, BT_PROFILE_A2DP, BT_CONN_CONNECTED}, seconds(2));
    screen = std::make_unique<PairingScreen>(fake, [this] { ++drawn; });
    fake.Settle();
  }

  FakeService fake;
  int drawn = 0;
  std::unique_ptr<PairingScreen> screen;
};

TEST_F(PairingScreenTest, ShowsEachDeviceOnceWithItsLastName) {
  screen->Search();
  fake.Emit(DeviceFound{kAda, "", BT_SUPPORT_NONE});
  fake.Emit(DeviceFound{kAda, "Ada's phone", BT_SUPPORT_NONE});
  fake.Settle();
  EXPECT_THAT(fake.Requests(), Contains("SetScanAction(true,)"));
  ASSERT_THAT(screen->Found(), SizeIs(1));
  EXPECT_EQ(screen->Found()[0].name, "Ada's phone");
}

TEST_F(PairingScreenTest, SwitchesTheAdapterOnToSearch) {
  fake.WillAnswer(&Service::GetPowerStatus, BT_POWER_OFF);
  fake.WillAccept(&Service::SetPower).Emits(PowerChanged{BT_POWER_ON}, seconds(2));
  screen->Search();
  fake.Advance(seconds(1));
  EXPECT_THAT(fake.Requests(), Not(Contains("SetScanAction(true,)")));
  fake.Advance(seconds(1));
  EXPECT_THAT(fake.Requests(), Contains("SetScanAction(true,)"));
}

TEST_F(PairingScreenTest, WaitsForAnAdapterThatIsOnItsWay) {
  fake.WillRefuse(&Service::SetPower);
  fake.WillAnswer(&Service::GetPowerStatus, BT_POWER_TURNING_ON);
  screen->Search();
  fake.Settle();
  EXPECT_EQ(screen->Status(), "searching");
  EXPECT_THAT(fake.Requests(), Not(Contains(HasSubstr("SetPower"))));
  EXPECT_THAT(fake.Requests(), Not(Contains("SetScanAction(true,)")));
  fake.Emit(PowerChanged{BT_POWER_ON});
  fake.Settle();
  EXPECT_EQ(screen->Status(), "searching");
  EXPECT_THAT(fake.Requests(), Contains("SetScanAction(true,)"));
}

TEST_F(PairingScreenTest, SwitchesOnAgainWhatWasBeingSwitchedOff) {
  fake.WillAccept(&Service::SetPower).Emits(PowerChanged{BT_POWER_ON}, seconds(1));
  fake.WillAnswer(&Service::GetPowerStatus, BT_POWER_TURNING_OFF);
  screen->Search();
  fake.Settle();
  EXPECT_THAT(fake.Requests(), Not(Contains(HasSubstr("SetPower"))));
  fake.Emit(PowerChanged{BT_POWER_OFF});
  fake.Advance(seconds(1));
  EXPECT_THAT(fake.Requests(), Contains("SetPower(byte 0x01,)"));
  EXPECT_THAT(fake.Requests(), Contains("SetScanAction(true,)"));
}

TEST_F(PairingScreenTest, SaysThatTheAdapterCannotBeSwitchedOn) {
  fake.WillAnswer(&Service::GetPowerStatus, BT_POWER_OFF);
  fake.WillRefuse(&Service::SetPower);
  screen->Search();
  fake.Settle();
  EXPECT_EQ(screen->Status(), "Bluetooth cannot be switched on");
}

TEST_F(PairingScreenTest, PairsWithTheQuestionShownAndConnects) {
  screen->Pair(kAda);
  fake.Settle();
  EXPECT_EQ(screen->Status(), "pairing");
  ASSERT_TRUE(screen->Question().has_value());
  EXPECT_EQ(screen->Question()->digits, "123456");
  screen->AnswerQuestion(true);
  EXPECT_THAT(fake.Requests(), Contains(HasSubstr("AnswerPair('123456', '00:1A:7D:DA:71:13',")));
  fake.Advance(seconds(1));
  EXPECT_EQ(screen->Status(), "connecting");
  EXPECT_FALSE(screen->Question().has_value());
  fake.Advance(seconds(2));
  EXPECT_EQ(screen->Status(), "connected");
  EXPECT_FALSE(screen->IsBusy());
}

TEST_F(PairingScreenTest, EndsWhenTheUserSaysNo) {
  screen->Pair(kAda);
  fake.Settle();
  screen->AnswerQuestion(false);
  fake.Advance(seconds(1));
  EXPECT_EQ(screen->Status(), "the device cannot be paired");
  EXPECT_FALSE(screen->IsBusy());
}

TEST_F(PairingScreenTest, SaysWhyTheDeviceCannotBePaired) {
  const auto pair = [this](PairFailedReson reason) {
    fake.WillAccept(&Service::Pair).Emits(PairChanged{BT_PAIR_FAILED, reason, kAda}).Once();
    screen->Pair(kAda);
    fake.Settle();
    return screen->Status();
  };
  EXPECT_EQ(pair(BT_PAIR_REASON_AUTHENTICATION), "the PIN is wrong");
  EXPECT_EQ(pair(BT_PAIR_REASON_REJECTED_REMOTE), "it was refused on the device");
  EXPECT_EQ(pair(BT_PAIR_REASON_UNREACHABLE), "the device does not answer");
  EXPECT_EQ(pair(BT_PAIR_REASON_LIST_FULL), "the device cannot be paired");
  fake.WillRefuse(&Service::Pair).Once();
  screen->Pair(kAda);
  fake.Settle();
  EXPECT_EQ(screen->Status(), "the device cannot be paired");
}

TEST_F(PairingScreenTest, WithdrawsTheQuestionWhenNobodyAnswers) {
  screen->Pair(kAda);
  fake.Settle();
  ASSERT_TRUE(screen->Question().has_value());
  fake.Advance(seconds(60));
  EXPECT_EQ(screen->Status(), "it takes too long: try again");
  EXPECT_FALSE(screen->Question().has_value());
}

TEST_F(PairingScreenTest, SaysThatItIsPairedButNotConnected) {
  fake.WillRefuse(&Service::Connect);
  screen->Pair(kAda);
  fake.Settle();
  screen->AnswerQuestion(true);
  fake.Advance(seconds(1));
  EXPECT_EQ(screen->Status(), "paired, but not connected");
}

TEST_F(PairingScreenTest, LosesAllThatWasTheServicesWhenThatDies) {
  fake.Emit(DeviceFound{kAda, "Ada's phone", BT_SUPPORT_NONE});
  screen->Pair(kAda);
  fake.Settle();
  fake.SetAvailability(Availability::Absent);
  fake.Settle();
  EXPECT_THAT(screen->Found(), SizeIs(0));
  EXPECT_FALSE(screen->Question().has_value());
  EXPECT_FALSE(screen->IsBusy());
  fake.SetAvailability(Availability::Present);
  fake.Settle();
  EXPECT_EQ(screen->Status(), "ready");
}

TEST_F(PairingScreenTest, MayBeLeftAtAnyMoment) {
  screen->Search();
  screen->Pair(kAda);
  fake.Settle();
  screen.reset();
  const int before = drawn;
  fake.Emit(DeviceFound{kAda, "Ada's phone", BT_SUPPORT_NONE});
  fake.Advance(seconds(100));
  EXPECT_EQ(drawn, before);
  EXPECT_FALSE(fake.IsAwaited<PairChanged>());
}

}  // namespace
