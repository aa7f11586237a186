#ifndef SERVICE_STACK_ADAPTERCONTROL_H
#define SERVICE_STACK_ADAPTERCONTROL_H

#include <string>

#include "service/stack/StackTypes.h"

namespace btservice {

/// The local adapter: power, settings, the search for devices. What holds for all requests is said at
/// BluetoothStack.
class AdapterControl {
 public:
  virtual ~AdapterControl() = default;

  /// Switches the adapter on or off. Refused if it is in that state, or on its way to it. PowerChanged
  /// follows for the way there and for its end. Off ends searches, pairings, calls and connections, each
  /// reported before the adapter is off.
  virtual bool SetPower(bool /*on*/) { return false; }
  /// BT_POWER_OFF as well if there is no adapter.
  virtual PowerStatus Power() const { return BT_POWER_OFF; }
  /// Reports everything that is known, in the order that MWPBtCom::GetBluetoothServiceStatus lists: a screen
  /// that joins late draws from it. Calls and a running download are part of it.
  virtual void ReportStatus() {}

  /// Sets a capability to 0 or 1; CapabilityChanged follows, also if it had that value. Other values and
  /// capabilities that cannot be switched are refused. The service keeps the value over a restart.
  virtual bool SetCapability(Capability /*capability*/, int /*value*/) { return false; }
  /// 0 for a capability that the stack does not have.
  virtual int GetCapability(Capability /*capability*/) const { return 0; }
  /// Sets an attribute; AttributeChanged follows. Refused if it is read only, or the value makes no sense.
  virtual bool SetAttribute(Attribute /*attribute*/, const std::string& /*value*/) { return false; }
  /// False, and value as it was, if there is no such attribute.
  virtual bool GetAttribute(Attribute /*attribute*/, std::string& /*value*/) const { return false; }

  /// Begins or ends a search; ScanChanged and DeviceFound follow. A search ends by itself after a while.
  virtual bool SetScanning(bool /*on*/) { return false; }
  /// Forgets the devices that were found and are not paired.
  virtual void ForgetFoundDevices() {}
  /// Makes the adapter ready for a tester, for which it is visible from then on. Refused while it is off.
  virtual bool EnterTestMode() { return false; }
};

}  // namespace btservice

#endif
