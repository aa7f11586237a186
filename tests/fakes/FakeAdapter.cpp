#include "fakes/FakeAdapter.h"

#include <stdexcept>

namespace fakes {

FakeAdapter::FakeAdapter(GDBusObjectManagerServer* manager, const std::string& name,
                         const std::string& address, bool powered)
    : m_manager(manager), m_path("/org/bluez/" + name), m_adapter(fakes_adapter1_skeleton_new()) {
  const gchar* const uuids[] = {"0000110e-0000-1000-8000-00805f9b34fb", nullptr};
  g_object_set(m_adapter.get(), "address", address.c_str(), "address-type", "public", "name", "fake", "alias",
               "fake", "class", 0x340408U, "powered", powered ? TRUE : FALSE, "discoverable", FALSE,
               "discoverable-timeout", 180U, "pairable", TRUE, "discovering", FALSE, "uuids", uuids,
               "modalias", "usb:v1D6Bp0246d0542", nullptr);
  g_signal_connect(m_adapter.get(), "notify::powered", G_CALLBACK(&FakeAdapter::OnPowered), this);
  const OwnedObject<GDBusObjectSkeleton> object(g_dbus_object_skeleton_new(m_path.c_str()));
  g_dbus_object_skeleton_add_interface(object.get(), G_DBUS_INTERFACE_SKELETON(m_adapter.get()));
  g_dbus_object_manager_server_export(manager, object.get());
}

FakeAdapter::~FakeAdapter() { g_dbus_object_manager_server_unexport(m_manager, m_path.c_str()); }

void FakeAdapter::OnPowered(FakesAdapter1* adapter, GParamSpec*, gpointer) {
  if (fakes_adapter1_get_powered(adapter) == FALSE) {
    g_object_set(adapter, "discoverable", FALSE, "discovering", FALSE, nullptr);
  }
}

void FakeAdapter::Change(const std::string& property, GVariant* value) {
  // GLib's names of the properties, as those of the bus: "DiscoverableTimeout" is "discoverable-timeout".
  std::string name;
  for (const char letter : property) {
    if (g_ascii_isupper(letter) && !name.empty() && property != "UUIDs") {
      name += '-';
    }
    name += g_ascii_tolower(letter);
  }
  GParamSpec* const spec = g_object_class_find_property(G_OBJECT_GET_CLASS(m_adapter.get()), name.c_str());
  GValue converted = G_VALUE_INIT;
  g_dbus_gvariant_to_gvalue(value, &converted);
  const bool fits = spec != nullptr && G_VALUE_TYPE(&converted) == spec->value_type;
  if (fits) {
    g_object_set_property(G_OBJECT(m_adapter.get()), name.c_str(), &converted);
  }
  g_value_unset(&converted);
  if (!fits) {
    throw std::invalid_argument("an adapter has no such property: " + property);
  }
}

}  // namespace fakes
