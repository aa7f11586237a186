#ifndef SERVICE_APP_EXPORTED_H
#define SERVICE_APP_EXPORTED_H

#include <gio/gio.h>

#include "glib/Owned.h"

namespace btservice {

/// Owns a skeleton: the object that answers the calls of one interface. It is taken off the bus, if it is on
/// it, and released with this. Interface is a generated type, such as ComZelkLinuxBluetooth.
template <typename Interface>
class Exported {
 public:
  /// Takes over the reference of the caller. Nothing is on the bus yet: that is up to ServiceBus::Export.
  explicit Exported(Interface* skeleton) : m_skeleton(skeleton) {}
  ~Exported() {
    if (g_dbus_interface_skeleton_get_connection(Base()) != nullptr) {
      g_dbus_interface_skeleton_unexport(Base());
    }
  }
  Exported(const Exported&) = delete;
  Exported& operator=(const Exported&) = delete;

  Interface* Get() const { return m_skeleton.get(); }
  GDBusInterfaceSkeleton* Base() const { return G_DBUS_INTERFACE_SKELETON(m_skeleton.get()); }

 private:
  OwnedObject<Interface> m_skeleton;
};

}  // namespace btservice

#endif
