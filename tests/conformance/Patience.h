#ifndef TESTS_CONFORMANCE_PATIENCE_H
#define TESTS_CONFORMANCE_PATIENCE_H

#include <functional>
#include <optional>

#include "support/ChildProcess.h"

namespace conformance {

/// Runs the main loop until something is so, asking again and again; false if it does not become so in time.
/// The time is what the other tests take, times BTCONFORMANCE_PATIENCE: a real radio needs more than a
/// simulation.
bool Eventually(const std::function<bool()>& condition);

/// Has a process end, as the system does that shuts down, and waits for it as long. Its exit status; nothing
/// if it still runs.
std::optional<int> EndInGoodOrder(bttest::ChildProcess& process);

}  // namespace conformance

#endif
