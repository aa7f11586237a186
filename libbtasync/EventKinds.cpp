// Which signal each structure of Events.h comes from.

#include <btasync/Service.h>

#include "libbtasync/EventKind.h"
#include "libbtasync/SignalOf.h"
#include "libbtasync/Wire.h"

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

template <typename Event>
bool DecodeSignal(GVariant* values, EventSink& sink) {
  using Signal = wire::SignalOf<Event>;
  if (!wire::Fits<Signal>(values)) {
    return false;
  }
  const Event event = wire::Fill<Signal, Event>(values);
  sink.Take(&event);
  return true;
}

}  // namespace

template <>
BTASYNC_API const EventKind& KindOf<Availability>() {
  static constexpr EventKind kKind{nullptr, nullptr};
  return kKind;
}

#define BT_EVENT(Event, Signal)                                                \
  template <>                                                                  \
  BTASYNC_API const EventKind& KindOf<Event>() {                               \
    static constexpr EventKind kKind{wire::Signal::name, DecodeSignal<Event>}; \
    return kKind;                                                              \
  }

#include "EventKinds.inc"  // generated from Events.h

#undef BT_EVENT

}  // namespace detail
}  // namespace v0
}  // namespace btasync
