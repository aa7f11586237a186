#include "btctl/cli/Usage.h"

#include <algorithm>

#include <glib.h>

namespace btctl {

const char* HelpOf(const std::string& globalOption) {
  for (const GlobalOption& option : kGlobalOptions) {
    if (option.name == globalOption) {
      return option.help;
    }
  }
  return "";
}

std::string NameOfValue(const Argument& option) {
  if (option.name == "--match") {
    return "NAME=VALUE";
  }
  if (option.name == "--scan") {
    return "SECONDS";
  }
  std::string name = option.Thing();
  std::transform(name.begin(), name.end(), name.begin(), g_ascii_toupper);
  return name;
}

}  // namespace btctl
