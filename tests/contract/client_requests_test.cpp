// Every request of the client, while the service is ready and while it is not.

#include <algorithm>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "contract/AskedLibrary.h"
#include "contract/Witness.h"
#include "glib/OwnedBus.h"
#include "support/InterfaceDescription.h"

namespace bttest {
namespace {

constexpr const char* kSource = "libbluetooth/MWPBtClient";

/// The requests that the client itself offers.
std::vector<RequestCase> ClientRequests() {
  std::vector<RequestCase> requests = AllRequests();
  requests.erase(std::remove_if(requests.begin(), requests.end(),
                                [](const RequestCase& request) { return !request.calls.client.make; }),
                 requests.end());
  return requests;
}

/// The line that a request logs first; none for most.
std::vector<LogRecord> FirstLine(const std::string& request) {
  struct Line {
    long number;
    int level;
    std::string text;
  };
  const auto info = [&](long number) { return Line{number, 40, request + "()"}; };
  const std::map<std::string, Line> lines{
      {"GetBluetoothServiceStatus", info(82)},
      {"EnableProfile", info(90)},
      {"DisableProfile", info(98)},
      {"SetCapability", {117, 20, "MWPBtClient::SetCapability eBtCapability:10 bEnable:255"}},
      {"GetAttribute", info(128)},
      {"Pair", info(157)},
      {"AnswerPair", info(165)},
      {"RejectPair", info(171)},
      {"SetScanAction", info(177)},
      {"ClearScanedDeviceList", info(302)},
      {"PlayMusic", {456, 20, "MWPBtClient::PlayMusic"}},
      {"StopMusic", {478, 20, "MWPBtClient::StopMusic"}},
      {"PlayItem", info(623)},
      {"AddMediaItemToNowPlaying", info(629)},
      {"GetMediaItemList", info(636)},
      {"StopPhoneBookDownload", info(655)},
      {"GetFavContactList", info(667)},
      {"SetContactFavorite", info(716)},
      {"SppSendBuffer", {800, 20, "MWPBtClient::SppSendBuffer length:3"}},
  };
  const auto line = lines.find(request);
  if (line == lines.end()) {
    return {};
  }
  return {{kSource, request, line->second.number, line->second.level, line->second.text}};
}

using ClientRequest = AskedLibrary;

TEST(ClientRequestCases, ReachEveryMethodThatTheClientCalls) {
  std::set<std::string> expected;
  for (const MethodDescription& method : BluetoothInterface().methods) {
    expected.insert(method.name);
  }
  for (const std::string& notCalled : TheWitness().uncalled) {
    expected.erase(notCalled);
  }
  // The client has the previews instead, under these names.
  expected.erase("PlayRingtone");
  expected.erase("StopRingtone");
  std::set<std::string> reached;
  for (const RequestCase& request : ClientRequests()) {
    reached.insert(request.wire.substr(0, request.wire.find('(')));
  }
  reached.erase("");
  EXPECT_EQ(reached, expected);
}

TEST_F(ClientRequest, ArrivesAtTheServiceAndBringsItsAnswerBackWhileReady) {
  for (const RequestCase& request : ClientRequests()) {
    ExpectAsked(request, request.calls.client);
  }
}

TEST_F(ClientRequest, IsAnsweredWithADefaultAndNotMadeWhileNotReady) {
  Stop();
  for (const RequestCase& request : ClientRequests()) {
    if (request.guarded == Guarded::YES) {
      ExpectNotAsked(request, request.calls.client, request.calls.client.idleAnswer);
    }
  }
}

TEST_F(ClientRequest, ThatIsNotGuardedDoesTheSameWhileNotReady) {
  Stop();
  for (const RequestCase& request : ClientRequests()) {
    if (request.guarded == Guarded::NO) {
      ExpectAsked(request, request.calls.client);
    }
  }
}

TEST_F(ClientRequest, IsGuardedByTheReadyFlagAlone) {
  for (const int initialised : {0, 1}) {
    MWPBtClient::m_bInitClient = initialised;
    MWPBtClient::m_bServiceReady = 0;
    TheClient()->AcceptCall();
    EXPECT_TRUE(library.recorder.TakeCalls().empty());
    MWPBtClient::m_bServiceReady = 1;
    TheClient()->AcceptCall();
    EXPECT_EQ(library.recorder.TakeCalls().size(), 1u);
  }
}

TEST_F(ClientRequest, ThatLogsFirstDoesSoWhileReady) {
  for (const RequestCase& request : ClientRequests()) {
    log.Clear();
    ExpectAsked(request, request.calls.client);
    EXPECT_EQ(LinesOf(kSource), FirstLine(request.name));
    EXPECT_TRUE(log.OfLevel(100).empty()) << request.name;
  }
  EXPECT_TRUE(log.Complaints().empty());
}

TEST_F(ClientRequest, LogsThatLineAndNothingElseWhileNotReady) {
  Stop();
  TheClient() = new MWPBtClient;
  for (const RequestCase& request : ClientRequests()) {
    log.Clear();
    request.calls.client.make();
    const std::vector<LogRecord> first = FirstLine(request.name);
    EXPECT_EQ(log.Records(), first) << request.name;
  }
  EXPECT_TRUE(log.Complaints().empty());
}

/// Keeps what was logged when the last call left this process.
class LogAtDeparture {
 public:
  explicit LogAtDeparture(const LogCapture& log)
      : m_log(log),
        m_filter(Connection(), g_dbus_connection_add_filter(Connection(), Watch, this, nullptr)) {}
  LogAtDeparture(const LogAtDeparture&) = delete;
  LogAtDeparture& operator=(const LogAtDeparture&) = delete;

