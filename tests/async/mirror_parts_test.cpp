// The parts of the state that a mirror keeps, subject by subject.

#include "async/MirrorFixture.h"

namespace bttest {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

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

TEST_F(MirrorTest, KeepsTheFindsOfASearchThatItFoundRunningWhenThatIsReported) {
  const auto mirror = Settled(PART_FOUND);
  fake.Emit(DeviceFound{kPhone, "Ada's phone", BT_SUPPORT_NONE});
  fake.Emit(ScanChanged{BT_SCAN_SCANNING});  // an application has asked for a report
  fake.Settle();
  EXPECT_THAT(mirror->Now().found.devices, SizeIs(1));
  fake.Emit(ScanChanged{BT_SCAN_IDLE});
  fake.Emit(DeviceFound{kOther, "Ben's phone", BT_SUPPORT_NONE});  // one that was late
  fake.Emit(ScanChanged{BT_SCAN_SCANNING});
  fake.Settle();
  EXPECT_THAT(mirror->Now().found.devices, IsEmpty()) << "another search";
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

TEST_F(MirrorTest, AQuestionGoesWhenThePairingOfAnotherDeviceBegins) {
  const auto mirror = Settled(PART_PAIRING);
  fake.Emit(PairChanged{BT_PAIR_PAIRING, BT_PAIR_REASON_NONE, kPhone});
  fake.Emit(PairRequested{kPhone, "123456", false, BT_PAIR_REQUEST_CONFIRMATION});
  fake.Settle();
  ASSERT_TRUE(mirror->Now().pairing.question);
  fake.Emit(PairChanged{BT_PAIR_PAIRING, BT_PAIR_REASON_NONE, kOther});
  fake.Settle();
  EXPECT_FALSE(mirror->Now().pairing.question);
  EXPECT_EQ(mirror->Now().pairing.underWay, kOther);
}

TEST_F(MirrorTest, FollowsTheNameAndWhetherItIsDiscoverableAndNothingElseOfTheSettings) {
  const auto mirror = Settled(PART_ADAPTER);
  fake.Emit(AttributeChanged{BT_ATTR_PIN_CODE, "1234"});
  fake.Emit(CapabilityChanged{BT_CAP_AUTO_ANSWER, false});
  fake.Settle();
  EXPECT_EQ(mirror->Now().adapter.name, "Head Unit");
  EXPECT_TRUE(mirror->Now().adapter.discoverable);
  fake.Emit(AttributeChanged{BT_ATTR_LOCAL_NAME, "My car"});
  fake.Emit(CapabilityChanged{BT_CAP_ENABLE_SCAN, false});
  fake.Settle();
  EXPECT_EQ(mirror->Now().adapter.name, "My car");
  EXPECT_FALSE(mirror->Now().adapter.discoverable);
}

TEST_F(MirrorTest, AsksAboutTheMusicWhenAPlayerComesOrGoes) {
  const auto mirror = Settled(PART_MUSIC | PART_MODES);
  for (const ProfileId profile : {BT_PROFILE_A2DP, BT_PROFILE_AVRCP}) {
    fake.ForgetRequests();
    fake.Emit(ConnectionChanged{kPhone, profile, BT_CONN_DISCONNECTED});
    fake.Settle();
    EXPECT_THAT(fake.Requests(),
                testing::IsSupersetOf({"GetMediaConnectionState()", "GetMusicPlayStatus()", "GetMediaInfo()",
                                       "GetCurPlayMode()", "GetSupportPlayMode()"}))
        << profile;
  }
  fake.ForgetRequests();
  fake.Emit(ConnectionChanged{kPhone, BT_PROFILE_HFP, BT_CONN_DISCONNECTED});
  fake.Settle();
  EXPECT_THAT(fake.Requests(), IsEmpty());
}

TEST_F(MirrorTest, AsksForTheBooksWhenAPhoneComesOrGoes) {
  const auto mirror = Settled(PART_CONTACTS | PART_FAVORITES | PART_LOGS);
  for (const ProfileId profile : {BT_PROFILE_HFP, BT_PROFILE_PBAP}) {
    fake.ForgetRequests();
    fake.Emit(ConnectionChanged{kPhone, profile, BT_CONN_CONNECTED});
    fake.Settle();
    EXPECT_THAT(fake.Requests(), SizeIs(3)) << profile;
  }
  fake.ForgetRequests();
  fake.Emit(ConnectionChanged{kPhone, BT_PROFILE_A2DP, BT_CONN_CONNECTED});
  fake.Settle();
  EXPECT_THAT(fake.Requests(), IsEmpty());
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

TEST_F(MirrorTest, HasNoFreshPositionUntilItIsReported) {
  fake.WillFail(&Service::ReportPosition, Reason::TimedOut);
  const auto mirror = Mirrored(PART_POSITION);
  fake.Settle();
  EXPECT_EQ(mirror->Now().position.position.length, 167000);
  EXPECT_FALSE(mirror->Now().position.fresh);
  fake.WillAccept(&Service::ReportPosition);
  fake.Advance(std::chrono::seconds(5));
  EXPECT_THAT(fake.Requests(), Contains("RegGetPlayStatus(true, 1000)").Times(2));
  EXPECT_TRUE(mirror->Now().position.fresh);
}

TEST_F(MirrorTest, HasNoFreshPositionThatTheServiceRefusesToReportUntilThereIsATrack) {
  fake.WillRefuse(&Service::ReportPosition);
  const auto mirror = Mirrored(PART_POSITION);
  fake.Settle();
  EXPECT_EQ(mirror->Now().position.position.length, 167000);
  EXPECT_FALSE(mirror->Now().position.fresh);
  fake.ForgetRequests();
  fake.WillAccept(&Service::ReportPosition);
  fake.Emit(TrackChanged());
  fake.Settle();
  EXPECT_THAT(fake.Requests(), Contains("RegGetPlayStatus(true, 1000)"));
  EXPECT_TRUE(mirror->Now().position.fresh);
  fake.ForgetRequests();
  fake.Emit(TrackChanged());
  fake.Settle();
  EXPECT_THAT(fake.Requests(), ElementsAre("GetCurPlayPosition()")) << "it is reported already";
}

TEST_F(MirrorTest, HasNoFreshPositionUntilItIsAnswered) {
  fake.WillFail(&Service::GetPlayPosition, Reason::TimedOut);
  const auto mirror = Mirrored(PART_POSITION);
  fake.Settle();
  EXPECT_THAT(fake.Requests(), Contains("RegGetPlayStatus(true, 1000)"));
  EXPECT_FALSE(mirror->Now().position.fresh);
  fake.WillAnswer(&Service::GetPlayPosition, PlayPosition{1000, 167000});
  fake.Advance(std::chrono::seconds(5));
  EXPECT_TRUE(mirror->Now().position.fresh);
}

TEST_F(MirrorTest, HasNoFreshPositionOfAServiceThatReportsNone) {
  const auto mirror = Settled(PART_POSITION);
  fake.SetAvailability(Availability::Absent);
  fake.Settle();
  fake.WillFail(&Service::ReportPosition, Reason::TimedOut);
  fake.SetAvailability(Availability::Present);
  fake.Settle();
  EXPECT_THAT(fake.Requests(), Contains("RegGetPlayStatus(true, 1000)"));
  EXPECT_FALSE(mirror->Now().position.fresh) << "the one before has reported it";
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

}  // namespace
}  // namespace bttest
