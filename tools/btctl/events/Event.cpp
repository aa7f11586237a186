#include "btctl/events/Event.h"

#include <algorithm>
#include <iterator>

#include <glib.h>

#include "btctl/base/Failure.h"
#include "btctl/base/Nearest.h"
#include "glib/Owned.h"

namespace btctl {
namespace {

bool IsSame(const std::string& left, const std::string& right) {
  return g_ascii_strcasecmp(left.c_str(), right.c_str()) == 0;
}

std::string CommaSeparated(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) {
    joined += joined.empty() ? text : ", " + text;
  }
  return joined;
}

std::vector<std::string> NamesOf(const std::vector<EventDescription>& events) {
  std::vector<std::string> names;
  std::transform(events.begin(), events.end(), std::back_inserter(names),
                 [](const EventDescription& event) { return event.name; });
  return names;
}

}  // namespace

EventValue Flag(int value) {
  EventValue flag(value);
  if (value == 0 || value == 1) {
    flag.shown = value == 1;
  }
  return flag;
}

EventValue Switched(int value) {
  EventValue position(value);
  position.shown = SwitchWords().Show(value);
  return position;
}

EventValue Bytes(const void* data, std::size_t length) {
  static constexpr char kDigits[] = "0123456789abcdef";
  const auto* const bytes = static_cast<const unsigned char*>(data);
  std::string text;
  for (std::size_t i = 0; i < length; ++i) {
    text += {kDigits[bytes[i] >> 4], kDigits[bytes[i] & 15]};
  }
  return text;
}

EventValue SixDigits(unsigned int passkey) {
  return std::string(OwnedText(g_strdup_printf("%06u", passkey)).get());
}

std::optional<int> NumberIn(const std::string& text) {
  gint64 number = 0;
  if (g_ascii_string_to_signed(text.c_str(), 10, G_MININT, G_MAXINT, &number, nullptr) == FALSE) {
    return std::nullopt;
  }
  return static_cast<int>(number);
}

const WordTable& YesNoWords() {
  static const WordTable words("", {{1, "yes"}, {0, "no"}, {1, "on"}, {0, "off"}, {1, "true"}, {0, "false"}});
  return words;
}

const WordTable& AnyNumber() {
  static const WordTable numbers("", {});
  return numbers;
}

EventDescription::EventDescription(const char* method, std::initializer_list<EventField> values)
    : name(method) {
  for (const EventField& field : values) {
    fields.emplace_back(field.name);
    words.push_back(field.words);
  }
}

const EventDescription& FindEvent(const std::string& name) {
  const auto& events = AllEvents();
  const auto found = std::find_if(events.begin(), events.end(),
                                  [&](const EventDescription& event) { return IsSame(event.name, name); });
  if (found == events.end()) {
    throw Failure(EXIT_UNKNOWN_NAME, "there is no event '" + name + "'",
                  DidYouMean(name, NamesOf(events), "'btctl events' lists them."));
  }
  return *found;
}

const EventValue& Event::Value(const std::string& field) const {
  const auto& fields = description->fields;
  const auto found =
      std::find_if(fields.begin(), fields.end(), [&](const auto& known) { return IsSame(known, field); });
  if (found == fields.end()) {
    throw Failure(EXIT_UNKNOWN_NAME, Name() + " has no value '" + field + "'",
                  fields.empty() ? "It has none at all." : "It has: " + CommaSeparated(fields) + ".");
  }
  return values[static_cast<std::size_t>(found - fields.begin())];
}

bool Event::Has(const std::string& field, const std::string& value) const {
  const EventValue& has = Value(field);
  if (has.number && NumberIn(value) == has.number) {
    return true;
  }
  if (has.shown.is_boolean()) {
    const bool isYes = has.shown.get<bool>();
    return IsSame(value, isYes ? "yes" : "no") || IsSame(value, isYes ? "on" : "off") ||
           IsSame(value, isYes ? "true" : "false");
  }
  return has.shown.is_string() && IsSame(has.shown.get<std::string>(), value);
}

Json Event::ToJson() const {
  Json shown = Json::object();
  for (std::size_t i = 0; i < values.size(); ++i) {
    shown[description->fields[i]] = values[i].shown;
  }
  return {{"kind", "event"}, {"time", time}, {"event", Name()}, {"values", shown}};
}

}  // namespace btctl
