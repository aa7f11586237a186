#ifndef SERVICE_SIMULATION_CALLS_SIMULATEDCALLS_H
#define SERVICE_SIMULATION_CALLS_SIMULATEDCALLS_H

#include <memory>

#include "service/stack/CallControl.h"

namespace btservice {

class CallAudio;
class CallTable;
class Connections;
class PowerSwitch;
class SimulatedPhoneBook;

/// What passes the requests for calls on to the parts of the model that carry them out, and which have to
/// outlive it. Ring tones are silent.
std::unique_ptr<CallControl> MakeSimulatedCalls(PowerSwitch& power, Connections& connections,
                                                CallTable& calls, CallAudio& audio,
                                                const SimulatedPhoneBook& phoneBook);

}  // namespace btservice

#endif
