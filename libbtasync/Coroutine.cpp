// What btasync/Coroutine.h needs of the library, which is C++17.

#include <btasync/Export.h>

#include "libbtasync/Log.h"

namespace btasync {
inline namespace v0 {
namespace detail {

BTASYNC_API void LogEndOfCoroutine() noexcept;

void LogEndOfCoroutine() noexcept {
  RunGuarded("a coroutine", [] { throw; });
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
