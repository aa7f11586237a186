#ifndef LIBBTASYNC_SUBSCRIBERS_H
#define LIBBTASYNC_SUBSCRIBERS_H

#include <functional>

#include <btasync/Service.h>

#include "libbtasync/EventKind.h"

namespace btasync {
inline namespace v0 {
namespace detail {

/// Those who wait for one kind of event, in the order of their subscription. While an event is delivered, any
/// of them may go, and others may come: those hear of the next one.
class Subscribers final : public EventSink {
 public:
  /// lastHasGone: nobody waits any more.
  explicit Subscribers(std::function<void()> lastHasGone) : m_lastHasGone(std::move(lastHasGone)) {}
  Subscribers(const Subscribers&) = delete;
  Subscribers& operator=(const Subscribers&) = delete;
  ~Subscribers() { Clear(); }

  void Add(Subscription& subscription);
  void Remove(Subscription& subscription);
  /// They stay with their scopes, and hear nothing any more.
  void Clear();
  bool IsEmpty() const { return m_first == nullptr; }
  /// Delivers an event. This has to live until it returns.
  void Take(const void* event) override;

 private:
  /// A delivery that is under way.
  struct Walk {
    Subscription* next;  ///< the next to hear
    Walk* outer;         ///< one that a callback has come from
  };

  std::function<void()> m_lastHasGone;
  Subscription* m_first = nullptr;
  Subscription* m_last = nullptr;
  Walk* m_walks = nullptr;
  unsigned long m_added = 0;
};

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
