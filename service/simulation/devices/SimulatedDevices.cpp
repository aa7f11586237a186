#include "service/simulation/devices/SimulatedDevices.h"

#include "service/simulation/devices/Connections.h"
#include "service/simulation/devices/Pairing.h"
#include "service/simulation/devices/Projection.h"

namespace btservice {
namespace {

class SimulatedDevices final : public DeviceControl {
 public:
  SimulatedDevices(ModelContext& context, PowerSwitch& power, DeviceTable& devices, Pairing& pairing,
                   Connections& connections, Projection& projection)
      : m_context(context),
        m_power(power),
        m_devices(devices),
        m_pairing(pairing),
        m_connections(connections),
        m_projection(projection),
        m_deletions(context.scheduler) {}

  bool Pair(const std::string& address, const std::string& pin) override {
    return m_pairing.Start(address, pin);
  }
  bool AcceptPairing(const std::string& address, const std::string& pin, PairRequestState state) override {
    return m_pairing.Accept(address, pin, state);
  }
  bool RejectPairing(const std::string& address, PairRequestState state) override {
    return m_pairing.Reject(address, state);
  }
  bool SetOobLinkKey(const std::string& address, const Bytes& key) override {
    return m_pairing.SetOobLinkKey(address, key);
  }

  std::vector<DeviceInfo> PairedDevices() const override {
    std::vector<DeviceInfo> infos;
    for (const RemoteDevice* const device : m_devices.Paired()) {
      infos.push_back(device->Info());
    }
    return infos;
  }
  std::optional<DeviceInfo> FindDevice(const std::string& address) const override {
    const RemoteDevice* const device = m_devices.FindKnown(address);
    return device != nullptr ? std::optional<DeviceInfo>(device->Info()) : std::nullopt;
  }
  bool DeletePairings() override { return m_power.IsOn() && DeleteLater(m_devices.Paired()); }
  bool DeletePairing(const std::string& address) override {
    RemoteDevice* const device = m_devices.Find(address);
    return m_power.IsOn() && device != nullptr && device->paired && DeleteLater({device});
  }
  bool MovePairing(const std::string& address, int position) override {
    RemoteDevice* const device = m_devices.Find(address);
    return device != nullptr && m_devices.MovePaired(*device, position);
  }
  void RemoveDevice(const std::string& address) override {
    if (RemoteDevice* const device = m_devices.Find(address)) {
      device->found = false;
    }
  }

  bool Connect(const std::string& address, ProfileId profile, bool only) override {
    RemoteDevice* const device = m_devices.Find(address);
    return device != nullptr && m_connections.Connect(*device, profile, only);
  }
  bool Disconnect(const std::string& address, ProfileId profile) override {
    RemoteDevice* const device = m_devices.Find(address);
    return device != nullptr && m_connections.Disconnect(*device, profile);
  }
  bool Reconnect(const std::string& address, ProfileId profile) override {
    RemoteDevice* const device = m_devices.Find(address);
    return device != nullptr && m_connections.Reconnect(*device, profile);
  }
  void EnableProfiles() override { m_connections.EnableAll(); }
  void DisableProfiles(const std::string& address) override {
    if (RemoteDevice* const device = m_devices.Find(address)) {
      m_connections.Disable(*device);
    }
  }
  ConnectionState Connection(ProfileId profile) const override { return m_connections.State(profile); }

  bool SetProjectionRunning(bool running) override { return m_projection.SetRunning(running); }
  bool RequestProjectionPairing(const std::string& address, int /*method*/) override {
    return m_projection.RequestPairing(address);
  }
  void SetProjectionAllowed(const std::string& address, bool allowed) override {
    m_projection.SetAllowed(address, allowed);
  }

 private:
  bool DeleteLater(const std::vector<RemoteDevice*>& devices) {
    m_deletions.After(m_context.delays.deletePairing, [this, devices] {
      for (RemoteDevice* const device : devices) {
        m_connections.Drop(*device, BT_CONN_DISCONNECTED);
        m_devices.RemovePaired(*device);
      }
      m_context.Report(PairingDeleted{true});
    });
    return true;
  }

  ModelContext& m_context;
  PowerSwitch& m_power;
  DeviceTable& m_devices;
  Pairing& m_pairing;
  Connections& m_connections;
  Projection& m_projection;
  TaskGroup m_deletions;
};

}  // namespace

std::unique_ptr<DeviceControl> MakeSimulatedDevices(ModelContext& context, PowerSwitch& power,
                                                    DeviceTable& devices, Pairing& pairing,
                                                    Connections& connections, Projection& projection) {
  return std::make_unique<SimulatedDevices>(context, power, devices, pairing, connections, projection);
}

}  // namespace btservice
