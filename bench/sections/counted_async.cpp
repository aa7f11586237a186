// What a request of libbtasync costs, next to a bare g_dbus_connection_call: instructions and allocations, of
// all threads.

#include <cstdio>
#include <sstream>
#include <stdexcept>
#include <string>

#include "bench/harness/Callgrind.h"
#include "bench/harness/Programs.h"
#include "bench/responder/Responder.h"
#include "bench/sections/CountedSections.h"

namespace {

constexpr double kMostInstructions = 1.02;
constexpr double kMostAllocations = 1;
constexpr unsigned kFewer = 100;
constexpr unsigned kMore = 900;

/// By two lives, one with more requests than the other: start and end are in both.
double CountRequest(const std::string& way, const std::string& request) {
  const auto countLife = [&](unsigned times) {
    return CountRun("bt_bench_async", {way, request, std::to_string(times)});
  };
  return (countLife(kMore) - countLife(kFewer)) / (kMore - kFewer);
}

}  // namespace

void CountAsync(Report& report) {
  const Responder responder;  // the other end of all the programs
  report.BeginSection("async",
                      "a request through libbtasync, and the bare g_dbus_connection_call, in all threads");
  std::istringstream allocations(RunProgram("bt_bench_async_allocations"));
  for (const auto& [request, about] : {std::pair("GetPowerStatus", ""), std::pair("Pair", ", with two texts"),
                                       std::pair("GetMediaInfo", ", answers seven texts")}) {
    const std::string name = request + std::string(about);
    const double bare = CountRequest("bare", request);
    const double library = CountRequest("library", request);
    report.Add({name, Instructions(library), "the bare call", Instructions(bare), Times(library / bare),
                kMostInstructions});
    double bareAllocations = 0;
    double libraryAllocations = 0;
    if (!(allocations >> bareAllocations >> libraryAllocations)) {
      throw std::runtime_error("bt_bench_async_allocations printed: " + allocations.str());
    }
    report.Add({name + ", allocations, and those added", Count(libraryAllocations), "the bare call",
                Count(bareAllocations), Count(libraryAllocations - bareAllocations), kMostAllocations});
  }
}
