// What an application of the library meets when the service runs over BlueZ.

#include <cstdlib>

#include <gtest/gtest.h>

#include "tests/bluez/FakeDaemons.h"
#include "tests/conformance/Car.h"

namespace conformance {
namespace {

using bttest::ValueText;

/// The daemon with an adapter, and the command that the car starts its service with: to be made before the
/// car.
class RoomForBluez {
 public:
  RoomForBluez() {
    daemons.AddAdapter("hci0", "00:1B:DC:0A:0B:0C");
    setenv("BTCONFORMANCE_SERVICE", "/app/bin/btservice --stack bluez --no-state", 1);
  }

  bttest::SystemBusDaemon bus;
  bttest::FakeDaemons daemons;
};

class LibraryOverBluezTest : public testing::Test {
 protected:
  bool Becomes(PowerStatus status) {
    return Eventually([&] { return m_car.com.GetPowerStatus() == status; });
  }

  RoomForBluez m_room;
  Car m_car;
};

TEST_F(LibraryOverBluezTest, SwitchesPowerOffAndOn) {
  ASSERT_TRUE(Becomes(BT_POWER_ON));
  m_car.Forget();
  EXPECT_NE(m_car.com.SetPower(0), 0);
  EXPECT_TRUE(m_car.Hears("OnOpenBtStatusChanged", {ValueText::Of(BT_POWER_OFF)}));
  m_car.Forget();
  EXPECT_NE(m_car.com.SetPower(1), 0);
  EXPECT_TRUE(m_car.Hears("OnOpenBtStatusChanged", {ValueText::Of(BT_POWER_ON)}));
}

TEST_F(LibraryOverBluezTest, SetsTheNameAndSearches) {
  ASSERT_TRUE(Becomes(BT_POWER_ON));
  EXPECT_NE(m_car.com.SetAttribute(BT_ATTR_LOCAL_NAME, "My car"), 0);
  EXPECT_TRUE(m_car.Hears("OnBtAttributeChanged",
                          {ValueText::Of(BT_ATTR_LOCAL_NAME), ValueText::Of(std::string("My car"))}));
  m_room.daemons.PutInReach("00:1A:7D:DA:71:13", "Ada");
  EXPECT_NE(m_car.com.SetScanAction(1), 0);
  EXPECT_TRUE(m_car.Hears("OnScanStatusChanged", {ValueText::Of(BT_SCAN_SCANNING)}));
  // The library has no event for a device that is found.
  EXPECT_TRUE(Eventually([&] { return m_car.com.GetRemotePairDeviceName("00:1A:7D:DA:71:13") == "Ada"; }));
}

TEST_F(LibraryOverBluezTest, SeesTheDaemonGoAndComeBack) {
  ASSERT_TRUE(Becomes(BT_POWER_ON));
  m_room.daemons.Process().Kill();
  EXPECT_TRUE(Becomes(BT_POWER_OFF));
  EXPECT_EQ(m_car.com.SetPower(1), 0) << "refused: there is no adapter";
  bttest::FakeDaemons next;
  next.AddAdapter("hci0", "00:1B:DC:0A:0B:0C");
  EXPECT_TRUE(Becomes(BT_POWER_ON));
}

}  // namespace
}  // namespace conformance
