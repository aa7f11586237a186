// The process must not end with its session bus: what GLib does by default, and how it is kept from it.

#include "ipc/SessionBusExit.h"

#include <sys/stat.h>
#include <unistd.h>

#include "glib/Owned.h"

namespace {

/// Whether GLib knows the address of the session bus. If it does not, it runs dbus-launch whenever it is
/// asked for the bus, be the question cancelled or not, and that would be one more attempt to connect.
bool IsSessionBusAddressKnown() {
  const char* const address = g_getenv("DBUS_SESSION_BUS_ADDRESS");
  if (address != nullptr) {
    return g_strstr_len(address, -1, "autolaunch:") == nullptr;  // it may be one of several
  }
  const OwnedText socket(g_build_filename(g_get_user_runtime_dir(), "bus", nullptr));
  struct stat status = {};
  return stat(socket.get(), &status) == 0 && S_ISSOCK(status.st_mode) && status.st_uid == geteuid();
}

/// The process's shared connection to the session bus if it has one, else null. A question that is cancelled
/// from the start is answered with the connection that is there, and opens none.
OwnedObject<GDBusConnection> ExistingSessionBus() {
  if (!IsSessionBusAddressKnown()) {
    return nullptr;
  }
  const OwnedObject<GCancellable> cancelled(g_cancellable_new());
  g_cancellable_cancel(cancelled.get());
  return OwnedObject<GDBusConnection>(g_bus_get_sync(G_BUS_TYPE_SESSION, cancelled.get(), nullptr));
}

/// Runs before GLib's own handler of the signal "closed" of any connection, on the thread that emits it.
/// Returns TRUE: the hook stays.
gboolean OnAnyConnectionClosing(GSignalInvocationHint*, guint, const GValue* arguments, gpointer) {
  auto* const connection = static_cast<GDBusConnection*>(g_value_get_object(&arguments[0]));
  if (g_dbus_connection_get_exit_on_close(connection) && ExistingSessionBus().get() == connection) {
    g_dbus_connection_set_exit_on_close(connection, FALSE);
  }
  return TRUE;
}

/// The id of the signal "closed" of GDBusConnection.
guint ClosedSignal() {
  // The signal is there once the class is. GLib keeps the class for good.
  static gpointer const connectionClass = g_type_class_ref(G_TYPE_DBUS_CONNECTION);
  return g_signal_lookup("closed", G_TYPE_FROM_CLASS(connectionClass));
}

}  // namespace

SessionBusExit::SessionBusExit()
    : m_hook(g_signal_add_emission_hook(ClosedSignal(), 0, OnAnyConnectionClosing, nullptr, nullptr)) {}

SessionBusExit::~SessionBusExit() { g_signal_remove_emission_hook(ClosedSignal(), m_hook); }

void SessionBusExit::SwitchOff(ComZelkLinuxBluetooth* proxy) {
  if (proxy != nullptr) {
    g_dbus_connection_set_exit_on_close(g_dbus_proxy_get_connection(G_DBUS_PROXY(proxy)), FALSE);
  } else if (const auto connection = ExistingSessionBus()) {
    g_dbus_connection_set_exit_on_close(connection.get(), FALSE);
  }
}
