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

  /// While this exists, events may be the answer to a question that the program asks by itself: they are news
  /// to nobody, and are not to be shown.
  class OwnQuestion {
   public:
    explicit OwnQuestion(EventHub& hub) : m_hub(hub) { ++m_hub.m_ownQuestions; }
    ~OwnQuestion() { --m_hub.m_ownQuestions; }
    OwnQuestion(const OwnQuestion&) = delete;
    OwnQuestion& operator=(const OwnQuestion&) = delete;

   private:
    EventHub& m_hub;
  };
  bool HasOwnQuestion() const { return m_ownQuestions > 0; }

  EventHub() : m_listeners([this](const Event& event) { Deliver(event); }) {}

 private:
  void Deliver(const Event& event) {
    for (const EventSink& sink : m_sinks) {
      sink(event);
    }
  }

  std::list<EventSink> m_sinks;
  int m_ownQuestions = 0;
  const Listeners m_listeners;  // last: it delivers from its construction on
};

}  // namespace btctl

#endif
