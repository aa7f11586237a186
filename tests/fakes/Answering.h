#ifndef TESTS_FAKES_ANSWERING_H
#define TESTS_FAKES_ANSWERING_H

#include <stdexcept>

#include <gio/gio.h>

namespace fakes {

/// Answers a call with what `act` returns, a tuple or null for none, or with InvalidArgs and the text of what
/// it throws. For the end of a handler of GLib's.
template <typename Act>
gboolean AnswerBy(GDBusMethodInvocation* call, const Act& act) {
  try {
    g_dbus_method_invocation_return_value(call, act());
  } catch (const std::exception& problem) {
    g_dbus_method_invocation_return_error_literal(call, G_DBUS_ERROR, G_DBUS_ERROR_INVALID_ARGS,
                                                  problem.what());
  }
  return TRUE;
}

}  // namespace fakes

#endif
