#ifndef TOOLS_BTCTL_BASE_NEAREST_H
#define TOOLS_BTCTL_BASE_NEAREST_H

#include <string>
#include <vector>

namespace btctl {

/// "Did you mean 'dial'?" for "dail", if one of the names is near enough to what was written; else
/// `otherwise`.
std::string DidYouMean(const std::string& written, const std::vector<std::string>& names,
                       const std::string& otherwise);

}  // namespace btctl

#endif
