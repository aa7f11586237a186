#ifndef SERVICE_STACK_STACKSTART_H
#define SERVICE_STACK_STACKSTART_H

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "service/stack/StackTypes.h"

namespace btservice {

// What a stack begins with: plain values, which it takes over when it is made.

/// The settings of the user, 0 or 1 each. The service keeps them; a stack reports a change as
/// CapabilityChanged.
struct SettingsData {
  std::map<Capability, int> capabilities;  ///< all that can be switched; one that is missing is 0
  int autoAnswerPair = 0;                  ///< accept pairings without asking anybody
};

/// A paired device, as it is kept over a restart.
struct KeptDevice {
  std::string address;
  std::string name;
};

/// What a stack wants to be kept over a restart. It is asked for it after each PairedDevicesChanged and
/// AttributeChanged (BluetoothStack::Kept), and the next stack gets what was kept last.
struct KeptState {
  std::map<Attribute, std::string>
      attributes;                  ///< those that can be set; one that is missing has its default
  std::vector<KeptDevice> paired;  ///< in the order of the list of paired devices
};

/// All of it together.
struct StackStart {
  SettingsData settings;
  /// Nothing if nothing was kept yet: a first start.
  std::optional<KeptState> kept;
};

}  // namespace btservice

#endif
