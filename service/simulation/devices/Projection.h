#ifndef SERVICE_SIMULATION_DEVICES_PROJECTION_H
#define SERVICE_SIMULATION_DEVICES_PROJECTION_H

#include <string>

#include "service/simulation/devices/Connections.h"
#include "service/simulation/devices/Pairing.h"

namespace btservice {

/// Wireless projection as far as Bluetooth has a part in it: a capable phone asks for it once it is
/// connected, and it may need a pairing of its own.
class Projection {
 public:
  Projection(ModelContext& context, PowerSwitch& power, DeviceTable& devices, Pairing& pairing,
             Connections& connections);

  // The requests of DeviceControl.

  /// Whether projection runs: then no phone asks for it. False while the adapter is off; going down ends it.
  bool SetRunning(bool running);
  /// ProjectionPairingAnswered follows, and the pairing if the answer is that it can begin. False while the
  /// adapter is off, and for a text that is no address.
  bool RequestPairing(const std::string& address);
  /// A phone that is allowed does not ask again. An address that no device has is ignored.
  void SetAllowed(const std::string& address, bool allowed);
  /// The phone asks (again): ProjectionRequested. False while the adapter is off, if it is not capable of it,
  /// and if it is allowed already.
  bool RequestFromRemote(RemoteDevice& device);

 private:
  void Answer(const std::string& address);

  ModelContext& m_context;
  PowerSwitch& m_power;
  DeviceTable& m_devices;
  Pairing& m_pairing;
  TaskGroup m_tasks;
  bool m_running = false;
};

}  // namespace btservice

#endif
