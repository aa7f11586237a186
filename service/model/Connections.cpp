#include "service/model/Connections.h"

#include <algorithm>

namespace btservice {
namespace {

/// The single profiles that are asked for with one id.
std::vector<ProfileId> SingleProfiles(ProfileId profile) {
  if (profile == BT_PROFILE_HFP_A2DP) {
    return {BT_PROFILE_HFP, BT_PROFILE_A2DP};
  }
  return {profile};
}

/// The profiles that come and go with another.
std::vector<ProfileId> Companions(ProfileId profile) {
  switch (profile) {
    case BT_PROFILE_HFP:
      return {BT_PROFILE_PBAP, BT_PROFILE_MAP};
    case BT_PROFILE_A2DP:
      return {BT_PROFILE_AVRCP};
    default:
      return {};
  }
}

bool IsInTransit(ConnStatus status) {
  return status == BT_CONN_CONNECTING || status == BT_CONN_DISCONNECTING;
}

}  // namespace

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
  std::vector<ProfileId> lost;
  for (const ProfileId profile : {BT_PROFILE_HFP, BT_PROFILE_A2DP}) {
    if (device.IsConnected(profile)) {
      lost.push_back(profile);
    }
  }
  Drop(device, BT_CONN_LINK_LOST);
  if (!lost.empty() && m_settings.IsOn(BT_CAP_AUTO_CONNECT)) {
    RetryLater(device, lost);
  }
}

void Connections::RetryLater(RemoteDevice& device, const std::vector<ProfileId>& profiles) {
  LinkOf(device).retry.Start(m_context.delays.reconnect, [this, &device, profiles] {
    if (!device.inRange) {
      RetryLater(device, profiles);
      return;
    }
    for (const ProfileId profile : profiles) {
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

Connections::Link& Connections::LinkOf(RemoteDevice& device) {
  std::unique_ptr<Link>& link = m_links[&device];
  if (link == nullptr) {
    link = std::make_unique<Link>(m_context.scheduler);
  }
  return *link;
}

void Connections::Enqueue(RemoteDevice& device, ProfileId profile) {
  const ConnStatus status = device.Status(profile);
  if (status == BT_CONN_CONNECTED) {
    // Whoever asks waits for this.
    m_context.Report(ConnectionChanged{device.data.address, profile, status});
  } else if (!IsInTransit(status)) {
    Link& link = LinkOf(device);
    link.retry.Stop();
    link.waiting.push_back(profile);
    Enter(device, profile, BT_CONN_CONNECTING);
    if (!link.step.IsRunning()) {
      NextStep(device);
    }
  }
}

void Connections::NextStep(RemoteDevice& device) {
  Link& link = LinkOf(device);
  if (link.waiting.empty()) {
    link.up = device.IsConnected();
  } else if (!link.up) {
    const Delays& delays = m_context.delays;
    link.step.Start(device.inRange ? delays.page : delays.pageTimeout, [this, &device] { Page(device); });
  } else {
    link.step.Start(m_context.delays.profile, [this, &device] { FinishProfile(device); });
  }
}

void Connections::Page(RemoteDevice& device) {
  Link& link = LinkOf(device);
  link.up = device.inRange;
  if (link.up) {
    for (const ProfileId profile : device.data.profiles) {
      m_context.Report(ProfileSupported{device.data.address, profile});
    }
  } else {
    for (const ProfileId profile : std::exchange(link.waiting, {})) {
      Enter(device, profile, BT_CONN_FAILED);
    }
  }
  NextStep(device);
}

void Connections::FinishProfile(RemoteDevice& device) {
  Link& link = LinkOf(device);
  const ProfileId profile = link.waiting.front();
  link.waiting.pop_front();
  if (device.data.refusedProfiles.count(profile) != 0) {
    Enter(device, profile, BT_CONN_FAILED);
  } else {
    Enter(device, profile, BT_CONN_CONNECTED);
    for (const ProfileId companion : Companions(profile)) {
      if (device.Supports(companion)) {
        Enqueue(device, companion);
      }
    }
  }
  if (!link.step.IsRunning()) {
    NextStep(device);
  }
}

void Connections::DisconnectSingle(RemoteDevice& device, ProfileId profile) {
  Link& link = LinkOf(device);
  const ConnStatus status = device.Status(profile);
  if (status == BT_CONN_CONNECTING) {
    link.waiting.erase(std::remove(link.waiting.begin(), link.waiting.end(), profile), link.waiting.end());
    link.step.Stop();
    Enter(device, profile, BT_CONN_DISCONNECTED);
    NextStep(device);
  } else if (status == BT_CONN_CONNECTED) {
    Enter(device, profile, BT_CONN_DISCONNECTING);
    link.closing.After(m_context.delays.disconnect, [this, &device, profile, &link] {
      Enter(device, profile, BT_CONN_DISCONNECTED);
      link.up = link.up && (device.IsConnected() || !link.waiting.empty());
    });
  }
}

void Connections::Enter(RemoteDevice& device, ProfileId profile, ConnStatus status) {
  device.connections[profile] = status;
  std::vector<RemoteDevice*>& connected = m_connected[profile];
  connected.erase(std::remove(connected.begin(), connected.end(), &device), connected.end());
  if (status == BT_CONN_CONNECTED) {
    connected.push_back(&device);
  }
  m_context.Report(ConnectionChanged{device.data.address, profile, status});
  m_devices.ReportPairedList();
  if (!IsInTransit(status) && status != BT_CONN_FAILED) {
    onChanged(device, profile, status);
  }
}

}  // namespace btservice
