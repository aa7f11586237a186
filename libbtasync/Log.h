#ifndef LIBBTASYNC_LOG_H
#define LIBBTASYNC_LOG_H

#include <exception>

namespace btasync {
inline namespace v0 {
namespace detail {

/// Writes a line to GLib's log, domain "btasync".
void LogWarning(const char* format, ...) __attribute__((format(printf, 1, 2)));
void LogDebug(const char* format, ...) __attribute__((format(printf, 1, 2)));

/// Another thread than the loop's asks for something, and does not get it.
void LogForeignThread(const char* what);

/// Runs an application's code. What it throws is logged and goes no further.
template <typename Function>
void RunGuarded(const char* what, Function function) {
  try {
    function();
  } catch (const std::exception& exception) {
    LogWarning("%s has thrown an exception: %s", what, exception.what());
  } catch (...) {
    LogWarning("%s has thrown something that is no std::exception", what);
  }
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
