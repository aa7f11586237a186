#ifndef SERVICE_BLUEZ_ADAPTER_CAPABILITIES_H
#define SERVICE_BLUEZ_ADAPTER_CAPABILITIES_H

#include <map>

#include "service/bluez/StackContext.h"
#include "service/bluez/adapter/CurrentAdapter.h"
#include "service/bluez/adapter/Power.h"
#include "service/stack/StackStart.h"

namespace btservice::bluez {

/// The switches of the user. They are the service's own, but for one: whether other devices see the adapter,
/// which BlueZ forgets when it is switched off, and which is set anew each time it comes on.
class Capabilities {
 public:
  Capabilities(StackContext& context, CurrentAdapter& adapter, Power& power, const SettingsData& settings);

  /// CapabilityChanged follows, for the visibility when BlueZ has answered if the adapter is on; if BlueZ
  /// refuses, it has the value as it was, and a line in the log says why. Refuses a capability that cannot be
  /// switched and a value other than 0 and 1.
  bool Set(Capability capability, int value);
  /// 0 or 1; 0 for one that there is not.
  int Get(Capability capability) const;
  bool IsOn(Capability capability) const { return Get(capability) != 0; }
  /// Reports all of them as they are.
  void ReportAll() const;

 private:
  void Take(Capability capability, int value);
  bool SetVisible(bool visible, ReplyHandler done);

  StackContext& m_context;
  CurrentAdapter& m_adapter;
  Power& m_power;
  std::map<Capability, int> m_values;
};

}  // namespace btservice::bluez

#endif
