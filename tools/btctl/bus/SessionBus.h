#ifndef TOOLS_BTCTL_BUS_SESSIONBUS_H
#define TOOLS_BTCTL_BUS_SESSIONBUS_H

#include <functional>
#include <string>
#include <vector>

#include "glib/OwnedBus.h"

// The one place of this program that speaks D-Bus by itself. The library makes all requests; but it cannot
// say why it does not reach the service, and the controls of the simulated service are no part of it.

namespace btctl {

enum class Surroundings { COMPLETE, NO_BUS, NO_SERVICE };

/// Asks the bus. Blocks, but never for long.
Surroundings LookAround();

/// Reports when the service comes and goes, on the thread of the main loop; for the first time soon after the
/// construction. A bus that goes away takes the service with it.
class ServiceWatch {
 public:
  using Observer = std::function<void(bool isThere)>;

  explicit ServiceWatch(Observer observer);
  ServiceWatch(const ServiceWatch&) = delete;
  ServiceWatch& operator=(const ServiceWatch&) = delete;

 private:
  const Observer m_observer;
  const OwnedNameWatchId m_watch;
};

/// An argument of a control, or one of its answers.
struct ControlValue {
  std::string name;
  std::string type;  ///< as D-Bus writes it: "s", "a(yv)"
};

/// A control of the simulated service, as the service describes it.
struct ControlMethod {
  std::string interface;
  std::string name;  ///< "LoseLink"
  std::vector<ControlValue> in;
  std::vector<ControlValue> out;
};

/// Asks the service which controls it has; none if it is no simulation. Blocks. Throws a Failure if it does
/// not answer.
std::vector<ControlMethod> DescribeControls();

/// Uses a control. `arguments` is a tuple, and so is the answer. Blocks. Throws a Failure with what the
/// service says is wrong, or that it went away.
OwnedVariant CallControl(const ControlMethod& method, const OwnedVariant& arguments);

}  // namespace btctl

#endif
