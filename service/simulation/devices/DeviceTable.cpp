#include "service/simulation/devices/DeviceTable.h"

#include <algorithm>

#include "protocol/Address.h"

namespace btservice {

DeviceTable::DeviceTable(ModelContext& context, const World& world)
    : m_context(context), m_capacity(static_cast<std::size_t>(world.adapter.pairedDevices)) {
  for (const DeviceData& data : world.devices) {
    RemoteDevice* const device = Add(data);
    if (device != nullptr && data.paired && !IsFull()) {
      device->paired = true;
      m_paired.push_back(device);
    }
  }
}

RemoteDevice* DeviceTable::Find(const std::string& address) const {
  const std::string wanted = ReportedAddress(address);
  const auto place = std::find_if(m_devices.begin(), m_devices.end(),
                                  [&](const auto& device) { return device->data.address == wanted; });
  return place != m_devices.end() ? place->get() : nullptr;
}

RemoteDevice* DeviceTable::FindKnown(const std::string& address) const {
  RemoteDevice* const device = Find(address);
  return device != nullptr && (device->paired || device->found) ? device : nullptr;
}

RemoteDevice* DeviceTable::Add(const DeviceData& data) {
  if (!IsBluetoothAddress(data.address) || Find(data.address) != nullptr) {
    return nullptr;
  }
  m_devices.push_back(std::make_unique<RemoteDevice>(data));
  RemoteDevice* const device = m_devices.back().get();
  device->data.address = ReportedAddress(data.address);
  return device;
}

void DeviceTable::AddPaired(RemoteDevice& device) {
  device.paired = true;
  m_paired.insert(m_paired.begin(), &device);
  ReportPairedList();
}

void DeviceTable::RemovePaired(RemoteDevice& device) {
  device.paired = false;
  m_paired.erase(std::remove(m_paired.begin(), m_paired.end(), &device), m_paired.end());
  ReportPairedList();
}

bool DeviceTable::MovePaired(RemoteDevice& device, int position) {
  if (!device.paired || position < 0 || static_cast<std::size_t>(position) >= m_paired.size()) {
    return false;
  }
  m_paired.erase(std::find(m_paired.begin(), m_paired.end(), &device));
  m_paired.insert(m_paired.begin() + position, &device);
  ReportPairedList();
  return true;
}

}  // namespace btservice
