// Texts from outside reach no output with what could command a terminal or turn the text around them.

#include "btctl/output/TerminalSafe.h"

#include <csignal>

#include <glib.h>
#include <gmock/gmock.h>

#include "btctl/cli/Completion.h"
#include "btctl/commands/ContactNames.h"
#include "btctl/commands/ToJson.h"
#include "btctl/output/PlainText.h"
#include "tools/Btctl.h"
#include "tools/Terminal.h"
#include "tools/command_rows.h"

namespace bttest {
namespace {

/// A title for the terminal, a colour, a C1 control, DEL, marks of direction, separators of lines, and a word
/// to recognise it by.
constexpr char kPlanted[] =
    "\033]0;title\007\033[31mplanted\u009B2J\u007F\r\u061C\u200E\u200F\u202A\u202E\u2028\u2029\u2066\u2069";

bool IsHarmful(gunichar c) {
  static const std::vector<gunichar> kTurning{0x061C, 0x200E, 0x200F, 0x202A, 0x202B, 0x202C, 0x202D,
                                              0x202E, 0x2028, 0x2029, 0x2066, 0x2067, 0x2068, 0x2069};
  const bool isControl = (c < 0x20 && c != '\n') || (c >= 0x7F && c < 0xA0);
  return isControl || std::find(kTurning.begin(), kTurning.end(), c) != kTurning.end();
}

/// The first harmful character of a text, or what else is wrong with it; empty if it is safe.
std::string HarmIn(const std::string& text) {
  if (g_utf8_validate(text.c_str(), static_cast<gssize>(text.size()), nullptr) == FALSE) {
    return "not UTF-8";
  }
  for (const char* at = text.c_str(); *at != '\0'; at = g_utf8_next_char(at)) {
    if (IsHarmful(g_utf8_get_char(at))) {
      return "U+" + std::to_string(g_utf8_get_char(at)) + " before '" + std::string(at).substr(0, 40) + "'";
    }
  }
  return "";
}

int Count(const std::string& text, const std::string& part) {
  int count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

void ExpectSafe(const Ran& ran) {
  EXPECT_EQ(HarmIn(ran.output), "");
  EXPECT_EQ(HarmIn(ran.errors), "");
}

TEST(TerminalSafe, ReplacesWhatIsHarmfulAndKeepsTheRest) {
  EXPECT_EQ(btctl::TerminalSafe("Jörg 日本 👩\u200D🔧"), "Jörg 日本 👩\u200D🔧");
  EXPECT_EQ(btctl::TerminalSafe("a\033b\u009Bc\u202Ed\u2028e"), "a\uFFFDb\uFFFDc\uFFFDd\uFFFDe");
  EXPECT_EQ(btctl::TerminalSafe("a\xFFz"), "a\uFFFDz");
  EXPECT_EQ(btctl::TerminalSafe(std::string("a\0z", 3)), "a\uFFFDz");
  EXPECT_EQ(HarmIn(btctl::TerminalSafe(kPlanted)), "");
}

TEST(TerminalSafe, JsonHoldsTheSameTextAsEscapes) {
  EXPECT_EQ(btctl::ToLine({{"a", "\033\u007F\u009B\u202E\u2028"}}),
            R"({"a":"\u001b\u007f\u009b\u202e\u2028"})");
  EXPECT_EQ(btctl::ToLine("a\xFFz"), "\"a\uFFFDz\"");
  EXPECT_EQ(Json::parse(btctl::ToLine(kPlanted)), kPlanted);
}

/// Every record with a planted text in each of its texts, and how many it has.
std::vector<std::pair<Json, int>> PlantedRecords() {
  const std::string text = std::string(kPlanted) + "\xFF";  // a segment holds any bytes
  MWPTypeContact contact{};
  contact.strText1 = contact.strText2 = text;
  MWPTypeContactNumber number{};
  number.vecValues = {text, text};
  contact.listNumbers = {number};
  MWPTypeCallLog log{};
  log.strText1 = log.strText2 = log.strText3 = log.strText4 = text;
  MWPTypeCallInfo calls{};
  calls.nCallCount = 2;
  for (MWPTypeCallSlot* const slot : {&calls.callSlot1, &calls.callSlot2}) {
    slot->strText1 = slot->strText2 = slot->strText3 = text;
  }
  MWPTypeMediaInfo media{};
  media.title = media.artist = media.album = media.track = media.numOfTracks = media.genre = media.duration =
      text;
  MWPTypeConnectionState state{};
  state.address = text;
  MWPTypeMessage message{};
  message.strText1 = message.strText2 = message.strText3 = message.strText4 = message.strText5 =
      message.strText6 = text;
  MWPTypeMediaItem item{};
  item.strUid = item.strName = text;
  MWPTypeBleDevice device{};
  device.strAddr = device.strName = text;
  MWPTypeGattService service{};
  service.strUuid = text;
  using btctl::ToJson;
  return {{ToJson(contact), 4}, {ToJson(log), 4},    {ToJson(calls), 6},
          {ToJson(media), 7},   {ToJson(state), 1},  {ToJson(message), 6},
          {ToJson(item), 2},    {ToJson(device), 2}, {ToJson(service), 1}};
}

TEST(Records, AreShownSafelyInEachOfTheirTexts) {
  for (const auto& [record, texts] : PlantedRecords()) {
    const std::string plain = btctl::ToText(record);
    const std::string line = btctl::ToLine(record);
    SCOPED_TRACE(line);
    EXPECT_EQ(Count(plain, "planted"), texts);
    EXPECT_EQ(Count(line, "planted"), texts);
    EXPECT_EQ(HarmIn(plain), "");
    EXPECT_EQ(HarmIn(line), "");
  }
}

TEST(Records, GiveCompletionNamesThatAreSafeAndAreFoundByThem) {
  MWPTypeContact contact{};
  contact.strText1 = kPlanted;
  btctl::KnownNames known;
  known.SetContacts({btctl::NameOf(contact)});
  known.AddAddress(kPlanted);
  for (const auto& before : std::vector<Words>{{"call", "dial"}, {"connect"}}) {
    const Words names = btctl::Complete(before, "", known);
    ASSERT_EQ(names.size(), 1U) << before.front();
    EXPECT_EQ(HarmIn(names.front()), "");
    EXPECT_EQ(btctl::Complete(before, names.front(), known), names) << "the name that was completed";
    const std::list<MWPTypeContact> contacts{contact};
    EXPECT_EQ(btctl::FindContact(contacts, names.front()).strText1, kPlanted);
  }
}

struct Planted : BtctlWithRecorder {
  /// A value of that type: the planted text, or the smallest that means yes.
  static GVariant* Value(const std::string& signature) {
    const std::map<std::string, const char*> others{
        {"y", "byte 1"}, {"b", "true"}, {"i", "1"}, {"u", "uint32 1"}, {"v", "<[byte 0x1b, 0x9b]>"}};
    if (signature == "s") {
      return g_variant_new_string(kPlanted);
    }
    const auto known = others.find(signature);
    return g_variant_new_parsed(known != others.end() ? known->second : "[(byte 1, byte 1)]");
  }

  static GVariant* Values(const std::vector<ArgumentDescription>& arguments) {
    std::vector<GVariant*> values;
    values.reserve(arguments.size());
    for (const ArgumentDescription& argument : arguments) {
      values.push_back(Value(argument.signature));
    }
    return g_variant_new_tuple(values.data(), values.size());
  }

  void AnswerWithIt() {
    for (const MethodDescription& method : BluetoothInterface().methods) {
      service.SetReply(method.name, Values(method.out));
    }
  }

  void Ask() { service.Emit("OnAnswerPairRequest", g_variant_new("(ssby)", kDevice, kPlanted, FALSE, 0)); }

  static constexpr char kDevice[] = "00:1A:7D:DA:71:13";
};

struct PlantedEvents : Planted, testing::WithParamInterface<bool> {};

TEST_P(PlantedEvents, AreShownSafely) {
  ChildProcess monitor(CommandLine({"monitor", GetParam() ? "--json" : "--stay"}));
  ASSERT_TRUE(WaitUntil([&] { return monitor.Errors().find("listening") != std::string::npos; }));
  int texts = 0;
  for (const SignalDescription& signal : BluetoothInterface().signals) {
    service.Emit(signal.name, Values(signal.arguments));
    for (const ArgumentDescription& argument : signal.arguments) {
      // No listener of the library hears of a found device: DeviceList shows its name.
      texts += argument.signature == "s" && signal.name != "OnScanedDeviceChanged" ? 1 : 0;
    }
  }
  ASSERT_GT(texts, 10);
  WaitUntil([&] { return Count(monitor.Output(), "planted") >= texts; });
  monitor.Signal(SIGINT);
  const Ran ran = Ended(monitor);
  EXPECT_EQ(Count(ran.output, "planted"), texts);
  ExpectSafe(ran);
  int whole = 0;
  for (const Json& event : GetParam() ? ran.Objects() : std::vector<Json>()) {
    for (const Json& value : event["values"]) {
      whole += value == kPlanted ? 1 : 0;
    }
  }
  EXPECT_EQ(whole, GetParam() ? texts : 0);
}

INSTANTIATE_TEST_SUITE_P(PlainAndJson, PlantedEvents, testing::Bool());

struct PlantedAnswers : Planted, testing::WithParamInterface<int> {};

constexpr int kDeals = 6;

TEST_P(PlantedAnswers, OfEveryCommandAreShownSafely) {
  AnswerWithIt();
  const auto& rows = CommandRows();
  for (std::size_t i = static_cast<std::size_t>(GetParam()); i < rows.size(); i += kDeals) {
    for (const char* const format : {"--verbose", "--json"}) {
      Words words = rows[i].words;
      words.insert(words.begin(), {format, "--no-wait"});
      SCOPED_TRACE(words[2] + " " + words.back());
      ExpectSafe(RunBtctl(words));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Dealt, PlantedAnswers, testing::Range(0, kDeals));

TEST_F(Planted, AnswersDoHoldThePlantedText) {
  AnswerWithIt();
  EXPECT_EQ(Count(RunBtctl({"status"}).output, "planted"), 6) << "name, address, and two of each connection";
}

TEST_F(Planted, ErrorsOfTheServiceAreShownSafely) {
  for (const Words& options : {Words{"--verbose"}, Words{"--json"}, Words{"--json", "--verbose"}}) {
    service.FailNext("RedialCall", 1, "com.zelk.Error.Busy", kPlanted);
    Words words{"call", "redial"};
    words.insert(words.end(), options.begin(), options.end());
    const Ran ran = RunBtctl(words);
    EXPECT_EQ(ran.code, 1);
    EXPECT_GT(Count(ran.errors, "planted"), 0);
    ExpectSafe(ran);
  }
}

TEST_F(Planted, TheNoteOfAPairingIsSafe) {
  AcceptAll();
  ChildProcess pair(CommandLine({"pair", kDevice}));
  ASSERT_TRUE(service.WaitForCalls(1));
  Ask();
  ASSERT_TRUE(WaitUntil([&] { return Count(pair.Errors(), "planted") > 0; }));
  EXPECT_EQ(HarmIn(pair.Errors()), "");
}

TEST_F(Planted, TheQuestionOfAPairingIsSafe) {
  AcceptAll();
  Terminal terminal(CommandLine({"pair", kDevice}));
  ASSERT_TRUE(service.WaitForCalls(1));
  Ask();
  ASSERT_TRUE(terminal.WaitFor("[y/N] "));
  EXPECT_EQ(Count(terminal.Screen(), "planted"), 1);
  EXPECT_EQ(HarmIn(terminal.Screen()), "");
}

}  // namespace
}  // namespace bttest
