#include "btctl/events/FieldWords.h"

#include <algorithm>

#include "btctl/base/Failure.h"
#include "btctl/base/Nearest.h"

namespace btctl {
namespace {

/// What the description says of a field; null for a text, and if there is no such field.
const WordTable* EntryOf(const EventDescription& event, const std::string& field) {
  const auto place = std::find(event.fields.begin(), event.fields.end(), field);
  return place != event.fields.end() ? event.words[static_cast<std::size_t>(place - event.fields.begin())]
                                     : nullptr;
}

}  // namespace

bool HoldsNumber(const EventDescription& event, const std::string& field) {
  return EntryOf(event, field) == &AnyNumber();
}

const WordTable* WordsOfField(const EventDescription& event, const std::string& field) {
  return HoldsNumber(event, field) ? nullptr : EntryOf(event, field);
}

void CheckCanHave(const EventDescription& event, const std::string& field, const std::string& value) {
  const std::string never = field + " of " + event.name + " is never '" + value + "'";
  if (HoldsNumber(event, field) && !NumberIn(value)) {
    throw Failure(EXIT_UNKNOWN_NAME, never, "It is a whole number.");
  }
  const WordTable* const words = WordsOfField(event, field);
  if (words == nullptr || words->Find(value)) {
    return;
  }
  std::string known;
  std::vector<std::string> names;
  for (const EnumWord& word : words->Words()) {
    known += known.empty() ? word.text : std::string(", ") + word.text;
    names.emplace_back(word.text);
  }
  const std::string suggestion = DidYouMean(value, names, "");
  throw Failure(EXIT_UNKNOWN_NAME, never,
                suggestion + (suggestion.empty() ? "" : " ") + "It can be: " + known + ".");
}

}  // namespace btctl
