// Measures what the library promises about its speed, each figure next to a yardstick that is measured in the
// same run. To be run with script/bench, which provides the world it needs: a session bus and segments of its
// own.

#include <bluetooth/MWPBluetooth.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/harness/Callgrind.h"
#include "bench/harness/Report.h"
#include "bench/sections/CountedSections.h"
#include "bench/sections/Sections.h"

namespace {

constexpr const char* kUsage =
    "Usage: bt_bench [--instructions] [--json FILE] [--check] [SECTION...]\n\n"
    "Prints a table. Sections: requests, events, start, contacts, btctl; all if none is named.\n\n"
    "  --instructions  counts instructions; sections: library, start, service, publishing,\n"
    "                  async\n"
    "  --json FILE     also writes the figures to FILE\n"
    "  --check         exits with 3 if a target is missed\n";

constexpr int kExitFailed = 1;
constexpr int kExitUsage = 2;
constexpr int kExitMissed = 3;

template <typename Measure>
struct Section {
  const char* name;
  Measure measure;
};
using TimedSection = Section<void (*)(Report& report, Responder& responder)>;
using CountedSection = Section<void (*)(Report& report)>;

const std::vector<TimedSection> kTimedSections = {
    {"requests", MeasureRequests}, {"events", MeasureEvents},     {"start", MeasureStart},
    {"contacts", MeasureContacts}, {"btctl", MeasureCommandLine},
};
const std::vector<CountedSection> kCountedSections = {
    {"library", CountLibrary}, {"start", CountStart},
#ifdef BENCH_HAS_SERVICE
    {"service", CountService}, {"publishing", CountPublishing},
#endif
#ifdef BENCH_HAS_ASYNC
    {"async", CountAsync},
#endif
};

struct Options {
  std::string jsonFile;
  bool check = false;
  bool instructions = false;
  std::vector<std::string> sections;  ///< all if there is none
};

template <typename Sections>
bool IsNameIn(const Sections& sections, const std::string& name) {
  return std::any_of(sections.begin(), sections.end(),
                     [&name](const auto& section) { return name == section.name; });
}

/// False if the arguments make no sense.
bool ParseArguments(const std::vector<std::string>& arguments, Options& options) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i] == "--check") {
      options.check = true;
    } else if (arguments[i] == "--instructions") {
      options.instructions = true;
    } else if (arguments[i] == "--json" && i + 1 < arguments.size()) {
      options.jsonFile = arguments[++i];
    } else {
      options.sections.push_back(arguments[i]);
    }
  }
  return std::all_of(options.sections.begin(), options.sections.end(), [&options](const std::string& name) {
    return options.instructions ? IsNameIn(kCountedSections, name) : IsNameIn(kTimedSections, name);
  });
}

/// Measures the sections that are asked for, in the order of the table.
template <typename Sections, typename... Arguments>
void Measure(const Sections& sections, const Options& options, Arguments&... arguments) {
  for (const auto& section : sections) {
    if (options.sections.empty() ||
        std::find(options.sections.begin(), options.sections.end(), section.name) != options.sections.end()) {
      section.measure(arguments...);
    }
  }
}

void MeasureTimes(const Options& options, Report& report) {
  Responder responder;
  if (MWP_CreateBlueTooth() == 0) {
    throw std::runtime_error("the library does not start");
  }
  Measure(kTimedSections, options, report, responder);
  MWP_DestroyBlueTooth();
}

int Run(const Options& options) {
  Report report;
  if (options.instructions) {
    RequireCallgrind();
    Measure(kCountedSections, options, report);
  } else {
    MeasureTimes(options, report);
  }
  if (!options.jsonFile.empty() && !report.WriteJson(options.jsonFile)) {
    throw std::runtime_error("cannot write " + options.jsonFile);
  }
  return options.check && report.IsAnyMissed() ? kExitMissed : 0;
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  if (!ParseArguments({argv + 1, argv + argc}, options)) {
    std::fputs(kUsage, stderr);
    return kExitUsage;
  }
  try {
    return Run(options);
  } catch (const std::exception& exception) {
    std::fprintf(stderr, "bt_bench: %s\n", exception.what());
    return kExitFailed;
  }
}
