#ifndef SERVICE_SIMULATION_DEVICES_PROFILESETS_H
#define SERVICE_SIMULATION_DEVICES_PROFILESETS_H

#include <vector>

#include "service/stack/StackTypes.h"

namespace btservice {

/// The single profiles that are asked for with one id.
inline std::vector<ProfileId> SingleProfiles(ProfileId profile) {
  if (profile == BT_PROFILE_HFP_A2DP) {
    return {BT_PROFILE_HFP, BT_PROFILE_A2DP};
  }
  return {profile};
}

/// The profiles that come and go with another.
inline std::vector<ProfileId> Companions(ProfileId profile) {
  switch (profile) {
    case BT_PROFILE_HFP:
      return {BT_PROFILE_PBAP, BT_PROFILE_MAP};
    case BT_PROFILE_A2DP:
      return {BT_PROFILE_AVRCP};
    default:
      return {};
  }
}

/// On the way to a connection, or away from one.
inline bool IsInTransit(ConnStatus status) {
  return status == BT_CONN_CONNECTING || status == BT_CONN_DISCONNECTING;
}

}  // namespace btservice

#endif
