#ifndef TESTS_SYSTEM_BUSPEER_H
#define TESTS_SYSTEM_BUSPEER_H

#include <string>

#include "protocol/BusNames.h"
#include "support/GlibHelpers.h"

namespace bttest {

/// One more participant of the test's bus, which is neither the library nor the service and exports nothing.
class BusPeer {
 public:
  explicit BusPeer(const std::string& busAddress) {
    OwnedError error;
    m_connection.reset(g_dbus_connection_new_for_address_sync(
        busAddress.c_str(),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, nullptr, error.Out()));
    ThrowIfSet(error, "connecting to the bus");
  }
  ~BusPeer() { g_dbus_connection_close_sync(m_connection.get(), nullptr, nullptr); }
  BusPeer(const BusPeer&) = delete;
  BusPeer& operator=(const BusPeer&) = delete;

  /// The unique name of who owns the service's name. Throws if nobody does.
  std::string ServiceOwner() const {
    const OwnedVariant reply = CallBus("GetNameOwner", g_variant_new("(s)", kServiceName));
    const char* owner = nullptr;
    g_variant_get(reply.get(), "(&s)", &owner);
    return owner;
  }

  /// Takes the service's name for this participant.
  void OwnServiceName() { CallBus("RequestName", g_variant_new("(su)", kServiceName, 0u)); }

 private:
  OwnedVariant CallBus(const char* method, GVariant* arguments) const {
    OwnedError error;
    OwnedVariant reply(g_dbus_connection_call_sync(
        m_connection.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method,
        arguments, nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, error.Out()));
    ThrowIfSet(error, method);
    return reply;
  }

  OwnedObject<GDBusConnection> m_connection;
};

}  // namespace bttest

#endif
