#ifndef TOOLS_BTCTL_SESSION_PROMPT_H
#define TOOLS_BTCTL_SESSION_PROMPT_H

#include <string>

#include "btctl/session/Session.h"

namespace btctl {

/// Whether there is a person at a terminal to be asked.
bool CanPrompt();

/// Asks on standard error, and waits for a line while events keep coming. Throws as Session::WaitUntil does,
/// and if the input ends.
std::string Prompt(Session& session, const std::string& question);

}  // namespace btctl

#endif
