// The list of devices: paired, connected, found.

#include <algorithm>
#include <csignal>

#include <gmock/gmock.h>

#include <bluetooth/MWPBtType.h>

#include "support/SegmentItems.h"
#include "tools/Simulation.h"

namespace bttest {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr char kOtherPhone[] = "00:1A:7D:DA:71:14";
constexpr int kHandsFree = MWPBtType::BT_PROFILE_HFP;
constexpr int kMusic = MWPBtType::BT_PROFILE_A2DP;
constexpr int kIsConnected = MWPBtType::BT_CONN_CONNECTED;
constexpr int kIsDisconnected = MWPBtType::BT_CONN_DISCONNECTED;

std::string ObjectFor(const std::string& address, const std::string& rest) {
  return R"({"kind":"device","address":")" + address + R"(",)" + rest + "}";
}

/// The objects of a list, as texts.
Words TextsOf(const Ran& ran) {
  EXPECT_EQ(ran.code, 0) << ran.errors;
  Words texts;
  for (const Json& object : ran.Objects()) {
    texts.push_back(object.dump());
  }
  return texts;
}

/// A service that has two devices in its memory.
struct DeviceList : BtctlWithRecorder {
  DeviceList() {
    CreateSegment(SH_PAIRED_LIST, kSegmentCatalogue[SH_PAIRED_LIST].size);
    SegmentItems items;
    items.Int(2);
    items.Int(kHandsFree).Int(kHandsFree).Int(kIsConnected).Int(0).Text(kOtherPhone).Text("Ben's phone");
    items.Int(kHandsFree).Int(kHandsFree).Int(kIsDisconnected).Int(0).Text(kPhone).Text("Ada's phone");
    items.Publish(SH_PAIRED_LIST);
  }
  void EmitConnection(const char* address, int profile, int status) {
    service.Emit("OnConnectStatusChanged", g_variant_new("(syy)", address, profile, status));
  }
  void EmitScan(bool isRunning) {
    service.Emit("OnScanStatusChanged", g_variant_new("(y)", isRunning ? 1 : 0));
  }
  void EmitFound(const char* address, const char* name) {
    service.Emit("OnScanedDeviceChanged", g_variant_new("(ssy)", address, name, 0));
  }
};

TEST_F(DeviceList, HasThePairedOnesInTheirOrderWithTheProfilesThatAreReported) {
  service.Hang("GetBluetoothServiceStatus");
  ChildProcess list(CommandLine({"devices", "list", "--json"}));
  ASSERT_TRUE(service.WaitForCalls(1));
  EmitConnection(kPhone, kHandsFree, kIsConnected);
  EmitConnection(kPhone, kMusic, kIsConnected);
  EmitConnection(kOtherPhone, kMusic, kIsConnected);
  EmitConnection(kOtherPhone, kMusic, kIsDisconnected);
  EmitConnection("00:00:00:00:00:01", kHandsFree, kIsDisconnected);
  service.Release("GetBluetoothServiceStatus");
  EXPECT_THAT(
      TextsOf(Ended(list)),
      ElementsAre(
          ObjectFor(kOtherPhone,
                    R"("name":"Ben's phone","paired":true,"found":false,"connected":false,"profiles":[])"),
          ObjectFor(
              kPhone,
              R"("name":"Ada's phone","paired":true,"found":false,"connected":true,"profiles":["hfp","a2dp"])")));
}

TEST_F(DeviceList, IsATableForPeople) {
  const Ran ran = RunBtctl({"devices", "list"});
  EXPECT_EQ(ran.errors, "");
  EXPECT_EQ(ran.output,
            "address            name         paired  found  connected  profiles\n"
            "00:1A:7D:DA:71:14  Ben's phone  yes     no     no         \n"
            "00:1A:7D:DA:71:13  Ada's phone  yes     no     no         \n");
}

TEST_F(DeviceList, HasWhatASearchFindsEachDeviceOnce) {
  Accept("SetScanAction");
  ChildProcess list(CommandLine({"devices", "list", "--scan", "600", "--json"}));
  ASSERT_TRUE(WaitUntil([&] {
    const Words calls = service.TakeCallTexts();
    return std::find(calls.begin(), calls.end(), "SetScanAction(true,)") != calls.end();
  }));
  EmitScan(true);
  EmitFound("00:00:00:00:00:01", "");
  EmitFound(kPhone, "Ada's phone");
  EmitFound("00:00:00:00:00:01", "Accessory");
  EmitScan(false);
  EXPECT_THAT(
      TextsOf(Ended(list)),
      ElementsAre(
          ObjectFor(kOtherPhone,
                    R"("name":"Ben's phone","paired":true,"found":false,"connected":false,"profiles":[])"),
          ObjectFor(kPhone,
                    R"("name":"Ada's phone","paired":true,"found":true,"connected":false,"profiles":[])"),
          ObjectFor("00:00:00:00:00:01",
                    R"("name":"Accessory","paired":false,"found":true,"connected":false,"profiles":[])")));
}

TEST_F(DeviceList, ShowsTheNamesThatStrangersHaveChosenSafely) {
  for (const bool isJson : {false, true}) {
    Accept("SetScanAction");
    ChildProcess list(CommandLine({"devices", "list", "--scan", "600", isJson ? "--json" : "--verbose"}));
    ASSERT_TRUE(WaitUntil([&] {
      const Words calls = service.TakeCallTexts();
      return std::find(calls.begin(), calls.end(), "SetScanAction(true,)") != calls.end();
    }));
    EmitScan(true);
    EmitFound("00:00:00:00:00:01", "\033]0;title\007planted\u009B2J\u202E");
    EmitScan(false);
    const std::string output = Ended(list).output;
    EXPECT_THAT(output, HasSubstr(isJson ? R"(\u001b]0;title\u0007planted\u009b2J\u202e)"
                                         : "\uFFFD]0;title\uFFFDplanted\uFFFD2J\uFFFD"));
  }
}

TEST_F(DeviceList, ListensToASearchOfSomebodyElseAndLetsItRun) {
  service.Hang("GetBluetoothServiceStatus");
  ChildProcess list(CommandLine({"devices", "list", "--scan", "600", "--json"}));
  ASSERT_TRUE(service.WaitForCalls(1));
  EmitScan(true);
  service.Release("GetBluetoothServiceStatus");
  ASSERT_TRUE(WaitForErrors(list, "listening to a search that somebody else has begun"));
  EmitFound("00:00:00:00:00:01", "Accessory");
  EmitScan(false);
  EXPECT_THAT(TextsOf(Ended(list)), Contains(HasSubstr(R"("name":"Accessory","paired":false,"found":true)")));
  EXPECT_THAT(service.TakeCallTexts(),
              ElementsAre("GetBluetoothServiceStatus()", "GetPowerStatus()", "GetPowerStatus()"))
      << "no search is begun or ended";
}

TEST_F(DeviceList, EndsItsSearchWhenTheUserInterrupts) {
  Accept("SetScanAction");
  ChildProcess list(CommandLine({"devices", "list", "--scan", "600"}));
  Words calls;
  const auto isCalled = [&](const char* call) {
    for (const std::string& text : service.TakeCallTexts()) {
      calls.push_back(text);
    }
    return std::find(calls.begin(), calls.end(), call) != calls.end();
  };
  ASSERT_TRUE(WaitUntil([&] { return isCalled("SetScanAction(true,)"); }));
  list.Signal(SIGINT);
  EXPECT_EQ(list.Wait(), 130);
  EXPECT_EQ(list.Output(), "");
  EXPECT_TRUE(isCalled("SetScanAction(false,)"));
}

TEST_F(DeviceList, OfACorruptMemoryIsAFailure) {
  SegmentItems().Int(-1).Publish(SH_PAIRED_LIST);
  const Ran ran = RunBtctl({"devices", "list"});
  EXPECT_EQ(ran.code, 1);
  EXPECT_EQ(ran.output, "");
  EXPECT_THAT(ran.errors, HasSubstr("the request failed: SH_PAIRED_LIST, the count, at byte 0"));
}

TEST_F(DeviceList, OfAServiceThatHangsIsGivenUp) {
  service.Hang("GetBluetoothServiceStatus");
  EXPECT_EQ(RunBtctl({"devices", "list", "--timeout", "0.3"}).code, 6);
}

TEST_F(DeviceList, OfAServiceThatDiesIsAFailure) {
  service.DieOn("GetBluetoothServiceStatus");
  const Ran ran = RunBtctl({"devices", "list"});
  EXPECT_EQ(ran.code, 5);
  EXPECT_THAT(ran.errors, HasSubstr("the Bluetooth service went away"));
}

TEST_F(DeviceList, IsNotThereWithoutAService) {
  service.ReleaseName();
  EXPECT_EQ(RunBtctl({"devices", "list"}).code, 4);
}

}  // namespace
}  // namespace bttest
