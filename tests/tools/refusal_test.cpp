// What a refusal says of its cause.

#include <gmock/gmock.h>

#include "tools/Simulation.h"
#include "tools/Terminal.h"

namespace bttest {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr char kOtherPhone[] = "00:1A:7D:DA:71:14";
constexpr char kNoDevice[] = "00:00:00:00:00:01";

struct ARefusal : WithSimulation {
  /// In a world where nothing happens by itself, its adapter on.
  void StartOn(const std::string& world) {
    Start(Quiet(world), "1");
    Output({"capability", "set", "auto-connect", "off"});
    Output({"power", "off"});
    Output({"power", "on"});
  }

  static void ExpectCause(const Words& words, const std::string& cause, const std::string& message) {
    Words all = words;
    all.emplace_back("--json");
    const Ran ran = RunBtctl(all);
    SCOPED_TRACE(words.front() + " " + words.back() + ": " + ran.errors);
    EXPECT_EQ(ran.code, 1);
    EXPECT_EQ(ran.output, "");
    EXPECT_EQ(ran.Error().value("cause", ""), cause);
    EXPECT_EQ(ran.Error()["message"], "the service refused: " + message);
  }
};

TEST_F(ARefusal, SaysThatTheAdapterIsOff) {
  Start(Quiet("one-phone"), "1");
  Output({"power", "off"});
  for (const Words& words :
       {Words{"scan"}, Words{"scan", "start"}, Words{"pair", kNoDevice}, Words{"connect", kPhone},
        Words{"call", "dial", "110"}, Words{"call", "hangup"}, Words{"music", "next"},
        Words{"contacts", "download"}, Words{"spp", "send", kPhone, "x"}}) {
    ExpectCause(words, "adapter-off", "the adapter is off");
  }
  EXPECT_EQ(RunBtctl({"call", "redial"}).errors,
            "btctl: the service refused: the adapter is off\n'btctl power on' switches it on.\n");
}

TEST_F(ARefusal, SaysThatThereIsNoSuchDevice) {
  StartOn("one-phone");
  for (const Words& words : {Words{"connect", kNoDevice}, Words{"reconnect", kNoDevice},
                             Words{"disconnect", kNoDevice}, Words{"devices", "delete", kNoDevice},
                             Words{"devices", "move", kNoDevice, "0"}, Words{"hid", "key", kNoDevice, "1"}}) {
    ExpectCause(words, "unknown-device", std::string("it knows no device ") + kNoDevice);
  }
}

TEST_F(ARefusal, SaysWhatIsNotConnected) {
  StartOn("one-phone");
  ExpectCause({"call", "dial", "110"}, "not-connected", "no phone is connected");
  ExpectCause({"music", "next"}, "not-connected", "no player is connected");
  ExpectCause({"contacts", "download"}, "not-connected", "no phone is connected");
  ExpectCause({"disconnect", kPhone}, "not-connected", std::string(kPhone) + " is not connected");
  ExpectCause({"spp", "send", kPhone, "x"}, "not-connected", std::string(kPhone) + " is not connected");
  Output({"connect", kPhone, "--profile", "hfp"});
  ExpectCause({"disconnect", kPhone, "--profile", "a2dp"}, "not-connected",
              std::string(kPhone) + " is not connected with a2dp");
  ExpectCause({"hid", "key", kPhone, "1"}, "not-connected",
              std::string(kPhone) + " is not connected with hid");
}

TEST_F(ARefusal, AlsoOfAnAnswerSaysWhatIsNotConnected) {
  StartOn("one-phone");
  const Ran info = RunBtctl({"music", "info"});
  EXPECT_EQ(info.code, 1);
  EXPECT_THAT(info.errors, HasSubstr("the service has no answer to that now: no player is connected\n"));
  EXPECT_THAT(RunBtctl({"phone", "number"}).errors,
              HasSubstr("the service does not know: no phone is connected\n"));
}

TEST_F(ARefusal, SaysThatAPairingIsUnderWayAlready) {
  StartOn("two-phones");
  Output({"devices", "delete-all"});
  ExpectCause({"pairing", "answer", kPhone}, "no-pairing", std::string(kPhone) + " is not being paired");
  ChildProcess pair(CommandLine({"pair", kPhone}));
  ASSERT_TRUE(WaitUntil([&] { return pair.Errors().find("waits for an answer") != std::string::npos; }))
      << pair.Errors();
  ExpectCause({"pair", kOtherPhone}, "pairing-under-way",
              std::string("a pairing with ") + kPhone + " is under way already");
  ExpectCause({"pairing", "reject", kOtherPhone}, "no-pairing",
              std::string(kOtherPhone) + " is not being paired");
  Output({"pairing", "reject", kPhone});
  EXPECT_EQ(pair.Wait(), 1);
}

TEST_F(ARefusal, SaysThatAConnectedDeviceIsPairedAlready) {
  StartOn("one-phone");
  Output({"connect", kPhone});
  ExpectCause({"pair", kPhone}, "paired-already", std::string(kPhone) + " is paired already, and connected");
}

TEST_F(ARefusal, SaysWhetherASearchIsRunning) {
  StartOn("one-phone");
  ExpectCause({"scan", "stop"}, "no-search", "no search is running");
  Output({"scan", "start"});
  ExpectCause({"scan", "start"}, "search-running", "a search is running already");
  ExpectCause({"scan"}, "search-running", "a search is running already");
}

TEST_F(ARefusal, SaysWhetherADownloadIsUnderWay) {
  Start("big-phonebook", "1");
  Output({"capability", "set", "auto-download", "off"});
  Output({"power", "on"});
  Output({"connect", "00:1A:7D:DA:71:15"});
  ExpectCause({"contacts", "stop"}, "no-download", "no download is under way");
  Output({"contacts", "download", "--no-wait"});
  ExpectCause({"contacts", "download"}, "download-under-way", "a download is under way already");
}

TEST_F(ARefusal, SaysWhichCallThereIsNot) {
  StartOn("one-phone");
  Output({"connect", kPhone});
  ExpectCause({"call", "hangup"}, "no-call", "there is no call");
  ExpectCause({"call", "action", "swap"}, "no-call", "there is no call");
  ExpectCause({"call", "accept"}, "no-call", "no call is incoming or waiting");
  Output({"sim", "set-called-party", kPhone, "no-answer", "0"});
  Output({"call", "dial", "110"});
  ExpectCause({"call", "dtmf", "5"}, "no-call", "no call is active");
}

TEST_F(ARefusal, SaysThatThereIsNoSuchEntry) {
  StartWithPhone();
  ExpectCause({"contacts", "delete", "4711"}, "unknown-contact", "no contact has the id 4711");
  ExpectCause({"contacts", "favorite", "4711"}, "unknown-contact", "no contact has the id 4711");
  ExpectCause({"log", "delete", "4711"}, "unknown-entry", "no call log has an entry 4711");
}

TEST_F(ARefusal, ByTheLibraryItselfSaysWhatIsNotSupported) {
  Start("empty");
  ExpectCause({"message", "send", "110", "Hello"}, "not-supported",
              "the library does not support messages yet");
  ExpectCause({"ble", "init"}, "not-supported", "the library does not support low energy yet");
}

TEST_F(ARefusal, InTheShellDoesNotShowTheQuestionsThatItTakes) {
  StartOn("one-phone");
  Terminal terminal(CommandLine({}));
  ASSERT_TRUE(terminal.WaitFor("btctl> "));
  terminal.Type(std::string("disconnect ") + kPhone + "\n");
  ASSERT_TRUE(terminal.WaitFor("is not connected")) << terminal.Screen();
  EXPECT_TRUE(terminal.WaitFor("'connect ADDRESS' connects a paired device.")) << terminal.Screen();
  ASSERT_TRUE(terminal.WaitFor("btctl> "));
  terminal.Type("devices list\n");
  ASSERT_TRUE(terminal.WaitFor("Ada's phone")) << terminal.Screen();
  EXPECT_THAT(terminal.Screen(), Not(HasSubstr("OnBtCapabilityChanged")));
}

struct WithoutACause : BtctlWithRecorder {
  static void ExpectBare(const Ran& ran) {
    EXPECT_EQ(ran.code, 1);
    EXPECT_EQ(ran.errors, "btctl: the service refused\n'btctl status' shows the current state.\n");
  }
};

TEST_F(WithoutACause, ARefusalSaysNoMoreThanThat) {
  service.SetReply("GetPowerStatus", g_variant_new("(y)", 1));
  service.SetReply("GetPhoneConnectionState", g_variant_new("(ys)", 2, kPhone));
  ExpectBare(RunBtctl({"call", "redial"}));
  EXPECT_THAT(service.TakeCallTexts(),
              ElementsAre("RedialCall()", "GetPowerStatus()", "GetPhoneConnectionState()"))
      << "nothing is asked before the request";
  ExpectBare(RunBtctl({"scan", "stop"}));
  EXPECT_EQ(RunBtctl({"call", "redial", "--json"}).Error().count("cause"), 0U);
}

TEST_F(WithoutACause, NeitherDoesOneWhoseCauseCannotBeFoundOut) {
  service.FailNext("GetPowerStatus");
  ExpectBare(RunBtctl({"call", "redial"}));
  service.Hang("GetPowerStatus");
  ExpectBare(RunBtctl({"call", "redial"}));
  ExpectBare(RunBtctl({"call", "redial", "--timeout", "0.5"}));
}

}  // namespace
}  // namespace bttest
