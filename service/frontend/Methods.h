#ifndef SERVICE_FRONTEND_METHODS_H
#define SERVICE_FRONTEND_METHODS_H

#include <bt_dbus.h>

#include "service/frontend/MethodBinder.h"
#include "service/frontend/segments/Publisher.h"
#include "service/stack/BluetoothStack.h"

namespace btservice {

/// A method of the service's interface, by the name that the generated functions have for it: set_power.
#define BT_METHOD(stem)                                                              \
  btservice::MakeMethod("handle-" #stem, &ComZelkLinuxBluetoothIface::handle_##stem, \
                        com_zelk_linux_bluetooth_complete_##stem)

using ServiceBinder = MethodBinder<ComZelkLinuxBluetooth>;

// Which request of the stack answers which method. Results: 1 or true if the stack has taken the request on,
// 0 or false if it cannot. Call each once, before the skeleton is on the bus; what is bound must outlive the
// skeleton. Requests come on the thread of the main loop, and no other runs meanwhile.

/// All of them. Lists are published before the method is answered.
void BindAllMethods(ServiceBinder binder, BluetoothStack& stack, Publisher& publisher);

void BindAdapterMethods(ServiceBinder binder, AdapterControl& adapter);
void BindDeviceMethods(ServiceBinder binder, DeviceControl& devices);
void BindCallMethods(ServiceBinder binder, CallControl& calls);
void BindMusicMethods(ServiceBinder binder, MusicControl& music);
void BindBrowserMethods(ServiceBinder binder, MusicControl& music);
/// Those that ask for a list have it published, and answer 0 if its segment cannot be had.
void BindPhoneBookMethods(ServiceBinder binder, PhoneBookControl& phoneBook, Publisher& publisher);
void BindSerialMethods(ServiceBinder binder, SerialControl& serial);

}  // namespace btservice

#endif
