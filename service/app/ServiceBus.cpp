#include "service/app/ServiceBus.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <utility>

#define MWP_LOG_SOURCE "service/app/ServiceBus"
#include <mwp/MWPLog.h>

#include "protocol/BusNames.h"
#include "service/files/Quote.h"
#include "service/frontend/WireLimits.h"

namespace btservice {
namespace {

constexpr std::chrono::seconds kTimeToTakeTheLast{5};

/// A connection of our own, since GLib's shared one stays closed once it was: null if there is no bus.
OwnedObject<GDBusConnection> OpenConnection(GError** error) {
  const OwnedText address(g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, error));
  if (address == nullptr) {
    return nullptr;
  }
  const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                       G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
  return OwnedObject<GDBusConnection>(
      g_dbus_connection_new_for_address_sync(address.get(), flags, nullptr, nullptr, error));
}

bool HasOwner(GDBusConnection* connection, const char* name) {
  const OwnedVariant reply(g_dbus_connection_call_sync(
      connection, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameHasOwner",
      g_variant_new("(s)", name), G_VARIANT_TYPE("(b)"), G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr));
  gboolean has = FALSE;
  if (reply != nullptr) {
    g_variant_get(reply.get(), "(b)", &has);
  }
  return has != FALSE;
}

void Cut(GDBusConnection* connection) {
  GIOStream* const stream = g_dbus_connection_get_stream(connection);
  if (G_IS_SOCKET_CONNECTION(stream)) {
    g_socket_shutdown(g_socket_connection_get_socket(G_SOCKET_CONNECTION(stream)), TRUE, TRUE, nullptr);
  }
}

/// Closes a connection and waits until GLib, which hears of the end on a thread of its own, knows it as
/// closed.
void Close(GDBusConnection* connection) {
  constexpr int kMostLooks = 1000;
  g_dbus_connection_close_sync(connection, nullptr, nullptr);
  for (int looks = 0; looks < kMostLooks && g_dbus_connection_is_closed(connection) == FALSE; ++looks) {
    g_usleep(1000);
  }
}

/// Cuts a connection if this lives for too long: what waits for the bus then fails.
class Deadline {
 public:
  Deadline(GDBusConnection* connection, std::chrono::milliseconds time)
      : m_thread([this, connection, time] {
          std::unique_lock<std::mutex> lock(m_mutex);
          if (!m_changed.wait_for(lock, time, [this] { return m_isMet; })) {
            Cut(connection);
          }
        }) {}
  ~Deadline() {
    {
      const std::lock_guard<std::mutex> lock(m_mutex);
      m_isMet = true;
    }
    m_changed.notify_all();
    m_thread.join();
  }
  Deadline(const Deadline&) = delete;
  Deadline& operator=(const Deadline&) = delete;

 private:
  std::mutex m_mutex;
  std::condition_variable m_changed;
  bool m_isMet = false;
  std::thread m_thread;
};

/// Makes the bus notice the end of a closed connection, whose socket GLib leaves open, and waits until it
/// has: until then, the names of the connection are taken.
void Abandon(GDBusConnection* closed, GDBusConnection* other) {
  constexpr int kMostLooks = 1000;
  Cut(closed);
  for (int looks = 0; looks < kMostLooks && HasOwner(other, g_dbus_connection_get_unique_name(closed));
       ++looks) {
    g_usleep(1000);
  }
}

}  // namespace

ServiceBus::ServiceBus(Events events) : m_events(std::move(events)) {}

ServiceBus::~ServiceBus() {
  m_return.reset();
  if (m_connection != nullptr) {
    // What was sent last shall arrive, unless the bus does not take it. The name goes with the connection:
    // GLib would give it up by a call, and complain on the standard error if the bus ended meanwhile.
    const Deadline deadline(m_connection.get(), kTimeToTakeTheLast);
    m_closedHandler.reset();
    m_intake.reset();
    g_dbus_connection_flush_sync(m_connection.get(), nullptr, nullptr);
    Close(m_connection.get());
    m_nameId.reset();
  }
  Release();
}

bool ServiceBus::Connect() {
  OwnedError error;
  OwnedObject<GDBusConnection> connection = OpenConnection(error.Out());
  if (connection == nullptr) {
    MWP_LOG(MWP_LOG_ERROR, "there is no session bus to serve: %s", error->message);
    return false;
  }
  Use(std::move(connection));
  return true;
}

