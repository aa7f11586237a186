// Where events come from: each that reaches a listener is caused by what an application asks for, or by what
// happens at the phone.

#include <algorithm>
#include <functional>
#include <ostream>
#include <set>

#include <gmock/gmock.h>

#include "contract/Witness.h"
#include "tests/conformance/Car.h"

namespace conformance {
namespace {

using testing::IsEmpty;

struct Scene {
  Car& car;
  Phone& phone;
};

/// Something that is done with a phone that is connected, and the events that it leads to.
struct Cause {
  std::string name;
  std::vector<std::string> needs;  ///< what the phone has to be able to do
  std::function<void(Scene&)> act;
  std::vector<std::string> events;
};

void ComeIn(Scene& s, const char* number) {
  EXPECT_TRUE(s.phone.Do("Call", kPhone, number));
  EXPECT_TRUE(s.car.Hears("OnCallStatusChanged"));
}

void Play(Scene& s) {
  EXPECT_NE(s.car.music.PlayMusic(0, 0), 0);
  EXPECT_TRUE(s.car.Hears("OnMediaAudioStateChanged"));
}

void Browse(Scene& s) {
  EXPECT_NE(s.car.music.RootDirectory(0, 10), 0);
  EXPECT_TRUE(s.car.Hears("OnBrowserMediaInfoChanged"));
}

/// The first track in the player's root folder; empty if there is none.
std::string FirstTrack(Scene& s) {
  std::list<MWPTypeMediaItem> items;
  s.car.music.GetCurMediaItemList(items, BT_BROWSER_FILE_SYSTEM);
  return items.empty() ? "" : items.front().strUid;
}

int FirstContact(Scene& s) {
  std::list<MWPTypeContact> contacts;
  s.car.book.GetContactList(contacts);
  return contacts.empty() ? -1 : contacts.front().nContactId;
}

void ConnectSerial(Scene& s) {
  EXPECT_NE(s.car.com.Connect(kPhone, BT_PROFILE_SPP, 0), 0);
  EXPECT_TRUE(s.car.Hears("OnSppConnectStatus"));
}

const std::vector<Cause>& Causes() {
  static const std::vector<Cause> causes{
      {"AConnectionWithAllThatFollows",
       {},
       [](Scene& s) {
         EXPECT_NE(s.car.com.DisConnect(kPhone, BT_PROFILE_HFP_A2DP), 0);
         EXPECT_TRUE(s.car.Hears("OnConnectStatusChanged"));
         EXPECT_TRUE(Eventually([&] { return s.car.com.Connect(kPhone, BT_PROFILE_HFP_A2DP, 0) != 0; }));
       },
       {"OnConnectStatusChanged", "OnMobileService", "OnOperatorNameChanged", "OnRoamingStatusChanged",
        "OnBtSignalChanged", "OnBtBatteryChanged", "OnPlayerInfoChanged", "OnSupportAvrcpNotify",
        "OnFastForwardChanged", "OnFastRewindChanged", "OnSupportBrowserStatusChanged",
        "OnSupportPlayModeChanged"}},
      {"APhoneThatGoesAndComesBack",
       {"SetInRange"},
       [](Scene& s) {
         EXPECT_TRUE(s.phone.Do("SetInRange", g_variant_new("(sb)", kPhone, FALSE)));
         EXPECT_TRUE(s.car.Hears("OnConnectStatusChanged"));
         EXPECT_TRUE(s.phone.Do("SetInRange", g_variant_new("(sb)", kPhone, TRUE)));
       },
       {"OnConnectStatusChanged", "OnPBDownloadStatus"}},
      {"PowerOffAndOn",
       {},
       [](Scene& s) {
         EXPECT_NE(s.car.com.SetPower(0), 0);
         EXPECT_TRUE(Eventually([&] { return s.car.com.GetPowerStatus() == BT_POWER_OFF; }));
         EXPECT_NE(s.car.com.SetPower(1), 0);
       },
       {"OnOpenBtStatusChanged", "OnSupportProfileChanged"}},
      {"ASetting",
       {},
       [](Scene& s) { EXPECT_NE(s.car.com.SetCapability(BT_CAP_ENABLE_SCAN, 1), 0); },
       {"OnBtCapabilityChanged"}},
      {"AnAttribute",
       {},
       [](Scene& s) { EXPECT_NE(s.car.com.SetAttribute(BT_ATTR_LOCAL_NAME, "Car"), 0); },
       {"OnBtAttributeChanged"}},
      {"AllProfilesAllowed",
       {},
       [](Scene& s) { s.car.com.EnableProfile(); },
       {"OnBtProfileEnableStatusChanged"}},
      {"ASearch", {}, [](Scene& s) { EXPECT_NE(s.car.com.SetScanAction(1), 0); }, {"OnScanStatusChanged"}},
      {"APairingAsked",
       {},
       [](Scene& s) { EXPECT_NE(s.car.com.Pair(kNewPhone, ""), 0); },
       {"OnPairStatusChanged", "OnAnswerPairRequest"}},
      {"APairingDeleted",
       {},
       [](Scene& s) { EXPECT_NE(s.car.com.DeletePairDevice(kPhone, 1), 0); },
       {"OnDeletePairStatusChanged"}},
      {"AKeyByOtherMeans",
       {kLinkKeyByOtherMeans},
       [](Scene& s) {
         EXPECT_NE(s.car.com.SetDeviceOOBLinkKey(kPhone, std::vector<unsigned char>(16, 1)), 0);
       },
       {"OnSetDeviceOOBLinkKeyChanged"}},
      {"ProjectionRequested",
       {"RequestProjection"},
       [](Scene& s) { EXPECT_TRUE(s.phone.Do("RequestProjection", kPhone)); },
       {"OnWirelessEnableRequest"}},
      {"ProjectionPairing",
       {kProjection},
       [](Scene& s) { EXPECT_NE(s.car.com.RequestAndroidAutoPairing(kNewPhone, 0), 0); },
       {"OnAndroidAutoPairingResponse"}},
      {"AnotherNetwork",
       {"SetSignal", "SetBattery", "SetRoaming", "SetOperator"},
       [](Scene& s) {
         EXPECT_TRUE(s.phone.Do("SetSignal", g_variant_new("(si)", kPhone, 1)));
         EXPECT_TRUE(s.phone.Do("SetBattery", g_variant_new("(si)", kPhone, 1)));
         EXPECT_TRUE(s.phone.Do("SetRoaming", g_variant_new("(sb)", kPhone, TRUE)));
         EXPECT_TRUE(s.phone.Do("SetOperator", kPhone, ""));
         EXPECT_TRUE(s.phone.Do("SetOperator", kPhone, "S\u00fcdfunk"));
       },
       {"OnBtSignalChanged", "OnBtBatteryChanged", "OnRoamingStatusChanged", "OnMobileService",
        "OnOperatorNameChanged"}},
      {"Music", {}, Play, {"OnBtMusicPlayChanged", "OnMediaAudioStateChanged", "OnCurPositionChanged"}},
      {"MusicByThePersonAtThePhone",
       {"Play", "Pause"},
       [](Scene& s) {
         EXPECT_TRUE(s.phone.Do("Play", kPhone));
         EXPECT_TRUE(s.car.Hears("OnMediaAudioStateChanged"));
         EXPECT_TRUE(s.phone.Do("Pause", kPhone));
       },
       {"OnBtMusicPlayChanged", "OnMediaAudioStateChanged"}},
      {"TheNextTrack",
       {kNextTrack},
       [](Scene& s) {
         Play(s);
         EXPECT_NE(s.car.music.NextMusic(), 0);
       },
       {"OnAudioTrackChanged", "OnMediaInfoChanged", "OnCoverImageDownloadCompleted"}},
      {"APlayMode",
       {kPlayModes},
       [](Scene& s) {
         MWPTypePlayMode repeatAll;
         repeatAll.nType = 2;
         repeatAll.nValue = 3;
         EXPECT_NE(s.car.music.SetCurPlayMode(repeatAll), 0);
       },
       {"OnPlayModeChanged"}},
      {"Browsing",
       {kBrowsing},
       [](Scene& s) {
         Browse(s);
         EXPECT_NE(s.car.music.GetBrowsingFolderItemTotal(""), 0);
         EXPECT_NE(s.car.music.AddMediaItemToNowPlaying(FirstTrack(s), BT_BROWSER_FILE_SYSTEM), 0);
         EXPECT_NE(s.car.music.PlayItem(FirstTrack(s), BT_BROWSER_FILE_SYSTEM), 0);
       },
       {"OnCurBrowserPathChanged", "OnBrowserMediaInfoChanged", "OnBrowserFolderItemTotalChanged",
        "OnMediaItemToNowPlayingStatus", "OnSendPlayItemStatus"}},
      {"ACallThatEnds",
       {"Call", "HangUp"},
       [](Scene& s) {
         ComeIn(s, "110");
         EXPECT_NE(s.car.calls.AcceptCall(), 0);
         EXPECT_TRUE(s.car.Hears("OnCallingTimeChanged"));
         EXPECT_TRUE(s.phone.Do("HangUp", g_variant_new("(si)", kPhone, 0)));
       },
       {"OnCallStatusChanged", "OnCurrentCallInfoChanged", "OnCodecModeChanged", "OnAudioStatusChanged",
        "OnCallingTimeChanged", "OnHangupCallChanged", "OnBtCallLogListChanged"}},
      {"ASecondCall",
       {"Call"},
       [](Scene& s) {
         ComeIn(s, "110");
         EXPECT_NE(s.car.calls.AcceptCall(), 0);
         EXPECT_TRUE(s.car.Hears("OnCallingTimeChanged"));
         EXPECT_TRUE(s.phone.Do("Call", kPhone, "112"));
       },
       {"OnConferenceChanged"}},
      {"VoiceRecognition",
       {kVoiceRecognition},
       [](Scene& s) { s.car.calls.StartVoiceRecognition(); },
       {"OnVoiceStatusChanged"}},
      {"ADownload",
       {},
       [](Scene& s) { EXPECT_NE(s.car.book.StartPhoneBookDownload(BT_PBAP_ALL), 0); },
       {"OnPBDownloadStatus", "OnPbDownloadCountChanged", "OnBtCallLogListChanged"}},
      {"AFavourite",
       {},
       [](Scene& s) { EXPECT_NE(s.car.book.SetContactFavorite(FirstContact(s), 1), 0); },
       {"OnContactFavoriteChanged"}},
      {"AContactDeleted",
       {},
       [](Scene& s) { EXPECT_NE(s.car.book.DeleteContactById(FirstContact(s)), 0); },
       {"OnDeletePhoneBookChanged"}},
      {"Messages",
       {"SendMessage", "SetMessageProperty"},
       [](Scene& s) {
         EXPECT_TRUE(s.phone.Do("SendMessage", g_variant_new("(ssss)", kPhone, "21", "Ben", "Hi")));
         EXPECT_TRUE(s.phone.Do("SetMessageProperty", g_variant_new("(ssb)", kPhone, "21", TRUE)));
       },
       {"OnMessageStatusNotify", "OnMessageSetPropertyStatus"}},
      {"TheMessagesThatThereAre",
       {"LoseLink"},
       [](Scene& s) { EXPECT_TRUE(s.phone.Do("LoseLink", kPhone)); },
       {"OnMessageDownloadStatus", "OnMessageDownloadCountChanged"}},
      {"ASerialChannel",
       {kSerialEcho},
       [](Scene& s) {
         ConnectSerial(s);
         EXPECT_NE(s.car.serial.SppSendText(kPhone, "hello"), 0);
       },
       {"OnSppConnectStatus", "OnSppReceiveBufferChanged"}},
      {"InputDevices",
       {"RequestConnection"},
       [](Scene& s) {
         EXPECT_TRUE(s.phone.Do("RequestConnection", kPhone, "hid"));
         EXPECT_TRUE(s.car.Hears("OnHIDConnection"));
         EXPECT_NE(s.car.serial.SetHIDCalibration(kPhone, static_cast<HIDTYPE>(0)), 0);
       },
       {"OnHIDConnection", "OnHIDCalibration"}},
  };
  return causes;
}

void PrintTo(const Cause& cause, std::ostream* stream) { *stream << cause.name; }

class EventsTest : public ConformanceTest, public testing::WithParamInterface<Cause> {};

INSTANTIATE_TEST_SUITE_P(After, EventsTest, testing::ValuesIn(Causes()),
                         [](const auto& cause) { return cause.param.name; });

TEST_P(EventsTest, Come) {
  for (const std::string& need : GetParam().needs) {
    CONFORMANCE_NEEDS(need);
  }
  ASSERT_NO_FATAL_FAILURE(car.ConnectPhone());
  car.Forget();
  Scene scene{car, phone};
  GetParam().act(scene);
  for (const std::string& event : GetParam().events) {
    EXPECT_TRUE(car.Hears(event)) << event;
  }
}

TEST(EventsOfThisSuite, AreAllThatReachAListener) {
  std::set<std::string> missing;
  for (const bttest::Witness::Event& event : bttest::TheWitness().events) {
    const auto& signals = bttest::TheWitness().subscribed;
    if (event.kind != "nobody" && std::find(signals.begin(), signals.end(), event.name) != signals.end()) {
      missing.insert(event.name);
    }
  }
  EXPECT_FALSE(missing.empty());
  for (const bttest::Witness::Cause& cause : bttest::TheWitness().causes) {
    missing.erase(cause.signal);  // the simulation's test shows it
  }
  for (const Cause& cause : Causes()) {
    for (const std::string& event : cause.events) {
      missing.erase(event);
    }
  }
  EXPECT_THAT(missing, IsEmpty());
}

}  // namespace
}  // namespace conformance
