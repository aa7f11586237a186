#include "libbtasync/Log.h"

#include <cstdarg>

#include <glib.h>

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

constexpr char kDomain[] = "btasync";

}  // namespace

void LogWarning(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  g_logv(kDomain, G_LOG_LEVEL_WARNING, format, arguments);
  va_end(arguments);
}

void LogDebug(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  g_logv(kDomain, G_LOG_LEVEL_DEBUG, format, arguments);
  va_end(arguments);
}

void LogForeignThread(const char* what) {
  LogWarning("another thread than the loop's asks for %s: refused", what);
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
