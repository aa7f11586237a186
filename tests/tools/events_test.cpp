// Events: each arrives with its name and its values, and can be waited for by them.

#include <csignal>

#include <gmock/gmock.h>

#include "btctl/events/FieldWords.h"
#include "btctl/events/ListenerClasses.h"
#include "tools/Btctl.h"

namespace bttest {
namespace {

using testing::ElementsAre;

/// A value for a signal: numbers that have no word, so that they can be recognised.
GVariant* SomeValue(const std::string& signature, int number) {
  if (signature == "y") {
    return g_variant_new_byte(static_cast<guint8>(100 + number));
  }
  if (signature == "b") {
    return g_variant_new_boolean(TRUE);
  }
  if (signature == "i") {
    return g_variant_new_int32(100 + number);
  }
  if (signature == "s") {
    return g_variant_new_take_string(g_strdup_printf("text %d", number));
  }
  return g_variant_new_variant(g_variant_new_parsed("[byte 0x00, 0xff]"));  // v
}

/// How that value is shown in JSON.
Json Shown(const std::string& signature, int number) {
  if (signature == "b") {
    return true;
  }
  if (signature == "s") {
    return "text " + std::to_string(number);
  }
  return signature == "v" ? Json("00ff") : Json(100 + number);
}

struct Monitoring : BtctlWithRecorder {
  bool Listens(ChildProcess& process) {
    return WaitUntil([&] { return process.Errors().find("listening") != std::string::npos; });
  }
};

TEST_F(Monitoring, EverySignalIsShownWithEachOfItsValues) {
  ChildProcess monitor(CommandLine({"monitor", "--json"}));
  ASSERT_TRUE(Listens(monitor));
  std::vector<Json> expected;
  for (const SignalDescription& signal : BluetoothInterface().signals) {
    std::vector<GVariant*> values;
    Json shown = Json::array();
    for (const ArgumentDescription& argument : signal.arguments) {
      const int number = static_cast<int>(values.size());
      values.push_back(SomeValue(argument.signature, number));
      shown.push_back(Shown(argument.signature, number));
    }
    service.Emit(signal.name, g_variant_new_tuple(values.data(), values.size()));
    if (signal.name != "OnScanedDeviceChanged") {  // it reaches no listener of the library
      expected.push_back({{"event", signal.name}, {"values", shown}});
    }
  }
  ASSERT_FALSE(expected.empty());
  WaitUntil([&] {
    const std::string output = monitor.Output();
    return std::count(output.begin(), output.end(), '\n') >= static_cast<long>(expected.size());
  });
  monitor.Signal(SIGINT);
  std::vector<Json> seen;
  for (const Json& event : Ended(monitor).Objects()) {
    Json values = Json::array();
    for (const auto& [name, value] : event["values"].items()) {
      values.push_back(value);
    }
    seen.push_back({{"event", event["event"]}, {"values", values}});
  }
  EXPECT_EQ(seen, expected);
}

/// A value for a signal of 0 or 1, as that type.
GVariant* BitValue(const std::string& signature, int bit) {
  if (signature == "s") {
    return g_variant_new_string("text");
  }
  if (signature == "b") {
    return g_variant_new_boolean(bit);
  }
  if (signature == "v") {
    return g_variant_new_variant(g_variant_new_parsed("[byte 0x00]"));
  }
  return signature == "y" ? g_variant_new_byte(static_cast<guint8>(bit)) : g_variant_new_int32(bit);
}

/// What a field shows of 0 and 1 must be among the words that it is said to know.
void ExpectKnown(const btctl::EventDescription& event, const std::string& field, const Json& shown, int bit) {
  const btctl::WordTable* const words = btctl::WordsOfField(event, field);
  if (shown.is_number()) {
    EXPECT_TRUE(words != nullptr ? words->Show(bit).is_number() : btctl::HoldsNumber(event, field))
        << event.name << " " << field;
    return;
  }
  ASSERT_NE(words, nullptr) << event.name << " " << field;
  EXPECT_EQ(words->Find(shown.is_boolean() ? (shown ? "yes" : "no") : shown.get<std::string>()), bit)
      << event.name << " " << field;
}

TEST_F(Monitoring, ShowsNoWordThatAMatchWouldRefuse) {
  ChildProcess monitor(CommandLine({"monitor", "--json"}));
  ASSERT_TRUE(Listens(monitor));
  for (const int bit : {0, 1}) {
    for (const SignalDescription& signal : BluetoothInterface().signals) {
      std::vector<GVariant*> values;
      for (const ArgumentDescription& argument : signal.arguments) {
        values.push_back(BitValue(argument.signature, bit));
      }
      service.Emit(signal.name, g_variant_new_tuple(values.data(), values.size()));
    }
  }
  const std::size_t told = BluetoothInterface().signals.size() - 1;  // all but OnScanedDeviceChanged
  const auto expected = static_cast<long>(2 * told);
  WaitUntil([&] {
    const std::string output = monitor.Output();
    return std::count(output.begin(), output.end(), '\n') >= expected;
  });
  monitor.Signal(SIGINT);
  const std::vector<Json> events = Ended(monitor).Objects();
  ASSERT_EQ(events.size(), 2 * told);
  for (std::size_t i = 0; i < events.size(); ++i) {
    const btctl::EventDescription& event = btctl::FindEvent(events[i]["event"]);
    for (const auto& [field, shown] : events[i]["values"].items()) {
      const bool isText = shown == "text" || shown == "00";
      if (isText) {
        EXPECT_EQ(btctl::WordsOfField(event, field), nullptr) << event.name << " " << field;
        EXPECT_FALSE(btctl::HoldsNumber(event, field)) << event.name << " " << field;
      } else {
        ExpectKnown(event, field, shown, i < events.size() / 2 ? 0 : 1);
      }
    }
  }
}

TEST_F(Monitoring, ShowsAnEventToPeopleInOneLineWithWords) {
  ChildProcess monitor(CommandLine({"monitor"}));
  ASSERT_TRUE(Listens(monitor));
  service.Emit("OnConnectStatusChanged", g_variant_new("(syy)", "00:1A:7D:DA:71:13", 1, 2));
  ASSERT_TRUE(monitor.WaitForOutput("\n"));
  EXPECT_THAT(monitor.Output(),
              testing::MatchesRegex("[0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{3}  OnConnectStatusChanged  "
                                    "address=00:1A:7D:DA:71:13  profile=hfp  status=connected\n"));
}

TEST_F(Monitoring, ShowsOnlyTheEventsThatAreNamed) {
  ChildProcess monitor(CommandLine({"monitor", "onhangupcallchanged", "OnMediaInfoChanged"}));
  ASSERT_TRUE(Listens(monitor));
  service.Emit("OnAudioTrackChanged", g_variant_new("()"));
  service.Emit("OnHangupCallChanged", g_variant_new("()"));
  ASSERT_TRUE(monitor.WaitForOutput("OnHangupCallChanged"));
  EXPECT_EQ(monitor.Output().find("OnAudioTrackChanged"), std::string::npos);
}

TEST_F(Monitoring, EndsAfterItsTime) {
  const Ran ran = RunBtctl({"monitor", "--seconds", "0.2"});
  EXPECT_EQ(ran.code, 0);
  EXPECT_EQ(ran.output, "");
}

TEST_F(Monitoring, RefusesAnEmptyTime) {
  EXPECT_EQ(RunBtctl({"monitor", "--seconds", "", "--timeout", "5"}).code, 2);
  EXPECT_EQ(RunBtctl({"monitor", "--seconds=", "--timeout", "5"}).code, 2);
}

TEST_F(Monitoring, EndsWhenItsOutputCannotBeWritten) {
  for (const char* const command :
       {"monitor", "wait OnMediaInfoChanged --count 1000", "report --seconds 600"}) {
    ChildProcess process(
        {"sh", "-c", std::string("exec \"$0\" ") + command + " > /dev/full", BTCTL_EXECUTABLE});
    ASSERT_TRUE(WaitUntil([&] {
      service.Emit("OnMediaInfoChanged", g_variant_new("()"));
      return !process.IsAlive();
    })) << command;
    EXPECT_EQ(process.Wait(), 9) << command;
    EXPECT_THAT(process.Errors(), testing::HasSubstr("standard output cannot be written to")) << command;
  }
}

TEST_F(Monitoring, OfASearchWhoseOutputCannotBeWrittenEndsTheSearch) {
  Accept("SetScanAction");
  ChildProcess scan({"sh", "-c", "exec \"$0\" scan --seconds 600 > /dev/full", BTCTL_EXECUTABLE});
  ASSERT_TRUE(service.WaitForCalls(1));
  service.Emit("OnScanStatusChanged", g_variant_new("(y)", 1));
  EXPECT_EQ(scan.Wait(), 9);
  EXPECT_THAT(service.TakeCallTexts(), ElementsAre("SetScanAction(true,)", "SetScanAction(false,)"));
}

TEST_F(Monitoring, EndsWhenNobodyReadsAnyMore) {
  ChildProcess pipe({"bash", "-c", "\"$0\" monitor | head -1; exit ${PIPESTATUS[0]}", BTCTL_EXECUTABLE});
  ASSERT_TRUE(Listens(pipe));
  service.Emit("OnHangupCallChanged", g_variant_new("()"));
  ASSERT_TRUE(pipe.WaitForOutput("OnHangupCallChanged"));
  ASSERT_TRUE(WaitUntil([&] {
    service.Emit("OnMediaInfoChanged", g_variant_new("()"));
    return !pipe.IsAlive();
  }));
  EXPECT_EQ(pipe.Wait(), 128 + SIGPIPE);
}

TEST_F(Monitoring, DoesNotLetANameControlTheTerminal) {
  ChildProcess monitor(CommandLine({"monitor"}));
  ASSERT_TRUE(Listens(monitor));
  service.Emit("OnOperatorNameChanged", g_variant_new("(s)", "\033[2Jclear\r\n"));
  ASSERT_TRUE(monitor.WaitForOutput("clear"));
  EXPECT_EQ(monitor.Output().find('\033'), std::string::npos);
  EXPECT_EQ(monitor.Output().find('\r'), std::string::npos);
}

struct Waiting : BtctlWithRecorder {
  /// A btctl wait with these words that listens already.
  std::unique_ptr<ChildProcess> Start(const Words& words) {
    Words all{"wait"};
    all.insert(all.end(), words.begin(), words.end());
    auto process = std::make_unique<ChildProcess>(CommandLine(all));
    WaitUntil([&] { return process->Errors().find("waiting") != std::string::npos || !process->IsAlive(); });
    return process;
  }

