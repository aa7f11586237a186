#include "bench/sections/QuickCall.h"

#include <bt_dbus.h>
#include <dlfcn.h>

namespace {

bool s_isQuick = false;

}  // namespace

QuickCall::QuickCall() { s_isQuick = true; }
QuickCall::~QuickCall() { s_isQuick = false; }

// Takes the place of the library's function: the bindings are exported, and the program comes first.
extern "C" __attribute__((visibility("default"))) gboolean
com_zelk_linux_bluetooth_call_get_contact_list_sync(ComZelkLinuxBluetooth* proxy, gboolean* result,
                                                    GCancellable* cancellable, GError** error) {
  if (s_isQuick) {
    *result = TRUE;
    return TRUE;
  }
  static const auto generated =
      reinterpret_cast<decltype(&com_zelk_linux_bluetooth_call_get_contact_list_sync)>(
          dlsym(RTLD_NEXT, "com_zelk_linux_bluetooth_call_get_contact_list_sync"));
  return generated(proxy, result, cancellable, error);
}
