#ifndef SERVICE_STACK_SERIALCONTROL_H
#define SERVICE_STACK_SERIALCONTROL_H

#include <string>

#include "service/stack/StackTypes.h"

namespace btservice {

/// Serial channels, and input to a phone over HID. What holds for all requests is said at BluetoothStack.
class SerialControl {
 public:
  virtual ~SerialControl() = default;

  /// Lets devices open a serial channel to the service of this UUID. SerialChannelChanged when one does.
  virtual bool OfferService(const std::string& /*uuid*/) { return false; }
  /// Refused if there is no channel to that device. What comes back is SerialDataArrived.
  virtual bool Send(const std::string& /*address*/, const Bytes& /*data*/) { return false; }

  /// HidCalibrated follows.
  virtual bool CalibrateHid(const std::string& /*address*/, HIDTYPE /*type*/) { return false; }
  /// Sends a position or movement, and the state of the buttons. Refused if the device takes no input of this
  /// type.
  virtual bool SendHidPosition(const std::string& /*address*/, HIDTYPE /*type*/, int /*x*/, int /*y*/,
                               int /*buttons*/) {
    return false;
  }
  /// Sends a key. Refused if the device takes no input.
  virtual bool SendHidKey(const std::string& /*address*/, int /*key*/) { return false; }
};

}  // namespace btservice

#endif
