// How a mirror asks and hears, when its state is fresh, and its life.

#include <array>
#include <stdexcept>

#include "async/MirrorFixture.h"
#include "support/LogCapture.h"

namespace bttest {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

TEST_F(MirrorTest, KnowsEverythingOnceItHasAsked) {
  const auto mirror = Mirrored(kAllParts);
  EXPECT_THAT(told, IsEmpty()) << "never inside the call";
  EXPECT_FALSE(mirror->Now().adapter.fresh);
  fake.Settle();
  const State& now = mirror->Now();
  EXPECT_EQ(now.service, Availability::Present);
  EXPECT_TRUE(now.adapter.fresh);
  EXPECT_EQ(now.adapter.power, BT_POWER_ON);
  EXPECT_EQ(now.adapter.name, "Head Unit");
  EXPECT_EQ(now.adapter.address, Address("00:1b:dc:00:00:01"));
  EXPECT_TRUE(now.adapter.discoverable);
  EXPECT_FALSE(now.adapter.scanning);
  EXPECT_TRUE(now.found.fresh);
  ASSERT_THAT(now.paired.devices, SizeIs(1));
  EXPECT_TRUE(now.paired.fresh);
  EXPECT_EQ(now.paired.devices[0].name, "Ada's phone");
  EXPECT_TRUE(now.pairing.fresh);
  ASSERT_THAT(now.calls.calls, SizeIs(1));
  EXPECT_TRUE(now.calls.fresh);
  EXPECT_EQ(now.calls.calls[0].callId, 1);
  EXPECT_EQ(now.calls.calls[0].status, BT_CALL_ACTIVE);
  EXPECT_TRUE(now.calls.calls[0].incoming);
  EXPECT_EQ(now.calls.calls[0].seconds, 7);
  EXPECT_EQ(now.calls.calls[0].number, "+49170");
  EXPECT_EQ(now.calls.calls[0].name, "Ben");
  EXPECT_TRUE(now.audio.fresh);
  EXPECT_TRUE(now.audio.onPhone);
  EXPECT_TRUE(now.network.fresh);
  EXPECT_EQ(now.network.phone.address, kPhone);
  EXPECT_TRUE(now.music.fresh);
  EXPECT_EQ(now.music.status, BT_MUSIC_PLAYING);
  EXPECT_EQ(now.music.track.title, "Low Tide");
  EXPECT_TRUE(now.modes.fresh);
  EXPECT_THAT(now.modes.current, SizeIs(1));
  EXPECT_THAT(now.modes.possible, SizeIs(2));
  EXPECT_TRUE(now.position.fresh);
  EXPECT_EQ(now.position.position.length, 167000);
  EXPECT_TRUE(now.contacts.fresh);
  EXPECT_THAT(now.contacts.contacts, SizeIs(2));
  EXPECT_TRUE(now.favorites.fresh);
  EXPECT_THAT(now.favorites.contacts, SizeIs(1));
  EXPECT_TRUE(now.logs.fresh);
  EXPECT_THAT(now.logs.logs, SizeIs(3));
  EXPECT_TRUE(now.download.fresh);
  EXPECT_TRUE(now.messages.fresh);
  EXPECT_THAT(fake.Requests(), Contains("GetBluetoothServiceStatus()").Times(1));
}

TEST_F(MirrorTest, WantsFurtherPartsLater) {
  const auto mirror = Settled(PART_SERVICE);
  EXPECT_FALSE(fake.IsAwaited<CallStatusChanged>());
  mirror->Want(PART_CALLS);
  mirror->Want(PART_NETWORK | PART_CALLS);
  mirror->Want(PART_MUSIC);
  EXPECT_TRUE(fake.IsAwaited<CallStatusChanged>());
  EXPECT_FALSE(mirror->Now().calls.fresh);
  fake.Settle();
  EXPECT_TRUE(mirror->Now().calls.fresh);
  EXPECT_TRUE(mirror->Now().network.fresh);
  EXPECT_TRUE(mirror->Now().music.fresh);
  EXPECT_THAT(fake.Requests(), Contains("CurrentCalls()").Times(1));
  EXPECT_THAT(fake.Requests(), Contains("GetBluetoothServiceStatus()").Times(1)) << "every client hears it";
  fake.ForgetRequests();
  mirror->Want(PART_CALLS | PART_MUSIC);
  fake.Settle();
  EXPECT_THAT(fake.Requests(), IsEmpty());
}

TEST_F(MirrorTest, HearsTheWholeReportOfAPartThatIsWantedDuringOne) {
  const auto mirror = Mirrored(PART_NETWORK);
  fake.WillHang(&Service::GetBluetoothServiceStatus).Once();
  fake.Settle();
  mirror->Want(PART_DOWNLOAD);
  fake.Settle();
  EXPECT_TRUE(mirror->Now().download.fresh);
  EXPECT_TRUE(mirror->Now().network.fresh);
  EXPECT_THAT(fake.Requests(), Contains("GetBluetoothServiceStatus()").Times(2));
}

TEST_F(MirrorTest, AsksAndSubscribesOnlyWhatIsWanted) {
  const auto mirror = Mirrored(PART_CALLS);
  fake.Settle();
  EXPECT_THAT(fake.Requests(),
              testing::UnorderedElementsAre("CurrentCalls()", "GetBluetoothServiceStatus()"));
  EXPECT_TRUE(fake.IsAwaited<CallStatusChanged>());
  EXPECT_FALSE(fake.IsAwaited<PositionChanged>());
  EXPECT_FALSE(fake.IsAwaited<MusicChanged>());
}

TEST_F(MirrorTest, AsksForNoReportThatNobodyNeeds) {
  const auto mirror = Mirrored(PART_MUSIC | PART_LOGS);
  fake.Settle();
  EXPECT_THAT(fake.Requests(), Not(Contains("GetBluetoothServiceStatus()")));
}

TEST_F(MirrorTest, TellsOnceATurnAllThatHasChanged) {
  const auto mirror = Settled(PART_ADAPTER | PART_NETWORK);
  fake.Emit(PowerChanged{BT_POWER_TURNING_OFF});
  fake.Emit(SignalChanged{3});
  fake.Emit(BatteryChanged{4});
  fake.Settle();
  EXPECT_THAT(told, ElementsAre(PART_ADAPTER | PART_NETWORK));
  EXPECT_EQ(mirror->Now().adapter.power, BT_POWER_TURNING_OFF);
  EXPECT_EQ(mirror->Now().network.signal, 3);
  EXPECT_EQ(mirror->Now().network.battery, 4);
}

TEST_F(MirrorTest, AStatusThatIsKnownIsNoChange) {
  const auto mirror = Settled(kAllParts);
  fake.Emit(PowerChanged{BT_POWER_ON});
  fake.Emit(MusicChanged{BT_MUSIC_PLAYING});
  fake.Emit(CapabilityChanged{BT_CAP_ENABLE_SCAN, true});
  fake.Settle();
  EXPECT_THAT(told, IsEmpty());
}

TEST_F(MirrorTest, WhenTheServiceGoesCallsQuestionsAndProgressVanishAndTheRestIsNoLongerFresh) {
  const auto mirror = Settled(kAllParts);
  fake.Emit(ScanChanged{BT_SCAN_SCANNING});
  fake.Emit(PairRequested{kOther, "123456", false, BT_PAIR_REQUEST_CONFIRMATION});
  fake.Emit(CallActionChanged{BT_CALL_HOLD_ACTIVE, true});
  fake.Emit(DownloadChanged{BT_PBAP_DOWNLOADING, BT_PBAP_ALL});
  fake.Emit(DownloadProgress{5, 10});
  fake.Emit(MessageDownloadChanged{BT_MSG_LOAD_DOWNLOADING});
  fake.Emit(MessageDownloadProgress{1, 2});
  fake.Settle();
  ASSERT_TRUE(mirror->Now().pairing.question);
  ASSERT_EQ(mirror->Now().download.progress.current, 5);
  fake.SetAvailability(Availability::Absent);
  fake.Settle();
  const State& now = mirror->Now();
  EXPECT_EQ(now.service, Availability::Absent);
  EXPECT_THAT(now.calls.calls, IsEmpty());
  EXPECT_EQ(now.calls.count, 0);
  EXPECT_THAT(now.calls.possible, IsEmpty());
  EXPECT_FALSE(now.pairing.question);
  EXPECT_FALSE(now.pairing.underWay);
  EXPECT_FALSE(now.adapter.scanning);
  EXPECT_EQ(now.download.status, BT_PBAP_IDLE);
  EXPECT_EQ(now.download.progress.total, 0);
  EXPECT_EQ(now.messages.status, BT_MSG_LOAD_IDLE);
  EXPECT_EQ(now.messages.progress.total, 0);
  EXPECT_EQ(now.adapter.name, "Head Unit");
  EXPECT_THAT(now.paired.devices, SizeIs(1));
  EXPECT_EQ(now.music.track.title, "Low Tide");
  EXPECT_THAT(now.contacts.contacts, SizeIs(2));
  const bool fresh[] = {now.adapter.fresh, now.found.fresh,    now.paired.fresh,   now.pairing.fresh,
                        now.calls.fresh,   now.audio.fresh,    now.network.fresh,  now.music.fresh,
                        now.modes.fresh,   now.position.fresh, now.contacts.fresh, now.favorites.fresh,
                        now.logs.fresh,    now.download.fresh, now.messages.fresh};
  EXPECT_THAT(fresh, Each(false));
}

TEST_F(MirrorTest, WhenTheServiceComesBackItAsksAgainByItself) {
  const auto mirror = Settled(kAllParts);
  fake.SetAvailability(Availability::Absent);
  fake.Settle();
  fake.WillAnswer(&Service::GetPowerStatus, BT_POWER_TURNING_ON);
  fake.WillAnswer(&Service::CurrentCalls, MWPTypeCallInfo());
  fake.SetAvailability(Availability::Present);
  fake.Settle();
  EXPECT_TRUE(mirror->Now().adapter.fresh);
  EXPECT_EQ(mirror->Now().adapter.power, BT_POWER_TURNING_ON);
  EXPECT_TRUE(mirror->Now().calls.fresh);
  EXPECT_THAT(mirror->Now().calls.calls, IsEmpty());
  EXPECT_THAT(fake.Requests(), Contains("GetBluetoothServiceStatus()").Times(1));
}

TEST_F(MirrorTest, APartIsFreshOnceAllOfItIsAnswered) {
  fake.WillHang(&Service::GetAttribute).With(BT_ATTR_LOCAL_NAME).Once();
  const auto mirror = Mirrored(PART_ADAPTER | PART_CALLS);
  fake.Settle();
  EXPECT_FALSE(mirror->Now().adapter.fresh);
  EXPECT_TRUE(mirror->Now().calls.fresh);
  fake.AnswerNow(&Service::GetAttribute, "Late Unit");
  fake.Settle();
  EXPECT_TRUE(mirror->Now().adapter.fresh);
  EXPECT_EQ(mirror->Now().adapter.name, "Late Unit");
}

TEST_F(MirrorTest, APartThatNeedsTheReportIsFreshOnceTheReportIsComplete) {
  fake.WillHang(&Service::GetBluetoothServiceStatus).Once();
  const auto mirror = Mirrored(PART_NETWORK | PART_MUSIC);
  fake.Settle();
  EXPECT_FALSE(mirror->Now().network.fresh);
  EXPECT_TRUE(mirror->Now().music.fresh);
  fake.Emit(OperatorChanged{"Nordnetz"});
  fake.AnswerNow(&Service::GetBluetoothServiceStatus, Accepted());
  fake.Settle();
  EXPECT_TRUE(mirror->Now().network.fresh);
  EXPECT_EQ(mirror->Now().network.operatorName, "Nordnetz");
}

TEST_F(MirrorTest, AQuestionThatFailsIsAskedAgain) {
  fake.WillFail(&Service::GetPowerStatus, Reason::ServiceError).Once();
  fake.WillFail(&Service::GetBluetoothServiceStatus, Reason::TimedOut).Once();
  const auto mirror = Mirrored(PART_ADAPTER);
  fake.Settle();
  EXPECT_FALSE(mirror->Now().adapter.fresh);
  fake.Advance(5s);
  EXPECT_TRUE(mirror->Now().adapter.fresh);
  EXPECT_EQ(mirror->Now().adapter.power, BT_POWER_ON);
}

TEST_F(MirrorTest, APartIsNotFreshWhileAQuestionThatAnEventCausedHasNoAnswer) {
  const auto mirror = Settled(PART_MUSIC);
  ASSERT_TRUE(mirror->Now().music.fresh);
  fake.WillFail(&Service::GetMediaInfo, Reason::TimedOut).Once();
  fake.Emit(TrackChanged());
  fake.Settle();
  EXPECT_FALSE(mirror->Now().music.fresh);
  EXPECT_EQ(mirror->Now().music.track.title, "Low Tide") << "greyed, but still drawn";
  EXPECT_THAT(told, ElementsAre(PART_MUSIC));
  fake.Advance(5s);
  EXPECT_TRUE(mirror->Now().music.fresh);
}

TEST_F(MirrorTest, NoPartIsFreshWhoseQuestionFailsWhenItIsAskedAgain) {
  const auto mirror = Settled(kAllParts);
  fake.WillFail(&Service::GetPowerStatus, Reason::ServiceError).Once();
  fake.WillFail(&Service::PairedDevices, Reason::Malformed).Once();
  fake.WillFail(&Service::CurrentCalls, Reason::Malformed).Once();
  fake.WillFail(&Service::GetAudioIsPrivacy, Reason::ServiceError).Once();
  fake.WillFail(&Service::GetPhoneConnectionState, Reason::ServiceError).Once();
  fake.WillFail(&Service::GetMusicPlayStatus, Reason::ServiceError).Once();
  fake.WillFail(&Service::GetSupportedPlayModes, Reason::ServiceError).Once();
  fake.WillFail(&Service::GetPlayPosition, Reason::ServiceError).Once();
  fake.WillFail(&Service::Contacts, Reason::Malformed).Once();
  fake.WillFail(&Service::FavoriteContacts, Reason::Malformed).Once();
  fake.WillFail(&Service::CallLogs, Reason::Malformed).Once();
  mirror->Refresh(kAllParts);
  fake.Settle();
  const auto freshParts = [&now = mirror->Now()] {
    return std::array{now.adapter.fresh,  now.paired.fresh,    now.calls.fresh, now.audio.fresh,
                      now.network.fresh,  now.music.fresh,     now.modes.fresh, now.position.fresh,
                      now.contacts.fresh, now.favorites.fresh, now.logs.fresh};
  };
  EXPECT_THAT(freshParts(), Each(false));
  EXPECT_THAT(mirror->Now().contacts.contacts, SizeIs(2));
  fake.Advance(5s);
  EXPECT_THAT(freshParts(), Each(true));
}

TEST_F(MirrorTest, APairedDeviceThatConnectsIsDrawnAlthoughTheListIsNotFresh) {
  const auto mirror = Settled(PART_PAIRED);
  fake.WillFail(&Service::PairedDevices, Reason::Malformed);
  fake.Emit(ConnectionChanged{kPhone, BT_PROFILE_HFP, BT_CONN_CONNECTING});
  fake.Settle();
  ASSERT_FALSE(mirror->Now().paired.fresh);
  fake.Emit(ConnectionChanged{kPhone, BT_PROFILE_HFP, BT_CONN_CONNECTED});
  fake.Settle();
  EXPECT_EQ(mirror->Now().paired.devices.at(0).StatusOf(BT_PROFILE_HFP), BT_CONN_CONNECTED);
}

TEST_F(MirrorTest, WhatIsRefusedIsEmpty) {
  fake.WillRefuse(&Service::GetMediaInfo);
  fake.WillRefuse(&Service::GetPlayPosition);
  const auto mirror = Mirrored(PART_MUSIC | PART_POSITION);
  fake.Settle();
  EXPECT_TRUE(mirror->Now().music.fresh);
  EXPECT_EQ(mirror->Now().music.track.title, "");
  EXPECT_TRUE(mirror->Now().position.fresh);
}

TEST_F(MirrorTest, EventsThatComeFasterThanAnswersAskOnceMore) {
  fake.WillAnswer(&Service::GetMediaInfo, MWPTypeMediaInfo()).After(100ms);
  const auto mirror = Mirrored(PART_MUSIC);
  fake.Advance(100ms);
  fake.ForgetRequests();
  for (int i = 0; i < 5; ++i) {
    fake.Emit(TrackChanged());
  }
  fake.Advance(1s);
  EXPECT_THAT(fake.Requests(), ElementsAre("GetMediaInfo()", "GetMediaInfo()"));
}

TEST_F(MirrorTest, MayBeDestroyedByWhatItCalls) {
  std::unique_ptr<Mirror> mirror;
  mirror = std::make_unique<Mirror>(fake, kAllParts, [&](const State&, unsigned) { mirror.reset(); });
  fake.Settle();
  EXPECT_EQ(mirror, nullptr);
}

TEST_F(MirrorTest, AnExceptionOfWhatItCallsIsLoggedAndItGoesOn) {
  LogCapture log;
  int calls = 0;
  Mirror mirror(fake, PART_ADAPTER, [&](const State&, unsigned) {
    ++calls;
    throw std::runtime_error("a fault of the application");
  });
  fake.Settle();
  const int before = calls;
  EXPECT_GE(before, 1);
  fake.Emit(PowerChanged{BT_POWER_OFF});
  EXPECT_NO_THROW(fake.Settle());
  EXPECT_EQ(calls, before + 1);
  EXPECT_EQ(mirror.Now().adapter.power, BT_POWER_OFF);
  EXPECT_THAT(log.Complaints(), AllOf(SizeIs(calls), Each(testing::HasSubstr("a fault of the application"))));
}

TEST_F(MirrorTest, TellsNothingOnceItIsGone) {
  auto mirror = Settled(kAllParts);
  fake.Emit(PowerChanged{BT_POWER_OFF});
  mirror.reset();
  fake.Settle();
  EXPECT_THAT(told, IsEmpty());
  EXPECT_FALSE(fake.IsAwaited<PowerChanged>());
}

TEST(MirrorLifeTest, MayOutliveTheService) {
  auto fake = std::make_unique<FakeService>();
  Mirror mirror(*fake, kAllParts, [](const State&, unsigned) {});
  fake->Settle();
  fake.reset();
  mirror.Refresh(kAllParts);
  EXPECT_EQ(mirror.Now().service, Availability::Present) << "the last that it knew";
}

TEST(MirrorLifeTest, WantsNothingOfAServiceThatHasGone) {
  auto fake = std::make_unique<FakeService>();
  Mirror mirror(*fake, PART_ADAPTER, [](const State&, unsigned) {});
  fake->Settle();
  fake.reset();
  mirror.Want(PART_CALLS | PART_MUSIC);
  EXPECT_FALSE(mirror.Now().calls.fresh);
}

}  // namespace
}  // namespace bttest
