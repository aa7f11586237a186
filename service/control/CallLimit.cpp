#include "service/control/CallLimit.h"

namespace btservice {
namespace {

constexpr gsize kMostBytes = gsize{17} << 20;

}  // namespace

bool CallLimit::TakeOver(GDBusMethodInvocation* invocation) {
  const gsize size = g_variant_get_size(g_dbus_method_invocation_get_parameters(invocation));
  if (size <= kMostBytes) {
    return false;
  }
  g_dbus_method_invocation_return_error(invocation, G_DBUS_ERROR, G_DBUS_ERROR_LIMITS_EXCEEDED,
                                        "expected arguments of at most %" G_GSIZE_FORMAT
                                        " MiB, got %" G_GSIZE_FORMAT " bytes",
                                        kMostBytes >> 20, size);
  return true;
}

}  // namespace btservice
