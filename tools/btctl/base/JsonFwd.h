#ifndef TOOLS_BTCTL_BASE_JSONFWD_H
#define TOOLS_BTCTL_BASE_JSONFWD_H

#include <nlohmann/json_fwd.hpp>

namespace btctl {

/// Every answer is one of these until it is shown. Members keep the order in which they were added.
///
/// Declared only: a header that merely passes one on needs no more, and is much quicker to compile. A
/// source that looks into one includes Json.h.
using Json = nlohmann::ordered_json;

}  // namespace btctl

#endif
