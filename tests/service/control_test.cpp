// The controls of the simulation: making things happen, and breaking them, from outside.

#include <algorithm>
#include <chrono>
#include <csignal>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "protocol/Segments.h"
#include "service/stack/StackTypes.h"
#include "support/GlibHelpers.h"
#include "support/Segments.h"
#include "support/TemporaryDirectory.h"
#include "tests/service/running_service.h"

namespace btservice {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kPhone = "00:1A:7D:DA:71:13";
constexpr const char* kDownloaded = "OnPBDownloadStatus (byte 0x03, byte 0x06)";

std::string Repeated(int count, const std::string& text) {
  std::string all;
  for (int i = 0; i < count; ++i) {
    all += text;
  }
  return all;
}

/// The description of a device with one more member.
std::string DeviceWith(const std::string& member) {
  return R"({"address": "00:00:00:00:00:01", "name": "A", )" + member + "}";
}

/// A device with folders in folders, so many.
std::string DeviceWithFolders(int depth) {
  return DeviceWith(R"("music": {)" + Repeated(depth, R"("folders": [{)") + Repeated(depth, "}]") + "}");
}

class ControlTest : public testing::Test {
 protected:
  ControlTest() : service({"--speed", "20", "--world", BTTEST_QUIET_WORLD}) {
    // The phone of this world is paired, and the built-in settings connect and download without asking.
    EXPECT_TRUE(service.WaitFor(kDownloaded));
    service.ForgetSignals();
  }
  std::string Control(const std::string& method, GVariant* arguments = nullptr) {
    return bttest::ToText(service.CallControl(method, arguments).get());
  }
  /// What is said of arguments without sense.
  std::string ProblemOf(const std::string& method, GVariant* arguments) {
    try {
      Control(method, arguments);
    } catch (const std::runtime_error& problem) {
      return problem.what();
    }
    return "nothing";
  }
  /// The argument of type av that holds one value or more, or none.
  static GVariant* Values(const std::vector<GVariant*>& values) {
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE("av"));
    for (GVariant* const value : values) {
      g_variant_builder_add(&builder, "v", value);
    }
    return g_variant_builder_end(&builder);
  }
  std::string ErrorOf(const std::string& method, GVariant* arguments = nullptr) {
    try {
      service.Call(method, arguments);
    } catch (const std::runtime_error& problem) {
      return problem.what();
    }
    return "nothing";
  }

  RunningService service;
};

TEST_F(ControlTest, APhoneAppears) {
  const char* const device = R"({"address": "0A:00:00:00:00:01", "name": "Newcomer", "profiles": ["hfp"]})";
  EXPECT_EQ(Control("AddDevice", g_variant_new("(s)", device)), "(true,)");
  EXPECT_EQ(Control("AddDevice", g_variant_new("(s)", device)), "(false,)");
  EXPECT_THAT(Control("ListDevices"), HasSubstr("('0A:00:00:00:00:01', 'Newcomer', true, false, false)"));
  EXPECT_THAT(Control("ListDevices"), HasSubstr("('00:1A:7D:DA:71:13', \"Ada's phone\", true, true, true)"));
  EXPECT_THAT(ProblemOf("AddDevice", g_variant_new("(s)", "{\"name\": \"x\"}")),
              HasSubstr("InvalidArgs: device:1: address: is missing"));
}

