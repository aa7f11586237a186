// Bluetooth goes off and on, and the library with it.

#include "tests/conformance/Car.h"

namespace conformance {
namespace {

using bttest::ValueText;

class PowerTest : public ConformanceTest {
 protected:
  bool Becomes(PowerStatus status) {
    return Eventually([&] { return car.com.GetPowerStatus() == status; });
  }
  bool Hears(PowerStatus status) { return car.Hears("OnOpenBtStatusChanged", {ValueText::Of(status)}); }
};

TEST_F(PowerTest, GoesOffAndOn) {
  car.com.SetPower(1);
  ASSERT_TRUE(Becomes(BT_POWER_ON));
  car.Forget();
  EXPECT_NE(car.com.SetPower(0), 0);
  EXPECT_TRUE(Hears(BT_POWER_OFF));
  EXPECT_TRUE(Becomes(BT_POWER_OFF));
  car.Forget();
  EXPECT_NE(car.com.SetPower(1), 0);
  EXPECT_TRUE(Hears(BT_POWER_ON));
  EXPECT_TRUE(Becomes(BT_POWER_ON));
}

TEST_F(PowerTest, EndsThePhonesConnection) {
  ASSERT_NO_FATAL_FAILURE(car.ConnectPhone());
  car.Forget();
  EXPECT_NE(car.com.SetPower(0), 0);
  EXPECT_TRUE(
      car.Hears("OnConnectStatusChanged", {ValueText::Of(std::string(kPhone)), ValueText::Of(BT_PROFILE_HFP),
                                           ValueText::Of(BT_CONN_DISCONNECTED)}));
  EXPECT_TRUE(Becomes(BT_POWER_OFF));
  EXPECT_EQ(car.calls.DialCall("112"), 0);
}

TEST_F(PowerTest, IsKnownToAnApplicationThatStopsTheLibraryAndStartsItAgain) {
  car.com.SetPower(1);
  ASSERT_TRUE(Becomes(BT_POWER_ON));
  MWP_DestroyBlueTooth();
  EXPECT_EQ(car.com.GetPowerStatus(), 0);
  EXPECT_NE(MWP_CreateBlueTooth(), 0);
  EXPECT_EQ(car.com.GetPowerStatus(), BT_POWER_ON);
}

}  // namespace
}  // namespace conformance
