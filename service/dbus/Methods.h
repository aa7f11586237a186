#ifndef SERVICE_DBUS_METHODS_H
#define SERVICE_DBUS_METHODS_H

#include "service/dbus/MethodBinder.h"
#include "service/stack/BluetoothStack.h"

namespace btservice {

// Which request of the stack answers which method. Results: 1 or true if the stack has taken the request on,
// 0 or false if it cannot.

void BindAdapterMethods(MethodBinder binder, AdapterControl& adapter);
void BindDeviceMethods(MethodBinder binder, DeviceControl& devices);

}  // namespace btservice

#endif
