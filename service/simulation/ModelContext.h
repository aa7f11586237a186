#ifndef SERVICE_SIMULATION_MODELCONTEXT_H
#define SERVICE_SIMULATION_MODELCONTEXT_H

#include <random>

#include "service/simulation/world/World.h"
#include "service/stack/StackEvents.h"
#include "service/time/Notifier.h"
#include "service/time/Scheduler.h"

namespace btservice {

/// What every part of the model works with, all of them on the one thread of the scheduler.
struct ModelContext {
  Scheduler& scheduler;
  const Delays& delays;  ///< of the world; the same all the time
  std::mt19937 random;   ///< begins with the world's seed: the same world lives the same life
  const StackObservers& observers;

  /// To everybody who observes the stack, before it returns. Observers may make requests meanwhile: whoever
  /// reports has finished its own change.
  void Report(const StackEvent& event) const { observers.Report(event); }
};

}  // namespace btservice

#endif
