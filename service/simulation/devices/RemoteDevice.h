#ifndef SERVICE_SIMULATION_DEVICES_REMOTEDEVICE_H
#define SERVICE_SIMULATION_DEVICES_REMOTEDEVICE_H

#include <map>
#include <string>

#include "service/simulation/world/World.h"

namespace btservice {

/// A device of the world, and how the adapter stands with it.
class RemoteDevice {
 public:
  explicit RemoteDevice(const DeviceData& deviceData) : data(deviceData), inRange(deviceData.inRange) {}
  RemoteDevice(const RemoteDevice&) = delete;
  RemoteDevice& operator=(const RemoteDevice&) = delete;

  /// Whether it has a single profile.
  bool Supports(ProfileId profile) const;
  /// Of a single profile; DISCONNECTED if it was never connected.
  ConnStatus Status(ProfileId profile) const;
  bool IsConnected(ProfileId profile) const { return Status(profile) == BT_CONN_CONNECTED; }
  /// By any profile.
  bool IsConnected() const;
  /// As the list of paired devices shows it.
  DeviceInfo Info() const;

  DeviceData data;     ///< as the world has it, and as it was changed from outside since
  bool inRange;        ///< of the radio; one that is not is neither found nor connected
  bool found = false;  ///< by a search
  bool paired = false;
  bool profilesEnabled = true;                  ///< may be connected
  bool projectionAllowed = false;               ///< need not ask for wireless projection again
  std::map<ProfileId, ConnStatus> connections;  ///< single profiles only
};

}  // namespace btservice

#endif
