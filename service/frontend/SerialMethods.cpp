#include "service/frontend/Methods.h"

#include <cstring>

namespace btservice {

void BindSerialMethods(ServiceBinder binder, SerialControl& serial) {
  using S = SerialControl;
  binder.Bind(BT_METHOD(set_rf_comm_uuid), serial, &S::OfferService);
  binder.Bind(BT_METHOD(spp_send_text), [&serial](const gchar* address, const gchar* text) {
    return serial.Send(address, Bytes(text, text + std::strlen(text)));
  });
  binder.Bind(BT_METHOD(spp_send_buffer), serial, &S::Send);
  binder.Bind(BT_METHOD(set_hidcalibration), serial, &S::CalibrateHid);
  binder.Bind(BT_METHOD(set_hidsend_xy), serial, &S::SendHidPosition);
  binder.Bind(BT_METHOD(set_hidsend_key), serial, &S::SendHidKey);
}

}  // namespace btservice
