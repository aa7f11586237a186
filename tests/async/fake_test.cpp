// The service in memory, for the tests of applications.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <btasync/testing/FakeService.h>

#include "support/LogCapture.h"

namespace {

using namespace btasync;
using std::chrono::milliseconds;
using std::chrono::seconds;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const Address kAda{"00:1A:7D:DA:71:13"};
const Address kBen{"00:1A:7D:DA:71:14"};

template <typename T>
std::string ToText(const Answer<T>& answer) {
  return answer.Accepted()  ? "accepted"
         : answer.Refused() ? "refused"
                            : std::string(ToText(answer.Why().reason)) + ": " + answer.Why().detail;
}

class FakeTest : public testing::Test {
 protected:
  /// Sends a request, and notes what it comes to.
  template <typename T>
  void Note(Request<T> request) {
    std::move(request).Then(scope, [this](const Answer<T>& answer) { seen.push_back(ToText(answer)); });
  }
  template <typename Event>
  void NoteEvent(const std::string& name) {
    fake.On<Event>(scope, [this, name](const Event&) { seen.push_back(name); });
  }
  std::vector<std::string> Seen() { return std::exchange(seen, {}); }

  FakeService fake;
  std::vector<std::string> seen;
  Scope scope;
};

TEST_F(FakeTest, AnswersByTheLoopAndNotInTheCall) {
  fake.WillAnswer(&Service::GetPowerStatus, BT_POWER_TURNING_ON);
  std::optional<PowerStatus> power;
  fake.GetPowerStatus().Then(scope, [&](Answer<PowerStatus> answer) { power = *answer; });
  EXPECT_FALSE(power.has_value());
  fake.Settle();
  EXPECT_EQ(power, BT_POWER_TURNING_ON);
}

TEST_F(FakeTest, AcceptsRefusesAndFails) {
  fake.WillAccept(&Service::SetPower);
  Note(fake.SetPower(true));
  fake.WillRefuse(&Service::Pair);
  Note(fake.Pair(kAda));
  fake.WillFail(&Service::DialCall, Reason::TimedOut, "too late");
  Note(fake.DialCall("110"));
  fake.Settle();
  EXPECT_THAT(seen, ElementsAre("accepted", "refused", "timed out: too late"));
}

TEST_F(FakeTest, AnswersEachKindOfValue) {
  fake.WillAnswer(&Service::GetAttribute, "Head Unit");
  fake.WillAnswer(&Service::GetPlayModes, {MWPTypePlayMode{}, MWPTypePlayMode{}});
  fake.WillAnswer(&Service::GetCallCount, 2U);
  fake.WillAnswer(&Service::GetConnectedDevice, kAda);
  fake.WillAnswer(&Service::GetPlayPosition, PlayPosition{1, 2});
  fake.WillAnswer(&Service::GetAudioIsPrivacy, true);
  int answers = 0;
  fake.GetAttribute(BT_ATTR_LOCAL_NAME).Then(scope, [&](const Answer<std::string>& name) {
    answers += *name == "Head Unit";
  });
  fake.GetPlayModes().Then(
      scope, [&](const Answer<std::vector<MWPTypePlayMode>>& modes) { answers += modes->size() == 2; });
  fake.GetCallCount().Then(scope, [&](const Answer<unsigned>& count) { answers += *count == 2; });
  fake.GetConnectedDevice(BT_PROFILE_HFP).Then(scope, [&](const Answer<Address>& address) {
    answers += *address == kAda;
  });
  fake.GetPlayPosition().Then(scope,
                              [&](const Answer<PlayPosition>& where) { answers += where->length == 2; });
  fake.GetAudioIsPrivacy().Then(scope, [&](const Answer<bool>& isPrivate) { answers += *isPrivate; });
  fake.Settle();
  EXPECT_EQ(answers, 6);
  static_assert(detail::kMayAnswer<std::string, const char*>);
  static_assert(!detail::kMayAnswer<bool, PowerStatus> && !detail::kMayAnswer<PowerStatus, int> &&
                    !detail::kMayAnswer<PowerStatus, ConnStatus> && !detail::kMayAnswer<unsigned, int>,
                "a number of another kind is no answer");
}

TEST_F(FakeTest, AnswersNothingThatNobodyHasSaid) {
  Note(fake.DialCall("110"));
  fake.Settle();
  EXPECT_THAT(seen, ElementsAre(AllOf(HasSubstr("service error"), HasSubstr("DialCall('110',)"),
                                      HasSubstr("was not given an answer"))));
}

TEST_F(FakeTest, KeepsWhatIsSaidOnceApartFromWhatHoldsAlways) {
  fake.WillRefuse(&Service::Pair);
  fake.WillAccept(&Service::Pair).Once();
  fake.WillFail(&Service::Pair, Reason::ServiceError, "busy").Once();
  for (int i = 0; i < 4; ++i) {
    Note(fake.Pair(kAda));
  }
  fake.Settle();
  EXPECT_THAT(Seen(), ElementsAre("accepted", "service error: busy", "refused", "refused"));
  fake.WillAccept(&Service::Pair);
  Note(fake.Pair(kAda));
  fake.Settle();
  EXPECT_THAT(seen, ElementsAre("accepted")) << "the last that was said holds";
}

TEST_F(FakeTest, TellsRequestsApartByTheirArguments) {
  fake.WillAccept(&Service::Pair);
  fake.WillRefuse(&Service::Pair).With(kAda, PinCode("0000"));
  Note(fake.Pair(kAda));
  Note(fake.Pair(kAda, PinCode("0000")));
  Note(fake.Pair(kBen, PinCode("0000")));
  fake.Settle();
  EXPECT_THAT(seen, ElementsAre("accepted", "refused", "accepted"));
  EXPECT_THROW(fake.WillAccept(&Service::Pair).With(Address("Ada"), PinCode()), std::logic_error);
}

TEST_F(FakeTest, AnswersAfterADelayUnlessTheDeadlineIsEarlier) {
  fake.WillAccept(&Service::DialCall).After(seconds(8));
  Note(fake.DialCall("110"));
  Note(fake.DialCall("112").Within(seconds(3)));
  fake.Advance(milliseconds(2999));
  EXPECT_THAT(seen, IsEmpty());
  fake.Advance(milliseconds(1));
  EXPECT_THAT(Seen(), ElementsAre(HasSubstr("timed out: DialCall('112',)")));
  fake.Advance(seconds(4));
  EXPECT_THAT(fake.UnansweredRequests(), ElementsAre("DialCall('110',)"));
  fake.Advance(seconds(1));
  EXPECT_THAT(seen, ElementsAre("accepted"));
  EXPECT_THAT(fake.UnansweredRequests(), IsEmpty());
}

TEST_F(FakeTest, HangsUntilTheDeadlineOrUntilTheTestAnswers) {
  fake.WillHang(&Service::GetPowerStatus);
  Note(fake.GetPowerStatus());
  Note(fake.GetPowerStatus());
  fake.Advance(seconds(10));
  EXPECT_THAT(seen, IsEmpty());
  fake.AnswerNow(&Service::GetPowerStatus, BT_POWER_ON);
  fake.Settle();
  EXPECT_THAT(Seen(), ElementsAre("accepted"));
  fake.Advance(seconds(15));
  EXPECT_THAT(seen, ElementsAre(HasSubstr("timed out")));
  EXPECT_THROW(fake.AnswerNow(&Service::GetPowerStatus, Refusal()), std::logic_error);
}

TEST_F(FakeTest, LetsAHandlerDecide) {
  fake.WillCall(&Service::DialCall, [&](const std::string& request) -> Answer<> {
    fake.Emit(CallStatusChanged{1, BT_CALL_DIALING, 1});
    return request == "DialCall('110',)" ? Answer<>(Accepted()) : Answer<>(Refusal());
  });
  NoteEvent<CallStatusChanged>("dialing");
  Note(fake.DialCall("110"));
  fake.Settle();
  EXPECT_THAT(Seen(), ElementsAre("dialing", "accepted"));
  Note(fake.DialCall("112"));
  fake.Settle();
  EXPECT_THAT(Seen(), ElementsAre("dialing", "refused"));
}

TEST_F(FakeTest, EmitsEventsBeforeAndAfterTheAnswer) {
  fake.WillAccept(&Service::SetPower)
      .Emits(PowerChanged{BT_POWER_TURNING_ON})
      .Emits(PowerChanged{BT_POWER_ON}, seconds(2));
  fake.On<PowerChanged>(scope,
                        [&](const PowerChanged& event) { seen.push_back(std::to_string(event.status)); });
  Note(fake.SetPower(true));
  fake.Settle();
  EXPECT_THAT(Seen(), ElementsAre(std::to_string(BT_POWER_TURNING_ON), "accepted"));
  fake.Advance(seconds(2));
  EXPECT_THAT(Seen(), ElementsAre(std::to_string(BT_POWER_ON)));
}

TEST_F(FakeTest, EmitsToThoseWhoHaveSubscribed) {
  EXPECT_FALSE(fake.IsAwaited<PowerChanged>());
  {
    Scope early;
    fake.On<PowerChanged>(early, [&](const PowerChanged&) { seen.push_back("early"); });
    EXPECT_TRUE(fake.IsAwaited<PowerChanged>());
    EXPECT_FALSE(fake.IsAwaited<ScanChanged>());
    fake.Emit(PowerChanged{BT_POWER_ON});
    EXPECT_THAT(seen, IsEmpty());
    fake.Settle();
    EXPECT_THAT(Seen(), ElementsAre("early"));
  }
  EXPECT_FALSE(fake.IsAwaited<PowerChanged>());
  fake.Emit(PowerChanged{BT_POWER_ON});
  fake.Settle();
  EXPECT_THAT(seen, IsEmpty());
}

TEST_F(FakeTest, RemembersWhatWasSent) {
  fake.SetPower(true).Send();
  fake.AnswerPair(kAda, BT_PAIR_REQUEST_CONFIRMATION, PinCode("1234")).Send();
  EXPECT_THAT(fake.Requests(),
              ElementsAre("SetPower(byte 0x01,)", HasSubstr("AnswerPair('1234', '00:1A:7D:DA:71:13',")));
  fake.ForgetRequests();
  (void)fake.GetPowerStatus();  // not sent
  Note(fake.Pair(Address("Ada")));
  fake.Settle();
  EXPECT_THAT(fake.Requests(), IsEmpty());
  EXPECT_THAT(seen, ElementsAre(HasSubstr("invalid argument")));
}

TEST_F(FakeTest, LosesTheServiceWithCallsUnderWay) {
  fake.OnAvailability(scope, [&](Availability now) { seen.push_back(ToText(now)); });
  fake.WillAccept(&Service::DialCall).After(seconds(1)).Emits(CallHungUp{}, seconds(2));
  NoteEvent<CallHungUp>("hung up");
  Note(fake.DialCall("110"));
  fake.Settle();
  EXPECT_THAT(Seen(), ElementsAre("present"));
  fake.SetAvailability(Availability::Absent);
  EXPECT_EQ(fake.Now(), Availability::Present);
  fake.Settle();
  EXPECT_THAT(Seen(), ElementsAre("absent", HasSubstr("service gone: DialCall('110',)")));
  Note(fake.DialCall("112"));
  fake.Emit(CallHungUp{});
  fake.Settle();
  EXPECT_THAT(Seen(), ElementsAre(HasSubstr("no service")));
  fake.SetAvailability(Availability::Present);
  fake.Advance(seconds(5));
  EXPECT_THAT(Seen(), ElementsAre("present"))
      << "what the first one was about to do is not done by the second";
}

TEST_F(FakeTest, LosesTheBus) {
  fake.WillHang(&Service::DialCall);
  Note(fake.DialCall("110"));
  fake.Settle();
  fake.SetAvailability(Availability::NoBus);
  fake.Settle();
  EXPECT_THAT(Seen(), ElementsAre(HasSubstr("no bus")));
  Note(fake.DialCall("110"));
  fake.Settle();
  EXPECT_THAT(Seen(), ElementsAre(HasSubstr("no bus")));
}

TEST_F(FakeTest, LetsRequestsWaitWhileNothingIsKnown) {
  FakeService unknown(Availability::Unknown);
  unknown.WillAccept(&Service::SetPower);
  unknown.WillRefuse(&Service::Pair);
  Note(unknown.SetPower(true).Within(seconds(1)));
  unknown.Advance(seconds(1));
  EXPECT_THAT(Seen(), ElementsAre(HasSubstr("timed out")));
  Note(unknown.SetPower(true));
  unknown.Settle();
  unknown.SetAvailability(Availability::Present);
  Note(unknown.Pair(kAda));
  unknown.Settle();
  EXPECT_THAT(Seen(), ElementsAre("accepted", "refused"));
  EXPECT_EQ(unknown.Requests().size(), 3U);
}

TEST_F(FakeTest, HangsAndGoesOn) {
  fake.WillAccept(&Service::SetPower).After(seconds(1));
  NoteEvent<PowerChanged>("power");
  Note(fake.SetPower(true));
  fake.Settle();
  fake.Hang();
  fake.Emit(PowerChanged{BT_POWER_ON});
  Note(fake.SetPower(false).Within(seconds(5)));
  Note(fake.SetPower(true));
  fake.Advance(seconds(5));
  EXPECT_THAT(Seen(), ElementsAre(HasSubstr("timed out")));
  fake.GoOn();
  fake.Settle();
  EXPECT_THAT(Seen(), ElementsAre("power", "accepted"));
  fake.Advance(seconds(1));
  EXPECT_THAT(Seen(), ElementsAre("accepted"));
}

TEST_F(FakeTest, RunsTimersByItsTime) {
  Timer late(fake);
  Timer early(fake);
  Timer stopped(fake);
  late.Start(seconds(3), [&] { seen.push_back("late"); });
  early.Start(seconds(1), [&] {
    seen.push_back("early");
    stopped.Stop();
    early.Start(milliseconds(500), [&] { seen.push_back("again"); });
  });
  stopped.Start(seconds(2), [&] { seen.push_back("never"); });
  fake.Advance(seconds(10));
  EXPECT_THAT(seen, ElementsAre("early", "again", "late"));
}

TEST_F(FakeTest, MayBeDestroyedInACallback) {
  auto doomed = std::make_unique<FakeService>();
  doomed->WillAccept(&Service::SetPower);
  doomed->SetPower(true).Then(scope, [&](const Answer<>&) {
    seen.push_back("first");
    doomed.reset();
  });
  Note(doomed->SetPower(false));
  doomed->Settle();
  EXPECT_THAT(seen, ElementsAre("first"));
  EXPECT_TRUE(scope.IsEmpty());
}

TEST_F(FakeTest, IsOutlivedByWhatItIsAsked) {
  auto doomed = std::make_unique<FakeService>();
  doomed->WillAccept(&Service::SetPower);
  Request<> request = doomed->SetPower(true);
  Timer timer(*doomed);
  timer.Start(seconds(1), [&] { seen.push_back("timer"); });
  Note(doomed->SetPower(true));
  doomed.reset();
  timer.Stop();
  std::move(request).Send();
  EXPECT_THAT(seen, IsEmpty());
}

TEST_F(FakeTest, RefusesMisuseInClearWords) {
  EXPECT_THROW(fake.Advance(milliseconds(-1)), std::logic_error);
  bttest::LogCapture log;
  fake.WillAccept(&Service::SetPower);
  fake.SetPower(true).Then(scope, [&](const Answer<>&) { fake.Settle(); });
  fake.Settle();
  EXPECT_THAT(log.Complaints(), ElementsAre(HasSubstr("Settle in a callback")));
  std::function<void()> again;
  Timer timer(fake);
  again = [&] { timer.Start(milliseconds(0), again); };
  again();
  try {
    fake.Settle();
    FAIL() << "it settles never";
  } catch (const std::logic_error& error) {
    EXPECT_THAT(error.what(), HasSubstr("without end"));
  }
}

}  // namespace
