#ifndef TESTS_SOAK_REQUESTS_H
#define TESTS_SOAK_REQUESTS_H

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace btsoak {

/// A request of the library, and what it may answer.
struct KnownRequest {
  const char* name;
  std::function<std::string()> ask;  ///< the answer, as text
  std::vector<std::string> right;    ///< what it is while the service answers
  std::string failed;                ///< what it is if the call has failed
  int times;                         ///< in a round of its thread
};

constexpr int kThreads = 4;

/// What each thread asks for. Each of these takes one call over the bus. Lists are the last thread's alone.
const std::array<std::vector<KnownRequest>, kThreads>& RequestsOverTheBus();

/// What is read from shared memory: it reaches the service by no call.
void ReadSharedMemory();

}  // namespace btsoak

#endif
