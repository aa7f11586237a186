// One service after another: what a service leaves at its end, and what the next makes of it.

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "protocol/Segments.h"
#include "service/stack/StackTypes.h"
#include "support/Segments.h"
#include "support/TemporaryDirectory.h"
#include "tests/service/running_service.h"

namespace btservice {
namespace {

using bttest::ChildProcess;
using testing::Each;
using testing::Not;
using testing::StartsWith;

constexpr const char* kPhone = "00:1A:7D:DA:71:13";

std::vector<unsigned char> Contents(ShareMemID id) {
  return bttest::ReadSegment(id, 0, kSegmentCatalogue[id].size);
}

std::int32_t Word(ShareMemID id, std::size_t offset) {
  const std::vector<unsigned char> bytes = bttest::ReadSegment(id, offset, sizeof(std::int32_t));
  std::int32_t word = 0;
  std::memcpy(&word, bytes.data(), sizeof(word));
  return word;
}

std::vector<int> Identifiers() {
  std::vector<int> identifiers;
  for (const SegmentEntry& entry : kSegmentCatalogue) {
    const auto segment = bttest::FindSegment(entry.id);
    identifiers.push_back(segment ? segment->identifier : -1);
  }
  return identifiers;
}

std::vector<std::vector<unsigned char>> AllContents() {
  std::vector<std::vector<unsigned char>> all;
  for (const SegmentEntry& entry : kSegmentCatalogue) {
    all.push_back(Contents(entry.id));
  }
  return all;
}

class TakeoverTest : public testing::Test {
 protected:
  TakeoverTest() : service({"--speed", "20", "--world", BTTEST_FULL_WORLD}) { WaitForPhone(); }

  /// A phone of this world is paired, and the built-in settings connect and download without asking. Nobody
  /// gives up ringing.
  void WaitForPhone() { EXPECT_TRUE(service.WaitFor("OnPBDownloadStatus (byte 0x03, byte 0x06)")); }
  void HaveACall() {
    ASSERT_EQ(service.Control("Call", g_variant_new("(ss)", kPhone, "112")), "(true,)");
    ASSERT_EQ(service.Ask("AcceptCall"), "(true,)");
    ASSERT_TRUE(service.WaitFor("OnCallStatusChanged (1, byte 0x01, 1)"));
  }
  void End() {
    service.Process().Signal(SIGTERM);
    ASSERT_EQ(service.Process().Wait(), 0);
  }
  /// The place of the first signal that begins like this, among those that have come.
  std::ptrdiff_t PlaceOf(const std::string& beginning) const {
    const std::vector<std::string>& signals = service.Signals();
    return std::find_if(signals.begin(), signals.end(),
                        [&](const std::string& text) { return text.rfind(beginning, 0) == 0; }) -
           signals.begin();
  }
  static std::string Connection(ProfileId profile, ConnStatus status) {
    char text[100];
    std::snprintf(text, sizeof(text), "OnConnectStatusChanged ('%s', byte 0x%02x, byte 0x%02x)", kPhone,
                  static_cast<unsigned>(profile), static_cast<unsigned>(status));
    return text;
  }
  void ExpectNothingGoesOnInTheSegments() {
    EXPECT_EQ(Word(SH_CALL_INFO_LIST, 0), 0);
    EXPECT_THAT(Contents(SH_CALL_INFO_LIST), Each(0));
    ASSERT_EQ(Word(SH_PAIRED_LIST, 0), 1) << "it is paired all the same";
    EXPECT_EQ(Word(SH_PAIRED_LIST, 4), BT_PROFILE_NONE);
    EXPECT_EQ(Word(SH_PAIRED_LIST, 12), BT_CONN_DISCONNECTED);
  }

