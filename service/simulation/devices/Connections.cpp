#include "service/simulation/devices/Connections.h"

#include <algorithm>
#include <utility>

#include "service/simulation/devices/ProfileSets.h"

namespace btservice {

Connections::Connections(ModelContext& context, PowerSwitch& power, Settings& settings, DeviceTable& devices)
    : m_context(context), m_power(power), m_settings(settings), m_devices(devices) {
  m_power.onDown.Add([this] {
    for (const auto& device : m_devices.All()) {
      Drop(*device, BT_CONN_DISCONNECTED);
    }
  });
  m_power.onOn.Add([this] {
    if (m_settings.IsOn(BT_CAP_AUTO_CONNECT)) {
      ConnectPaired();
    }
  });
}

bool Connections::Connect(RemoteDevice& device, ProfileId profile, bool only) {
  if (!m_power.IsOn() || !device.paired || !device.profilesEnabled) {
    return false;
  }
  bool accepted = false;
  for (const ProfileId single : SingleProfiles(profile)) {
    if (!device.Supports(single)) {
      continue;
    }
    accepted = true;
    if (only) {
      for (RemoteDevice* const other : std::vector<RemoteDevice*>(m_connected[single])) {
        if (other != &device) {
          Disconnect(*other, single);
        }
      }
    }
    Enqueue(device, single);
  }
  return accepted;
}

bool Connections::ConnectFromRemote(RemoteDevice& device, ProfileId profile) {
  return device.inRange && Connect(device, profile, false);
}

bool Connections::Disconnect(RemoteDevice& device, ProfileId profile) {
  bool accepted = false;
  for (const ProfileId single : SingleProfiles(profile)) {
    const ConnStatus status = device.Status(single);
    if (status == BT_CONN_CONNECTED || status == BT_CONN_CONNECTING) {
      accepted = true;
      for (const ProfileId companion : Companions(single)) {
        DisconnectSingle(device, companion);
      }
      DisconnectSingle(device, single);
    }
  }
  return accepted;
}

bool Connections::Reconnect(RemoteDevice& device, ProfileId profile) {
  for (const ProfileId single : SingleProfiles(profile)) {
    if (device.IsConnected(single)) {
      Drop(device, BT_CONN_DISCONNECTED);
      break;
    }
  }
  return Connect(device, profile, false);
}

void Connections::EnableAll() {
  for (const auto& device : m_devices.All()) {
    device->profilesEnabled = true;
  }
  m_context.Report(ProfilesEnabledChanged{true});
  m_devices.ReportPairedList();
}

void Connections::Disable(RemoteDevice& device) {
  device.profilesEnabled = false;
  for (const auto& [profile, status] : std::map<ProfileId, ConnStatus>(device.connections)) {
    DisconnectSingle(device, profile);
  }
  m_context.Report(ProfilesEnabledChanged{false});
  m_devices.ReportPairedList();
}

void Connections::Drop(RemoteDevice& device, ConnStatus status) {
  Link& link = LinkOf(device);
  link.up = false;
  link.waiting.clear();
  link.step.Stop();
  link.closing.CancelAll();
  link.retry.Stop();
  for (const auto& [profile, before] : std::map<ProfileId, ConnStatus>(device.connections)) {
    if (before == BT_CONN_CONNECTED || IsInTransit(before)) {
      Enter(device, profile, status);
    }
  }
}

void Connections::LoseLink(RemoteDevice& device) {
  Link& link = LinkOf(device);
  std::set<ProfileId> wanted = link.retry.IsRunning() ? link.wanted : std::set<ProfileId>();
  for (const ProfileId profile : {BT_PROFILE_HFP, BT_PROFILE_A2DP}) {
    if (device.IsConnected(profile) || device.Status(profile) == BT_CONN_CONNECTING) {
      wanted.insert(profile);
    }
  }
  Drop(device, BT_CONN_LINK_LOST);
  if (!wanted.empty() && m_settings.IsOn(BT_CAP_AUTO_CONNECT)) {
    link.wanted = std::move(wanted);
    RetryLater(device);
  }
}

void Connections::Arrive(RemoteDevice& device) {
  Link& link = LinkOf(device);
  if (device.paired && m_settings.IsOn(BT_CAP_AUTO_CONNECT) && !device.IsConnected() &&
      link.waiting.empty() && !link.retry.IsRunning()) {
    link.wanted = {BT_PROFILE_HFP, BT_PROFILE_A2DP};
    RetryLater(device);
  }
}

void Connections::RetryLater(RemoteDevice& device) {
  Link& link = LinkOf(device);
  // Without any time in between, a device that is away would be tried for ever in the same instant.
  link.retry.Start(std::max(m_context.delays.reconnect, Milliseconds(1)), [this, &device, &link] {
    if (!device.inRange) {
      RetryLater(device);
      return;
    }
    for (const ProfileId profile : std::exchange(link.wanted, {})) {
      Connect(device, profile, false);
    }
  });
}

void Connections::ConnectPaired() {
  for (RemoteDevice* const device : std::vector<RemoteDevice*>(m_devices.Paired())) {
    Connect(*device, BT_PROFILE_HFP_A2DP, false);
  }
}

RemoteDevice* Connections::Active(ProfileId profile) const {
  const auto entry = m_connected.find(profile);
  return entry != m_connected.end() && !entry->second.empty() ? entry->second.back() : nullptr;
}

void Connections::Activate(RemoteDevice& device, ProfileId profile) {
  std::vector<RemoteDevice*>& connected = m_connected[profile];
  const auto place = std::find(connected.begin(), connected.end(), &device);
  if (place != connected.end()) {
    std::rotate(place, place + 1, connected.end());
  }
}

ConnectionState Connections::State(ProfileId profile) const {
  if (const RemoteDevice* const active = Active(profile)) {
    return {BT_CONN_CONNECTED, active->data.address};
  }
  for (const auto& device : m_devices.All()) {
    if (IsInTransit(device->Status(profile))) {
      return {device->Status(profile), device->data.address};
    }
  }
  return {};
}

void Connections::ReportAll() const {
  for (const auto& device : m_devices.All()) {
    for (const auto& [profile, status] : device->connections) {
      if (status == BT_CONN_CONNECTED) {
        m_context.Report(ConnectionChanged{device->data.address, profile, status});
      }
    }
  }
}

}  // namespace btservice
