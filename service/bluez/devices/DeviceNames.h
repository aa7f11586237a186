#ifndef SERVICE_BLUEZ_DEVICES_DEVICENAMES_H
#define SERVICE_BLUEZ_DEVICES_DEVICENAMES_H

#include <optional>
#include <string>

#include "service/bluez/bus/Properties.h"

namespace btservice::bluez {

/// How a device is called.
struct DeviceNames {
  std::string address;  ///< in upper case
  std::string name;     ///< as it may be passed on; empty if it is not known
};

/// From the properties of the interface Device1. Nothing if they have no address that is one.
std::optional<DeviceNames> ReadDeviceNames(const Properties& device);

/// The path of the object that BlueZ has, or would have, for a device of an adapter.
std::string DevicePath(const std::string& adapterPath, const std::string& address);

}  // namespace btservice::bluez

#endif