  void Emit(int status) { service.Emit("OnOpenBtStatusChanged", g_variant_new("(y)", status)); }
};

TEST_F(Waiting, EndsWithTheEventThatMatches) {
  const auto wait = Start({"OnOpenBtStatusChanged", "--match", "status=on"});
  Emit(3);
  Emit(1);
  EXPECT_EQ(wait->Wait(), 0);
  EXPECT_THAT(wait->Output(), testing::HasSubstr("status=on\n"));
  EXPECT_EQ(wait->Output().find("turning-on"), std::string::npos);
}

TEST_F(Waiting, TakesANumberForAWord) {
  const auto wait = Start({"OnOpenBtStatusChanged", "--match", "status=1"});
  Emit(1);
  EXPECT_EQ(wait->Wait(), 0);
}

TEST_F(Waiting, RefusesAWordThatTheFieldDoesNotKnowWithThoseItKnows) {
  const Ran word = RunBtctl({"wait", "OnCallStatusChanged", "--match", "status=activ", "--timeout", "5"});
  EXPECT_EQ(word.code, 8);
  EXPECT_THAT(word.errors, testing::HasSubstr("Did you mean 'active'? It can be: "));
  EXPECT_THAT(word.errors, testing::HasSubstr(", incoming"));
  const Ran flag = RunBtctl({"wait", "OnMobileService", "--match", "onService=maybe", "--timeout", "5"});
  EXPECT_EQ(flag.code, 8);
  EXPECT_THAT(flag.errors, testing::HasSubstr("yes, no"));
}

TEST_F(Waiting, RefusesAWordForANumberAndWhatIsNoAddress) {
  for (const char* const match : {"callId=abc", "callId=", "callCount=1.5", "callId=99999999999"}) {
    const Ran ran = RunBtctl({"wait", "OnCallStatusChanged", "--match", match, "--timeout", "5"});
    EXPECT_EQ(ran.code, 8) << match;
    EXPECT_THAT(ran.errors, testing::HasSubstr("It is a whole number.")) << match;
  }
  EXPECT_EQ(RunBtctl({"wait", "OnConnectStatusChanged", "--match", "address=phone", "--timeout", "5"}).code,
            7);
}

TEST_F(Waiting, TakesANumberHoweverItIsWritten) {
  const auto wait = Start({"OnCallStatusChanged", "--match", "callId=007", "--match", "status=05"});
  service.Emit("OnCallStatusChanged", g_variant_new("(iyi)", 7, 5, 1));
  EXPECT_EQ(wait->Wait(), 0) << wait->Errors();
}

TEST_F(Waiting, NeedsAllMatchesToBeTrue) {
  const auto wait =
      Start({"OnConnectStatusChanged", "--match", "profile=a2dp", "--match", "status=connected"});
  service.Emit("OnConnectStatusChanged", g_variant_new("(syy)", "a", 1, 2));
  service.Emit("OnConnectStatusChanged", g_variant_new("(syy)", "b", 2, 1));
  service.Emit("OnConnectStatusChanged", g_variant_new("(syy)", "c", 2, 2));
  EXPECT_EQ(wait->Wait(), 0);
  EXPECT_THAT(wait->Output(), testing::HasSubstr("address=c"));
}

TEST_F(Waiting, CountsTheEvents) {
  const auto wait = Start({"OnOpenBtStatusChanged", "--count", "2", "--json"});
  Emit(3);
  Emit(1);
  const Ran ran = Ended(*wait);
  EXPECT_EQ(ran.code, 0);
  EXPECT_EQ(ran.Objects().size(), 2U);
}

TEST_F(Waiting, IsGivenUpAfterTheTimeout) {
  EXPECT_EQ(RunBtctl({"wait", "OnOpenBtStatusChanged", "--timeout", "0.2"}).code, 6);
}

/// The interface has no signals for low energy: its events are checked at the listener.
TEST(LowEnergyEvents, AreShownWithEachOfTheirValues) {
  std::vector<std::string> seen;
  btctl::BleListener listener([&](const btctl::Event& event) {
    Json object = event.ToJson();
    object.erase("kind");
    object.erase("time");
    seen.push_back(object.dump());
  });
  IMWPBtBleListener& base = listener;
  const unsigned char bytes[] = {0, 255};
  base.OnBleDiscoveryResponse(1, 7);
  base.OnBleConnectStatusChanged("a", MWPBtType::BT_CONN_CONNECTED);
  base.OnBleAllService(3);
  base.OnBleSmpNotify(MWPBtType::BT_SMP_PASSKEY_DISPLAY, "b", 1, 42);
  base.OnBleCharNotify(500, bytes, 2);
  base.OnBleGAttribResultNotify(9, bytes, 1);
  EXPECT_THAT(
      seen,
      ElementsAre(R"({"event":"OnBleDiscoveryResponse","values":{"started":true,"result":7}})",
                  R"({"event":"OnBleConnectStatusChanged","values":{"address":"a","status":"connected"}})",
                  R"({"event":"OnBleAllService","values":{"count":3}})",
                  R"({"event":"OnBleSmpNotify","values":{"event":"passkey-display","address":"b",)"
                  R"("addressType":1,"passkey":"000042"}})",
                  R"({"event":"OnBleCharNotify","values":{"handle":500,"bytes":"00ff"}})",
                  R"({"event":"OnBleGAttribResultNotify","values":{"result":9,"bytes":"00"}})"));
}

}  // namespace
}  // namespace bttest