TEST_F(ControlTest, ThePhoneHasOtherContactsAndCallsAndTheNextDownloadBringsThem) {
  const char* const card = "BEGIN:VCARD\nVERSION:3.0\nN:New;Nora;;;\nTEL;TYPE=CELL:+49170555\nEND:VCARD\n";
  EXPECT_EQ(Control("SetContacts", g_variant_new("(ss)", kPhone, card)), "(true,)");
  const char* const entry =
      R"({"type": "missed", "number": "+49170555", "date": "2026-05-29", "time": "18:05:10"})";
  EXPECT_EQ(Control("AddCallLog", g_variant_new("(ss)", kPhone, entry)), "(true,)");
  const std::string missedBefore = service.Ask("GetCallLogCount", g_variant_new("(y)", CALL_LOG_MISSED));
  EXPECT_EQ(service.Ask("StartPhoneBookDownload", g_variant_new("(y)", BT_PBAP_ALL)), "(true,)");
  EXPECT_TRUE(service.WaitFor(kDownloaded));
  EXPECT_EQ(service.Ask("GetContactCount"), "(1,)");
  EXPECT_NE(service.Ask("GetCallLogCount", g_variant_new("(y)", CALL_LOG_MISSED)), missedBefore);

  EXPECT_EQ(Control("SetContacts", g_variant_new("(ss)", "00:00:00:00:00:00", card)), "(false,)");
  EXPECT_EQ(Control("AddCallLog", g_variant_new("(ss)", "00:00:00:00:00:00", entry)), "(false,)");
  EXPECT_THAT(ProblemOf("SetContacts", g_variant_new("(ss)", kPhone, "BEGIN:VCARD\nthis is no line\n")),
              HasSubstr("InvalidArgs: vcards:2: expected a property"));
  EXPECT_THAT(ProblemOf("AddCallLog", g_variant_new("(ss)", kPhone, R"({"type": "lost", "number": "1"})")),
              HasSubstr("InvalidArgs: entry:1: type: expected one of incoming, outgoing or missed"));
}

TEST_F(ControlTest, ThePhoneHasOtherTracks) {
  const char* const tracks = R"([{"uid": "n1", "title": "First", "lengthMs": 60000},
                                 {"uid": "n2", "title": "Second", "artist": "Nora", "lengthMs": 60000}])";
  EXPECT_EQ(Control("Play", g_variant_new("(s)", kPhone)), "(true,)");
  EXPECT_EQ(Control("SetTracks", g_variant_new("(ss)", kPhone, tracks)), "(true,)");
  EXPECT_TRUE(service.WaitFor("OnAudioTrackChanged"));
  EXPECT_THAT(service.Ask("GetMediaInfo"), HasSubstr("'First'"));
  EXPECT_EQ(Control("SetTracks", g_variant_new("(ss)", "00:00:00:00:00:00", "[]")), "(false,)");
  EXPECT_THAT(ProblemOf("SetTracks", g_variant_new("(ss)", kPhone, "{}")),
              HasSubstr("InvalidArgs: tracks:1: expected a list of tracks"));
  EXPECT_THAT(ProblemOf("SetTracks", g_variant_new("(ss)", kPhone, "[{}]")),
              HasSubstr("InvalidArgs: tracks:1: [0].uid: is missing"));
  EXPECT_THAT(ProblemOf("SetTracks", g_variant_new("(ss)", kPhone, "[[]]")),
              HasSubstr("InvalidArgs: tracks:1: [0]: expected an object, got a list"));
  EXPECT_THAT(ProblemOf("AddDevice", g_variant_new("(s)", "[]")),
              HasSubstr("InvalidArgs: device:1: expected an object, got a list"));
}

TEST_F(ControlTest, SomebodyCallsAndHangsUp) {
  EXPECT_EQ(Control("Call", g_variant_new("(ss)", kPhone, "+49170000002")), "(true,)");
  EXPECT_TRUE(service.WaitFor("OnCallStatusChanged (1, byte 0x05, 1)"));
  EXPECT_EQ(Control("HangUp", g_variant_new("(si)", kPhone, 0)), "(true,)");
  EXPECT_TRUE(service.WaitFor("OnHangupCallChanged ()"));
  EXPECT_EQ(Control("HangUp", g_variant_new("(si)", kPhone, 0)), "(false,)");
}

TEST_F(ControlTest, ACallFromHereIsAnsweredAsOrdered) {
  EXPECT_EQ(Control("SetCalledParty", g_variant_new("(ssu)", kPhone, "no-answer", 0)), "(true,)");
  EXPECT_EQ(service.Ask("DialCall", g_variant_new("(s)", "112")), "(true,)");
  ASSERT_TRUE(service.WaitFor("OnCallStatusChanged (1, byte 0x04, 1)"));
  EXPECT_EQ(Control("AnswerCall", g_variant_new("(s)", kPhone)), "(true,)");
  EXPECT_TRUE(service.WaitFor("OnCallStatusChanged (1, byte 0x01, 1)"));
  EXPECT_THAT(ProblemOf("SetCalledParty", g_variant_new("(ssu)", kPhone, "shy", 0)),
              HasSubstr("expected one of answers, busy or no-answer, got 'shy'"));
}

