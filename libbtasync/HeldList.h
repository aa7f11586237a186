#ifndef LIBBTASYNC_HELDLIST_H
#define LIBBTASYNC_HELDLIST_H

#include <atomic>
#include <thread>

#include <btasync/Scope.h>

namespace btasync {
inline namespace v0 {
namespace detail {

/// What a scope holds. It outlives its scope if another thread destroys that: it then only says that nothing
/// in it may run any more, and goes with the last that it holds.
class HeldList {
 public:
  void Add(Held& held);
  void Remove(Held& held);
  /// Drops all.
  void DropAll();
  /// Its scope goes.
  void Abandon();

  bool IsEmpty() const { return m_first == nullptr; }
  bool IsAbandoned() const { return m_isAbandoned; }
  bool IsOwnThread() const { return m_thread == std::this_thread::get_id(); }

 private:
  const std::thread::id m_thread = std::this_thread::get_id();
  Held* m_first = nullptr;
  std::atomic<bool> m_isAbandoned{false};
  int m_drops = 0;  ///< DropAll that are running: what goes may own the scope
};

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
