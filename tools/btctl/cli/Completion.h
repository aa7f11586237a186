#ifndef TOOLS_BTCTL_CLI_COMPLETION_H
#define TOOLS_BTCTL_CLI_COMPLETION_H

#include <set>
#include <string>
#include <vector>

#include "btctl/cli/KnownNames.h"
#include "btctl/commands/Argument.h"

namespace btctl {

/// What the word that begins with `start` can become, after the words `before` of the same line, in order.
/// Upper and lower case are the same.
std::vector<std::string> Complete(const std::vector<std::string>& before, const std::string& start,
                                  const KnownNames& known);

/// The values that an argument may have, as far as this program knows them: words of an enumeration, names of
/// events and of controls. Empty if it may have any.
std::set<std::string> FixedValuesOf(const Argument& argument);

}  // namespace btctl

#endif
