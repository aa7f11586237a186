#ifndef TESTS_SOAK_REPORT_H
#define TESTS_SOAK_REPORT_H

#include <sstream>
#include <string>

namespace btsoak {

/// What an application has done so far, and what it has of the machine at the moment.
struct Report {
  long calls = 0;       ///< requests over the bus
  long late = 0;        ///< of these, answered late
  long failed = 0;      ///< of these, failed
  long reads = 0;       ///< of shared memory
  long deliveries = 0;  ///< callbacks of listeners
  long listeners = 0;   ///< that have come, most of which have gone again
  long kilobytes = 0;   ///< in use on the heap
  long files = 0;       ///< open descriptors

  std::string Text() const {
    std::ostringstream text;
    text << calls << ' ' << late << ' ' << failed << ' ' << reads << ' ' << deliveries << ' ' << listeners
         << ' ' << kilobytes << ' ' << files;
    return text.str();
  }
  static Report From(const std::string& text) {
    Report report;
    std::istringstream(text) >> report.calls >> report.late >> report.failed >> report.reads >>
        report.deliveries >> report.listeners >> report.kilobytes >> report.files;
    return report;
  }
  /// Adds what was done, not what is there.
  void Add(const Report& other) {
    calls += other.calls;
    late += other.late;
    failed += other.failed;
    reads += other.reads;
    deliveries += other.deliveries;
    listeners += other.listeners;
  }
};

}  // namespace btsoak

#endif
