#ifndef SERVICE_FILES_QUOTE_H
#define SERVICE_FILES_QUOTE_H

#include <string>
#include <string_view>

namespace btservice {

/// What a message quotes of a text that came from outside, in quotes: its beginning, on one line, in UTF-8,
/// with whatever a terminal would not simply show written as \u{202E}, or \xFF for bytes that are no text.
std::string Quote(std::string_view text);

/// The same without the quotes.
std::string Visible(std::string_view text);

/// The same for the name of a file, of which more is shown.
std::string VisiblePath(std::string_view path);

}  // namespace btservice

#endif
