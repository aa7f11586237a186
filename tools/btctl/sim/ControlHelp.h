#ifndef TOOLS_BTCTL_SIM_CONTROLHELP_H
#define TOOLS_BTCTL_SIM_CONTROLHELP_H

#include <string>
#include <vector>

namespace btctl {

// The service itself says which controls it has, but not what they are for.

/// What a control does; empty for one that came later than this program.
std::string HelpOfControl(const std::string& control);
/// The controls that have a help, to complete with.
std::vector<std::string> NamesOfControls();
/// What the members of a record are called that a control answers; empty if it is not known.
std::vector<std::string> MembersOf(const std::string& answer);

}  // namespace btctl

#endif
