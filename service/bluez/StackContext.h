#ifndef SERVICE_BLUEZ_STACKCONTEXT_H
#define SERVICE_BLUEZ_STACKCONTEXT_H

#include "service/stack/StackEvents.h"
#include "service/time/Scheduler.h"

namespace btservice::bluez {

/// What every part of the stack works with, all of them on the thread of the main loop.
struct StackContext {
  Scheduler& scheduler;
  const StackObservers& observers;

  /// To everybody who observes the stack, before it returns. Whoever reports has finished its own change.
  void Report(const StackEvent& event) const { observers.Report(event); }
};

}  // namespace btservice::bluez

#endif