TEST_F(ControlTest, ThePhoneChanges) {
  EXPECT_EQ(Control("SetBattery", g_variant_new("(si)", kPhone, 1)), "(true,)");
  EXPECT_EQ(Control("SetBattery", g_variant_new("(si)", kPhone, 9)), "(false,)");
  EXPECT_EQ(Control("SetSignal", g_variant_new("(si)", kPhone, 2)), "(true,)");
  EXPECT_EQ(Control("SetRoaming", g_variant_new("(sb)", kPhone, TRUE)), "(true,)");
  EXPECT_EQ(Control("SetOperator", g_variant_new("(ss)", kPhone, "Südfunk")), "(true,)");
  for (const char* const signal : {"OnBtBatteryChanged (byte 0x01,)", "OnBtSignalChanged (byte 0x02,)",
                                   "OnRoamingStatusChanged (true,)", "OnOperatorNameChanged ('Südfunk',)"}) {
    EXPECT_TRUE(service.WaitFor(signal)) << signal;
  }
}

TEST_F(ControlTest, MessagesMusicAndSerialData) {
  EXPECT_EQ(Control("SendMessage", g_variant_new("(ssss)", kPhone, "AB", "Ben", "Hi")), "(true,)");
  EXPECT_EQ(Control("ChangeMessage", g_variant_new("(sss)", kPhone, "AB", "deleted")), "(true,)");
  EXPECT_EQ(Control("ChangeMessage", g_variant_new("(sss)", kPhone, "AB", "deleted")), "(false,)");
  EXPECT_EQ(Control("Play", g_variant_new("(s)", kPhone)), "(true,)");
  EXPECT_EQ(Control("RequestConnection", g_variant_new("(ss)", kPhone, "spp")), "(true,)");
  ASSERT_TRUE(service.WaitFor("OnSppConnectStatus"));
  GVariant* const data = g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, "a\0b", 3, 1);
  EXPECT_EQ(Control("SendSerial", g_variant_new("(s@ay)", kPhone, data)), "(true,)");
  for (const char* const signal :
       {"OnMessageStatusNotify (byte 0x00, 'AB')", "OnMessageStatusNotify (byte 0x07, 'AB')",
        "OnMediaAudioStateChanged ('00:1A:7D:DA:71:13', true)",
        "OnSppReceiveBufferChanged ('00:1A:7D:DA:71:13', <[byte 0x61, 0x00, 0x62]>)"}) {
    EXPECT_TRUE(service.WaitFor(signal)) << signal;
  }
}

TEST_F(ControlTest, ALinkIsLostAndComesBack) {
  EXPECT_EQ(Control("LoseLink", g_variant_new("(s)", kPhone)), "(true,)");
  EXPECT_TRUE(service.WaitFor("OnConnectStatusChanged ('00:1A:7D:DA:71:13', byte 0x01, byte 0x05)"));
  EXPECT_TRUE(service.WaitFor("OnConnectStatusChanged ('00:1A:7D:DA:71:13', byte 0x01, byte 0x02)"));
  EXPECT_EQ(Control("SetInRange", g_variant_new("(sb)", "AA:BB:CC:DD:EE:FF", TRUE)), "(false,)");
}

TEST_F(ControlTest, AnswersComeLate) {
  Control("DelayAnswers", g_variant_new("(suu)", "GetPowerStatus", 1, 200));
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(service.Ask("GetPowerStatus"), "(byte 0x01,)");
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(200));
  const auto again = std::chrono::steady_clock::now();
  EXPECT_EQ(service.Ask("GetPowerStatus"), "(byte 0x01,)");
  EXPECT_LT(std::chrono::steady_clock::now() - again, std::chrono::seconds(10));
}

