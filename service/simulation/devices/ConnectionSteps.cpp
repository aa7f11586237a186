// How the connection of a profile comes about, step by step, and how it ends.

#include <algorithm>
#include <utility>

#include "service/simulation/devices/Connections.h"
#include "service/simulation/devices/ProfileSets.h"

namespace btservice {

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
