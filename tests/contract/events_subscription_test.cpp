// When the library listens to the service's signals: from a successful connection on, for good.

#include <gtest/gtest.h>

#include "contract/events_fixture.h"
#include "ipc/BtClientIpcAdapter.h"

namespace bttest {
namespace {

/// The handlers of a signal of the proxy. GLib numbers all handlers as they are connected.
std::vector<gulong> Handlers(gpointer proxy, const std::string& signal) {
  const auto wanted = static_cast<GSignalMatchType>(G_SIGNAL_MATCH_ID | G_SIGNAL_MATCH_UNBLOCKED);
  const auto find = [&] {
    return g_signal_handler_find(proxy, wanted, SignalId(signal), 0, nullptr, nullptr, nullptr);
  };
  std::vector<gulong> handlers;
  for (gulong handler = find(); handler != 0; handler = find()) {
    handlers.push_back(handler);
    g_signal_handler_block(proxy, handler);
  }
  for (const gulong handler : handlers) {
    g_signal_handler_unblock(proxy, handler);
  }
  return handlers;
}

TEST_F(Events, EverySignalThatIsSubscribedHasOneHandlerConnectedInTheGivenOrder) {
  for (const SignalDescription& signal : BluetoothInterface().signals) {
    EXPECT_EQ(Handlers(g_BtProxy, signal.name).size(), IsSubscribed(signal.name) ? 1u : 0u) << signal.name;
  }
  gulong previous = 0;
  for (const std::string& signal : SubscribedSignals()) {
    const std::vector<gulong> handlers = Handlers(g_BtProxy, signal);
    ASSERT_EQ(handlers.size(), 1u) << signal;
    EXPECT_GT(handlers[0], previous) << signal;
    previous = handlers[0];
  }
}

TEST_F(Events, AfterDestroyMakeAClientThatIsNotStarted) {
  listeners.reset();
  for (const SignalDescription& signal : BluetoothInterface().signals) {
    MWP_DestroyBlueTooth();
    ASSERT_EQ(TheClient(), nullptr);
    library.Signal(signal.name, MakeTuple(signal.arguments, 0));

    EXPECT_EQ(TheClient() != nullptr, IsHeard(signal.name)) << signal.name;
    EXPECT_EQ(MWPBtClient::m_bInitClient, 0) << signal.name;
    EXPECT_EQ(MWPBtClient::m_bServiceReady, 0) << signal.name;
  }
  EXPECT_TRUE(receptions.all.empty());
}

TEST_F(Events, AfterDestroyReachListenersOfTheNewClientAlthoughItIsNotStarted) {
  listeners.reset();
  MWP_DestroyBlueTooth();
  listeners.emplace(receptions);
  Send("OnHangupCallChanged", g_variant_new("()"));
  ExpectOneKindHears("OnHangupCallChanged", {});
}

TEST_F(Events, AMissingLinkKeyAddressDoesNotMakeAClient) {
  listeners.reset();
  MWP_DestroyBlueTooth();
  EmitOn(g_BtProxy, BluetoothInterface().Signal("OnSetDeviceOOBLinkKeyChanged"),
         OwnedVariant(g_variant_new("(sb)", "", TRUE)).get(), Texts::MISSING);
  EXPECT_EQ(TheClient(), nullptr);
}

TEST_F(Events, ASecondConnectionIsSubscribedAndTheFirstKeepsItsHandlers) {
  ComZelkLinuxBluetooth* const first = g_BtProxy;
  ASSERT_NE(TheClient()->InitInstance(), 0);
  ComZelkLinuxBluetooth* const second = g_BtProxy;
  ASSERT_NE(first, second);

  for (const SignalDescription& signal : BluetoothInterface().signals) {
    EXPECT_EQ(Handlers(first, signal.name).size(), IsSubscribed(signal.name) ? 1u : 0u) << signal.name;
    EXPECT_EQ(Handlers(second, signal.name).size(), IsSubscribed(signal.name) ? 1u : 0u) << signal.name;
    if (!IsHeard(signal.name)) {
      continue;
    }
    const OwnedVariant arguments(MakeTuple(signal.arguments, 0));
    for (ComZelkLinuxBluetooth* const proxy : {first, second}) {
      receptions.all.clear();
      EmitOn(proxy, signal, arguments.get());
      ExpectOneKindHears(signal.name, TextsOf(arguments.get()));
    }
  }
}

TEST_F(Events, WithTwoConnectionsEachSignalIsDeliveredTwice) {
  ASSERT_NE(TheClient()->InitInstance(), 0);
  EXPECT_EQ(Send("OnHangupCallChanged", g_variant_new("()")).size(), 4u);
}

TEST(EventsBeforeCreate, MakeAClientThatIsNotStarted) {
  BusDaemon bus;
  Recorder recorder;
  BtClientIpcAdapter adapter;
  ASSERT_TRUE(adapter.InitDBusConnect());
  ASSERT_EQ(TheClient(), nullptr);

  const auto send = [&](const char* signal, GVariant* arguments) {
    recorder.Emit(signal, arguments);
    StartedLibrary::HandleSignals();
  };
  send(kHeardByNobody, g_variant_new("(ssy)", "a", "b", 1));
  EXPECT_EQ(TheClient(), nullptr);
  send("OnOpenBtStatusChanged", g_variant_new("(y)", 1));
  ASSERT_NE(TheClient(), nullptr);
  EXPECT_EQ(MWPBtClient::m_bInitClient, 0);
}

}  // namespace
}  // namespace bttest
