#ifndef TOOLS_BTCTL_OUTPUT_TERMINALSAFE_H
#define TOOLS_BTCTL_OUTPUT_TERMINALSAFE_H

#include <string>

#include "btctl/base/JsonFwd.h"

// Texts come from phones, from the service and from shared memory, and may hold anything. Every text goes
// through one of these on its way to a terminal, a file or a pipe.

namespace btctl {

/// The text without what could command a terminal, turn the text around it or end the line: control
/// characters, those of both directions of writing, and separators of lines. Each becomes U+FFFD, and so do
/// bytes that are not UTF-8.
std::string TerminalSafe(const std::string& text);

/// One line of JSON, which holds the same characters as escapes: a reader of the JSON gets them back. Bytes
/// that are not UTF-8, as a damaged segment may hold, become U+FFFD.
std::string ToLine(const Json& value);

}  // namespace btctl

#endif
