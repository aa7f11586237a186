#ifndef BTASYNC_SCOPE_H
#define BTASYNC_SCOPE_H

#include <btasync/Export.h>

namespace btasync {
inline namespace v0 {

namespace detail {
class HeldList;

/// Something that a scope holds: a call under way, a subscription, a coroutine.
class BTASYNC_API Held {
 public:
  Held() = default;
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;

  /// The scope goes, or is cleared: it must not run any more. It is no longer held, and deletes itself unless
  /// somebody else still needs it.
  virtual void Drop() = 0;
  /// False if another thread has destroyed its scope: it stays where it is, and must not run any more.
  bool MayRun() const;

 protected:
  virtual ~Held();
  /// Leaves the scope, as what has ended does.
  void Leave();

 private:
  friend class HeldList;
  Held* m_previous = nullptr;
  Held* m_next = nullptr;
  HeldList* m_list = nullptr;
};
}  // namespace detail

/// Holds calls under way, subscriptions and coroutines. None of them runs any more once it is destroyed or
/// cleared. Give each screen one, as its *last* member: it is then gone before anything that the callbacks
/// use.
///
/// Belongs to the thread of the service's loop while it holds something. May be destroyed inside a callback
/// that it holds. If another thread destroys it, an error is logged; nothing that it holds begins to run
/// after that.
class BTASYNC_API Scope {
 public:
  Scope() = default;
  Scope(const Scope&) = delete;
  Scope& operator=(const Scope&) = delete;
  ~Scope();

  /// Drops all that it holds. It may be used again.
  void Clear();
  /// Whether nothing is under way or subscribed.
  /// @returns false while it holds anything
  bool IsEmpty() const;

  /// For the library: whether this thread may give it something to hold. It may not while the scope holds
  /// what belongs to another one, which is logged.
  /// @returns true if Hold may be called
  bool MayHold() const;
  /// For the library: takes something in.
  /// @param held drops itself when it has ended
  void Hold(detail::Held& held);

 private:
  detail::HeldList* m_list = nullptr;
};

}  // namespace v0
}  // namespace btasync

#endif
