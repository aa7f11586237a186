// Pairing: both sides are asked, and either may refuse.

#include "tests/conformance/Car.h"

namespace conformance {
namespace {

using bttest::ValueText;

class PairingTest : public ConformanceTest {
 protected:
  void Ask() {
    car.com.SetPower(1);
    ASSERT_TRUE(Eventually([&] { return car.com.GetPowerStatus() == BT_POWER_ON; }));
    ASSERT_TRUE(Eventually([&] { return car.com.Pair(kNewPhone, "") != 0; }));
    ASSERT_TRUE(car.Hears("OnAnswerPairRequest", {kAddress}));
  }
  bool IsPaired() { return !car.com.GetRemotePairDeviceName(kNewPhone).empty(); }

  const std::string kAddress = ValueText::Of(std::string(kNewPhone));
  const std::string kFailed = ValueText::Of(BT_PAIR_FAILED);
};

TEST_F(PairingTest, BothAccept) {
  CONFORMANCE_NEEDS("AcceptPairing");
  ASSERT_NO_FATAL_FAILURE(Ask());
  EXPECT_TRUE(phone.Do("AcceptPairing", kNewPhone));
  EXPECT_NE(car.com.AnswerPair("", kNewPhone, car.AskedState()), 0);
  EXPECT_TRUE(car.Hears("OnPairStatusChanged",
                        {ValueText::Of(BT_PAIR_PAIRED), ValueText::Of(BT_PAIR_REASON_NONE), kAddress}));
  EXPECT_TRUE(Eventually([&] { return IsPaired(); }));
}

TEST_F(PairingTest, ThePersonAtThePhoneRefuses) {
  CONFORMANCE_NEEDS("RejectPairing");
  ASSERT_NO_FATAL_FAILURE(Ask());
  EXPECT_TRUE(phone.Do("RejectPairing", kNewPhone));
  // A stack may not know more than that the phone did not go on.
  EXPECT_TRUE(Eventually([&] {
    return car.HasHeard("OnPairStatusChanged", {kFailed, ValueText::Of(BT_PAIR_REASON_REJECTED_REMOTE)}) ||
           car.HasHeard("OnPairStatusChanged", {kFailed, ValueText::Of(BT_PAIR_REASON_AUTHENTICATION)});
  }));
  EXPECT_FALSE(IsPaired());
}

TEST_F(PairingTest, ThePhoneBegins) {
  CONFORMANCE_NEEDS("RequestPairing");
  CONFORMANCE_NEEDS("AcceptPairing");
  car.com.SetPower(1);
  ASSERT_TRUE(Eventually([&] { return car.com.GetPowerStatus() == BT_POWER_ON; }));
  EXPECT_NE(car.com.SetCapability(BT_CAP_ENABLE_SCAN, 1), 0);  // else it does not find the head unit
  ASSERT_TRUE(Eventually([&] { return phone.Do("RequestPairing", kNewPhone); }));
  ASSERT_TRUE(car.Hears("OnAnswerPairRequest", {kAddress}));
  EXPECT_TRUE(phone.Do("AcceptPairing", kNewPhone));
  EXPECT_NE(car.com.AnswerPair("", kNewPhone, car.AskedState()), 0);
  EXPECT_TRUE(Eventually([&] { return IsPaired(); }));
}

TEST_F(PairingTest, TheDriverRefuses) {
  ASSERT_NO_FATAL_FAILURE(Ask());
  EXPECT_NE(car.com.RejectPair(kNewPhone, car.AskedState()), 0);
  EXPECT_TRUE(car.Hears("OnPairStatusChanged", {kFailed}));
  EXPECT_FALSE(IsPaired());
}

TEST_F(PairingTest, AfterOneThatFailedThePhoneIsPaired) {
  ASSERT_NO_FATAL_FAILURE(car.ConnectPhone());
  EXPECT_NE(car.com.DeletePairDevice(kPhone, 1), 0);
  ASSERT_TRUE(Eventually([&] { return car.com.GetRemotePairDeviceName(kPhone).empty(); }));
  EXPECT_TRUE(Eventually([&] { return car.com.Pair("00:1A:7D:DA:71:FF", "") != 0; }));  // nobody is there
  ASSERT_NO_FATAL_FAILURE(car.ConnectPhone());
  EXPECT_TRUE(car.HasHeard("OnPairStatusChanged", {kFailed}));
  EXPECT_FALSE(car.com.GetRemotePairDeviceName(kPhone).empty());
}

}  // namespace
}  // namespace conformance
