#ifndef TOOLS_BTCTL_COMPOSED_COMPOSED_H
#define TOOLS_BTCTL_COMPOSED_COMPOSED_H

#include <vector>

#include "btctl/commands/Command.h"

namespace btctl {

// The commands that are more than one request, or none.
std::vector<Command> PowerCommands();
std::vector<Command> PairCommands();
std::vector<Command> ScanCommands();
std::vector<Command> OverviewCommands();
std::vector<Command> DeviceCommands();
std::vector<Command> DownloadCommands();
std::vector<Command> EventCommands();
std::vector<Command> ReferenceCommands();
std::vector<Command> SimulationCommands();

}  // namespace btctl

#endif
