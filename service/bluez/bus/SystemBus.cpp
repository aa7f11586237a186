#include "service/bluez/bus/SystemBus.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>

#define MWP_LOG_SOURCE "service/bluez/bus/SystemBus"
#include <mwp/MWPLog.h>

namespace btservice::bluez {
namespace {

constexpr Milliseconds kFirstPause{500};
constexpr Milliseconds kLongestPause{8000};

/// As GLib finds it; but its function would wait for other kinds of buses.
std::string AddressOfTheSystemBus() {
  const char* const named = std::getenv("DBUS_SYSTEM_BUS_ADDRESS");
  return named != nullptr && *named != '\0' ? named : "unix:path=/var/run/dbus/system_bus_socket";
}

}  // namespace

/// What GLib is given of an attempt to connect. It may outlive the bus, which then has cancelled it.
struct SystemBus::Attempt {
  SystemBus* bus;
  OwnedObject<GCancellable> cancellable;
};

SystemBus::SystemBus(Scheduler& scheduler)
    : m_retry(scheduler), m_pause(kFirstPause), m_cancellable(g_cancellable_new()) {}

SystemBus::~SystemBus() { g_cancellable_cancel(m_cancellable.get()); }

void SystemBus::Connect() {
  const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                       G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
  g_dbus_connection_new_for_address(AddressOfTheSystemBus().c_str(), flags, nullptr, m_cancellable.get(),
                                    &SystemBus::OnOpened, new Attempt{this, NewRef(m_cancellable.get())});
}

void SystemBus::OnOpened(GObject*, GAsyncResult* result, gpointer data) {
  const std::unique_ptr<Attempt> attempt(static_cast<Attempt*>(data));
  OwnedError error;
  OwnedObject<GDBusConnection> connection(g_dbus_connection_new_for_address_finish(result, error.Out()));
  if (g_cancellable_is_cancelled(attempt->cancellable.get()) != FALSE) {
    return;  // there is no bus any more that could use it
  }
  if (connection == nullptr) {
    attempt->bus->TryAgainLater(error->message);
  } else {
    attempt->bus->Use(std::move(connection));
  }
}

void SystemBus::Use(OwnedObject<GDBusConnection> connection) {
  m_connection = std::move(connection);
  m_closedHandler = OwnedHandler(G_OBJECT(m_connection.get()),
                                 g_signal_connect(m_connection.get(), "closed", G_CALLBACK(OnClosed), this));
  if (std::exchange(m_wasReported, false)) {
    MWP_LOG(MWP_LOG_WARNING, "the system bus is there");
  }
  m_pause = kFirstPause;
  if (g_dbus_connection_is_closed(m_connection.get()) != FALSE) {
    OnClosed(m_connection.get(), TRUE, nullptr, this);  // before anybody could hear of it
    return;
  }
  onConnected();
}

void SystemBus::OnClosed(GDBusConnection*, gboolean, GError* error, gpointer self) {
  auto* const bus = static_cast<SystemBus*>(self);
  const std::string problem = error != nullptr ? error->message : "it closed the connection";
  bus->m_closedHandler.reset();
  bus->m_connection.reset();
  bus->onLost();
  bus->TryAgainLater(problem.c_str());
}

void SystemBus::TryAgainLater(const char* problem) {
  if (!std::exchange(m_wasReported, true)) {
    MWP_LOG(MWP_LOG_WARNING, "there is no system bus, and so no adapter, until it is back: %s", problem);
  }
  m_retry.Start(m_pause, [this] { Connect(); });
  m_pause = std::min(m_pause * 2, kLongestPause);
}

}  // namespace btservice::bluez
