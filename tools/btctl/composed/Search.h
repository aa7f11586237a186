#ifndef TOOLS_BTCTL_COMPOSED_SEARCH_H
#define TOOLS_BTCTL_COMPOSED_SEARCH_H

#include <chrono>

#include "btctl/commands/Command.h"
#include "btctl/events/Listeners.h"

namespace btctl {

/// Lets the service search for devices, for that long at most, and passes on the events that come meanwhile.
/// Throws a Failure if the service refuses. The search ends with this, also when the user interrupts it.
void SearchFor(Context& context, std::chrono::milliseconds atMost, const EventSink& sink);

}  // namespace btctl

#endif
