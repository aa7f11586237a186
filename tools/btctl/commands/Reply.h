#ifndef TOOLS_BTCTL_COMMANDS_REPLY_H
#define TOOLS_BTCTL_COMMANDS_REPLY_H

#include <vector>

#include "btctl/base/Json.h"

namespace btctl {

/// What a facade method answered.
struct Reply {
  Json result;             ///< null if the method answers nothing
  std::vector<Json> outs;  ///< its out arguments, in order
};

}  // namespace btctl

#endif
