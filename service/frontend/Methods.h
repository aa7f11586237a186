#ifndef SERVICE_FRONTEND_METHODS_H
#define SERVICE_FRONTEND_METHODS_H

#include <bt_dbus.h>

#include "service/frontend/MethodBinder.h"
#include "service/frontend/segments/Publisher.h"
#include "service/stack/BluetoothStack.h"

namespace btservice {

#define BT_METHOD(stem)                                                              \
  btservice::MakeMethod("handle-" #stem, &ComZelkLinuxBluetoothIface::handle_##stem, \
                        com_zelk_linux_bluetooth_complete_##stem)

using ServiceBinder = MethodBinder<ComZelkLinuxBluetooth>;

// Which request of the stack answers which method. Results: 1 or true if the stack has taken the request on,
// 0 or false if it cannot.

/// All of them. Lists are published before the method is answered.
void BindAllMethods(ServiceBinder binder, BluetoothStack& stack, Publisher& publisher);

void BindAdapterMethods(ServiceBinder binder, AdapterControl& adapter);
void BindDeviceMethods(ServiceBinder binder, DeviceControl& devices);
void BindCallMethods(ServiceBinder binder, CallControl& calls);
void BindMusicMethods(ServiceBinder binder, MusicControl& music);
void BindBrowserMethods(ServiceBinder binder, MusicControl& music);
void BindPhoneBookMethods(ServiceBinder binder, PhoneBookControl& phoneBook, Publisher& publisher);
void BindSerialMethods(ServiceBinder binder, SerialControl& serial);

}  // namespace btservice

#endif
