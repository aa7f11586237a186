#ifndef SERVICE_APP_SERVICEBUS_H
#define SERVICE_APP_SERVICEBUS_H

#include <functional>

#include <bt_dbus.h>

namespace btservice {

/// The service's place on the session bus: its object first, then its name.
class ServiceBus {
 public:
  /// What can become of it. onLost is called with false if another owns the name, with true if the bus is
  /// gone.
  struct Events {
    std::function<void()> onOwned;
    std::function<void(bool busIsGone)> onLost;
  };

  explicit ServiceBus(Events events);
  ~ServiceBus();
  ServiceBus(const ServiceBus&) = delete;
  ServiceBus& operator=(const ServiceBus&) = delete;

  /// Exports the object and asks for the name. False, with an error in the log, if there is no bus.
  bool Open();
  ComZelkLinuxBluetooth* Skeleton() const { return m_skeleton; }

 private:
  static void OnNameAcquired(GDBusConnection* connection, const gchar* name, gpointer self);
  static void OnNameLost(GDBusConnection* connection, const gchar* name, gpointer self);

  Events m_events;
  ComZelkLinuxBluetooth* m_skeleton;
  GDBusConnection* m_connection = nullptr;
  guint m_nameId = 0;
};

}  // namespace btservice

#endif
