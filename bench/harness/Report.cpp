#include "bench/harness/Report.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <utility>

#include <sys/utsname.h>
#include <unistd.h>
#include <nlohmann/json.hpp>

namespace {

using nlohmann::ordered_json;

constexpr const char* kInstructions = "instr";

std::string Now() {
  const std::time_t now = std::time(nullptr);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", std::localtime(&now));
  return text;
}

std::string ProcessorName() {
  std::ifstream cpuinfo("/proc/cpuinfo");
  for (std::string line; std::getline(cpuinfo, line);) {
    const auto colon = line.find(": ");
    if (line.rfind("model name", 0) == 0 && colon != std::string::npos) {
      return line.substr(colon + 2);
    }
  }
  return "unknown processor";
}

std::string KernelName() {
  utsname name{};
  return uname(&name) == 0 ? std::string(name.sysname) + " " + name.release + " " + name.machine : "unknown";
}

long ProcessorCount() { return sysconf(_SC_NPROCESSORS_ONLN); }

/// How many processes wanted a processor, on average over the last minute.
double Load() {
  double load = 0;
  return getloadavg(&load, 1) == 1 ? load : -1;
}

std::string Text(const Figure& figure) {
  const bool isCount = figure.unit.empty() || figure.unit == kInstructions;
  const int decimals = isCount ? 0 : figure.unit == "x" ? 3 : 2;
  char text[64];
  std::snprintf(text, sizeof text, "%.*f %s", decimals, figure.value, figure.unit.c_str());
  return text;
}

std::string Verdict(const Row& row) {
  if (!row.limit) {
    return "";
  }
  return "<= " + Text({*row.limit, row.result.unit}) + (row.IsMissed() ? "  MISSED" : "  met");
}

void PrintLine(const std::string& what, const std::string& cost, const std::string& yardstick,
               const std::string& yardstickCost, const std::string& result, const std::string& verdict) {
  std::printf("  %-44s %12s   %-34s %12s %12s  %s\n", what.c_str(), cost.c_str(), yardstick.c_str(),
              yardstickCost.c_str(), result.c_str(), verdict.c_str());
}

ordered_json ToJson(const Figure& figure) { return {{"value", figure.value}, {"unit", figure.unit}}; }

ordered_json ToJson(const Row& row) {
  ordered_json json = {{"what", row.what},
                       {"cost", ToJson(row.cost)},
                       {"yardstick", row.yardstick},
                       {"yardstick_cost", ToJson(row.yardstickCost)},
                       {"result", ToJson(row.result)}};
  if (row.limit) {
    json["limit"] = *row.limit;
    json["met"] = !row.IsMissed();
  }
  return json;
}

}  // namespace

Figure Microseconds(double seconds) { return {seconds * 1e6, "us"}; }
Figure Milliseconds(double seconds) { return {seconds * 1e3, "ms"}; }
Figure Mebibytes(double kibibytes) { return {kibibytes / 1024, "MiB"}; }
Figure Count(double count) { return {count, ""}; }
Figure Instructions(double count) { return {count, kInstructions}; }
Figure Times(double ratio) { return {ratio, "x"}; }

Report::Report() : m_date(Now()) {
  std::printf("%s, %s, %ld processors, %s, load %.2f\n", m_date.c_str(), ProcessorName().c_str(),
              ProcessorCount(), KernelName().c_str(), Load());
}

void Report::BeginSection(const std::string& name, const std::string& about) {
  m_sections.push_back({name, about, {}});
  std::printf("\n%s: %s\n", name.c_str(), about.c_str());
  PrintLine("what", "cost", "yardstick", "cost", "result", "target");
  std::fflush(stdout);
}

void Report::Add(const Row& row) {
  m_sections.back().rows.push_back(row);
  PrintLine(row.what, Text(row.cost), row.yardstick, Text(row.yardstickCost), Text(row.result), Verdict(row));
  std::fflush(stdout);
}

bool Report::IsAnyMissed() const {
  return std::any_of(m_sections.begin(), m_sections.end(), [](const Section& section) {
    return std::any_of(section.rows.begin(), section.rows.end(),
                       [](const Row& row) { return row.IsMissed(); });
  });
}

bool Report::WriteJson(const std::string& file) const {
  ordered_json sections = ordered_json::array();
  for (const Section& section : m_sections) {
    ordered_json rows = ordered_json::array();
    for (const Row& row : section.rows) {
      rows.push_back(ToJson(row));
    }
    sections.push_back({{"name", section.name}, {"about", section.about}, {"rows", std::move(rows)}});
  }
  const ordered_json report = {
      {"date", m_date},         {"processor", ProcessorName()}, {"processors", ProcessorCount()},
      {"kernel", KernelName()}, {"load_at_end", Load()},        {"sections", std::move(sections)}};
  std::ofstream out(file);
  out << report.dump(2) << '\n';
  out.close();
  return !out.fail();
}
