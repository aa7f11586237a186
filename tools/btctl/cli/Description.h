#ifndef TOOLS_BTCTL_CLI_DESCRIPTION_H
#define TOOLS_BTCTL_CLI_DESCRIPTION_H

#include "btctl/base/JsonFwd.h"

namespace btctl {

/// All that the help knows, for the programs that make the completion of shells and the man page from it:
///   description  what btctl is
///   options      those of every command: name, value (empty if it has none), help
///   exitCodes    code, name, meaning
///   groups       path, help: of words that are followed by a command and are none themselves
///   commands     path, help, methods, arguments: name, help, value (of an option, as in options), values
///   (those it
///                may have; empty: any), preset, isOption, isOptional, isMany
Json Describe();

}  // namespace btctl

#endif
