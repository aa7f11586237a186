#ifndef TOOLS_BTCTL_COMMANDS_MAKEREQUEST_H
#define TOOLS_BTCTL_COMMANDS_MAKEREQUEST_H

#include "btctl/commands/OutcomeWatch.h"
#include "btctl/commands/Reply.h"
#include "btctl/commands/Request.h"
#include "btctl/output/Output.h"
#include "btctl/session/Session.h"

// The requests that a command makes, and what it needs for that.

namespace btctl {

/// Makes a request in the middle of a command and judges its answer, but shows nothing.
/// Throws a Failure, with its cause if one of the checks finds it, if it is refused.
Reply MakeRequest(Session& session, const Answer& answer, const Call& call, const Checks& checks = {},
                  const Given& given = Given({}));

/// That the service refused; it does not say why.
Failure Refused();

/// Waits for the outcome. Throws a Failure if it is one, or does not come.
void Follow(Context& context, const OutcomeWatch& watch);

}  // namespace btctl

#endif