TEST_F(ControlTest, ALateAnswerHoldsUpNoOther) {
  Control("DelayAnswers", g_variant_new("(suu)", "GetCurPlayMode", 1, 60000));
  g_dbus_connection_call(service.Connection(), kServiceName, kServicePath, kServiceName, "GetCurPlayMode",
                         nullptr, nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr, nullptr);
  EXPECT_EQ(service.Ask("GetPowerStatus"), "(byte 0x01,)");
  service.Process().Signal(SIGTERM);
  EXPECT_EQ(service.Process().Wait(), 0) << "nor the end";
}

TEST_F(ControlTest, AThousandAnswersComeLateAndNoMore) {
  constexpr int kMost = 1000;
  constexpr int kHour = 3600000;
  Control("DelayAnswers", g_variant_new("(suu)", "GetPowerStatus", kMost + 1, kHour));
  for (int i = 0; i < kMost; ++i) {
    g_dbus_connection_call(service.Connection(), kServiceName, kServicePath, kServiceName, "GetPowerStatus",
                           nullptr, nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr, nullptr);
  }
  EXPECT_EQ(service.Ask("GetPowerStatus"), "(byte 0x01,)");
}

TEST_F(ControlTest, AnswersFailAsOftenAsOrdered) {
  Control("FailAnswers", g_variant_new("(suss)", "DialCall", 2, "org.example.Tired", "not today"));
  EXPECT_THAT(ErrorOf("DialCall", g_variant_new("(s)", "112")), HasSubstr("org.example.Tired: not today"));
  EXPECT_EQ(service.Ask("GetPowerStatus"), "(byte 0x01,)") << "others are answered";
  EXPECT_THAT(ErrorOf("DialCall", g_variant_new("(s)", "112")), HasSubstr("not today"));
  EXPECT_EQ(service.Ask("GetCurCallCount"), "(uint32 0,)") << "nothing was dialed";
  EXPECT_EQ(service.Ask("DialCall", g_variant_new("(s)", "112")), "(true,)");
}

TEST_F(ControlTest, AnswersAreOdd) {
  Control("ReplaceAnswers", g_variant_new("(su@av)", "GetPowerStatus", 1, Values({g_variant_new_byte(200)})));
  Control("ReplaceAnswers",
          g_variant_new("(su@av)", "GetPowerStatus", 1,
                        Values({g_variant_new_string("what"), g_variant_new_boolean(TRUE)})));
  EXPECT_EQ(service.Ask("GetPowerStatus"), "(byte 0xc8,)");
  EXPECT_EQ(service.Ask("GetPowerStatus"), "('what', true)");
  EXPECT_EQ(service.Ask("GetPowerStatus"), "(byte 0x01,)");
}

TEST_F(ControlTest, AnswersDoNotComeUntilTheyDoAgain) {
  Control("DropAnswers", g_variant_new("(su)", "*", 1000));
  bool answered = false;
  const auto onReply = [](GObject* connection, GAsyncResult* result, gpointer flag) {
    const OwnedVariant reply(g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, nullptr));
    *static_cast<bool*>(flag) = true;
  };
  g_dbus_connection_call(service.Connection(), kServiceName, kServicePath, kServiceName, "GetPowerStatus",
                         nullptr, nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, onReply, &answered);
  Control("AnswerAgain");
  EXPECT_EQ(service.Ask("GetPowerStatus"), "(byte 0x01,)");
  bttest::RunPending();
  EXPECT_FALSE(answered) << "though one asked later was";
}

TEST_F(ControlTest, OrdersWithoutSenseAreRefused) {
  EXPECT_THAT(ProblemOf("DropAnswers", g_variant_new("(su)", "Fly", 1)),
              HasSubstr("the service has no method 'Fly'"));
  EXPECT_THAT(ProblemOf("FailAnswers", g_variant_new("(suss)", "*", 1, "nonsense", "")),
              HasSubstr("'nonsense' is not a D-Bus error name"));
  EXPECT_THAT(ProblemOf("EmitSignal", g_variant_new("(s@av)", "no name", Values({}))),
              HasSubstr("cannot be the name of a signal"));
  EXPECT_EQ(service.Ask("GetPowerStatus"), "(byte 0x01,)");
}

