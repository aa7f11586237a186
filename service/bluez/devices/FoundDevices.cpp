#include "service/bluez/devices/FoundDevices.h"

#include <algorithm>

#include "service/bluez/BluezNames.h"
#include "service/stack/ReportedAddress.h"

namespace btservice::bluez {

FoundDevices::FoundDevices(StackContext& context, ObjectMirror& mirror, CurrentAdapter& adapter)
    : m_context(context), m_mirror(mirror), m_adapter(adapter) {
  m_mirror.Add(*this);
}

void FoundDevices::BeginSearch() {
  m_isSearching = true;
  for (Found& found : m_found) {
    found.isReported = false;
  }
}

std::list<FoundDevices::Found>::iterator FoundDevices::Place(const std::string& address) {
  return std::find_if(m_found.begin(), m_found.end(),
                      [&](const Found& found) { return SameAddress(found.address, address); });
}

std::optional<DeviceInfo> FoundDevices::Find(const std::string& address) const {
  const auto found = std::find_if(m_found.begin(), m_found.end(),
                                  [&](const Found& device) { return SameAddress(device.address, address); });
  if (found == m_found.end()) {
    return std::nullopt;
  }
  DeviceInfo info;
  info.address = found->address;
  info.name = found->name;
  return info;
}

void FoundDevices::OnAdded(const std::string& path, const std::string& interface) {
  if (interface != kDeviceInterface || !m_adapter.Has(path)) {
    return;
  }
  // A device that is there when the daemon comes was not heard of by that.
  if (const auto device = ReadDeviceNames(*m_mirror.Find(path, interface)); device && m_isSearching) {
    Take(*device);
  }
}

void FoundDevices::OnChanged(const std::string& path, const std::string& interface,
                             const std::set<std::string>& names) {
  if (interface != kDeviceInterface || !m_adapter.Has(path)) {
    return;
  }
  const auto device = ReadDeviceNames(*m_mirror.Find(path, interface));
  if (!device) {
    return;
  }
  if (m_isSearching && names.count("RSSI") != 0) {
    Take(*device);
  }
  if (names.count("Name") != 0) {
    TakeName(*device);
  }
}

void FoundDevices::Take(const DeviceNames& device) {
  auto found = Place(device.address);
  if (found == m_found.end()) {
    if (m_found.size() >= kMostDevices) {
      m_found.pop_front();
    }
    found = m_found.insert(m_found.end(), {device.address, device.name, false});
  } else {
    TakeName(device);
  }
  if (!found->isReported) {
    Report(*found);
  }
}

void FoundDevices::TakeName(const DeviceNames& device) {
  const auto found = Place(device.address);
  if (found != m_found.end() && !device.name.empty() && found->name != device.name) {
    found->name = device.name;
    Report(*found);
  }
}

void FoundDevices::Report(Found& found) {
  found.isReported = true;
  m_context.Report(DeviceFound{found.address, found.name, BT_SUPPORT_NONE});
}

void FoundDevices::Forget(const std::string& address) {
  const auto found = Place(address);
  if (found != m_found.end()) {
    m_found.erase(found);
    LetBluezForget(address);
  }
}

void FoundDevices::ForgetAll() {
  for (const Found& found : m_found) {
    if (!LetBluezForget(found.address)) {
      break;  // it has enough to do, and forgets the others by itself
    }
  }
  m_found.clear();
}

bool FoundDevices::LetBluezForget(const std::string& address) {
  const std::string path = DevicePath(m_adapter.Path(), address);
  const Properties* const device = m_mirror.Find(path, kDeviceInterface);
  const auto is = [&](const char* flag) { return device->Flag(flag).value_or(false); };
  if (device == nullptr || is("Paired") || is("Bonded") || is("Connected")) {
    return true;
  }
  return m_adapter.Call("RemoveDevice", g_variant_new("(o)", path.c_str()));
}

}  // namespace btservice::bluez
