#ifndef SERVICE_BLUEZ_BUS_SYSTEMBUS_H
#define SERVICE_BLUEZ_BUS_SYSTEMBUS_H

#include <memory>

#include "glib/OwnedBus.h"
#include "service/time/Notifier.h"
#include "service/time/Timer.h"

namespace btservice::bluez {

/// The connection to the system bus, on which the daemons of Linux are. It comes, goes and is tried again by
/// itself. Nothing here waits: GLib connects on a thread of its own. Used on the thread of the main loop,
/// where the callbacks come, too.
class SystemBus {
 public:
  explicit SystemBus(Scheduler& scheduler);
  ~SystemBus();
  SystemBus(const SystemBus&) = delete;
  SystemBus& operator=(const SystemBus&) = delete;

  /// Begins to connect, to the bus that DBUS_SYSTEM_BUS_ADDRESS names or else that of the system. Called
  /// once. A bus that is not there is a warning in the log, once, and tried again for ever: at first after
  /// half a second, later every 8 seconds.
  void Connect();
  /// Null while there is no connection.
  GDBusConnection* Connection() const { return m_connection.get(); }

  Notifier<> onConnected;
  Notifier<> onLost;  ///< the connection is gone: Connection() is null already

 private:
  struct Attempt;
  static void OnOpened(GObject* source, GAsyncResult* result, gpointer attempt);
  static void OnClosed(GDBusConnection* connection, gboolean byPeer, GError* error, gpointer self);
  void Use(OwnedObject<GDBusConnection> connection);
  void TryAgainLater(const char* problem);

  Timer m_retry;
  Milliseconds m_pause;
  bool m_wasReported = false;  ///< that there is no bus
  OwnedObject<GCancellable> m_cancellable;
  OwnedObject<GDBusConnection> m_connection;
  OwnedHandler m_closedHandler;
};

}  // namespace btservice::bluez

#endif
