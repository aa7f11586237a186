#ifndef SERVICE_SIMULATION_DEVICES_SIMULATEDDEVICES_H
#define SERVICE_SIMULATION_DEVICES_SIMULATEDDEVICES_H

#include <memory>

#include "service/stack/DeviceControl.h"

namespace btservice {

class Connections;
class DeviceTable;
class Pairing;
class PowerSwitch;
class Projection;
struct ModelContext;

/// What passes the requests for devices on to the parts of the model that carry them out, and which have to
/// outlive it. Pairings are deleted a moment after the request.
std::unique_ptr<DeviceControl> MakeSimulatedDevices(ModelContext& context, PowerSwitch& power,
                                                    DeviceTable& devices, Pairing& pairing,
                                                    Connections& connections, Projection& projection);

}  // namespace btservice

#endif
