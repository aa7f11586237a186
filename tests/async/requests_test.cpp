// Every request of libbtasync: what arrives at a service in another process, and what comes back. Driven by
// the interface description and by Service.h; RequestTable.h says how.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "contract/WireValues.h"
#include "tests/async/AsyncFixture.h"
#include "tests/async/RequestTable.h"

namespace {

using btasync::Availability;
using btasync::Reason;
using btasync::Service;
using bttest::BluetoothInterface;
using bttest::Outcome;
using bttest::RequestRow;
using bttest::RequestTable;
using bttest::ToText;
using testing::HasSubstr;
using testing::IsEmpty;

class AsyncRequests : public testing::Test {
 protected:
  AsyncRequests() { EXPECT_TRUE(bttest::WaitFor(service, Availability::Present)); }

  bttest::BusDaemon bus;
  bttest::Recorder recorder;
  Service service;
};

TEST_F(AsyncRequests, SendTheirArgumentsInTheInterfacesOrderAndTypes) {
  for (const RequestRow& row : RequestTable()) {
    SCOPED_TRACE("Service::" + row.member);
    for (int variety = 0; variety < bttest::kVarieties; ++variety) {
      row.ask(service, variety);
      const std::vector<bttest::RecordedCall> calls = recorder.TakeCalls();
      ASSERT_EQ(calls.size(), 1U);
      EXPECT_EQ(calls[0].method, row.method);
      EXPECT_EQ(ToText(calls[0].arguments.get()), ToText(row.arguments(variety).get()));
    }
  }
}

TEST_F(AsyncRequests, AnswerAcceptedRefusedOrTheValuesOfTheReply) {
  for (const RequestRow& row : RequestTable()) {
    SCOPED_TRACE("Service::" + row.member);
    const bttest::Arguments& out = BluetoothInterface().Method(row.method).out;
    for (int variety = 0; variety < bttest::kVarieties; ++variety) {
      const OwnedVariant reply = OwnedVariant(bttest::MakeTuple(out, variety));
      recorder.SetReply(row.method, reply.get());
      EXPECT_EQ(row.ask(service, 0), row.expected(reply.get())) << "of " << ToText(reply.get());
    }
  }
}

TEST_F(AsyncRequests, SayWhatErrorTheServiceAnswered) {
  for (const RequestRow& row : RequestTable()) {
    SCOPED_TRACE("Service::" + row.member);
    recorder.FailNext(row.method, 1, "org.example.Tired", "not today");
    const Outcome outcome = row.ask(service, 0);
    ASSERT_EQ(outcome.kind, Outcome::FAILED);
    EXPECT_EQ(outcome.failure.reason, Reason::ServiceError);
    EXPECT_EQ(outcome.failure.detail, "org.example.Tired: not today");
  }
}

TEST_F(AsyncRequests, AreMalformedIfTheReplyHasOtherTypes) {
  for (const RequestRow& row : RequestTable()) {
    SCOPED_TRACE("Service::" + row.member);
    recorder.ReplyWrongType(row.method);
    const Outcome outcome = row.ask(service, 0);
    ASSERT_EQ(outcome.kind, Outcome::FAILED);
    EXPECT_EQ(outcome.failure.reason, Reason::Malformed);
    EXPECT_THAT(outcome.failure.detail, HasSubstr(row.method));
    recorder.Reset();
  }
}

TEST_F(AsyncRequests, SendNothingOfArgumentsThatCannotTravel) {
  for (const RequestRow& row : RequestTable()) {
    for (const bttest::UnfitCall& call : row.unfit()) {
      SCOPED_TRACE("Service::" + row.member + ", " + call.what);
      const Outcome outcome = call.ask(service);  // by the loop: what waits for it throws otherwise
      ASSERT_EQ(outcome.kind, Outcome::FAILED);
      EXPECT_EQ(outcome.failure.reason, Reason::InvalidArgument);
      EXPECT_THAT(outcome.failure.detail, HasSubstr(row.method));
    }
  }
  EXPECT_EQ(service.Now(), Availability::Present);
  EXPECT_THAT(recorder.TakeCallTexts(), IsEmpty());
}

TEST_F(AsyncRequests, SendNothingOfACallLogThatIsNoByte) {
  const btasync::Answer<std::vector<MWPTypeCallLog>> answer =
      bttest::Wait(service.CallLogs(static_cast<CallLogType>(256)));
  ASSERT_TRUE(answer.Failed());
  EXPECT_EQ(answer.Why().reason, Reason::InvalidArgument);
  EXPECT_THAT(recorder.TakeCallTexts(), IsEmpty());
}

TEST_F(AsyncRequests, OfArgumentsThatCannotTravelFailAfterTheCallHasReturned) {
  bool answered = false;
  btasync::Scope scope;
  service.DialCall(nullptr).Then(scope, [&](const btasync::Answer<>& answer) { answered = answer.Failed(); });
  EXPECT_FALSE(answered);
  EXPECT_TRUE(bttest::RunUntil([&] { return answered; }));
}

/// Whether the reply says it, in a value that is no value of the answer.
bool CanBeRefused(const RequestRow& row) {
  const bttest::Arguments& out = BluetoothInterface().Method(row.method).out;
  const OwnedVariant ordinary = OwnedVariant(bttest::MakeTuple(out, 0));
  return row.expected(ordinary.get()).values.size() < out.size();
}

// What the tests above rely on: that the values which the table makes reach both ends of each decision.
TEST(AsyncRequestTable, RefusesAndAcceptsEachRequestThatCanBeRefused) {
  for (const RequestRow& row : RequestTable()) {
    SCOPED_TRACE("Service::" + row.member);
    const bttest::Arguments& out = BluetoothInterface().Method(row.method).out;
    int accepted = 0;
    for (int variety = 0; variety < bttest::kVarieties; ++variety) {
      const OwnedVariant reply = OwnedVariant(bttest::MakeTuple(out, variety));
      accepted += row.expected(reply.get()).kind == Outcome::ACCEPTED ? 1 : 0;
    }
    EXPECT_GE(accepted, 1);
    if (CanBeRefused(row)) {
      EXPECT_LT(accepted, bttest::kVarieties);
    }
  }
  EXPECT_FALSE(RequestTable().empty());
}

}  // namespace
