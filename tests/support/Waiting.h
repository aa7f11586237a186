#ifndef TESTS_SUPPORT_WAITING_H
#define TESTS_SUPPORT_WAITING_H

#include <chrono>
#include <thread>

namespace bttest {

/// How long a test waits for what should happen at once. Long, since it is only waited out when a test fails,
/// and machines and sanitizers may be slow; shorter than a call's own time-out of 25 seconds, so that it is
/// seen.
/// An emulator needs several times as long; that time-out is seen by the other builds.
#ifdef BTTEST_UNDER_EMULATOR
constexpr std::chrono::milliseconds kBound{75000};
#else
constexpr std::chrono::milliseconds kBound{15000};
#endif

/// Waits, without iterating a main context, until condition() is true; false if it still is not after bound.
template <typename Condition>
bool WaitUntil(Condition condition, std::chrono::milliseconds bound = kBound) {
  const auto end = std::chrono::steady_clock::now() + bound;
  while (!condition()) {
    if (std::chrono::steady_clock::now() >= end) {
      return false;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

}  // namespace bttest

#endif
