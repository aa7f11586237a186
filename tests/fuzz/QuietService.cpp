// A service that answers at once. The generated functions are exported and can be replaced, and those of the
// program come before those of the library: the calls that precede the reading of a list succeed without a
// bus.

#include <bt_dbus.h>

#define REPLACES_LIBRARY extern "C" __attribute__((visibility("default")))

REPLACES_LIBRARY gboolean com_zelk_linux_bluetooth_call_get_contact_list_sync(ComZelkLinuxBluetooth*,
                                                                              gboolean* result, GCancellable*,
                                                                              GError**) {
  *result = TRUE;
  return TRUE;
}

REPLACES_LIBRARY gboolean com_zelk_linux_bluetooth_call_get_fav_contact_list_sync(ComZelkLinuxBluetooth*,
                                                                                  gboolean* result,
                                                                                  GCancellable*, GError**) {
  *result = TRUE;
  return TRUE;
}

REPLACES_LIBRARY gboolean com_zelk_linux_bluetooth_call_get_call_log_list_sync(ComZelkLinuxBluetooth*, guchar,
                                                                               gboolean* result,
                                                                               GCancellable*, GError**) {
  *result = TRUE;
  return TRUE;
}
