#ifndef LIBBTASYNC_EVENTKIND_H
#define LIBBTASYNC_EVENTKIND_H

#include <btasync/Request.h>

namespace btasync {
inline namespace v0 {
namespace detail {

/// Runs those who wait for an event.
class EventSink {
 public:
  virtual void Take(const void* event) = 0;

 protected:
  ~EventSink() = default;
};

/// A kind of event that can be subscribed. There is one object for each, compared by its address.
struct EventKind {
  const char* signal;  ///< on the bus; null: Availability, which is no signal
  /// Reads the values of a signal and gives the event to the sink; false, if they are not of its types.
  bool (*decode)(_GVariant* values, EventSink& sink);
};

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
