// Every method of the facades, while the library is started and while it is not.

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "contract/AskedLibrary.h"
#include "contract/DerivedRequests.h"
#include "support/InterfaceDescription.h"

namespace bttest {
namespace {

/// The requests that a facade offers.
std::vector<RequestCase> FacadeRequests() {
  std::vector<RequestCase> requests = AllRequests();
  requests.erase(std::remove_if(requests.begin(), requests.end(),
                                [](const RequestCase& request) { return !request.calls.facade.make; }),
                 requests.end());
  return requests;
}

/// What the facades log of their own, without the line numbers that nobody relies on.
std::vector<LogRecord> FacadeLines(const LogCapture& log) {
  const std::set<std::string> sources{"libbluetooth/MWPBtCom",   "libbluetooth/MWPBtPhone",
                                      "libbluetooth/MWPBtMedia", "libbluetooth/MWPBtPbap",
                                      "libbluetooth/MWPBtSpp",   "libbluetooth/MWPBtMessage",
                                      "libbluetooth/MWPBtBle"};
  std::vector<LogRecord> lines;
  for (LogRecord record : log.Records()) {
    if (sources.count(record.file) != 0) {
      record.line = record.line == 26 ? 26 : 0;
      lines.push_back(record);
    }
  }
  return lines;
}

/// What a facade's method logs while the library is started.
std::vector<LogRecord> LinesWhileStarted(const std::string& method) {
  const std::string com = "libbluetooth/MWPBtCom";
  const std::map<std::string, std::vector<LogRecord>> lines{
      {"Connect",
       {{com, "Connect", 0, 40, "connect bt_profile = 1 ,bOnly = 2"},
        {com, "Connect", 0, 40, "MWPBtCom::Connect bt_profile = 1"}}},
      {"SetAndroidAutoStatus", {{com, "SetAndroidAutoStatus", 0, 20, "MWPBtCom::SetAndroidAutoStatus"}}},
      {"StopPhoneBookDownload",
       {{"libbluetooth/MWPBtPbap", "StopPhoneBookDownload", 26, 20,
         "MWPBtPbap::StopPhoneBookDownload m_bInitClient:1"}}},
  };
  const auto found = lines.find(method);
  return found != lines.end() ? found->second : std::vector<LogRecord>();
}

/// The first text that a request sends: "00:1A:..." of "Pair('00:1A:...', '0000')".
std::string FirstText(const std::string& wire) {
  const std::size_t begin = wire.find('\'') + 1;
  return wire.substr(begin, wire.find('\'', begin) - begin);
}

/// What a facade's method logs while the library is not started.
std::vector<LogRecord> LinesWhileNotStarted(const RequestCase& request) {
  const std::string com = "libbluetooth/MWPBtCom";
  const std::string& method = request.name;
  static const std::set<std::string> checkTheirAddress = [] {
    std::set<std::string> names;
    for (const CheckedMethod& checked : MethodsThatCheckTheirAddress()) {
      names.insert(checked.name);
    }
    return names;
  }();
  std::vector<LogRecord> lines;
  if (method == "Connect") {
    lines.push_back({com, "Connect", 0, 40, "connect bt_profile = 1 ,bOnly = 2"});
  }
  if (checkTheirAddress.count(method) != 0) {
    lines.push_back(
        {com, method, 0, 100, "No Active or address " + FirstText(request.wire) + " is invalid!"});
  }
  if (method == "StopPhoneBookDownload") {
    lines.push_back(
        {"libbluetooth/MWPBtPbap", method, 26, 20, "MWPBtPbap::StopPhoneBookDownload m_bInitClient:0"});
  }
  return lines;
}

using FacadeMethod = AskedLibrary;

/// A set without the elements of another.
std::set<std::string> Without(std::set<std::string> names, const std::set<std::string>& others) {
  for (const std::string& other : others) {
    names.erase(other);
  }
  return names;
}

TEST(FacadeMethods, AreAllAmongTheCases) {
  std::set<std::string> cases{"GetCapability", "SetPower"};  // tested by themselves
  for (const RequestCase& request : FacadeRequests()) {
    cases.insert(request.name);
    cases.insert(request.wire.substr(0, request.wire.find('(')));
  }
  std::set<std::string> offered;
  for (const std::string& method : OfferedMethods()) {
    offered.insert(method.substr(method.find("::") + 2));
  }
  EXPECT_EQ(Without(offered, cases), std::set<std::string>()) << "no case tests these";
}

TEST(FacadeMethods, AreThereForEachMethodOfTheInterfaceButThese) {
  std::set<std::string> methods;
  for (const MethodDescription& method : BluetoothInterface().methods) {
    methods.insert(method.name);
  }
  // These are reached in another way, or not at all. No new request should be among them.
  const std::set<std::string> withoutFacade{"GetCallLogById",
                                            "GetContactByIndex",
                                            "GetCurCallCount",
                                            "GetCurConnectDevInfo",
                                            "GetPairDeviceInfoByAddress",
                                            "GetPairListIndexByAddress",
                                            "PlayRingtone",
                                            "StopRingtone"};
  EXPECT_EQ(Without(methods, OfferedUnderTheirName()), withoutFacade)
      << "a method of the interface that no header in include/bluetooth offers";
}

TEST_F(FacadeMethod, ArrivesAtTheServiceAndBringsItsAnswerBackWhileStarted) {
  for (const RequestCase& request : FacadeRequests()) {
    log.Clear();
    ExpectAsked(request, request.calls.facade);
    EXPECT_EQ(FacadeLines(log), LinesWhileStarted(request.name)) << request.name;
  }
  EXPECT_TRUE(log.Complaints().empty());
}

TEST_F(FacadeMethod, IsAnsweredWithItsDefaultAndMakesNeitherACallNorAClientAfterStop) {
  Stop();
  for (const RequestCase& request : FacadeRequests()) {
    log.Clear();
    ExpectNotAsked(request, request.calls.facade, request.calls.facade.idleAnswer);
    EXPECT_EQ(TheClient(), nullptr) << request.name;
    EXPECT_EQ(FacadeLines(log), LinesWhileNotStarted(request)) << request.name;
    EXPECT_EQ(log.Records().size(), LinesWhileNotStarted(request).size()) << request.name;
  }
}

TEST_F(FacadeMethod, MakesTheClientWhenItIsNeededAndThereIsNone) {
  for (const RequestCase& request : FacadeRequests()) {
    Stop();
    MWPBtClient::m_bInitClient = 1;
    request.calls.facade.make();
    EXPECT_NE(TheClient(), nullptr) << request.name;
    MWPBtClient::m_bInitClient = 0;
  }
}

TEST(FacadeMethodBeforeStart, IsAnsweredWithItsDefaultAndMakesNoClient) {
  LogCapture log;
  for (const RequestCase& request : FacadeRequests()) {
    log.Clear();
    EXPECT_EQ(request.calls.facade.make(), request.calls.facade.idleAnswer) << request.name;
    EXPECT_EQ(TheClient(), nullptr) << request.name;
    EXPECT_EQ(FacadeLines(log), LinesWhileNotStarted(request)) << request.name;
    EXPECT_EQ(log.Records().size(), LinesWhileNotStarted(request).size()) << request.name;
  }
}

}  // namespace
}  // namespace bttest
