// What the benchmarks' report says of a target: script/bench --check ends with it.

#include <cstdio>
#include <fstream>
#include <optional>

#include <gtest/gtest.h>
#include <unistd.h>
#include <nlohmann/json.hpp>

#include "bench/harness/Report.h"

namespace {

Row RowWith(double result, std::optional<double> limit) {
  return {"what", Instructions(1000), "yardstick", Instructions(900), Instructions(result), limit};
}

bool IsMissedBy(std::initializer_list<Row> rows) {
  Report report;
  report.BeginSection("section", "about");
  for (const Row& row : rows) {
    report.Add(row);
  }
  return report.IsAnyMissed();
}

TEST(BenchReport, ATargetIsMetUpToItsLimit) {
  EXPECT_FALSE(IsMissedBy({RowWith(109, 110), RowWith(110, 110)}));
}

TEST(BenchReport, ATargetIsMissedAboveItsLimit) {
  EXPECT_TRUE(IsMissedBy({RowWith(110, 110), RowWith(110.5, 110), RowWith(1, 110)}));
}

TEST(BenchReport, AFigureWithoutALimitIsOnlyStated) {
  EXPECT_FALSE(IsMissedBy({RowWith(1e9, std::nullopt)}));
}

TEST(BenchReport, TheFileSaysWhichTargetsAreMet) {
  const std::string file = "bench-report-" + std::to_string(getpid()) + ".json";
  Report report;
  report.BeginSection("section", "about");
  report.Add(RowWith(110, 110));
  report.Add(RowWith(111, 110));
  report.Add(RowWith(5, std::nullopt));
  ASSERT_TRUE(report.WriteJson(file));
  const auto rows = nlohmann::json::parse(std::ifstream(file))["sections"][0]["rows"];
  std::remove(file.c_str());
  EXPECT_EQ(rows[0]["met"], true);
  EXPECT_EQ(rows[1]["met"], false);
  EXPECT_EQ(rows[1]["result"]["value"], 111);
  EXPECT_EQ(rows[1]["result"]["unit"], "instr");
  EXPECT_FALSE(rows[2].contains("met"));
}

}  // namespace
