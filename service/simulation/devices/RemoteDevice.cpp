#include "service/simulation/devices/RemoteDevice.h"

#include <algorithm>

namespace btservice {

bool RemoteDevice::Supports(ProfileId profile) const {
  return std::find(data.profiles.begin(), data.profiles.end(), profile) != data.profiles.end();
}

ConnStatus RemoteDevice::Status(ProfileId profile) const {
  const auto entry = connections.find(profile);
  return entry != connections.end() ? entry->second : BT_CONN_DISCONNECTED;
}

bool RemoteDevice::IsConnected() const {
  return std::any_of(connections.begin(), connections.end(),
                     [](const auto& entry) { return entry.second == BT_CONN_CONNECTED; });
}

DeviceInfo RemoteDevice::Info() const {
  DeviceInfo info;
  info.address = data.address;
  info.name = data.name;
  info.support = data.support;
  info.enabled = profilesEnabled ? BT_PROFILE_HFP_A2DP : BT_PROFILE_NONE;
  if (IsConnected(BT_PROFILE_HFP)) {
    info.connected = IsConnected(BT_PROFILE_A2DP) ? BT_PROFILE_HFP_A2DP : BT_PROFILE_HFP;
  } else if (IsConnected(BT_PROFILE_A2DP)) {
    info.connected = BT_PROFILE_A2DP;
  }
  if (IsConnected()) {
    info.status = BT_CONN_CONNECTED;
  } else {
    // On the way to a connection or away from it counts more than how an earlier one ended.
    for (const auto& [profile, status] : connections) {
      if (status == BT_CONN_CONNECTING || status == BT_CONN_DISCONNECTING) {
        info.status = status;
        break;
      }
      info.status = std::max(info.status, status);
    }
  }
  return info;
}

}  // namespace btservice
