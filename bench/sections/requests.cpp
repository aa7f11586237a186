// What a request through a facade costs, next to the same call made by hand with the generated function.

#include <cstdio>
#include <stdexcept>

#include "bench/harness/Clocks.h"
#include "bench/harness/MeasuredRequests.h"
#include "bench/harness/Programs.h"
#include "bench/harness/Rounds.h"
#include "bench/sections/Sections.h"

namespace {

constexpr std::size_t kRounds = 2001;
constexpr int kCalls = 5;  // in each round
constexpr double kLimit = 1.02;

Way Calling(const char* name, clockid_t clock, void (*call)()) {
  return {name, [clock, call] {
            return Cost(clock,
                        [call] {
                          for (int i = 0; i < kCalls; ++i) {
                            call();
                          }
                        }) /
                   kCalls;
          }};
}

void CompareCosts(Report& report, const std::string& what, clockid_t clock, void (*byHand)(),
                  void (*throughFacade)()) {
  const Rounds rounds =
      RunInTurn({Calling("by hand", clock, byHand), Calling("facade", clock, throughFacade)}, kRounds);
  report.Add({what, Microseconds(rounds.Median(1)), "the generated function", Microseconds(rounds.Median(0)),
              Times(rounds.Ratio(1)), kLimit});
}

void CompareAllocations(Report& report) {
  const std::string output = RunProgram("bt_bench_allocations");
  double byHand = 0;
  double throughFacade = 0;
  if (std::sscanf(output.c_str(), "%lf %lf", &byHand, &throughFacade) != 2) {
    throw std::runtime_error("bt_bench_allocations printed: " + output);
  }
  report.Add({"AcceptCall, allocations, and those added", Count(throughFacade), "the generated function",
              Count(byHand), Count(throughFacade - byHand), 0});
}

}  // namespace

void MeasureRequests(Report& report, Responder&) {
  report.BeginSection("requests", "a request through a facade, and the call by hand on the same proxy");
  if (MWPBtPhone().AcceptCall() != 1) {
    throw std::runtime_error("AcceptCall is not answered");
  }
  constexpr clockid_t kWall = CLOCK_MONOTONIC;
  constexpr clockid_t kProcessor = CLOCK_THREAD_CPUTIME_ID;
  CompareCosts(report, "AcceptCall, wall time", kWall, AcceptCallByHand, AcceptCallThroughFacade);
  CompareCosts(report, "AcceptCall, processor time", kProcessor, AcceptCallByHand, AcceptCallThroughFacade);
  CompareCosts(report, "GetPowerStatus, wall time", kWall, GetPowerStatusByHand, GetPowerStatusThroughFacade);
  CompareCosts(report, "GetPowerStatus, processor time", kProcessor, GetPowerStatusByHand,
               GetPowerStatusThroughFacade);
  CompareAllocations(report);
}
