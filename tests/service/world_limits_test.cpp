// Worlds that are too large, too deep, no files, or made to spoil the terminal of whoever reads the message.

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "service/files/InputFile.h"
#include "service/files/JsonNode.h"
#include "service/files/Limits.h"
#include "service/files/Quote.h"
#include "service/simulation/world/WorldFields.h"
#include "service/simulation/world/WorldFile.h"
#include "support/TemporaryDirectory.h"

namespace btservice {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

std::string ProblemOf(const std::string& world) {
  try {
    ParseWorld(world, "w");
  } catch (const std::runtime_error& problem) {
    return problem.what();
  }
  return "nothing";
}

std::string Repeated(std::size_t count, const std::string& text) {
  std::string repeated;
  for (std::size_t i = 0; i < count; ++i) {
    repeated += text;
  }
  return repeated;
}

/// A list of as many texts, each made from its number.
std::string List(std::size_t count, const std::function<std::string(std::size_t)>& item) {
  std::string list;
  for (std::size_t i = 0; i < count; ++i) {
    list += (i == 0 ? "" : ",") + item(i);
  }
  return "[" + list + "]";
}

std::string Device(std::size_t number) {
  char address[] = "00:00:00:00:00:00";
  std::snprintf(address, sizeof(address), "00:00:00:00:%02X:%02X", static_cast<unsigned>(number >> 8 & 0xFF),
                static_cast<unsigned>(number & 0xFF));
  return std::string(R"({"address":")") + address + R"(","name":"D"})";
}

TEST(WorldLimitsTest, NestingHasABottom) {
  EXPECT_EQ(ProblemOf(Repeated(1000000, "[")),
            "w:1: expected at most 64 lists and objects within each other");
  EXPECT_EQ(ProblemOf(Repeated(1000000, "{\"a\":")),
            "w:1: expected at most 64 lists and objects within each other");
}

TEST(WorldLimitsTest, TextsHaveALength) {
  const std::string longText(kLongestText + 1, 'x');
  EXPECT_THAT(
      ProblemOf(R"({"format": 1, "description": ")" + longText + "\"}"),
      testing::StartsWith("w:1: expected a text of at most 64 KiB, got 65537 bytes that begin with 'xxx"));
  EXPECT_THAT(ProblemOf("{\"" + longText + "\": 1}"), HasSubstr("at most 64 KiB"));
  EXPECT_EQ(ProblemOf(R"({"format": 1, "description": ")" + longText.substr(1) + "\"}"), "nothing");
  // The matcher of forms would overflow the stack.
  EXPECT_THAT(ProblemOf(R"({"format": 1, "adapter": {"pin": ")" + std::string(kLongestText, '1') + "\"}}"),
              HasSubstr("adapter.pin: expected 1 to 16 digits, got '1111"));
}

TEST(WorldLimitsTest, ValuesAndDevicesAreCounted) {
  EXPECT_EQ(ProblemOf(List(kMostValues, [](std::size_t) { return "1"; })),
            "w:1: expected at most 1000000 values");
  const std::string beginning = R"({"format": 1, "devices": )";
  EXPECT_EQ(ProblemOf(beginning + List(kMostDevices, Device) + "}"), "nothing");
  EXPECT_EQ(ProblemOf(beginning + List(kMostDevices + 1, Device) + "}"),
            "w:1: devices: expected at most 1000, got 1001");
}

TEST(WorldLimitsTest, ContactsAreCounted) {
  bttest::TemporaryDirectory directory;
  const std::string path = directory.Path() / "w.json";
  const auto problemOf = [&](const std::string& devices) {
    std::ofstream(path) << R"({"format": 1, "devices": [)" + devices + "]}";
    try {
      LoadWorld(path);
    } catch (const std::runtime_error& problem) {
      return std::string(problem.what()).substr(path.size());
    }
    return std::string("nothing");
  };
  const auto device = [](int number, const std::string& book) {
    return R"({"address": "00:00:00:00:00:0)" + std::to_string(number) + R"(", "name": "D", "phoneBook": )" +
           book + "}";
  };
  EXPECT_EQ(problemOf(device(1, R"({"generate": 100000, "contacts": [{}]})")),
            ":1: devices[0].phoneBook: expected at most 100000 contacts in a phone book, got 100001");
  const std::string full = R"({"generate": 100000})";
  EXPECT_EQ(problemOf(device(1, full) + "," + device(2, full) + "," + device(3, R"({"generate": 1})")),
            ":1: devices[2].phoneBook: expected at most 200000 contacts in all phone books together");
}