void ServiceBus::Use(OwnedObject<GDBusConnection> connection) {
  m_connection = std::move(connection);
  m_closedHandler = OwnedHandler(G_OBJECT(m_connection.get()),
                                 g_signal_connect(m_connection.get(), "closed", G_CALLBACK(OnClosed), this));
  m_sendQueue.emplace(m_connection.get());
  m_intake.emplace(m_connection.get(), *m_sendQueue);
}

void ServiceBus::Release() {
  m_intake.reset();
  m_sendQueue.reset();
  m_closedHandler.reset();
  m_connection.reset();
}

bool ServiceBus::ConnectAgain() {
  OwnedObject<GDBusConnection> connection = OpenConnection(nullptr);
  if (connection == nullptr) {
    return false;
  }
  Abandon(m_connection.get(), connection.get());
  Release();
  Use(std::move(connection));
  for (const auto& [skeleton, path] : std::exchange(m_exported, {})) {
    g_dbus_interface_skeleton_unexport(skeleton);
    if (!Export(skeleton, path)) {
      return false;
    }
  }
  return true;
}

bool ServiceBus::Export(GDBusInterfaceSkeleton* skeleton, const char* path) {
  OwnedError error;
  if (g_dbus_interface_skeleton_export(skeleton, m_connection.get(), path, error.Out()) == FALSE) {
    MWP_LOG(MWP_LOG_ERROR, "%s cannot be exported: %s", path, error->message);
    return false;
  }
  m_exported.emplace_back(skeleton, path);
  return true;
}

void ServiceBus::OwnName() {
  m_nameId = OwnedNameId(g_bus_own_name_on_connection(m_connection.get(), kServiceName,
                                                      G_BUS_NAME_OWNER_FLAGS_DO_NOT_QUEUE, OnNameAcquired,
                                                      OnNameLost, this, nullptr));
}

void ServiceBus::EmitSignal(const std::string& name, GVariant* tuple) {
  const OwnedVariant values = NewRef(tuple);
  if (name.size() > kLongestName || g_dbus_is_member_name(name.c_str()) == FALSE) {
    throw std::invalid_argument(Quote(name) + " cannot be the name of a signal");
  }
  g_dbus_connection_emit_signal(m_connection.get(), nullptr, kServicePath, kServiceInterface, name.c_str(),
                                values.get(), nullptr);
}

void ServiceBus::LeaveFor(unsigned milliseconds) {
  m_return.reset();
  GiveUpName();
  m_return = OwnedSourceId(g_timeout_add(
      milliseconds,
      [](gpointer self) -> gboolean {
        auto* const bus = static_cast<ServiceBus*>(self);
        bus->m_return.release();
        bus->OwnName();
        return G_SOURCE_REMOVE;
      },
      this));
}

void ServiceBus::GiveUpName() {
  m_ownsName = false;
  if (m_nameId) {
    m_intake.reset();  // the bus's answer, which this waits for, comes behind the calls
    m_nameId.reset();
    m_intake.emplace(m_connection.get(), *m_sendQueue);
  }
}

void ServiceBus::OnNameAcquired(GDBusConnection*, const gchar*, gpointer self) {
  auto* const bus = static_cast<ServiceBus*>(self);
  bus->m_ownsName = true;
  bus->m_events.onOwned();
}

void ServiceBus::OnNameLost(GDBusConnection* connection, const gchar*, gpointer self) {
  // Of a closed connection, OnClosed hears as well.
  if (connection != nullptr && g_dbus_connection_is_closed(connection) == FALSE) {
    static_cast<ServiceBus*>(self)->m_events.onLost(false);
  }
}

void ServiceBus::OnClosed(GDBusConnection*, gboolean, GError*, gpointer self) {
  static_cast<ServiceBus*>(self)->ReturnOrEnd();
}

void ServiceBus::ReturnOrEnd() {
  const bool hasLeft = static_cast<bool>(m_return);
  m_intake.reset();
  m_nameId.reset();
  if (!ConnectAgain()) {
    m_events.onLost(true);
    return;
  }
  m_ownsName = false;
  MWP_LOG(MWP_LOG_WARNING, "the connection to the session bus was lost; there is a new one");
  if (!hasLeft) {
    OwnName();
  }
}

}  // namespace btservice
