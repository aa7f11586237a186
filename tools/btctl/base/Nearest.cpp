#include "btctl/base/Nearest.h"

#include <algorithm>

#include <glib.h>

namespace btctl {
namespace {

/// How many letters have to be changed, added, left out or swapped with their neighbour. Case does not count.
std::size_t Distance(const std::string& left, const std::string& right) {
  std::vector<std::vector<std::size_t>> costs(left.size() + 1, std::vector<std::size_t>(right.size() + 1));
  const auto isSame = [&](std::size_t i, std::size_t j) {
    return g_ascii_tolower(left[i]) == g_ascii_tolower(right[j]);
  };
  for (std::size_t i = 0; i <= left.size(); ++i) {
    for (std::size_t j = 0; j <= right.size(); ++j) {
      if (i == 0 || j == 0) {
        costs[i][j] = std::max(i, j);
        continue;
      }
      const std::size_t changed = costs[i - 1][j - 1] + (isSame(i - 1, j - 1) ? 0 : 1);
      costs[i][j] = std::min({changed, costs[i - 1][j] + 1, costs[i][j - 1] + 1});
      if (i > 1 && j > 1 && isSame(i - 1, j - 2) && isSame(i - 2, j - 1)) {
        costs[i][j] = std::min(costs[i][j], costs[i - 2][j - 2] + 1);
      }
    }
  }
  return costs[left.size()][right.size()];
}

/// A third of the letters may be wrong. The missing end of a name is nearer than any wrong letter.
bool IsNear(const std::string& written, const std::string& name) {
  return Distance(written, name) * 3 <= std::max<std::size_t>(written.size(), 3);
}

bool BeginsWith(const std::string& name, const std::string& written) {
  return written.size() > 1 && g_ascii_strncasecmp(name.c_str(), written.c_str(), written.size()) == 0;
}

}  // namespace

std::string DidYouMean(const std::string& written, const std::vector<std::string>& names,
                       const std::string& otherwise) {
  const std::string* nearest = nullptr;
  for (const std::string& name : names) {
    if (BeginsWith(name, written)) {
      nearest = &name;
      break;
    }
    const bool isNearer = nearest == nullptr || Distance(written, name) < Distance(written, *nearest);
    nearest = IsNear(written, name) && isNearer ? &name : nearest;
  }
  return nearest != nullptr ? "Did you mean '" + *nearest + "'?" : otherwise;
}

}  // namespace btctl
