// What is reported, and with which exit code, when things are not as they should be.

#include <csignal>

#include <gmock/gmock.h>

#include "tools/Btctl.h"

namespace bttest {
namespace {

using testing::HasSubstr;
using testing::Not;

enum Code : int {
  OK = 0,
  REFUSED = 1,
  USAGE = 2,
  NO_BUS = 3,
  NO_SERVICE = 4,
  SERVICE_GONE = 5,
  TIMED_OUT = 6,
  BAD_ADDRESS = 7,
  UNKNOWN_NAME = 8,
  INTERNAL = 9,
  INTERRUPTED = 130,
};

/// All failures have this in common: nothing on standard output, and a message of one sentence or two.
void ExpectFailure(const Ran& ran, int code, const std::string& message) {
  EXPECT_EQ(ran.code, code);
  EXPECT_EQ(ran.output, "");
  EXPECT_THAT(ran.errors, testing::StartsWith("btctl: "));
  EXPECT_THAT(ran.errors, HasSubstr(message));
  EXPECT_LE(std::count(ran.errors.begin(), ran.errors.end(), '\n'), 2) << ran.errors;
}

TEST(WithoutABus, TheMessageSaysWhichVariableIsMissing) {
  MakeDummySegments();
  ExpectFailure(RunBtctl({"power", "status"}), NO_BUS, "DBUS_SESSION_BUS_ADDRESS is not set\n");
}

TEST(WithoutABus, TheMessageSaysWhichAddressIsDead) {
  MakeDummySegments();
  ExpectFailure(RunBtctl({"monitor"}, {{"DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere"}}), NO_BUS,
                "no session bus at unix:path=/nowhere\n");
}

TEST(WithoutABus, ABadAddressOrNameIsFoundAllTheSame) {
  ExpectFailure(RunBtctl({"connect", "00:1A:7D:DA:71:1G"}), BAD_ADDRESS,
                "'00:1A:7D:DA:71:1G' is not a Bluetooth address");
  ExpectFailure(RunBtctl({"capability", "get", "flying"}), UNKNOWN_NAME,
                "there is no capability 'flying'\nKnown are: ");
  ExpectFailure(RunBtctl({"connect", kPhone, "--profile", "usb"}), UNKNOWN_NAME, "there is no profile 'usb'");
  ExpectFailure(RunBtctl({"wait", "OnNothing"}), UNKNOWN_NAME, "there is no event 'OnNothing'");
  ExpectFailure(RunBtctl({"wait", "OnScanStatusChanged", "--match", "colour=red"}), UNKNOWN_NAME,
                "OnScanStatusChanged has no value 'colour'");
  ExpectFailure(RunBtctl({"words", "Nonsense"}), UNKNOWN_NAME, "there is no enumeration 'Nonsense'");
}

TEST(WithoutABus, AWrongCommandLineIsReportedAsSuch) {
  const std::vector<Words> wrong{{"fly"},
                                 {"call"},
                                 {"call", "fly"},
                                 {"connect"},
                                 {"connect", kPhone, "too", "much"},
                                 {"call", "status", "one"},
                                 {"call", "dtmf", "55"},
                                 {"hid", "key", kPhone, "99999999999"},
                                 {"ble", "write", "3", "0"},
                                 {"ble", "write", "70000", "00"},
                                 {"scan", "--seconds", "-1"},
                                 {"scan", "--seconds", "soon"},
                                 {"power", "status", "--timeout", "x"},
                                 {"power", "status", "--fast"},
                                 {"wait", "OnScanStatusChanged", "--match", "status"},
                                 {"wait", "OnScanStatusChanged", "--count", "0"}};
  for (const Words& words : wrong) {
    const Ran ran = RunBtctl(words);
    EXPECT_EQ(ran.code, USAGE) << words.front() << ": " << ran.errors;
    EXPECT_EQ(ran.output, "");
    EXPECT_THAT(ran.errors, testing::StartsWith("btctl: "));
  }
}

TEST(WithoutABus, ASlipOfTheFingerIsTaken) {
  ExpectFailure(RunBtctl({"call", "dail", "110"}), USAGE,
                "'btctl call' has no command 'dail'\nDid you mean 'dial'?");
  ExpectFailure(RunBtctl({"power", "status", "--jsno"}), USAGE,
                "'btctl power status' has no option '--jsno'\nDid you mean '--json'?");
  ExpectFailure(RunBtctl({"wait", "OnScanStatus"}), UNKNOWN_NAME, "Did you mean 'OnScanStatusChanged'?");
  ExpectFailure(RunBtctl({"capability", "get", "visibel"}), UNKNOWN_NAME, "Did you mean 'visible'?");
  ExpectFailure(RunBtctl({"call", "list", "all"}), USAGE, "'btctl call list' has no place for 'all'");
}

TEST(WithoutABus, AGroupByItselfNamesItsCommands) {
  ExpectFailure(RunBtctl({"voice"}), USAGE,
                "'btctl voice' is not complete\nAdd one of: start, stop; or --help.");
}

TEST(WithoutABus, HelpAndVersionAreAnswers) {
  const Ran help = RunBtctl({"--help"});
  EXPECT_EQ(help.code, OK);
  EXPECT_EQ(help.errors, "");
  EXPECT_THAT(help.output, HasSubstr("Exit codes:"));
  EXPECT_THAT(RunBtctl({"call", "dial", "--help"}).output, HasSubstr("NUMBER"));
  EXPECT_THAT(RunBtctl({"--version"}).output, HasSubstr("btctl 1.0.0\n"));
}

TEST(WithoutABus, AnOutputThatCannotBeWrittenIsAFailure) {
  ChildProcess shell({"sh", "-c", "exec \"$0\" commands > /dev/full", BTCTL_EXECUTABLE});
  EXPECT_EQ(shell.Wait(), INTERNAL);
  EXPECT_THAT(shell.Errors(), HasSubstr("cannot be written"));
}

using WithoutAService = BtctlWithBus;

TEST_F(WithoutAService, TheMessageSaysHowToStartIt) {
  ExpectFailure(RunBtctl({"power", "status"}), NO_SERVICE,
                "the Bluetooth service is not running on this session bus\nStart it");
}

TEST_F(WithoutAService, TheSimulationHasNothingToControl) {
  ExpectFailure(RunBtctl({"sim"}), NO_SERVICE, "the Bluetooth service is not running");
}

using WithAService = BtctlWithRecorder;

TEST_F(WithAService, ARefusalIsReported) {
  ExpectFailure(RunBtctl({"ringtone", "stop"}), REFUSED,
                "the service refused\n'btctl status' shows the current state.");
}

TEST_F(WithAService, AnErrorOfTheServiceIsReportedWithItsReason) {
  service.FailNext("AcceptCall", 1, "com.zelk.Error.Busy", "the line is busy");
  ExpectFailure(RunBtctl({"call", "accept"}), REFUSED,
                "the request failed: GDBus.Error:com.zelk.Error.Busy: the line is busy");
}

TEST_F(WithAService, AFailureIsNotTakenForTheValueThatTheLibraryAnswers) {
  service.FailNext("GetPowerStatus");
  ExpectFailure(RunBtctl({"power", "status"}), REFUSED, "told to fail");
  service.FailNext("SppSendBuffer");
  ExpectFailure(RunBtctl({"spp", "send-bytes", kPhone, "00"}), REFUSED, "told to fail");
}

TEST_F(WithAService, AnAnswerOfWrongTypesIsAFailure) {
  service.ReplyWrongType("GetContactCount");
  ExpectFailure(RunBtctl({"contacts", "count"}), REFUSED, "the request failed");
}

TEST_F(WithAService, WhatTheServiceDoesNotKnowIsReported) {
  ExpectFailure(RunBtctl({"devices", "name", kPhone}), REFUSED, "the service does not know");
  ExpectFailure(RunBtctl({"music", "position"}), REFUSED, "the service has no answer");
}

TEST_F(WithAService, AHangingOneIsGivenUpAfterTheTimeout) {
  service.Hang("DialCall");
  const auto begin = std::chrono::steady_clock::now();
  ExpectFailure(RunBtctl({"call", "dial", "110", "--timeout", "0.3"}), TIMED_OUT, "did not answer in time");
  EXPECT_LT(std::chrono::steady_clock::now() - begin, kBound);
}

TEST_F(WithAService, AnOutcomeThatDoesNotComeIsGivenUpAfterTheTimeout) {
  Accept("SetScanAction");
  ExpectFailure(RunBtctl({"scan", "start", "--timeout", "0.3"}), TIMED_OUT,
                "accepted, but OnScanStatusChanged did not come in time");
}

TEST_F(WithAService, OneThatDiesInTheMiddleOfARequestIsGone) {
  service.DieOn("DialCall");
  ExpectFailure(RunBtctl({"call", "dial", "110"}), SERVICE_GONE,
                "the Bluetooth service went away\nStart it again");
}

TEST_F(WithAService, OneThatDiesBeforeTheOutcomeIsGone) {
  Accept("SetScanAction");
  ChildProcess scan(CommandLine({"scan", "start"}));
  ASSERT_TRUE(service.WaitForCalls(1));
  service.Kill();
  ExpectFailure(Ended(scan), SERVICE_GONE, "the Bluetooth service went away");
}

TEST_F(WithAService, OneThatGoesAwayEndsAMonitor) {
  ChildProcess monitor(CommandLine({"monitor"}));
  ASSERT_TRUE(WaitForErrors(monitor, "listening"));
  service.ReleaseName();
  const Ran ran = Ended(monitor);
  EXPECT_EQ(ran.code, SERVICE_GONE);
  EXPECT_THAT(ran.errors, HasSubstr("the Bluetooth service went away"));
}

TEST_F(WithAService, OneThatComesBackIsHeardByAMonitorThatStays) {
  ChildProcess monitor(CommandLine({"monitor", "--stay"}));
  ASSERT_TRUE(WaitForErrors(monitor, "listening"));
  service.ReleaseName();
  ASSERT_TRUE(WaitForErrors(monitor, "the service went away"));
  service.OwnName();
  ASSERT_TRUE(WaitForErrors(monitor, "the service is there"));
  service.Emit("OnHangupCallChanged", g_variant_new("()"));
  EXPECT_TRUE(monitor.WaitForOutput("OnHangupCallChanged\n"));
}

TEST_F(WithAService, ABusThatGoesAwayEndsAMonitor) {
  ChildProcess monitor(CommandLine({"monitor"}));
  ASSERT_TRUE(WaitForErrors(monitor, "listening"));
  bus.Stop();
  const Ran ran = Ended(monitor);
  EXPECT_EQ(ran.code, SERVICE_GONE);
  EXPECT_THAT(ran.errors, HasSubstr("the session bus went away"));
}

TEST_F(WithAService, CtrlCEndsAMonitorInGoodOrder) {
  ChildProcess monitor(CommandLine({"monitor"}));
  ASSERT_TRUE(WaitForErrors(monitor, "listening"));
  monitor.Signal(SIGINT);
  EXPECT_EQ(monitor.Wait(), OK);
}

TEST_F(WithAService, StandardFilesMayBeClosed) {
  ChildProcess monitor({"sh", "-c", "exec \"$0\" monitor --seconds 0.3 2>&- <&-", BTCTL_EXECUTABLE});
  EXPECT_EQ(monitor.Wait(), OK);
  ChildProcess refused({"sh", "-c", "exec \"$0\" ringtone stop 2>&-", BTCTL_EXECUTABLE});
  EXPECT_EQ(refused.Wait(), REFUSED);
  EXPECT_EQ(refused.Output(), "") << "the first file that is opened has the number of standard error";
}

TEST_F(WithAService, CtrlCInterruptsARequest) {
  service.Hang("AcceptCall");
  ChildProcess accept(CommandLine({"call", "accept"}));
  ASSERT_TRUE(service.WaitForCalls(1));
  accept.Signal(SIGINT);
  EXPECT_EQ(accept.Wait(), INTERRUPTED);
}

TEST_F(WithAService, CtrlCEndsASearchThatWasBegun) {
  Accept("SetScanAction");
  ChildProcess scan(CommandLine({"scan", "--seconds", "600"}));
  ASSERT_TRUE(service.WaitForCalls(1));
  scan.Signal(SIGINT);
  EXPECT_EQ(scan.Wait(), INTERRUPTED);
  EXPECT_THAT(service.TakeCallTexts(), testing::ElementsAre("SetScanAction(true,)", "SetScanAction(false,)"));
}

TEST_F(WithAService, CtrlCEndsASearchWhoseStartIsNotAnsweredYet) {
  service.Delay("SetScanAction", std::chrono::milliseconds(500));
  ChildProcess scan(CommandLine({"scan", "--seconds", "600"}));
  ASSERT_TRUE(service.WaitForCalls(1));
  scan.Signal(SIGINT);
  EXPECT_EQ(scan.Wait(), INTERRUPTED);
  EXPECT_THAT(service.TakeCallTexts(), testing::ElementsAre("SetScanAction(true,)", "SetScanAction(false,)"));
}

TEST_F(WithAService, WithoutSimulationControlsThatIsSaid) {
  const Ran ran = RunBtctl({"sim"});
  EXPECT_EQ(ran.code, REFUSED);
  EXPECT_THAT(ran.errors, HasSubstr("has no simulation controls"));
}

TEST_F(WithAService, AContactThatIsNotInThePhoneBookIsAnUnknownName) {
  Accept("GetContactList");
  ExpectFailure(RunBtctl({"call", "dial", "Nobody"}), UNKNOWN_NAME,
                "no contact is called 'Nobody'\nThe phone book is empty");
}

TEST_F(WithAService, TheLibrarysLogIsShownIfThatIsWanted) {
  Accept("AcceptCall");
  EXPECT_EQ(RunBtctl({"music", "modes"}).output, "") << "the library prints there by itself";
  EXPECT_EQ(RunBtctl({"call", "accept"}).errors, "");
  const Ran ran = RunBtctl({"call", "accept", "--verbose"}, {{"MWP_LOG_LEVEL", "debug"}});
  EXPECT_EQ(ran.output, "accepted\n");
  EXPECT_THAT(ran.errors, HasSubstr("libbt 20 ipc/BtClientIpcAdapter InitDBusConnect: "));
}

TEST_F(WithAService, ThereAreNoColoursInAPipe) {
  AcceptAll();
  ChildProcess::Environment terminal{{"TERM", "xterm-256color"}};
  for (const Words& words : {Words{"phone", "connection"}, Words{"music", "modes"}, Words{"words"}}) {
    EXPECT_THAT(RunBtctl(words, terminal).output, Not(HasSubstr("\033")));
  }
  EXPECT_THAT(RunBtctl({"call", "fly"}, terminal).errors, Not(HasSubstr("\033")));
}

}  // namespace
}  // namespace bttest
