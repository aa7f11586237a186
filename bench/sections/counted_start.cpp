// Instructions of a process that starts the library, next to one that only makes the generated proxy.

#include <algorithm>
#include <optional>

#include "bench/harness/Callgrind.h"
#include "bench/harness/Programs.h"
#include "bench/responder/Responder.h"
#include "bench/sections/CountedSections.h"

namespace {

constexpr double kLimit = 1.10;
constexpr int kRuns = 3;

/// The least of several runs: now and then one needs more, when GLib has to wait longer for an answer.
double LeastOfRuns(const char* program) {
  double least = CountRun(program);
  for (int run = 1; run < kRuns; ++run) {
    least = std::min(least, CountRun(program));
  }
  return least;
}

}  // namespace

void CountStart(Report& report) {
  const Responder responder;
  RunProgram("bt_bench_start_library");  // the first one of all loads the settings
  const double library = LeastOfRuns("bt_bench_start_library");
  const double proxy = LeastOfRuns("bt_bench_start_proxy");
  const double plain = LeastOfRuns("bt_bench_start_proxy_plain");
  report.BeginSection(
      "start",
      "instructions of a process in which MWP_CreateBlueTooth() has returned, and of one that "
      "has made the generated proxy");
  report.Add({"a process", Instructions(library), "the proxy in a C++ program", Instructions(proxy),
              Times(library / proxy), kLimit});
  report.Add({"a process", Instructions(library), "the proxy without the C++ runtime", Instructions(plain),
              Times(library / plain), std::nullopt});
}
