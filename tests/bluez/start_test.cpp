// The order of start, and of ends: the system bus, BlueZ's daemon and the adapter may be absent, come late,
// go and come back. Whatever of them is missing or hangs, every method of the interface is answered at once.

#include <csignal>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "recorder/ZeroValue.h"
#include "support/InterfaceDescription.h"
#include "tests/bluez/BluezTest.h"

namespace btservice {
namespace {

using testing::HasSubstr;
using testing::Not;

class BluezStartTest : public BluezTest {
 protected:
  /// Calls each method of the interface, with zeros and empty texts, and expects an answer of its types:
  /// sooner than a call to a daemon that hangs would fail.
  void ExpectAllMethodsAnswered() {
    const std::vector<bttest::MethodDescription>& methods = bttest::BluetoothInterface().methods;
    EXPECT_EQ(methods.size(), 100U);
    for (const bttest::MethodDescription& method : methods) {
      OwnedError error;
      const OwnedVariant reply(g_dbus_connection_call_sync(
          Service().Connection(), kServiceName, kServicePath, kServiceInterface, method.name.c_str(),
          ZeroValue(G_VARIANT_TYPE(bttest::TupleSignature(method.in).c_str())), nullptr,
          G_DBUS_CALL_FLAGS_NO_AUTO_START, static_cast<int>(bttest::kBound.count()), nullptr, error.Out()));
      ASSERT_TRUE(reply) << method.name << ": " << error->message;
      EXPECT_EQ(g_variant_get_type_string(reply.get()), bttest::TupleSignature(method.out)) << method.name;
    }
  }
};

TEST_F(BluezStartTest, WithoutASystemBusItIsOffAndComesOnWhenThereIsOne) {
  m_systemBus.Stop();
  StartService();
  EXPECT_TRUE(Logs("there is no system bus"));
  EXPECT_EQ(Power(), kOff);
  ExpectAllMethodsAnswered();
  m_systemBus.Start();
  StartDaemons();
  EXPECT_TRUE(PowerBecomes(kOn));
}

TEST_F(BluezStartTest, WithoutADaemonItIsOffAndComesOnWhenThereIsOne) {
  StartService();
  ASSERT_TRUE(Service().WaitFor("OnOpenBtStatusChanged (byte 0x00,)"));
  EXPECT_FALSE(SetPower(true));
  EXPECT_TRUE(Logs("SetPower(1) is refused: there is no Bluetooth adapter"));
  ExpectAllMethodsAnswered();
  StartDaemons();
  EXPECT_TRUE(PowerBecomes(kOn));
}

TEST_F(BluezStartTest, ADaemonThatIsThereAlreadyIsUsed) {
  StartDaemons();
  StartService();
  EXPECT_TRUE(Service().WaitFor("OnOpenBtStatusChanged (byte 0x03,)"));
  EXPECT_TRUE(Service().WaitFor("OnOpenBtStatusChanged (byte 0x01,)"));
  ExpectAllMethodsAnswered();
}

TEST_F(BluezStartTest, ADaemonThatIsKilledIsAnAdapterThatIsOffAndTheNextOneIsSwitchedOn) {
  StartWithAdapter();
  for (int round = 0; round < 3; ++round) {
    Service().ForgetSignals();
    Daemons().Process().Kill();
    ASSERT_TRUE(Service().WaitFor("OnOpenBtStatusChanged (byte 0x00,)")) << round;
    EXPECT_EQ(Power(), kOff);
    EXPECT_EQ(AttributeText(BT_ATTR_LOCAL_ADDRESS), "('', byte 0x00)");
    StartDaemons();
    ASSERT_TRUE(PowerBecomes(kOn)) << round;
  }
}

TEST_F(BluezStartTest, ADaemonThatHangsFromTheStartKeepsNothingFromBeingAnswered) {
  StartDaemons();
  Daemons().Process().Signal(SIGSTOP);
  StartService();
  ExpectAllMethodsAnswered();
  EXPECT_EQ(Power(), kOff);
  Daemons().Process().Signal(SIGCONT);
  EXPECT_TRUE(PowerBecomes(kOn));
}

TEST_F(BluezStartTest, ADaemonThatBeginsToHangKeepsNothingFromBeingAnswered) {
  StartWithAdapter();
  Daemons().Process().Signal(SIGSTOP);
  ExpectAllMethodsAnswered();
  EXPECT_EQ(AttributeText(BT_ATTR_LOCAL_ADDRESS), std::string("('") + kAdapterAddress + "', byte 0x01)");
  SetPower(false);
  EXPECT_EQ(Power(), "(byte 0x02,)") << "on its way until the daemon answers";
  Daemons().Process().Signal(SIGCONT);
  EXPECT_TRUE(PowerBecomes(kOff));
}

TEST_F(BluezStartTest, ADaemonThatHangsIsNotGivenCommandsWithoutALimit) {
  StartWithAdapter();
  Daemons().Process().Signal(SIGSTOP);
  int accepted = 0;
  std::string answer = kOn;
  while (answer == kOn && accepted < 1000) {
    answer = Service().Ask("SetAttribute",
                           g_variant_new("(ys)", BT_ATTR_LOCAL_NAME, std::to_string(accepted).c_str()));
    accepted += answer == kOn;
  }
  EXPECT_GT(accepted, 10);
  EXPECT_LT(accepted, 1000);
  EXPECT_TRUE(Logs("Set is refused"));
  Daemons().Process().Signal(SIGCONT);
  const std::string last = "('" + std::to_string(accepted - 1) + "', byte 0x01)";
  EXPECT_TRUE(bttest::RunUntil([&] { return AttributeText(BT_ATTR_LOCAL_NAME) == last; }));
}

TEST_F(BluezStartTest, ASystemBusThatIsLostIsAnAdapterThatIsOffUntilItIsBack) {
  StartWithAdapter();
  for (int round = 0; round < 2; ++round) {
    Service().ForgetSignals();
    m_systemBus.Stop();
    ASSERT_TRUE(Service().WaitFor("OnOpenBtStatusChanged (byte 0x00,)")) << round;
    ExpectAllMethodsAnswered();
    EXPECT_TRUE(Daemons().Process().Wait()) << "the daemon ends with its bus, too";
    m_systemBus.Start();
    StartDaemons();
    ASSERT_TRUE(PowerBecomes(kOn)) << round;
  }
  EXPECT_TRUE(Service().Process().IsAlive());
  EXPECT_TRUE(Logs("the system bus is there"));
  EXPECT_THAT(Service().Process().Errors(), Not(HasSubstr("CRITICAL")));
}

TEST_F(BluezStartTest, ASessionBusThatIsLostEndsIt) {
  StartWithAdapter();
  Service().Bus().Stop();
  EXPECT_EQ(Service().Process().Wait(), 0);
  EXPECT_THAT(Service().Process().Errors(), HasSubstr("the session bus is gone"));
}

TEST_F(BluezStartTest, SigtermEndsItWhileTheDaemonHangs) {
  StartWithAdapter();
  Daemons().Process().Signal(SIGSTOP);
  SetPower(false);
  Service().Process().Signal(SIGTERM);
  EXPECT_EQ(Service().Process().Wait(), 0);
}

TEST_F(BluezStartTest, AnAdapterThatIsPulledOutIsOffAndTheNextOneIsSwitchedOn) {
  StartWithAdapter();
  Daemons().RemoveAdapter("hci0");
  EXPECT_TRUE(Service().WaitFor("OnOpenBtStatusChanged (byte 0x00,)"));
  EXPECT_EQ(Power(), kOff);
  EXPECT_EQ(AttributeText(BT_ATTR_LOCAL_ADDRESS), "('', byte 0x00)");
  EXPECT_FALSE(SetPower(true));
  Daemons().AddAdapter("hci1", "00:1B:DC:0A:0B:0D");
  EXPECT_TRUE(PowerBecomes(kOn));
  EXPECT_EQ(AttributeText(BT_ATTR_LOCAL_ADDRESS), "('00:1B:DC:0A:0B:0D', byte 0x01)");
}

TEST_F(BluezStartTest, OfTwoAdaptersTheFirstIsUsedAndTheOtherWhenThatIsPulledOut) {
  StartWithAdapter();
  Daemons().AddAdapter("hci1", "00:1B:DC:0A:0B:0D");
  EXPECT_EQ(AttributeText(BT_ATTR_LOCAL_ADDRESS), std::string("('") + kAdapterAddress + "', byte 0x01)");
  Daemons().RemoveAdapter("hci0");
  EXPECT_TRUE(bttest::RunUntil(
      [&] { return AttributeText(BT_ATTR_LOCAL_ADDRESS) == "('00:1B:DC:0A:0B:0D', byte 0x01)"; }));
  EXPECT_TRUE(PowerBecomes(kOn));
}

TEST_F(BluezStartTest, OfSeveralAdaptersTheFirstByItsNameIsUsedInWhicheverOrderTheDaemonListsThem) {
  StartDaemons();
  GVariantBuilder objects;
  g_variant_builder_init(&objects, G_VARIANT_TYPE("a{oa{sa{sv}}}"));
  for (const char* const name : {"hci1", "hci0", "hci2"}) {
    g_variant_builder_open(&objects, G_VARIANT_TYPE("{oa{sa{sv}}}"));
    g_variant_builder_add(&objects, "o", (std::string("/org/bluez/") + name).c_str());
    g_variant_builder_open(&objects, G_VARIANT_TYPE("a{sa{sv}}"));
    g_variant_builder_open(&objects, G_VARIANT_TYPE("{sa{sv}}"));
    g_variant_builder_add(&objects, "s", "org.bluez.Adapter1");
    g_variant_builder_open(&objects, G_VARIANT_TYPE("a{sv}"));
    g_variant_builder_add(&objects, "{sv}", "Alias", g_variant_new_string(name));
    g_variant_builder_close(&objects);
    g_variant_builder_close(&objects);
    g_variant_builder_close(&objects);
    g_variant_builder_close(&objects);
  }
  Daemons().AnswerWith("GetManagedObjects", g_variant_new("(a{oa{sa{sv}}})", &objects));
  StartService();
  EXPECT_TRUE(bttest::RunUntil([&] { return AttributeText(BT_ATTR_LOCAL_NAME) == "('hci0', byte 0x01)"; }));
}

}  // namespace
}  // namespace btservice
