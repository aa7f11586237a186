#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "service/files/InputFile.h"
#include "service/files/JsonNode.h"
#include "service/files/Limits.h"
#include "service/simulation/world/WorldFile.h"
#include "support/LogCapture.h"
#include "support/TemporaryDirectory.h"

namespace btservice {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class WorldFileTest : public testing::Test {
 protected:
  std::string Write(const std::string& text, const std::string& name = "world.json") {
    std::string path = directory.Path().string() + "/" + name;
    std::ofstream(path) << text;
    return path;
  }
  /// What is said of a world that makes no sense, without the directory.
  std::string ProblemOf(const std::string& text) {
    const std::string path = Write(text);
    try {
      LoadWorld(path);
    } catch (const std::runtime_error& problem) {
      const std::string message = problem.what();
      return message.rfind(path, 0) == 0 ? message.substr(directory.Path().string().size() + 1) : message;
    }
    return "nothing";
  }

  bttest::TemporaryDirectory directory;
};

TEST_F(WorldFileTest, TheSmallestWorldIsEmpty) {
  const WorldFile file = LoadWorld(Write(R"({"format": 1})"));
  EXPECT_TRUE(file.world.devices.empty());
  EXPECT_TRUE(file.timeline.empty());
  EXPECT_EQ(file.world.adapter.name, "Head Unit") << "what is not said has its default";
}

TEST_F(WorldFileTest, TheWordThatPairingByPinHadBeforeIsStillRead) {
  const WorldFile file = LoadWorld(Write(
      R"({"format": 1, "devices": [{"address": "00:1A:7D:DA:71:13", "name": "Old", "pairing": "pin"}]})"));
  ASSERT_EQ(file.world.devices.size(), 1U);
  EXPECT_EQ(file.world.devices[0].pairing, BT_PAIR_REQUEST_PIN_CODE);
}

TEST_F(WorldFileTest, WhatIsSaidIsTaken) {
  const WorldFile file = LoadWorld(Write(R"({
    "format": 1, // a comment
    "adapter": {"name": "Änne's car", "pairedDevices": 3},
    "delays": {"powerOnMs": 7, "downloadStepSize": 9},
    "devices": [{
      "address": "00:1a:7d:da:71:13", "name": "Phone", "support": "android-auto",
      "profiles": ["hfp", "pbap"], "refusedProfiles": ["pbap"], "pairing": "pin-code", "pin": "1234",
      "acceptsPairing": false, "inRange": false, "paired": true,
      "phone": {"signal": 2, "codec": "cvsd", "calledParty": "busy", "answersAfterMs": 11, "roaming": true,
                "callLogs": [{"type": "missed", "number": "112", "date": "2026-05-29", "time": "18:05:10"}],
                "messages": [{"handle": "AB12", "text": "Hi"}]},
      "phoneBook": {"contacts": [{"firstName": "Ada", "numbers": [
        {"number": "1"}, {"type": "home", "number": "2"}, {"number": "3"}]}], "generate": 2},
      "music": {"folders": [
        {"uid": "f", "name": "F", "tracks": [{"uid": "t", "title": "T", "lengthMs": 5}]}]},
      "serial": {"script": {"VERSION?": "1.4"}}
    }],
    "timeline": [{"atMs": 2000, "everyMs": 10, "do": "call", "device": "00:1A:7D:DA:71:13", "number": "112"}]
  })"));
  EXPECT_EQ(file.world.adapter.name, "Änne's car");
  EXPECT_EQ(file.world.adapter.pairedDevices, 3);
  EXPECT_EQ(file.world.delays.powerOn, Milliseconds(7));
  EXPECT_EQ(file.world.delays.downloadStepSize, 9);
  ASSERT_EQ(file.world.devices.size(), 1U);
  const DeviceData& device = file.world.devices[0];
  EXPECT_EQ(device.support, BT_SUPPORT_ANDROID_AUTO);
  EXPECT_THAT(device.profiles, ElementsAre(BT_PROFILE_HFP, BT_PROFILE_PBAP));
  EXPECT_THAT(device.refusedProfiles, ElementsAre(BT_PROFILE_PBAP));
  EXPECT_EQ(device.pairing, BT_PAIR_REQUEST_PIN_CODE);
  EXPECT_EQ(device.pin, "1234");
  EXPECT_FALSE(device.acceptsPairing);
  EXPECT_FALSE(device.inRange);
  EXPECT_TRUE(device.paired);
  EXPECT_EQ(device.phone.signal, 2);
  EXPECT_EQ(device.phone.codec, BT_CODEC_CVSD);
  EXPECT_EQ(device.phone.calledParty, CalledParty::BUSY);
  EXPECT_EQ(device.phone.answersAfter, Milliseconds(11));
  EXPECT_TRUE(device.phone.roaming);
  EXPECT_EQ(device.phone.callLogs[0].type, CALL_LOG_MISSED);
  EXPECT_EQ(device.phone.messages[0].handle, "AB12");
  ASSERT_EQ(device.phone.contacts.size(), 3U);
  EXPECT_EQ(device.phone.contacts[2].id, 3);
  ASSERT_EQ(device.phone.contacts[0].numbers.size(), 2U) << "grouped by kind";
  EXPECT_THAT(device.phone.contacts[0].numbers[0].numbers, ElementsAre("1", "3"));
  EXPECT_EQ(device.music.folders[0].tracks[0].length, Milliseconds(5));
  EXPECT_EQ(device.serial.script.at("VERSION?"), "1.4");
  ASSERT_EQ(file.timeline.size(), 1U);
  EXPECT_EQ(file.timeline[0].kind, HappeningKind::CALL);
  EXPECT_EQ(file.timeline[0].at, Milliseconds(2000));
  EXPECT_EQ(file.timeline[0].every, Milliseconds(10));
}

TEST_F(WorldFileTest, WhatIsWrongIsReportedWithItsLineAndWhatWasExpected) {
  EXPECT_EQ(
      ProblemOf("{\"format\": 1,\n \"devices\": [\n  {\"name\": \"A\",\n   \"address\": \"12\"}]}"),
      "world.json:4: devices[0].address: expected a Bluetooth address such as 00:1A:7D:DA:71:13, got '12'");
  EXPECT_EQ(ProblemOf("{\"format\": 1,\n\"devices\": [{\"address\": \"00:1A:7D:DA:71:13\"}]}"),
            "world.json:2: devices[0].name: is missing");
  EXPECT_EQ(ProblemOf("{\n\"format\": 2\n}"),
            "world.json:2: format: expected a whole number from 1 to 1, got 2");
  EXPECT_EQ(ProblemOf("{}"), "world.json:1: format: is missing");
  EXPECT_EQ(ProblemOf("[]"), "world.json:1: expected an object, got a list");
  EXPECT_EQ(ProblemOf("{\"format\": 1,\n \"devices\": {}}"),
            "world.json:2: devices: expected a list, got an object");
  EXPECT_EQ(ProblemOf("{\"format\": 1,\n \"adapter\": {\"nmae\": \"x\"}}"),
            "world.json:2: adapter.nmae: there is no such member; expected one of address, classOfDevice, "
            "downloadFolder, name, pairedDevices, pin, stackVersion");
  EXPECT_EQ(ProblemOf("{\"format\": 1,\n \"adapter\": {\"pin\": \"12x\"}}"),
            "world.json:2: adapter.pin: expected 1 to 16 digits, got '12x'");
  EXPECT_EQ(ProblemOf("{\"format\": 1,\n\n \"delays\": {\"pageMs\": -1}}"),
            "world.json:3: delays.pageMs: expected a whole number from 0 to 2147483647, got -1");
}

TEST_F(WorldFileTest, ANumberBeforeTheEndOfItsLineIsOnThatLine) {
  EXPECT_EQ(ProblemOf("{\"format\": 1, \"delays\": {\n\"pageMs\":\n 1.5\n\n}}"),
            "world.json:3: delays.pageMs: expected a whole number from 0 to 2147483647, got 1.5");
  EXPECT_EQ(
      ProblemOf("{\"format\": 1, \"delays\": {\n\"pageMs\":\n99999999999999999999\n\n}}"),
      "world.json:3: delays.pageMs: expected a whole number from 0 to 2147483647, got 99999999999999999999");
  EXPECT_EQ(ProblemOf("{\"format\": 9223372036854775808}"),
            "world.json:1: format: expected a whole number from 1 to 1, got 9223372036854775808");
}

TEST_F(WorldFileTest, AnUnknownWordIsReportedWithTheKnownOnes) {
  const std::string device = R"({"address": "00:1A:7D:DA:71:13", "name": "A",
    "pairing": "guess"})";
  EXPECT_EQ(ProblemOf("{\"format\": 1, \"devices\": [" + device + "]}"),
            "world.json:2: devices[0].pairing: expected one of confirmation, passkey-entry, passkey-display, "
            "pin-code or just-works, got 'guess'");
}

