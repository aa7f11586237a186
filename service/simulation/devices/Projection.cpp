#include "service/simulation/devices/Projection.h"

#include "protocol/Address.h"

namespace btservice {

Projection::Projection(ModelContext& context, PowerSwitch& power, DeviceTable& devices, Pairing& pairing,
                       Connections& connections)
    : m_context(context), m_power(power), m_devices(devices), m_pairing(pairing), m_tasks(context.scheduler) {
  m_power.onDown.Add([this] {
    m_tasks.CancelAll();
    m_running = false;
  });
  connections.onChanged.Add([this](RemoteDevice& device, ProfileId profile, ConnStatus status) {
    if (profile == BT_PROFILE_HFP && status == BT_CONN_CONNECTED && !m_running) {
      RequestFromRemote(device);
    }
  });
}

bool Projection::SetRunning(bool running) {
  if (!m_power.IsOn()) {
    return false;
  }
  m_running = running;
  return true;
}

bool Projection::RequestPairing(const std::string& address) {
  if (!m_power.IsOn() || !IsBluetoothAddress(address)) {
    return false;
  }
  m_tasks.After(m_context.delays.projection, [this, address] { Answer(address); });
  return true;
}

void Projection::Answer(const std::string& address) {
  RemoteDevice* const device = m_devices.Find(address);
  HUStatus status = BT_HU_FAILED;
  if (device != nullptr && device->paired) {
    status = BT_HU_ALREADY_PAIRED;
  } else if (m_pairing.IsBusy()) {
    status = BT_HU_BUSY;
  } else if (device != nullptr && device->inRange) {
    status = BT_HU_READY;
  }
  m_context.Report(ProjectionPairingAnswered{status});
  if (status == BT_HU_READY) {
    m_pairing.StartForProjection(*device);
  }
}

void Projection::SetAllowed(const std::string& address, bool allowed) {
  if (RemoteDevice* const device = m_devices.Find(address)) {
    device->projectionAllowed = allowed;
  }
}

bool Projection::RequestFromRemote(RemoteDevice& device) {
  if (!m_power.IsOn() || device.data.support != BT_SUPPORT_ANDROID_AUTO || device.projectionAllowed) {
    return false;
  }
  m_context.Report(ProjectionRequested{device.data.address, device.data.name, device.data.support});
  return true;
}

}  // namespace btservice
