// Which stacks btservice was built with: BT_BUILD_SIMULATION and BT_BUILD_BLUEZ say so.

#include <utility>
#include <vector>

#include "service/app/StackChoice.h"
#ifdef BTSERVICE_HAS_SIMULATION
#include "service/simulation/SimulationProvider.h"
#endif
#ifdef BTSERVICE_HAS_BLUEZ
#include "service/bluez/BluezProvider.h"
#endif

namespace btservice {

std::unique_ptr<StackProvider> MakeStackProvider() {
  std::vector<NamedStack> stacks;
#ifdef BTSERVICE_HAS_SIMULATION
  stacks.push_back({"simulation", std::make_unique<SimulationProvider>()});
#endif
#ifdef BTSERVICE_HAS_BLUEZ
  stacks.push_back({"bluez", std::make_unique<bluez::BluezProvider>()});
#endif
  return std::make_unique<StackChoice>(std::move(stacks));
}

}  // namespace btservice
