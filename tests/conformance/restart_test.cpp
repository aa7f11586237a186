// The service ends, or dies, and comes back: applications hear what is no more, and go on.

#include "tests/conformance/Car.h"

namespace conformance {
namespace {

using bttest::ValueText;

class RestartTest : public ConformanceTest {};

TEST_F(RestartTest, OneThatDiedInACallSaysThatTheCallHasEnded) {
  CONFORMANCE_NEEDS("Call");
  ASSERT_NO_FATAL_FAILURE(car.ConnectPhone());
  EXPECT_TRUE(phone.Do("Call", kPhone, "112"));
  ASSERT_TRUE(car.Hears("OnCallStatusChanged"));
  car.KillService();
  EXPECT_EQ(car.com.GetPowerStatus(), 0) << "there is nobody to ask";
  car.Forget();
  car.StartService();
  EXPECT_TRUE(car.Hears("OnCurrentCallInfoChanged", {ValueText::Of(0)}));
  MWPTypeCallInfo info;
  EXPECT_TRUE(Eventually([&] { return car.calls.GetCurrentCallInfo(info) != 0 && info.nCallCount == 0; }));
  car.ConnectPhone();
}

TEST_F(RestartTest, OneThatIsBackTakesRequestsAgain) {
  car.com.SetPower(1);
  ASSERT_TRUE(Eventually([&] { return car.com.GetPowerStatus() == BT_POWER_ON; }));
  car.KillService();
  EXPECT_EQ(car.com.GetPowerStatus(), 0) << "there is nobody to ask";
  car.StartService();
  ASSERT_TRUE(Eventually([&] {
    car.com.SetPower(1);
    return car.com.GetPowerStatus() == BT_POWER_ON;
  }));
  car.Forget();
  EXPECT_NE(car.com.SetPower(0), 0);
  EXPECT_TRUE(car.Hears("OnOpenBtStatusChanged", {ValueText::Of(BT_POWER_OFF)}));
}

TEST_F(RestartTest, ASettingIsKept) {
  const int other = car.com.GetCapability(BT_CAP_AUTO_ANSWER) == 0 ? 1 : 0;
  EXPECT_NE(car.com.SetCapability(BT_CAP_AUTO_ANSWER, other), 0);
  ASSERT_TRUE(car.Hears("OnBtCapabilityChanged"));
  EXPECT_EQ(car.EndService(), 0);
  car.StartService();
  ASSERT_TRUE(Eventually([&] {
    car.com.SetPower(1);
    return car.com.GetPowerStatus() == BT_POWER_ON;
  }));
  EXPECT_EQ(car.com.GetCapability(BT_CAP_AUTO_ANSWER), other);
}

TEST_F(RestartTest, OneThatEndsInGoodOrderReportsItBeforehand) {
  ASSERT_NO_FATAL_FAILURE(car.ConnectPhone());
  car.Forget();
  EXPECT_EQ(car.EndService(), 0);
  EXPECT_TRUE(
      car.Hears("OnConnectStatusChanged", {ValueText::Of(std::string(kPhone)), ValueText::Of(BT_PROFILE_HFP),
                                           ValueText::Of(BT_CONN_DISCONNECTED)}));
}

}  // namespace
}  // namespace conformance
