#ifndef LIBBTASYNC_SIGNALOF_H
#define LIBBTASYNC_SIGNALOF_H

#include <btasync/Events.h>

#include "WireNames.h"

namespace btasync::wire {

/// The signal that a structure of Events.h comes from: one of WireNames.h.
template <typename Event>
struct SignalOf;

// NOLINTBEGIN(bugprone-macro-parentheses): a base class cannot stand in parentheses
#define BT_EVENT(Event, Signal) \
  template <>                   \
  struct SignalOf<Event> : Signal {};
// NOLINTEND(bugprone-macro-parentheses)
#include "EventKinds.inc"  // generated from Events.h
#undef BT_EVENT

}  // namespace btasync::wire

#endif
