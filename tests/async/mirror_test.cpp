// The state that a screen draws.

#include <memory>

#include <btasync/Mirror.h>
#include <btasync/testing/FakeService.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/LogCapture.h"

namespace {

using namespace btasync;
using namespace std::chrono_literals;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

const Address kPhone("00:1A:7D:DA:71:13");
const Address kOther("00:1A:7D:DA:71:14");
constexpr unsigned kAllParts = ~0U;

MWPTypeDevice PairedPhone() {
  MWPTypeDevice device;
  device.strAddr = kPhone.ToText();
  device.strName = "Ada's phone";
  device.eConnectStatus = BT_CONN_CONNECTED;
  return device;
}

MWPTypeCallInfo OneCall(CallStatus status = BT_CALL_ACTIVE) {
  MWPTypeCallInfo info;
  info.nCallCount = 1;
  info.callSlot1.nValue1 = 1;
  info.callSlot1.nValue2 = status;
  info.callSlot1.nValue3 = 1;
  info.callSlot1.nValue5 = 7;
  info.callSlot1.strText1 = "+49170";
  info.callSlot1.strText2 = "Ben";
  info.callSlot1.strText3 = kPhone.ToText();
  return info;
}

MWPTypeContact Contact(int id, const std::string& name) {
  MWPTypeContact contact;
  contact.nContactId = id;
  contact.strText1 = name;
  return contact;
}

class MirrorTest : public testing::Test {
 protected:
  MirrorTest() {
    fake.WillAccept(&Service::GetBluetoothServiceStatus);
    fake.WillAnswer(&Service::GetPowerStatus, BT_POWER_ON);
    fake.WillAnswer(&Service::GetAttribute, "Head Unit").With(BT_ATTR_LOCAL_NAME);
    fake.WillAnswer(&Service::GetAttribute, "00:1B:DC:00:00:01").With(BT_ATTR_LOCAL_ADDRESS);
    fake.WillAnswer(&Service::GetCapability, true);
    fake.WillAnswer(&Service::PairedDevices, std::vector<MWPTypeDevice>{PairedPhone()});
    fake.WillAnswer(&Service::CurrentCalls, OneCall());
    fake.WillAnswer(&Service::GetAudioIsPrivacy, true);
    fake.WillAnswer(&Service::GetPhoneConnectionState, ConnectionState{BT_CONN_CONNECTED, kPhone});
    fake.WillAnswer(&Service::GetMediaConnectionState, ConnectionState{BT_CONN_CONNECTED, kPhone});
    fake.WillAnswer(&Service::GetMusicPlayStatus, BT_MUSIC_PLAYING);
    MWPTypeMediaInfo track;
    track.title = "Low Tide";
    fake.WillAnswer(&Service::GetMediaInfo, track);
    fake.WillAnswer(&Service::GetPlayModes, std::vector<MWPTypePlayMode>{{2, 1}});
    fake.WillAnswer(&Service::GetSupportedPlayModes, std::vector<MWPTypePlayMode>{{2, 1}, {2, 2}});
    fake.WillAnswer(&Service::GetPlayPosition, PlayPosition{1000, 167000});
    fake.WillAccept(&Service::ReportPosition);
    fake.WillAnswer(&Service::Contacts, std::vector<MWPTypeContact>{Contact(1, "Ada"), Contact(2, "Ben")});
    fake.WillAnswer(&Service::FavoriteContacts, std::vector<MWPTypeContact>{Contact(2, "Ben")});
    fake.WillAnswer(&Service::CallLogs, std::vector<MWPTypeCallLog>(3));
  }

  /// A mirror whose calls are noted.
  std::unique_ptr<Mirror> Mirrored(unsigned parts) {
    return std::make_unique<Mirror>(fake, parts,
                                    [this](const State&, unsigned changed) { told.push_back(changed); });
  }
  /// One that has asked all it asks.
  std::unique_ptr<Mirror> Settled(unsigned parts) {
    auto mirror = Mirrored(parts);
    fake.Settle();
    told.clear();
    fake.ForgetRequests();
    return mirror;
  }

