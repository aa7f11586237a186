// How the handlers of the service's signals are connected, call by call, and what they answer.

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include <dlfcn.h>
#include <gtest/gtest.h>

#include "contract/events_fixture.h"
#include "ipc/BtClientIpcAdapter.h"

namespace {

std::vector<bttest::SignalConnection> g_connections;

}  // namespace

// Takes the place of GObject's function for the library under test.
extern "C" __attribute__((visibility("default"))) gulong g_signal_connect_data(
    gpointer instance, const gchar* signal, GCallback handler, gpointer data, GClosureNotify destroyData,
    GConnectFlags flags) {
  static const auto real = reinterpret_cast<decltype(&g_signal_connect_data)>(dlsym(RTLD_NEXT, __func__));
  if (IS_COM_ZELK_LINUX_BLUETOOTH(instance)) {
    g_connections.push_back({COM_ZELK_LINUX_BLUETOOTH(instance), signal, handler, data, destroyData, flags});
  }
  return real(instance, signal, handler, data, destroyData, flags);
}

namespace bttest {
namespace {

constexpr std::size_t kWithHyphens = 27;

/// The names under which the signals are subscribed: the first ones with hyphens, the others with
/// underscores.
std::vector<std::string> SubscribedNames() {
  std::vector<std::string> names;
  for (const std::string& signal : SubscribedSignals()) {
    std::string name = GObjectName(signal);
    if (names.size() >= kWithHyphens) {
      std::replace(name.begin(), name.end(), '-', '_');
    }
    names.push_back(name);
  }
  return names;
}

class Handlers : public testing::Test {
 protected:
  Handlers() {
    g_connections.clear();
    connected = adapter.InitDBusConnect();
  }

  BusDaemon bus;
  Recorder service;
  BtClientIpcAdapter adapter;
  bool connected;
};

TEST_F(Handlers, AreConnectedByTheseNamesInThisOrder) {
  ASSERT_TRUE(connected);
  std::vector<std::string> names;
  names.reserve(g_connections.size());
  for (const SignalConnection& connection : g_connections) {
    names.push_back(connection.signal);
  }
  EXPECT_EQ(names, SubscribedNames());
  ASSERT_GT(names.size(), kWithHyphens);
  EXPECT_EQ(names[26], "on-codec-mode-changed");
  EXPECT_EQ(names[27], "on_browser_folder_item_total_changed");
}

TEST_F(Handlers, GetTheAdapterAndNoFlags) {
  ASSERT_TRUE(connected);
  ASSERT_FALSE(g_connections.empty());
  for (const SignalConnection& connection : g_connections) {
    EXPECT_EQ(connection.proxy, g_BtProxy) << connection.signal;
    EXPECT_EQ(connection.data, &adapter) << connection.signal;
    EXPECT_EQ(connection.destroyData, nullptr) << connection.signal;
    EXPECT_EQ(connection.flags, 0) << connection.signal;
  }
}

TEST_F(Handlers, AnswerTrue) {
  ASSERT_TRUE(connected);
  ASSERT_EQ(g_connections.size(), SubscribedSignals().size());
  for (std::size_t i = 0; i < g_connections.size(); ++i) {
    const SignalDescription& signal = BluetoothInterface().Signal(SubscribedSignals()[i]);
    for (int variety = 0; variety < kVarieties; ++variety) {
      const OwnedVariant arguments(MakeTuple(signal.arguments, variety));
      EXPECT_TRUE(AnswerOf(g_connections[i], signal, arguments.get())) << signal.name;
    }
  }
}

TEST_F(Handlers, AnswerTrueForMissingTextsButForTheAddressOfALinkKey) {
  ASSERT_TRUE(connected);
  ASSERT_EQ(g_connections.size(), SubscribedSignals().size());
  for (std::size_t i = 0; i < g_connections.size(); ++i) {
    const SignalDescription& signal = BluetoothInterface().Signal(SubscribedSignals()[i]);
    const OwnedVariant arguments(MakeTuple(signal.arguments, 0));
    EXPECT_EQ(AnswerOf(g_connections[i], signal, arguments.get(), Texts::MISSING),
              signal.name != "OnSetDeviceOOBLinkKeyChanged")
        << signal.name;
  }
}

/// Throws what no application should throw.
class Thrower : public IMWPBtPhoneListener {
 public:
  void OnHangupCallChanged() override { throw 42; }
};

TEST_F(Handlers, AnswerTrueWhenAListenerThrows) {
  ASSERT_TRUE(connected);
  Thrower listener;
  for (std::size_t i = 0; i < g_connections.size(); ++i) {
    if (SubscribedSignals()[i] == "OnHangupCallChanged") {
      const OwnedVariant none(g_variant_new("()"));
      EXPECT_TRUE(AnswerOf(g_connections[i], BluetoothInterface().Signal("OnHangupCallChanged"), none.get()));
    }
  }
}

}  // namespace
}  // namespace bttest
