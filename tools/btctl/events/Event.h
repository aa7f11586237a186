#ifndef TOOLS_BTCTL_EVENTS_EVENT_H
#define TOOLS_BTCTL_EVENTS_EVENT_H

#include <initializer_list>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "btctl/base/Json.h"
#include "btctl/words/Words.h"

namespace btctl {

/// One value of an event: what is shown of it, and the number behind it, if it is one.
struct EventValue {
  Json shown;
  std::optional<int> number;

  EventValue(const std::string& text) : shown(text) {}
  EventValue(int value) : shown(value), number(value) {}
  template <typename Enumeration, typename = std::enable_if_t<std::is_enum_v<Enumeration>>>
  EventValue(Enumeration value) : shown(WordsOf<Enumeration>().Show(value)), number(value) {}
};

/// A 0 or 1 that means no or yes. Anything else is shown as it came.
EventValue Flag(int value);
/// The position of a switch: off or on.
EventValue Switched(int value);
/// Bytes, in hexadecimal digits.
EventValue Bytes(const void* data, std::size_t length);
/// A passkey, as it is read out.
EventValue SixDigits(unsigned int passkey);

/// The whole number that a text is; nothing if it is none.
std::optional<int> NumberIn(const std::string& text);

/// The words for a flag, as Event::Has takes them.
const WordTable& YesNoWords();

/// Stands for any whole number among the words of events.
const WordTable& AnyNumber();

/// One value of an event: its name, and the words that it can be, or AnyNumber(); null for a text.
struct EventField {
  const char* name;
  const WordTable* words = nullptr;
};

struct EventDescription {
  EventDescription(const char* method, std::initializer_list<EventField> values);

  const char* name;  ///< of the listener's method
  std::vector<std::string> fields;
  std::vector<const WordTable*> words;  ///< of each field
};

/// All events of the seven listener interfaces.
const std::vector<EventDescription>& AllEvents();
/// The event of that name, whatever the case of its letters. Throws a Failure if there is none.
const EventDescription& FindEvent(const std::string& name);

/// One call of a listener's method.
struct Event {
  const EventDescription* description;
  std::vector<EventValue> values;  ///< one for each field
  std::string time;                ///< when it came: 2026-05-31T18:05:00.123Z

  std::string Name() const { return description->name; }
  /// Throws a Failure if the event has no such field.
  const EventValue& Value(const std::string& field) const;
  /// Whether a field has a value, given as the word or number that it is shown as, or the number behind it.
  bool Has(const std::string& field, const std::string& value) const;
  /// {"kind":"event","time":...,"event":...,"values":{...}}
  Json ToJson() const;
};

}  // namespace btctl

#endif
