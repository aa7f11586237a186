#ifndef BENCH_HARNESS_CLOCKS_H
#define BENCH_HARNESS_CLOCKS_H

#include <ctime>

/// A clock's time in seconds. CLOCK_MONOTONIC is wall time, CLOCK_THREAD_CPUTIME_ID the processor time of the
/// calling thread.
inline double Seconds(clockid_t clock) {
  timespec now{};
  clock_gettime(clock, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// What doing something costs by a clock, in seconds.
template <typename Work>
double Cost(clockid_t clock, Work work) {
  const double begin = Seconds(clock);
  work();
  return Seconds(clock) - begin;
}

#endif
