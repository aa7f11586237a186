// The JSON objects have the members that docs/btctl.md lists.

#include <algorithm>
#include <sstream>

#include <gmock/gmock.h>

#include "tools/Btctl.h"

namespace bttest {
namespace {

using testing::ElementsAre;

using JsonOutput = BtctlWithRecorder;

std::vector<std::string> Keys(const Json& object) {
  std::vector<std::string> keys;
  for (const auto& [key, value] : object.items()) {
    keys.push_back(key);
  }
  return keys;
}

TEST_F(JsonOutput, OfARequestThatIsAcceptedSaysSo) {
  AcceptAll();
  EXPECT_EQ(RunBtctl({"call", "redial", "--json"}).Object().dump(),
            R"({"kind":"answer","command":"call redial","accepted":true})");
}

TEST_F(JsonOutput, OfAValueIsAWordIfThereIsOne) {
  service.SetReply("GetCurCallStatus", g_variant_new("(y)", 5));
  EXPECT_EQ(RunBtctl({"call", "status", "1", "--json"}).Object().dump(),
            R"({"kind":"answer","command":"call status","result":"incoming"})");
}

TEST_F(JsonOutput, OfAValueWithoutAWordIsItsNumber) {
  service.SetReply("GetCurCallStatus", g_variant_new("(y)", 77));
  EXPECT_EQ(RunBtctl({"call", "status", "1", "--json"}).Object()["result"], 77);
  EXPECT_EQ(RunBtctl({"call", "status", "1"}).output, "77\n");
}

TEST_F(JsonOutput, OfAYesOrNoIsABoolean) {
  service.SetReply("IsRootDirectory", g_variant_new("(b)", TRUE));
  EXPECT_EQ(RunBtctl({"browse", "is-root", "--json"}).Object()["result"], true);
  EXPECT_EQ(RunBtctl({"browse", "is-root"}).output, "yes\n");
}

TEST_F(JsonOutput, OfARecordHasItsMembers) {
  service.SetReply("GetMediaInfo", g_variant_new("(sssssssb)", "Low Tide", "The Breakwaters", "Harbour", "1",
                                                 "4", "Folk", "167000", TRUE));
  EXPECT_EQ(RunBtctl({"music", "info", "--json"}).Object().dump(),
            R"({"kind":"answer","command":"music info","title":"Low Tide","artist":"The Breakwaters",)"
            R"("album":"Harbour","track":"1","numOfTracks":"4","genre":"Folk","duration":"167000"})");
}

TEST_F(JsonOutput, OfAConnectionHasStateAndAddress) {
  service.SetReply("GetPhoneConnectionState", g_variant_new("(ys)", 2, "00:1A:7D:DA:71:13"));
  EXPECT_EQ(RunBtctl({"phone", "connection", "--json"}).Object().dump(),
            R"({"kind":"answer","command":"phone connection","status":"connected",)"
            R"("address":"00:1A:7D:DA:71:13"})");
}

TEST_F(JsonOutput, OfOutArgumentsNamesThem) {
  service.SetReply("GetCurPlayPosition", g_variant_new("(iib)", 1500, 167000, TRUE));
  EXPECT_EQ(RunBtctl({"music", "position", "--json"}).Object().dump(),
            R"({"kind":"answer","command":"music position","position":1500,"totalLength":167000})");
}

TEST_F(JsonOutput, CountsMillisecondsWherePeopleReadMinutes) {
  service.SetReply("GetCurPlayPosition", g_variant_new("(iib)", 61500, 167000, TRUE));
  EXPECT_EQ(RunBtctl({"music", "position", "--json"}).Object()["position"], 61500);
  EXPECT_EQ(RunBtctl({"music", "position"}).output, "position     1:01\ntotalLength  2:47\n");
}

TEST_F(JsonOutput, OfAListIsOneObjectAnItem) {
  service.SetReply("GetCurPlayMode", g_variant_new_parsed("([(byte 2, byte 1), (byte 3, byte 9)], true)"));
  const auto modes = RunBtctl({"music", "modes", "--json"}).Objects();
  ASSERT_EQ(modes.size(), 2U);
  EXPECT_EQ(modes[0].dump(), R"({"kind":"play-mode","mode":"repeat","value":1})");
  EXPECT_EQ(modes[1].dump(), R"({"kind":"play-mode","mode":"shuffle","value":9})");
}

TEST_F(JsonOutput, OfAnErrorIsOneObjectOnStandardError) {
  const Ran ran = RunBtctl({"connect", "nobody", "--json"});
  EXPECT_EQ(ran.output, "");
  EXPECT_THAT(Keys(ran.Error()), ElementsAre("kind", "code", "name", "message", "hint"));
  EXPECT_EQ(ran.Error()["kind"], "error");
  EXPECT_EQ(ran.Error()["name"], "bad-address");
}

TEST_F(JsonOutput, OfAWrongCommandLineIsOneObjectAsWell) {
  EXPECT_EQ(RunBtctl({"--json", "nonsense"}).Error()["name"], "usage");
}

TEST_F(JsonOutput, OfHelpIsOneObjectWithItsText) {
  for (const Words& words :
       {Words{"--json", "--help"}, {"call", "dial", "--help", "--json"}, {"--version", "--json"}}) {
    Words plain = words;
    plain.erase(std::find(plain.begin(), plain.end(), "--json"));
    const Ran ran = RunBtctl(words);
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(ran.Object()["kind"], "help");
    EXPECT_EQ(ran.Object()["text"], RunBtctl(plain).output);
  }
}

TEST_F(JsonOutput, OfTheLogsIsOneObjectALine) {
  const Ran ran = RunBtctl({"call", "accept", "--json", "--verbose"},
                           {{"MWP_LOG_LEVEL", "debug"}, {"G_MESSAGES_DEBUG", "all"}});
  std::istringstream lines(ran.errors);
  int logged = 0;
  for (std::string line; std::getline(lines, line);) {
    logged += Json::parse(line)["kind"] == "log" ? 1 : 0;
  }
  EXPECT_GT(logged, 1) << ran.errors;
}

TEST_F(JsonOutput, OfAWarningOfGLibIsAnObjectOnStandardError) {
  ChildProcess wait(CommandLine({"wait", "OnPairStatusChanged", "--json"}));
  ASSERT_TRUE(WaitUntil([&] { return wait.Errors().find("waiting") != std::string::npos; }));
  service.EmitRaw("OnPairStatusChanged", g_variant_new("(s)", "not what is declared"));
  service.Emit("OnPairStatusChanged", g_variant_new("(yys)", 3, 4, kPhone));
  const Ran ran = Ended(wait);
  EXPECT_EQ(ran.Object()["event"], "OnPairStatusChanged") << "and nothing else on standard output";
  std::vector<Json> warnings;
  std::istringstream lines(ran.errors);
  for (std::string line; std::getline(lines, line);) {
    const Json object = Json::parse(line);
    if (object["kind"] == "log") {
      warnings.push_back(object);
    }
  }
  ASSERT_EQ(warnings.size(), 1U) << ran.errors;
  EXPECT_THAT(Keys(warnings[0]), ElementsAre("kind", "from", "level", "message"));
  EXPECT_EQ(warnings[0]["from"], "GLib-GIO");
  EXPECT_EQ(warnings[0]["level"], "warning");
  EXPECT_THAT(warnings[0]["message"].get<std::string>(), testing::HasSubstr("Dropping signal"));
}

TEST_F(JsonOutput, OfAClosedStandardOutputIsAnError) {
  ChildProcess process({"sh", "-c", "exec \"$0\" --json call redial >&-", BTCTL_EXECUTABLE});
  const Ran ran = Ended(process);
  EXPECT_EQ(ran.code, 9);
  EXPECT_EQ(ran.Error()["message"], "standard output is closed");
  EXPECT_THAT(service.TakeCallTexts(), testing::IsEmpty());
}

TEST_F(JsonOutput, OfAnEventTellsTimeNameAndValues) {
  ChildProcess wait(CommandLine({"wait", "OnPairStatusChanged", "--json"}));
  ASSERT_TRUE(WaitUntil([&] { return wait.Errors().find("waiting") != std::string::npos; }));
  service.Emit("OnPairStatusChanged", g_variant_new("(yys)", 3, 4, "00:1A:7D:DA:71:13"));
  const Ran ran = Ended(wait);
  const Json event = ran.Object();
  EXPECT_THAT(Keys(event), ElementsAre("kind", "time", "event", "values"));
  EXPECT_EQ(event["kind"], "event");
  EXPECT_THAT(event["time"].get<std::string>(),
              testing::MatchesRegex("[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{3}Z"));
  EXPECT_EQ(event["event"], "OnPairStatusChanged");
  EXPECT_EQ(event["values"].dump(),
            R"({"status":"failed","reason":"timeout","address":"00:1A:7D:DA:71:13"})");
  EXPECT_EQ(Json::parse(ran.errors)["kind"], "note");
}

TEST_F(JsonOutput, OfWhatBtctlKnowsNeedsNoBus) {
  bus.Stop();
  EXPECT_THAT(Keys(RunBtctl({"commands", "--json"}).Objects().at(0)),
              ElementsAre("kind", "command", "arguments", "methods", "help"));
  EXPECT_THAT(Keys(RunBtctl({"events", "--json"}).Objects().at(0)), ElementsAre("kind", "event", "values"));
  EXPECT_THAT(Keys(RunBtctl({"words", "--json"}).Objects().at(0)),
              ElementsAre("kind", "enumeration", "value", "word"));
}

}  // namespace
}  // namespace bttest