TEST(WorldLimitsTest, VCardFilesOfAWorldHaveASizeTogether) {
  bttest::TemporaryDirectory directory;
  const std::string path = directory.Path() / "w.json";
  std::ofstream(directory.Path() / "half.vcf") << std::string((kMostVCardBytes / 2) + 1, '\n');
  std::ofstream(path) << R"({"format": 1, "devices": [{"address": "00:00:00:00:00:01", "name": "D",
      "phoneBook": {"vcard": "half.vcf"}, "simPhoneBook": {"vcard": "half.vcf"}}]})";
  EXPECT_THAT([&] { LoadWorld(path); },
              testing::ThrowsMessage<std::runtime_error>(
                  path + ":2: devices[0].simPhoneBook.vcard: expected vCard files of at most 64 MiB in all"));
}

TEST(WorldLimitsTest, MessagesShowALineOfWhatIsWrong) {
  EXPECT_EQ(
      ProblemOf(R"({"format": "\u001b[31m\n\u202e\u0085"})"),
      R"(w:1: format: expected a whole number from 1 to 1, got '\u{001B}[31m\u{000A}\u{202E}\u{0085}')");
  EXPECT_THAT(ProblemOf(R"({"format": ")" + std::string(5000, 'y') + "\"}"),
              EndsWith("got '" + std::string(60, 'y') + "...'"));
  EXPECT_THAT(ProblemOf(R"({"format": 1, "": 1})"), testing::StartsWith("w:1: '': there is no such member"));
  EXPECT_THAT(ProblemOf(R"({"format": 1, "a\u001bb": 1})"),
              testing::StartsWith(R"(w:1: 'a\u{001B}b': there is no such member)"));
  EXPECT_THAT(ProblemOf(R"({"format": 1, "::": 1})"),
              testing::StartsWith("w:1: '::': there is no such member"));
  EXPECT_EQ(ProblemOf("{\"format\": \xff}"), R"(w:1: this is not JSON: '"format": \xFF')");
}

TEST(QuoteTest, KeepsWhatCanBeShown) {
  EXPECT_EQ(Quote("Jörg Jäger, 東京 🚗"), "'Jörg Jäger, 東京 🚗'");
  EXPECT_EQ(Quote(std::string("a\0b", 3)), R"('a\x00b')");
  EXPECT_EQ(Quote("\xC3"), R"('\xC3')");
}

TEST(QuoteTest, ShowsMoreOfAPathThanOfATextAndNotAll) {
  EXPECT_EQ(VisiblePath(std::string(512, 'p')), std::string(512, 'p'));
  EXPECT_EQ(VisiblePath(std::string(5000, 'p')), std::string(512, 'p') + "...");
  EXPECT_STREQ(FileError("a\x1b\n", 1, "what").what(), R"(a\u{001B}\u{000A}:1: what)");
}

class InputFileTest : public testing::Test {
 protected:
  std::string Path(const std::string& name) { return directory.Path() / name; }
  std::string ProblemOf(const std::string& path) {
    try {
      ReadFile(path, std::size_t{1} << 20);
    } catch (const UnreadableFile& problem) {
      return std::string(problem.what()).substr(path.size());
    }
    return "nothing";
  }

  bttest::TemporaryDirectory directory;
};

TEST_F(InputFileTest, IsRead) {
  std::ofstream(Path("file")) << "text";
  EXPECT_EQ(ReadFile(Path("file"), 4), "text");
  EXPECT_THAT([&] { ReadFile(Path("file"), 3); },
              testing::ThrowsMessage<UnreadableFile>(EndsWith("is larger than 0 MiB")));
}

TEST_F(InputFileTest, AFileOfTheSystemThatSaysItIsEmptyIsReadAsWell) {
  EXPECT_THAT(ReadFile("/proc/self/status", std::size_t{1} << 20), HasSubstr("VmRSS"));
}

TEST_F(InputFileTest, WhatIsNoFileIsCalledWhatItIs) {
  EXPECT_EQ(ProblemOf(Path("missing")), ": cannot be read: No such file or directory");
  EXPECT_EQ(ProblemOf(directory.Path()), ": is a directory, not a file");
  EXPECT_EQ(ProblemOf("/dev/zero"), ": is not a regular file");
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(ProblemOf(Path("pipe")), ": is not a regular file") << "and nobody waits for its writer";
  const int server = socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  Path("socket").copy(address.sun_path, sizeof(address.sun_path) - 1);
  ASSERT_EQ(bind(server, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
  close(server);
  EXPECT_EQ(ProblemOf(Path("socket")), ": is not a regular file");
  std::ofstream(Path("large")) << std::string((std::size_t{1} << 20) + 1, 'x');
  EXPECT_EQ(ProblemOf(Path("large")), ": is larger than 1 MiB");
}

}  // namespace
}  // namespace btservice
