#ifndef TESTS_SYSTEM_PROXYATTEMPTS_H
#define TESTS_SYSTEM_PROXYATTEMPTS_H

#include <functional>

#include "ipc/BtClientIpcAdapter.h"
#include "system/fixtures.h"

namespace bttest {

/// One attempt of the library under test to make its proxy: what it gives the generated function.
struct ProxyAttempt {
  GBusType bus;
  GDBusProxyFlags flags;
  const char* name;
  const char* path;
  GCancellable* cancellable;
  GError** error;
};

/// Makes the proxy, as the generated function does.
ComZelkLinuxBluetooth* MakeProxy(const ProxyAttempt& attempt);

/// Takes the place of the generated function; without it, or while it is empty, MakeProxy does. It returns
/// the proxy, or null with an error in the attempt.
extern std::function<ComZelkLinuxBluetooth*(const ProxyAttempt&)> g_onProxyAttempt;

}  // namespace bttest

#endif
