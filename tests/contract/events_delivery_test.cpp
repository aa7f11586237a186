// Every signal of the interface, sent by a service in another process: who receives it, and with what values.

#include <gtest/gtest.h>

#include "contract/events_fixture.h"

namespace bttest {
namespace {

TEST_F(Events, EverySignalReachesTheListenersOfItsKindInAscendingOrderWithEachValue) {
  for (const SignalDescription& signal : BluetoothInterface().signals) {
    if (!IsHeard(signal.name)) {
      continue;
    }
    for (int variety = 0; variety < kVarieties; ++variety) {
      const OwnedVariant arguments(MakeTuple(signal.arguments, variety));
      Send(signal, arguments.get());
      ExpectOneKindHears(signal.name, TextsOf(arguments.get()));
    }
  }
  EXPECT_TRUE(log.Complaints().empty());
}

TEST_F(Events, OnScanedDeviceChangedReachesNobody) {
  for (int variety = 0; variety < kVarieties; ++variety) {
    const SignalDescription& signal = BluetoothInterface().Signal(kHeardByNobody);
    EXPECT_TRUE(Send(signal, MakeTuple(signal.arguments, variety)).empty());
  }
}

TEST_F(Events, TheEmptyAddressOfAConnectionChangeIsAnEmptyText) {
  Send("OnConnectStatusChanged", g_variant_new("(syy)", "", 1, 2));
  ExpectOneKindHears("OnConnectStatusChanged", {"''", "1", "2"});
}

TEST_F(Events, SeveralSignalsArriveInTheOrderTheyWereSent) {
  for (int i = 0; i < 100; ++i) {
    library.recorder.Emit("OnCurrentCallInfoChanged", g_variant_new("(i)", i));
  }
  library.HandleSignals();
  ASSERT_EQ(receptions.all.size(), 200u);
  for (std::size_t i = 0; i < 200; ++i) {
    EXPECT_EQ(receptions.all[i].values, std::vector<std::string>{std::to_string(i / 2)});
  }
}

TEST_F(Events, SignalsWithABodyOfAnotherSignatureReachNobody) {
  for (const SignalDescription& signal : BluetoothInterface().signals) {
    library.recorder.EmitRaw(signal.name, g_variant_new("(xd)", gint64{1}, 2.0));
  }
  library.recorder.EmitRaw("OnPairStatusChanged", g_variant_new("(yy)", 1, 2));
  library.recorder.EmitRaw("OnHangupCallChanged", g_variant_new("(i)", 1));
  library.recorder.EmitRaw("OnSppReceiveBufferChanged", g_variant_new_parsed("('a', b'bytes')"));
  library.HandleSignals();
  EXPECT_TRUE(receptions.all.empty());

  Send("OnHangupCallChanged", g_variant_new("()"));
  ExpectOneKindHears("OnHangupCallChanged", {});
}

TEST_F(Events, SignalsThatTheInterfaceDoesNotDescribeReachNobody) {
  library.recorder.EmitRaw("OnScannedDeviceChanged", g_variant_new("(ssy)", "a", "b", 1));
  library.recorder.EmitRaw("OnBleAllService", g_variant_new("(i)", 1));
  library.HandleSignals();
  EXPECT_TRUE(receptions.all.empty());
}

TEST_F(Events, AMissingTextIsAnEmptyOne) {
  for (const SignalDescription& signal : BluetoothInterface().signals) {
    if (!IsHeard(signal.name) || signal.name == "OnSetDeviceOOBLinkKeyChanged") {
      continue;
    }
    const OwnedVariant arguments(MakeTuple(signal.arguments, 0));
    receptions.all.clear();
    EmitOn(g_BtProxy, signal, arguments.get(), Texts::MISSING);

    std::vector<std::string> expected = TextsOf(arguments.get());
    for (std::size_t i = 0; i < expected.size(); ++i) {
      if (signal.arguments[i].signature == "s") {
        expected[i] = "''";
      }
    }
    ExpectOneKindHears(signal.name, expected);
  }
}

TEST_F(Events, TheMissingAddressOfALinkKeyEventIsAnErrorAndReachesNobody) {
  const SignalDescription& signal = BluetoothInterface().Signal("OnSetDeviceOOBLinkKeyChanged");
  log.Clear();
  EmitOn(g_BtProxy, signal, OwnedVariant(g_variant_new("(sb)", "", TRUE)).get(), Texts::MISSING);

  EXPECT_TRUE(receptions.all.empty());
  const std::vector<LogRecord> records = log.Records();
  ASSERT_EQ(records.size(), 1u);
  EXPECT_EQ(records[0].file, "ipc/BtClientIpcAdapter");
  EXPECT_EQ(records[0].function, "CallBackOnSetDeviceOOBLinkKeyChanged");
  EXPECT_EQ(records[0].level, 100);
  EXPECT_EQ(records[0].message, "CallBackOnSetDeviceOOBLinkKeyChanged address is invalid...");
}

TEST_F(Events, AListenerThatOverridesNothingHearsEverySignalAndDoesNothing) {
  listeners.reset();
  IMWPBtComListener com;
  IMWPBtPhoneListener phone;
  IMWPBtMediaListener media;
  IMWPBtPbapListener pbap;
  IMWPBtMessageListener message;
  IMWPBtSppListener spp;
  IMWPBtBleListener ble;
  // Constructed last, it shows that the others before it in the registry kept nothing from it.
  listeners.emplace(receptions);
  for (const SignalDescription& signal : BluetoothInterface().signals) {
    if (IsHeard(signal.name)) {
      const OwnedVariant arguments(MakeTuple(signal.arguments, 0));
      Send(signal, arguments.get());
      ExpectOneKindHears(signal.name, TextsOf(arguments.get()));
    }
  }
  // No signal of the interface is for this kind.
  IMWPBtBleListener& anyBle = ble;
  anyBle.OnBleDiscoveryResponse(1, 2);
  anyBle.OnBleConnectStatusChanged("00:1A:7D:DA:71:13", 1);
  anyBle.OnBleAllService(1);
  anyBle.OnBleSmpNotify({}, "00:1A:7D:DA:71:13", 1, 2);
  anyBle.OnBleCharNotify(1, nullptr, 0);
  anyBle.OnBleGAttribResultNotify(1, nullptr, 0);
  EXPECT_TRUE(log.OfLevel(100).empty());
  EXPECT_TRUE(log.Complaints().empty());
}

}  // namespace
}  // namespace bttest
