#include "service/simulation/controls/CallLimit.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace btservice {
namespace {

/// What most controls are given is kept, for as long as the service runs.
constexpr gsize kMostBytes = gsize{64} << 10;
constexpr gsize kMostBytesOfLargeOnes = gsize{17} << 20;
constexpr std::string_view kLargeOnes[] = {"AddDevice",  "SetContacts", "SetTracks",
                                           "SendSerial", "EmitSignal",  "CorruptSegment"};

gsize MostBytesOf(std::string_view method) {
  const bool isLarge =
      std::find(std::begin(kLargeOnes), std::end(kLargeOnes), method) != std::end(kLargeOnes);
  return isLarge ? kMostBytesOfLargeOnes : kMostBytes;
}

}  // namespace

bool CallLimit::TakeOver(GDBusMethodInvocation* invocation) {
  const gsize size = g_variant_get_size(g_dbus_method_invocation_get_parameters(invocation));
  const gsize most = MostBytesOf(g_dbus_method_invocation_get_method_name(invocation));
  if (size <= most) {
    return false;
  }
  g_dbus_method_invocation_return_error(invocation, G_DBUS_ERROR, G_DBUS_ERROR_LIMITS_EXCEEDED,
                                        "expected arguments of at most %" G_GSIZE_FORMAT
                                        " KiB, got %" G_GSIZE_FORMAT " bytes",
                                        most >> 10, size);
  return true;
}

}  // namespace btservice
