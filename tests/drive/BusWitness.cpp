#include "drive/BusWitness.h"

#include "contract/ValueText.h"
#include "support/GlibHelpers.h"
#include "tests/service/running_service.h"

namespace btservice {
namespace {

using bttest::ValueText;

std::string TextOf(GVariant* value) {
  switch (g_variant_classify(value)) {
    case G_VARIANT_CLASS_BYTE:
      return ValueText::Of(g_variant_get_byte(value));
    case G_VARIANT_CLASS_BOOLEAN:
      return ValueText::Of(g_variant_get_boolean(value));
    case G_VARIANT_CLASS_INT32:
      return ValueText::Of(g_variant_get_int32(value));
    case G_VARIANT_CLASS_STRING:
      return ValueText::Of(std::string(g_variant_get_string(value, nullptr)));
    case G_VARIANT_CLASS_VARIANT: {
      const OwnedVariant bytes(g_variant_get_variant(value));
      gsize size = 0;
      const auto* const data = static_cast<const char*>(g_variant_get_fixed_array(bytes.get(), &size, 1));
      return ValueText::Of(std::string(data, size));
    }
    default:
      return bttest::ToText(value);
  }
}

std::string OwnerOf(GDBusConnection* connection) {
  const OwnedVariant reply(g_dbus_connection_call_sync(
      connection, "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetNameOwner",
      g_variant_new("(s)", kServiceName), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr));
  const gchar* owner = "";
  if (reply != nullptr) {
    g_variant_get(reply.get(), "(&s)", &owner);
  }
  return owner;
}

}  // namespace

BusWitness::BusWitness(GDBusConnection* connection)
    : m_ownerSubscription(
          connection, g_dbus_connection_signal_subscribe(
                          connection, "org.freedesktop.DBus", "org.freedesktop.DBus", "NameOwnerChanged",
                          nullptr, kServiceName, G_DBUS_SIGNAL_FLAGS_NONE, OnOwnerChanged, this, nullptr)),
      // Of any sender: who has the name is looked at here.
      m_signalSubscription(connection, g_dbus_connection_signal_subscribe(
                                           connection, nullptr, kServiceName, nullptr, kServicePath, nullptr,
                                           G_DBUS_SIGNAL_FLAGS_NONE, OnSignal, this, nullptr)) {
  // Not before the subscription: then no change of owner is missed.
  m_owner = OwnerOf(connection);
}

void BusWitness::OnOwnerChanged(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*,
                                GVariant* arguments, gpointer self) {
  const gchar* owner = nullptr;
  g_variant_get(arguments, "(&s&s&s)", nullptr, nullptr, &owner);
  auto* const witness = static_cast<BusWitness*>(self);
  witness->m_owner = owner;
  witness->m_owners += witness->m_owner.empty() ? 0 : 1;
}

void BusWitness::OnSignal(GDBusConnection*, const gchar* sender, const gchar*, const gchar*,
                          const gchar* name, GVariant* arguments, gpointer self) {
  auto* const witness = static_cast<BusWitness*>(self);
  if (witness->m_owner != sender) {
    return;
  }
  std::vector<std::string> values;
  for (gsize i = 0; i < g_variant_n_children(arguments); ++i) {
    values.push_back(TextOf(OwnedVariant(g_variant_get_child_value(arguments, i)).get()));
  }
  witness->m_signals.push_back(std::string(name) + "(" + ValueText::Joined(values) + ")");
}

}  // namespace btservice
