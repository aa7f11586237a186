#ifndef TOOLS_BTCTL_COMPOSED_ALLCOMMANDS_H
#define TOOLS_BTCTL_COMPOSED_ALLCOMMANDS_H

#include <string>
#include <vector>

#include "btctl/commands/Command.h"

namespace btctl {

/// All commands, in the order of the help: those that are one request each, and those that are composed.
const std::vector<Command>& AllCommands();
/// What a group of commands is about: that of "call" for "call dial".
std::string HelpOfGroup(const std::string& group);

}  // namespace btctl

#endif
