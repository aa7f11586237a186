#ifndef BENCH_COUNTED_COUNTEDPART_H
#define BENCH_COUNTED_COUNTEDPART_H

#include <string>
#include <utility>

#include <valgrind/callgrind.h>

#include "bench/counted/CountedFunctions.h"

// How a program that runs under callgrind has parts of itself counted. Nothing happens without callgrind.

/// Runs work. Exported and not inline: callgrind knows it by its name.
extern "C" void bench_counted(void (*work)(void* data), void* data);

/// Runs work and has its instructions counted.
template <typename Work>
void Counted(Work work) {
  bench_counted([](void* data) { (*static_cast<Work*>(data))(); }, &work);
}

/// Reports what was counted while this lives as the cost of a part. What is counted is up to the functions of
/// kTogglingFunctions.
class CountedPart {
 public:
  explicit CountedPart(std::string name) : m_name(std::move(name)) { CALLGRIND_ZERO_STATS; }
  ~CountedPart() { CALLGRIND_DUMP_STATS_AT(m_name.c_str()); }
  CountedPart(const CountedPart&) = delete;
  CountedPart& operator=(const CountedPart&) = delete;

 private:
  std::string m_name;
};

/// What main() of a counted program does: it runs work, and answers the exit status. If work throws, standard
/// error gets the reason, after the name of the program.
int RunCounted(const char* program, void (*work)());

#endif
