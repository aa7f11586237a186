#ifndef SERVICE_STACK_DEVICECONTROL_H
#define SERVICE_STACK_DEVICECONTROL_H

#include <optional>
#include <string>
#include <vector>

#include "service/stack/StackTypes.h"

namespace btservice {

/// The remote devices: pairing, the list of paired devices, connections, wireless projection.
class DeviceControl {
 public:
  virtual ~DeviceControl() = default;

  virtual bool Pair(const std::string& address, const std::string& pin) = 0;
  virtual bool AcceptPairing(const std::string& address, const std::string& pin, PairRequestState state) = 0;
  virtual bool RejectPairing(const std::string& address, PairRequestState state) = 0;
  virtual bool SetOobLinkKey(const std::string& address, const Bytes& key) = 0;

  virtual std::vector<DeviceInfo> PairedDevices() const = 0;
  /// Any device that is known, paired or found.
  virtual std::optional<DeviceInfo> FindDevice(const std::string& address) const = 0;
  virtual bool DeletePairings() = 0;
  virtual bool DeletePairing(const std::string& address) = 0;
  virtual bool MovePairing(const std::string& address, int position) = 0;
  /// Forgets a device that was found and is not paired.
  virtual void RemoveDevice(const std::string& address) = 0;

  /// only: other devices are disconnected from the profile first.
  virtual bool Connect(const std::string& address, ProfileId profile, bool only) = 0;
  virtual bool Disconnect(const std::string& address, ProfileId profile) = 0;
  virtual bool Reconnect(const std::string& address, ProfileId profile) = 0;
  virtual void EnableProfiles() = 0;
  virtual void DisableProfiles(const std::string& address) = 0;
  /// The device whose connection of this profile is the one in use.
  virtual ConnectionState Connection(ProfileId profile) const = 0;

  virtual bool SetProjectionRunning(bool running) = 0;
  virtual bool RequestProjectionPairing(const std::string& address, int method) = 0;
  virtual void SetProjectionAllowed(const std::string& address, bool allowed) = 0;
};

}  // namespace btservice

#endif