TEST_F(ControlTest, OrdersThatTheBusOrTheMachineCouldNotTakeAreRefused) {
  const std::string name = "a" + std::string(255, 'b');
  EXPECT_THAT(ProblemOf("EmitSignal", g_variant_new("(s@av)", name.c_str(), Values({}))),
              HasSubstr("bbb...' cannot be the name of a signal"));
  EXPECT_THAT(ProblemOf("FailAnswers", g_variant_new("(suss)", "*", 1, ("a." + name).c_str(), "")),
              HasSubstr("bbb...' is not a D-Bus error name"));
  std::vector<GVariant*> many(256);
  std::generate(many.begin(), many.end(), [] { return g_variant_new_byte(0); });
  EXPECT_THAT(ProblemOf("EmitSignal", g_variant_new("(s@av)", "OnHangupCallChanged", Values(many))),
              HasSubstr("expected values whose types take at most 255 characters, got 256"));
  EXPECT_THAT(ProblemOf("AddDevice", g_variant_new("(s)", std::string(1000000, '[').c_str())),
              HasSubstr("device:1: expected at most 64 lists and objects within each other"));
  EXPECT_THAT(ProblemOf("AddDevice", g_variant_new("(s)", std::string(18 << 20, ' ').c_str())),
              HasSubstr("expected arguments of at most 17408 KiB"));
  EXPECT_THAT(ProblemOf("SetOperator", g_variant_new("(ss)", kPhone, std::string(64 << 10, 'x').c_str())),
              HasSubstr("expected arguments of at most 64 KiB"));
  EXPECT_THAT(ProblemOf("AddDevice",
                        g_variant_new("(s)", DeviceWith(R"("phoneBook": {"vcard": "/dev/zero"})").c_str())),
              HasSubstr("/dev/zero: is not a regular file"));
  for (int i = 0; i < 1000; ++i) {
    Control("DropAnswers", g_variant_new("(su)", "DialCall", 1));
  }
  EXPECT_THAT(ProblemOf("DropAnswers", g_variant_new("(su)", "DialCall", 1)),
              HasSubstr("there are 1000 faults already"));
  EXPECT_EQ(service.Ask("GetPowerStatus"), "(byte 0x01,)");
}

TEST_F(ControlTest, APipeIsNoVCardFile) {
  const bttest::TemporaryDirectory directory;
  const std::string pipe = directory.Path() / "pipe.vcf";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const std::string device = DeviceWith(R"("phoneBook": {"vcard": ")" + pipe + "\"}");
  EXPECT_THAT(ProblemOf("AddDevice", g_variant_new("(s)", device.c_str())),
              HasSubstr("InvalidArgs: device:1: phoneBook.vcard: " + pipe + ": is not a regular file"));
  EXPECT_EQ(service.Ask("GetPowerStatus"), "(byte 0x01,)");
}

TEST_F(ControlTest, FoldersAndTracksThatAreTooDeepAreRefused) {
  const auto add = [](int depth) { return g_variant_new("(s)", DeviceWithFolders(depth).c_str()); };
  constexpr const char* kTooDeep = "1: expected at most 64 lists and objects within each other";
  for (const int depth :
       {32, 20000}) {  // each folder is an object in a list, and two objects are around them
    EXPECT_THAT(ProblemOf("AddDevice", add(depth)),
                HasSubstr(std::string("InvalidArgs: device:") + kTooDeep));
  }
  EXPECT_EQ(Control("AddDevice", add(31)), "(true,)");
  for (const int depth : {65, 20000}) {
    EXPECT_THAT(ProblemOf("SetTracks", g_variant_new("(ss)", kPhone,
                                                     (Repeated(depth, "[") + Repeated(depth, "]")).c_str())),
                HasSubstr(std::string("InvalidArgs: tracks:") + kTooDeep));
  }
  EXPECT_EQ(service.Ask("GetPowerStatus"), "(byte 0x01,)");
}

