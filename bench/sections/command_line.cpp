// What one command of btctl costs, next to the same question asked with busctl.

#include <sys/resource.h>

#include <cstdio>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "bench/harness/Clocks.h"
#include "bench/harness/Programs.h"
#include "bench/harness/Rounds.h"
#include "bench/sections/Sections.h"
#include "glib/Owned.h"
#include "protocol/BusNames.h"

namespace {

constexpr std::size_t kRounds = 101;
constexpr double kLimit = 2.0;

struct RunCost {
  double wall = 0;       // in seconds, as the rest
  double processor = 0;  // of the program, its own and the kernel's
};

double ProcessorTimeOfChildren() {
  rusage usage{};
  getrusage(RUSAGE_CHILDREN, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

RunCost Run(const std::string& program, const std::vector<std::string>& arguments) {
  const double processor = ProcessorTimeOfChildren();
  const double before = Seconds(CLOCK_MONOTONIC);
  RunProgram(program, arguments);
  return {Seconds(CLOCK_MONOTONIC) - before, ProcessorTimeOfChildren() - processor};
}

std::optional<std::string> FindInPath(const char* program) {
  const OwnedText path(g_find_program_in_path(program));
  return path != nullptr ? std::optional<std::string>(path.get()) : std::nullopt;
}

bool IsBuilt(const char* program) {
  return std::filesystem::exists(std::filesystem::read_symlink("/proc/self/exe").replace_filename(program));
}

}  // namespace

void MeasureCommandLine(Report& report, Responder&) {
  const std::optional<std::string> busctl = FindInPath("busctl");
  const gchar* const bus = g_getenv("DBUS_SESSION_BUS_ADDRESS");
  if (!busctl || bus == nullptr || !IsBuilt("btctl")) {
    std::fputs("btctl: left out, since btctl is not built, or busctl (package systemd) is not installed\n",
               stderr);
    return;
  }
  report.BeginSection("btctl", "the power status of the adapter, asked for with btctl and with busctl call");
  const std::vector<std::string> call = {"--address=" + std::string(bus),
                                         "call",
                                         kServiceName,
                                         kServicePath,
                                         kServiceInterface,
                                         "GetPowerStatus"};
  std::vector<std::vector<RunCost>> costs(2);
  const auto way = [&costs](std::size_t place, const std::string& program,
                            const std::vector<std::string>& arguments) {
    return Way{program, [&costs, place, program, arguments] {
                 costs[place].push_back(Run(program, arguments));
                 return costs[place].back().wall;
               }};
  };
  RunInTurn({way(0, *busctl, call), way(1, "btctl", {"power", "status"})}, kRounds);

  const auto add = [&](const std::string& what, double RunCost::*member, std::optional<double> limit) {
    const auto values = [&](std::size_t place) {
      std::vector<double> all;
      for (std::size_t i = 1; i < costs[place].size(); ++i) {  // the first was there to warm up
        all.push_back(costs[place][i].*member);
      }
      return all;
    };
    const Rounds rounds({values(0), values(1)});
    report.Add({what, Milliseconds(rounds.Median(1)), "busctl call", Milliseconds(rounds.Median(0)),
                Times(rounds.Ratio(1)), limit});
  };
  add("time of a run", &RunCost::wall, kLimit);
  add("processor time of a run", &RunCost::processor, std::nullopt);
}
