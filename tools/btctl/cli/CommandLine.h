#ifndef TOOLS_BTCTL_CLI_COMMANDLINE_H
#define TOOLS_BTCTL_CLI_COMMANDLINE_H

#include <optional>
#include <string>
#include <vector>

#include "btctl/base/Options.h"
#include "btctl/commands/Command.h"

namespace btctl {

/// What the words of a command line say.
struct Parsed {
  Options options;
  const Command* command = nullptr;  ///< null: none was named
  Given given{{}};
  std::optional<std::string> help;  ///< what was asked for instead
};

/// Reads a command line without the program's name. Throws a Failure if it is wrong. As a parser of all
/// commands takes as long to make as the rest of a short run, one of those that the words may name comes
/// first.
Parsed ParseCommandLine(const std::vector<std::string>& words);

/// The same for a line as a shell reads it, with quotes and comments.
Parsed ParseLine(const std::string& line);

}  // namespace btctl

#endif