  /// Empty if there was no call since the last time.
  std::vector<LogRecord> Take() {
    const std::lock_guard<std::mutex> lock(m_mutex);
    return std::exchange(m_records, {});
  }

 private:
  /// Runs on GLib's own thread, but before the call is answered.
  static GDBusMessage* Watch(GDBusConnection*, GDBusMessage* message, gboolean isIncoming, gpointer self) {
    if (isIncoming == FALSE && g_dbus_message_get_message_type(message) == G_DBUS_MESSAGE_TYPE_METHOD_CALL) {
      auto& watch = *static_cast<LogAtDeparture*>(self);
      const std::lock_guard<std::mutex> lock(watch.m_mutex);
      watch.m_records = watch.m_log.Records();
    }
    return message;
  }

  static GDBusConnection* Connection() { return g_dbus_proxy_get_connection(G_DBUS_PROXY(g_BtProxy)); }

  const LogCapture& m_log;
  std::mutex m_mutex;
  std::vector<LogRecord> m_records;
  OwnedFilter m_filter;
};

TEST_F(ClientRequest, ThatLogsFirstDoesSoBeforeItCallsTheService) {
  LogAtDeparture departure(log);
  for (const RequestCase& request : ClientRequests()) {
    const std::vector<LogRecord> first = FirstLine(request.name);
    if (first.empty() || request.wire.empty()) {
      continue;
    }
    log.Clear();
    request.calls.client.make();
    const std::vector<LogRecord> records = departure.Take();
    ASSERT_FALSE(records.empty()) << request.name;
    EXPECT_EQ(records.front(), first.front());
  }
}

TEST_F(ClientRequest, SppSendBufferAnswersOneWhenTheCallFails) {
  char byte = 'x';
  library.recorder.FailNext("SppSendBuffer");
  EXPECT_EQ(TheClient()->SppSendBuffer("a", &byte, 1), 1);
  EXPECT_EQ(log.OfLevel(100).size(), 1u);
}

TEST_F(ClientRequest, GetPairDeviceAnswersTheDefaultRecordForADeviceThatIsPaired) {
  const std::string address = "00:1A:7D:DA:71:13";
  SetReply("GetPairDeviceInfoByAddress", "('name', '" + address + "', 1, 1, 2, 0)");
  ASSERT_EQ(TheClient()->GetPairDeviceInfoByAddress(address).strAddr, address);
  library.recorder.TakeCalls();
  EXPECT_EQ(ValueText::Of(TheClient()->GetPairDevice(address)), IdleAnswer<MWPTypeDevice>());
  EXPECT_TRUE(library.recorder.TakeCalls().empty());
}

TEST(ClientRequestBeforeCreate, IsAnsweredWithADefault) {
  LogCapture log;
  MWPSingleton<MWPBtClient>::GetInstance();
  ASSERT_EQ(g_BtProxy, nullptr);
  log.Clear();
  for (const RequestCase& request : ClientRequests()) {
    if (request.guarded == Guarded::YES) {
      EXPECT_EQ(request.calls.client.make(), request.calls.client.idleAnswer) << request.name;
    }
  }
  EXPECT_TRUE(log.OfLevel(100).empty());
}

TEST(ClientRequestBeforeCreate, ThatIsNotGuardedFailsLikeACallThatCannotBeMade) {
  LogCapture log;
  MWPSingleton<MWPBtClient>::GetInstance();
  log.Clear();
  char byte = 'x';
  EXPECT_EQ(TheClient()->SetCapability(MWPBtType::BT_CAP_AUTO_ANSWER, 1), 0);
  EXPECT_EQ(TheClient()->ClearScanedDeviceList(), 0);
  EXPECT_EQ(TheClient()->SetWirelessEnable("a", 1), 0);
  EXPECT_EQ(TheClient()->SppSendBuffer("a", &byte, 1), 1);
  EXPECT_EQ(log.OfLevel(100).size(), 4u);
  EXPECT_TRUE(log.Complaints().empty());
}

}  // namespace
}  // namespace bttest
