// What it costs a program to start the library, next to a program that only makes the generated proxy.

#include <algorithm>
#include <cstdio>
#include <functional>
#include <optional>
#include <stdexcept>
#include <vector>

#include "bench/harness/Clocks.h"
#include "bench/harness/Programs.h"
#include "bench/harness/Rounds.h"
#include "bench/sections/Sections.h"

namespace {

constexpr std::size_t kRounds = 101;
constexpr double kLimit = 1.1;

struct StartCost {
  double wall = 0;       // from before the process was made until it was started, in seconds
  double processor = 0;  // of the whole process, in seconds
  double resident = 0;   // the rest in KiB
  double proportional = 0;
  double ownPages = 0;
};

StartCost Start(const std::string& program) {
  const double before = Seconds(CLOCK_MONOTONIC);
  const std::string output = RunProgram(program);
  StartCost cost;
  double after = 0;
  if (std::sscanf(output.c_str(), "%lf %lf %lf %lf %lf", &after, &cost.processor, &cost.resident,
                  &cost.proportional, &cost.ownPages) != 5) {
    throw std::runtime_error(program + " printed: " + output);
  }
  cost.wall = after - before;
  return cost;
}

/// One figure of all starts but the first, which was there to warm up.
std::vector<double> Values(const std::vector<StartCost>& costs, double StartCost::*member) {
  std::vector<double> values(costs.size() - 1);
  std::transform(costs.begin() + 1, costs.end(), values.begin(), std::mem_fn(member));
  return values;
}

}  // namespace

void MeasureStart(Report& report, Responder&) {
  report.BeginSection("start",
                      "a new process in which MWP_CreateBlueTooth() has returned, and one that has made "
                      "the generated proxy");
  const std::vector<const char*> programs = {"bt_bench_start_proxy", "bt_bench_start_proxy_plain",
                                             "bt_bench_start_library"};
  std::vector<std::vector<StartCost>> costs(programs.size());
  std::vector<Way> ways;
  for (std::size_t i = 0; i < programs.size(); ++i) {
    ways.push_back({programs[i], [&costs, &programs, i] {
                      costs[i].push_back(Start(programs[i]));
                      return costs[i].back().wall;
                    }});
  }
  RunInTurn(ways, kRounds);

  const auto add = [&](const std::string& what, double StartCost::*member, Figure (*inUnit)(double),
                       std::optional<double> limit) {
    const auto compare = [&](const char* yardstick, std::size_t place, std::optional<double> limitHere) {
      const Rounds rounds({Values(costs[place], member), Values(costs[2], member)});
      report.Add({what, inUnit(rounds.Median(1)), yardstick, inUnit(rounds.Median(0)), Times(rounds.Ratio(1)),
                  limitHere});
    };
    compare("the proxy in a C++ program", 0, limit);
    compare("the proxy without the C++ runtime", 1, std::nullopt);
  };
  add("time until started", &StartCost::wall, Milliseconds, kLimit);
  add("processor time", &StartCost::processor, Milliseconds, std::nullopt);
  add("resident memory", &StartCost::resident, Mebibytes, kLimit);
  add("proportional memory", &StartCost::proportional, Mebibytes, std::nullopt);
  add("private memory", &StartCost::ownPages, Mebibytes, std::nullopt);
}
