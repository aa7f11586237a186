// What an event logs on its way from the service to the listeners.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "contract/events_fixture.h"

namespace bttest {
namespace {

constexpr const char* kAdapter = "ipc/BtClientIpcAdapter";
constexpr const char* kClient = "libbluetooth/MWPBtClient";
constexpr long kAnyLine = 0;

struct LoggedEvent {
  const char* signal;
  const char* arguments;  ///< as GVariant text
  std::vector<LogRecord> lines;
};

std::vector<LoggedEvent> LoggedEvents() {
  return {
      {"OnOpenBtStatusChanged",
       "(byte 255,)",
       {{kClient, "OnOpenBtStatusChanged", 976, 20, "[btclient][MWPBtClient::OnOpenBtStatusChanged] 255"}}},
      {"OnBtProfileEnableStatusChanged",
       "(true,)",
       {{kAdapter, "CallBackOnBtProfileEnableStatusChanged", kAnyLine, 20,
         "[gboolean CallBackOnBtProfileEnableStatusChanged] arg_status:1"},
        {kClient, "OnBtProfileEnableStatusChanged", 991, 20,
         "[btclient][MWPBtClient::OnBtProfileEnableStatusChanged] 1"}}},
      {"OnOperatorNameChanged",
       "('%s%n',)",
       {{kClient, "OnOperatorNameChanged", 1183, 40, "OnOperatorNameChanged()"}}},
      {"OnConnectStatusChanged",
       "('', byte 1, byte 2)",
       {{kClient, "OnConnectStatusChanged", 1201, 40, "OnConnectStatusChanged()"}}},
      {"OnWirelessEnableRequest",
       "('a', 'b', byte 1)",
       {{kAdapter, "CallBackOnWirelessEnableRequest", kAnyLine, 40, "CallBackOnWirelessEnableRequest()"}}},
      {"OnRoamingStatusChanged",
       "(false,)",
       {{kClient, "OnRoamingStatusChanged", 1283, 40, "OnRoamingStatusChanged()"}}},
      {"OnCallStatusChanged",
       "(-7, byte 200, 2147483647)",
       {{kAdapter, "CallBackOnCallStatusChanged", kAnyLine, 20,
         " gboolean CallBackOnCallStatusChanged arg_callId:-7 arg_callStatus:200 "
         "arg_callCount:2147483647"}}},
      {"OnVoiceStatusChanged",
       "(byte 1,)",
       {{kClient, "OnVoiceStatusChanged", 1541, 40, "OnVoiceStatusChanged()"}}},
      {"OnAudioTrackChanged",
       "()",
       {{kClient, "OnAudioTrackChanged", 1611, 20, "MWPBtClient:: OnAudioTrackChanged()"},
        {kClient, "OnAudioTrackChanged", 1611, 20, "MWPBtClient:: OnAudioTrackChanged()"}}},
      {"OnSppConnectStatus",
       "('a', byte 1, true)",
       {{kAdapter, "CallBack_OnSppConnectStatus", kAnyLine, 20, "CallBack_OnSppConnectStatus"}}},
  };
}

/// Without the line numbers of the adapter, which nobody relies on.
std::vector<LogRecord> Comparable(std::vector<LogRecord> records) {
  for (LogRecord& record : records) {
    if (record.file == kAdapter) {
      record.line = kAnyLine;
    }
  }
  return records;
}

TEST_F(Events, ThatLogWriteTheirLinesWithSourceFunctionLineAndLevel) {
  for (const LoggedEvent& event : LoggedEvents()) {
    log.Clear();
    Send(event.signal, g_variant_new_parsed(event.arguments));
    EXPECT_EQ(Comparable(log.Records()), event.lines);
  }
}

TEST_F(Events, OfAllOtherNamesLogNothing) {
  for (const SignalDescription& signal : BluetoothInterface().signals) {
    bool isSilent = true;
    for (const LoggedEvent& event : LoggedEvents()) {
      isSilent = isSilent && event.signal != signal.name;
    }
    if (isSilent) {
      log.Clear();
      Send(signal, MakeTuple(signal.arguments, 0));
      EXPECT_EQ(log.Records(), std::vector<LogRecord>()) << signal.name;
    }
  }
}

TEST_F(Events, ThatLogInTheAdapterDoSoBeforeTheClientIsThere) {
  listeners.reset();
  for (const LoggedEvent& event : LoggedEvents()) {
    if (event.lines[0].file != kAdapter) {
      continue;
    }
    MWP_DestroyBlueTooth();
    log.Clear();
    library.Signal(event.signal, g_variant_new_parsed(event.arguments));
    const std::vector<LogRecord> records = Comparable(log.Records());
    ASSERT_GE(records.size(), 2u) << event.signal;
    EXPECT_EQ(records[0], event.lines[0]);
    EXPECT_EQ(records[1].message, "IMWPBtListenerBase constructor") << event.signal;
  }
}

}  // namespace
}  // namespace bttest
