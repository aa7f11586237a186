// Every reason for which there is no answer, with an order, with a question, and with a list.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/async/AsyncFixture.h"

namespace {

using namespace btasync;
using namespace std::chrono_literals;
using bttest::WaitFor;
using testing::HasSubstr;
using testing::IsEmpty;

enum class Kind { ORDER, QUESTION, LIST };

/// Waits for one failure, of each kind of request.
class FailuresTest : public testing::TestWithParam<Kind> {
 protected:
  FailuresTest() { recorder.SetReply("GetContactList", g_variant_new("(b)", TRUE)); }

  const char* Method() const {
    switch (GetParam()) {
      case Kind::ORDER:
        return "SetPower";
      case Kind::QUESTION:
        return "GetPowerStatus";
      default:
        return "GetContactList";
    }
  }

  /// Makes the request. What it fails with is then in m_failure.
  Call Ask(std::optional<std::chrono::milliseconds> deadline = std::nullopt) {
    switch (GetParam()) {
      case Kind::ORDER:
        return Ask(service.SetPower(true), deadline);
      case Kind::QUESTION:
        return Ask(service.GetPowerStatus(), deadline);
      default:
        return Ask(service.Contacts(), deadline);
    }
  }
  template <typename T>
  Call Ask(Request<T> request, std::optional<std::chrono::milliseconds> deadline = std::nullopt) {
    Request<T> bounded = deadline ? std::move(request).Within(*deadline) : std::move(request);
    return std::move(bounded).Then(m_scope, [this](Answer<T> answer) {
      ++m_completions;
      if (answer.Failed()) {
        m_failure = answer.Why();
        m_availabilityThen = service.Now();
      }
    });
  }

  /// Runs the loop until the service has got the request.
  bool Arrives() {
    return bttest::RunUntil([this] { return recorder.WaitForCalls(1, {}); });
  }

  /// What the request has failed with.
  Failure Wait() {
    if (!bttest::RunUntil([this] { return m_completions > 0; })) {
      throw std::runtime_error("a request was not answered");
    }
    bttest::RunPending();
    EXPECT_EQ(m_completions, 1);
    EXPECT_TRUE(m_scope.IsEmpty());
    return m_failure.value();
  }

