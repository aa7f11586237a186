#ifndef SERVICE_FILES_WORDLIST_H
#define SERVICE_FILES_WORDLIST_H

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace btservice {

/// The words that stand for the values of an enumeration in files and on the bus.
template <typename Enum>
using WordList = std::vector<std::pair<std::string, Enum>>;

/// Whoever has an enumeration that is written as words specialises this for it.
template <typename Enum>
const WordList<Enum>& WordsOf();

/// Null if there is no such word.
template <typename Enum>
const Enum* FindWord(const std::string& word) {
  for (const auto& [name, value] : WordsOf<Enum>()) {
    if (name == word) {
      return &value;
    }
  }
  return nullptr;
}

/// Empty if there is none.
template <typename Enum>
std::string WordOf(Enum value) {
  for (const auto& [name, one] : WordsOf<Enum>()) {
    if (one == value) {
      return name;
    }
  }
  return {};
}

/// All words, for a message: "red, green or blue".
template <typename Enum>
std::string Choices() {
  const WordList<Enum>& words = WordsOf<Enum>();
  std::string text;
  for (std::size_t i = 0; i < words.size(); ++i) {
    text += (i == 0 ? "" : i + 1 == words.size() ? " or " : ", ") + words[i].first;
  }
  return text;
}

}  // namespace btservice

#endif
