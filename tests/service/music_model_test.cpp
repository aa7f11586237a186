#include "tests/service/model_fixture.h"

namespace btservice {
namespace {

using namespace std::chrono_literals;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kSecondPhone = "00:11:22:33:44:55";

class MusicModelTest : public ModelTest {
 protected:
  MusicModelTest() {
    DeviceData second = Device(kSmartphone);
    second.address = kSecondPhone;
    second.name = "Ben's phone";
    world.devices.push_back(second);
    PairBeforehand(kSmartphone);
    PairBeforehand(kSecondPhone);
  }
  MusicControl& Music() { return Stack().Music(); }
  void Connect() { ConnectDevice(kSmartphone); }
  void Play() {
    ASSERT_TRUE(Music().Play());
    Pass(world.delays.playerReply);
  }
  /// A request that is accepted, and its effect.
  void Do(bool accepted) {
    ASSERT_TRUE(accepted);
    Pass(world.delays.playerReply);
  }
  std::string Title() { return Music().CurrentTrack()->title; }
};

TEST_F(MusicModelTest, APlayerTellsWhatItCanWhenItConnects) {
  PowerOn();
  Stack().Devices().Connect(kSmartphone, BT_PROFILE_A2DP, false);
  Pass(5s);
  EXPECT_THAT(log.Values(&FastForwardSupported::supported), ElementsAre(true));
  EXPECT_THAT(log.Values(&FastReverseSupported::supported), ElementsAre(true));
  EXPECT_THAT(log.Values(&BrowsingSupported::supported), ElementsAre(true));
  EXPECT_THAT(log.Values(&NotificationSupported::supported), Each(true));
  EXPECT_EQ(log.Count<PlayerChanged>(), 1U);
  EXPECT_EQ(log.Count<SupportedPlayModesChanged>(), 1U);
  EXPECT_TRUE(Music().SupportsNotification(BT_AVRCP_EVENT_TRACK_CHANGED));
  EXPECT_FALSE(Music().SupportsNotification(BT_AVRCP_EVENT_BATT_STATUS_CHANGED));
}

TEST_F(MusicModelTest, PlayingStreamsAndTicks) {
  Connect();
  EXPECT_EQ(Music().Status(), BT_MUSIC_STOPPED);
  Play();
  EXPECT_EQ(Music().Status(), BT_MUSIC_PLAYING);
  EXPECT_THAT(log.Values(&PlayStatusChanged::status), ElementsAre(BT_MUSIC_PLAYING));
  EXPECT_THAT(log.Values(&StreamChanged::running), ElementsAre(true));
  Pass(3s);
  EXPECT_THAT(log.Values(&PositionChanged::position), ElementsAre(0, 1000, 2000, 3000));
  EXPECT_THAT(log.Values(&PositionChanged::length), Each(167000));
  EXPECT_EQ(Music().Position()->first, 3000);
}

TEST_F(MusicModelTest, OtherTracksGoOnWithTheFirstAndNoneStop) {
  Connect();
  Play();
  Pass(3s);
  log.Clear();
  TrackData track;
  track.title = "New";
  track.length = 60s;
  EXPECT_TRUE(Stack().FromOutside().SetTracks(kSmartphone, {track}));
  EXPECT_EQ(Title(), "New");
  EXPECT_EQ(log.Count<TrackChanged>(), 1U);
  EXPECT_EQ(Music().Status(), BT_MUSIC_PLAYING);
  EXPECT_TRUE(Stack().FromOutside().SetTracks(kSmartphone, {}));
  EXPECT_EQ(Music().Status(), BT_MUSIC_STOPPED);
  Pass(1min);
  EXPECT_EQ(log.Count<TrackChanged>(), 1U);
  EXPECT_FALSE(Stack().FromOutside().SetTracks(kNobody, {track}));
}

TEST_F(MusicModelTest, PausingKeepsThePosition) {
  Connect();
  Play();
  Pass(2500ms);
  Do(Music().Pause());
  const int position = Music().Position()->first;
  Pass(1min);
  EXPECT_EQ(Music().Position()->first, position);
  EXPECT_THAT(log.Values(&PlayStatusChanged::status), ElementsAre(BT_MUSIC_PLAYING, BT_MUSIC_PAUSED));
  EXPECT_THAT(log.Values(&StreamChanged::running), ElementsAre(true, false));
  Play();
  EXPECT_EQ(Music().Position()->first, position);
}

TEST_F(MusicModelTest, TheTextsAreThoseOfTheTrack) {
  Connect();
  const TrackInfo info = *Music().CurrentTrack();
  EXPECT_EQ(info.title, "Low Tide");
  EXPECT_EQ(info.artist, "The Breakwaters");
  EXPECT_EQ(info.album, "Harbour Lights");
  EXPECT_EQ(info.genre, "Folk");
  EXPECT_EQ(info.number, "1");
  EXPECT_EQ(info.count, "12");
  EXPECT_EQ(info.duration, "167000");
}

TEST_F(MusicModelTest, NextAndPreviousChangeTheTrack) {
  Connect();
  Play();
  Do(Music().Next());
  EXPECT_EQ(Title(), "Lantern");
  EXPECT_EQ(log.Count<TrackChanged>(), 1U);
  EXPECT_EQ(log.Count<TrackInfoChanged>(), 1U);
  EXPECT_EQ(log.Count<CoverDownloaded>(), 0U);
  Pass(world.delays.cover);
  EXPECT_EQ(log.Count<CoverDownloaded>(), 1U);
  Do(Music().Previous());
  EXPECT_EQ(Title(), "Low Tide");
}

TEST_F(MusicModelTest, PreviousInTheMiddleGoesToTheStart) {
  Connect();
  Play();
  Pass(10s);
  Do(Music().Previous());
  EXPECT_EQ(Title(), "Low Tide");
  EXPECT_EQ(Music().Position()->first, 0);
  EXPECT_EQ(log.Count<TrackChanged>(), 0U);
}

TEST_F(MusicModelTest, TheNextTrackFollowsByItself) {
  Connect();
  Play();
  Pass(167s);
  EXPECT_EQ(Title(), "Lantern");
  EXPECT_EQ(Music().Status(), BT_MUSIC_PLAYING);
}

TEST_F(MusicModelTest, AfterTheLastTrackThePlayerStops) {
  Connect();
  Play();
  Pass(1h);
  EXPECT_EQ(Music().Status(), BT_MUSIC_STOPPED);
  EXPECT_EQ(Title(), "Low Tide");
  EXPECT_THAT(log.Values(&StreamChanged::running), ElementsAre(true, false));
}

TEST_F(MusicModelTest, ButGoesOnIfEverythingIsRepeated) {
  Connect();
  Do(Music().SetPlayMode({PLAYER_REPEAT, REPEAT_ALL}));
  Play();
  Pass(10h);
  EXPECT_EQ(Music().Status(), BT_MUSIC_PLAYING);
}

TEST_F(MusicModelTest, ARepeatedTrackWithoutALengthLetsTimePass) {
  Connect();
  TrackData track;
  track.title = "Nothing";
  EXPECT_TRUE(Stack().FromOutside().SetTracks(kSmartphone, {track}));
  Do(Music().SetPlayMode({PLAYER_REPEAT, REPEAT_TRACK}));
  Play();
  Pass(1s);
  EXPECT_EQ(Music().Status(), BT_MUSIC_PLAYING);
  EXPECT_EQ(Title(), "Nothing");
}

TEST_F(MusicModelTest, ARepeatedTrackStaysTheSame) {
  Connect();
  Do(Music().SetPlayMode({PLAYER_REPEAT, REPEAT_TRACK}));
  Play();
  Pass(167s + 10s);
  EXPECT_EQ(Title(), "Low Tide");
  EXPECT_EQ(Music().Position()->first, 10000);
}

TEST_F(MusicModelTest, ShuffledEveryTrackPlaysOnce) {
  Connect();
  Do(Music().SetPlayMode({PLAYER_SHUFFLE, SHUFFLE_ALL}));
  std::set<std::string> titles;
  std::string order;
  for (int i = 0; i < 12; ++i) {
    titles.insert(Title());
    order += Title() + ",";
    Do(Music().Next());
  }
  EXPECT_EQ(titles.size(), 12U);
  EXPECT_NE(order.substr(0, 26), "Low Tide,Lantern,Harbour Lights,Gulls at Noon,Ignition,");
  Do(Music().SetPlayMode({PLAYER_SHUFFLE, SHUFFLE_OFF}));
  EXPECT_EQ(Title(), "Low Tide");
  Do(Music().Next());
  EXPECT_EQ(Title(), "Lantern");
}

TEST_F(MusicModelTest, PlayModesAreReportedAndChecked) {
  Connect();
  EXPECT_EQ(Music().SupportedPlayModes().size(), 5U);
  Do(Music().SetPlayMode({PLAYER_REPEAT, REPEAT_ALL}));
  EXPECT_EQ(log.Count<PlayModeChanged>(), 1U);
  ASSERT_EQ(Music().PlayModes().size(), 2U);
  EXPECT_EQ(Music().PlayModes()[0].value, REPEAT_ALL);
  EXPECT_FALSE(Music().SetPlayMode({PLAYER_REPEAT, 9}));
  EXPECT_FALSE(Music().SetPlayMode({1, 1}));
}

TEST_F(MusicModelTest, WindingForwardIsFast) {
  Connect();
  Play();
  Do(Music().FastForward(true));
  EXPECT_EQ(Music().Status(), BT_MUSIC_FAST_FORWARD);
  const int before = Music().Position()->first;
  Pass(2s);
  EXPECT_EQ(Music().Position()->first, before + 16000);
  Do(Music().FastForward(false));
  EXPECT_EQ(Music().Status(), BT_MUSIC_PLAYING);
}

TEST_F(MusicModelTest, WindingBackEndsAtTheStart) {
  Connect();
  Play();
  Pass(16s);
  Do(Music().FastReverse(true));
  EXPECT_EQ(Music().Status(), BT_MUSIC_FAST_REVERSE);
  Pass(1s);
  EXPECT_EQ(Music().Status(), BT_MUSIC_FAST_REVERSE);
  EXPECT_LT(Music().Position()->first, 9000);
  Pass(2s);
  EXPECT_EQ(Music().Status(), BT_MUSIC_PLAYING);
  EXPECT_LT(Music().Position()->first, 1000);
}

TEST_F(MusicModelTest, WindingBeginsAndEndsOnlyWhereItCan) {
  Connect();
  EXPECT_FALSE(Music().FastForward(true)) << "stopped";
  Play();
  EXPECT_FALSE(Music().FastForward(false)) << "not winding";
  Do(Music().FastForward(true));
  EXPECT_FALSE(Music().FastReverse(true));
  EXPECT_FALSE(Music().FastReverse(false));
}

TEST_F(MusicModelTest, PositionsAreReportedInThePeriodAskedFor) {
  Connect();
  EXPECT_TRUE(Music().ReportPosition(true, 250));
  Play();
  Pass(1s);
  EXPECT_EQ(log.Count<PositionChanged>(), 5U);
  EXPECT_TRUE(Music().ReportPosition(false, 0));
  log.Clear();
  Pass(10s);
  EXPECT_EQ(log.Count<PositionChanged>(), 0U);
  EXPECT_FALSE(Music().ReportPosition(true, 0)) << "no period";
}

TEST_F(MusicModelTest, SoAreTheTexts) {
  Connect();
  EXPECT_TRUE(Music().ReportTrackInfo(true, 500));
  Pass(1s);
  EXPECT_EQ(log.Count<TrackInfoChanged>(), 3U);
  EXPECT_TRUE(Music().ReportTrackInfo(false, 0));
  Pass(10s);
  EXPECT_EQ(log.Count<TrackInfoChanged>(), 3U);
}

TEST_F(MusicModelTest, AClosedOutputStreamsNothing) {
  Connect();
  EXPECT_TRUE(Music().EnableOutput(false));
  Play();
  EXPECT_THAT(log.Values(&StreamChanged::running), IsEmpty());
  EXPECT_TRUE(Music().EnableOutput(true));
  EXPECT_THAT(log.Values(&StreamChanged::running), ElementsAre(true));
}

TEST_F(MusicModelTest, ACallInterruptsTheMusic) {
  Connect();
  Play();
  Stack().FromOutside().Call(kSmartphone, "112");
  EXPECT_EQ(Music().Status(), BT_MUSIC_PAUSED);
  Stack().Calls().Reject();
  EXPECT_EQ(Music().Status(), BT_MUSIC_PLAYING);
}

TEST_F(MusicModelTest, MusicThatWasPausedStaysSoAfterACall) {
  Connect();
  Stack().FromOutside().Call(kSmartphone, "112");
  Stack().Calls().Reject();
  EXPECT_EQ(Music().Status(), BT_MUSIC_STOPPED);
}

TEST_F(MusicModelTest, WithoutAPlayerNothingCanBeAskedFor) {
  PowerOn();
  EXPECT_FALSE(Music().Play());
  EXPECT_FALSE(Music().Pause());
  EXPECT_FALSE(Music().Next());
  EXPECT_FALSE(Music().Position());
  EXPECT_FALSE(Music().CurrentTrack());
  EXPECT_THAT(Music().PlayModes(), IsEmpty());
  EXPECT_FALSE(Music().SupportsNotification(BT_AVRCP_EVENT_TRACK_CHANGED));
  EXPECT_FALSE(Music().SupportsBrowsing());
}

TEST_F(MusicModelTest, LosingThePlayerEndsTheStream) {
  Connect();
  Play();
  log.Clear();
  Stack().FromOutside().LoseLink(kSmartphone);
  Pass(10s);
  EXPECT_THAT(log.Values(&StreamChanged::running), ElementsAre(false));
  EXPECT_THAT(log.Values(&FastForwardSupported::supported), ElementsAre(false));
  EXPECT_EQ(log.Count<PositionChanged>(), 0U);
}

TEST_F(MusicModelTest, TheDeviceThatPlaysLastIsHeard) {
  Connect();
  Play();
  ConnectDevice(kSecondPhone);
  EXPECT_EQ(Stack().Devices().Connection(BT_PROFILE_AVRCP).address, kSmartphone) << "it plays";
  EXPECT_TRUE(Stack().FromOutside().Play(kSecondPhone));
  EXPECT_EQ(Stack().Devices().Connection(BT_PROFILE_AVRCP).address, kSecondPhone);
  EXPECT_THAT(log.Values(&StreamChanged::address), ElementsAre(kSmartphone, kSecondPhone));
  EXPECT_THAT(log.Values(&StreamChanged::running), ElementsAre(false, true));
  EXPECT_TRUE(Stack().FromOutside().Play(kSmartphone));
  EXPECT_EQ(Stack().Devices().Connection(BT_PROFILE_AVRCP).address, kSmartphone);
  EXPECT_TRUE(Stack().FromOutside().Pause(kSmartphone));
  EXPECT_EQ(Music().Status(), BT_MUSIC_PAUSED);
  EXPECT_FALSE(Stack().FromOutside().Play(kOldPhone)) << "has no player";
}

}  // namespace
}  // namespace btservice
