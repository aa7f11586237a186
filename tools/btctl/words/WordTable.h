#ifndef TOOLS_BTCTL_WORDS_WORDTABLE_H
#define TOOLS_BTCTL_WORDS_WORDTABLE_H

#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "btctl/base/JsonFwd.h"
#include "protocol/Words.h"

namespace btctl {

/// The words for the values of one enumeration, as they are typed and shown.
class WordTable {
 public:
  explicit WordTable(EnumWords words) : m_words(std::move(words)) {}
  WordTable(const char* enumeration, std::initializer_list<EnumWord> words) : m_words(enumeration, words) {}

  /// As the header calls it.
  const std::string& Enumeration() const { return m_words.Enumeration(); }
  const std::vector<EnumWord>& Words() const { return m_words.Words(); }

  /// The word for a value; a value without one is its number, since the library passes on whatever comes.
  Json Show(int value) const;
  /// The value that a word stands for, or a number of 0 to 255 itself.
  std::optional<int> Find(const std::string& text) const;
  /// As Find, but a text that stands for nothing is a Failure. `what` says what the text should name.
  int Parse(const std::string& text, const std::string& what) const;

 private:
  EnumWords m_words;
};

}  // namespace btctl

#endif
