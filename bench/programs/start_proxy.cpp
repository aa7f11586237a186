// A program that does nothing but make the generated proxy of the service.

#include <bt_dbus.h>

#include "bench/programs/StartFigures.h"
#include "protocol/BusNames.h"

int main() {
  if (com_zelk_linux_bluetooth_proxy_new_for_bus_sync(G_BUS_TYPE_SESSION, G_DBUS_PROXY_FLAGS_NONE,
                                                      kServiceName, kServicePath, nullptr,
                                                      nullptr) == nullptr) {
    return 1;
  }
  PrintStartFigures();
  return 0;
}
