// A request and the event that ends it, with the service in memory.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <btasync/Outcome.h>
#include <btasync/testing/FakeService.h>

#include "support/LogCapture.h"

namespace {

using namespace btasync;
using std::chrono::milliseconds;
using std::chrono::minutes;
using std::chrono::seconds;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

const Address kAda{"00:1A:7D:DA:71:13"};
const Address kBen{"00:1A:7D:DA:71:14"};

class OutcomeTest : public testing::Test {
 protected:
  template <typename Event>
  Call Note(Outcome<Event> outcome) {
    return std::move(outcome).Then(scope, [this](const Answer<Event>& answer) {
      ends.push_back(answer.Accepted() ? "accepted"
                     : answer.Refused()
                         ? "refused"
                         : std::string(ToText(answer.Why().reason)) + ": " + answer.Why().detail);
    });
  }
  template <typename Event>
  void Emit(Event event) {
    fake.Emit(std::move(event));
    fake.Settle();
  }
  std::vector<std::string> Ends() {
    fake.Settle();
    return std::exchange(ends, {});
  }

  FakeService fake;
  std::vector<std::string> ends;
  Scope scope;
};

TEST_F(OutcomeTest, IsTheEventAndComesAfterTheAnswer) {
  fake.WillAccept(&Service::SetPower)
      .Emits(PowerChanged{BT_POWER_TURNING_ON}, milliseconds(10))
      .Emits(PowerChanged{BT_POWER_ON}, seconds(2));
  PowerStatus status = BT_POWER_OFF;
  SwitchPower(fake, true).Then(scope, [&](const Answer<PowerChanged>& power) { status = power->status; });
  fake.Advance(milliseconds(1999));
  EXPECT_EQ(status, BT_POWER_OFF);
  EXPECT_TRUE(fake.IsAwaited<PowerChanged>());
  fake.Advance(milliseconds(1));
  EXPECT_EQ(status, BT_POWER_ON);
  EXPECT_FALSE(fake.IsAwaited<PowerChanged>());
  EXPECT_TRUE(scope.IsEmpty());
  EXPECT_THAT(fake.Requests(), ElementsAre("SetPower(byte 0x01,)"));
}

TEST_F(OutcomeTest, MayComeBeforeTheAnswer) {
  fake.WillAccept(&Service::SetPower).Emits(PowerChanged{BT_POWER_OFF}).After(seconds(1));
  Note(SwitchPower(fake, false));
  EXPECT_THAT(Ends(), IsEmpty()) << "whether the service accepts is not known yet";
  fake.Advance(seconds(1));
  EXPECT_THAT(Ends(), ElementsAre("accepted"));
}

TEST_F(OutcomeTest, IsRefusedThoughTheEventOfAnotherCameBefore) {
  fake.WillRefuse(&Service::SetPower).Emits(PowerChanged{BT_POWER_ON});
  Note(SwitchPower(fake, true));
  EXPECT_THAT(Ends(), ElementsAre("refused"));
}

TEST_F(OutcomeTest, StandsThoughTheAnswerNeverComes) {
  fake.WillHang(&Service::SetPower).Emits(PowerChanged{BT_POWER_ON});
  Note(SwitchPower(fake, true));
  fake.Advance(seconds(24));
  EXPECT_THAT(Ends(), IsEmpty());
  fake.Advance(seconds(1));
  EXPECT_THAT(Ends(), ElementsAre("accepted"));
}

TEST_F(OutcomeTest, IsRefusedByTheServiceOrByAnEventOfFailure) {
  fake.WillRefuse(&Service::Pair).Once();
  fake.WillAccept(&Service::Pair);
  Note(PairDevice(fake, kAda));
  EXPECT_THAT(Ends(), ElementsAre("refused"));
  Note(PairDevice(fake, kAda));
  Emit(PairChanged{BT_PAIR_PAIRING, BT_PAIR_REASON_NONE, kAda});
  EXPECT_THAT(Ends(), IsEmpty());
  Emit(PairChanged{BT_PAIR_FAILED, BT_PAIR_REASON_REJECTED_REMOTE, kAda});
  EXPECT_THAT(Ends(), ElementsAre("refused"));
}

TEST_F(OutcomeTest, HasTheEventOfAFailureWithItsReason) {
  fake.WillAccept(&Service::Pair);
  std::optional<Answer<PairChanged>> paired;
  const auto pair = [&] {
    PairDevice(fake, kAda).Then(scope, [&](const Answer<PairChanged>& answer) { paired.emplace(answer); });
    fake.Settle();
  };
  pair();
  Emit(PairChanged{BT_PAIR_PAIRING, BT_PAIR_REASON_NONE, kAda});
  Emit(PairChanged{BT_PAIR_FAILED, BT_PAIR_REASON_AUTHENTICATION, kAda});
  ASSERT_TRUE(paired && paired->Refused());
  EXPECT_FALSE(paired->Accepted() || paired->Failed() || *paired);
  ASSERT_NE(paired->RefusedBy(), nullptr);
  EXPECT_EQ(paired->RefusedBy()->reason, BT_PAIR_REASON_AUTHENTICATION);
  EXPECT_EQ(paired->ValueOr(PairChanged{BT_PAIR_PAIRED, BT_PAIR_REASON_NONE, kBen}).address, kBen)
      << "the event is no value";

  pair();
  Emit(PairChanged{BT_PAIR_PAIRED, BT_PAIR_REASON_NONE, kAda});
  ASSERT_TRUE(paired->Accepted());
  EXPECT_EQ(paired->RefusedBy(), nullptr);

  fake.WillHang(&Service::Pair);
  pair();
  Emit(PairChanged{BT_PAIR_FAILED, BT_PAIR_REASON_TIMEOUT, kAda});
  fake.AnswerNow(&Service::Pair, Refusal());
  fake.Settle();
  ASSERT_TRUE(paired->Refused());
  EXPECT_EQ(paired->RefusedBy(), nullptr) << "the event was about a pairing of somebody else";
}

TEST_F(OutcomeTest, OfTwoProfilesHasTheEventOfTheOneThatFailed) {
  fake.WillAccept(&Service::Connect);
  const auto connect = [&](const std::vector<std::pair<ProfileId, ConnStatus>>& events) {
    std::optional<Answer<ConnectionChanged>> connected;
    ConnectDevice(fake, kAda).Then(scope, [&](const Answer<ConnectionChanged>& answer) {
      connected.emplace(answer);
    });
    fake.Settle();
    for (const auto& [profile, status] : events) {
      Emit(ConnectionChanged{kAda, profile, status});
    }
    fake.Advance(seconds(1));
    const ConnectionChanged* const event = !connected              ? nullptr
                                           : connected->Accepted() ? &**connected
                                                                   : connected->RefusedBy();
    return event == nullptr ? "none" : std::to_string(event->profile) + " " + std::to_string(event->status);
  };
  const auto text = [](ProfileId profile, ConnStatus status) {
    return std::to_string(profile) + " " + std::to_string(status);
  };
  const ProfileId hfp = BT_PROFILE_HFP;
  const ProfileId a2dp = BT_PROFILE_A2DP;
  EXPECT_EQ(connect({{hfp, BT_CONN_FAILED}, {a2dp, BT_CONN_CONNECTED}}), text(hfp, BT_CONN_FAILED));
  EXPECT_EQ(connect({{hfp, BT_CONN_CONNECTED}, {a2dp, BT_CONN_LINK_LOST}}), text(a2dp, BT_CONN_LINK_LOST));
  EXPECT_EQ(connect({{hfp, BT_CONN_FAILED}, {a2dp, BT_CONN_DISCONNECTED}}), text(a2dp, BT_CONN_DISCONNECTED));
  EXPECT_EQ(connect({{hfp, BT_CONN_FAILED},
                     {hfp, BT_CONN_CONNECTING},
                     {a2dp, BT_CONN_FAILED},
                     {hfp, BT_CONN_CONNECTED}}),
            text(a2dp, BT_CONN_FAILED))
      << "the first profile has got over its failure";
  EXPECT_EQ(connect({{hfp, BT_CONN_CONNECTED}, {a2dp, BT_CONN_CONNECTED}}), text(a2dp, BT_CONN_CONNECTED));
}

TEST_F(OutcomeTest, IsMatchedByTheArguments) {
  fake.WillAccept(&Service::Pair);
  fake.WillAccept(&Service::SetContactFavorite);
  fake.WillAccept(&Service::StartPhoneBookDownload);
  Note(PairDevice(fake, kAda));
  Emit(PairChanged{BT_PAIR_PAIRED, BT_PAIR_REASON_NONE, kBen});
  EXPECT_THAT(Ends(), IsEmpty());
  Emit(PairChanged{BT_PAIR_PAIRED, BT_PAIR_REASON_NONE, Address("00:1a:7d:da:71:13")});
  EXPECT_THAT(Ends(), ElementsAre("accepted"));
  Note(MarkFavorite(fake, 7, true));
  Emit(FavoriteChanged{8, true});
  Emit(FavoriteChanged{7, false});
  EXPECT_THAT(Ends(), IsEmpty());
  Emit(FavoriteChanged{7, true});
  EXPECT_THAT(Ends(), ElementsAre("accepted"));
  Note(DownloadPhoneBook(fake, BT_PBAP_MISSED_HISTORY));
  Emit(DownloadChanged{BT_PBAP_COMPLETED, BT_PBAP_ALL});
  EXPECT_THAT(Ends(), IsEmpty());
  Emit(DownloadChanged{BT_PBAP_REFUSED, BT_PBAP_MISSED_HISTORY});
  EXPECT_THAT(Ends(), ElementsAre("refused"));
}

TEST_F(OutcomeTest, FailsLikeTheRequest) {
  fake.WillFail(&Service::SetPower, Reason::ServiceError, "tired");
  Note(SwitchPower(fake, true));
  EXPECT_THAT(Ends(), ElementsAre("service error: tired"));
  Note(PairDevice(fake, Address("Ada")));
  EXPECT_THAT(Ends(), ElementsAre(StartsWith("invalid argument: Pair: ")));
  fake.SetAvailability(Availability::Absent);
  fake.Settle();
  Note(SwitchPower(fake, true));
  EXPECT_THAT(Ends(), ElementsAre(StartsWith("no service")));
}

TEST_F(OutcomeTest, HasADeadlineForBothTogether) {
  fake.WillAccept(&Service::SetPower).After(seconds(3));
  Note(SwitchPower(fake, true).Within(seconds(5)));
  fake.Advance(milliseconds(4999));
  EXPECT_THAT(Ends(), IsEmpty());
  fake.Advance(milliseconds(1));
  EXPECT_THAT(Ends(), ElementsAre("timed out: SetPower: OnOpenBtStatusChanged did not come in time"));
  fake.WillHang(&Service::SetPower);
  Note(SwitchPower(fake, true).Within(seconds(5)));
  fake.Advance(seconds(5));
  EXPECT_THAT(Ends(), ElementsAre(StartsWith("timed out")));
}

TEST_F(OutcomeTest, HasADeadlineOfItsOwnWhereAPersonAnswers) {
  fake.WillAccept(&Service::SetPower);
  fake.WillAccept(&Service::Pair);
  fake.WillAccept(&Service::Connect);
  fake.WillAccept(&Service::StartPhoneBookDownload);
  Note(SwitchPower(fake, true));
  Note(PairDevice(fake, kAda));
  Note(ConnectDevice(fake, kAda));
  Note(DownloadPhoneBook(fake));
  fake.Advance(milliseconds(24999));
  EXPECT_THAT(Ends(), IsEmpty());
  fake.Advance(milliseconds(1));
  EXPECT_THAT(Ends(), ElementsAre(StartsWith("timed out: SetPower")));
  fake.Advance(milliseconds(34999));
  EXPECT_THAT(Ends(), IsEmpty());
  fake.Advance(milliseconds(1));
  EXPECT_THAT(Ends(), ElementsAre(StartsWith("timed out: Pair"), StartsWith("timed out: Connect")));
  fake.Advance(minutes(9) - milliseconds(1));
  EXPECT_THAT(Ends(), IsEmpty());
  fake.Advance(milliseconds(1));
  EXPECT_THAT(Ends(), ElementsAre(StartsWith("timed out: StartPhoneBookDownload")));
}

TEST_F(OutcomeTest, FailsIfTheServiceOrTheBusGoesInBetween) {
  fake.WillAccept(&Service::Pair);
  for (const auto& [gone, reason] : {std::pair(Availability::Absent, "service gone: Pair"),
                                     std::pair(Availability::NoBus, "no bus: Pair")}) {
    Note(PairDevice(fake, kAda));
    EXPECT_THAT(Ends(), IsEmpty());
    fake.SetAvailability(gone);
    EXPECT_THAT(Ends(), ElementsAre(StartsWith(reason)));
    fake.SetAvailability(Availability::Present);
    fake.Settle();
    EXPECT_FALSE(fake.IsAwaited<PairChanged>());
    EXPECT_FALSE(fake.IsAwaited<Availability>());
  }
  fake.WillHang(&Service::Pair);
  Note(PairDevice(fake, kAda));
  fake.Settle();
  fake.SetAvailability(Availability::Absent);
  EXPECT_THAT(Ends(), ElementsAre(StartsWith("service gone: Pair(")));
}

TEST_F(OutcomeTest, OfTwoProfilesEndsOnceBothHaveEnded) {
  fake.WillAccept(&Service::Connect);
  Note(ConnectDevice(fake, kAda));
  Emit(ConnectionChanged{kAda, BT_PROFILE_HFP, BT_CONN_CONNECTING});
  Emit(ConnectionChanged{kAda, BT_PROFILE_HFP, BT_CONN_CONNECTED});
  Emit(ConnectionChanged{kAda, BT_PROFILE_PBAP, BT_CONN_CONNECTED});
  Emit(ConnectionChanged{kBen, BT_PROFILE_A2DP, BT_CONN_CONNECTED});
  EXPECT_THAT(Ends(), IsEmpty());
  Emit(ConnectionChanged{kAda, BT_PROFILE_A2DP, BT_CONN_CONNECTING});
  fake.Advance(seconds(20));
  EXPECT_THAT(Ends(), IsEmpty()) << "the second has begun";
  Emit(ConnectionChanged{kAda, BT_PROFILE_A2DP, BT_CONN_CONNECTED});
  EXPECT_THAT(Ends(), ElementsAre("accepted"));
}

TEST_F(OutcomeTest, OfTwoProfilesIsRefusedIfOneFails) {
  fake.WillAccept(&Service::Connect);
  Note(ConnectDevice(fake, kAda));
  Emit(ConnectionChanged{kAda, BT_PROFILE_HFP, BT_CONN_FAILED});
  EXPECT_THAT(Ends(), IsEmpty());
  Emit(ConnectionChanged{kAda, BT_PROFILE_A2DP, BT_CONN_CONNECTED});
  EXPECT_THAT(Ends(), ElementsAre("refused"));
}

TEST_F(OutcomeTest, OfTwoProfilesIsThatOfTheOneThatTheDeviceHas) {
  fake.WillAccept(&Service::Connect);
  Note(ConnectDevice(fake, kAda));
  Emit(ConnectionChanged{kAda, BT_PROFILE_HFP, BT_CONN_CONNECTED});
  fake.Advance(milliseconds(999));
  EXPECT_THAT(Ends(), IsEmpty());
  fake.Advance(milliseconds(1));
  EXPECT_THAT(Ends(), ElementsAre("accepted"));
}

TEST_F(OutcomeTest, OfOneProfileIsThatOfThisOne) {
  fake.WillAccept(&Service::Connect);
  Note(ConnectDevice(fake, kAda, BT_PROFILE_SPP));
  Emit(ConnectionChanged{kAda, BT_PROFILE_HFP, BT_CONN_CONNECTED});
  EXPECT_THAT(Ends(), IsEmpty());
  Emit(ConnectionChanged{kAda, BT_PROFILE_SPP, BT_CONN_CONNECTED});
  EXPECT_THAT(Ends(), ElementsAre("accepted"));
}

TEST_F(OutcomeTest, EndsOnceWhateverComesAfter) {
  fake.WillAccept(&Service::Pair);
  Note(PairDevice(fake, kAda));
  fake.Settle();
  fake.Emit(PairChanged{BT_PAIR_PAIRED, BT_PAIR_REASON_NONE, kAda});
  fake.Emit(PairChanged{BT_PAIR_FAILED, BT_PAIR_REASON_NONE, kAda});
  fake.SetAvailability(Availability::Absent);
  fake.Advance(minutes(2));
  EXPECT_THAT(Ends(), ElementsAre("accepted"));
}

TEST_F(OutcomeTest, SubscribesAndSendsNothingBeforeItIsSent) {
  {
    const auto outcome = SwitchPower(fake, true);
    EXPECT_FALSE(fake.IsAwaited<PowerChanged>());
  }
  EXPECT_THAT(fake.Requests(), IsEmpty());
  fake.WillAccept(&Service::SetPower);
  SwitchPower(fake, true).Send();
  EXPECT_THAT(fake.Requests(), ElementsAre("SetPower(byte 0x01,)"));
  Emit(PowerChanged{BT_POWER_ON});
  EXPECT_FALSE(fake.IsAwaited<PowerChanged>());
}

TEST_F(OutcomeTest, GoesWithItsScope) {
  fake.WillAccept(&Service::Pair);
  for (const bool isAccepted : {false, true}) {
    auto local = std::make_unique<Scope>();
    PairDevice(fake, kAda).Then(*local, [&](const Answer<PairChanged>&) { ends.emplace_back("called"); });
    if (isAccepted) {
      fake.Settle();
    }
    EXPECT_TRUE(fake.IsAwaited<PairChanged>());
    local.reset();
    EXPECT_FALSE(fake.IsAwaited<PairChanged>());
    EXPECT_FALSE(fake.IsAwaited<Availability>());
    EXPECT_THAT(fake.UnansweredRequests(), IsEmpty());
  }
  Emit(PairChanged{BT_PAIR_PAIRED, BT_PAIR_REASON_NONE, kAda});
  EXPECT_THAT(Ends(), IsEmpty());
}

TEST_F(OutcomeTest, MayBeCancelled) {
  fake.WillAccept(&Service::Pair);
  Call call = Note(PairDevice(fake, kAda));
  fake.Settle();
  call.Cancel();
  EXPECT_THAT(Ends(), ElementsAre(StartsWith("cancelled")));
  EXPECT_FALSE(fake.IsAwaited<PairChanged>());
}

TEST_F(OutcomeTest, MayDestroyItsScopeAndTheServiceAtItsEnd) {
  auto doomedScope = std::make_unique<Scope>();
  auto doomed = std::make_unique<FakeService>();
  doomed->WillAccept(&Service::Pair);
  PairDevice(*doomed, kAda).Then(*doomedScope, [&](const Answer<PairChanged>&) {
    ends.emplace_back("ended");
    doomedScope.reset();
    doomed.reset();
  });
  PairDevice(*doomed, kBen).Then(*doomedScope, [&](const Answer<PairChanged>&) {
    ends.emplace_back("never");
  });
  doomed->Settle();
  doomed->Emit(PairChanged{BT_PAIR_PAIRED, BT_PAIR_REASON_NONE, kAda});
  doomed->Emit(PairChanged{BT_PAIR_PAIRED, BT_PAIR_REASON_NONE, kBen});
  doomed->Settle();
  EXPECT_THAT(ends, ElementsAre("ended"));
}

TEST_F(OutcomeTest, MayOutliveTheService) {
  auto doomed = std::make_unique<FakeService>();
  doomed->WillAccept(&Service::Pair);
  Outcome<PairChanged> unsent = PairDevice(*doomed, kBen);
  Call call = Note(PairDevice(*doomed, kAda));
  doomed->Settle();
  doomed.reset();
  EXPECT_FALSE(call.IsUnderWay());
  EXPECT_TRUE(scope.IsEmpty());
  Note(std::move(unsent));
  EXPECT_TRUE(scope.IsEmpty());
  EXPECT_THAT(ends, IsEmpty());
}

TEST_F(OutcomeTest, MayBeginTheNextOneAtItsEnd) {
  fake.WillAccept(&Service::Pair).Emits(PairChanged{BT_PAIR_PAIRED, BT_PAIR_REASON_NONE, kAda}, seconds(3));
  fake.WillAccept(&Service::Connect)
      .Emits(ConnectionChanged{kAda, BT_PROFILE_HFP, BT_CONN_CONNECTED}, seconds(1))
      .Emits(ConnectionChanged{kAda, BT_PROFILE_A2DP, BT_CONN_CONNECTED}, seconds(1));
  PairDevice(fake, kAda).Then(scope, [&](const Answer<PairChanged>& paired) {
    if (paired) {
      Note(ConnectDevice(fake, kAda));
    }
  });
  fake.Advance(seconds(4));
  EXPECT_THAT(Ends(), ElementsAre("accepted"));
}

TEST_F(OutcomeTest, WhatJudgesMayDestroyEverything) {
  for (const bool destroysService : {false, true}) {
    auto doomed = std::make_unique<FakeService>();
    auto doomedScope = std::make_unique<Scope>();
    doomed->WillAccept(&Service::SwitchCalls);
    int judged = 0;
    Follow<CallsChanged>(*doomed, doomed->SwitchCalls(BT_CALL_RELEASE_HELD),
                         [&, text = std::string("what the condition has captured")](const CallsChanged&) {
                           ++judged;
                           destroysService ? doomed.reset() : doomedScope.reset();
                           EXPECT_EQ(text, "what the condition has captured");
                           return Verdict::Reached;
                         })
        .Then(*doomedScope, [](const Answer<CallsChanged>&) { ADD_FAILURE(); });
    FakeService& service = *doomed;
    service.Settle();
    service.Emit(CallsChanged{0});
    service.Emit(CallsChanged{1});
    service.Settle();  // it may be gone after that
    EXPECT_EQ(judged, 1);
  }
}

TEST_F(OutcomeTest, AnExceptionOfWhatJudgesIsLoggedAndTheEventDoesNotCount) {
  fake.WillAccept(&Service::SwitchCalls);
  bttest::LogCapture log;
  Note(Follow<CallsChanged>(fake, fake.SwitchCalls(BT_CALL_RELEASE_HELD), [](const CallsChanged& event) {
    if (event.callCount == 0) {
      throw std::runtime_error("a fault of the application");
    }
    return Verdict::Reached;
  }));
  Emit(CallsChanged{0});
  EXPECT_THAT(Ends(), IsEmpty());
  EXPECT_THAT(log.Complaints(), ElementsAre(HasSubstr("a fault of the application")));
  Emit(CallsChanged{1});
  EXPECT_THAT(Ends(), ElementsAre("accepted"));
}

TEST_F(OutcomeTest, MayBeOfOnesOwn) {
  fake.WillAccept(&Service::SwitchCalls);
  const auto swap = [&] {
    return Follow<CallActionChanged>(fake, fake.SwitchCalls(BT_CALL_RELEASE_HELD),
                                     [](const CallActionChanged& event) {
                                       return event.action != BT_CALL_RELEASE_HELD ? Verdict::NotYet
                                              : event.possible                     ? Verdict::Missed
                                                                                   : Verdict::Reached;
                                     });
  };
  Note(swap());
  Emit(CallActionChanged{BT_CALL_RELEASE_ACTIVE, true});
  EXPECT_THAT(Ends(), IsEmpty());
  Emit(CallActionChanged{BT_CALL_RELEASE_HELD, false});
  EXPECT_THAT(Ends(), ElementsAre("accepted"));
  bool isThere = false;
  swap().Then(scope, [&](const Answer<CallActionChanged>& answer) {
    isThere = answer.RefusedBy() != nullptr && answer.RefusedBy()->possible;
  });
  fake.Settle();
  Emit(CallActionChanged{BT_CALL_RELEASE_HELD, true});
  EXPECT_TRUE(isThere) << "it has the event of its failure";
}

}  // namespace
