// The events of the client: which listeners receive them, with what values, and what is logged. No bus is
// needed.

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bluetooth/MWPBluetooth.h>

#include "contract/EventCases.h"
#include "contract/RecordingListeners.h"
#include "contract/Witness.h"
#include "support/LogCapture.h"

namespace bttest {
namespace {

class FanOut : public testing::Test {
 protected:
  FanOut() { log.Clear(); }
  ~FanOut() override { MWP_DestroyBlueTooth(); }

  MWPBtClient& Client() { return *MWPSingleton<MWPBtClient>::GetInstance(); }

  LogCapture log;
  Receptions receptions;
  std::optional<TwoListenersOfEachKind> listeners{receptions};
};

TEST_F(FanOut, TheCasesAreAllEventsThatTheWitnessNames) {
  std::vector<std::string> expected;
  for (const Witness::Event& event : TheWitness().events) {
    expected.push_back(event.name);
  }
  std::vector<std::string> cases;
  for (const EventCase& event : EventCases()) {
    cases.push_back(event.name);
  }
  std::sort(expected.begin(), expected.end());
  std::sort(cases.begin(), cases.end());
  EXPECT_EQ(Differences(expected, cases), "");
}

TEST_F(FanOut, EveryEventReachesTheListenersOfItsKindInAscendingOrderAndNobodyElse) {
  for (const EventCase& event : EventCases()) {
    receptions.all.clear();
    event.call(Client());
    ASSERT_EQ(receptions.all.size(), 2u) << event.name;
    for (const Reception& reception : receptions.all) {
      EXPECT_EQ(reception.event, event.name);
      EXPECT_EQ(reception.listener->m_nType, event.kind) << event.name;
      EXPECT_EQ(reception.values, event.values) << event.name;
    }
    EXPECT_TRUE(std::less<>()(receptions.all[0].listener, receptions.all[1].listener)) << event.name;
  }
}

TEST_F(FanOut, OnlyTheTypeTagDecidesWhichListenersReceiveIt) {
  listeners.reset();
  RecordingComListener listener(receptions);
  listener.m_nType = MAX_LISTENER;
  for (const EventCase& event : EventCases()) {
    event.call(Client());
  }
  EXPECT_TRUE(receptions.all.empty());
}

TEST_F(FanOut, ThreeEventsReachNobodyAndLogNothing) {
  Client().OnSupportProfilesInfoChanged("00:1A:7D:DA:71:13",
                                        {{MWPBtType::BT_PROFILE_HFP, MWPBtType::BT_PROFILE_VERSION_1_7}});
  Client().OnLocalAddressChanged("00:1A:7D:DA:71:13");
  Client().OnCallInfoListChanged();
  EXPECT_TRUE(receptions.all.empty());
  EXPECT_EQ(log.Records(), std::vector<LogRecord>());
}

TEST_F(FanOut, SevenEventsLogWithTheirLineNumbersAndTheOthersNothing) {
  const std::string source = "libbluetooth/MWPBtClient";
  // "%" stands for the first value of the event.
  const std::map<std::string, std::vector<LogRecord>> expected{
      {"OnOpenBtStatusChanged",
       {{source, "OnOpenBtStatusChanged", 976, 20, "[btclient][MWPBtClient::OnOpenBtStatusChanged] %"}}},
      {"OnBtProfileEnableStatusChanged",
       {{source, "OnBtProfileEnableStatusChanged", 991, 20,
         "[btclient][MWPBtClient::OnBtProfileEnableStatusChanged] %"}}},
      {"OnOperatorNameChanged", {{source, "OnOperatorNameChanged", 1183, 40, "OnOperatorNameChanged()"}}},
      {"OnConnectStatusChanged", {{source, "OnConnectStatusChanged", 1201, 40, "OnConnectStatusChanged()"}}},
      {"OnRoamingStatusChanged", {{source, "OnRoamingStatusChanged", 1283, 40, "OnRoamingStatusChanged()"}}},
      {"OnVoiceStatusChanged", {{source, "OnVoiceStatusChanged", 1541, 40, "OnVoiceStatusChanged()"}}},
      {"OnAudioTrackChanged",
       {{source, "OnAudioTrackChanged", 1611, 20, "MWPBtClient:: OnAudioTrackChanged()"},
        {source, "OnAudioTrackChanged", 1611, 20, "MWPBtClient:: OnAudioTrackChanged()"}}},
  };
  for (const EventCase& event : EventCases()) {
    log.Clear();
    event.call(Client());
    const auto lines = expected.find(event.name);
    std::vector<LogRecord> records = lines != expected.end() ? lines->second : std::vector<LogRecord>();
    for (LogRecord& record : records) {
      const std::size_t value = record.message.find('%');
      if (value != std::string::npos) {
        record.message.replace(value, 1, event.values[0]);
      }
    }
    EXPECT_EQ(log.Records(), records) << event.name;
  }
}

TEST_F(FanOut, OnAudioTrackChangedLogsJustBeforeItCallsEachListener) {
  std::vector<std::size_t> linesSeen;
  receptions.afterEach = [&] { linesSeen.push_back(log.Records().size()); };
  Client().OnAudioTrackChanged();
  EXPECT_EQ(linesSeen, (std::vector<std::size_t>{1, 2}));
}

TEST_F(FanOut, OnAudioTrackChangedLogsNothingWithoutAListenerOfItsKind) {
  listeners.reset();
  RecordingPhoneListener phone(receptions);
  log.Clear();
  Client().OnAudioTrackChanged();
  EXPECT_EQ(log.Records(), std::vector<LogRecord>());
}

/// Changes the texts that it gets by value.
class TextTaker : public IMWPBtMessageListener {
 public:
  void OnMessageStatusNotify(MWPBtType::MsgStatus, std::string handle) override {
    got = handle;
    handle.assign("taken");
  }
  std::string got;
};

class HidTextTaker : public IMWPBtSppListener {
 public:
  void OnHIDConnection(std::string address, int) override {
    got = address;
    address.clear();
  }
  std::string got;
};

TEST_F(FanOut, EachListenerGetsACopyOfItsOwnOfATextByValue) {
  const std::string longText(1000, 'x');  // one that does not live inside the string object
  TextTaker messages[3];
  HidTextTaker hids[3];
  Client().OnMessageStatusNotify(MWPBtType::BT_MSG_NEW, longText);
  Client().OnHIDConnection(longText, 2);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(messages[i].got, longText) << i;
    EXPECT_EQ(hids[i].got, longText) << i;
  }
}

class BleBytes : public IMWPBtBleListener {
 public:
  void OnBleCharNotify(unsigned short, const unsigned char* bytes, unsigned int count) override {
    data = bytes;
    length = count;
    first = bytes != nullptr ? bytes[0] : -1;
  }
  void OnBleGAttribResultNotify(unsigned char, const unsigned char* bytes, unsigned short count) override {
    OnBleCharNotify(0, bytes, count);
  }
  const unsigned char* data = nullptr;
  unsigned int length = 0;
  int first = 0;
};

TEST_F(FanOut, LowEnergyListenersGetTheAddressOfTheSameFirstByteAndTheLengthAsItCame) {
  listeners.reset();  // they would read as many bytes as the event says
  BleBytes one, two;
  for (const unsigned int length : {0u, 1u, 3u, 4u, 4294967295u}) {
    Client().OnBleCharNotify(1, {42, 43, 44}, length);
    EXPECT_EQ(one.data, two.data);
    EXPECT_EQ(one.first, 42);
    EXPECT_EQ(two.first, 42);
    EXPECT_EQ(one.length, length);
    EXPECT_EQ(two.length, length);
  }
  Client().OnBleGAttribResultNotify(1, {77}, 65535);
  EXPECT_EQ(one.data, two.data);
  EXPECT_EQ(one.first, 77);
  EXPECT_EQ(two.first, 77);
  EXPECT_EQ(one.length, 65535u);
  EXPECT_EQ(two.length, 65535u);
}

}  // namespace
}  // namespace bttest
