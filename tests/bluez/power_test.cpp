// Power, visibility and the attributes of the adapter, over a fake of BlueZ's daemon.

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/TemporaryDirectory.h"
#include "tests/bluez/BluezTest.h"

namespace btservice {
namespace {

using testing::Contains;
using testing::ElementsAre;

class BluezPowerTest : public BluezTest {
 protected:
  /// The states that were reported, in their order.
  std::vector<std::string> PowerSignals() {
    std::vector<std::string> found;
    for (const std::string& signal : Service().Signals()) {
      if (signal.rfind("OnOpenBtStatusChanged ", 0) == 0) {
        found.push_back(signal.substr(signal.find(' ') + 1));
      }
    }
    return found;
  }
};

TEST_F(BluezPowerTest, GoesOffAndOnWithEachStepReportedOnce) {
  StartWithAdapter();
  EXPECT_FALSE(SetPower(true)) << "it is on";
  EXPECT_TRUE(SetPower(false));
  EXPECT_FALSE(SetPower(false)) << "it is on its way";
  ASSERT_TRUE(Service().WaitFor("OnOpenBtStatusChanged (byte 0x00,)"));
  EXPECT_TRUE(SetPower(true));
  ASSERT_TRUE(Service().WaitFor("OnOpenBtStatusChanged (byte 0x01,)"));
  EXPECT_EQ(Power(), kOn);
  EXPECT_THAT(PowerSignals(), ElementsAre("(byte 0x02,)", "(byte 0x00,)", "(byte 0x03,)", "(byte 0x01,)"));
}

TEST_F(BluezPowerTest, TurnsRoundWhenItIsSwitchedInTheMiddle) {
  StartWithAdapter();
  Daemons().Process().Signal(SIGSTOP);
  EXPECT_TRUE(SetPower(false));
  EXPECT_TRUE(SetPower(true));
  EXPECT_EQ(Power(), "(byte 0x03,)");
  Daemons().Process().Signal(SIGCONT);
  EXPECT_TRUE(PowerBecomes(kOn));
  EXPECT_TRUE(bttest::RunUntil([&] { return Daemons().CountCalls("Set Powered") == 3; }))
      << "on at the start, off, on";
  EXPECT_EQ(Power(), kOn);
}

TEST_F(BluezPowerTest, WhatTheDaemonRefusesIsLoggedAndReportedAsItIs) {
  StartWithAdapter();
  Daemons().Refuse("Set Powered", "org.bluez.Error.Failed", "blocked by a switch");
  EXPECT_TRUE(SetPower(false));
  ASSERT_TRUE(Service().WaitFor("OnOpenBtStatusChanged (byte 0x01,)"));
  EXPECT_THAT(PowerSignals(), ElementsAre("(byte 0x02,)", "(byte 0x01,)"));
  EXPECT_TRUE(Logs("the adapter is not switched off: org.bluez.Error.Failed: blocked by a switch"));
}

TEST_F(BluezPowerTest, IsReportedWhenAnotherProgramSwitches) {
  StartWithAdapter();
  Daemons().ChangeAdapter("hci0", "Powered", g_variant_new_boolean(FALSE));
  EXPECT_TRUE(Service().WaitFor("OnOpenBtStatusChanged (byte 0x00,)"));
  Daemons().ChangeAdapter("hci0", "Powered", g_variant_new_boolean(TRUE));
  EXPECT_TRUE(Service().WaitFor("OnOpenBtStatusChanged (byte 0x01,)"));
}

TEST_F(BluezPowerTest, StaysOffAfterARestartOfTheDaemonIfItWasSwitchedOff) {
  StartWithAdapter();
  ASSERT_TRUE(SetPower(false));
  ASSERT_TRUE(PowerBecomes(kOff));
  Daemons().Process().Kill();
  StartDaemons(true);
  // The daemon has switched the adapter on by itself, and is put right.
  EXPECT_TRUE(bttest::RunUntil([&] { return Daemons().CountCalls("Set Powered") == 1; }));
  EXPECT_TRUE(PowerBecomes(kOff));
}

TEST_F(BluezPowerTest, TheStateIsReportedToWhoeverComesLate) {
  StartWithAdapter();
  Service().Call("GetBluetoothServiceStatus");
  EXPECT_TRUE(Service().WaitFor("OnOpenBtStatusChanged (byte 0x01,)"));
  EXPECT_TRUE(Service().WaitFor("OnBtCapabilityChanged (byte 0x09, "));
  EXPECT_TRUE(Service().WaitFor(std::string("OnBtAttributeChanged (byte 0x01, '") + kAdapterAddress + "')"));
}

class BluezAttributesTest : public BluezTest {
 protected:
  bool Set(Attribute attribute, const char* value) {
    return Service().Ask("SetAttribute", g_variant_new("(ys)", attribute, value)) == kOn;
  }
};

TEST_F(BluezAttributesTest, AreThoseOfTheAdapter) {
  StartWithAdapter();
  EXPECT_EQ(AttributeText(BT_ATTR_LOCAL_NAME), "('fake', byte 0x01)");
  EXPECT_EQ(AttributeText(BT_ATTR_LOCAL_ADDRESS), std::string("('") + kAdapterAddress + "', byte 0x01)");
  EXPECT_EQ(AttributeText(BT_ATTR_STACK_VERSION), "('BlueZ 5.66', byte 0x01)");
  EXPECT_EQ(AttributeText(BT_ATTR_CLASS_OF_DEVICE), "('340408', byte 0x01)");
  EXPECT_EQ(AttributeText(BT_ATTR_PIN_CODE), "('0000', byte 0x01)");
  EXPECT_EQ(AttributeText(BT_ATTR_DOWNLOAD_FOLDER), "('/tmp', byte 0x01)");
  EXPECT_EQ(AttributeText(77), "('', byte 0x00)");
}

TEST_F(BluezAttributesTest, ANameIsSetAndReportedOnce) {
  StartWithAdapter();
  guint32 deviceClass = 1;
  for (const char* const name : {"My car", "My car", "Autó"}) {
    Service().ForgetSignals();
    EXPECT_TRUE(Set(BT_ATTR_LOCAL_NAME, name));
    const std::string signal = std::string("OnBtAttributeChanged (byte 0x00, '") + name + "')";
    ASSERT_TRUE(Service().WaitFor(signal)) << name;
    EXPECT_EQ(AttributeText(BT_ATTR_LOCAL_NAME), std::string("('") + name + "', byte 0x01)");
    // What comes from the daemon after that has come when a later change of it has.
    Daemons().ChangeAdapter("hci0", "Class", g_variant_new_uint32(++deviceClass));
    ASSERT_TRUE(Service().WaitFor("OnBtAttributeChanged (byte 0x04, "));
    EXPECT_THAT(Service().Signals(), testing::SizeIs(2)) << name;
  }
  EXPECT_FALSE(Set(BT_ATTR_LOCAL_NAME, ""));
  EXPECT_FALSE(Set(BT_ATTR_LOCAL_NAME, std::string(249, 'x').c_str()));
}

TEST_F(BluezAttributesTest, ANameThatTheDaemonRefusesIsLogged) {
  StartWithAdapter();
  Daemons().Refuse("Set Alias", "org.bluez.Error.InvalidArguments", "not this one");
  EXPECT_TRUE(Set(BT_ATTR_LOCAL_NAME, "My car"));
  EXPECT_TRUE(Logs("the adapter does not take its name: org.bluez.Error.InvalidArguments: not this one"));
  EXPECT_EQ(AttributeText(BT_ATTR_LOCAL_NAME), "('fake', byte 0x01)");
}

TEST_F(BluezAttributesTest, ANameThatWasSetIsGivenToTheNextAdapter) {
  StartWithAdapter();
  ASSERT_TRUE(Set(BT_ATTR_LOCAL_NAME, "My car"));
  ASSERT_TRUE(Service().WaitFor("OnBtAttributeChanged (byte 0x00, 'My car')"));
  Daemons().RemoveAdapter("hci0");
  Daemons().AddAdapter("hci1", "00:1B:DC:0A:0B:0D");
  EXPECT_TRUE(bttest::RunUntil([&] { return AttributeText(BT_ATTR_LOCAL_NAME) == "('My car', byte 0x01)"; }));
}

TEST_F(BluezAttributesTest, AnotherProgramsNameIsReported) {
  StartWithAdapter();
  Daemons().ChangeAdapter("hci0", "Alias", g_variant_new_string("Garage"));
  EXPECT_TRUE(Service().WaitFor("OnBtAttributeChanged (byte 0x00, 'Garage')"));
}

TEST_F(BluezAttributesTest, PinAndFolderAreTheServicesOwn) {
  StartService();
  EXPECT_TRUE(Set(BT_ATTR_PIN_CODE, "1234"));
  EXPECT_TRUE(Set(BT_ATTR_DOWNLOAD_FOLDER, "/data"));
  EXPECT_EQ(AttributeText(BT_ATTR_PIN_CODE), "('1234', byte 0x01)");
  EXPECT_EQ(AttributeText(BT_ATTR_DOWNLOAD_FOLDER), "('/data', byte 0x01)");
  EXPECT_FALSE(Set(BT_ATTR_PIN_CODE, "12a4"));
  EXPECT_FALSE(Set(BT_ATTR_DOWNLOAD_FOLDER, "data"));
  EXPECT_FALSE(Set(BT_ATTR_LOCAL_NAME, "My car")) << "there is no adapter";
}

TEST_F(BluezAttributesTest, WhatHasNothingBelowItIsRefusedWithALineInTheLog) {
  StartWithAdapter();
  EXPECT_FALSE(Set(BT_ATTR_CLASS_OF_DEVICE, "340408"));
  EXPECT_TRUE(Logs("SetAttribute(class) is refused: BlueZ takes the class of device from its configuration"));
  EXPECT_FALSE(Set(BT_ATTR_LOCAL_ADDRESS, kAdapterAddress));
  EXPECT_FALSE(Set(BT_ATTR_STACK_VERSION, "1"));
  Service().Call("SetHIDSendKey", g_variant_new("(si)", "00:1A:7D:DA:71:13", 4));
  EXPECT_TRUE(Logs("SetHIDSendKey is refused: BlueZ takes input from devices, and is none itself"));
}

class BluezKeptTest : public testing::Test {};

TEST_F(BluezKeptTest, NamePinAndPairedDevicesSurviveARestart) {
  bttest::SystemBusDaemon systemBus;
  bttest::TemporaryDirectory directory;
  const std::string state = (directory.Path() / "state.json").string();
  RunningService service({"--stack", "bluez", "--state", state}, RunningService::Begin::LATER);
  bttest::FakeDaemons daemons;
  daemons.AddAdapter("hci0", kAdapterAddress);
  const auto nameIs = [&](const std::string& name) {
    return bttest::RunUntil([&] {
      return service.Ask("GetAttribute", g_variant_new("(y)", 0)) == "('" + name + "', byte 0x01)";
    });
  };
  service.Start();
  ASSERT_TRUE(nameIs("fake"));
  service.Call("SetAttribute", g_variant_new("(ys)", BT_ATTR_LOCAL_NAME, "My car"));
  service.Call("SetAttribute", g_variant_new("(ys)", BT_ATTR_PIN_CODE, "1234"));
  ASSERT_TRUE(nameIs("My car"));
  service.Process().Signal(SIGTERM);
  ASSERT_EQ(service.Process().Wait(), 0);
  daemons.ChangeAdapter("hci0", "Alias", g_variant_new_string("forgotten"));
  service.Start();
  EXPECT_TRUE(nameIs("My car"));
  EXPECT_EQ(service.Ask("GetAttribute", g_variant_new("(y)", BT_ATTR_PIN_CODE)), "('1234', byte 0x01)");
}

class BluezVisibilityTest : public BluezTest {
 protected:
  bool SetVisible(bool visible) {
    return Service().Ask("SetCapability", g_variant_new("(yy)", BT_CAP_ENABLE_SCAN, visible ? 1 : 0)) == kOn;
  }
  std::string Visible() { return Service().Ask("GetCapability", g_variant_new("(y)", BT_CAP_ENABLE_SCAN)); }
};

TEST_F(BluezVisibilityTest, IsSetForAsLongAsTheUserWantsIt) {
  StartWithAdapter();
  EXPECT_TRUE(SetVisible(true));
  ASSERT_TRUE(Service().WaitFor("OnBtCapabilityChanged (byte 0x09, byte 0x01)"));
  EXPECT_EQ(Visible(), kOn);
  EXPECT_THAT(Daemons().Calls(), Contains("Set DiscoverableTimeout"));
  EXPECT_TRUE(SetVisible(false));
  ASSERT_TRUE(Service().WaitFor("OnBtCapabilityChanged (byte 0x09, byte 0x00)"));
  EXPECT_EQ(Visible(), kOff);
}

TEST_F(BluezVisibilityTest, IsSetAnewWhenTheAdapterComesOn) {
  StartService();
  EXPECT_TRUE(SetVisible(true)) << "there is no adapter yet, and the user's wish is kept";
  EXPECT_EQ(Visible(), kOn);
  StartDaemons();
  EXPECT_TRUE(bttest::RunUntil([&] { return Daemons().CountCalls("Set Discoverable") == 1; }));
  SetPower(false);
  ASSERT_TRUE(PowerBecomes(kOff));
  SetPower(true);
  EXPECT_TRUE(bttest::RunUntil([&] { return Daemons().CountCalls("Set Discoverable") == 2; }));
}

TEST_F(BluezVisibilityTest, StaysAsItWasIfTheDaemonRefuses) {
  StartWithAdapter();
  const std::string before = Visible();
  Daemons().Refuse("Set Discoverable", "org.bluez.Error.Failed", "not now");
  Service().ForgetSignals();
  EXPECT_TRUE(SetVisible(before == kOff));
  ASSERT_TRUE(Service().WaitFor("OnBtCapabilityChanged (byte 0x09, "));
  EXPECT_EQ(Visible(), before);
  EXPECT_TRUE(Logs("the visibility of the adapter is not set: org.bluez.Error.Failed: not now"));
}

TEST_F(BluezVisibilityTest, TheOtherSwitchesAreTheServicesOwn) {
  StartService();
  EXPECT_EQ(Service().Ask("SetCapability", g_variant_new("(yy)", BT_CAP_AUTO_ANSWER, 1)), kOn);
  EXPECT_EQ(Service().Ask("GetCapability", g_variant_new("(y)", BT_CAP_AUTO_ANSWER)), kOn);
  EXPECT_EQ(Service().Ask("SetCapability", g_variant_new("(yy)", BT_CAP_AUTO_ANSWER, 2)), kOff);
  EXPECT_EQ(Service().Ask("SetCapability", g_variant_new("(yy)", BT_CAP_RESERVED4, 1)), kOff);
  EXPECT_EQ(Service().Ask("EnterTestMode"), kOff) << "it is off";
}

}  // namespace
}  // namespace btservice
