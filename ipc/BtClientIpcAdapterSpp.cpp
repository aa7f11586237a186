// The requests about serial-port channels and HID: one call of the service each.
// ServiceCall.h says how they are read.

#define MWP_LOG_SOURCE "ipc/BtClientIpcAdapter"
#include <mwp/MWPLog.h>

#include "ipc/BtClientIpcAdapter.h"
#include "ipc/ServiceCall.h"

int BtClientIpcAdapter::SetRfCommUuid(const std::string& uuid) {
  return CallForResult<gboolean>(BT_CALL(set_rf_comm_uuid), uuid.c_str());
}

int BtClientIpcAdapter::SppSendText(const std::string& address, const std::string& text) {
  return CallForResult<gboolean>(BT_CALL(spp_send_text), address.c_str(), text.c_str());
}

// The preset of 1 is what callers get from a call that fails.
int BtClientIpcAdapter::SppSendBuffer(const std::string& address, char* buffer, int length) {
  gboolean result = 1;
  CallWithBytes(BT_CALL(spp_send_buffer), address, buffer, length > 0 ? length : 0, &result);
  return result;
}

int BtClientIpcAdapter::SetHIDCalibration(const std::string& address, MWPBtType::HIDTYPE type) {
  return CallForResult<gboolean>(BT_CALL(set_hidcalibration), address.c_str(), AsByte(type));
}

int BtClientIpcAdapter::SetHIDSendXY(const std::string& address, MWPBtType::HIDTYPE type, int x, int y,
                                     unsigned char button) {
  return CallForResult<gboolean>(BT_CALL(set_hidsend_xy), address.c_str(), AsByte(type), x, y, button);
}

int BtClientIpcAdapter::SetHIDSendKey(const std::string& address, int key) {
  return CallForResult<gboolean>(BT_CALL(set_hidsend_key), address.c_str(), key);
}
