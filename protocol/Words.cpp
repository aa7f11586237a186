#include "protocol/Words.h"

#include "protocol/NumberType.h"

const char* EnumWords::WordFor(int value) const {
  for (const EnumWord& word : m_words) {
    if (word.value == value) {
      return word.text;
    }
  }
  return nullptr;
}

const EnumWords& NumberTypeWords() {
  static const EnumWords words(
      "number type",
      {{NUMBER_OTHER, "other"}, {NUMBER_MOBILE, "mobile"}, {NUMBER_HOME, "home"}, {NUMBER_WORK, "work"}});
  return words;
}
