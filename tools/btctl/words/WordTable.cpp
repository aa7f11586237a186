#include "btctl/words/WordTable.h"

#include <glib.h>

#include "btctl/base/Failure.h"
#include "btctl/base/Json.h"
#include "btctl/base/Nearest.h"

namespace btctl {
namespace {

constexpr guint64 kHighestValue = 255;  // enumerations travel as one byte

}  // namespace

Json WordTable::Show(int value) const {
  if (const char* const word = m_words.WordFor(value)) {
    return word;
  }
  return value;
}

std::optional<int> WordTable::Find(const std::string& text) const {
  for (const EnumWord& word : Words()) {
    if (g_ascii_strcasecmp(word.text, text.c_str()) == 0) {
      return word.value;
    }
  }
  guint64 number = 0;
  if (g_ascii_string_to_unsigned(text.c_str(), 10, 0, kHighestValue, &number, nullptr) != FALSE) {
    return static_cast<int>(number);
  }
  return std::nullopt;
}

int WordTable::Parse(const std::string& text, const std::string& what) const {
  const std::optional<int> value = Find(text);
  if (!value) {
    std::string known;
    std::vector<std::string> names;
    for (const EnumWord& word : Words()) {
      known += known.empty() ? word.text : std::string(", ") + word.text;
      names.emplace_back(word.text);
    }
    throw Failure(EXIT_UNKNOWN_NAME, "there is no " + what + " '" + text + "'",
                  DidYouMean(text, names, "Known are: " + known + "."));
  }
  return *value;
}

}  // namespace btctl
