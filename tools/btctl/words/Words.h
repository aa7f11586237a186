#ifndef TOOLS_BTCTL_WORDS_WORDS_H
#define TOOLS_BTCTL_WORDS_WORDS_H

#include <vector>

#include "btctl/words/WordTable.h"

namespace btctl {

/// The words for the values of an enumeration of the interface.
template <typename Enumeration>
const WordTable& WordsOf() {
  static const WordTable words(EnumWordsOf<Enumeration>());
  return words;
}

/// Those of all enumerations.
std::vector<const WordTable*> AllWordTables();

/// Off and on, for a 0 or 1 that is a switch.
const WordTable& SwitchWords();
/// The kinds of number in a phone book: MWPTypeContactNumber::nType.
const WordTable& NumberTypeWords();
/// The settings of a player: MWPTypePlayMode::nType.
const WordTable& PlayModeWords();

}  // namespace btctl

#endif
