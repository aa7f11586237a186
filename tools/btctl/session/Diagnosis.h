#ifndef TOOLS_BTCTL_SESSION_DIAGNOSIS_H
#define TOOLS_BTCTL_SESSION_DIAGNOSIS_H

#include <functional>

#include "btctl/base/Failure.h"

// Why the library cannot reach the service. Its interface only says that it cannot; the bus shows why, and so
// what to do next.

namespace btctl {

enum class Surroundings { COMPLETE, NO_BUS, NO_SERVICE };

/// Asks the bus. Blocks, but never for long.
Surroundings LookAround();

/// The message to the user about a start that failed.
Failure WhyNotStarted();
/// The message about a service that was there a moment ago.
Failure ServiceIsGone();

/// Reports when the service comes and goes, on the thread of the main loop; for the first time soon after the
/// construction. A bus that goes away takes the service with it.
class ServiceWatch {
 public:
  using Observer = std::function<void(bool isThere)>;

  explicit ServiceWatch(Observer observer);
  ~ServiceWatch();
  ServiceWatch(const ServiceWatch&) = delete;
  ServiceWatch& operator=(const ServiceWatch&) = delete;

 private:
  const Observer m_observer;
  const unsigned m_watch;
};

}  // namespace btctl

#endif
