#ifndef LIBBTASYNC_HELDLIST_H
#define LIBBTASYNC_HELDLIST_H

#include <atomic>
#include <mutex>
#include <thread>

#include <btasync/Scope.h>

namespace btasync {
inline namespace v0 {
namespace detail {

/// What a scope holds. Belongs to one thread while it holds something. It outlives its scope if another
/// thread destroys that: it then only says that nothing in it may run any more, and goes with the last that
/// it holds.
class HeldList {
 public:
  void Add(Held& held);
  void Remove(Held& held);
  /// Drops all.
  void DropAll();
  /// Its scope goes.
  void Abandon();

  bool IsEmpty() const;
  bool IsAbandoned() const { return m_isAbandoned; }
  /// Whether it is free for this thread: empty, or this thread's already.
  bool IsOwnThread() const;

 private:
  /// Whether nobody needs it any more. With the mutex locked.
  bool IsUnused() const { return m_isAbandoned && m_first == nullptr && m_drops == 0; }

  /// For all but the way along the list, which is the own thread's alone.
  mutable std::mutex m_mutex;
  std::thread::id m_thread;
  Held* m_first = nullptr;
  std::atomic<bool> m_isAbandoned{false};
  int m_drops = 0;  ///< DropAll that are running: what goes may own the scope
};

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
