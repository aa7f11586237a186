#ifndef TOOLS_BTCTL_WORDS_WORDTABLE_H
#define TOOLS_BTCTL_WORDS_WORDTABLE_H

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "btctl/base/Json.h"

namespace btctl {

struct Word {
  int value;
  const char* text;
};

/// The words for the values of one enumeration.
class WordTable {
 public:
  WordTable(const char* enumeration, std::initializer_list<Word> words)
      : m_enumeration(enumeration), m_words(words) {}

  /// As the header calls it.
  const std::string& Enumeration() const { return m_enumeration; }
  const std::vector<Word>& Words() const { return m_words; }

  /// The word for a value; a value without one is its number, since the library passes on whatever comes.
  Json Show(int value) const;
  /// The value that a word stands for, or a number of 0 to 255 itself.
  std::optional<int> Find(const std::string& text) const;
  /// As Find, but a text that stands for nothing is a Failure. `what` says what the text should name.
  int Parse(const std::string& text, const std::string& what) const;

 private:
  std::string m_enumeration;
  std::vector<Word> m_words;
};

}  // namespace btctl

#endif
