// A world as the run before has left it.

#include <algorithm>
#include <utility>

#include "service/simulation/adapter/KeptAttributes.h"
#include "service/simulation/world/World.h"
#include "service/stack/ReportedAddress.h"

namespace btservice {
namespace {

/// A device of the world, or, if it has left the world, one that is never in range.
DeviceData TakeDevice(std::vector<DeviceData>& devices, const KeptDevice& kept) {
  const auto place = std::find_if(devices.begin(), devices.end(), [&](const DeviceData& device) {
    return SameAddress(device.address, kept.address);
  });
  DeviceData device;
  if (place != devices.end()) {
    device = *place;
    devices.erase(place);
  } else {
    device.address = kept.address;
    device.name = kept.name;
    device.inRange = false;
  }
  device.paired = true;
  return device;
}

}  // namespace

void Restore(const KeptState& kept, World& world) {
  for (const KeptAttribute& one : kKeptAttributes) {
    const auto value = kept.attributes.find(one.attribute);
    if (value != kept.attributes.end()) {
      world.adapter.*one.member = value->second;
    }
  }
  for (DeviceData& device : world.devices) {
    device.paired = false;
  }
  // No pairing is forgotten because this world's adapter remembers fewer.
  world.adapter.pairedDevices = std::max(world.adapter.pairedDevices, static_cast<int>(kept.paired.size()));
  // The order of the paired devices is the kept one, so they come first.
  std::vector<DeviceData> devices;
  for (const KeptDevice& device : kept.paired) {
    devices.push_back(TakeDevice(world.devices, device));
  }
  devices.insert(devices.end(), world.devices.begin(), world.devices.end());
  world.devices = std::move(devices);
}

}  // namespace btservice
