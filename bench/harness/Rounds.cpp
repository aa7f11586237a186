#include "bench/harness/Rounds.h"

#include <algorithm>

namespace {

double MedianOf(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

template <typename Combine>
double MedianOfPairs(const std::vector<double>& left, const std::vector<double>& right, Combine combine) {
  std::vector<double> combined(left.size());
  std::transform(left.begin(), left.end(), right.begin(), combined.begin(), combine);
  return MedianOf(std::move(combined));
}

}  // namespace

double Rounds::Median(std::size_t way) const { return MedianOf(m_costs[way]); }

double Rounds::Ratio(std::size_t way) const {
  return MedianOfPairs(m_costs[way], m_costs[0], std::divides<>());
}

double Rounds::Least(std::size_t way) const {
  return *std::min_element(m_costs[way].begin(), m_costs[way].end());
}

double Rounds::RatioOfLeast(std::size_t way) const { return Least(way) / Least(0); }

double Rounds::Difference(std::size_t way, std::size_t other) const {
  return MedianOfPairs(m_costs[way], m_costs[other], std::minus<>());
}

Rounds RunInTurn(const std::vector<Way>& ways, std::size_t rounds) {
  for (const Way& way : ways) {
    way.run();
  }
  std::vector<std::vector<double>> costs(ways.size(), std::vector<double>(rounds));
  for (std::size_t round = 0; round < rounds; ++round) {
    for (std::size_t turn = 0; turn < ways.size(); ++turn) {
      const std::size_t way = (round + turn) % ways.size();
      costs[way][round] = ways[way].run();
    }
  }
  return Rounds(std::move(costs));
}
