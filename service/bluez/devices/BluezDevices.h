#ifndef SERVICE_BLUEZ_DEVICES_BLUEZDEVICES_H
#define SERVICE_BLUEZ_DEVICES_BLUEZDEVICES_H

#include <memory>

#include "service/stack/DeviceControl.h"

namespace btservice::bluez {

class FoundDevices;

/// What passes the requests for devices on to the parts that carry them out, which have to outlive it.
std::unique_ptr<DeviceControl> MakeBluezDevices(FoundDevices& found);

}  // namespace btservice::bluez

#endif
