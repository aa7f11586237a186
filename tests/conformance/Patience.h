#ifndef TESTS_CONFORMANCE_PATIENCE_H
#define TESTS_CONFORMANCE_PATIENCE_H

#include <functional>

namespace conformance {

/// Runs the main loop until something is so, asking again and again; false if it does not become so in time.
/// The time is what the other tests take, times BTCONFORMANCE_PATIENCE: a real radio needs more than a
/// simulation.
bool Eventually(const std::function<bool()>& condition);

}  // namespace conformance

#endif
