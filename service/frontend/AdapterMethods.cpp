#include "service/frontend/Methods.h"

namespace btservice {

void BindAdapterMethods(ServiceBinder binder, AdapterControl& adapter) {
  using A = AdapterControl;
  binder.Bind(BT_METHOD(get_bluetooth_service_status), adapter, &A::ReportStatus);
  binder.Bind(BT_METHOD(set_power), adapter, &A::SetPower);
  binder.Bind(BT_METHOD(get_power_status), adapter, &A::Power);
  binder.Bind(BT_METHOD(set_capability), adapter, &A::SetCapability);
  binder.Bind(BT_METHOD(get_capability), adapter, &A::GetCapability);
  binder.Bind(BT_METHOD(get_attribute), [&adapter](guchar attribute) {
    std::string value;
    const bool known = adapter.GetAttribute(static_cast<Attribute>(attribute), value);
    return std::tuple(value, known);
  });
  binder.Bind(BT_METHOD(set_attribute), adapter, &A::SetAttribute);
  binder.Bind(BT_METHOD(set_auto_connect), [&adapter](gboolean enable) {
    return adapter.SetCapability(BT_CAP_AUTO_CONNECT, enable != FALSE);
  });
  binder.Bind(BT_METHOD(set_scan_action), adapter, &A::SetScanning);
  binder.Bind(BT_METHOD(clear_scaned_device_list), adapter, &A::ForgetFoundDevices);
  binder.Bind(BT_METHOD(enter_test_mode), adapter, &A::EnterTestMode);
}

}  // namespace btservice