TEST_F(ControlTest, ContactsThatAreReplacedDoNotCount) {
  const std::string device = DeviceWith(R"("phoneBook": {"generate": 99999})");
  ASSERT_EQ(Control("AddDevice", g_variant_new("(s)", device.c_str())), "(true,)");
  const std::string book = Repeated(100000, "BEGIN:VCARD\nN:A\nTEL:1\nEND:VCARD\n");
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(Control("SetContacts", g_variant_new("(ss)", kPhone, book.c_str())), "(true,)");
  }
  const auto second = [](int contacts) {
    return g_variant_new("(s)",
                         (R"({"address": "00:00:00:00:00:02", "name": "B", "phoneBook": {"generate": )" +
                          std::to_string(contacts) + "}}")
                             .c_str());
  };
  EXPECT_THAT(ProblemOf("AddDevice", second(2)),
              HasSubstr("expected at most 200000 contacts in all phone books, got 200001"));
  EXPECT_EQ(Control("AddDevice", second(1)), "(true,)");
}

TEST_F(ControlTest, PhoneBooksOfDevicesThatAppearAreCountedTogether) {
  const auto device = [](int number) {
    return g_variant_new("(s)", (R"({"address": "00:00:00:00:00:0)" + std::to_string(number) +
                                 R"(", "name": "D", "phoneBook": {"generate": 99999}})")
                                    .c_str());
  };
  EXPECT_EQ(Control("AddDevice", device(1)), "(true,)");
  EXPECT_THAT(ProblemOf("AddDevice", device(2)),  // with the 6 of the phone in this world
              HasSubstr("expected at most 200000 contacts in all phone books, got 200004"));
}

TEST_F(ControlTest, AnySignalIsSentWithAnyValues) {
  Control("EmitSignal",
          g_variant_new("(s@av)", "OnCallStatusChanged",
                        Values({g_variant_new_int32(-1), g_variant_new_byte(255), g_variant_new_int32(99)})));
  Control("EmitSignal", g_variant_new("(s@av)", "OnNeverHeardOf", Values({g_variant_new_string("?")})));
  EXPECT_TRUE(service.WaitFor("OnCallStatusChanged (-1, byte 0xff, 99)"));
  EXPECT_TRUE(service.WaitFor("OnNeverHeardOf ('?',)"));
  Control("EmitSignal", g_variant_new("(s@av)", "OnHangupCallChanged", Values({})));
  EXPECT_TRUE(service.WaitFor("OnHangupCallChanged ()"));
}

TEST_F(ControlTest, ASegmentIsCorrupted) {
  GVariant* const bytes = g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, "\xFF\xFF\xFF\x7F", 4, 1);
  Control("CorruptSegment", g_variant_new("(uu@ay)", SH_CONTACT_LIST, 0, bytes));
  EXPECT_THAT(bttest::ReadSegment(SH_CONTACT_LIST, 0, 4), testing::ElementsAre(0xFF, 0xFF, 0xFF, 0x7F));
  EXPECT_EQ(service.Ask("GetContactList"), "(true,)");
  EXPECT_NE(bttest::ReadSegment(SH_CONTACT_LIST, 0, 4)[3], 0x7F) << "publishing repairs it";
  const auto order = [](unsigned id, unsigned offset) {
    return g_variant_new("(uu@ay)", id, offset, g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, "abc", 3, 1));
  };
  EXPECT_THAT(ProblemOf("CorruptSegment", order(8, 0)), HasSubstr("there is no segment 8"));
  EXPECT_THAT(ProblemOf("CorruptSegment", order(SH_BT_PARAMETER, 38)),
              HasSubstr("SH_BT_PARAMETER has 40 bytes"));
  EXPECT_THAT(ProblemOf("CorruptSegment", order(SH_BT_PARAMETER, 0xFFFFFFFF)), HasSubstr("has 40 bytes"));
}

TEST_F(ControlTest, TheServiceLeavesTheBusAndComesBack) {
  Control("LeaveBus", g_variant_new("(u)", 100));
  EXPECT_TRUE(bttest::RunUntil([this] { return ErrorOf("GetPowerStatus") != "nothing"; }));
  EXPECT_TRUE(bttest::RunUntil([this] { return ErrorOf("GetPowerStatus") == "nothing"; }));
  EXPECT_EQ(service.Ask("GetContactCount"), "(6,)") << "it is still the same one";
}

