#include "btctl/cli/Completion.h"

#include <gmock/gmock.h>

namespace btctl {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

class Completion : public testing::Test {
 protected:
  Completion() {
    m_known.AddAddress("00:1A:7D:DA:71:13");
    m_known.AddAddress("F0:08:D1:C0:FF:EE");
    m_known.SetContacts({"Ada Arndt", "Ben Baker", "Jörg Jäger"});
  }

  std::vector<std::string> Of(const std::vector<std::string>& before, const std::string& start) {
    return Complete(before, start, m_known);
  }

  KnownNames m_known;
};

TEST_F(Completion, OfAnEmptyLineOffersGroupsCommandsAndTheWordsOfTheShell) {
  EXPECT_THAT(Of({}, ""), IsSupersetOf({"call", "connect", "help", "quit", "power"}));
}

TEST_F(Completion, FollowsTheGroups) {
  EXPECT_THAT(Of({"call"}, "a"), ElementsAre("accept", "action", "audio"));
  EXPECT_THAT(Of({"call", "audio"}, ""), ElementsAre("car", "is-private", "phone"));
  EXPECT_THAT(Of({"help", "call", "audio"}, "c"), ElementsAre("car"));
}

TEST_F(Completion, OfAnAddressOffersThoseThatAreKnown) {
  EXPECT_THAT(Of({"connect"}, "f0"), ElementsAre("F0:08:D1:C0:FF:EE"));
  EXPECT_THAT(Of({"pairing", "answer", "--pin", "1234"}, ""),
              ElementsAre("00:1A:7D:DA:71:13", "F0:08:D1:C0:FF:EE"));
}

TEST_F(Completion, GoesByThePlaceOfTheArgument) {
  EXPECT_THAT(Of({"capability", "set"}, "auto-a"), ElementsAre("auto-answer"));
  EXPECT_THAT(Of({"capability", "set", "auto-answer"}, ""), ElementsAre("off", "on"));
  EXPECT_THAT(Of({"capability", "set", "auto-answer", "on"}, ""), IsEmpty());
}

TEST_F(Completion, OfAnOptionOffersItsValues) {
  EXPECT_THAT(Of({"connect", "00:1A:7D:DA:71:13"}, "--pr"), ElementsAre("--profile"));
  EXPECT_THAT(Of({"connect", "00:1A:7D:DA:71:13", "--profile"}, "h"), ElementsAre("hfp", "hfp-a2dp", "hid"));
  EXPECT_THAT(Of({"connect", "--profile", "hfp"}, "00"), ElementsAre("00:1A:7D:DA:71:13"));
  EXPECT_THAT(Of({"connect"}, "--"), IsSupersetOf({"--json", "--only", "--profile", "--timeout"}));
}

TEST_F(Completion, OfAContactOffersNames) {
  EXPECT_THAT(Of({"call", "dial"}, "a"), ElementsAre("Ada Arndt"));
  EXPECT_THAT(Of({"contacts", "favorite"}, "J"), ElementsAre("Jörg Jäger"));
}

TEST_F(Completion, OfEventsGoesOn) {
  EXPECT_THAT(Of({"wait"}, "onscan"), ElementsAre("OnScanStatusChanged"));
  EXPECT_THAT(Of({"monitor", "OnScanStatusChanged"}, "OnHIDCal"), ElementsAre("OnHIDCalibration"));
}

TEST_F(Completion, OffersACommandThatIsAGroupAsWell) {
  EXPECT_THAT(Of({"scan"}, ""), ElementsAre("clear", "start", "stop"));
  EXPECT_THAT(Of({"scan"}, "--s"), ElementsAre("--seconds"));
  EXPECT_THAT(Of({"devices", "list"}, "--s"), ElementsAre("--scan"));
}

TEST_F(Completion, OfTheSimulationOffersItsControlsAndThenAddresses) {
  EXPECT_THAT(Of({"sim"}, "lose"), ElementsAre("lose-link"));
  EXPECT_THAT(Of({"sim", "lose-link"}, "f0"), ElementsAre("F0:08:D1:C0:FF:EE"));
}

TEST_F(Completion, OfWhatIsNoCommandOffersNothing) {
  EXPECT_THAT(Of({"fly"}, ""), IsEmpty());
  EXPECT_THAT(Of({"call"}, "quit"), Not(Contains("quit")));
}

}  // namespace
}  // namespace btctl
