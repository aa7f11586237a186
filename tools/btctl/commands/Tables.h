#ifndef TOOLS_BTCTL_COMMANDS_TABLES_H
#define TOOLS_BTCTL_COMMANDS_TABLES_H

#include <vector>

#include "btctl/commands/Request.h"

namespace btctl {

// The facade methods that are a command each: one table a facade, one entry a method.
std::vector<Request> ComRequests();
std::vector<Request> PhoneRequests();
std::vector<Request> MediaRequests();
std::vector<Request> PbapRequests();
std::vector<Request> MessageRequests();
std::vector<Request> SppRequests();
std::vector<Request> BleRequests();

}  // namespace btctl

#endif
