// A request that the service takes on is followed to its outcome.

#include <gmock/gmock.h>

#include "tools/Btctl.h"

namespace bttest {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr int kHfp = 1;
constexpr int kA2dp = 2;
constexpr int kConnecting = 1;
constexpr int kConnected = 2;
constexpr int kFailed = 4;

struct Outcomes : BtctlWithRecorder {
  Outcomes() { AcceptAll(); }

  void EmitConnection(const char* address, int profile, int status) {
    service.Emit("OnConnectStatusChanged", g_variant_new("(syy)", address, profile, status));
  }
  void EmitPairing(int status, int reason = 0) {
    service.Emit("OnPairStatusChanged", g_variant_new("(yys)", status, reason, kPhone));
  }
  void EmitQuestion(int state, const char* digits) {
    service.Emit("OnAnswerPairRequest", g_variant_new("(ssby)", kPhone, digits, FALSE, state));
  }
};

TEST_F(Outcomes, OfAConnectionIsTheProfileConnected) {
  ChildProcess connect(CommandLine({"connect", kPhone, "--profile", "hfp", "--json"}));
  ASSERT_TRUE(service.WaitForCalls(1));
  EmitConnection(kPhone, kHfp, kConnecting);
  EmitConnection("00:00:00:00:00:00", kHfp, kConnected);
  EmitConnection(kPhone, kA2dp, kFailed);
  EmitConnection(kPhone, kHfp, kConnected);
  const Ran ran = Ended(connect);
  EXPECT_EQ(ran.code, 0) << ran.errors;
  EXPECT_EQ(ran.Object()["accepted"], true);
  EXPECT_EQ(ran.Object()["outcome"]["values"].dump(),
            R"({"address":"00:1A:7D:DA:71:13","profile":"hfp","status":"connected"})");
}

TEST_F(Outcomes, OfAPairOfProfilesNeedsBoth) {
  ChildProcess connect(CommandLine({"connect", kPhone}));
  ASSERT_TRUE(service.WaitForCalls(1));
  EmitConnection(kPhone, kHfp, kConnecting);
  EmitConnection(kPhone, kA2dp, kConnecting);
  EmitConnection(kPhone, kHfp, kConnected);
  EmitConnection(kPhone, kA2dp, kFailed);
  const Ran ran = Ended(connect);
  EXPECT_EQ(ran.code, 1);
  EXPECT_THAT(ran.errors,
              HasSubstr("it failed: OnConnectStatusChanged  address=00:1A:7D:DA:71:13  profile=a2dp"));
}

TEST_F(Outcomes, OfAPairOfProfilesWaitsForTheSecondWhoseTurnComesLater) {
  ChildProcess connect(CommandLine({"connect", kPhone}));
  ASSERT_TRUE(service.WaitForCalls(1));
  EmitConnection(kPhone, kHfp, kConnected);
  EmitConnection(kPhone, kA2dp, kConnecting);
  EmitConnection(kPhone, kA2dp, kConnected);
  const Ran ran = Ended(connect);
  EXPECT_EQ(ran.code, 0);
  EXPECT_EQ(ran.output, "00:1A:7D:DA:71:13 a2dp connected\n00:1A:7D:DA:71:13 hfp connected\n");
}

TEST_F(Outcomes, OfAPairOfProfilesIsThatOfOneIfTheDeviceHasNoOther) {
  ChildProcess connect(CommandLine({"connect", kPhone}));
  ASSERT_TRUE(service.WaitForCalls(1));
  EmitConnection(kPhone, kHfp, kConnected);
  const Ran ran = Ended(connect);
  EXPECT_EQ(ran.code, 0);
  EXPECT_EQ(ran.output, "00:1A:7D:DA:71:13 hfp connected\n");
}

TEST_F(Outcomes, ThatTellsOnlyThatItWorkedIsShownAsDone) {
  ChildProcess root(CommandLine({"browse", "root"}));
  ASSERT_TRUE(service.WaitForCalls(1));
  service.Emit("OnCurBrowserPathChanged", g_variant_new("(b)", TRUE));
  EXPECT_EQ(Ended(root).output, "done\n");
}

TEST_F(Outcomes, ThatComesBeforeTheAnswerCounts) {
  service.Delay("Connect", std::chrono::milliseconds(300));
  ChildProcess connect(CommandLine({"connect", kPhone, "--profile", "hfp"}));
  ASSERT_TRUE(service.WaitForCalls(1));
  EmitConnection(kPhone, kHfp, kConnected);
  const Ran ran = Ended(connect);
  EXPECT_EQ(ran.code, 0);
  EXPECT_EQ(ran.output, "00:1A:7D:DA:71:13 hfp connected\n");
}

TEST_F(Outcomes, OfPowerOnIsThatItIsOn) {
  service.SetReply("GetPowerStatus", g_variant_new("(y)", 0));
  ChildProcess power(CommandLine({"power", "on"}));
  ASSERT_TRUE(service.WaitForCalls(2));
  service.Emit("OnOpenBtStatusChanged", g_variant_new("(y)", 3));
  service.Emit("OnOpenBtStatusChanged", g_variant_new("(y)", 1));
  const Ran ran = Ended(power);
  EXPECT_EQ(ran.code, 0);
  EXPECT_EQ(ran.output, "on\n");
}

TEST_F(Outcomes, OfPowerOnIsThereIfItIsOnAlready) {
  const Ran ran = RunBtctl({"power", "on"});
  EXPECT_EQ(ran.code, 0);
  EXPECT_EQ(ran.output, "on\n");
}

TEST_F(Outcomes, OfASwitchIsItsNewValue) {
  ChildProcess set(CommandLine({"capability", "set", "auto-answer", "on"}));
  ASSERT_TRUE(service.WaitForCalls(1));
  service.Emit("OnBtCapabilityChanged", g_variant_new("(yy)", 1, 1));
  service.Emit("OnBtCapabilityChanged", g_variant_new("(yy)", 2, 1));
  EXPECT_EQ(set.Wait(), 0);
}

TEST_F(Outcomes, OfADownloadIsThatItIsComplete) {
  ChildProcess download(CommandLine({"contacts", "download"}));
  ASSERT_TRUE(service.WaitForCalls(1));
  service.Emit("OnPBDownloadStatus", g_variant_new("(yy)", 2, 0));
  service.Emit("OnPbDownloadCountChanged", g_variant_new("(ii)", 10, 20));
  service.Emit("OnPBDownloadStatus", g_variant_new("(yy)", 3, 0));  // the phone book; the logs are to come
  service.Emit("OnPBDownloadStatus", g_variant_new("(yy)", 3, 6));
  const Ran ran = Ended(download);
  EXPECT_EQ(ran.code, 0);
  EXPECT_EQ(ran.output, "completed all\n");
  EXPECT_EQ(ran.errors, "") << "a bar is for terminals";
}

TEST_F(Outcomes, OfADownloadThatThePhoneRefusesIsAFailure) {
  ChildProcess download(CommandLine({"contacts", "download"}));
  ASSERT_TRUE(service.WaitForCalls(1));
  service.Emit("OnPBDownloadStatus", g_variant_new("(yy)", 6, 6));
  const Ran ran = Ended(download);
  EXPECT_EQ(ran.code, 1);
  EXPECT_THAT(ran.errors, HasSubstr("status=refused"));
}

TEST_F(Outcomes, OfAPairingComesAfterTheAnswerToTheQuestion) {
  ChildProcess pair(CommandLine({"pair", kPhone, "--yes"}));
  ASSERT_TRUE(service.WaitForCalls(1));
  EmitPairing(1);
  EmitQuestion(0, "123456");
  ASSERT_TRUE(service.WaitForCalls(2));
  EmitPairing(2);
  EXPECT_EQ(pair.Wait(), 0) << pair.Errors();
  EXPECT_THAT(service.TakeCallTexts(), ElementsAre("Pair('00:1A:7D:DA:71:13', '')",
                                                   "AnswerPair('123456', '00:1A:7D:DA:71:13', byte 0x00)"));
}

TEST_F(Outcomes, OfAPairingWithAPinUsesIt) {
  ChildProcess pair(CommandLine({"pair", kPhone, "--pin", "0815"}));
  ASSERT_TRUE(service.WaitForCalls(1));
  EmitQuestion(3, "");
  ASSERT_TRUE(service.WaitForCalls(2));
  EmitPairing(3, 1);
  const Ran ran = Ended(pair);
  EXPECT_EQ(ran.code, 1);
  EXPECT_THAT(ran.errors, HasSubstr("reason=authentication"));
  EXPECT_THAT(service.TakeCallTexts(), ElementsAre("Pair('00:1A:7D:DA:71:13', '0815')",
                                                   "AnswerPair('0815', '00:1A:7D:DA:71:13', byte 0x03)"));
}

TEST_F(Outcomes, OfAPairingIsLeftToOthersIfNobodyCanBeAsked) {
  ChildProcess pair(CommandLine({"pair", kPhone}));
  ASSERT_TRUE(service.WaitForCalls(1));
  EmitQuestion(0, "654321");
  ASSERT_TRUE(WaitUntil([&] { return pair.Errors().find("654321") != std::string::npos; }));
  EmitPairing(2);
  EXPECT_EQ(pair.Wait(), 0);
  EXPECT_THAT(service.TakeCallTexts(), ElementsAre("Pair('00:1A:7D:DA:71:13', '')"));
}

}  // namespace
}  // namespace bttest
