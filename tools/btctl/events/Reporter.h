#ifndef TOOLS_BTCTL_EVENTS_REPORTER_H
#define TOOLS_BTCTL_EVENTS_REPORTER_H

#include <stdexcept>
#include <utility>

#include "btctl/events/Event.h"
#include "btctl/events/Listeners.h"

namespace btctl {

/// Makes an Event of each call of a listener's method, and hands it to the sink.
class Reporter {
 public:
  explicit Reporter(EventSink sink) : m_sink(std::move(sink)) {}

  /// `method` is the listener's method; the values are in the order of the event's fields.
  template <typename... Values>
  void Report(const char* method, const Values&... values) const {
    const EventDescription& description = FindEvent(method);
    if (description.fields.size() != sizeof...(values)) {
      throw std::logic_error(std::string(method) + " is described with other values");
    }
    m_sink(Event{&description, {EventValue(values)...}, Now()});
  }

 private:
  static std::string Now();

  const EventSink m_sink;
};

}  // namespace btctl

#endif
