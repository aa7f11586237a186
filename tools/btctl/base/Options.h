#ifndef TOOLS_BTCTL_BASE_OPTIONS_H
#define TOOLS_BTCTL_BASE_OPTIONS_H

#include <optional>

namespace btctl {

/// What may be said with every command.
struct Options {
  bool json = false;
  bool verbose = false;
  /// Whether a request that the service took on is followed to its outcome.
  bool waits = true;
  /// 0: none. Not set: what the command takes by itself.
  std::optional<double> timeoutSeconds;
};

}  // namespace btctl

#endif
