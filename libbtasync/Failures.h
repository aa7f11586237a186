#ifndef LIBBTASYNC_FAILURES_H
#define LIBBTASYNC_FAILURES_H

#include <gio/gio.h>

#include <btasync/Answer.h>

namespace btasync {
inline namespace v0 {
namespace detail {

/// Why a call failed, from GIO's error.
Failure ToFailure(const GError& error);

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
