#include "fakes/FakeAdapter.h"

#include <iterator>
#include <stdexcept>

namespace fakes {

FakeAdapter::FakeAdapter(GDBusObjectManagerServer* manager, const Air& air, const std::string& name,
                         const std::string& address, bool powered)
    : m_manager(manager), m_air(air), m_path("/org/bluez/" + name), m_adapter(fakes_adapter1_skeleton_new()) {
  const gchar* const uuids[] = {"0000110e-0000-1000-8000-00805f9b34fb", nullptr};
  g_object_set(m_adapter.get(), "address", address.c_str(), "address-type", "public", "name", "fake", "alias",
               "fake", "class", 0x340408U, "powered", powered ? TRUE : FALSE, "discoverable", FALSE,
               "discoverable-timeout", 180U, "pairable", TRUE, "discovering", FALSE, "uuids", uuids,
               "modalias", "usb:v1D6Bp0246d0542", nullptr);
  g_signal_connect(m_adapter.get(), "notify::powered", G_CALLBACK(&FakeAdapter::OnPowered), this);
  BindMethods();
  const OwnedObject<GDBusObjectSkeleton> object(g_dbus_object_skeleton_new(m_path.c_str()));
  g_dbus_object_skeleton_add_interface(object.get(), G_DBUS_INTERFACE_SKELETON(m_adapter.get()));
  g_dbus_object_manager_server_export(manager, object.get());
}

FakeAdapter::~FakeAdapter() {
  m_devices.clear();
  g_dbus_object_manager_server_unexport(m_manager, m_path.c_str());
}

void FakeAdapter::BindMethods() {
  g_signal_connect(
      m_adapter.get(), "handle-start-discovery",
      G_CALLBACK(+[](FakesAdapter1* adapter, GDBusMethodInvocation* call, gpointer self) -> gboolean {
        if (fakes_adapter1_get_powered(adapter) == FALSE) {
          g_dbus_method_invocation_return_dbus_error(call, "org.bluez.Error.NotReady", "Resource Not Ready");
        } else if (fakes_adapter1_get_discovering(adapter) != FALSE) {
          g_dbus_method_invocation_return_dbus_error(call, "org.bluez.Error.InProgress", "In Progress");
        } else {
          fakes_adapter1_complete_start_discovery(adapter, call);
          fakes_adapter1_set_discovering(adapter, TRUE);
          static_cast<FakeAdapter*>(self)->Inquire();
        }
        return TRUE;
      }),
      this);
  g_signal_connect(m_adapter.get(), "handle-stop-discovery",
                   G_CALLBACK(+[](FakesAdapter1* adapter, GDBusMethodInvocation* call, gpointer) -> gboolean {
                     if (fakes_adapter1_get_discovering(adapter) == FALSE) {
                       g_dbus_method_invocation_return_dbus_error(call, "org.bluez.Error.Failed",
                                                                  "No discovery started");
                     } else {
                       fakes_adapter1_set_discovering(adapter, FALSE);
                       fakes_adapter1_complete_stop_discovery(adapter, call);
                     }
                     return TRUE;
                   }),
                   nullptr);
  g_signal_connect(m_adapter.get(), "handle-set-discovery-filter",
                   G_CALLBACK(+[](FakesAdapter1* adapter, GDBusMethodInvocation* call, GVariant* filter,
                                  gpointer self) -> gboolean {
                     static_cast<FakeAdapter*>(self)->m_filter = NewRef(filter);
                     fakes_adapter1_complete_set_discovery_filter(adapter, call);
                     return TRUE;
                   }),
                   this);
  g_signal_connect(m_adapter.get(), "handle-remove-device",
                   G_CALLBACK(+[](FakesAdapter1* adapter, GDBusMethodInvocation* call, const gchar* path,
                                  gpointer self) -> gboolean {
                     if (static_cast<FakeAdapter*>(self)->Remove(path)) {
                       fakes_adapter1_complete_remove_device(adapter, call);
                     } else {
                       g_dbus_method_invocation_return_dbus_error(call, "org.bluez.Error.DoesNotExist",
                                                                  "Does Not Exist");
                     }
                     return TRUE;
                   }),
                   this);
}

bool FakeAdapter::Fits(const std::string& address) const {
  const gchar* pattern = "";
  if (m_filter) {
    g_variant_lookup(m_filter.get(), "Pattern", "&s", &pattern);
  }
  return address.rfind(pattern, 0) == 0;
}

void FakeAdapter::Inquire() {
  if (fakes_adapter1_get_discovering(m_adapter.get()) == FALSE) {
    return;
  }
  for (const auto& [address, name] : m_air) {
    if (FakeDevice* const known = Find(address)) {
      known->Hear();
    } else if (Fits(address)) {
      m_devices[address] = std::make_unique<FakeDevice>(m_manager, m_path, address, name);
    }
  }
}

FakeDevice* FakeAdapter::Find(const std::string& address) {
  const auto found = m_devices.find(address);
  return found != m_devices.end() ? found->second.get() : nullptr;
}

void FakeAdapter::ForgetDevices() {
  for (auto device = m_devices.begin(); device != m_devices.end();) {
    device = device->second->IsPaired() ? std::next(device) : m_devices.erase(device);
  }
}

bool FakeAdapter::Remove(const std::string& path) {
  for (auto device = m_devices.begin(); device != m_devices.end(); ++device) {
    if (device->second->Path() == path) {
      m_devices.erase(device);
      return true;
    }
  }
  return false;
}

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