TEST_F(WorldFileTest, TextThatIsNoJsonIsReportedWithItsLine) {
  EXPECT_EQ(ProblemOf("{\"format\": 1,\n \"devices\": [}"),
            "world.json:2: this is not JSON: '\"devices\": [}'");
  EXPECT_EQ(ProblemOf("{\"format\": 1,"), "world.json:1: the text ends too early");
  EXPECT_EQ(ProblemOf(""), "world.json:1: the text ends too early");
  EXPECT_EQ(ProblemOf("{\"format\": 1e999}"), "world.json:1: the number 1e999 is too large");
  EXPECT_EQ(ProblemOf("{\"format\": 1,\n \"format\": 1}"), "world.json:2: 'format' is there twice");
}

TEST_F(WorldFileTest, DevicesAreUnlikeEachOther) {
  const std::string device = "{\"name\": \"A\", \"address\": \"00:1A:7D:DA:71:13\"}";
  const std::string twin = "{\"name\": \"B\", \"address\": \"00:1a:7d:da:71:13\"}";
  EXPECT_EQ(ProblemOf("{\"format\": 1, \"devices\": [" + device + ",\n" + twin + "]}"),
            "world.json:2: devices[1].address: expected one of its own, got that of devices[0]");
}

TEST_F(WorldFileTest, NothingHappensToStrangers) {
  EXPECT_EQ(ProblemOf("{\"format\": 1, \"timeline\": [\n{\"atMs\": 0, \"do\": \"call\", \"device\": "
                      "\"00:1A:7D:DA:71:13\"}]}"),
            "world.json:2: timeline[0].device: expected the address of one of the devices, got "
            "'00:1A:7D:DA:71:13'");
}

