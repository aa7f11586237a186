#include "tests/service/model_fixture.h"

namespace btservice {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

class AdapterModelTest : public ModelTest {};

TEST_F(AdapterModelTest, TurningOnTakesTimeAndIsReported) {
  EXPECT_EQ(Stack().Adapter().Power(), BT_POWER_OFF);
  EXPECT_TRUE(Stack().Adapter().SetPower(true));
  EXPECT_EQ(Stack().Adapter().Power(), BT_POWER_TURNING_ON);
  Pass(world.delays.powerOn - 1ms);
  EXPECT_EQ(Stack().Adapter().Power(), BT_POWER_TURNING_ON);
  Pass(1ms);
  EXPECT_EQ(Stack().Adapter().Power(), BT_POWER_ON);
  EXPECT_THAT(log.Values(&PowerChanged::status), ElementsAre(BT_POWER_TURNING_ON, BT_POWER_ON));
}

TEST_F(AdapterModelTest, TurningOffTakesTimeAndIsReported) {
  PowerOn();
  log.Clear();
  EXPECT_TRUE(Stack().Adapter().SetPower(false));
  Pass(world.delays.powerOff);
  EXPECT_THAT(log.Values(&PowerChanged::status), ElementsAre(BT_POWER_TURNING_OFF, BT_POWER_OFF));
}

TEST_F(AdapterModelTest, WhatIsSoAlreadyIsRefused) {
  EXPECT_FALSE(Stack().Adapter().SetPower(false));
  EXPECT_TRUE(Stack().Adapter().SetPower(true));
  EXPECT_FALSE(Stack().Adapter().SetPower(true));
}

TEST_F(AdapterModelTest, TurningOffOnTheWayUpEndsOff) {
  Stack().Adapter().SetPower(true);
  EXPECT_TRUE(Stack().Adapter().SetPower(false));
  Pass(10s);
  EXPECT_THAT(log.Values(&PowerChanged::status),
              ElementsAre(BT_POWER_TURNING_ON, BT_POWER_TURNING_OFF, BT_POWER_OFF));
}

TEST_F(AdapterModelTest, StartsOffUnlessTheSettingsSayOtherwise) {
  Stack().Start();
  Pass(10s);
  EXPECT_EQ(Stack().Adapter().Power(), BT_POWER_OFF);
  EXPECT_THAT(log.Values(&PowerChanged::status), ElementsAre(BT_POWER_OFF))
      << "the one before may have been on";
}

TEST_F(AdapterModelTest, PowersUpAtStartIfTheSettingsSaySo) {
  world.settings.capabilities[BT_CAP_POWER_SWITCH] = 1;
  Stack().Start();
  Pass(world.delays.powerOn);
  EXPECT_EQ(Stack().Adapter().Power(), BT_POWER_ON);
}

TEST_F(AdapterModelTest, FindsTheDevicesInRangeOneAfterTheOther) {
  Device(kOldPhone).inRange = false;
  PowerOn();
  EXPECT_TRUE(Stack().Adapter().SetScanning(true));
  EXPECT_EQ(log.Count<DeviceFound>(), 0U);
  Pass(world.delays.scanFirst);
  ASSERT_EQ(log.Count<DeviceFound>(), 1U);
  EXPECT_EQ(log.Of<DeviceFound>()[0].address, kSmartphone);
  EXPECT_EQ(log.Of<DeviceFound>()[0].name, "Ada's phone");
  EXPECT_EQ(log.Of<DeviceFound>()[0].support, BT_SUPPORT_ANDROID_AUTO);
  Pass(world.delays.scanLength);
  EXPECT_THAT(log.Values(&DeviceFound::address), ElementsAre(kSmartphone, kAccessory));
  EXPECT_THAT(log.Values(&ScanChanged::status), ElementsAre(BT_SCAN_SCANNING, BT_SCAN_IDLE));
}

TEST_F(AdapterModelTest, ASearchThatIsStoppedFindsNothingMore) {
  PowerOn();
  Stack().Adapter().SetScanning(true);
  Pass(world.delays.scanFirst);
  EXPECT_TRUE(Stack().Adapter().SetScanning(false));
  Pass(1min);
  EXPECT_EQ(log.Count<DeviceFound>(), 1U);
  EXPECT_THAT(log.Values(&ScanChanged::status), ElementsAre(BT_SCAN_SCANNING, BT_SCAN_IDLE));
}

TEST_F(AdapterModelTest, NoSearchWhileOffOrTwice) {
  EXPECT_FALSE(Stack().Adapter().SetScanning(true));
  PowerOn();
  EXPECT_FALSE(Stack().Adapter().SetScanning(false));
  EXPECT_TRUE(Stack().Adapter().SetScanning(true));
  EXPECT_FALSE(Stack().Adapter().SetScanning(true));
}

TEST_F(AdapterModelTest, TurningOffEndsTheSearch) {
  PowerOn();
  Stack().Adapter().SetScanning(true);
  Stack().Adapter().SetPower(false);
  Pass(1min);
  EXPECT_EQ(log.Count<DeviceFound>(), 0U);
  EXPECT_THAT(log.Values(&ScanChanged::status), ElementsAre(BT_SCAN_SCANNING, BT_SCAN_IDLE));
}

TEST_F(AdapterModelTest, AFoundDeviceIsKnownUntilItIsForgotten) {
  PowerOn();
  EXPECT_FALSE(Stack().Devices().FindDevice(kSmartphone));
  Stack().Adapter().SetScanning(true);
  Pass(world.delays.scanLength);
  EXPECT_EQ(Stack().Devices().FindDevice(kSmartphone)->name, "Ada's phone");
  Stack().Devices().RemoveDevice(kSmartphone);
  EXPECT_FALSE(Stack().Devices().FindDevice(kSmartphone));
  EXPECT_TRUE(Stack().Devices().FindDevice(kAccessory));
  Stack().Adapter().ForgetFoundDevices();
  EXPECT_FALSE(Stack().Devices().FindDevice(kAccessory));
}

TEST_F(AdapterModelTest, CapabilitiesAreSwitchedAndReported) {
  EXPECT_TRUE(Stack().Adapter().SetCapability(BT_CAP_AUTO_ANSWER, 1));
  EXPECT_EQ(Stack().Adapter().GetCapability(BT_CAP_AUTO_ANSWER), 1);
  ASSERT_EQ(log.Count<CapabilityChanged>(), 1U);
  EXPECT_EQ(log.Of<CapabilityChanged>()[0].capability, BT_CAP_AUTO_ANSWER);
  EXPECT_EQ(log.Of<CapabilityChanged>()[0].value, 1);
}

TEST_F(AdapterModelTest, CapabilitiesThatCannotBeSwitchedAreRefused) {
  for (const Capability capability :
       {BT_CAP_RESERVED4, BT_CAP_RESERVED8, BT_CAP_PARAMETER_LOADED, static_cast<Capability>(200)}) {
    EXPECT_FALSE(Stack().Adapter().SetCapability(capability, 1)) << capability;
  }
  EXPECT_FALSE(Stack().Adapter().SetCapability(BT_CAP_AUTO_ANSWER, 2));
  EXPECT_EQ(Stack().Adapter().GetCapability(BT_CAP_RESERVED4), 0);
  EXPECT_EQ(Stack().Adapter().GetCapability(BT_CAP_PARAMETER_LOADED), 1);
  EXPECT_EQ(log.Count<CapabilityChanged>(), 0U);
}

TEST_F(AdapterModelTest, AttributesAreReadAndWritten) {
  std::string value;
  EXPECT_TRUE(Stack().Adapter().GetAttribute(BT_ATTR_LOCAL_NAME, value));
  EXPECT_EQ(value, "Head Unit");
  EXPECT_TRUE(Stack().Adapter().SetAttribute(BT_ATTR_LOCAL_NAME, "Änne's car"));
  EXPECT_TRUE(Stack().Adapter().GetAttribute(BT_ATTR_LOCAL_NAME, value));
  EXPECT_EQ(value, "Änne's car");
  EXPECT_THAT(log.Values(&AttributeChanged::value), ElementsAre("Änne's car"));
  EXPECT_FALSE(Stack().Adapter().GetAttribute(static_cast<Attribute>(99), value));
}

TEST_F(AdapterModelTest, AttributesWithoutSenseAreRefused) {
  AdapterControl& adapter = Stack().Adapter();
  EXPECT_FALSE(adapter.SetAttribute(BT_ATTR_LOCAL_ADDRESS, kNobody));
  EXPECT_FALSE(adapter.SetAttribute(BT_ATTR_STACK_VERSION, "2"));
  EXPECT_FALSE(adapter.SetAttribute(BT_ATTR_LOCAL_NAME, ""));
  EXPECT_FALSE(adapter.SetAttribute(BT_ATTR_LOCAL_NAME, std::string(249, 'x')));
  EXPECT_FALSE(adapter.SetAttribute(BT_ATTR_PIN_CODE, "12a4"));
  EXPECT_FALSE(adapter.SetAttribute(BT_ATTR_PIN_CODE, "12345678901234567"));
  EXPECT_FALSE(adapter.SetAttribute(BT_ATTR_CLASS_OF_DEVICE, "xyz"));
  EXPECT_FALSE(adapter.SetAttribute(BT_ATTR_DOWNLOAD_FOLDER, "relative"));
  EXPECT_FALSE(adapter.SetAttribute(BT_ATTR_DOWNLOAD_FOLDER, "/" + std::string(4096, 'x')));
  EXPECT_EQ(log.Count<AttributeChanged>(), 0U);
}

TEST_F(AdapterModelTest, ReportsItsStatusWhenAsked) {
  PairBeforehand(kSmartphone);
  ConnectDevice(kSmartphone, BT_PROFILE_HFP);
  Stack().Adapter().ReportStatus();
  EXPECT_THAT(log.Values(&PowerChanged::status), ElementsAre(BT_POWER_ON));
  EXPECT_THAT(log.Values(&ScanChanged::status), ElementsAre(BT_SCAN_IDLE));
  EXPECT_EQ(log.Count<CapabilityChanged>(), 7U);
  EXPECT_EQ(log.Count<AttributeChanged>(), 6U);
  EXPECT_THAT(StatesOf(kSmartphone, BT_PROFILE_HFP), ElementsAre(BT_CONN_CONNECTED));
}

TEST_F(AdapterModelTest, ReportsTheCallsAsTheyStandWhenAsked) {
  PairBeforehand(kSmartphone);
  ConnectDevice(kSmartphone, BT_PROFILE_HFP);
  Stack().FromOutside().Call(kSmartphone, "112");
  Stack().Calls().Accept();
  Pass(3500ms);
  Stack().FromOutside().Call(kSmartphone, "110");
  log.Clear();
  Stack().Adapter().ReportStatus();
  EXPECT_THAT(log.Values(&CallChanged::callId), ElementsAre(1, 2));
  EXPECT_THAT(log.Values(&CallChanged::status), ElementsAre(BT_CALL_ACTIVE, BT_CALL_WAITING));
  EXPECT_THAT(log.Values(&CallChanged::callCount), ElementsAre(2, 2));
  EXPECT_THAT(log.Values(&CallsChanged::callCount), ElementsAre(2));
  EXPECT_THAT(log.Values(&CallTimeChanged::callId), ElementsAre(1)) << "the other has not been answered";
  EXPECT_THAT(log.Values(&CallTimeChanged::seconds), ElementsAre(3));
  EXPECT_THAT(log.Values(&CallActionChanged::action),
              ElementsAre(BT_CALL_RELEASE_HELD, BT_CALL_RELEASE_ACTIVE, BT_CALL_HOLD_ACTIVE));
  EXPECT_THAT(log.Values(&CallAudioChanged::status), ElementsAre(BT_AUDIO_CONNECTED));
}

TEST_F(AdapterModelTest, ReportsThatThereIsNoCallWhenAsked) {
  PairBeforehand(kSmartphone);
  ConnectDevice(kSmartphone, BT_PROFILE_HFP);
  Stack().Adapter().ReportStatus();
  EXPECT_EQ(log.Count<CallChanged>(), 0U);
  EXPECT_THAT(log.Values(&CallsChanged::callCount), ElementsAre(0));
  EXPECT_THAT(log.Values(&CallAudioChanged::status), ElementsAre(BT_AUDIO_DISCONNECTED));
  EXPECT_EQ(log.Count<DownloadStatusChanged>(), 0U) << "no download is running";
}

TEST_F(AdapterModelTest, ReportsARunningDownloadWhenAsked) {
  world.delays.downloadStepSize = 1;
  PairBeforehand(kSmartphone);
  ConnectDevice(kSmartphone, BT_PROFILE_HFP);
  ASSERT_TRUE(Stack().PhoneBook().StartDownload(BT_PBAP_ALL));
  log.Clear();
  Stack().Adapter().ReportStatus();
  EXPECT_THAT(log.Values(&DownloadStatusChanged::status), ElementsAre(BT_PBAP_CONNECTING));
  EXPECT_THAT(log.Values(&DownloadStatusChanged::type), ElementsAre(BT_PBAP_ALL));
  EXPECT_EQ(log.Count<DownloadProgress>(), 0U) << "nothing has been fetched yet";

  Pass(world.delays.downloadStart + world.delays.downloadStep);
  const DownloadProgress progress = log.Of<DownloadProgress>().back();
  log.Clear();
  Stack().Adapter().ReportStatus();
  EXPECT_THAT(log.Values(&DownloadStatusChanged::status), ElementsAre(BT_PBAP_DOWNLOADING));
  EXPECT_THAT(log.Values(&DownloadStatusChanged::type), ElementsAre(BT_PBAP_PHONE_BOOK));
  EXPECT_THAT(log.Values(&DownloadProgress::current), ElementsAre(1));
  EXPECT_THAT(log.Values(&DownloadProgress::total), ElementsAre(progress.total));
}

TEST_F(AdapterModelTest, ReportsThePairingThatIsUnderWayWhenAsked) {
  PowerOn();
  log.Clear();
  Stack().Adapter().ReportStatus();
  EXPECT_EQ(log.Count<PairChanged>(), 0U) << "none is under way";
  ASSERT_TRUE(Stack().Devices().Pair(kSmartphone, ""));
  Pass(world.delays.page);
  log.Clear();
  Stack().Adapter().ReportStatus();
  EXPECT_THAT(log.Values(&PairChanged::status), ElementsAre(BT_PAIR_PAIRING));
  EXPECT_THAT(log.Values(&PairChanged::address), ElementsAre(kSmartphone));
  EXPECT_EQ(log.Count<PairRequested>(), 0U) << "the question is not asked twice";
}

TEST_F(AdapterModelTest, TestModeNeedsPowerAndMakesVisible) {
  EXPECT_FALSE(Stack().Adapter().EnterTestMode());
  PowerOn();
  EXPECT_TRUE(Stack().Adapter().EnterTestMode());
  EXPECT_EQ(Stack().Adapter().GetCapability(BT_CAP_ENABLE_SCAN), 1);
}

}  // namespace
}  // namespace btservice
