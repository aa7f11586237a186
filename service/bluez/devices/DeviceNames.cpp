#include "service/bluez/devices/DeviceNames.h"

#include <algorithm>

#include "protocol/Address.h"
#include "service/bluez/AirText.h"
#include "service/stack/AdapterRules.h"
#include "service/stack/ReportedAddress.h"

namespace btservice::bluez {

std::optional<DeviceNames> ReadDeviceNames(const Properties& device) {
  const std::optional<std::string> address = device.Text("Address");
  if (!address || !IsBluetoothAddress(*address)) {
    return std::nullopt;
  }
  // Without a name there is an alias made of the address, which says nothing.
  return DeviceNames{ReportedAddress(*address),
                     AirText(device.Text("Name").value_or(""), kLongestDeviceName)};
}

std::string DevicePath(const std::string& adapterPath, const std::string& address) {
  std::string name = ReportedAddress(address);
  std::replace(name.begin(), name.end(), ':', '_');
  return adapterPath + "/dev_" + name;
}

}  // namespace btservice::bluez
