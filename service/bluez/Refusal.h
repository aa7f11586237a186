#ifndef SERVICE_BLUEZ_REFUSAL_H
#define SERVICE_BLUEZ_REFUSAL_H

#include "service/bluez/bus/Daemon.h"

namespace btservice::bluez {

/// Says in the log why a request is refused, and answers false: for what an application cannot see from
/// outside, since nothing below this service can do it. One line for each call.
bool Refuse(const char* request, const char* reason);

/// Whether an order has failed, which the log then says: "WHAT: the daemon's reason".
bool HasFailed(const char* what, const Reply& reply);

}  // namespace btservice::bluez

#endif
