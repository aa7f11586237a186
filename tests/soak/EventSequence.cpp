#include "soak/EventSequence.h"

#include <cstdio>

namespace btsoak {

std::string NumberedEvent::Text() const {
  return "soak " + std::to_string(service) + " " + std::to_string(number) + " " + std::to_string(sureBefore) +
         (mark ? " mark" : " event");
}

std::optional<NumberedEvent> NumberedEvent::From(const std::string& text) {
  NumberedEvent event;
  char kind = 0;
  if (std::sscanf(text.c_str(), "soak %d %d %d %c", &event.service, &event.number, &event.sureBefore,
                  &kind) != 4) {
    return std::nullopt;
  }
  event.mark = kind == 'm';
  return event;
}

std::string EventSequence::Hear(const NumberedEvent& event) {
  const std::optional<NumberedEvent> last = m_last;
  m_last = event;
  if (!last) {
    return "";
  }
  const bool isNext =
      event.service == last->service
          ? event.number == last->number + 1
          : event.service == last->service + 1 && event.number == 1 && last->number >= event.sureBefore;
  return isNext ? "" : "'" + event.Text() + "' was heard after '" + last->Text() + "'";
}

}  // namespace btsoak
