#ifndef TOOLS_BTCTL_SIM_SIMULATIONCONTROL_H
#define TOOLS_BTCTL_SIM_SIMULATIONCONTROL_H

#include <string>
#include <vector>

#include "btctl/base/JsonFwd.h"

// The controls of the simulated service: what people, phones and the network do (Outside), and what only a
// simulation can do (Faults). The service is asked which controls there are. All of it blocks.

namespace btctl {

/// {"control":"call","arguments":["address","number"],"help":"Somebody calls the phone"} for each control.
Json ListControls();

/// Uses a control, given by its name in either form: "lose-link" or "LoseLink". Its answers by their
/// names.
Json UseControl(const std::string& control, const std::vector<std::string>& values);

}  // namespace btctl

#endif
