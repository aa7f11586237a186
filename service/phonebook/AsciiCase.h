#ifndef SERVICE_PHONEBOOK_ASCIICASE_H
#define SERVICE_PHONEBOOK_ASCIICASE_H

#include <algorithm>
#include <string_view>

namespace btservice {

/// Whether two words are the same but for upper and lower case of ASCII letters, whatever the locale is.
inline bool IsSameWord(std::string_view left, std::string_view right) {
  constexpr auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return left.size() == right.size() &&
         std::equal(left.begin(), left.end(), right.begin(),
                    [lower](char one, char other) { return one == other || lower(one) == lower(other); });
}

}  // namespace btservice

#endif
