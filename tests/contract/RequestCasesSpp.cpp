#include <bluetooth/MWPBtSpp.h>

#include "contract/RequestCases.h"

namespace bttest {

using F = MWPBtSpp;
using C = MWPBtClient;

std::vector<RequestCase> SppRequests() {
  static char bytes[] = {'a', 0, 'b'};
  char* const buffer = bytes;
  const auto mouse = MWPBtType::BT_HID_MOUSE;
  return {
      {"SetRfCommUuid", Asks(&F::SetRfCommUuid, &C::SetRfCommUuid, "uuid"), "SetRfCommUuid('uuid',)",
       "(true,)", "1"},
      {"SppSendText", Asks(&F::SppSendText, &C::SppSendText, "a", "text"), "SppSendText('a', 'text')",
       "(true,)", "1"},
      // Answers 1 whatever the service says.
      {"SppSendBuffer", Asks(&F::SppSendBuffer, &C::SppSendBuffer, "a", buffer, 3),
       "SppSendBuffer('a', <[byte 0x61, 0x00, 0x62]>)", "(false,)", "1", Guarded::NO},
      {"SetHIDCalibration", Asks(&F::SetHIDCalibration, &C::SetHIDCalibration, "a", mouse),
       "SetHIDCalibration('a', byte 0x01)", "(true,)", "1"},
      {"SetHIDSendXY", Asks(&F::SetHIDSendXY, &C::SetHIDSendXY, "a", mouse, -1, 2147483647, 255),
       "SetHIDSendXY('a', byte 0x01, -1, 2147483647, byte 0xff)", "(true,)", "1"},
      {"SetHIDSendKey", Asks(&F::SetHIDSendKey, &C::SetHIDSendKey, "a", -9), "SetHIDSendKey('a', -9)",
       "(true,)", "1"},
  };
}

}  // namespace bttest
