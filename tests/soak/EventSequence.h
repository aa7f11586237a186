#ifndef TESTS_SOAK_EVENTSEQUENCE_H
#define TESTS_SOAK_EVENTSEQUENCE_H

#include <optional>
#include <string>

namespace btsoak {

/// An event whose text tells where in the sequence of all of them it belongs.
struct NumberedEvent {
  int service = 0;     ///< which start of the service it comes from, from 1
  int number = 0;      ///< which event of that service, from 1
  int sureBefore = 0;  ///< the last number of the service before that the bus has taken for sure
  bool mark = false;   ///< whoever hears it reports that

  std::string Text() const;
  /// Nothing if the text is no numbered event's.
  static std::optional<NumberedEvent> From(const std::string& text);
};

/// What one listener has heard, and whether anything is missing in it.
class EventSequence {
 public:
  /// Takes the next event. Answers what is wrong with it in its place, or an empty text. A listener begins
  /// with whatever it hears first.
  std::string Hear(const NumberedEvent& event);

 private:
  std::optional<NumberedEvent> m_last;
};

}  // namespace btsoak

#endif
