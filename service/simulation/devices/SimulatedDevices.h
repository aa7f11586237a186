#ifndef SERVICE_SIMULATION_DEVICES_SIMULATEDDEVICES_H
#define SERVICE_SIMULATION_DEVICES_SIMULATEDDEVICES_H

#include <optional>
#include <string>
#include <vector>

#include "service/simulation/devices/Connections.h"
#include "service/simulation/devices/Pairing.h"
#include "service/simulation/devices/Projection.h"
#include "service/stack/DeviceControl.h"

namespace btservice {

/// Passes the requests for devices on to the parts of the model that carry them out. Pairings are deleted a
/// moment after the request.
class SimulatedDevices : public DeviceControl {
 public:
  SimulatedDevices(ModelContext& context, PowerSwitch& power, DeviceTable& devices, Pairing& pairing,
                   Connections& connections, Projection& projection);

  bool Pair(const std::string& address, const std::string& pin) override;
  bool AcceptPairing(const std::string& address, const std::string& pin, PairRequestState state) override;
  bool RejectPairing(const std::string& address, PairRequestState state) override;
  bool SetOobLinkKey(const std::string& address, const Bytes& key) override;

  std::vector<DeviceInfo> PairedDevices() const override;
  std::optional<DeviceInfo> FindDevice(const std::string& address) const override;
  bool DeletePairings() override;
  bool DeletePairing(const std::string& address) override;
  bool MovePairing(const std::string& address, int position) override;
  void RemoveDevice(const std::string& address) override;

  bool Connect(const std::string& address, ProfileId profile, bool only) override;
  bool Disconnect(const std::string& address, ProfileId profile) override;
  bool Reconnect(const std::string& address, ProfileId profile) override;
  void EnableProfiles() override { m_connections.EnableAll(); }
  void DisableProfiles(const std::string& address) override;
  ConnectionState Connection(ProfileId profile) const override { return m_connections.State(profile); }

  bool SetProjectionRunning(bool running) override { return m_projection.SetRunning(running); }
  bool RequestProjectionPairing(const std::string& address, int method) override;
  void SetProjectionAllowed(const std::string& address, bool allowed) override;

 private:
  bool DeleteLater(const std::vector<RemoteDevice*>& devices);

  ModelContext& m_context;
  PowerSwitch& m_power;
  DeviceTable& m_devices;
  Pairing& m_pairing;
  Connections& m_connections;
  Projection& m_projection;
  TaskGroup m_deletions;
};

}  // namespace btservice

#endif