TEST_F(WorldFileTest, AFileThatCannotBeReadIsReported) {
  EXPECT_THAT([] { LoadWorld("/nowhere/world.json"); },
              testing::ThrowsMessage<std::runtime_error>(HasSubstr("/nowhere/world.json: cannot be read")));
  EXPECT_THAT([] { LoadWorld("unheard-of"); },
              testing::ThrowsMessage<std::runtime_error>(HasSubstr(
                  "'unheard-of'; shipped are: bad-day, big-phonebook, empty, one-phone, two-phones")));
}

TEST_F(WorldFileTest, TheEnvironmentNamesTheFolderOfTheShippedWorlds) {
  Write(R"({"format": 1, "adapter": {"name": "Mine"}})", "mine.json");
  setenv("BTSERVICE_WORLDS", directory.Path().c_str(), 1);
  EXPECT_THAT(ShippedWorlds(), ElementsAre("mine"));
  EXPECT_EQ(LoadWorld("mine").world.adapter.name, "Mine");

  setenv("BTSERVICE_WORLDS", "/nowhere", 1);
  EXPECT_THAT(ShippedWorlds(), testing::IsEmpty());
  EXPECT_THAT([] { LoadWorld("mine"); }, testing::ThrowsMessage<std::runtime_error>(
                                             HasSubstr("world 'mine'; no worlds are in /nowhere")));
}

TEST_F(WorldFileTest, WithoutTheEnvironmentTheShippedWorldsAreThoseBesideTheProgram) {
  unsetenv("BTSERVICE_WORLDS");
  EXPECT_THAT(ShippedWorlds(), ElementsAre("bad-day", "big-phonebook", "empty", "one-phone", "two-phones"));
}

TEST_F(WorldFileTest, AVCardFileIsSearchedBesideTheWorld) {
  Write("BEGIN:VCARD\nN:Baker;Ben\nTEL;CELL:112\nEND:VCARD\n", "ben.vcf");
  const std::string text = R"({"format": 1, "devices": [{"address": "00:1A:7D:DA:71:13", "name": "A",
    "phoneBook": {"vcard": "ben.vcf"}}]})";
  const WorldFile file = LoadWorld(Write(text));
  ASSERT_EQ(file.world.devices[0].phone.contacts.size(), 1U);
  EXPECT_EQ(file.world.devices[0].phone.contacts[0].familyName, "Baker");
}

