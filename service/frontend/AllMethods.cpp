#include "service/frontend/Methods.h"

namespace btservice {

void BindAllMethods(ServiceBinder binder, BluetoothStack& stack, Publisher& publisher) {
  BindAdapterMethods(binder, stack.Adapter());
  BindDeviceMethods(binder, stack.Devices());
  BindCallMethods(binder, stack.Calls());
  BindMusicMethods(binder, stack.Music());
  BindBrowserMethods(binder, stack.Music());
  BindPhoneBookMethods(binder, stack.PhoneBook(), publisher);
  BindSerialMethods(binder, stack.Serial());
}

}  // namespace btservice
