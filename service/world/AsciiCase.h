#ifndef SERVICE_WORLD_ASCIICASE_H
#define SERVICE_WORLD_ASCIICASE_H

#include <string_view>

#include <glib.h>

namespace btservice {

/// Whether two words are the same but for upper and lower case of ASCII letters, whatever the locale is.
inline bool IsSameWord(std::string_view left, std::string_view right) {
  return left.size() == right.size() && g_ascii_strncasecmp(left.data(), right.data(), left.size()) == 0;
}

}  // namespace btservice

#endif
