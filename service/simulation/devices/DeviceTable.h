#ifndef SERVICE_SIMULATION_DEVICES_DEVICETABLE_H
#define SERVICE_SIMULATION_DEVICES_DEVICETABLE_H

#include <memory>
#include <string>
#include <vector>

#include "service/simulation/ModelContext.h"
#include "service/simulation/devices/RemoteDevice.h"
#include "service/stack/ReportedAddress.h"

namespace btservice {

/// All devices of the world, and the order of those that are paired.
class DeviceTable {
 public:
  DeviceTable(ModelContext& context, const World& world);

  /// Null if there is no such device in the world. Upper and lower case are the same.
  RemoteDevice* Find(const std::string& address) const;
  /// As Find, but null also for a device that is neither paired nor found.
  RemoteDevice* FindKnown(const std::string& address) const;
  /// Devices are never taken away: references to them hold as long as the table.
  const std::vector<std::unique_ptr<RemoteDevice>>& All() const { return m_devices; }
  /// A further device; refused (null) if the address is in use or not an address.
  RemoteDevice* Add(const DeviceData& data);

  /// Paired devices, the latest first unless they were moved.
  const std::vector<RemoteDevice*>& Paired() const { return m_paired; }
  /// Whether no further device can be paired.
  bool IsFull() const { return m_paired.size() >= m_capacity; }
  // Change the list of paired devices, and report it.

  void AddPaired(RemoteDevice& device);
  void RemovePaired(RemoteDevice& device);
  /// position counts from 0. False if the device is not paired or the list is shorter.
  bool MovePaired(RemoteDevice& device, int position);
  void ReportPairedList() const { m_context.Report(PairedDevicesChanged{}); }

 private:
  ModelContext& m_context;
  std::size_t m_capacity;
  std::vector<std::unique_ptr<RemoteDevice>> m_devices;
  std::vector<RemoteDevice*> m_paired;
};

}  // namespace btservice

#endif
