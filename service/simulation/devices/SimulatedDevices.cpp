#include "service/simulation/devices/SimulatedDevices.h"

namespace btservice {

SimulatedDevices::SimulatedDevices(ModelContext& context, PowerSwitch& power, DeviceTable& devices,
                                   Pairing& pairing, Connections& connections, Projection& projection)
    : m_context(context),
      m_power(power),
      m_devices(devices),
      m_pairing(pairing),
      m_connections(connections),
      m_projection(projection),
      m_deletions(context.scheduler) {}

bool SimulatedDevices::Pair(const std::string& address, const std::string& pin) {
  return m_pairing.Start(address, pin);
}

bool SimulatedDevices::AcceptPairing(const std::string& address, const std::string& pin,
                                     PairRequestState state) {
  return m_pairing.Accept(address, pin, state);
}

bool SimulatedDevices::RejectPairing(const std::string& address, PairRequestState state) {
  return m_pairing.Reject(address, state);
}

bool SimulatedDevices::SetOobLinkKey(const std::string& address, const Bytes& key) {
  return m_pairing.SetOobLinkKey(address, key);
}

std::vector<DeviceInfo> SimulatedDevices::PairedDevices() const {
  std::vector<DeviceInfo> infos;
  for (const RemoteDevice* const device : m_devices.Paired()) {
    infos.push_back(device->Info());
  }
  return infos;
}

std::optional<DeviceInfo> SimulatedDevices::FindDevice(const std::string& address) const {
  const RemoteDevice* const device = m_devices.FindKnown(address);
  return device != nullptr ? std::optional<DeviceInfo>(device->Info()) : std::nullopt;
}

bool SimulatedDevices::DeletePairings() { return m_power.IsOn() && DeleteLater(m_devices.Paired()); }

bool SimulatedDevices::DeletePairing(const std::string& address) {
  RemoteDevice* const device = m_devices.Find(address);
  return m_power.IsOn() && device != nullptr && device->paired && DeleteLater({device});
}

bool SimulatedDevices::DeleteLater(const std::vector<RemoteDevice*>& devices) {
  m_deletions.After(m_context.delays.deletePairing, [this, devices] {
    for (RemoteDevice* const device : devices) {
      m_connections.Drop(*device, BT_CONN_DISCONNECTED);
      m_devices.RemovePaired(*device);
    }
    m_context.Report(PairingDeleted{true});
  });
  return true;
}

bool SimulatedDevices::MovePairing(const std::string& address, int position) {
  RemoteDevice* const device = m_devices.Find(address);
  return device != nullptr && m_devices.MovePaired(*device, position);
}

void SimulatedDevices::RemoveDevice(const std::string& address) {
  if (RemoteDevice* const device = m_devices.Find(address)) {
    device->found = false;
  }
}

bool SimulatedDevices::Connect(const std::string& address, ProfileId profile, bool only) {
  RemoteDevice* const device = m_devices.Find(address);
  return device != nullptr && m_connections.Connect(*device, profile, only);
}

bool SimulatedDevices::Disconnect(const std::string& address, ProfileId profile) {
  RemoteDevice* const device = m_devices.Find(address);
  return device != nullptr && m_connections.Disconnect(*device, profile);
}

bool SimulatedDevices::Reconnect(const std::string& address, ProfileId profile) {
  RemoteDevice* const device = m_devices.Find(address);
  return device != nullptr && m_connections.Reconnect(*device, profile);
}

void SimulatedDevices::DisableProfiles(const std::string& address) {
  if (RemoteDevice* const device = m_devices.Find(address)) {
    m_connections.Disable(*device);
  }
}

bool SimulatedDevices::RequestProjectionPairing(const std::string& address, int /*method*/) {
  return m_projection.RequestPairing(address);
}

void SimulatedDevices::SetProjectionAllowed(const std::string& address, bool allowed) {
  m_projection.SetAllowed(address, allowed);
}

}  // namespace btservice
