#ifndef SERVICE_APP_SERVICEBUS_H
#define SERVICE_APP_SERVICEBUS_H

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gio/gio.h>

#include "glib/OwnedBus.h"
#include "service/app/CallIntake.h"
#include "service/app/SendQueue.h"

namespace btservice {

/// The service's place on the session bus: its objects first, then its name. It takes that place again if
/// only the connection is lost: GLib closes one that brings a message which it cannot decode although the bus
/// lets it pass, and that must not end the service.
class ServiceBus {
 public:
  /// What can become of it. onLost is called with false if another owns the name, with true if the bus is
  /// gone. Having left the bus for a while ends with onOwned.
  struct Events {
    std::function<void()> onOwned;
    std::function<void(bool busIsGone)> onLost;
  };

  explicit ServiceBus(Events events);
  ~ServiceBus();
  ServiceBus(const ServiceBus&) = delete;
  ServiceBus& operator=(const ServiceBus&) = delete;

  /// False, with an error in the log, if there is no bus.
  bool Connect();
  /// Makes an object visible. The skeleton and the path must outlive this.
  bool Export(GDBusInterfaceSkeleton* skeleton, const char* path);
  /// Asks for the name. What comes of it is one of the events.
  void OwnName();

  /// Whether the name is owned, or was until the bus went away.
  bool OwnsName() const { return m_ownsName; }

  /// Sends a signal of the service's interface with a tuple, which may be floating, of any types. Throws
  /// std::invalid_argument.
  void EmitSignal(const std::string& name, GVariant* tuple);
  /// Whether the bus takes what is sent, so that more may follow. Whoever sends without being asked has to
  /// ask.
  bool HasRoom() const { return !m_sendQueue || m_sendQueue->HasRoom(); }
  /// Gives up the name and takes it again after some time.
  void LeaveFor(unsigned milliseconds);

 private:
  static void OnNameAcquired(GDBusConnection* connection, const gchar* name, gpointer self);
  static void OnClosed(GDBusConnection* connection, gboolean byPeer, GError* error, gpointer self);
  void Use(OwnedObject<GDBusConnection> connection);
  void Release();
  /// Does with a new connection what was done with the one that is closed. False if the bus is gone, too.
  bool ConnectAgain();
  void ReturnOrEnd();
  static void OnNameLost(GDBusConnection* connection, const gchar* name, gpointer self);
  void GiveUpName();

  Events m_events;
  OwnedObject<GDBusConnection> m_connection;
  std::vector<std::pair<GDBusInterfaceSkeleton*, const char*>> m_exported;  ///< with their paths
  OwnedHandler m_closedHandler;
  std::optional<SendQueue> m_sendQueue;
  std::optional<CallIntake> m_intake;
  OwnedNameId m_nameId;
  OwnedSourceId m_return;  ///< while it has left for some time
  bool m_ownsName = false;
};

}  // namespace btservice

#endif
