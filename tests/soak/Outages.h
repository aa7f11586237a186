#ifndef TESTS_SOAK_OUTAGES_H
#define TESTS_SOAK_OUTAGES_H

#include <cstdint>
#include <vector>

namespace btsoak {

/// The times in which requests may fail, since there was no service that could answer them. All times are
/// microseconds of the monotonic clock, which is the same in all processes.
class Outages {
 public:
  void Begin(std::int64_t now);
  /// Of the last one that began.
  void End(std::int64_t now);
  /// Whether some of the time from begin to end, that of a request that failed, was an outage.
  bool Explain(std::int64_t begin, std::int64_t end) const;

 private:
  struct Outage {
    std::int64_t begin;
    std::int64_t end;
  };
  std::vector<Outage> m_outages;
};

}  // namespace btsoak

#endif
