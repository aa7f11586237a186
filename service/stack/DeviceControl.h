#ifndef SERVICE_STACK_DEVICECONTROL_H
#define SERVICE_STACK_DEVICECONTROL_H

#include <optional>
#include <string>
#include <vector>

#include "service/stack/StackTypes.h"

namespace btservice {

/// The remote devices: pairing, the list of paired devices, connections, wireless projection. Addresses are
/// taken in upper and lower case and reported in upper case; a request with a text that is none is refused.
/// What holds for all requests is said at BluetoothStack.
class DeviceControl {
 public:
  virtual ~DeviceControl() = default;

  /// Begins to pair with a device, found before or not; pin is for devices that want one, and may be empty.
  /// Refused while another pairing is under way, and if the device is paired. PairChanged follows, and
  /// PairRequested if somebody has to answer.
  virtual bool Pair(const std::string& /*address*/, const std::string& /*pin*/) { return false; }
  /// Answers PairRequested with yes; pin is what the user typed in, and empty where nothing is asked for.
  /// Refused if that device does not ask, or not in this way (state). PairChanged follows.
  virtual bool AcceptPairing(const std::string& /*address*/, const std::string& /*pin*/,
                             PairRequestState /*state*/) {
    return false;
  }
  /// Answers it with no. Refused as above.
  virtual bool RejectPairing(const std::string& /*address*/, PairRequestState /*state*/) { return false; }
  /// Pairs by a key of 16 bytes that was exchanged by other means. OobLinkKeySet follows, with the outcome.
  virtual bool SetOobLinkKey(const std::string& /*address*/, const Bytes& /*key*/) { return false; }

  /// In the order that is shown: the latest first unless they were moved. PairedDevicesChanged says that the
  /// list, or anything in it, is another.
  virtual std::vector<DeviceInfo> PairedDevices() const { return {}; }
  /// Any device that is known, paired or found.
  virtual std::optional<DeviceInfo> FindDevice(const std::string& /*address*/) const { return {}; }
  /// Delete all pairings, or one, and end the connections of these devices. PairingDeleted follows.
  virtual bool DeletePairings() { return false; }
  virtual bool DeletePairing(const std::string& /*address*/) { return false; }
  /// position counts from 0. Refused if the list is shorter, or the device is not in it.
  virtual bool MovePairing(const std::string& /*address*/, int /*position*/) { return false; }
  /// Forgets a device that was found and is not paired.
  virtual void RemoveDevice(const std::string& /*address*/) {}

  /// Connects one profile of a paired device, or BT_PROFILE_HFP_A2DP: both of these. only: other devices are
  /// disconnected from the profile first. ConnectionChanged follows, BT_CONN_FAILED if it does not come
  /// about.
  virtual bool Connect(const std::string& /*address*/, ProfileId /*profile*/, bool /*only*/) { return false; }
  /// Refused if it is neither connected nor on its way to it. ConnectionChanged follows. Profiles that need
  /// this one end with it.
  virtual bool Disconnect(const std::string& /*address*/, ProfileId /*profile*/) { return false; }
  /// As Connect for a device that was connected before: to have a lost link back.
  virtual bool Reconnect(const std::string& /*address*/, ProfileId /*profile*/) { return false; }
  /// Allows all profiles of all devices. ProfilesEnabledChanged follows.
  virtual void EnableProfiles() {}
  /// Disconnects a device, and keeps its profiles from being connected. ProfilesEnabledChanged follows.
  virtual void DisableProfiles(const std::string& /*address*/) {}
  /// The device whose connection of this profile is the one in use, and how far it is.
  virtual ConnectionState Connection(ProfileId /*profile*/) const { return {}; }

  /// Whether wireless projection runs now, as the head unit sees it.
  virtual bool SetProjectionRunning(bool /*running*/) { return false; }
  /// ProjectionPairingAnswered follows.
  virtual bool RequestProjectionPairing(const std::string& /*address*/, int /*method*/) { return false; }
  /// Whether the user lets this device project.
  virtual void SetProjectionAllowed(const std::string& /*address*/, bool /*allowed*/) {}
};

}  // namespace btservice

#endif
