#ifndef TOOLS_BTCTL_EVENTS_EVENTHUB_H
#define TOOLS_BTCTL_EVENTS_EVENTHUB_H

#include <list>
#include <memory>

#include "btctl/events/Listeners.h"

namespace btctl {

/// Hands each event to all who want them at that time. Used on the thread of the main loop alone.
class EventHub {
 public:
  /// Ends with the object.
  class Subscription {
   public:
    Subscription(EventHub& hub, EventSink sink) : m_hub(hub) {
      m_place = m_hub.m_sinks.insert(m_hub.m_sinks.end(), std::move(sink));
    }
    ~Subscription() { m_hub.m_sinks.erase(m_place); }
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;

   private:
    EventHub& m_hub;
    std::list<EventSink>::iterator m_place;
  };

  EventHub() : m_listeners([this](const Event& event) { Deliver(event); }) {}

 private:
  void Deliver(const Event& event) {
    for (const EventSink& sink : m_sinks) {
      sink(event);
    }
  }

  std::list<EventSink> m_sinks;
  const Listeners m_listeners;  // last: it delivers from its construction on
};

}  // namespace btctl

#endif
