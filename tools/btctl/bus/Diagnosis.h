#ifndef TOOLS_BTCTL_BUS_DIAGNOSIS_H
#define TOOLS_BTCTL_BUS_DIAGNOSIS_H

#include "btctl/base/Failure.h"

// Why the service cannot be reached. The library only says that it cannot; the bus shows why, and so what to
// do next.

namespace btctl {

/// The message to the user about a start that failed.
Failure WhyNotStarted();
/// The message about a service that was there a moment ago.
Failure ServiceIsGone();

}  // namespace btctl

#endif
