// The attempts to connect, and what becomes of the process when the bus goes away in the middle of them: how
// often a bus is opened, and that the application lives on. GLib ends a process with its session bus by
// default.

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "glib/OwnedBus.h"
#include "support/TemporaryDirectory.h"
#include "system/FakeBus.h"
#include "system/ProxyAttempts.h"

namespace bttest {
namespace {

using testing::ElementsAre;

/// Which of the next attempts to make a proxy fail before they are made; the others are made.
std::deque<bool> g_failsAtOnce;
/// Runs at the end of each attempt, with what came of it.
std::function<void(ComZelkLinuxBluetooth*)> g_endOfAttempt;

ComZelkLinuxBluetooth* OnAttempt(const ProxyAttempt& attempt) {
  ComZelkLinuxBluetooth* proxy = nullptr;
  if (!g_failsAtOnce.empty() && g_failsAtOnce.front()) {
    g_set_error_literal(attempt.error, G_IO_ERROR, G_IO_ERROR_FAILED, "made to fail");
  } else {
    proxy = MakeProxy(attempt);
  }
  if (!g_failsAtOnce.empty()) {
    g_failsAtOnce.pop_front();
  }
  if (g_endOfAttempt) {
    g_endOfAttempt(proxy);
  }
  return proxy;
}

/// Counts the SIGTERMs that this process gets, instead of ending by the first.
std::atomic<int> g_terminations{0};

struct BusExit : testing::Test {
  BusExit() {
    MakeDummySegments();
    g_onProxyAttempt = OnAttempt;
    std::signal(SIGTERM, [](int) { ++g_terminations; });
  }
  ~BusExit() override { g_endOfAttempt = nullptr; }
};

int MakeListeningSocket(const std::filesystem::path& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.string().copy(address.sun_path, sizeof(address.sun_path) - 1);
  const int listening = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  EXPECT_EQ(bind(listening, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
  EXPECT_EQ(listen(listening, 8), 0);
  return listening;
}

/// Notes, while it lives, that a connection of this process has reported its end.
class ClosedConnections {
 public:
  ClosedConnections() : m_class(g_type_class_ref(G_TYPE_DBUS_CONNECTION)) {
    m_hook = g_signal_add_emission_hook(Signal(), 0, Note, this, nullptr);
  }
  ~ClosedConnections() { g_signal_remove_emission_hook(Signal(), m_hook); }
  ClosedConnections(const ClosedConnections&) = delete;
  ClosedConnections& operator=(const ClosedConnections&) = delete;

  int Count() const { return m_count; }

 private:
  static guint Signal() { return g_signal_lookup("closed", G_TYPE_DBUS_CONNECTION); }
  static gboolean Note(GSignalInvocationHint*, guint, const GValue*, gpointer self) {
    ++static_cast<ClosedConnections*>(self)->m_count;
    return TRUE;
  }

  std::atomic<int> m_count{0};
  OwnedTypeClass<void> m_class;
  gulong m_hook = 0;
};

// How often a bus is opened

TEST_F(BusExit, ABusThatNobodyCanGetOnIsOpenedOnceForEachOfTheSevenAttempts) {
  FakeBus bus(FakeBus::Ending::ON_CONNECT);
  EXPECT_EQ(MWP_CreateBlueTooth(), 0);
  EXPECT_EQ(bus.Connections(), 7);
}

/// A machine without a session bus: GLib runs dbus-launch, which counts how often that happens.
class NoSessionBus {
 public:
  NoSessionBus() {
    const std::filesystem::path launcher = m_directory.Path() / "dbus-launch";
    std::ofstream(launcher) << "#!/bin/sh\necho launched >> " << m_launches.string() << "\nexit 1\n";
    std::filesystem::permissions(launcher, std::filesystem::perms::owner_all);
    setenv("PATH", (m_directory.Path().string() + ":" + std::getenv("PATH")).c_str(), 1);
    setenv("XDG_RUNTIME_DIR", m_directory.Path().c_str(), 1);
    setenv("DISPLAY", ":77", 1);
    unsetenv("DBUS_SESSION_BUS_ADDRESS");
  }

  /// Where GLib looks for the socket of a session bus whose address it is not given.
  std::filesystem::path Socket() const { return m_directory.Path() / "bus"; }

  /// What the library launches when it is started.
  std::ptrdiff_t LaunchesOfAStart() const {
    std::filesystem::remove(m_launches);
    EXPECT_EQ(MWP_CreateBlueTooth(), 0);
    std::ifstream lines(m_launches);
    return std::count(std::istreambuf_iterator<char>(lines), {}, '\n');
  }

  /// GLib launches no bus on a machine that has no id.
  static bool CanLaunch() {
    return std::filesystem::exists("/etc/machine-id") || std::filesystem::exists("/var/lib/dbus/machine-id");
  }

 private:
  TemporaryDirectory m_directory;
  std::filesystem::path m_launches = m_directory.Path() / "launches";
};

TEST_F(BusExit, WithoutAnAddressABusIsLaunchedOnceForEachOfTheSevenAttempts) {
  if (!NoSessionBus::CanLaunch()) {
    GTEST_SKIP() << "this machine has no id";
  }
  const NoSessionBus none;
  EXPECT_EQ(none.LaunchesOfAStart(), 7);
  setenv("DBUS_SESSION_BUS_ADDRESS", "autolaunch:", 1);
  EXPECT_EQ(none.LaunchesOfAStart(), 7);
}

TEST_F(BusExit, NeitherAFileNorTheSocketOfSomebodyElseIsTakenForTheBus) {
  if (!NoSessionBus::CanLaunch()) {
    GTEST_SKIP() << "this machine has no id";
  }
  const NoSessionBus none;
  std::ofstream(none.Socket()) << "no socket";
  EXPECT_EQ(none.LaunchesOfAStart(), 7);

  std::filesystem::remove(none.Socket());
  const int socket = MakeListeningSocket(none.Socket());
  if (chown(none.Socket().c_str(), geteuid() + 1, static_cast<gid_t>(-1)) == 0) {  // who may do that is root
    EXPECT_EQ(none.LaunchesOfAStart(), 7);
  }
  close(socket);
}

// What becomes of the process

TEST_F(BusExit, ABusThatClosesAfterHelloLeavesTheApplicationAlive) {
  FakeBus bus(FakeBus::Ending::AFTER_HELLO);
  const ClosedConnections closed;
  EXPECT_EQ(MWP_CreateBlueTooth(), 0);
  EXPECT_TRUE(RunUntil([&] { return closed.Count() > 0; }));
  RunPending();
  EXPECT_EQ(g_terminations, 0);
}

TEST_F(BusExit, ABusThatClosesWhileItStartsTheServiceLeavesTheApplicationAlive) {
  FakeBus bus(FakeBus::Ending::ON_START_SERVICE);
  const ClosedConnections closed;
  EXPECT_EQ(MWP_CreateBlueTooth(), 0);
  EXPECT_TRUE(RunUntil([&] { return closed.Count() > 0; }));
  RunPending();
  EXPECT_EQ(g_terminations, 0);
}

TEST_F(BusExit, AMainLoopOnAnotherThreadThatHearsOfTheEndBeforeTheAttemptIsOverLeavesItAliveToo) {
  FakeBus bus(FakeBus::Ending::AFTER_HELLO);
  const ClosedConnections closed;
  LoopThread loop;
  g_endOfAttempt = [&](ComZelkLinuxBluetooth*) {
    EXPECT_TRUE(WaitUntil([&] { return closed.Count() > 0; }));
    loop.Invoke([] {});  // GLib's own handler is through then
  };
  EXPECT_EQ(MWP_CreateBlueTooth(), 0);
  EXPECT_EQ(g_terminations, 0);
}

TEST_F(BusExit, AConnectionThatIsNotTheSessionBusKeepsWhatItWasSet) {
  // The system bus of the application, which ends in the middle of an attempt, is the application's own
  // affair.
  BusDaemon session;
  BusDaemon other;
  setenv("DBUS_SYSTEM_BUS_ADDRESS", other.Address().c_str(), 1);
  setenv("DBUS_SESSION_BUS_ADDRESS", session.Address().c_str(), 1);
  Recorder service;
  const OwnedObject<GDBusConnection> system(g_bus_get_sync(G_BUS_TYPE_SYSTEM, nullptr, nullptr));
  ASSERT_NE(system, nullptr);
  const ClosedConnections closed;
  g_endOfAttempt = [&](ComZelkLinuxBluetooth*) {
    other.Stop();
    EXPECT_TRUE(RunUntil([&] { return closed.Count() > 0; }));
  };
  EXPECT_EQ(MWP_CreateBlueTooth(), 1);
  EXPECT_TRUE(g_dbus_connection_get_exit_on_close(system.get()));
  EXPECT_EQ(g_terminations, 1) << "GLib has done what the application left switched on";
}

TEST_F(BusExit, WhatTheApplicationSwitchesOnAfterTheStartStaysOn) {
  BusDaemon bus;
  Recorder service;
  ASSERT_EQ(MWP_CreateBlueTooth(), 1);
  GDBusConnection* const connection = g_dbus_proxy_get_connection(G_DBUS_PROXY(g_BtProxy));
  g_dbus_connection_set_exit_on_close(connection, TRUE);
  bus.Stop();
  EXPECT_TRUE(RunUntil([] { return g_terminations > 0; }));
  EXPECT_TRUE(g_dbus_connection_get_exit_on_close(connection));
}

// What an attempt leaves behind

/// A bus on which the service cannot be started, and what its attempts leave behind.
class BusWithAServiceThatFails {
 public:
  BusWithAServiceThatFails() {
    std::ofstream(m_services.Path() / "bluetooth.service")
        << "[D-BUS Service]\nName=com.zelk.linux.bluetooth\nExec=/bin/false\n";
    m_bus.emplace(m_services.Path());
  }
  const std::string& Address() const { return m_bus->Address(); }

  /// Whether the connection that the application has made ends it: at the end of each attempt of the library.
  std::vector<bool> ExitsOnCloseOfAttempts() {
    const OwnedObject<GDBusConnection> ofApplication(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    EXPECT_NE(ofApplication, nullptr);
    std::vector<bool> exitsOnClose;
    g_endOfAttempt = [&](ComZelkLinuxBluetooth* proxy) {
      EXPECT_EQ(proxy, nullptr);
      exitsOnClose.push_back(g_dbus_connection_get_exit_on_close(ofApplication.get()));
    };
    EXPECT_EQ(MWP_CreateBlueTooth(), 0);
    EXPECT_FALSE(g_dbus_connection_get_exit_on_close(ofApplication.get()));
    return exitsOnClose;
  }

 private:
  TemporaryDirectory m_services;
  std::optional<BusDaemon> m_bus;
};

TEST_F(BusExit, AConnectionOfWhichNoProxyComesIsSwitchedOffBeforeTheNextAttempt) {
  BusWithAServiceThatFails bus;
  EXPECT_THAT(bus.ExitsOnCloseOfAttempts(), ElementsAre(true, false, false, false, false, false, false));
}

TEST_F(BusExit, SoIsThatToABusWhoseSocketLiesInTheRuntimeDirectory) {
  BusWithAServiceThatFails bus;
  const std::filesystem::path socket = bus.Address().substr(std::string("unix:path=").size());
  ASSERT_EQ(socket.filename(), "bus");
  setenv("XDG_RUNTIME_DIR", socket.parent_path().c_str(), 1);
  unsetenv("DBUS_SESSION_BUS_ADDRESS");
  EXPECT_THAT(bus.ExitsOnCloseOfAttempts(), ElementsAre(true, false, false, false, false, false, false));
}

TEST_F(BusExit, WhenTheFirstAttemptFailsAndTheNextSucceedsTheConnectionIsSwitchedOffBeforeTheNext) {
  BusDaemon bus;
  Recorder service;
  g_failsAtOnce = {true, false, true, true, true, true, true, true};
  std::vector<bool> exitsOnClose;
  ComZelkLinuxBluetooth* made = nullptr;
  g_endOfAttempt = [&](ComZelkLinuxBluetooth* proxy) {
    made = proxy != nullptr ? proxy : made;
    if (made != nullptr) {
      exitsOnClose.push_back(
          g_dbus_connection_get_exit_on_close(g_dbus_proxy_get_connection(G_DBUS_PROXY(made))));
    }
  };
  EXPECT_EQ(MWP_CreateBlueTooth(), 0);
  EXPECT_THAT(exitsOnClose, ElementsAre(true, false, false, false, false, false, false));
}

}  // namespace
}  // namespace bttest