  bttest::BusDaemon bus;
  bttest::Recorder recorder;
  Service service;
  Scope m_scope;
  int m_completions = 0;
  std::optional<Failure> m_failure;
  Availability m_availabilityThen = Availability::Unknown;  ///< when it failed
};

INSTANTIATE_TEST_SUITE_P(Requests, FailuresTest, testing::Values(Kind::ORDER, Kind::QUESTION, Kind::LIST),
                         [](const auto& test) {
                           return test.param == Kind::ORDER      ? "Order"
                                  : test.param == Kind::QUESTION ? "Question"
                                                                 : "List";
                         });

TEST_P(FailuresTest, NoBusIfItIsLostBefore) {
  ASSERT_TRUE(WaitFor(service, Availability::Present));
  bus.Stop();
  ASSERT_TRUE(WaitFor(service, Availability::NoBus));
  Ask();
  EXPECT_EQ(Wait().reason, Reason::NoBus);
}

TEST_P(FailuresTest, NoBusIfItIsLostMeanwhile) {
  recorder.Hang(Method());
  ASSERT_TRUE(WaitFor(service, Availability::Present));
  Ask();
  ASSERT_TRUE(Arrives());
  bus.Stop();
  EXPECT_EQ(Wait().reason, Reason::NoBus);
  EXPECT_EQ(m_availabilityThen, Availability::NoBus);
}

TEST_P(FailuresTest, NoServiceIfNobodyHasItsName) {
  recorder.ReleaseName();
  Ask();
  EXPECT_EQ(Wait().reason, Reason::NoService);
}

TEST_P(FailuresTest, ServiceGoneIfItEndsBeforeItAnswersAndThatIsKnownFirst) {
  ASSERT_TRUE(WaitFor(service, Availability::Present));
  recorder.DieOn(Method());
  Ask();
  EXPECT_EQ(Wait().reason, Reason::ServiceGone);
  EXPECT_EQ(m_availabilityThen, Availability::Absent);
}

TEST_P(FailuresTest, TimedOutIfItDoesNotAnswer) {
  recorder.Hang(Method());
  Ask(50ms);
  EXPECT_EQ(Wait().reason, Reason::TimedOut);
}

TEST_P(FailuresTest, TimedOutByTheDeadlineOfTheService) {
  recorder.Hang(Method());
  service.SetDeadline(50ms);
  Ask();
  EXPECT_EQ(Wait().reason, Reason::TimedOut);
}

TEST_P(FailuresTest, TimedOutAtOnceByADeadlineOfNothing) {
  ASSERT_TRUE(WaitFor(service, Availability::Present));
  recorder.Hang(Method());
  for (const auto deadline : {0ms, -5ms}) {
    m_completions = 0;
    Ask(deadline);
    EXPECT_EQ(Wait().reason, Reason::TimedOut);
  }
}

TEST_P(FailuresTest, NotAtAllByADeadlineBeyondAllTimes) {
  for (const auto deadline : {std::chrono::milliseconds::max(), 1000000000000ms}) {
    m_completions = 0;
    Ask(deadline);
    ASSERT_TRUE(bttest::RunUntil([this] { return m_completions > 0; }));
    // Nobody has published a list.
    EXPECT_EQ(m_failure.has_value(), GetParam() == Kind::LIST);
    EXPECT_TRUE(!m_failure || m_failure->reason == Reason::Malformed);
  }
}

TEST_P(FailuresTest, CancelledByItsHandle) {
  recorder.Hang(Method());
  Call call = Ask();
  EXPECT_TRUE(call.IsUnderWay());
  call.Cancel();
  call.Cancel();
  EXPECT_EQ(m_completions, 0) << "never inside the call";
  EXPECT_EQ(Wait().reason, Reason::Cancelled);
  EXPECT_FALSE(call.IsUnderWay());
  call.Cancel();
  recorder.Release(Method());
  EXPECT_TRUE(bttest::Wait(service.GetCallStatus(1)).Accepted()) << "a request behind it";
  EXPECT_EQ(m_completions, 1);
}

TEST_P(FailuresTest, CancelledEvenIfTheAnswerIsThereAlready) {
  recorder.Hang(Method());
  Call call = Ask();
  ASSERT_TRUE(Arrives());
  bttest::RunPending();
  recorder.Release(Method());
  ASSERT_TRUE(bttest::WaitUntil([] { return g_main_context_pending(nullptr) != FALSE; }));
  call.Cancel();
  EXPECT_EQ(Wait().reason, Reason::Cancelled);
}

TEST_P(FailuresTest, ServiceErrorWithItsNameAndText) {
  recorder.FailNext(Method(), 1, "org.example.Tired", "not today");
  Ask();
  const Failure failure = Wait();
  EXPECT_EQ(failure.reason, Reason::ServiceError);
  EXPECT_EQ(failure.detail, "org.example.Tired: not today");
}

TEST_P(FailuresTest, MalformedIfTheAnswerHasOtherTypes) {
  recorder.ReplyWrongType(Method());
  Ask();
  const Failure failure = Wait();
  EXPECT_EQ(failure.reason, Reason::Malformed);
  EXPECT_THAT(failure.detail, HasSubstr(Method()));
}

TEST_P(FailuresTest, InvalidArgumentIfItCannotTravelAndNothingIsSent) {
  const std::string withNul("a\0b", 3);
  const std::vector<Text> texts{Text(nullptr), Text(withNul), Text("\xff")};
  for (const Text& text : texts) {
    m_completions = 0;
    if (GetParam() == Kind::ORDER) {
      Ask(service.DialCall(text));
    } else if (GetParam() == Kind::QUESTION) {
      Ask(service.GetPairedDevice(Address("not an address")));
    } else {
      Ask(service.CallLogs(static_cast<CallLogType>(256)));  // it is a byte
    }
    EXPECT_EQ(m_completions, 0) << "never inside the call";
    EXPECT_EQ(Wait().reason, Reason::InvalidArgument);
  }
  ASSERT_TRUE(WaitFor(service, Availability::Present));
  EXPECT_THAT(recorder.TakeCallTexts(), IsEmpty());
}

}  // namespace
