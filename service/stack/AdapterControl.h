#ifndef SERVICE_STACK_ADAPTERCONTROL_H
#define SERVICE_STACK_ADAPTERCONTROL_H

#include <string>

#include "service/stack/StackTypes.h"

namespace btservice {

/// The local adapter: power, settings, the search for devices.
class AdapterControl {
 public:
  virtual ~AdapterControl() = default;

  virtual bool SetPower(bool on) = 0;
  virtual PowerStatus Power() const = 0;
  /// Has everything that is known reported again, calls and a running download included.
  virtual void ReportStatus() = 0;

  virtual bool SetCapability(Capability capability, int value) = 0;
  virtual int GetCapability(Capability capability) const = 0;
  virtual bool SetAttribute(Attribute attribute, const std::string& value) = 0;
  /// False if there is no such attribute.
  virtual bool GetAttribute(Attribute attribute, std::string& value) const = 0;

  virtual bool SetScanning(bool on) = 0;
  virtual void ForgetFoundDevices() = 0;
  virtual bool EnterTestMode() = 0;
};

}  // namespace btservice

#endif
