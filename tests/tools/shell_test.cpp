// The interactive shell, at a terminal.

#include <csignal>
#include <fstream>
#include <sstream>

#include <gmock/gmock.h>

#include "support/TemporaryDirectory.h"
#include "tools/Btctl.h"
#include "tools/Terminal.h"

namespace bttest {
namespace {

constexpr char kPrompt[] = "btctl> ";

/// The number of times that a text is in another.
int Count(const std::string& text, const std::string& part) {
  int count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

struct InTheShell : BtctlWithRecorder {
  InTheShell() { AcceptAll(); }

  /// Starts the shell and waits for its prompt; forgets the calls that it made by itself.
  void Start(const Words& words = {}) {
    terminal.emplace(CommandLine(words));
    ASSERT_TRUE(terminal->WaitFor(kPrompt)) << terminal->Screen();
    service.TakeCalls();
  }

  std::optional<Terminal> terminal;
};

TEST_F(InTheShell, ACommandIsCarriedOutAndThePromptComesBack) {
  Start();
  terminal->Type("call redial\n");
  EXPECT_TRUE(terminal->WaitFor("accepted"));
  EXPECT_TRUE(terminal->WaitFor(kPrompt));
  EXPECT_THAT(service.TakeCallTexts(), testing::ElementsAre("RedialCall()"));
}

TEST_F(InTheShell, AnEventIsShownAboveThePromptAndWhatIsTypedStays) {
  Start();
  terminal->Type("call red");
  ASSERT_TRUE(terminal->WaitFor("call red"));
  service.Emit("OnConnectStatusChanged", g_variant_new("(syy)", kPhone, 1, 2));
  ASSERT_TRUE(terminal->WaitFor("connected"));
  ASSERT_TRUE(terminal->WaitFor("btctl> call red")) << terminal->Screen();
  terminal->Type("ial\n");
  EXPECT_TRUE(terminal->WaitFor("accepted"));
}

TEST_F(InTheShell, AnAddressThatAnEventNamedIsCompleted) {
  Start();
  service.Emit("OnConnectStatusChanged", g_variant_new("(syy)", kPhone, 1, 0));
  ASSERT_TRUE(terminal->WaitFor("disconnected"));
  terminal->Type("connect 00\t--no-wait\n");
  ASSERT_TRUE(terminal->WaitFor("accepted")) << terminal->Screen();
  EXPECT_THAT(service.TakeCallTexts(),
              testing::ElementsAre("Connect('00:1A:7D:DA:71:13', byte 0x03, byte 0x00)"));
}

TEST_F(InTheShell, CommandsOptionsAndProfilesAreCompleted) {
  Start();
  terminal->Type(std::string("conn\t") + kPhone + " --pro\ta2\t--no-wait\n");
  ASSERT_TRUE(terminal->WaitFor("accepted")) << terminal->Screen();
  EXPECT_THAT(service.TakeCallTexts(),
              testing::ElementsAre("Connect('00:1A:7D:DA:71:13', byte 0x02, byte 0x00)"));
}

TEST_F(InTheShell, SeveralPossibilitiesAreListed) {
  Start();
  terminal->Type("call re\t\t");
  EXPECT_TRUE(terminal->WaitFor("redial"));
  EXPECT_TRUE(terminal->WaitFor("reject"));
}

TEST_F(InTheShell, TheHistoryOutlivesTheShell) {
  Start();
  terminal->Type("call hangup\n");
  ASSERT_TRUE(terminal->WaitFor("accepted"));
  ASSERT_TRUE(terminal->WaitFor(kPrompt));
  terminal->Type("quit\n");
  ASSERT_EQ(terminal->Wait(), 0);

  Start();
  terminal->Type("\033[A\033[A\n");  // twice up: before "quit"
  ASSERT_TRUE(terminal->WaitFor("accepted")) << terminal->Screen();
  EXPECT_THAT(service.TakeCallTexts(), testing::ElementsAre("TerminateCall()"));
}

TEST_F(InTheShell, AFailureIsReportedAndIsTheExitCodeIfItIsTheLast) {
  Start();
  terminal->Type("connect here\n");
  EXPECT_TRUE(terminal->WaitFor("is not a Bluetooth address"));
  EXPECT_TRUE(terminal->WaitFor(kPrompt));
  terminal->Type("\004");
  EXPECT_EQ(terminal->Wait(), 7);
}

TEST_F(InTheShell, CtrlCDiscardsTheLineAndEndsACommand) {
  Start();
  terminal->Type("call accept");
  ASSERT_TRUE(terminal->WaitFor("call accept"));
  terminal->Type("\003");
  ASSERT_TRUE(terminal->WaitFor(kPrompt));
  terminal->Type("monitor\n");
  ASSERT_TRUE(terminal->WaitFor("listening"));
  terminal->Type("\003");
  ASSERT_TRUE(terminal->WaitFor(kPrompt));
  terminal->Type("quit\n");
  EXPECT_EQ(terminal->Wait(), 0);
  EXPECT_THAT(service.TakeCallTexts(), testing::IsEmpty());
}

TEST_F(InTheShell, CtrlCLeavesTheSearchInTheHistory) {
  Start();
  terminal->Type("call hangup\n");
  ASSERT_TRUE(terminal->WaitFor("accepted"));
  ASSERT_TRUE(terminal->WaitFor(kPrompt));
  terminal->Type("\022hang");
  ASSERT_TRUE(terminal->WaitFor("g': call ")) << terminal->Screen();
  terminal->Type("\003");
  ASSERT_TRUE(terminal->WaitFor("^C"));
  ASSERT_TRUE(terminal->WaitFor(kPrompt));
  terminal->Type("\n");
  ASSERT_TRUE(terminal->WaitFor(kPrompt));
  terminal->Type("call redial\n");
  ASSERT_TRUE(terminal->WaitFor("accepted"));
  EXPECT_THAT(service.TakeCallTexts(), testing::ElementsAre("TerminateCall()", "RedialCall()"));
}

/// What was changed in a line can be undone as long as there is that line.
TEST_F(InTheShell, CtrlCForgetsWhatCouldBeUndone) {
  Start();
  terminal->Type("call hangup xxx yyy\027\027");  // Ctrl-W
  ASSERT_TRUE(terminal->WaitFor("yyy"));
  terminal->Type("\003");
  ASSERT_TRUE(terminal->WaitFor("^C"));
  ASSERT_TRUE(terminal->WaitFor(kPrompt));
  terminal->Type("\037\037call redial\n");  // Ctrl-_
  EXPECT_TRUE(terminal->WaitFor("accepted")) << terminal->Screen();
  EXPECT_THAT(service.TakeCallTexts(), testing::ElementsAre("RedialCall()"));
}

TEST_F(InTheShell, CtrlCEndsAPasteThatHasNoEnd) {
  Start();
  terminal->Type("\033[200~call accept\n");
  ASSERT_FALSE(terminal->WaitFor("accept", std::chrono::milliseconds(100)))
      << "it is shown when it is complete";
  terminal->Type("\003");
  ASSERT_TRUE(terminal->WaitFor("^C")) << terminal->Screen();
  terminal->Type("call redial\n");
  EXPECT_TRUE(terminal->WaitFor("accepted")) << terminal->Screen();
  EXPECT_THAT(service.TakeCallTexts(), testing::ElementsAre("RedialCall()"));
}

TEST_F(InTheShell, EnterAfterEscEndsTheLineToo) {
  Start();
  terminal->Type("call redial\033\n");
  EXPECT_TRUE(terminal->WaitFor("accepted")) << terminal->Screen();
  terminal->Type("call redial\n");  // the keys of vi would take these for commands
  EXPECT_TRUE(terminal->WaitFor("accepted")) << terminal->Screen();
}

TEST_F(InTheShell, PastedLinesAreCommandsOneAfterTheOther) {
  Start();
  terminal->Type("\033[200~call redial\ncall accept\n\033[201~\n");
  ASSERT_TRUE(terminal->WaitFor("accepted")) << terminal->Screen();
  ASSERT_TRUE(terminal->WaitFor("btctl> call accept")) << terminal->Screen();
  ASSERT_TRUE(terminal->WaitFor("accepted")) << terminal->Screen();
  EXPECT_THAT(service.TakeCallTexts(), testing::ElementsAre("RedialCall()", "AcceptCall()"));
}

TEST_F(InTheShell, AWordInQuotesIsCompleted) {
  Start();
  service.Emit("OnConnectStatusChanged", g_variant_new("(syy)", kPhone, 1, 0));
  ASSERT_TRUE(terminal->WaitFor("disconnected"));
  terminal->Type("connect \"00\t --no-wait\n");
  ASSERT_TRUE(terminal->WaitFor("accepted")) << terminal->Screen();
  EXPECT_THAT(service.TakeCallTexts(),
              testing::ElementsAre("Connect('00:1A:7D:DA:71:13', byte 0x03, byte 0x00)"));
}

TEST_F(InTheShell, NamesThatShareNothingButTheirQuoteLeaveTheLineAlone) {
  Start();
  for (const char* const name : {"one blank", "two \"blanks\""}) {
    service.Emit("OnConnectStatusChanged", g_variant_new("(syy)", name, 1, 0));
    ASSERT_TRUE(terminal->WaitFor("disconnected"));
  }
  terminal->Type("connect \t\t");
  ASSERT_TRUE(terminal->WaitFor("\"one blank\"")) << terminal->Screen();
  ASSERT_TRUE(terminal->WaitFor(R"("two \"blanks\"")")) << terminal->Screen();
  terminal->Type(std::string(kPhone) + " --no-wait\n");
  EXPECT_TRUE(terminal->WaitFor("accepted")) << terminal->Screen();
}

TEST_F(InTheShell, HasWordsOfItsOwnThatItsHelpNames) {
  Start();
  for (const char* const line : {"help\n", "?\n"}) {
    terminal->Type(line);
    EXPECT_TRUE(terminal->WaitFor("watch on, watch off")) << terminal->Screen();
    EXPECT_TRUE(terminal->WaitFor("quit, exit"));
    ASSERT_TRUE(terminal->WaitFor(kPrompt));
  }
  terminal->Type("clear\n");
  EXPECT_TRUE(terminal->WaitFor("\033[H\033[2J"));
  EXPECT_TRUE(terminal->WaitFor(kPrompt));
}

TEST_F(InTheShell, HintsNameCommandsAsTheyAreTypedThere) {
  Start();
  for (const char* const line : {"xylophone\n", "call xylophone\n", "call dial\n", "call --help\n"}) {
    terminal->Type(line);
    ASSERT_TRUE(terminal->WaitFor("help'")) << terminal->Screen();
    ASSERT_TRUE(terminal->WaitFor(kPrompt));
  }
  EXPECT_THAT(terminal->Screen(), testing::HasSubstr("there is no command 'xylophone'"));
  EXPECT_THAT(terminal->Screen(), testing::Not(testing::HasSubstr("'btctl")));
}

TEST_F(InTheShell, ItsOwnWordsHaveHelpAndTakeBlanks) {
  Start();
  for (const char* const line : {"help watch\n", "? quit\n", "help help\n"}) {
    terminal->Type(line);
    EXPECT_TRUE(terminal->WaitFor("watch on, watch off")) << line << terminal->Screen();
    ASSERT_TRUE(terminal->WaitFor(kPrompt));
  }
  terminal->Type("? call dial\n");
  EXPECT_TRUE(terminal->WaitFor("Usage: call dial")) << terminal->Screen();
  ASSERT_TRUE(terminal->WaitFor(kPrompt));
  terminal->Type("  watch   off \n");
  ASSERT_TRUE(terminal->WaitFor(kPrompt));
  service.Emit("OnHangupCallChanged", g_variant_new("()"));
  terminal->Type(" call   redial \n");
  ASSERT_TRUE(terminal->WaitFor("accepted"));
  EXPECT_EQ(Count(terminal->Screen(), "OnHangupCallChanged"), 0);
}

TEST_F(InTheShell, ALineMayBeginWithTheNameOfTheProgramAsInExamples) {
  Start();
  terminal->Type("btctl call redial\n");
  EXPECT_TRUE(terminal->WaitFor("accepted"));
  terminal->Type("btctl call dial \"11 0\"\n");
  EXPECT_TRUE(terminal->WaitFor("accepted"));
  EXPECT_THAT(service.TakeCallTexts(), testing::ElementsAre("RedialCall()", "DialCall('11 0',)"));
}

TEST_F(InTheShell, TheOptionsOfALineHoldForThatLine) {
  setenv("MWP_LOG_LEVEL", "debug", 1);
  Start();
  terminal->Type("scan start --no-wait --verbose\n");
  EXPECT_TRUE(terminal->WaitFor("libbt 40 libbluetooth/MWPBtClient SetScanAction")) << terminal->Screen();
  EXPECT_TRUE(terminal->WaitFor("accepted"));
  ASSERT_TRUE(terminal->WaitFor(kPrompt));
  terminal->Type("scan start --no-wait --verbose --json\n");
  EXPECT_TRUE(terminal->WaitFor(R"({"kind":"log","from":"libbt",)")) << terminal->Screen();
  ASSERT_TRUE(terminal->WaitFor(kPrompt));
  const int logged = Count(terminal->Screen(), "libbt");
  terminal->Type("scan start --no-wait\n");
  EXPECT_TRUE(terminal->WaitFor("accepted"));
  EXPECT_EQ(Count(terminal->Screen(), "libbt"), logged);
  terminal->Type("call xylophone --json\n");
  EXPECT_TRUE(terminal->WaitFor(R"({"kind":"error",)")) << terminal->Screen();
}

TEST_F(InTheShell, PastedLinesCannotControlTheTerminal) {
  Start();
  terminal->Type("\033[200~call redial\n# \033]0;planted\007\n\033[201~\n");
  ASSERT_TRUE(terminal->WaitFor("accepted")) << terminal->Screen();
  ASSERT_TRUE(terminal->WaitFor("btctl> # ")) << terminal->Screen();
  EXPECT_TRUE(terminal->WaitFor("planted"));
  EXPECT_EQ(Count(terminal->Screen(), "\033]0;"), 0) << terminal->Screen();
}

TEST_F(InTheShell, TheNoteOfAPairingNamesTheCommandAsItIsTypedThere) {
  TemporaryDirectory directory;
  const std::string errors = (directory.Path() / "errors").string();
  terminal.emplace(Words{"/bin/sh", "-c", "exec \"$0\" 2>" + errors, BTCTL_EXECUTABLE});
  ASSERT_TRUE(terminal->WaitFor(kPrompt)) << terminal->Screen();
  service.TakeCalls();
  terminal->Type(std::string("pair ") + kPhone + "\n");
  ASSERT_TRUE(service.WaitForCalls(1));
  service.Emit("OnAnswerPairRequest", g_variant_new("(ssby)", kPhone, "123456", FALSE, 0));
  const auto written = [&] {
    std::stringstream text;
    text << std::ifstream(errors).rdbuf();
    return text.str();
  };
  ASSERT_TRUE(WaitUntil([&] { return written().find("123456") != std::string::npos; })) << written();
  EXPECT_THAT(written(), testing::HasSubstr("; see 'pairing answer --help'"));
}

TEST_F(InTheShell, AWarningOfGLibIsShownAboveThePromptAsWell) {
  Start();
  terminal->Type("call red");
  ASSERT_TRUE(terminal->WaitFor("call red"));
  service.EmitRaw("OnOperatorNameChanged", g_variant_new("(ii)", 1, 2));
  ASSERT_TRUE(terminal->WaitFor("GLib-GIO warning: ")) << terminal->Screen();
  const std::string before = terminal->Screen().substr(0, terminal->Screen().find("GLib-GIO warning"));
  EXPECT_THAT(before.substr(before.size() - 10), testing::HasSubstr("\r\033[K"))
      << "the prompt is wiped first";
  EXPECT_TRUE(terminal->WaitFor("btctl> call red")) << terminal->Screen();
}

/// Keys are read while the phone book is fetched for completion, and may complete a line then.
TEST_F(InTheShell, ALineThatIsTypedWhileTheServiceComesBackIsCarriedOut) {
  Start();
  service.Delay("GetContactList", std::chrono::milliseconds(300));
  service.ReleaseName();
  ASSERT_TRUE(terminal->WaitFor("the service went away"));
  service.TakeCalls();
  service.OwnName();
  ASSERT_TRUE(terminal->WaitFor("the service is there"));
  ASSERT_TRUE(service.WaitForCalls(1));
  terminal->Type("call redial\ncall accept\n");
  EXPECT_TRUE(terminal->WaitFor("accepted")) << terminal->Screen();
  EXPECT_TRUE(terminal->WaitFor("accepted")) << terminal->Screen();
}

TEST_F(InTheShell, StoppedAndContinuedItShowsItsPromptAgain) {
  Start();
  terminal->Type("call red");
  ASSERT_TRUE(terminal->WaitFor("call red"));
  terminal->Signal(SIGSTOP);
  terminal->BeAsUsual();  // as the user's shell sees to
  terminal->Signal(SIGCONT);
  ASSERT_TRUE(terminal->WaitFor("btctl> call red")) << terminal->Screen();
  EXPECT_FALSE(terminal->IsAsUsual());
  terminal->Type("\001\013call redial\n");  // Ctrl-A and Ctrl-K, which are no keys of a usual terminal
  EXPECT_TRUE(terminal->WaitFor("accepted")) << terminal->Screen();
  EXPECT_THAT(service.TakeCallTexts(), testing::ElementsAre("RedialCall()"));
}

TEST_F(InTheShell, SigtermLeavesTheTerminalAsItWas) {
  Start();
  terminal->Type("call red");
  ASSERT_TRUE(terminal->WaitFor("call red"));
  EXPECT_FALSE(terminal->IsAsUsual());
  terminal->Signal(SIGTERM);
  EXPECT_EQ(terminal->Wait(), 128 + SIGTERM);
  EXPECT_TRUE(terminal->IsAsUsual());

  Start();
  terminal->Type("monitor\n");
  ASSERT_TRUE(terminal->WaitFor("listening"));
  terminal->Signal(SIGTERM);
  EXPECT_EQ(terminal->Wait(), 128 + SIGTERM);
}

TEST_F(InTheShell, ANoteIsShownAboveThePromptAsWell) {
  Start();
  terminal->Type("call red");
  ASSERT_TRUE(terminal->WaitFor("call red"));
  service.ReleaseName();
  ASSERT_TRUE(terminal->WaitFor("btctl: the service went away"));
  const std::string before = terminal->Screen().substr(0, terminal->Screen().find("btctl: the service went"));
  EXPECT_THAT(before.substr(before.size() - 10), testing::HasSubstr("\r\033[K"))
      << "the prompt is wiped first";
  EXPECT_TRUE(terminal->WaitFor("btctl> call red")) << terminal->Screen();
}

TEST_F(InTheShell, AMonitorShowsAnEventOnce) {
  Start();
  terminal->Type("monitor\n");
  ASSERT_TRUE(terminal->WaitFor("listening"));
  service.Emit("OnHangupCallChanged", g_variant_new("()"));
  service.Emit("OnMediaInfoChanged", g_variant_new("()"));
  ASSERT_TRUE(terminal->WaitFor("OnMediaInfoChanged"));
  EXPECT_EQ(Count(terminal->Screen(), "OnHangupCallChanged"), 1);
}

TEST_F(InTheShell, APairingAsksAtTheTerminal) {
  Start();
  terminal->Type(std::string("pair ") + kPhone + "\n");
  ASSERT_TRUE(service.WaitForCalls(1));
  service.Emit("OnAnswerPairRequest", g_variant_new("(ssby)", kPhone, "123456", FALSE, 0));
  ASSERT_TRUE(terminal->WaitFor("Does the device show 123456? [y/N] "));
  terminal->Type("y\n");
  ASSERT_TRUE(service.WaitForCalls(2));
  service.Emit("OnPairStatusChanged", g_variant_new("(yys)", 2, 0, kPhone));
  EXPECT_TRUE(terminal->WaitFor("paired 00:1A:7D:DA:71:13"));
  EXPECT_TRUE(terminal->WaitFor(kPrompt));
  EXPECT_THAT(service.TakeCallTexts(),
              testing::ElementsAre("Pair('00:1A:7D:DA:71:13', '')",
                                   "AnswerPair('123456', '00:1A:7D:DA:71:13', byte 0x00)"));
}

TEST_F(InTheShell, CtrlCAtTheQuestionOfAPairingRefusesIt) {
  Start();
  terminal->Type(std::string("pair ") + kPhone + "\n");
  ASSERT_TRUE(service.WaitForCalls(1));
  service.Emit("OnAnswerPairRequest", g_variant_new("(ssby)", kPhone, "123456", FALSE, 0));
  ASSERT_TRUE(terminal->WaitFor("[y/N] "));
  terminal->Type("\003");
  EXPECT_TRUE(terminal->WaitFor("interrupted")) << terminal->Screen();
  EXPECT_TRUE(terminal->WaitFor(kPrompt));
  EXPECT_THAT(service.TakeCallTexts(), testing::ElementsAre("Pair('00:1A:7D:DA:71:13', '')",
                                                            "RejectPair('00:1A:7D:DA:71:13', byte 0x00)"));
}

TEST_F(InTheShell, TheServiceIsSeenToGoAndComeBack) {
  Start();
  service.ReleaseName();
  ASSERT_TRUE(terminal->WaitFor("the service went away"));
  service.OwnName();
  ASSERT_TRUE(terminal->WaitFor("the service is there"));
  terminal->Type("call redial\n");
  EXPECT_TRUE(terminal->WaitFor("accepted"));
}

TEST_F(InTheShell, AHangingServiceDoesNotHoldItUp) {
  Start();
  service.Hang("RedialCall");
  terminal->Type("call redial --timeout 0.2\n");
  EXPECT_TRUE(terminal->WaitFor("did not answer in time"));
  EXPECT_TRUE(terminal->WaitFor(kPrompt));
  terminal->Type("call accept\n");
  EXPECT_TRUE(terminal->WaitFor("accepted"));
  terminal->Type("quit\n");
  EXPECT_EQ(terminal->Wait(), 0);
}

TEST_F(InTheShell, ADownloadShowsABar) {
  Start();
  terminal->Type("contacts download\n");
  ASSERT_TRUE(service.WaitForCalls(1));
  service.Emit("OnPbDownloadCountChanged", g_variant_new("(ii)", 10, 20));
  EXPECT_TRUE(terminal->WaitFor("[####################....................] 10/20"));
  service.Emit("OnPBDownloadStatus", g_variant_new("(yy)", 3, 6));
  EXPECT_TRUE(terminal->WaitFor("\ncompleted all"));
}

TEST_F(InTheShell, HeadingsAreBoldUnlessNobodyWantsThat) {
  setenv("NO_COLOR", "1", 1);
  Start();
  terminal->Type("music modes\n");
  ASSERT_TRUE(terminal->WaitFor("value"));
  ASSERT_TRUE(terminal->WaitFor(kPrompt));
  EXPECT_EQ(Count(terminal->Screen(), "\033[1m"), 0);
  terminal->Type("quit\n");
  terminal->Wait();

  unsetenv("NO_COLOR");
  Start();
  terminal->Type("music modes\n");
  EXPECT_TRUE(terminal->WaitFor("\033[1mmode"));
}

TEST(TheShell, EndsAtOnceWithoutABus) {
  MakeDummySegments();
  Terminal terminal(CommandLine({}));
  EXPECT_EQ(terminal.Wait(), 3);
  EXPECT_THAT(terminal.Screen(), testing::HasSubstr("DBUS_SESSION_BUS_ADDRESS"));
}

using TheShellWithoutAService = BtctlWithBus;

TEST_F(TheShellWithoutAService, WaitsForOne) {
  Terminal terminal(CommandLine({}));
  ASSERT_TRUE(terminal.WaitFor("the Bluetooth service is not running"));
  ASSERT_TRUE(terminal.WaitFor(kPrompt));
  Recorder service;
  ASSERT_TRUE(terminal.WaitFor("the service is there"));
  service.SetReply("RedialCall", g_variant_new("(b)", TRUE));
  terminal.Type("call redial\n");
  EXPECT_TRUE(terminal.WaitFor("accepted"));
}

struct FromAPipe : BtctlWithRecorder {};

TEST_F(FromAPipe, CommandsAreCarriedOutLineByLineUntilOneFails) {
  Accept("RedialCall");
  ChildProcess shell({"sh", "-c",
                      "printf 'call redial\\n\\n# a remark\\ncall accept\\ncall hangup\\n' | \"$0\"",
                      BTCTL_EXECUTABLE});
  EXPECT_EQ(shell.Wait(), 1);
  EXPECT_EQ(shell.Output(), "accepted\n");
  EXPECT_THAT(service.TakeCallTexts(),
              testing::ElementsAre("RedialCall()", "AcceptCall()", "GetPowerStatus()"))
      << "the last is asked because of the refusal";
}

TEST_F(FromAPipe, HelpIsThereAsInTheShell) {
  ChildProcess shell({"sh", "-c", "printf '?\\nhelp call\\nhelp quit\\nbtctl help call dial\\n' | \"$0\"",
                      BTCTL_EXECUTABLE});
  EXPECT_EQ(shell.Wait(), 0) << shell.Errors();
  EXPECT_THAT(shell.Output(), testing::HasSubstr("Exit codes:"));
  EXPECT_THAT(shell.Output(), testing::HasSubstr("Usage: call dial"));
}

TEST_F(FromAPipe, LinesMayEndAsInWindows) {
  Accept("RedialCall");
  ChildProcess shell(
      {"sh", "-c", "printf 'call redial\\r\\n\\r\\nquit\\r\\ncall accept\\r\\n' | \"$0\"", BTCTL_EXECUTABLE});
  EXPECT_EQ(shell.Wait(), 0) << shell.Errors();
  EXPECT_THAT(service.TakeCallTexts(), testing::ElementsAre("RedialCall()"));
}

}  // namespace
}  // namespace bttest
