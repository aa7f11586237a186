#include "system/ProxyAttempts.h"

#include <dlfcn.h>

namespace bttest {

std::function<ComZelkLinuxBluetooth*(const ProxyAttempt&)> g_onProxyAttempt;

ComZelkLinuxBluetooth* MakeProxy(const ProxyAttempt& attempt) {
  using Function = decltype(&com_zelk_linux_bluetooth_proxy_new_for_bus_sync);
  static const auto real =
      reinterpret_cast<Function>(dlsym(RTLD_NEXT, "com_zelk_linux_bluetooth_proxy_new_for_bus_sync"));
  return real(attempt.bus, attempt.flags, attempt.name, attempt.path, attempt.cancellable, attempt.error);
}

}  // namespace bttest

// Takes the place of the generated function for the library under test.
extern "C" __attribute__((visibility("default"))) ComZelkLinuxBluetooth*
com_zelk_linux_bluetooth_proxy_new_for_bus_sync(GBusType bus, GDBusProxyFlags flags, const gchar* name,
                                                const gchar* path, GCancellable* cancellable,
                                                GError** error) {
  const bttest::ProxyAttempt attempt{bus, flags, name, path, cancellable, error};
  return bttest::g_onProxyAttempt ? bttest::g_onProxyAttempt(attempt) : bttest::MakeProxy(attempt);
}
