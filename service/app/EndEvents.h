#ifndef SERVICE_APP_ENDEVENTS_H
#define SERVICE_APP_ENDEVENTS_H

#include <vector>

#include "service/frontend/segments/LeftBehind.h"
#include "service/stack/StackEvents.h"

namespace btservice {

/// The events by which applications learn that the calls and connections of a service that died have ended,
/// with all that depended on them. In the order in which they are to be sent; empty if nothing was left.
std::vector<StackEvent> EndEvents(const LeftBehind& left);

}  // namespace btservice

#endif
