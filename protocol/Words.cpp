#include "protocol/Words.h"

const char* EnumWords::WordFor(int value) const {
  for (const EnumWord& word : m_words) {
    if (word.value == value) {
      return word.text;
    }
  }
  return nullptr;
}

const EnumWords& NumberTypeWords() {
  static const EnumWords words("number type", {{0, "other"}, {1, "mobile"}, {2, "home"}, {3, "work"}});
  return words;
}
