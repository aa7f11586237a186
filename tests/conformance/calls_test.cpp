// Calls: they come in and go out, wait, are held, end, and enter the log.

#include "tests/conformance/Car.h"

namespace conformance {
namespace {

constexpr const char* kNumber = "+49170000002";
constexpr const char* kOther = "+49170000003";

class CallsTest : public ConformanceTest {
 protected:
  MWPTypeCallInfo Table() {
    MWPTypeCallInfo info;
    car.calls.GetCurrentCallInfo(info);
    return info;
  }
  /// Waits until there are so many calls, the first in that state; its number.
  std::string Becomes(int count, CallStatus status) {
    EXPECT_TRUE(Eventually([&] {
      const MWPTypeCallInfo info = Table();
      return info.nCallCount == count && (count == 0 || info.callSlot1.nValue2 == status);
    })) << count
        << " calls, the first in state " << status;
    return Table().callSlot1.strText1;
  }
  /// Somebody calls, and is answered.
  void TakeCall(const char* number) {
    EXPECT_TRUE(phone.Do("Call", kPhone, number));
    EXPECT_EQ(Becomes(1, BT_CALL_INCOMING), number);
    EXPECT_NE(car.calls.AcceptCall(), 0);
    EXPECT_EQ(Becomes(1, BT_CALL_ACTIVE), number);
  }
  int Logged(CallLogType type) { return car.book.GetCallLogCount(type); }
};

TEST_F(CallsTest, OneComesInAndIsAcceptedAndTheOtherEndHangsUp) {
  CONFORMANCE_NEEDS("Call");
  CONFORMANCE_NEEDS("HangUp");
  ASSERT_NO_FATAL_FAILURE(car.ConnectPhone());
  const int logged = Logged(CALL_LOG_INCOMING);
  TakeCall(kNumber);
  EXPECT_TRUE(phone.Do("HangUp", g_variant_new("(si)", kPhone, 0)));
  Becomes(0, BT_CALL_IDLE);
  EXPECT_TRUE(Eventually([&] { return Logged(CALL_LOG_INCOMING) == logged + 1; }));
}

TEST_F(CallsTest, OneThatIsRefusedHereEnds) {
  CONFORMANCE_NEEDS("Call");
  ASSERT_NO_FATAL_FAILURE(car.ConnectPhone());
  EXPECT_TRUE(phone.Do("Call", kPhone, kNumber));
  Becomes(1, BT_CALL_INCOMING);
  EXPECT_NE(car.calls.RejectCall(), 0);
  Becomes(0, BT_CALL_IDLE);
}

TEST_F(CallsTest, OneGoesOutAndIsAnswered) {
  CONFORMANCE_NEEDS("SetCalledParty");
  CONFORMANCE_NEEDS("AnswerCall");
  ASSERT_NO_FATAL_FAILURE(car.ConnectPhone());
  EXPECT_TRUE(phone.Do("SetCalledParty", g_variant_new("(ssu)", kPhone, "no-answer", 0)));
  const int logged = Logged(CALL_LOG_OUTGOING);
  EXPECT_NE(car.calls.DialCall(kNumber), 0);
  EXPECT_TRUE(Eventually([&] { return phone.Do("AnswerCall", kPhone); }));
  EXPECT_EQ(Becomes(1, BT_CALL_ACTIVE), kNumber);
  EXPECT_NE(car.calls.TerminateCall(), 0);
  Becomes(0, BT_CALL_IDLE);
  EXPECT_TRUE(Eventually([&] { return Logged(CALL_LOG_OUTGOING) == logged + 1; }));
}

TEST_F(CallsTest, OneWaitsAndTheTwoAreSwapped) {
  CONFORMANCE_NEEDS("Call");
  ASSERT_NO_FATAL_FAILURE(car.ConnectPhone());
  TakeCall(kNumber);
  EXPECT_TRUE(phone.Do("Call", kPhone, kOther));
  Becomes(2, BT_CALL_ACTIVE);
  EXPECT_NE(car.calls.AcceptCall(), 0);
  EXPECT_TRUE(Eventually([&] { return Table().callSlot1.strText1 == kOther; }));
  EXPECT_EQ(Table().callSlot2.nValue2, BT_CALL_HELD);
  EXPECT_NE(car.calls.MultipleWayCall(BT_CALL_HOLD_ACTIVE, 0), 0);
  EXPECT_TRUE(Eventually([&] { return Table().callSlot1.strText1 == kNumber; }));
}

}  // namespace
}  // namespace conformance
