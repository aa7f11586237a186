#ifndef BENCH_HARNESS_REPORT_H
#define BENCH_HARNESS_REPORT_H

#include <optional>
#include <string>
#include <vector>

/// A figure with its unit as it is printed.
struct Figure {
  double value = 0;
  std::string unit;
};

/// One line of the table: what something costs, what its yardstick costs, and the figure made of the two that
/// a target may limit.
struct Row {
  std::string what;
  Figure cost;
  std::string yardstick;
  Figure yardstickCost;
  Figure result;
  std::optional<double> limit;  ///< the result's target: at most this

  bool IsMissed() const { return limit && result.value > *limit; }
};

/// All that was measured: printed as it comes, and written as JSON at the end.
class Report {
 public:
  Report();

  /// Begins a section, with a sentence that says what its lines compare.
  void BeginSection(const std::string& name, const std::string& about);
  void Add(const Row& row);
  bool IsAnyMissed() const;
  /// False if the file cannot be written.
  bool WriteJson(const std::string& file) const;

 private:
  struct Section {
    std::string name;
    std::string about;
    std::vector<Row> rows;
  };
  std::vector<Section> m_sections;
  std::string m_date;
};

/// Costs in the unit in which they are easy to read.
Figure Microseconds(double seconds);
Figure Milliseconds(double seconds);
/// From KiB.
Figure Mebibytes(double kibibytes);
/// Of things, without a unit.
Figure Count(double count);
Figure Instructions(double count);
/// How often the yardstick's cost.
Figure Times(double ratio);

#endif
