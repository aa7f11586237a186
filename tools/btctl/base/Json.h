#ifndef TOOLS_BTCTL_BASE_JSON_H
#define TOOLS_BTCTL_BASE_JSON_H

#include <string>

#include <nlohmann/json.hpp>

namespace btctl {

/// Every answer is one of these until it is shown. Members keep the order in which they were added.
using Json = nlohmann::ordered_json;

/// One line of JSON. Bytes that are not UTF-8, as a damaged segment may hold, are replaced and lose nothing
/// else.
inline std::string ToLine(const Json& value) {
  return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace btctl

#endif
