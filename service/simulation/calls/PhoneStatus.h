#ifndef SERVICE_SIMULATION_CALLS_PHONESTATUS_H
#define SERVICE_SIMULATION_CALLS_PHONESTATUS_H

#include <string>

#include "service/simulation/devices/Connections.h"

namespace btservice {

/// What the phone in use reports about itself and its network.
class PhoneStatus {
 public:
  PhoneStatus(ModelContext& context, Connections& connections);

  /// Reports all of it for the phone in use; without one, that there is no network.
  void ReportAll() const;

  // Changes at the phone. They are reported if it is the one in use, and kept in any case. Bars: 0 to 5,
  // which is not checked here.

  void SetSignal(RemoteDevice& device, int bars);
  void SetBattery(RemoteDevice& device, int bars);
  /// An empty name: the phone has lost its network.
  void SetOperator(RemoteDevice& device, const std::string& name);
  void SetRoaming(RemoteDevice& device, bool roaming);

 private:
  bool IsInUse(const RemoteDevice& device) const;

  ModelContext& m_context;
  Connections& m_connections;
};

}  // namespace btservice

#endif