  FakeService fake;
  std::vector<unsigned> told;
};

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

TEST_F(MirrorTest, KeepsTheFoundDevicesOfASearch) {
  const auto mirror = Settled(PART_FOUND);
  fake.Emit(ScanChanged{BT_SCAN_SCANNING});
  fake.Emit(DeviceFound{kPhone, "", BT_SUPPORT_NONE});
  fake.Emit(DeviceFound{kOther, "Ben's phone", BT_SUPPORT_NONE});
  fake.Emit(DeviceFound{kPhone, "Ada's phone", BT_SUPPORT_ANDROID_AUTO});
  fake.Settle();
  ASSERT_THAT(mirror->Now().found.devices, SizeIs(2));
  EXPECT_EQ(mirror->Now().found.devices[0].name, "Ada's phone");
  EXPECT_EQ(mirror->Now().found.devices[1].address, kOther);
  fake.Emit(PairChanged{BT_PAIR_PAIRED, BT_PAIR_REASON_NONE, kPhone});
  fake.Settle();
  ASSERT_THAT(mirror->Now().found.devices, SizeIs(1));
  EXPECT_EQ(mirror->Now().found.devices[0].address, kOther);
  fake.Emit(ScanChanged{BT_SCAN_IDLE});
  fake.Settle();
  EXPECT_THAT(mirror->Now().found.devices, SizeIs(1));
  fake.Emit(ScanChanged{BT_SCAN_SCANNING});
  fake.Settle();
  EXPECT_THAT(mirror->Now().found.devices, IsEmpty());
}

TEST_F(MirrorTest, KeepsTheConnectionsPerProfile) {
  const auto mirror = Settled(PART_PAIRED);
  fake.Emit(ConnectionChanged{kPhone, BT_PROFILE_HFP, BT_CONN_CONNECTED});
  fake.Emit(ConnectionChanged{kPhone, BT_PROFILE_A2DP, BT_CONN_CONNECTING});
  fake.Emit(ConnectionChanged{kOther, BT_PROFILE_HFP, BT_CONN_CONNECTED});
  fake.Settle();
  const auto phone = [&] { return mirror->Now().paired.devices.at(0); };
  EXPECT_EQ(phone().StatusOf(BT_PROFILE_HFP), BT_CONN_CONNECTED);
  EXPECT_EQ(phone().StatusOf(BT_PROFILE_A2DP), BT_CONN_CONNECTING);
  EXPECT_EQ(phone().StatusOf(BT_PROFILE_PBAP), BT_CONN_DISCONNECTED);
  fake.Emit(ConnectionChanged{kPhone, BT_PROFILE_A2DP, BT_CONN_CONNECTED});
  fake.Settle();
  EXPECT_EQ(phone().StatusOf(BT_PROFILE_A2DP), BT_CONN_CONNECTED);
  // What the next service does not report is not connected.
  fake.SetAvailability(Availability::Absent);
  fake.Settle();
  EXPECT_EQ(phone().StatusOf(BT_PROFILE_HFP), BT_CONN_CONNECTED) << "greyed, but still drawn";
  fake.SetAvailability(Availability::Present);
  fake.Emit(ConnectionChanged{kPhone, BT_PROFILE_A2DP, BT_CONN_CONNECTED});
  fake.Settle();
  EXPECT_EQ(phone().StatusOf(BT_PROFILE_HFP), BT_CONN_DISCONNECTED);
  EXPECT_EQ(phone().StatusOf(BT_PROFILE_A2DP), BT_CONN_CONNECTED);
}

TEST_F(MirrorTest, AsksForThePairedListWhenItHasChanged) {
  const auto mirror = Settled(PART_PAIRED);
  fake.WillAnswer(&Service::PairedDevices, std::vector<MWPTypeDevice>());
  fake.Emit(PairedDevicesDeleted{true});
  fake.Settle();
  EXPECT_THAT(mirror->Now().paired.devices, IsEmpty());
  fake.WillAnswer(&Service::PairedDevices, std::vector<MWPTypeDevice>{PairedPhone()});
  fake.Emit(PairChanged{BT_PAIR_PAIRED, BT_PAIR_REASON_NONE, kPhone});
  fake.Settle();
  EXPECT_THAT(mirror->Now().paired.devices, SizeIs(1));
}

TEST_F(MirrorTest, RefreshAsksForWhatNoEventReports) {
  const auto mirror = Settled(PART_PAIRED | PART_MUSIC);
  mirror->Refresh(PART_PAIRED);
  fake.Settle();
  EXPECT_THAT(fake.Requests(), ElementsAre("PairedDevices()"));
}

TEST_F(MirrorTest, KeepsThePairingAndItsQuestion) {
  const auto mirror = Settled(PART_PAIRING);
  fake.Emit(PairChanged{BT_PAIR_PAIRING, BT_PAIR_REASON_NONE, kPhone});
  fake.Settle();
  EXPECT_EQ(mirror->Now().pairing.underWay, kPhone);
  EXPECT_FALSE(mirror->Now().pairing.question);
  fake.Emit(PairRequested{kPhone, "123456", false, BT_PAIR_REQUEST_CONFIRMATION});
  fake.Settle();
  ASSERT_TRUE(mirror->Now().pairing.question);
  EXPECT_EQ(mirror->Now().pairing.question->digits, "123456");
  fake.Emit(PairChanged{BT_PAIR_FAILED, BT_PAIR_REASON_BUSY, kOther});
  fake.Settle();
  EXPECT_TRUE(mirror->Now().pairing.question) << "another device's pairing";
  EXPECT_FALSE(mirror->Now().pairing.failed);
  fake.Emit(PairChanged{BT_PAIR_FAILED, BT_PAIR_REASON_TIMEOUT, kPhone});
  fake.Settle();
  EXPECT_FALSE(mirror->Now().pairing.question);
  EXPECT_FALSE(mirror->Now().pairing.underWay);
}

TEST_F(MirrorTest, KeepsWhyAPairingFailedUntilTheNextOneBeginsOrTheServiceGoes) {
  const auto mirror = Settled(PART_PAIRING);
  const auto& failed = mirror->Now().pairing.failed;
  const auto fail = [&] {
    fake.Emit(PairChanged{BT_PAIR_PAIRING, BT_PAIR_REASON_NONE, kPhone});
    fake.Emit(PairChanged{BT_PAIR_FAILED, BT_PAIR_REASON_REJECTED_REMOTE, kPhone});
    fake.Settle();
    ASSERT_TRUE(failed);
    EXPECT_EQ(failed->reason, BT_PAIR_REASON_REJECTED_REMOTE);
    EXPECT_EQ(failed->address, kPhone);
  };
  ASSERT_NO_FATAL_FAILURE(fail());
  fake.Emit(PairChanged{BT_PAIR_PAIRING, BT_PAIR_REASON_NONE, kOther});
  fake.Settle();
  EXPECT_FALSE(failed);
  fake.Emit(PairChanged{BT_PAIR_PAIRED, BT_PAIR_REASON_NONE, kOther});
  ASSERT_NO_FATAL_FAILURE(fail());
  fake.Emit(PairRequested{kOther, "123456", false, BT_PAIR_REQUEST_CONFIRMATION});
  fake.Settle();
  EXPECT_FALSE(failed) << "a device asks to be paired";
  fake.Emit(PairChanged{BT_PAIR_FAILED, BT_PAIR_REASON_TIMEOUT, kOther});
  ASSERT_NO_FATAL_FAILURE(fail());
  fake.Emit(PairChanged{BT_PAIR_PAIRED, BT_PAIR_REASON_NONE, kOther});
  fake.Settle();
  EXPECT_FALSE(failed) << "whose beginning was not seen";
  ASSERT_NO_FATAL_FAILURE(fail());
  fake.SetAvailability(Availability::Absent);
  fake.Settle();
  EXPECT_FALSE(failed);
}

TEST_F(MirrorTest, FollowsTheCalls) {
  const auto mirror = Settled(PART_CALLS);
  fake.Emit(CallTimeChanged{8, 1, true});
  fake.Settle();
  EXPECT_EQ(mirror->Now().calls.calls.at(0).seconds, 8);
  EXPECT_THAT(fake.Requests(), IsEmpty()) << "a tick needs no question";
  fake.Emit(CallActionChanged{BT_CALL_CONFERENCE, true});
  fake.Emit(CallActionChanged{BT_CALL_HOLD_ACTIVE, true});
  fake.Settle();
  EXPECT_THAT(mirror->Now().calls.possible, ElementsAre(BT_CALL_HOLD_ACTIVE, BT_CALL_CONFERENCE));
  fake.Emit(CallActionChanged{BT_CALL_CONFERENCE, false});
  fake.WillAnswer(&Service::CurrentCalls, OneCall(BT_CALL_HELD));
  fake.Emit(CallStatusChanged{1, BT_CALL_HELD, 1});
  fake.Settle();
  EXPECT_THAT(mirror->Now().calls.possible, ElementsAre(BT_CALL_HOLD_ACTIVE));
  EXPECT_EQ(mirror->Now().calls.calls.at(0).status, BT_CALL_HELD);
  fake.WillAnswer(&Service::CurrentCalls, MWPTypeCallInfo());
  fake.Emit(CallsChanged{0});
  fake.Settle();
  EXPECT_THAT(mirror->Now().calls.calls, IsEmpty());
}

TEST_F(MirrorTest, FollowsTheSoundOfACall) {
  const auto mirror = Settled(PART_AUDIO);
  fake.WillAnswer(&Service::GetAudioIsPrivacy, false);
  fake.Emit(AudioChanged{BT_AUDIO_CONNECTED});
  fake.Emit(CodecChanged{BT_CODEC_MSBC});
  fake.Emit(VoiceRecognitionChanged{true});
  fake.Settle();
  EXPECT_FALSE(mirror->Now().audio.onPhone);
  EXPECT_EQ(mirror->Now().audio.codec, BT_CODEC_MSBC);
  EXPECT_TRUE(mirror->Now().audio.voiceRecognition);
}

TEST_F(MirrorTest, ANetworkGoesWithItsPhone) {
  const auto mirror = Settled(PART_NETWORK);
  fake.Emit(NetworkChanged{true});
  fake.Emit(OperatorChanged{"Nordnetz"});
  fake.Emit(RoamingChanged{true});
  fake.Emit(SignalChanged{5});
  fake.Emit(BatteryChanged{5});
  fake.Settle();
  EXPECT_TRUE(mirror->Now().network.available);
  EXPECT_EQ(mirror->Now().network.operatorName, "Nordnetz");
  EXPECT_TRUE(mirror->Now().network.roaming);
  fake.WillAnswer(&Service::GetPhoneConnectionState, ConnectionState{BT_CONN_DISCONNECTED, Address()});
  fake.Emit(ConnectionChanged{kPhone, BT_PROFILE_HFP, BT_CONN_DISCONNECTED});
  fake.Settle();
  EXPECT_FALSE(mirror->Now().network.available);
  EXPECT_EQ(mirror->Now().network.operatorName, "");
  EXPECT_FALSE(mirror->Now().network.roaming);
  EXPECT_EQ(mirror->Now().network.signal, 0);
  EXPECT_EQ(mirror->Now().network.battery, 0);
}

TEST_F(MirrorTest, FollowsMusicModesAndPosition) {
  const auto mirror = Settled(PART_MUSIC | PART_MODES | PART_POSITION);
  MWPTypeMediaInfo next;
  next.title = "Lantern";
  fake.WillAnswer(&Service::GetMediaInfo, next);
  fake.WillAnswer(&Service::GetPlayModes, std::vector<MWPTypePlayMode>{{2, 2}});
  fake.Emit(TrackChanged());
  fake.Emit(MusicChanged{BT_MUSIC_PAUSED});
  fake.Emit(PlayModeChanged());
  fake.Emit(PositionChanged{2000, 184000});
  fake.Settle();
  EXPECT_EQ(mirror->Now().music.track.title, "Lantern");
  EXPECT_EQ(mirror->Now().music.status, BT_MUSIC_PAUSED);
  EXPECT_EQ(mirror->Now().modes.current.at(0).nValue, 2);
  EXPECT_EQ(mirror->Now().position.position.length, 167000) << "asked for after the track's change";
  fake.Emit(PositionChanged{3000, 184000});
  fake.Settle();
  EXPECT_EQ(mirror->Now().position.position.position, 3000);
}

TEST_F(MirrorTest, AsksThePositionToBeReported) {
  const auto mirror = Mirrored(PART_POSITION);
  fake.Settle();
  EXPECT_THAT(fake.Requests(), Contains("RegGetPlayStatus(true, 1000)"));
}

TEST_F(MirrorTest, FetchesListsThatHaveChanged) {
  const auto mirror = Settled(PART_CONTACTS | PART_FAVORITES | PART_LOGS);
  fake.Emit(CallLogsChanged());
  fake.Settle();
  EXPECT_THAT(fake.Requests(), ElementsAre("CallLogs(byte 0x00,)"));
  fake.ForgetRequests();
  fake.Emit(FavoriteChanged{1, true});
  fake.Settle();
  EXPECT_THAT(fake.Requests(), ElementsAre("FavoriteContacts()"));
  fake.ForgetRequests();
  fake.Emit(PhoneBookDeleted{true});
  fake.Settle();
  EXPECT_THAT(fake.Requests(), testing::UnorderedElementsAre("Contacts()", "FavoriteContacts()"));
  fake.ForgetRequests();
  fake.Emit(DownloadChanged{BT_PBAP_DOWNLOADING, BT_PBAP_ALL});
  fake.Settle();
  EXPECT_THAT(fake.Requests(), IsEmpty()) << "not before it has ended";
  fake.Emit(DownloadChanged{BT_PBAP_COMPLETED, BT_PBAP_ALL});
  fake.Settle();
  EXPECT_THAT(fake.Requests(), SizeIs(3));
}

TEST_F(MirrorTest, FollowsADownload) {
  const auto mirror = Settled(PART_DOWNLOAD);
  fake.Emit(DownloadChanged{BT_PBAP_DOWNLOADING, BT_PBAP_PHONE_BOOK});
  fake.Emit(DownloadProgress{3, 9});
  fake.Settle();
  EXPECT_EQ(mirror->Now().download.status, BT_PBAP_DOWNLOADING);
  EXPECT_EQ(mirror->Now().download.type, BT_PBAP_PHONE_BOOK);
  EXPECT_EQ(mirror->Now().download.progress.current, 3);
  fake.Emit(DownloadChanged{BT_PBAP_CONNECTING, BT_PBAP_ALL});
  fake.Settle();
  EXPECT_EQ(mirror->Now().download.progress.current, 0) << "another one begins";
}

TEST_F(MirrorTest, KeepsTheLastTwentyMessages) {
  const auto mirror = Settled(PART_MESSAGES);
  for (int i = 1; i <= 25; ++i) {
    fake.Emit(MessageChanged{BT_MSG_NEW, std::to_string(i)});
  }
  fake.Settle();
  ASSERT_THAT(mirror->Now().messages.news, SizeIs(20));
  EXPECT_EQ(mirror->Now().messages.news.front().handle, "6");
  EXPECT_EQ(mirror->Now().messages.news.back().handle, "25");
}

TEST_F(MirrorTest, MayBeDestroyedByWhatItCalls) {
  std::unique_ptr<Mirror> mirror;
  mirror = std::make_unique<Mirror>(fake, kAllParts, [&](const State&, unsigned) { mirror.reset(); });
  fake.Settle();
  EXPECT_EQ(mirror, nullptr);
}

TEST_F(MirrorTest, AnExceptionOfWhatItCallsIsLoggedAndItGoesOn) {
  bttest::LogCapture log;
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

}  // namespace
