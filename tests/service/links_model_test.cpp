// Serial channels, HID, messages, and what happens on the air.

#include "tests/service/model_fixture.h"

namespace btservice {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

Bytes ToBytes(const std::string& text) { return Bytes(text.begin(), text.end()); }

class SerialModelTest : public ModelTest {
 protected:
  SerialModelTest() {
    PairBeforehand(kSmartphone);
    PairBeforehand(kAccessory);
  }
  SerialControl& Serial() { return Stack().Serial(); }
};

TEST_F(SerialModelTest, AChannelOpensAndCloses) {
  PowerOn();
  Stack().Devices().Connect(kAccessory, BT_PROFILE_SPP, false);
  Pass(5s);
  Stack().Devices().Disconnect(kAccessory, BT_PROFILE_SPP);
  Pass(5s);
  EXPECT_THAT(log.Values(&SerialChannelChanged::open), ElementsAre(true, false));
  EXPECT_THAT(log.Values(&SerialChannelChanged::support),
              ElementsAre(BT_SUPPORT_SERIAL_ACCESSORY, BT_SUPPORT_SERIAL_ACCESSORY));
}

TEST_F(SerialModelTest, WhatIsSentComesBack) {
  ConnectDevice(kAccessory, BT_PROFILE_SPP);
  const Bytes data{'a', 0, 'b', 255};
  EXPECT_TRUE(Serial().Send(kAccessory, data));
  EXPECT_TRUE(Serial().Send(kAccessory, {}));
  Pass(world.delays.serialReply);
  EXPECT_THAT(log.Values(&SerialDataArrived::data), ElementsAre(data, Bytes()));
}

TEST_F(SerialModelTest, AScriptAnswersInsteadOfTheEcho) {
  ConnectDevice(kAccessory, BT_PROFILE_SPP);
  Serial().Send(kAccessory, ToBytes("VERSION?"));
  Pass(world.delays.serialReply);
  EXPECT_THAT(log.Values(&SerialDataArrived::data), ElementsAre(ToBytes("DASH 1.4")));
}

TEST_F(SerialModelTest, WithoutAChannelNothingIsSent) {
  PowerOn();
  EXPECT_FALSE(Serial().Send(kAccessory, ToBytes("x")));
  EXPECT_FALSE(Serial().Send(kNobody, ToBytes("x")));
  EXPECT_FALSE(Stack().FromOutside().SendSerial(kAccessory, ToBytes("x")));
}

TEST_F(SerialModelTest, AReplyIsLostWithTheChannel) {
  ConnectDevice(kAccessory, BT_PROFILE_SPP);
  Serial().Send(kAccessory, ToBytes("x"));
  Stack().FromOutside().LoseLink(kAccessory);
  Pass(1s);
  EXPECT_EQ(log.Count<SerialDataArrived>(), 0U);
}

TEST_F(SerialModelTest, TheDeviceSendsByItself) {
  ConnectDevice(kAccessory, BT_PROFILE_SPP);
  EXPECT_TRUE(Stack().FromOutside().SendSerial(kAccessory, ToBytes("hello")));
  EXPECT_THAT(log.Values(&SerialDataArrived::data), ElementsAre(ToBytes("hello")));
}

TEST_F(SerialModelTest, AServiceNeedsAUuid) {
  EXPECT_FALSE(Serial().OfferService("00001101-0000-1000-8000-00805f9b34fb")) << "off";
  PowerOn();
  EXPECT_TRUE(Serial().OfferService("00001101-0000-1000-8000-00805f9b34fb"));
  EXPECT_FALSE(Serial().OfferService("1101"));
  EXPECT_FALSE(Serial().OfferService("00001101x0000-1000-8000-00805f9b34fb"));
}

TEST_F(SerialModelTest, HidTakesInputWhileItIsConnected) {
  PowerOn();
  EXPECT_FALSE(Serial().SendHidKey(kSmartphone, 4));
  ConnectDevice(kSmartphone, BT_PROFILE_HID);
  EXPECT_TRUE(Serial().SendHidKey(kSmartphone, 4));
  EXPECT_TRUE(Serial().SendHidPosition(kSmartphone, BT_HID_TOUCH, 10, 20, 1));
  EXPECT_FALSE(Serial().SendHidPosition(kSmartphone, BT_HID_KEY, 10, 20, 1));
  EXPECT_FALSE(Serial().SendHidKey(kAccessory, 4));
}

TEST_F(SerialModelTest, HidIsReportedAndCalibrated) {
  PowerOn();
  Stack().Devices().Connect(kSmartphone, BT_PROFILE_HID, false);
  Pass(5s);
  EXPECT_TRUE(Serial().CalibrateHid(kSmartphone, BT_HID_TOUCH));
  EXPECT_TRUE(Serial().CalibrateHid(kSmartphone, BT_HID_KEY));
  EXPECT_FALSE(Serial().CalibrateHid(kAccessory, BT_HID_TOUCH));
  Pass(world.delays.hidCalibration);
  EXPECT_THAT(log.Values(&HidCalibrated::success), ElementsAre(true, false));
  EXPECT_THAT(log.Values(&HidConnectionChanged::status), ElementsAre(BT_CONN_CONNECTED));
}

class MessageModelTest : public SerialModelTest {};

TEST_F(MessageModelTest, MessagesAreFetchedWhenThePhoneConnects) {
  PowerOn();
  Stack().Devices().Connect(kSmartphone, BT_PROFILE_HFP, false);
  Pass(5s);
  EXPECT_THAT(log.Values(&MessageLoadChanged::status),
              ElementsAre(BT_MSG_LOAD_CONNECTED, BT_MSG_LOAD_DOWNLOADING, BT_MSG_LOAD_COMPLETED));
  EXPECT_THAT(log.Values(&MessageLoadProgress::current), ElementsAre(0, 1, 2));
  EXPECT_THAT(log.Values(&MessageLoadProgress::total), ElementsAre(2, 2, 2));
}

TEST_F(MessageModelTest, LosingThePhoneFailsTheDownload) {
  world.delays.messageStep = 1min;
  ConnectDevice(kSmartphone, BT_PROFILE_HFP);
  Stack().FromOutside().LoseLink(kSmartphone);
  Pass(1h);
  EXPECT_THAT(log.Values(&MessageLoadChanged::status), ElementsAre(BT_MSG_LOAD_FAILED));
}

TEST_F(MessageModelTest, WhatHappensToMessagesIsReported) {
  ConnectDevice(kSmartphone, BT_PROFILE_HFP);
  Outside& outside = Stack().FromOutside();
  EXPECT_TRUE(outside.SendMessage(kSmartphone, {"42", "Ben", "Hi"}));
  EXPECT_TRUE(outside.SetMessageProperty(kSmartphone, "42", true));
  EXPECT_TRUE(outside.SetMessageProperty(kSmartphone, "42", false));
  EXPECT_TRUE(outside.ChangeMessage(kSmartphone, "42", BT_MSG_DELETED));
  EXPECT_FALSE(outside.ChangeMessage(kSmartphone, "42", BT_MSG_DELETED));
  EXPECT_FALSE(outside.SetMessageProperty(kSmartphone, "none", true));
  EXPECT_THAT(log.Values(&MessageNotified::status), ElementsAre(BT_MSG_NEW, BT_MSG_DELETED));
  EXPECT_THAT(log.Values(&MessageNotified::handle), ElementsAre("42", "42"));
  EXPECT_THAT(log.Values(&MessagePropertySet::status), ElementsAre(BT_MSG_SET_OK, BT_MSG_SET_FAILED));
}

TEST_F(MessageModelTest, AMessageThatComesMeanwhileIsFetchedLater) {
  PowerOn();
  EXPECT_FALSE(Stack().FromOutside().SendMessage(kSmartphone, {"42", "Ben", "Hi"}));
  EXPECT_EQ(log.Count<MessageNotified>(), 0U);
  Stack().Devices().Connect(kSmartphone, BT_PROFILE_HFP, false);
  Pass(5s);
  EXPECT_EQ(log.Of<MessageLoadProgress>().back().total, 3);
}

TEST_F(MessageModelTest, APhoneHasRoomForAThousandMessagesAndLosesTheOldest) {
  ConnectDevice(kSmartphone, BT_PROFILE_HFP);
  Outside& outside = Stack().FromOutside();
  for (int number = 1; number <= 1001; ++number) {
    outside.SendMessage(kSmartphone, {std::to_string(number), "Ben", "Hi"});
  }
  EXPECT_FALSE(outside.ChangeMessage(kSmartphone, "1", BT_MSG_DELETED));
  EXPECT_TRUE(outside.ChangeMessage(kSmartphone, "2", BT_MSG_DELETED));
  EXPECT_TRUE(outside.ChangeMessage(kSmartphone, "1001", BT_MSG_DELETED));
}

class OutsideModelTest : public SerialModelTest {};

TEST_F(OutsideModelTest, ALostLinkIsReported) {
  ConnectDevice(kSmartphone);
  EXPECT_TRUE(Stack().FromOutside().LoseLink(kSmartphone));
  EXPECT_THAT(StatesOf(kSmartphone, BT_PROFILE_HFP), ElementsAre(BT_CONN_LINK_LOST));
  EXPECT_THAT(StatesOf(kSmartphone, BT_PROFILE_A2DP), ElementsAre(BT_CONN_LINK_LOST));
  EXPECT_EQ(Stack().Devices().PairedDevices()[0].status, BT_CONN_LINK_LOST);
  Pass(1h);
  EXPECT_EQ(StatesOf(kSmartphone, BT_PROFILE_HFP).size(), 1U) << "it does not come back by itself";
  EXPECT_FALSE(Stack().FromOutside().LoseLink(kSmartphone));
}

TEST_F(OutsideModelTest, ALostLinkComesBackIfTheSettingsSaySo) {
  world.settings.capabilities[BT_CAP_AUTO_CONNECT] = 1;
  ConnectDevice(kSmartphone);
  Stack().FromOutside().SetInRange(kSmartphone, false);
  Pass(10 * world.delays.reconnect);
  EXPECT_THAT(StatesOf(kSmartphone, BT_PROFILE_A2DP), ElementsAre(BT_CONN_LINK_LOST));
  Stack().FromOutside().SetInRange(kSmartphone, true);
  Pass(world.delays.reconnect + 5s);
  EXPECT_THAT(StatesOf(kSmartphone, BT_PROFILE_A2DP),
              ElementsAre(BT_CONN_LINK_LOST, BT_CONN_CONNECTING, BT_CONN_CONNECTED));
}

TEST_F(OutsideModelTest, ALinkThatIsSoughtAgainAtOnceLetsTimePass) {
  world.settings.capabilities[BT_CAP_AUTO_CONNECT] = 1;
  world.delays.reconnect = 0ms;
  ConnectDevice(kSmartphone);
  Stack().FromOutside().SetInRange(kSmartphone, false);
  Pass(1s);
  Stack().FromOutside().SetInRange(kSmartphone, true);
  Pass(world.delays.page + 2 * world.delays.profile + 1ms);
  EXPECT_EQ(StatesOf(kSmartphone, BT_PROFILE_HFP).back(), BT_CONN_CONNECTED);
}

TEST_F(OutsideModelTest, LeavingWhileTheLinkIsSoughtForgetsNothing) {
  world.settings.capabilities[BT_CAP_AUTO_CONNECT] = 1;
  ConnectDevice(kSmartphone);
  Stack().FromOutside().LoseLink(kSmartphone);
  Pass(world.delays.reconnect / 2);
  Stack().FromOutside().SetInRange(kSmartphone, false);
  Pass(1min);
  Stack().FromOutside().SetInRange(kSmartphone, true);
  Pass(world.delays.reconnect + 5s);
  EXPECT_EQ(Stack().Devices().Connection(BT_PROFILE_HFP).address, kSmartphone);
  EXPECT_EQ(Stack().Devices().Connection(BT_PROFILE_A2DP).address, kSmartphone);
}

TEST_F(OutsideModelTest, APairedDeviceIsConnectedWhenItArrivesIfTheSettingsSaySo) {
  Device(kSmartphone).inRange = false;
  world.settings.capabilities[BT_CAP_AUTO_CONNECT] = 1;
  PowerOn();
  Pass(1min);
  EXPECT_THAT(StatesOf(kSmartphone, BT_PROFILE_HFP), ElementsAre(BT_CONN_CONNECTING, BT_CONN_FAILED));
  Stack().FromOutside().SetInRange(kSmartphone, true);
  Pass(world.delays.reconnect + 5s);
  EXPECT_EQ(Stack().Devices().Connection(BT_PROFILE_HFP).address, kSmartphone);
}

TEST_F(OutsideModelTest, AnyOtherDeviceIsNot) {
  world.settings.capabilities[BT_CAP_AUTO_CONNECT] = 1;
  Device(kOldPhone).inRange = false;
  PowerOn();
  Stack().FromOutside().SetInRange(kOldPhone, true);
  Pass(1min);
  EXPECT_THAT(StatesOf(kOldPhone, BT_PROFILE_HFP), IsEmpty());
}

TEST_F(OutsideModelTest, LeavingDuringAPairingFailsIt) {
  Device(kSmartphone).paired = false;
  PowerOn();
  Stack().Devices().Pair(kSmartphone, "");
  Pass(world.delays.page);
  Stack().FromOutside().SetInRange(kSmartphone, false);
  EXPECT_EQ(log.Of<PairChanged>().back().reason, BT_PAIR_REASON_UNREACHABLE);
}

TEST_F(OutsideModelTest, ADeviceFindsTheAdapterOnlyWhileItIsVisible) {
  Device(kSmartphone).paired = false;
  PowerOn();
  EXPECT_FALSE(Stack().FromOutside().RequestPairing(kSmartphone));
  Stack().Adapter().SetCapability(BT_CAP_ENABLE_SCAN, 1);
  EXPECT_TRUE(Stack().FromOutside().RequestPairing(kSmartphone));
  EXPECT_EQ(log.Count<PairRequested>(), 1U);
  EXPECT_TRUE(Stack().FromOutside().RejectPairing(kSmartphone));
  EXPECT_EQ(log.Of<PairChanged>().back().reason, BT_PAIR_REASON_REJECTED_REMOTE);
  EXPECT_FALSE(Stack().FromOutside().RejectPairing(kSmartphone));
}

TEST_F(OutsideModelTest, ADeviceConnectsAndDisconnectsByItself) {
  PowerOn();
  EXPECT_TRUE(Stack().FromOutside().RequestConnection(kSmartphone, BT_PROFILE_HFP));
  Pass(5s);
  EXPECT_EQ(Stack().Devices().Connection(BT_PROFILE_HFP).address, kSmartphone);
  EXPECT_TRUE(Stack().FromOutside().RequestDisconnection(kSmartphone, BT_PROFILE_HFP));
  Pass(5s);
  EXPECT_EQ(Stack().Devices().Connection(BT_PROFILE_HFP).status, BT_CONN_DISCONNECTED);
  Stack().FromOutside().SetInRange(kSmartphone, false);
  EXPECT_FALSE(Stack().FromOutside().RequestConnection(kSmartphone, BT_PROFILE_HFP));
}

TEST_F(OutsideModelTest, ANewDeviceAppears) {
  PowerOn();
  DeviceData data;
  data.address = "0a:00:00:00:00:01";
  data.name = "Newcomer";
  data.profiles = {BT_PROFILE_HFP};
  EXPECT_TRUE(Stack().FromOutside().AddDevice(data));
  EXPECT_FALSE(Stack().FromOutside().AddDevice(data));
  data.address = "nowhere";
  EXPECT_FALSE(Stack().FromOutside().AddDevice(data));
  Stack().Adapter().SetScanning(true);
  Pass(world.delays.scanLength);
  EXPECT_EQ(log.Of<DeviceFound>().back().address, "0A:00:00:00:00:01");
}

TEST_F(OutsideModelTest, APhoneAsksForProjectionAgain) {
  ConnectDevice(kSmartphone, BT_PROFILE_HFP);
  EXPECT_TRUE(Stack().FromOutside().RequestProjection(kSmartphone));
  EXPECT_FALSE(Stack().FromOutside().RequestProjection(kAccessory));
  EXPECT_EQ(log.Count<ProjectionRequested>(), 1U);
}

}  // namespace
}  // namespace btservice
