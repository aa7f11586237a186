#ifndef TOOLS_BTCTL_CLI_COMPLETION_H
#define TOOLS_BTCTL_CLI_COMPLETION_H

#include <string>
#include <vector>

#include "btctl/cli/KnownNames.h"

namespace btctl {

/// What the word that begins with `start` can become, after the words `before` of the same line, in order.
/// Upper and lower case are the same.
std::vector<std::string> Complete(const std::vector<std::string>& before, const std::string& start,
                                  const KnownNames& known);

}  // namespace btctl

#endif
