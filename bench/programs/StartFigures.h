#ifndef BENCH_PROGRAMS_STARTFIGURES_H
#define BENCH_PROGRAMS_STARTFIGURES_H

#include <cstdio>
#include <cstring>
#include <ctime>

#include "bench/harness/Clocks.h"

/// What a program that has just started prints: the time of the monotonic clock, the processor time it used,
/// and its memory in KiB: resident, proportional and private.
inline void PrintStartFigures() {
  const double now = Seconds(CLOCK_MONOTONIC);
  const double processor = Seconds(CLOCK_PROCESS_CPUTIME_ID);
  long resident = 0;
  long proportional = 0;
  long privateClean = 0;
  long privateDirty = 0;
  if (std::FILE* const rollup = std::fopen("/proc/self/smaps_rollup", "r")) {
    char line[128];
    while (std::fgets(line, sizeof line, rollup) != nullptr) {
      std::sscanf(line, "Rss: %ld", &resident);
      std::sscanf(line, "Pss: %ld", &proportional);
      std::sscanf(line, "Private_Clean: %ld", &privateClean);
      std::sscanf(line, "Private_Dirty: %ld", &privateDirty);
    }
    std::fclose(rollup);
  }
  std::printf("%.9f %.9f %ld %ld %ld\n", now, processor, resident, proportional, privateClean + privateDirty);
}

#endif
