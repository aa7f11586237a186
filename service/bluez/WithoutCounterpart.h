#ifndef SERVICE_BLUEZ_WITHOUTCOUNTERPART_H
#define SERVICE_BLUEZ_WITHOUTCOUNTERPART_H

#include "service/bluez/Refusal.h"
#include "service/stack/DeviceControl.h"
#include "service/stack/SerialControl.h"

// The requests for which BlueZ has nothing: they are refused with a line in the log that says why.

namespace btservice::bluez {

class DevicesWithoutCounterpart : public DeviceControl {
 public:
  bool SetOobLinkKey(const std::string&, const Bytes&) override {
    return Refuse("SetDeviceOOBLinkKey", "BlueZ takes no link key that was exchanged by other means");
  }
};

class SerialWithoutCounterpart : public SerialControl {
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
