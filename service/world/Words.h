#ifndef SERVICE_WORLD_WORDS_H
#define SERVICE_WORLD_WORDS_H

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "service/model/Timeline.h"

namespace btservice {

/// The words that stand for the values of an enumeration in files and on the control interface.
template <typename Enum>
using WordList = std::vector<std::pair<std::string, Enum>>;

const WordList<ProfileId>& WordsOf(ProfileId);
const WordList<SupportType>& WordsOf(SupportType);
const WordList<PairRequestState>& WordsOf(PairRequestState);
const WordList<CodecMode>& WordsOf(CodecMode);
const WordList<CalledParty>& WordsOf(CalledParty);
const WordList<CallLogType>& WordsOf(CallLogType);
const WordList<NumberType>& WordsOf(NumberType);
const WordList<MsgStatus>& WordsOf(MsgStatus);
const WordList<HappeningKind>& WordsOf(HappeningKind);

/// The word of today for one that worlds used before, which are still read; any other as it is.
template <typename Enum>
std::string WordOfToday(const std::string& word) {
  return std::is_same_v<Enum, PairRequestState> && word == "pin" ? "pin-code" : word;
}

/// Null if there is no such word.
template <typename Enum>
const Enum* FindWord(const std::string& word) {
  const std::string today = WordOfToday<Enum>(word);
  for (const auto& [name, value] : WordsOf(Enum())) {
    if (name == today) {
      return &value;
    }
  }
  return nullptr;
}

/// Empty if there is none.
template <typename Enum>
std::string WordOf(Enum value) {
  for (const auto& [name, one] : WordsOf(value)) {
    if (one == value) {
      return name;
    }
  }
  return {};
}

/// "red, green or blue".
template <typename Enum>
std::string Choices() {
  const WordList<Enum>& words = WordsOf(Enum());
  std::string text;
  for (std::size_t i = 0; i < words.size(); ++i) {
    text += (i == 0 ? "" : i + 1 == words.size() ? " or " : ", ") + words[i].first;
  }
  return text;
}

}  // namespace btservice

#endif
