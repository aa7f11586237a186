#ifndef TOOLS_BTCTL_EVENTS_LISTENERS_H
#define TOOLS_BTCTL_EVENTS_LISTENERS_H

#include <functional>
#include <memory>

namespace btctl {

struct Event;

using EventSink = std::function<void(const Event&)>;

/// One listener of each of the seven kinds, which pass all their events to one sink.
///
/// A listener hears events from its construction to its destruction, and there is nothing else to call. Make
/// and destroy this on the thread that runs the main loop, which is the one that the sink is called on.
class Listeners {
 public:
  explicit Listeners(EventSink sink);
  ~Listeners();
  Listeners(const Listeners&) = delete;
  Listeners& operator=(const Listeners&) = delete;

 private:
  struct All;
  const std::unique_ptr<All> m_all;
};

}  // namespace btctl

#endif
