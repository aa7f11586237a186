// Lists that do not fit into their segments.

#include <fstream>

#include <gmock/gmock.h>

#include "support/TemporaryDirectory.h"
#include "tools/Simulation.h"

namespace bttest {
namespace {

using testing::HasSubstr;

struct FullSegments : WithSimulation {
  /// The phone of a world with so many contacts, connected, its phone book downloaded.
  void StartWithContacts(int count) {
    const std::string world = (directory.Path() / "world.json").string();
    std::ofstream(world)
        << R"({"format": 1, "delays": {"downloadStepSize": 100000}, "devices": [{"address": ")" << kPhone
        << R"(", "name": "Phone", "profiles": ["hfp", "pbap"], "paired": true,
                               "phoneBook": {"generate": )"
        << count << "}}]}";
    Start(world);
    Output({"capability", "set", "auto-download", "off", "--no-wait"});
    Output({"power", "on"});
    Output({"connect", kPhone, "--profile", "hfp"});
    ASSERT_TRUE(WaitUntil([&] { return RunBtctl({"contacts", "download", "--timeout", "10"}).code == 0; }));
  }

  static std::size_t Lines(const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
  }

  TemporaryDirectory directory;
};

TEST_F(FullSegments, AListThatIsCutSaysSoBesideTheData) {
  StartWithContacts(40000);
  EXPECT_EQ(Output({"contacts", "count"}), "40000\n");
  const Ran plain = RunBtctl({"contacts", "list"});
  EXPECT_EQ(plain.code, 0);
  const std::size_t listed = Lines(plain.output) - 1;  // one is the heading
  EXPECT_EQ(listed, 32371U) << "that is the number in docs/applications.md, docs/btctl.md and MWPBtPbap.h";
  std::string number = std::to_string(listed);
  EXPECT_EQ(plain.errors, "btctl: " + number.insert(2, ",") + " of 40,000: the segment is full\n");

  const Ran json = RunBtctl({"contacts", "list", "--json"});
  EXPECT_EQ(Lines(json.output), listed);
  EXPECT_EQ(json.Error()["kind"], "note");
  EXPECT_EQ(json.Error()["listed"], listed);
  EXPECT_EQ(json.Error()["total"], 40000);

  const Ran dial = RunBtctl({"call", "dial", "Nobody At All"});
  EXPECT_EQ(dial.code, 8);
  EXPECT_THAT(dial.errors, HasSubstr("Not all contacts can be read, " + number + " of 40,000"));
}

TEST_F(FullSegments, AListThatFitsSaysNothing) {
  StartWithContacts(10);
  const Ran ran = RunBtctl({"contacts", "list"});
  EXPECT_EQ(Lines(ran.output), 11U);
  EXPECT_EQ(ran.errors, "");
}

TEST_F(FullSegments, AListIsShownEvenIfItsItemsCannotBeCounted) {
  StartWithContacts(10);
  Output({"sim", "fail-answers", "GetContactCount", "1", "com.zelk.Error.Busy", "busy"});
  const Ran ran = RunBtctl({"contacts", "list"});
  EXPECT_EQ(ran.code, 0);
  EXPECT_EQ(Lines(ran.output), 11U);
  EXPECT_EQ(ran.errors, "");
}

TEST_F(FullSegments, OfThreeCallsTheTwoThatHaveASlotAreListed) {
  StartWithContacts(10);
  Output({"call", "dial", "110"});
  ASSERT_TRUE(WaitUntil([&] { return RunBtctl({"call", "status", "1"}).output == "active\n"; }));
  for (const char* const number : {"111", "112"}) {
    Output({"sim", "call", kPhone, number});
    if (std::string(number) == "111") {
      Output({"call", "action", "swap"});
    }
  }
  const Ran ran = RunBtctl({"call", "list"});
  EXPECT_EQ(Lines(ran.output), 3U) << ran.output;
  EXPECT_EQ(ran.errors, "btctl: 2 of 3: the segment is full\n");
}

}  // namespace
}  // namespace bttest
