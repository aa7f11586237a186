// btctl and the simulated service: from switching on to a call and the phone book, and all of it broken.

#include <csignal>
#include <map>

#include <gmock/gmock.h>

#include "tools/Simulation.h"
#include "tools/Terminal.h"

namespace bttest {
namespace {

using testing::HasSubstr;

TEST_F(WithSimulation, SwitchesPairsAndConnects) {
  Start("two-phones");
  EXPECT_EQ(Output({"power", "on"}), "on\n");
  EXPECT_EQ(Output({"power", "status"}), "on\n");
  EXPECT_THAT(Output({"scan", "--seconds", "0.5"}), HasSubstr("status=scanning"));
  EXPECT_THAT(Output({"connect", kPhone, "--profile", "hfp"}), HasSubstr("connected"));
  EXPECT_THAT(Output({"devices", "list"}), HasSubstr(kPhone));
  EXPECT_EQ(Output({"disconnect", kPhone, "--profile", "hfp"}), std::string(kPhone) + " hfp disconnected\n");
  EXPECT_EQ(Output({"power", "off"}), "off\n");
}

TEST_F(WithSimulation, ListsDevicesThatArePairedConnectedOrFound) {
  Start(Quiet("two-phones"));
  Output({"capability", "set", "auto-connect", "off"});
  Output({"power", "off"});
  Output({"power", "on"});
  Output({"connect", kPhone, "--profile", "hfp"});
  const auto known = [&](const Words& words) {
    std::map<std::string, Json> devices;
    for (Json& device : RunBtctl(words).Objects()) {
      std::string address = device["address"];
      devices[std::move(address)] = std::move(device);
    }
    return devices;
  };
  auto devices = known({"devices", "list", "--json"});
  ASSERT_EQ(devices.size(), 2U);
  EXPECT_EQ(devices[kPhone]["name"], "Ada's phone");
  EXPECT_TRUE(devices[kPhone]["paired"] && devices[kPhone]["connected"] && !devices[kPhone]["found"]);
  EXPECT_THAT(devices[kPhone]["profiles"].dump(), HasSubstr("\"hfp\""));
  const std::string other = "00:1A:7D:DA:71:14";
  EXPECT_TRUE(devices[other]["paired"] && !devices[other]["connected"]);

  Output({"devices", "delete", other});
  EXPECT_EQ(known({"devices", "list", "--json"}).count(other), 0U);
  ASSERT_TRUE(WaitUntil([&] {
    devices = known({"devices", "list", "--scan", "0.5", "--json"});
    return devices.count(other) == 1;
  }));
  EXPECT_TRUE(devices[other]["found"] && !devices[other]["paired"]);
  EXPECT_TRUE(devices[kPhone]["connected"]);
  EXPECT_EQ(RunBtctl({"scan", "stop"}).code, 1) << "the search has ended with the command";
  Output({"power", "off"});
  EXPECT_EQ(RunBtctl({"devices", "list", "--scan", "1", "--json"}).Error()["cause"], "adapter-off");
}

TEST_F(WithSimulation, DownloadsAndShowsThePhoneBookAndDialsAContactByName) {
  StartWithPhone();
  const auto contacts = RunBtctl({"contacts", "list", "--json"}).Objects();
  ASSERT_FALSE(contacts.empty());
  EXPECT_EQ(Output({"contacts", "count"}), std::to_string(contacts.size()) + "\n");
  const std::string name = contacts.front()["name"];
  const std::string number = contacts.front()["numbers"][0]["numbers"][0];

  EXPECT_EQ(Output({"call", "dial", name}), "accepted\n");
  ASSERT_TRUE(WaitUntil([&] { return !RunBtctl({"call", "list", "--json"}).Objects().empty(); }));
  EXPECT_EQ(RunBtctl({"call", "list", "--json"}).Objects().front()["number"], number);
  EXPECT_EQ(Output({"call", "hangup"}), "accepted\n");

  EXPECT_EQ(Output({"contacts", "favorite", name}), "done\n");
  EXPECT_THAT(Output({"contacts", "favorites"}), HasSubstr(name));
  const Ran unknown = RunBtctl({"call", "dial", name.substr(0, 2)});
  EXPECT_EQ(unknown.code, 8);
  EXPECT_THAT(unknown.errors, HasSubstr(name));
}

TEST_F(WithSimulation, ShowsTheCallLogs) {
  StartWithPhone();
  const auto missed = RunBtctl({"log", "missed", "--json"}).Objects();
  ASSERT_EQ(missed.size(), 1U);
  EXPECT_EQ(missed.front()["kind"], "call-log");
  EXPECT_EQ(missed.front()["type"], "missed");
  EXPECT_EQ(missed.front()["number"], "+49301234567");
}

TEST_F(WithSimulation, IsDrivenByItsControls) {
  StartWithPhone();
  for (const Json& control : RunBtctl({"sim", "--json"}).Objects()) {
    EXPECT_NE(control["help"], "") << control["control"] << " has no help";
  }
  EXPECT_THAT(Output({"sim", "list-devices"}), HasSubstr("Ada's phone  yes      yes     yes"));
  ChildProcess wait(CommandLine({"wait", "OnCallStatusChanged", "--match", "status=incoming"}));
  ASSERT_TRUE(WaitUntil([&] { return wait.Errors().find("waiting") != std::string::npos; }));
  EXPECT_EQ(Output({"sim", "call", kPhone, "+49170999"}), "done\n");
  EXPECT_EQ(wait.Wait(), 0);
  EXPECT_EQ(Output({"call", "accept"}), "accepted\n");

  EXPECT_EQ(RunBtctl({"sim", "call", "00:00:00:00:00:00", "1"}).code, 1);
  EXPECT_EQ(RunBtctl({"sim", "call"}).code, 2);
  EXPECT_EQ(Output({"sim", "replace-answers", "GetPowerStatus", "1", "[<byte 77>]"}), "done\n");
  EXPECT_EQ(Output({"power", "status"}), "77\n");
  EXPECT_EQ(RunBtctl({"sim", "fly"}).code, 8);
  EXPECT_EQ(RunBtctl({"sim", "set-battery", kPhone, "full"}).code, 2);
}

TEST_F(WithSimulation, IsTakenByItsWordWhenItBreaks) {
  StartWithPhone();
  Output({"sim", "fail-answers", "RedialCall", "1", "com.zelk.Error.Busy", "the line is busy"});
  const Ran failed = RunBtctl({"call", "redial"});
  EXPECT_EQ(failed.code, 1);
  EXPECT_THAT(failed.errors, HasSubstr("the line is busy"));

  Output({"sim", "drop-answers", "GetContactCount", "1"});
  EXPECT_EQ(RunBtctl({"contacts", "count", "--timeout", "0.3"}).code, 6);

  Output({"sim", "die", "3"});
  EXPECT_EQ(RunBtctl({"power", "status"}).code, 4);
}

TEST_F(WithSimulation, TheShellCompletesAContactThatCameWhileItWaitedForALine) {
  Start(Quiet("one-phone"));
  Output({"power", "off"});
  Terminal terminal(CommandLine({}));
  ASSERT_TRUE(terminal.WaitFor("btctl> "));
  Output({"power", "on"});
  ASSERT_TRUE(WaitUntil([&] {
    return RunBtctl({"connect", kPhone}).code == 0;
  }));  // the phone book comes with it
  ASSERT_TRUE(WaitUntil([&] {
    terminal.Type("\025call dial ad\t");  // Ctrl-U begins anew
    return terminal.WaitFor("Ada Arndt", std::chrono::milliseconds(200));
  })) << terminal.Screen();
}

TEST_F(WithSimulation, TheShellCompletesAContact) {
  StartWithPhone();
  const std::string name = RunBtctl({"contacts", "list", "--json"}).Objects().front()["name"];
  Terminal terminal(CommandLine({}));
  ASSERT_TRUE(terminal.WaitFor("btctl> "));
  terminal.Type("call dial " + name.substr(0, name.find(' ')) + "\t\n");
  EXPECT_TRUE(terminal.WaitFor("\"" + name + "\"")) << terminal.Screen();
  EXPECT_TRUE(terminal.WaitFor("dialing")) << terminal.Screen();
}

}  // namespace
}  // namespace bttest
