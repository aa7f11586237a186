// What the running service keeps in the shared segments: the memory itself, and what becomes of segments that
// somebody removes or spoils. What an application reads out of them is in tests/conformance.

#include <csignal>
#include <cstring>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "protocol/Segments.h"
#include "service/stack/StackTypes.h"
#include "support/Segments.h"
#include "tests/service/running_service.h"

namespace btservice {
namespace {

using testing::AnyOf;
using testing::HasSubstr;

constexpr const char* kPhone = "00:1A:7D:DA:71:13";

std::int32_t Word(ShareMemID id, std::size_t offset) {
  const std::vector<unsigned char> bytes = bttest::ReadSegment(id, offset, sizeof(std::int32_t));
  std::int32_t word = 0;
  std::memcpy(&word, bytes.data(), sizeof(word));
  return word;
}

std::string Contents(ShareMemID id) {
  const std::vector<unsigned char> bytes = bttest::ReadSegment(id, 0, kSegmentCatalogue[id].size);
  return std::string(bytes.begin(), bytes.end());
}

/// Marks the segment that the key names now for removal, as a client's teardown may do.
void PullAway(ShareMemID id) { bttest::RemoveSegment(id); }

class PublishedSegmentsTest : public testing::Test {
 protected:
  // The built-in world, where a pairing is given up after 30 seconds: no faster, so that a slow machine has
  // time.
  PublishedSegmentsTest() : service({"--speed", "5"}) {
    EXPECT_TRUE(service.WaitFor("OnOpenBtStatusChanged (byte 0x01,)"));
  }
  void PairAndConnect() {
    ASSERT_EQ(service.Ask("Pair", g_variant_new("(ss)", kPhone, "")), "(byte 0x01,)");
    ASSERT_TRUE(service.WaitFor("OnAnswerPairRequest"));
    ASSERT_EQ(service.Ask("AnswerPair", g_variant_new("(ssy)", "", kPhone, 0)), "(byte 0x01,)");
    ASSERT_TRUE(service.WaitFor("OnPairStatusChanged (byte 0x02, byte 0x00, '" + std::string(kPhone)));
    ASSERT_EQ(service.Ask("Connect", g_variant_new("(syy)", kPhone, 3, 0)), "(byte 0x01,)");
    // The built-in settings have the phone book downloaded without asking.
    ASSERT_TRUE(service.WaitFor("OnPBDownloadStatus (byte 0x03, byte 0x06)"));
  }

