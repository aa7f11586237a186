#include "fakes/FakeDevice.h"

#include <algorithm>

namespace fakes {
namespace {

std::string PathOf(const std::string& adapterPath, std::string address) {
  std::replace(address.begin(), address.end(), ':', '_');
  return adapterPath + "/dev_" + address;
}

}  // namespace

FakeDevice::FakeDevice(GDBusObjectManagerServer* manager, const std::string& adapterPath,
                       const std::string& address, const std::string& name)
    : m_manager(manager), m_path(PathOf(adapterPath, address)), m_device(fakes_device1_skeleton_new()) {
  const gchar* const none[] = {nullptr};
  g_object_set(m_device.get(), "address", address.c_str(), "address-type", "public", "alias", address.c_str(),
               "class", 0x5A020CU, "paired", FALSE, "bonded", FALSE, "trusted", FALSE, "connected", FALSE,
               "rssi", -60, "uuids", none, "adapter", adapterPath.c_str(), nullptr);
  if (!name.empty()) {
    SetName(name);
  }
  const OwnedObject<GDBusObjectSkeleton> object(g_dbus_object_skeleton_new(m_path.c_str()));
  g_dbus_object_skeleton_add_interface(object.get(), G_DBUS_INTERFACE_SKELETON(m_device.get()));
  g_dbus_object_manager_server_export(manager, object.get());
}

FakeDevice::~FakeDevice() { g_dbus_object_manager_server_unexport(m_manager, m_path.c_str()); }

void FakeDevice::Hear() {
  fakes_device1_set_rssi(m_device.get(), static_cast<gint16>(fakes_device1_get_rssi(m_device.get()) + 1));
}

void FakeDevice::SetName(const std::string& name) {
  g_object_set(m_device.get(), "name", name.c_str(), "alias", name.c_str(), nullptr);
}

void FakeDevice::SetPaired(bool paired) {
  const gboolean value = paired ? TRUE : FALSE;
  g_object_set(m_device.get(), "paired", value, "bonded", value, nullptr);
}

}  // namespace fakes
