#ifndef SERVICE_BLUEZ_BLUEZSERIAL_H
#define SERVICE_BLUEZ_BLUEZSERIAL_H

#include "service/bluez/Refusal.h"
#include "service/stack/SerialControl.h"

namespace btservice::bluez {

/// Input to a phone over HID has nothing below it in BlueZ: it is refused with a line in the log that says
/// why.
class BluezSerial : public SerialControl {
 public:
  bool CalibrateHid(const std::string&, HIDTYPE) override { return RefuseHid("SetHIDCalibration"); }
  bool SendHidPosition(const std::string&, HIDTYPE, int, int, int) override {
    return RefuseHid("SetHIDSendXY");
  }
  bool SendHidKey(const std::string&, int) override { return RefuseHid("SetHIDSendKey"); }

 private:
  static bool RefuseHid(const char* request) {
    return Refuse(request, "BlueZ takes input from devices, and is none itself");
  }
};

}  // namespace btservice::bluez

#endif
