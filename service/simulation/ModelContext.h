#ifndef SERVICE_SIMULATION_MODELCONTEXT_H
#define SERVICE_SIMULATION_MODELCONTEXT_H

#include <functional>
#include <random>
#include <utility>
#include <vector>

#include "service/simulation/world/World.h"
#include "service/stack/StackEvents.h"
#include "service/time/Scheduler.h"

namespace btservice {

/// Lets parts of the model hear of each other without knowing each other. The callbacks are called one after
/// the other, in the order in which they were added, before the call returns; they can never be taken back.
template <typename... Args>
class Notifier {
 public:
  using Callback = std::function<void(Args...)>;

  /// What callback refers to must outlive the notifier. Not to be called by a callback.
  void Add(Callback callback) { m_callbacks.push_back(std::move(callback)); }
  void operator()(Args... args) const {
    for (const Callback& callback : m_callbacks) {
      callback(args...);
    }
  }

 private:
  std::vector<Callback> m_callbacks;
};

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
