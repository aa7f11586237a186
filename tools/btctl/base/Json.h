#ifndef TOOLS_BTCTL_BASE_JSON_H
#define TOOLS_BTCTL_BASE_JSON_H

#include <nlohmann/json.hpp>

namespace btctl {

/// Every answer is one of these until it is shown. Members keep the order in which they were added.
using Json = nlohmann::ordered_json;

}  // namespace btctl

#endif
