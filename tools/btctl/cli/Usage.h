#ifndef TOOLS_BTCTL_CLI_USAGE_H
#define TOOLS_BTCTL_CLI_USAGE_H

#include <string>

#include "btctl/commands/Argument.h"

namespace btctl {

/// What btctl is, in the help and in its man page.
constexpr const char* kDescription =
    "Controls Bluetooth through the Bluetooth service of the head unit.\n"
    "Without a command, it takes commands line by line, with completion if it is at a terminal.";

/// An option that goes with every command.
struct GlobalOption {
  const char* name;
  const char* value;  ///< what the help calls its value; empty: it has none
  const char* help;
};

constexpr GlobalOption kGlobalOptions[] = {
    {"--help", "", "Print this help message and exit"},
    {"--json", "", "Print JSON, one object per line"},
    {"--timeout", "SECONDS",
     "Give up after SECONDS, 0 for never (default 30; none for monitor, wait, scan, contacts download)"},
    {"--no-wait", "", "Do not wait for the result of a request"},
    {"--verbose", "", "Print the library's log on standard error"},
    {"--version", "", "Display program version information and exit"},
};

/// The help of a global option.
const char* HelpOf(const std::string& globalOption);

/// What the help calls the value of an option: SECONDS for --seconds.
std::string NameOfValue(const Argument& option);

}  // namespace btctl

#endif
