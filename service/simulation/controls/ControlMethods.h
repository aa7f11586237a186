#ifndef SERVICE_SIMULATION_CONTROLS_CONTROLMETHODS_H
#define SERVICE_SIMULATION_CONTROLS_CONTROLMETHODS_H

#include <functional>

#include <bt_sim.h>

#include "ipc/ShareMemory/SegmentOwner.h"
#include "service/frontend/MethodBinder.h"
#include "service/simulation/Outside.h"
#include "service/simulation/controls/AnswerFaults.h"

namespace btservice {

#define SIM_METHOD(stem) \
  btservice::MakeMethod("handle-" #stem, &BluetoothSimIface::handle_##stem, bluetooth_sim_complete_##stem)

using ControlBinder = MethodBinder<BluetoothSim>;

/// What happens outside of the head unit.
void BindWorldMethods(ControlBinder binder, Outside& outside);

/// What can break, and by what means.
struct Breakables {
  AnswerFaults& answers;
  SegmentOwner& segments;
  std::function<void(const std::string& name, GVariant* tuple)> emitSignal;
  std::function<void(unsigned milliseconds)> leaveBus;
};
void BindFaultMethods(ControlBinder binder, Breakables breakables);

}  // namespace btservice

#endif
