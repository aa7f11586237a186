#include "tests/bluez/FakeDaemons.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

#include "support/GlibHelpers.h"
#include "support/Waiting.h"

namespace bttest {
namespace {

OwnedObject<GDBusConnection> ConnectToTheSystemBus() {
  OwnedError error;
  OwnedObject<GDBusConnection> connection(g_dbus_connection_new_for_address_sync(
      std::getenv("DBUS_SYSTEM_BUS_ADDRESS"),
      static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                        G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
      nullptr, nullptr, error.Out()));
  ThrowIfSet(error, "connecting to the system bus");
  return connection;
}

/// The texts in a reply of the type (as).
std::vector<std::string> TextsOf(const OwnedVariant& reply) {
  const OwnedVariant array(g_variant_get_child_value(reply.get(), 0));
  std::vector<std::string> texts;
  for (gsize i = 0; i < g_variant_n_children(array.get()); ++i) {
    texts.emplace_back(
        g_variant_get_string(OwnedVariant(g_variant_get_child_value(array.get(), i)).get(), nullptr));
  }
  return texts;
}

}  // namespace

SystemBusDaemon::SystemBusDaemon() {
  setenv("DBUS_SYSTEM_BUS_ADDRESS", m_daemon.Address().c_str(), 1);
  unsetenv("DBUS_SESSION_BUS_ADDRESS");
}

SystemBusDaemon::~SystemBusDaemon() { unsetenv("DBUS_SYSTEM_BUS_ADDRESS"); }

FakeDaemons::FakeDaemons() : m_process({BTTEST_FAKES}), m_connection(ConnectToTheSystemBus()) {
  if (!m_process.WaitForOutput("ready")) {
    throw std::runtime_error("the fake daemons do not start: " + m_process.Errors());
  }
}

OwnedVariant FakeDaemons::Control(const char* method, GVariant* arguments) {
  OwnedError error;
  OwnedVariant reply(g_dbus_connection_call_sync(
      m_connection.get(), "org.bluez", "/test/fake_bluez", "test.FakeBluez", method, arguments, nullptr,
      G_DBUS_CALL_FLAGS_NONE, static_cast<int>(kBound.count()), nullptr, error.Out()));
  ThrowIfSet(error, std::string("the fake's ") + method);
  return reply;
}

void FakeDaemons::AddAdapter(const std::string& name, const std::string& address, bool powered) {
  Control("AddAdapter",
          g_variant_new("(ssb)", name.c_str(), address.c_str(), static_cast<gboolean>(powered)));
}

void FakeDaemons::RemoveAdapter(const std::string& name) {
  Control("RemoveAdapter", g_variant_new("(s)", name.c_str()));
}

void FakeDaemons::ChangeAdapter(const std::string& name, const std::string& property, GVariant* value) {
  Control("ChangeAdapter", g_variant_new("(ssv)", name.c_str(), property.c_str(), value));
}

void FakeDaemons::PutInReach(const std::string& address, const std::string& name) {
  Control("PutInReach", g_variant_new("(ss)", address.c_str(), name.c_str()));
}

void FakeDaemons::TakeAway(const std::string& address) {
  Control("TakeAway", g_variant_new("(s)", address.c_str()));
}

void FakeDaemons::Hear(const std::string& address) { Control("Hear", g_variant_new("(s)", address.c_str())); }

void FakeDaemons::NameDevice(const std::string& address, const std::string& name) {
  Control("NameDevice", g_variant_new("(ss)", address.c_str(), name.c_str()));
}

void FakeDaemons::ForgetDevices() { Control("ForgetDevices"); }

void FakeDaemons::SetPaired(const std::string& address, bool paired) {
  Control("SetPaired", g_variant_new("(sb)", address.c_str(), static_cast<gboolean>(paired)));
}

std::vector<std::string> FakeDaemons::Devices() { return TextsOf(Control("Devices")); }

std::string FakeDaemons::Filter() { return ToText(Control("Filter").get()); }

void FakeDaemons::Refuse(const std::string& method, const std::string& error, const std::string& message) {
  Control("Refuse", g_variant_new("(sss)", method.c_str(), error.c_str(), message.c_str()));
}

void FakeDaemons::Hang(const std::string& method) { Control("Hang", g_variant_new("(s)", method.c_str())); }

void FakeDaemons::AnswerWith(const std::string& method, GVariant* tuple) {
  Control("AnswerWith", g_variant_new("(sv)", method.c_str(), tuple));
}

void FakeDaemons::Behave() { Control("Behave"); }

void FakeDaemons::Emit(const std::string& path, const std::string& interface, const std::string& signal,
                       GVariant* tuple) {
  Control("Emit", g_variant_new("(ossv)", path.c_str(), interface.c_str(), signal.c_str(), tuple));
}

std::vector<std::string> FakeDaemons::Calls() { return TextsOf(Control("Calls")); }

long FakeDaemons::CountCalls(const std::string& method) {
  const std::vector<std::string> calls = Calls();
  return std::count(calls.begin(), calls.end(), method);
}

}  // namespace bttest
