#ifndef TOOLS_BTCTL_COMMANDS_FROMTEXT_H
#define TOOLS_BTCTL_COMMANDS_FROMTEXT_H

#include <chrono>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include "btctl/commands/Argument.h"
#include "btctl/words/Words.h"

// From what is written on the command line to what a facade method takes. A text that cannot be read is a
// Failure.

namespace btctl {

/// Throws if it is not of the form 00:1A:7D:DA:71:13.
void CheckAddress(const std::string& text);
/// A whole number within bounds.
long long ParseWhole(const std::string& text, const Argument& argument, long long lowest, long long highest);
/// A number, maybe with a fraction, that is not negative.
double ParseSeconds(const std::string& text, const std::string& name);
/// The value of "--seconds".
std::chrono::milliseconds MillisecondsOf(const std::string& seconds);
std::vector<unsigned char> ParseBytes(const std::string& text);
/// A character that a telephone can send as a tone.
char ParseTone(const std::string& text);

template <typename T>
T FromText(const std::string& text, const Argument& argument) {
  if constexpr (std::is_same_v<T, std::string>) {
    if (argument.meaning == Meaning::ADDRESS) {
      CheckAddress(text);
    }
    return text;
  } else if constexpr (std::is_same_v<T, std::vector<unsigned char>>) {
    return ParseBytes(text);
  } else if constexpr (std::is_same_v<T, char>) {
    return ParseTone(text);
  } else if constexpr (std::is_enum_v<T>) {
    return static_cast<T>(WordsOf<T>().Parse(text, argument.Thing()));
  } else {
    if (argument.words != nullptr) {
      return static_cast<T>(argument.words->Parse(text, argument.Thing()));
    }
    return static_cast<T>(
        ParseWhole(text, argument, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
  }
}

}  // namespace btctl

#endif
