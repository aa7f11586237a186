// The search for devices and the service's own list of those that were found, over a fake of BlueZ's daemon.

#include <algorithm>
#include <csignal>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/bluez/BluezTest.h"

namespace btservice {
namespace {

using testing::IsEmpty;

constexpr const char* kAda = "00:1A:7D:DA:71:13";
constexpr const char* kBen = "00:1A:7D:DA:71:14";
constexpr const char* kScanning = "OnScanStatusChanged (byte 0x01,)";
constexpr const char* kIdle = "OnScanStatusChanged (byte 0x00,)";

class BluezSearchTest : public BluezTest {
 protected:
  bool Search(bool on) {
    return Service().Ask("SetScanAction", g_variant_new("(b)", on ? TRUE : FALSE)) == "(true,)";
  }
  static std::string Found(const std::string& address, const std::string& name) {
    return "OnScanedDeviceChanged ('" + address + "', '" + name + "', byte 0x00)";
  }
  long CountSignals(const std::string& beginning) {
    return std::count_if(Service().Signals().begin(), Service().Signals().end(),
                         [&](const std::string& signal) { return signal.rfind(beginning, 0) == 0; });
  }
  /// The name that the service knows, as the answer of its method; ('',) for none.
  std::string NameOf(const std::string& address) {
    return Service().Ask("GetRemotePairDeviceName", g_variant_new("(s)", address.c_str()));
  }
  /// All that the daemon has sent so far has been taken in by the service: what it sent last is seen.
  void SettleDaemon() {
    static int number = 0;
    const std::string name = "settled " + std::to_string(++number);
    Daemons().ChangeAdapter("hci0", "Alias", g_variant_new_string(name.c_str()));
    ASSERT_TRUE(Service().WaitFor("OnBtAttributeChanged (byte 0x00, '" + name + "')"));
  }
};

TEST_F(BluezSearchTest, FindsWhatIsInReachUntilItIsEnded) {
  StartWithAdapter();
  Daemons().PutInReach(kAda, "Ada's phone");
  EXPECT_TRUE(Search(true));
  EXPECT_FALSE(Search(true)) << "it runs, or is about to";
  ASSERT_TRUE(Service().WaitFor(kScanning));
  EXPECT_TRUE(Service().WaitFor("OnScanedDeviceChanged ('00:1A:7D:DA:71:13', \"Ada's phone\", byte 0x00)"));
  EXPECT_EQ(Daemons().Filter(), "({'Transport': <'bredr'>},)");
  Daemons().PutInReach(kBen, "Ben");
  EXPECT_TRUE(Service().WaitFor(Found(kBen, "Ben")));
  EXPECT_TRUE(Search(false));
  EXPECT_TRUE(Service().WaitFor(kIdle));
  EXPECT_FALSE(Search(false));
  EXPECT_EQ(Daemons().CountCalls("StopDiscovery"), 1);
}

TEST_F(BluezSearchTest, EndsByItself) {
  StartWithAdapter();
  ASSERT_TRUE(Search(true));
  ASSERT_TRUE(Service().WaitFor(kScanning));
  EXPECT_TRUE(bttest::RunUntil([&] { return CountSignals(kIdle) == 1; }, 3 * bttest::kBound));
  EXPECT_EQ(Daemons().CountCalls("StopDiscovery"), 1);
  EXPECT_TRUE(Search(true)) << "once more";
}

TEST_F(BluezSearchTest, ReportsADeviceOnceInEachSearchAndAgainWhenItsNameIsKnown) {
  StartWithAdapter();
  Daemons().PutInReach(kAda);
  ASSERT_TRUE(Search(true));
  ASSERT_TRUE(Service().WaitFor(Found(kAda, "")));
  Daemons().Hear(kAda);
  Daemons().Hear(kAda);
  Daemons().NameDevice(kAda, "Ada");
  ASSERT_TRUE(Service().WaitFor(Found(kAda, "Ada")));
  SettleDaemon();
  EXPECT_EQ(CountSignals("OnScanedDeviceChanged"), 2);
  ASSERT_TRUE(Search(false));
  ASSERT_TRUE(Service().WaitFor(kIdle));
  Service().ForgetSignals();
  ASSERT_TRUE(Search(true));
  EXPECT_TRUE(Service().WaitFor(Found(kAda, "Ada"))) << "BlueZ knows it already, and hears of it again";
}

TEST_F(BluezSearchTest, RemembersWhatBluezHasForgotten) {
  StartWithAdapter();
  Daemons().PutInReach(kAda, "Ada");
  ASSERT_TRUE(Search(true));
  ASSERT_TRUE(Service().WaitFor(Found(kAda, "Ada")));
  ASSERT_TRUE(Search(false));
  ASSERT_TRUE(Service().WaitFor(kIdle));
  Daemons().ForgetDevices();
  ASSERT_THAT(Daemons().Devices(), IsEmpty());
  SettleDaemon();
  EXPECT_EQ(NameOf(kAda), "('Ada',)");
  EXPECT_EQ(NameOf("00:1a:7d:da:71:13"), "('Ada',)");
  Daemons().Process().Kill();
  ASSERT_TRUE(PowerBecomes(kOff));
  EXPECT_EQ(NameOf(kAda), "('Ada',)");
}

TEST_F(BluezSearchTest, ForgetsWhatItIsAskedToForget) {
  StartWithAdapter();
  Daemons().PutInReach(kAda, "Ada");
  Daemons().PutInReach(kBen, "Ben");
  ASSERT_TRUE(Search(true));
  ASSERT_TRUE(Service().WaitFor(Found(kAda, "Ada")));
  ASSERT_TRUE(Service().WaitFor(Found(kBen, "Ben")));
  ASSERT_TRUE(Search(false));
  ASSERT_TRUE(Service().WaitFor(kIdle));
  Service().Call("RemoveDevice", g_variant_new("(s)", kAda));
  EXPECT_EQ(NameOf(kAda), "('',)");
  EXPECT_EQ(NameOf(kBen), "('Ben',)");
  EXPECT_TRUE(bttest::RunUntil([&] { return Daemons().Devices() == std::vector<std::string>{kBen}; }));
  Service().Call("ClearScanedDeviceList");
  EXPECT_EQ(NameOf(kBen), "('',)");
  EXPECT_TRUE(bttest::RunUntil([&] { return Daemons().Devices().empty(); }));
}

TEST_F(BluezSearchTest, LetsBluezKeepAPairedDevice) {
  StartWithAdapter();
  Daemons().PutInReach(kAda, "Ada");
  Daemons().PutInReach(kBen, "Ben");
  ASSERT_TRUE(Search(true));
  ASSERT_TRUE(Service().WaitFor(Found(kAda, "Ada")));
  ASSERT_TRUE(Service().WaitFor(Found(kBen, "Ben")));
  Daemons().SetPaired(kAda, true);
  SettleDaemon();
  Service().Call("ClearScanedDeviceList");
  ASSERT_TRUE(bttest::RunUntil([&] { return Daemons().CountCalls("RemoveDevice") == 1; }));
  EXPECT_TRUE(bttest::RunUntil([&] { return Daemons().Devices() == std::vector<std::string>{kAda}; }));
}

TEST_F(BluezSearchTest, EndsWithThePowerAndIsRefusedWithoutIt) {
  StartWithAdapter();
  ASSERT_TRUE(Search(true));
  ASSERT_TRUE(Service().WaitFor(kScanning));
  SetPower(false);
  ASSERT_TRUE(Service().WaitFor("OnOpenBtStatusChanged (byte 0x00,)"));
  EXPECT_EQ(CountSignals(kIdle), 1);
  const auto& signals = Service().Signals();
  EXPECT_LT(
      std::find(signals.begin(), signals.end(), kIdle) - signals.begin(),
      std::find(signals.begin(), signals.end(), "OnOpenBtStatusChanged (byte 0x00,)") - signals.begin());
  EXPECT_FALSE(Search(true));
  SetPower(true);
  ASSERT_TRUE(PowerBecomes(kOn));
  EXPECT_TRUE(Search(true));
  EXPECT_TRUE(bttest::RunUntil([&] { return CountSignals(kScanning) == 2; }));
}

TEST_F(BluezSearchTest, EndsWithTheDaemonAndWithTheAdapter) {
  StartWithAdapter();
  ASSERT_TRUE(Search(true));
  ASSERT_TRUE(Service().WaitFor(kScanning));
  Daemons().Process().Kill();
  ASSERT_TRUE(Service().WaitFor(kIdle));
  StartDaemons();
  ASSERT_TRUE(PowerBecomes(kOn));
  Service().ForgetSignals();
  ASSERT_TRUE(Search(true));
  ASSERT_TRUE(Service().WaitFor(kScanning));
  Daemons().RemoveAdapter("hci0");
  EXPECT_TRUE(Service().WaitFor(kIdle));
}

TEST_F(BluezSearchTest, ThatBluezEndsByItselfIsReported) {
  StartWithAdapter();
  ASSERT_TRUE(Search(true));
  ASSERT_TRUE(Service().WaitFor(kScanning));
  SettleDaemon();
  Daemons().ChangeAdapter("hci0", "Discovering", g_variant_new_boolean(FALSE));
  EXPECT_TRUE(Service().WaitFor(kIdle));
  EXPECT_EQ(Daemons().CountCalls("StopDiscovery"), 0) << "it was not the service that has ended it";
}

TEST_F(BluezSearchTest, ThatBluezRefusesIsLoggedAndReportedAsIdle) {
  StartWithAdapter();
  Daemons().Refuse("StartDiscovery", "org.bluez.Error.InProgress", "somebody else\x1b searches");
  EXPECT_TRUE(Search(true));
  EXPECT_TRUE(Service().WaitFor(kIdle));
  EXPECT_TRUE(Logs("there is no search for devices: org.bluez.Error.InProgress: somebody else"));
  EXPECT_EQ(CountSignals(kScanning), 0);
  Daemons().Behave();
  EXPECT_TRUE(Search(true));
  EXPECT_TRUE(Service().WaitFor(kScanning));
}

TEST_F(BluezSearchTest, CanBeEndedBeforeItHasBegun) {
  StartWithAdapter();
  Daemons().Process().Signal(SIGSTOP);
  EXPECT_TRUE(Search(true));
  EXPECT_TRUE(Search(false));
  EXPECT_FALSE(Search(false));
  Daemons().Process().Signal(SIGCONT);
  EXPECT_TRUE(Service().WaitFor(kIdle));
  EXPECT_EQ(CountSignals(kScanning), 0);
  EXPECT_EQ(Daemons().CountCalls("StopDiscovery"), 1);
}

TEST_F(BluezSearchTest, DevicesThatMakeNoSenseAreLeftOut) {
  StartWithAdapter();
  ASSERT_TRUE(Search(true));
  ASSERT_TRUE(Service().WaitFor(kScanning));
  const auto appear = [&](const char* path, const char* property, GVariant* value) {
    GVariantBuilder device;
    g_variant_builder_init(&device, G_VARIANT_TYPE("a{sa{sv}}"));
    g_variant_builder_open(&device, G_VARIANT_TYPE("{sa{sv}}"));
    g_variant_builder_add(&device, "s", "org.bluez.Device1");
    g_variant_builder_open(&device, G_VARIANT_TYPE("a{sv}"));
    g_variant_builder_add(&device, "{sv}", property, value);
    g_variant_builder_close(&device);
    g_variant_builder_close(&device);
    Daemons().Emit("/", "org.freedesktop.DBus.ObjectManager", "InterfacesAdded",
                   g_variant_new("(oa{sa{sv}})", path, &device));
  };
  appear("/org/bluez/hci0/dev_1", "Address", g_variant_new_uint32(1));
  appear("/org/bluez/hci0/dev_2", "Address", g_variant_new_string("00:1A:7D:DA:71:1"));
  appear("/org/bluez/hci0/dev_3", "Name", g_variant_new_string("nobody"));
  appear("/org/bluez/hci9/dev_4", "Address", g_variant_new_string(kBen));
  appear("/org/bluez/hci0/dev_5", "Address", g_variant_new_string("00:1a:7d:da:71:13"));
  ASSERT_TRUE(Service().WaitFor(Found(kAda, ""))) << "in upper case";
  EXPECT_EQ(CountSignals("OnScanedDeviceChanged"), 1);
}

TEST_F(BluezSearchTest, ANameFromTheAirIsCutAndCleaned) {
  StartWithAdapter();
  std::string name = "a\x07";
  for (int i = 0; i < 300; ++i) {
    name += "ä";
  }
  Daemons().PutInReach(kAda, name);
  ASSERT_TRUE(Search(true));
  EXPECT_TRUE(Service().WaitFor(Found(kAda, "a " + name.substr(2, 246))));
}

TEST_F(BluezSearchTest, TheNumberOfDevicesHasALimit) {
  StartWithAdapter();
  constexpr int kDevices = 1002;
  const auto address = [](int number) {
    char text[18];
    std::snprintf(text, sizeof text, "00:00:00:00:%02X:%02X", number / 256, number % 256);
    return std::string(text);
  };
  for (int i = 0; i < kDevices; ++i) {
    Daemons().PutInReach(address(i), "device");
  }
  ASSERT_TRUE(Search(true));
  ASSERT_TRUE(Service().WaitFor(Found(address(kDevices - 1), "device")));
  EXPECT_EQ(NameOf(address(0)), "('',)");
  EXPECT_EQ(NameOf(address(1)), "('',)");
  EXPECT_EQ(NameOf(address(2)), "('device',)");
  Service().Call("ClearScanedDeviceList");
  EXPECT_EQ(NameOf(address(2)), "('',)");
  EXPECT_TRUE(Logs("RemoveDevice is refused")) << "BlueZ forgets the others by itself";
  EXPECT_EQ(Power(), kOn);
}

}  // namespace
}  // namespace btservice
