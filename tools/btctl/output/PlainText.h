#ifndef TOOLS_BTCTL_OUTPUT_PLAINTEXT_H
#define TOOLS_BTCTL_OUTPUT_PLAINTEXT_H

#include <string>
#include <vector>

#include "btctl/base/JsonFwd.h"

// Answers as people read them.

namespace btctl {

/// A value in one line, safe for a terminal.
std::string ToText(const Json& value);

/// The same for a value of that name: a length of time is shown in minutes and seconds.
std::string ToText(const std::string& name, const Json& value);
/// Values, one after the other. Those that are empty are left out.
std::string Joined(const Json& values, const char* separator);

/// "32,371 of 40,000: the segment is full".
std::string CutText(std::size_t listed, std::size_t total);

/// How many columns a text takes on a terminal.
std::size_t WidthOf(const std::string& text);
/// The text, filled up with blanks to that width.
std::string Padded(const std::string& text, std::size_t width);

/// The names of the members of the objects, in the order in which they are met.
std::vector<std::string> ColumnsOf(const Json& objects);

}  // namespace btctl

#endif