  RunningService service;
};

TEST_F(TakeoverTest, AtItsEndCallsAndConnectionsAreReportedAsEnded) {
  HaveACall();
  service.ForgetSignals();
  End();
  EXPECT_TRUE(service.WaitFor("OnCallStatusChanged (1, byte 0x00, 0)"));
  EXPECT_TRUE(service.WaitFor("OnCurrentCallInfoChanged (0,)"));
  for (const ProfileId profile : {BT_PROFILE_HFP, BT_PROFILE_A2DP, BT_PROFILE_AVRCP, BT_PROFILE_PBAP}) {
    EXPECT_TRUE(service.WaitFor(Connection(profile, BT_CONN_DISCONNECTED))) << profile;
  }
  EXPECT_THAT(service.Signals(), Each(Not(StartsWith("OnOpenBtStatusChanged")))) << "nobody switched it off";
  ExpectNothingGoesOnInTheSegments();
}

TEST_F(TakeoverTest, AnApplicationGoesOnWithTheNextService) {
  ChildProcess client({BTTEST_LISTENING_CLIENT});
  ASSERT_TRUE(client.WaitForOutput("ready\n")) << client.Errors();
  const std::vector<int> identifiers = Identifiers();
  End();
  service.ForgetSignals();
  service.Start();
  WaitForPhone();
  EXPECT_EQ(Identifiers(), identifiers) << "the client has them attached";
  HaveACall();
  EXPECT_TRUE(client.WaitForOutput("calls 1 112\n")) << client.Output();
}

TEST_F(TakeoverTest, NothingCanBeReadBehindTheListsOfTheNextService) {
  ASSERT_EQ(service.Ask("GetContactList"), "(true,)");
  ASSERT_EQ(service.Ask("GetCallLogList", g_variant_new("(y)", 0)), "(true,)");
  service.Call("GetContactByIndex", g_variant_new("(i)", 0));
  End();
  for (const ShareMemID id : {SH_CONTACT_LIST, SH_CONTACT_INFO}) {
    ASSERT_NE(Word(id, 0), 0) << "there is something to be cleared";
  }
  service.Start();
  ASSERT_EQ(service.Ask("GetPowerStatus").substr(0, 6), "(byte ") << "it is ready";
  for (const ShareMemID id : {SH_CONTACT_LIST, SH_CONTACT_INFO, SH_CALL_LOG_LIST, SH_FAV_CONTACT_LIST}) {
    EXPECT_THAT(Contents(id), Each(0)) << kSegmentCatalogue[id].name;
  }
}

TEST_F(TakeoverTest, AfterACrashTheNextServiceSaysEndEventsBeforeItSaysWhatThereIs) {
  ChildProcess client({BTTEST_LISTENING_CLIENT});
  ASSERT_TRUE(client.WaitForOutput("ready\n")) << client.Errors();
  HaveACall();
  ASSERT_TRUE(client.WaitForOutput("call 1 1 1\n"));
  service.Process().Kill();
  ASSERT_EQ(Word(SH_CALL_INFO_LIST, 0), 1) << "as it died";
  service.ForgetSignals();
  service.Start();
  EXPECT_TRUE(client.WaitForOutput("call 1 0 0\ncalls 0 \n")) << client.Output();
  EXPECT_TRUE(client.WaitForOutput("connection " + std::string(kPhone) + " 1 0\n")) << client.Output();

  ASSERT_TRUE(service.WaitFor("OnOpenBtStatusChanged"));
  const std::ptrdiff_t power = PlaceOf("OnOpenBtStatusChanged");
  EXPECT_LT(PlaceOf("OnCallStatusChanged (1, byte 0x00, 0)"), power);
  EXPECT_LT(PlaceOf("OnCurrentCallInfoChanged (0,)"), power);
  EXPECT_LT(PlaceOf("OnAudioStatusChanged (byte 0x00,)"), power);
  EXPECT_LT(PlaceOf("OnSupportBrowserStatusChanged (false,)"), power);
  EXPECT_LT(PlaceOf("OnBtMusicPlayChanged (byte 0x00,)"), power);
  for (const ProfileId profile : {BT_PROFILE_HFP, BT_PROFILE_A2DP, BT_PROFILE_AVRCP, BT_PROFILE_PBAP}) {
    EXPECT_LT(PlaceOf(Connection(profile, BT_CONN_DISCONNECTED)), power) << profile;
  }
}

TEST_F(TakeoverTest, AfterACrashVoiceRecognitionIsReportedAsEndedToo) {
  service.Call("StartVoiceRecognition");
  ASSERT_TRUE(service.WaitFor("OnVoiceStatusChanged (byte 0x01,)"));
  service.Process().Kill();
  service.ForgetSignals();
  service.Start();
  ASSERT_TRUE(service.WaitFor("OnOpenBtStatusChanged"));
  const std::ptrdiff_t power = PlaceOf("OnOpenBtStatusChanged");
  EXPECT_LT(PlaceOf("OnVoiceStatusChanged (byte 0x00,)"), power);
  EXPECT_LT(PlaceOf("OnAudioStatusChanged (byte 0x00,)"), power);
}

TEST_F(TakeoverTest, AfterACrashTheTableOfCallsIsEmptyAtOnce) {
  HaveACall();
  service.Process().Kill();
  service.ForgetSignals();
  service.Start();
  ASSERT_TRUE(service.WaitFor("OnCurrentCallInfoChanged (0,)"));
  EXPECT_THAT(Contents(SH_CALL_INFO_LIST), Each(0));
}

TEST_F(TakeoverTest, AfterAnEndInGoodOrderThereIsNothingToBeSaid) {
  HaveACall();
  End();
  service.ForgetSignals();
  service.Start();
  ASSERT_TRUE(service.WaitFor("OnOpenBtStatusChanged"));
  EXPECT_EQ(PlaceOf("OnOpenBtStatusChanged"), 0) << service.Signals().front();
}

TEST(RefusedServiceTest, TouchesNeitherSegmentsNorSettingsNorState) {
  // The segments of a system that has been up for a while: whoever made them has ended.
  RunningService service({}, RunningService::Begin::LATER);
  {
    ChildProcess client({BTTEST_LISTENING_CLIENT, "wait"});
    ASSERT_TRUE(client.WaitForOutput("waiting\n")) << client.Errors();
  }
  service.Start();
  ASSERT_TRUE(service.WaitFor("OnOpenBtStatusChanged (byte 0x01,)"));
  const std::vector<int> identifiers = Identifiers();
  const auto contents = AllContents();
  // Files that a service which starts would write, or put aside.
  const std::filesystem::path settings = std::getenv("MWP_PERSIST_FILE");
  ASSERT_TRUE(std::filesystem::remove(settings));
  const bttest::TemporaryDirectory directory;
  const std::filesystem::path state = directory.Path() / "state.json";
  std::ofstream(state) << "no state";

  ChildProcess second({kExecutable, "--remove-segments", "--state", state});
  EXPECT_EQ(second.Wait(), 3);
  EXPECT_EQ(Identifiers(), identifiers);
  EXPECT_EQ(AllContents(), contents);
  EXPECT_FALSE(std::filesystem::exists(settings));
  EXPECT_TRUE(std::filesystem::exists(state));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory.Path()), {}), 1);
}