TEST_F(WorldFileTest, ASkippedCardIsReportedInTheLog) {
  std::string cards = "BEGIN:VCARD\nnonsense\nEND:VCARD\nBEGIN:VCARD\nN:Baker;Ben\nEND:VCARD\n";
  const std::string text = R"({"format": 1, "devices": [{"address": "00:1A:7D:DA:71:13", "name": "A",
    "phoneBook": {"vcard": "ben.vcf"}}]})";
  Write(cards, "ben.vcf");
  bttest::LogCapture log;
  EXPECT_EQ(LoadWorld(Write(text)).world.devices[0].phone.contacts.size(), 1U);
  ASSERT_EQ(log.OfLevel(80).size(), 1U);
  EXPECT_EQ(log.Messages()[0], directory.Path().string() +
                                   "/ben.vcf:2: expected a property such as TEL:112, got 'nonsense'; "
                                   "this card is skipped");
  for (int i = 0; i < 100; ++i) {
    cards += "BEGIN:VCARD\nnonsense\nEND:VCARD\n";
  }
  Write(cards, "ben.vcf");
  log.Clear();
  LoadWorld(Write(text));
  ASSERT_EQ(log.OfLevel(80).size(), 21U) << "not one for each";
  EXPECT_EQ(log.Messages().back(),
            directory.Path().string() + "/ben.vcf: 81 more are skipped, and 1 contacts are read");
}

TEST_F(WorldFileTest, AVCardFileThatCannotBeReadRefusesTheWorld) {
  const std::string begin = R"({"format": 1, "devices": [{"address": "00:1A:7D:DA:71:13", "name": "A",
    "phoneBook": {"vcard": ")";
  const std::string folder = directory.Path().string();
  EXPECT_EQ(ProblemOf(begin + "nobody.vcf\"}}]}"),
            "world.json:2: devices[0].phoneBook.vcard: " + folder +
                "/nobody.vcf: cannot be read: No such file or directory");
  EXPECT_EQ(ProblemOf(begin + ".\"}}]}"),
            "world.json:2: devices[0].phoneBook.vcard: " + folder + "/.: is a directory, not a file");
  EXPECT_EQ(ProblemOf(begin + "a\\u0000b\"}}]}"),
            R"(world.json:2: devices[0].phoneBook.vcard: expected the name of a file, got 'a\x00b')");
  EXPECT_THAT(ProblemOf(begin + "\\u001b[31m\"}}]}"), HasSubstr(R"(/\u{001B}[31m: cannot be read)"));
}

TEST_F(WorldFileTest, ANameThatIsNoFilesIsRefusedInOurWords) {
  const std::string endless(300, 'x');
  EXPECT_THAT([&] { LoadWorld(endless); }, testing::ThrowsMessage<std::runtime_error>(testing::StartsWith(
                                               "there is neither a file nor a shipped world 'xxx")));
  std::filesystem::current_path(directory.Path());
  std::filesystem::create_directory("folder");
  EXPECT_THAT([] { LoadWorld("folder"); },
              testing::ThrowsMessage<std::runtime_error>("folder: is a directory, not a file"));
}

TEST_F(WorldFileTest, ASingleDeviceIsReadAlike) {
  EXPECT_EQ(ParseDevice(R"({"address": "00:1A:7D:DA:71:13", "name": "A"})").name, "A");
  EXPECT_THAT([] { ParseDevice("{\"address\": \"00:1A:7D:DA:71:13\"}"); },
              testing::ThrowsMessage<std::runtime_error>("device:1: name: is missing"));
}

class ShippedWorldTest : public testing::TestWithParam<const char*> {};

TEST_P(ShippedWorldTest, IsInOrder) { EXPECT_NO_THROW(LoadWorld(GetParam())); }

INSTANTIATE_TEST_SUITE_P(All, ShippedWorldTest,
                         testing::Values("empty", "one-phone", "two-phones", "big-phonebook", "bad-day"),
                         [](const auto& info) {
                           std::string name = info.param;
                           name.erase(std::remove(name.begin(), name.end(), '-'), name.end());
                           return name;
                         });

TEST(ShippedWorldsTest, HoldWhatTheyPromise) {
  EXPECT_EQ(LoadWorld("one-phone").world.devices[0].phone.contacts.size(), 5U);
  EXPECT_EQ(LoadWorld("two-phones").world.devices.size(), 2U);
  EXPECT_EQ(LoadWorld("big-phonebook").world.devices[0].phone.contacts.size(), 5000U);
}

TEST(WorldSchemaTest, ThePublishedOneIsTheOneTheReaderGoesBy) {
  EXPECT_EQ(ReadFile(BTTEST_WORLD_SCHEMA, kMostJsonBytes), WorldSchema())
      << "make it anew with: btservice --world-schema > service/simulation/worlds/world.schema.json";
}

}  // namespace
}  // namespace btservice
