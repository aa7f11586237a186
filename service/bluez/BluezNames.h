#ifndef SERVICE_BLUEZ_BLUEZNAMES_H
#define SERVICE_BLUEZ_BLUEZNAMES_H

// How BlueZ is called on the system bus.

namespace btservice::bluez {

constexpr const char* kBluezName = "org.bluez";
constexpr const char* kBluezPrefix = "org.bluez.";
constexpr const char* kAdapterInterface = "org.bluez.Adapter1";
constexpr const char* kDeviceInterface = "org.bluez.Device1";

}  // namespace btservice::bluez

#endif