TEST(RefusedServiceTest, OneThatLostItsNameToAnotherTouchesNothingAtItsEnd) {
  RunningService service({"--speed", "20", "--world", BTTEST_QUIET_WORLD, "--remove-segments"});
  ASSERT_TRUE(service.WaitFor("OnPBDownloadStatus (byte 0x03, byte 0x06)"));
  service.Control("LeaveBus", g_variant_new("(u)", 1000U));
  ChildProcess second({kExecutable, "--no-state", "--world", "empty"});
  EXPECT_EQ(service.Process().Wait(), 3) << "the name is the second's";
  EXPECT_THAT(Identifiers(), Each(Not(-1)));
}

class GarbageTest : public testing::TestWithParam<int> {};

TEST_P(GarbageTest, IsNotBelievedAndCleared) {
  for (const SegmentEntry& entry : kSegmentCatalogue) {
    bttest::CreateSegment(entry.id, entry.size);
    bttest::WriteSegment(entry.id, 0,
                         std::vector<unsigned char>(entry.size, static_cast<unsigned char>(GetParam())));
  }
  RunningService service;
  ASSERT_TRUE(service.WaitFor("OnOpenBtStatusChanged (byte 0x01,)"));
  EXPECT_THAT(service.Signals(), Each(StartsWith("OnOpenBtStatusChanged")));
  for (const SegmentEntry& entry : kSegmentCatalogue) {
    if (entry.id != SH_BT_PARAMETER) {
      EXPECT_THAT(Contents(entry.id), Each(0)) << entry.name;
    }
  }
  EXPECT_EQ(Word(SH_BT_PARAMETER, PARAMETER_POWER_SWITCH), 1) << "the installed default";
  EXPECT_EQ(Word(SH_BT_PARAMETER, PARAMETER_LOADED), 1);
}

INSTANTIATE_TEST_SUITE_P(Takeover, GarbageTest, testing::Values(0xFF, 0x01, 0x41));

}  // namespace
}  // namespace btservice