TEST_F(ControlTest, TheServiceDies) {
  EXPECT_THAT(ProblemOf("Die", g_variant_new("(u)", 42)), HasSubstr("NoReply"));
  EXPECT_EQ(service.Process().Wait(), 42);
  EXPECT_TRUE(bttest::FindSegment(SH_CONTACT_LIST)) << "nothing was cleaned up";
}

TEST_F(ControlTest, TheTimeIsReported) {
  EXPECT_THAT(Control("GetTime"), StartsWith("(int64 "));
  EXPECT_THAT(Control("GetTime"), HasSubstr(", 20.0)"));
}

TEST(WorldOptionTest, ABadWorldIsRefused) {
  bttest::ChildProcess process({kExecutable, "--world", "/nowhere.json"});
  EXPECT_EQ(process.Wait(), 5);
  EXPECT_THAT(process.Errors(),
              HasSubstr("btservice: /nowhere.json: cannot be read: No such file or directory"));
}

TEST(WorldOptionTest, TheSchemaIsShown) {
  bttest::ChildProcess process({kExecutable, "--world-schema"});
  EXPECT_EQ(process.Wait(), 0);
  EXPECT_THAT(process.Output(), HasSubstr("\"$schema\""));
}

TEST_F(ControlTest, FavouritesContactsAndCallLogsAreThoseOfTheWorldAgain) {
  const auto favourites = [this] {
    EXPECT_EQ(service.Ask("GetFavContactList"), "(true,)");
    return bttest::ReadSegment(SH_FAV_CONTACT_LIST, 0, 1)[0];
  };
  const auto callLogs = [this] { return service.Ask("GetCallLogCount", g_variant_new("(y)", CALL_LOG_ALL)); };
  const char* const entry =
      R"({"type": "missed", "number": "+49170555", "date": "2026-05-29", "time": "18:05:10"})";
  ASSERT_EQ(Control("AddCallLog", g_variant_new("(ss)", kPhone, entry)), "(true,)");
  ASSERT_EQ(service.Ask("StartPhoneBookDownload", g_variant_new("(y)", BT_PBAP_ALL)), "(true,)");
  ASSERT_TRUE(service.WaitFor(kDownloaded));
  ASSERT_EQ(service.Ask("SetContactFavorite", g_variant_new("(ib)", 3, TRUE)), "(true,)");
  ASSERT_EQ(service.Ask("DeleteContactById", g_variant_new("(i)", 1)), "(true,)");
  ASSERT_TRUE(service.WaitFor("OnContactFavoriteChanged (3, true)"));
  EXPECT_EQ(favourites(), 1);
  EXPECT_EQ(service.Ask("GetContactCount"), "(5,)");
  EXPECT_EQ(callLogs(), "(1,)");

  service.Process().Signal(SIGTERM);
  ASSERT_EQ(service.Process().Wait(), 0);
  service.ForgetSignals();
  service.Start();
  ASSERT_TRUE(service.WaitFor(kDownloaded));
  EXPECT_EQ(favourites(), 0);
  EXPECT_EQ(service.Ask("GetContactCount"), "(6,)");
  EXPECT_EQ(callLogs(), "(0,)");
}

TEST(StateOptionTest, PairedDevicesSurviveTheService) {
  const std::vector<std::string> options{"--speed", "100"};
  {
    RunningService service(options);
    ASSERT_TRUE(service.WaitFor("OnOpenBtStatusChanged (byte 0x01,)"));
    ASSERT_EQ(service.Ask("Pair", g_variant_new("(ss)", "00:02:EE:5A:10:4C", "1234")), "(byte 0x01,)");
    ASSERT_TRUE(service.WaitFor("OnPairStatusChanged (byte 0x02"));
    service.Process().Kill();
  }
  {
    RunningService service(options);
    EXPECT_EQ(service.Ask("GetPairListIndexByAddress", g_variant_new("(s)", "00:02:EE:5A:10:4C")), "(0,)");
  }
  RunningService service({"--no-state"});
  EXPECT_EQ(service.Ask("GetPairListIndexByAddress", g_variant_new("(s)", "00:02:EE:5A:10:4C")), "(-1,)");
}

}  // namespace
}  // namespace btservice
