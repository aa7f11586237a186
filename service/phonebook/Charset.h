#ifndef SERVICE_PHONEBOOK_CHARSET_H
#define SERVICE_PHONEBOOK_CHARSET_H

#include <optional>
#include <string>
#include <string_view>

#include "glib/Owned.h"

namespace btservice {

/// Converts texts to UTF-8. The converter of the last character set is kept, since a file has one as a rule:
/// an object is for one thread. Nothing is logged, and memory is all that can be lacking.
class Charset {
 public:
  /// The bytes as UTF-8, without control characters: a space stands for each. Without the name of a character
  /// set they are taken for UTF-8, and for ISO 8859-1 if they are not, which always succeeds. Nothing if
  /// there is no character set of that name, or if the bytes are no text in it. Case does not matter in
  /// names, which are those of iconv.
  std::optional<std::string> ToUtf8(std::string_view bytes, std::string_view name);

 private:
  std::optional<std::string> Convert(std::string_view bytes, std::string_view name);
  /// False if there is no such character set.
  bool Open(std::string_view name);

  std::string m_name;
  OwnedConverter m_converter;
};

}  // namespace btservice

#endif
