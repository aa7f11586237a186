#ifndef SERVICE_SIMULATION_ADAPTER_SIMULATEDADAPTER_H
#define SERVICE_SIMULATION_ADAPTER_SIMULATEDADAPTER_H

#include <functional>
#include <memory>

#include "service/stack/AdapterControl.h"

namespace btservice {

class DeviceTable;
class PowerSwitch;
class Scanner;
class Settings;

/// What passes the requests for the adapter on to the parts of the model that carry them out, and which have
/// to outlive it. Asked to report the state, it lets reportOthers report that of all other parts.
std::unique_ptr<AdapterControl> MakeSimulatedAdapter(PowerSwitch& power, Settings& settings, Scanner& scanner,
                                                     DeviceTable& devices,
                                                     std::function<void()> reportOthers);

}  // namespace btservice

#endif
