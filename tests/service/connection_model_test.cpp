#include "tests/service/model_fixture.h"

namespace btservice {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class ConnectionModelTest : public ModelTest {
 protected:
  ConnectionModelTest() {
    for (const char* const address : {kSmartphone, kOldPhone, kAccessory}) {
      PairBeforehand(address);
    }
  }
  DeviceControl& Devices() { return Stack().Devices(); }
};

TEST_F(ConnectionModelTest, AProfileConnectsThroughTheStatesBetween) {
  PowerOn();
  EXPECT_TRUE(Devices().Connect(kOldPhone, BT_PROFILE_HFP, false));
  EXPECT_EQ(Devices().Connection(BT_PROFILE_HFP).status, BT_CONN_CONNECTING);
  EXPECT_EQ(Devices().Connection(BT_PROFILE_HFP).address, kOldPhone);
  Pass(world.delays.page + world.delays.profile);
  EXPECT_THAT(StatesOf(kOldPhone, BT_PROFILE_HFP), ElementsAre(BT_CONN_CONNECTING, BT_CONN_CONNECTED));
  EXPECT_EQ(Devices().Connection(BT_PROFILE_HFP).status, BT_CONN_CONNECTED);
  EXPECT_EQ(Devices().PairedDevices()[1].connected, BT_PROFILE_HFP);
  EXPECT_EQ(Devices().PairedDevices()[1].status, BT_CONN_CONNECTED);
}

TEST_F(ConnectionModelTest, ProfilesConnectOneAfterTheOther) {
  PowerOn();
  Devices().Connect(kSmartphone, BT_PROFILE_HFP_A2DP, false);
  Pass(world.delays.page + world.delays.profile);
  EXPECT_EQ(Devices().Connection(BT_PROFILE_HFP).status, BT_CONN_CONNECTED);
  EXPECT_EQ(Devices().Connection(BT_PROFILE_A2DP).status, BT_CONN_CONNECTING);
  Pass(world.delays.profile);
  EXPECT_EQ(Devices().Connection(BT_PROFILE_A2DP).status, BT_CONN_CONNECTED);
  EXPECT_EQ(Devices().PairedDevices()[0].connected, BT_PROFILE_HFP_A2DP);
}

TEST_F(ConnectionModelTest, SomeProfilesBringOthersWithThem) {
  PowerOn();
  Devices().Connect(kSmartphone, BT_PROFILE_HFP_A2DP, false);
  Pass(world.delays.page + 5 * world.delays.profile);
  for (const ProfileId profile : {BT_PROFILE_PBAP, BT_PROFILE_MAP, BT_PROFILE_AVRCP}) {
    EXPECT_THAT(StatesOf(kSmartphone, profile), ElementsAre(BT_CONN_CONNECTING, BT_CONN_CONNECTED))
        << profile;
  }
  log.Clear();
  Devices().Disconnect(kSmartphone, BT_PROFILE_HFP);
  Pass(world.delays.disconnect);
  for (const ProfileId profile : {BT_PROFILE_HFP, BT_PROFILE_PBAP, BT_PROFILE_MAP}) {
    EXPECT_THAT(StatesOf(kSmartphone, profile), ElementsAre(BT_CONN_DISCONNECTING, BT_CONN_DISCONNECTED))
        << profile;
  }
  EXPECT_THAT(StatesOf(kSmartphone, BT_PROFILE_AVRCP), IsEmpty());
}

TEST_F(ConnectionModelTest, ADeviceTellsWhatItSupports) {
  PowerOn();
  Devices().Connect(kAccessory, BT_PROFILE_SPP, false);
  Pass(world.delays.page);
  EXPECT_THAT(log.Values(&ProfileSupported::profile), ElementsAre(BT_PROFILE_SPP));
}

TEST_F(ConnectionModelTest, ADeviceOutOfRangeFailsAfterThePage) {
  Device(kOldPhone).inRange = false;
  PowerOn();
  EXPECT_TRUE(Devices().Connect(kOldPhone, BT_PROFILE_HFP, false));
  Pass(world.delays.pageTimeout);
  EXPECT_THAT(StatesOf(kOldPhone, BT_PROFILE_HFP), ElementsAre(BT_CONN_CONNECTING, BT_CONN_FAILED));
  EXPECT_EQ(Devices().PairedDevices()[1].status, BT_CONN_FAILED);
}

TEST_F(ConnectionModelTest, AProfileCanBeRefusedByTheDevice) {
  Device(kSmartphone).refusedProfiles = {BT_PROFILE_HFP};
  PowerOn();
  Devices().Connect(kSmartphone, BT_PROFILE_HFP_A2DP, false);
  Pass(world.delays.page + 2 * world.delays.profile);
  EXPECT_THAT(StatesOf(kSmartphone, BT_PROFILE_HFP), ElementsAre(BT_CONN_CONNECTING, BT_CONN_FAILED));
  EXPECT_THAT(StatesOf(kSmartphone, BT_PROFILE_A2DP), ElementsAre(BT_CONN_CONNECTING, BT_CONN_CONNECTED));
}

TEST_F(ConnectionModelTest, WhatCannotBeConnectedIsRefused) {
  EXPECT_FALSE(Devices().Connect(kOldPhone, BT_PROFILE_HFP, false)) << "off";
  PowerOn();
  EXPECT_FALSE(Devices().Connect(kOldPhone, BT_PROFILE_SPP, false)) << "not supported";
  EXPECT_FALSE(Devices().Connect(kNobody, BT_PROFILE_HFP, false)) << "unknown";
  EXPECT_FALSE(Devices().Connect("", BT_PROFILE_HFP, false)) << "no address";
  EXPECT_FALSE(Devices().Connect(kOldPhone, BT_PROFILE_NONE, false)) << "no profile";
  Devices().DeletePairing(kOldPhone);
  Pass(world.delays.deletePairing);
  EXPECT_FALSE(Devices().Connect(kOldPhone, BT_PROFILE_HFP, false)) << "not paired";
}

TEST_F(ConnectionModelTest, WhoAsksForAConnectionThatIsThereHearsSo) {
  ConnectDevice(kOldPhone, BT_PROFILE_HFP);
  EXPECT_TRUE(Devices().Connect(kOldPhone, BT_PROFILE_HFP, false));
  EXPECT_THAT(StatesOf(kOldPhone, BT_PROFILE_HFP), ElementsAre(BT_CONN_CONNECTED));
}

TEST_F(ConnectionModelTest, TheOnlyOneDisconnectsTheOthers) {
  ConnectDevice(kOldPhone, BT_PROFILE_HFP);
  EXPECT_TRUE(Devices().Connect(kSmartphone, BT_PROFILE_HFP, true));
  Pass(world.delays.page + world.delays.profile);
  EXPECT_THAT(StatesOf(kOldPhone, BT_PROFILE_HFP), ElementsAre(BT_CONN_DISCONNECTING, BT_CONN_DISCONNECTED));
  EXPECT_EQ(Devices().Connection(BT_PROFILE_HFP).address, kSmartphone);
}

TEST_F(ConnectionModelTest, TwoPhonesCanBeConnectedAndTheLastCounts) {
  ConnectDevice(kOldPhone, BT_PROFILE_HFP);
  ConnectDevice(kSmartphone, BT_PROFILE_HFP);
  EXPECT_EQ(Devices().Connection(BT_PROFILE_HFP).address, kSmartphone);
  Devices().Disconnect(kSmartphone, BT_PROFILE_HFP);
  Pass(world.delays.disconnect);
  EXPECT_EQ(Devices().Connection(BT_PROFILE_HFP).address, kOldPhone);
}

TEST_F(ConnectionModelTest, AConnectionUnderWayCanBeTakenBack) {
  PowerOn();
  Devices().Connect(kSmartphone, BT_PROFILE_HFP_A2DP, false);
  EXPECT_TRUE(Devices().Disconnect(kSmartphone, BT_PROFILE_HFP));
  Pass(1min);
  EXPECT_THAT(StatesOf(kSmartphone, BT_PROFILE_HFP), ElementsAre(BT_CONN_CONNECTING, BT_CONN_DISCONNECTED));
  EXPECT_THAT(StatesOf(kSmartphone, BT_PROFILE_A2DP), ElementsAre(BT_CONN_CONNECTING, BT_CONN_CONNECTED));
  EXPECT_FALSE(Devices().Disconnect(kSmartphone, BT_PROFILE_HFP));
}

TEST_F(ConnectionModelTest, ReconnectingGoesThroughDisconnected) {
  ConnectDevice(kOldPhone, BT_PROFILE_HFP);
  EXPECT_TRUE(Devices().Reconnect(kOldPhone, BT_PROFILE_HFP));
  Pass(world.delays.page + world.delays.profile);
  EXPECT_THAT(StatesOf(kOldPhone, BT_PROFILE_HFP),
              ElementsAre(BT_CONN_DISCONNECTED, BT_CONN_CONNECTING, BT_CONN_CONNECTED));
}

TEST_F(ConnectionModelTest, ADisabledDeviceStaysDisconnected) {
  ConnectDevice(kOldPhone, BT_PROFILE_HFP);
  Devices().DisableProfiles(kOldPhone);
  Pass(world.delays.disconnect);
  EXPECT_THAT(StatesOf(kOldPhone, BT_PROFILE_HFP), ElementsAre(BT_CONN_DISCONNECTING, BT_CONN_DISCONNECTED));
  EXPECT_FALSE(Devices().Connect(kOldPhone, BT_PROFILE_HFP, false));
  EXPECT_EQ(Devices().PairedDevices()[1].enabled, BT_PROFILE_NONE);
  Devices().EnableProfiles();
  EXPECT_TRUE(Devices().Connect(kOldPhone, BT_PROFILE_HFP, false));
  EXPECT_THAT(log.Values(&ProfilesEnabledChanged::enabled), ElementsAre(false, true));
}

TEST_F(ConnectionModelTest, TurningOffDisconnectsAll) {
  ConnectDevice(kSmartphone);
  Stack().Adapter().SetPower(false);
  EXPECT_THAT(StatesOf(kSmartphone, BT_PROFILE_HFP), ElementsAre(BT_CONN_DISCONNECTED));
  EXPECT_THAT(StatesOf(kSmartphone, BT_PROFILE_A2DP), ElementsAre(BT_CONN_DISCONNECTED));
  Pass(1min);
  EXPECT_EQ(Devices().Connection(BT_PROFILE_HFP).status, BT_CONN_DISCONNECTED);
  EXPECT_EQ(Devices().Connection(BT_PROFILE_HFP).address, "");
}

TEST_F(ConnectionModelTest, PairedDevicesAreConnectedAfterPowerUpIfTheSettingsSaySo) {
  world.settings.capabilities[BT_CAP_AUTO_CONNECT] = 1;
  PowerOn();
  Pass(5s);
  EXPECT_THAT(StatesOf(kSmartphone, BT_PROFILE_HFP), ElementsAre(BT_CONN_CONNECTING, BT_CONN_CONNECTED));
  EXPECT_THAT(StatesOf(kOldPhone, BT_PROFILE_HFP), ElementsAre(BT_CONN_CONNECTING, BT_CONN_CONNECTED));
  EXPECT_THAT(StatesOf(kAccessory, BT_PROFILE_SPP), IsEmpty());
}

// Power goes off and on again at any moment of the start and of what comes of it, for as long as that takes.
TEST_F(ConnectionModelTest, PairedDevicesAreConnectedAgainWheneverPowerWentOffAndOn) {
  world.settings.capabilities[BT_CAP_POWER_SWITCH] = 1;
  world.settings.capabilities[BT_CAP_AUTO_CONNECT] = 1;
  for (Milliseconds off = 0ms; off < 6s; off += 50ms) {
    for (const Milliseconds pause :
         {0ms, world.delays.powerOff / 2, world.delays.powerOff, 10 * world.delays.powerOff}) {
      stack.reset();
      Stack().Start();
      Pass(off);
      ASSERT_TRUE(Stack().Adapter().SetPower(false));
      Pass(pause);
      ASSERT_TRUE(Stack().Adapter().SetPower(true));
      Pass(10s);
      EXPECT_EQ(Devices().Connection(BT_PROFILE_HFP).status, BT_CONN_CONNECTED)
          << "off after " << off.count() << " ms, for " << pause.count() << " ms";
      EXPECT_EQ(Devices().Connection(BT_PROFILE_A2DP).status, BT_CONN_CONNECTED)
          << "off after " << off.count() << " ms, for " << pause.count() << " ms";
    }
  }
}

TEST_F(ConnectionModelTest, ACapablePhoneAsksForProjection) {
  PowerOn();
  Devices().Connect(kSmartphone, BT_PROFILE_HFP, false);
  Pass(5s);
  ASSERT_EQ(log.Count<ProjectionRequested>(), 1U);
  EXPECT_EQ(log.Of<ProjectionRequested>()[0].name, "Ada's phone");
}

TEST_F(ConnectionModelTest, ButNotIfItIsAllowedOrRunsAlready) {
  Devices().SetProjectionAllowed(kSmartphone, true);
  PowerOn();
  Devices().Connect(kSmartphone, BT_PROFILE_HFP, false);
  Pass(5s);
  EXPECT_EQ(log.Count<ProjectionRequested>(), 0U);
  Devices().SetProjectionAllowed(kSmartphone, false);
  EXPECT_TRUE(Devices().SetProjectionRunning(true));
  Devices().Reconnect(kSmartphone, BT_PROFILE_HFP);
  Pass(5s);
  EXPECT_EQ(log.Count<ProjectionRequested>(), 0U);
}

TEST_F(ConnectionModelTest, PairingForProjectionIsAnswered) {
  Device(kAccessory).paired = false;
  Device(kOldPhone).paired = false;
  EXPECT_FALSE(Devices().RequestProjectionPairing(kAccessory, 1));
  PowerOn();
  for (const char* const address : {kSmartphone, kNobody, kAccessory, kOldPhone}) {
    EXPECT_TRUE(Devices().RequestProjectionPairing(address, 1));
    Pass(world.delays.projection);
  }
  EXPECT_THAT(log.Values(&ProjectionPairingAnswered::status),
              ElementsAre(BT_HU_ALREADY_PAIRED, BT_HU_FAILED, BT_HU_READY, BT_HU_BUSY));
  EXPECT_THAT(log.Values(&PairRequested::projection), ElementsAre(true));
}

}  // namespace
}  // namespace btservice