  RunningService service;
};

TEST_F(PublishedSegmentsTest, AllHaveTheSizesOfTheContract) {
  ASSERT_EQ(service.Ask("GetPowerStatus"), "(byte 0x01,)");
  for (const SegmentEntry& entry : kSegmentCatalogue) {
    const auto status = bttest::FindSegment(entry.id);
    ASSERT_TRUE(status) << entry.name;
    EXPECT_EQ(status->size, entry.size) << entry.name;
    EXPECT_EQ(status->mode, 0666U) << entry.name;
  }
}

TEST_F(PublishedSegmentsTest, TheParametersAreLoadedAndKeptCurrent) {
  EXPECT_EQ(Word(SH_BT_PARAMETER, PARAMETER_LOADED), 1);
  EXPECT_EQ(Word(SH_BT_PARAMETER, PARAMETER_POWER_SWITCH), 1) << "the installed default";
  EXPECT_EQ(Word(SH_BT_PARAMETER, PARAMETER_AUTO_ANSWER), 0);
  EXPECT_EQ(service.Ask("SetCapability", g_variant_new("(yy)", 2, 1)), "(byte 0x01,)");
  EXPECT_EQ(Word(SH_BT_PARAMETER, PARAMETER_AUTO_ANSWER), 1);
  EXPECT_EQ(service.Ask("SetAutoConnect", g_variant_new("(b)", FALSE)), "(true,)");
  EXPECT_EQ(Word(SH_BT_PARAMETER, PARAMETER_AUTO_CONNECT), 0);
}

TEST_F(PublishedSegmentsTest, ThePhoneBookIsThereWhenTheCallIsAnswered) {
  PairAndConnect();
  EXPECT_EQ(service.Ask("GetContactList"), "(true,)");
  EXPECT_EQ(Word(SH_CONTACT_LIST, 0), 21);
  EXPECT_THAT(Contents(SH_CONTACT_LIST), HasSubstr("Lindqvist"));
  EXPECT_EQ(service.Ask("GetContactCount"), "(21,)");
  EXPECT_EQ(service.Ask("SetContactFavorite", g_variant_new("(ib)", 12, TRUE)), "(true,)");
  EXPECT_EQ(service.Ask("GetFavContactList"), "(true,)");
  EXPECT_EQ(Word(SH_FAV_CONTACT_LIST, 0), 1);
  EXPECT_THAT(Contents(SH_FAV_CONTACT_LIST), HasSubstr("Lindqvist"));
  service.Call("GetContactByIndex", g_variant_new("(i)", 0));
  EXPECT_EQ(Word(SH_CONTACT_INFO, 0), 1);
  EXPECT_THAT(Contents(SH_CONTACT_INFO), HasSubstr("Arndt"));
  service.Call("GetContactByIndex", g_variant_new("(i)", 99));
  EXPECT_EQ(Word(SH_CONTACT_INFO, 0), 0);
}

TEST_F(PublishedSegmentsTest, NothingOfALongerListStaysBehind) {
  PairAndConnect();
  service.Call("GetContactList");
  ASSERT_EQ(service.Ask("ClearContact"), "(true,)");
  EXPECT_EQ(service.Ask("GetContactList"), "(true,)");
  EXPECT_EQ(Contents(SH_CONTACT_LIST), std::string(kSegmentCatalogue[SH_CONTACT_LIST].size, '\0'));
}

TEST_F(PublishedSegmentsTest, CallLogsComeByType) {
  PairAndConnect();
  EXPECT_EQ(service.Ask("GetCallLogList", g_variant_new("(y)", CALL_LOG_ALL)), "(true,)");
  EXPECT_EQ(Word(SH_CALL_LOG_LIST, 0), 5);
  EXPECT_EQ(service.Ask("GetCallLogList", g_variant_new("(y)", CALL_LOG_MISSED)), "(true,)");
  EXPECT_EQ(Word(SH_CALL_LOG_LIST, 0), 2);
  EXPECT_EQ(service.Ask("GetCallLogCount", g_variant_new("(y)", CALL_LOG_MISSED)), "(2,)");
  const std::int32_t id = Word(SH_CALL_LOG_LIST, 4);
  service.Call("GetCallLogById", g_variant_new("(i)", id));
  EXPECT_EQ(Word(SH_CALL_LOG_INFO, 0), 1);
  EXPECT_EQ(Word(SH_CALL_LOG_INFO, 4), id);
}

TEST_F(PublishedSegmentsTest, TheCallTableFollowsTheCalls) {
  PairAndConnect();
  EXPECT_EQ(Word(SH_CALL_INFO_LIST, 0), 0);
  // Nobody answers before the segment is read here, however slow the machine.
  ASSERT_EQ(service.Control("SetCalledParty", g_variant_new("(ssu)", kPhone, "answers", 3600000)), "(true,)");
  EXPECT_EQ(service.Ask("DialCall", g_variant_new("(s)", "112")), "(true,)");
  EXPECT_EQ(Word(SH_CALL_INFO_LIST, 0), 1);
  EXPECT_THAT(Word(SH_CALL_INFO_LIST, 8), AnyOf(BT_CALL_DIALING, BT_CALL_ALERTING));
  EXPECT_THAT(Contents(SH_CALL_INFO_LIST), HasSubstr("112"));
  ASSERT_TRUE(bttest::RunUntil([] { return Word(SH_CALL_INFO_LIST, 8) == BT_CALL_ALERTING; }));
  ASSERT_EQ(service.Control("AnswerCall", g_variant_new("(s)", kPhone)), "(true,)");
  ASSERT_TRUE(service.WaitFor("OnCallingTimeChanged (2, 1, true)"));
  EXPECT_EQ(Word(SH_CALL_INFO_LIST, 8), BT_CALL_ACTIVE);
  EXPECT_GE(Word(SH_CALL_INFO_LIST, 20), 2);
  EXPECT_EQ(service.Ask("TerminateCall"), "(true,)");
  EXPECT_EQ(Word(SH_CALL_INFO_LIST, 0), 0);
}

TEST_F(PublishedSegmentsTest, ThePairedListFollowsTheDevices) {
  EXPECT_EQ(Word(SH_PAIRED_LIST, 0), 0);
  PairAndConnect();
  EXPECT_EQ(Word(SH_PAIRED_LIST, 0), 1);
  EXPECT_EQ(Word(SH_PAIRED_LIST, 12), BT_CONN_CONNECTED);
  EXPECT_THAT(Contents(SH_PAIRED_LIST), HasSubstr(kPhone));
}

TEST_F(PublishedSegmentsTest, ASegmentThatWasPulledAwayIsMadeAgain) {
  PairAndConnect();
  service.Call("GetContactList");
  PullAway(SH_CONTACT_LIST);
  PullAway(SH_BT_PARAMETER);
  EXPECT_FALSE(bttest::FindSegment(SH_CONTACT_LIST));
  EXPECT_EQ(service.Ask("GetContactList"), "(true,)");
  EXPECT_EQ(Word(SH_CONTACT_LIST, 0), 21);
  EXPECT_EQ(service.Ask("SetCapability", g_variant_new("(yy)", 2, 1)), "(byte 0x01,)");
  EXPECT_EQ(Word(SH_BT_PARAMETER, PARAMETER_LOADED), 1);
  EXPECT_EQ(Word(SH_BT_PARAMETER, PARAMETER_POWER_SWITCH), 1) << "not only what has changed";
  EXPECT_EQ(Word(SH_BT_PARAMETER, PARAMETER_AUTO_ANSWER), 1);
}

TEST_F(PublishedSegmentsTest, ASegmentThatAClientMadeAnewIsFollowed) {
  PairAndConnect();
  PullAway(SH_CONTACT_LIST);
  bttest::CreateSegment(SH_CONTACT_LIST, kSegmentCatalogue[SH_CONTACT_LIST].size);
  EXPECT_EQ(service.Ask("GetContactList"), "(true,)");
  EXPECT_EQ(Word(SH_CONTACT_LIST, 0), 21);
}

TEST(OddSegmentsTest, ASegmentThatIsTooSmallIsRefusedWithAReason) {
  bttest::CreateSegment(SH_CONTACT_LIST, 100);
  RunningService service;
  EXPECT_EQ(service.Ask("GetContactList"), "(false,)");
  EXPECT_EQ(service.Ask("GetContactList"), "(false,)");
  EXPECT_EQ(service.Ask("GetFavContactList"), "(true,)") << "the others are served";
  const std::string errors = service.Process().Errors();
  const std::size_t first = errors.find("SH_CONTACT_LIST, 2097152 bytes");
  ASSERT_NE(first, std::string::npos) << errors;
  EXPECT_EQ(errors.find("SH_CONTACT_LIST", first + 1), std::string::npos) << "said once";
}

TEST(OddSegmentsTest, SettingsThatAClientWasKilledOverAreRepaired) {
  // It has only set the loaded flag.
  bttest::CreateSegment(SH_BT_PARAMETER, 40);
  const std::int32_t one = 1;
  std::vector<unsigned char> bytes(sizeof(one));
  std::memcpy(bytes.data(), &one, sizeof(one));
  bttest::WriteSegment(SH_BT_PARAMETER, PARAMETER_LOADED, bytes);
  bttest::WriteSegment(SH_BT_PARAMETER, PARAMETER_AUTO_ANSWER, bytes);
  RunningService service;
  EXPECT_EQ(service.Ask("GetCapability", g_variant_new("(y)", 0)), "(byte 0x01,)") << "the installed default";
  EXPECT_EQ(service.Ask("GetCapability", g_variant_new("(y)", 2)), "(byte 0x00,)");
  EXPECT_TRUE(service.WaitFor("OnOpenBtStatusChanged (byte 0x01,)")) << "the service is switched on";
  EXPECT_EQ(Word(SH_BT_PARAMETER, PARAMETER_POWER_SWITCH), 1);
  EXPECT_EQ(Word(SH_BT_PARAMETER, PARAMETER_AUTO_CONNECT), 1);
  EXPECT_EQ(Word(SH_BT_PARAMETER, PARAMETER_AUTO_ANSWER), 0);
  EXPECT_EQ(Word(SH_BT_PARAMETER, PARAMETER_LOADED), 1);
}

// The client says that all is loaded before it loads: a service that believed it took "do not connect by
// yourself" for the setting, as long as it ran.
TEST(OddSegmentsTest, PhonesAreConnectedAlthoughAClientWasLoadingAtTheStart) {
  bttest::CreateSegment(SH_BT_PARAMETER, kSegmentCatalogue[SH_BT_PARAMETER].size);
  const std::int32_t one = 1;
  std::vector<unsigned char> bytes(sizeof(one));
  std::memcpy(bytes.data(), &one, sizeof(one));
  bttest::WriteSegment(SH_BT_PARAMETER, PARAMETER_LOADED, bytes);
  bttest::WriteSegment(SH_BT_PARAMETER, PARAMETER_POWER_SWITCH, bytes);  // nothing else is loaded yet
  RunningService service({"--world", "one-phone", "--speed", "50"});
  ASSERT_TRUE(service.WaitFor("OnOpenBtStatusChanged (byte 0x01,)"));
  ASSERT_EQ(service.Ask("SetPower", g_variant_new("(y)", 0)), "(1,)");
  ASSERT_TRUE(service.WaitFor("OnOpenBtStatusChanged (byte 0x00,)"));
  service.ForgetSignals();
  ASSERT_EQ(service.Ask("SetPower", g_variant_new("(y)", 1)), "(1,)");
  EXPECT_TRUE(
      service.WaitFor("OnConnectStatusChanged ('" + std::string(kPhone) + "', byte 0x01, byte 0x02)"));
}

TEST(OddSegmentsTest, SettingsSurviveTheService) {
  {
    RunningService service({"--remove-segments"});
    ASSERT_EQ(service.Ask("SetCapability", g_variant_new("(yy)", 3, 1)), "(byte 0x01,)");
    service.Process().Signal(SIGTERM);
    ASSERT_EQ(service.Process().Wait(), 0);
    ASSERT_FALSE(bttest::FindSegment(SH_BT_PARAMETER));
  }
  RunningService service;
  EXPECT_EQ(service.Ask("GetCapability", g_variant_new("(y)", 3)), "(byte 0x01,)");
}

}  // namespace
}  // namespace btservice
