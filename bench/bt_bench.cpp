// Measures what the library promises about its speed, each figure next to a yardstick that is measured in the
// same run. To be run with script/bench, which provides the world it needs: a session bus and segments of its
// own.

#include <bluetooth/MWPBluetooth.h>

#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/harness/Report.h"
#include "bench/sections/Sections.h"

namespace {

constexpr const char* kUsage =
    "Usage: bt_bench [--json FILE] [--check] [SECTION...]\n\n"
    "Prints a table. Sections: requests, events, start, contacts, btctl; all if none is named.\n\n"
    "  --json FILE  also writes the figures to FILE\n"
    "  --check      exits with 3 if a target is missed\n";

constexpr int kExitFailed = 1;
constexpr int kExitUsage = 2;
constexpr int kExitMissed = 3;

struct Section {
  const char* name;
  void (*measure)(Report& report, Responder& responder);
};

constexpr Section kSections[] = {
    {"requests", MeasureRequests}, {"events", MeasureEvents},     {"start", MeasureStart},
    {"contacts", MeasureContacts}, {"btctl", MeasureCommandLine},
};

struct Options {
  std::string jsonFile;
  bool check = false;
  std::vector<Section> sections;
};

/// False if the arguments make no sense.
bool ParseArguments(const std::vector<std::string>& arguments, Options& options) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i] == "--check") {
      options.check = true;
    } else if (arguments[i] == "--json" && i + 1 < arguments.size()) {
      options.jsonFile = arguments[++i];
    } else {
      bool found = false;
      for (const Section& section : kSections) {
        if (arguments[i] == section.name) {
          options.sections.push_back(section);
          found = true;
        }
      }
      if (!found) {
        return false;
      }
    }
  }
  if (options.sections.empty()) {
    options.sections.assign(std::begin(kSections), std::end(kSections));
  }
  return true;
}

int Run(const Options& options) {
  Responder responder;
  if (MWP_CreateBlueTooth() == 0) {
    throw std::runtime_error("the library does not start");
  }
  Report report;
  for (const Section& section : options.sections) {
    section.measure(report, responder);
  }
  MWP_DestroyBlueTooth();
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
