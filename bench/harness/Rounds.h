#ifndef BENCH_HARNESS_ROUNDS_H
#define BENCH_HARNESS_ROUNDS_H

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

/// One way to do the thing that is measured. The first of several is the yardstick.
struct Way {
  std::string name;
  std::function<double()> run;  ///< does it once, and answers what that cost
};

/// What several ways cost, each of them once in every round.
class Rounds {
 public:
  explicit Rounds(std::vector<std::vector<double>> costs) : m_costs(std::move(costs)) {}

  /// What a way costs: the median of the rounds.
  double Median(std::size_t way) const;
  /// How often the yardstick's cost a way costs: the median of the rounds' own ratios. Both sides of such a
  /// ratio saw the same machine, so that other load and changes of the processor's speed mostly cancel.
  double Ratio(std::size_t way) const;
  /// What a way costs when nothing disturbs it: the least of the rounds.
  double Least(std::size_t way) const;
  /// How often the yardstick's least cost a way's least cost is: for work that other load slows down in
  /// another measure than it slows the yardstick, by taking the cache away.
  double RatioOfLeast(std::size_t way) const;
  /// How much more a way costs than another: the median of the rounds' own differences.
  double Difference(std::size_t way, std::size_t other) const;

 private:
  std::vector<std::vector<double>> m_costs;  // by way, then by round
};

/// Runs all ways once to warm up, then once in every round, beginning with another way each round.
Rounds RunInTurn(const std::vector<Way>& ways, std::size_t rounds);

#endif
