#ifndef SERVICE_SIMULATION_CONTROLS_CONTROLMETHODS_H
#define SERVICE_SIMULATION_CONTROLS_CONTROLMETHODS_H

#include <functional>

#include <bt_sim.h>

#include "ipc/ShareMemory/SegmentOwner.h"
#include "service/frontend/MethodBinder.h"
#include "service/simulation/Outside.h"
#include "service/simulation/controls/AnswerFaults.h"
#include "service/time/Scheduler.h"

namespace btservice {

using OutsideBinder = MethodBinder<BluetoothSimOutside>;
using FaultsBinder = MethodBinder<BluetoothSimFaults>;

/// What happens outside of the head unit.
void BindOutsideMethods(OutsideBinder binder, Outside& outside);

/// What can break, and by what means.
struct Breakables {
  Scheduler& scheduler;
  double speed;
  AnswerFaults& answers;
  SegmentOwner& segments;
  std::function<void(const std::string& name, GVariant* tuple)> emitSignal;
  std::function<void(unsigned milliseconds)> leaveBus;
};
void BindFaultMethods(FaultsBinder binder, Breakables breakables);

}  // namespace btservice

#endif
