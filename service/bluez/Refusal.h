#ifndef SERVICE_BLUEZ_REFUSAL_H
#define SERVICE_BLUEZ_REFUSAL_H

namespace btservice::bluez {

/// Says in the log why a request is refused, and answers false: for what an application cannot see from
/// outside, since nothing below this service can do it. One line for each call.
bool Refuse(const char* request, const char* reason);

}  // namespace btservice::bluez

#endif
