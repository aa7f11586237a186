#include "tests/service/running_service.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

#include "support/GlibHelpers.h"
#include "support/InterfaceDescription.h"

namespace btservice {

OwnedObject<GDBusConnection> ConnectToBus() {
  OwnedError error;
  OwnedObject<GDBusConnection> connection(g_dbus_connection_new_for_address_sync(
      std::getenv("DBUS_SESSION_BUS_ADDRESS"),
      static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                        G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
      nullptr, nullptr, error.Out()));
  bttest::ThrowIfSet(error, "connecting to the bus");
  return connection;
}

RunningService::RunningService(const std::vector<std::string>& options, Begin begin,
                               long mostBytesOfAConnection)
    : m_bus("", mostBytesOfAConnection) {
  m_command.insert(m_command.end(), options.begin(), options.end());
  m_connection = ConnectToBus();
  m_subscription = OwnedSubscription(
      m_connection.get(),
      g_dbus_connection_signal_subscribe(m_connection.get(), kServiceName, kServiceName, nullptr, nullptr,
                                         nullptr, G_DBUS_SIGNAL_FLAGS_NONE, OnSignal, this, nullptr));
  // GLib does not wait until the bus has the subscription. The bus answers in order: then it has.
  IsOwned();
  if (begin == Begin::NOW) {
    Start();
  }
}

void RunningService::Start() {
  m_process = std::make_unique<bttest::ChildProcess>(m_command);
  if (!bttest::RunUntil([this] { return IsOwned() || !m_process->IsAlive(); }) || !m_process->IsAlive()) {
    throw std::runtime_error("btservice did not come up: " + m_process->Errors());
  }
}

bool RunningService::IsOwned() {
  const OwnedVariant reply(g_dbus_connection_call_sync(
      m_connection.get(), "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "NameHasOwner",
      g_variant_new("(s)", kServiceName), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr));
  gboolean owned = FALSE;
  if (reply != nullptr) {
    g_variant_get(reply.get(), "(b)", &owned);
  }
  return owned != FALSE;
}

std::string RunningService::Owner() {
  const OwnedVariant reply(g_dbus_connection_call_sync(
      m_connection.get(), "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetNameOwner",
      g_variant_new("(s)", kServiceName), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr));
  const gchar* owner = "";
  if (reply != nullptr) {
    g_variant_get(reply.get(), "(&s)", &owner);
  }
  return owner;
}

OwnedVariant RunningService::Call(const std::string& method, GVariant* arguments) {
  return CallOn(kServicePath, kServiceName, method, arguments);
}

OwnedVariant RunningService::CallOn(const char* path, const char* interface, const std::string& method,
                                    GVariant* arguments) {
  OwnedError error;
  OwnedVariant reply(g_dbus_connection_call_sync(m_connection.get(), kServiceName, path, interface,
                                                 method.c_str(), arguments, nullptr,
                                                 G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, error.Out()));
  bttest::ThrowIfSet(error, method);
  return reply;
}

std::string RunningService::Ask(const std::string& method, GVariant* arguments) {
  return bttest::ToText(Call(method, arguments).get());
}

OwnedVariant RunningService::CallControl(const std::string& control, GVariant* arguments) {
  return CallOn(kControlPath, bttest::InterfaceOfControl(control).name.c_str(), control, arguments);
}

std::string RunningService::Control(const std::string& control, GVariant* arguments) {
  return bttest::ToText(CallControl(control, arguments).get());
}

bool RunningService::WaitFor(const std::string& beginning) {
  return bttest::RunUntil([&] {
    return std::any_of(m_signals.begin(), m_signals.end(),
                       [&](const std::string& text) { return text.rfind(beginning, 0) == 0; });
  });
}

void RunningService::ForgetSignals() {
  IsOwned();  // what the bus has sent before its answer has arrived, too
  bttest::RunPending();
  m_signals.clear();
}

void RunningService::OnSignal(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* name,
                              GVariant* arguments, gpointer self) {
  static_cast<RunningService*>(self)->m_signals.push_back(std::string(name) + " " +
                                                          bttest::ToText(arguments));
}

}  // namespace btservice
