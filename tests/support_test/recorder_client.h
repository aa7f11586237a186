#ifndef TESTS_SUPPORT_TEST_RECORDER_CLIENT_H
#define TESTS_SUPPORT_TEST_RECORDER_CLIENT_H

#include <string>
#include <vector>

#include "protocol/BusNames.h"
#include "support/GlibHelpers.h"

namespace bttest {

/// A caller of the Bluetooth service that uses neither the library nor the generated bindings.
class Client {
 public:
  Client() {
    OwnedError error;
    m_connection.reset(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, error.Out()));
    ThrowIfSet(error, "connecting");
    g_dbus_connection_set_exit_on_close(m_connection.get(), FALSE);
  }

  OwnedVariant Call(const char* method, GVariant* arguments, GError** error, const char* interface = kName,
                    const char* name = kName, const char* path = kPath) {
    return OwnedVariant(g_dbus_connection_call_sync(m_connection.get(), name, path, interface, method,
                                                    arguments, nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr,
                                                    error));
  }

  /// The answer as text.
  std::string Answer(const char* method, GVariant* arguments = nullptr) {
    OwnedError error;
    const OwnedVariant reply = Call(method, arguments, error.Out());
    ThrowIfSet(error, method);
    return ToText(reply.get());
  }

  /// The D-Bus name of the error that the call is answered with; empty if it is not.
  std::string Error(const char* method, GVariant* arguments = nullptr) {
    OwnedError error;
    const OwnedVariant reply = Call(method, arguments, error.Out());
    const OwnedText name(error ? g_dbus_error_get_remote_error(error.get()) : nullptr);
    return name != nullptr ? name.get() : "";
  }

  /// Adds a text for each signal of the service to seen, while the default main context is iterated.
  void Listen(std::vector<std::string>& seen) {
    g_dbus_connection_signal_subscribe(
        m_connection.get(), kName, kName, nullptr, kPath, nullptr, G_DBUS_SIGNAL_FLAGS_NONE,
        [](GDBusConnection*, const char*, const char*, const char*, const char* signal, GVariant* arguments,
           gpointer seen) {
          static_cast<std::vector<std::string>*>(seen)->push_back(signal + ToText(arguments));
        },
        &seen, nullptr);
    // GLib does not wait until the bus has the subscription. The bus answers in order: then it has.
    Call("GetId", nullptr, nullptr, "org.freedesktop.DBus", "org.freedesktop.DBus", "/org/freedesktop/DBus");
  }

 private:
  static constexpr const char* kName = kServiceName;
  static constexpr const char* kPath = kServicePath;

  OwnedObject<GDBusConnection> m_connection;
};

}  // namespace bttest

#endif
