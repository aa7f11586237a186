#include "Staying.h"

#include <algorithm>

namespace btqt {

std::vector<bool> rowsThatStay(const std::vector<int>& places, int count) {
  // The longest increasing subsequence, by patience sorting: the top cards of the piles, and for each card
  // the one that was on top of the pile before.
  std::vector<int> tops;
  std::vector<int> before(static_cast<std::size_t>(count), -1);
  for (const int place : places) {
    const auto pile = std::lower_bound(tops.begin(), tops.end(), place);
    before[static_cast<std::size_t>(place)] = pile == tops.begin() ? -1 : *(pile - 1);
    if (pile == tops.end()) {
      tops.push_back(place);
    } else {
      *pile = place;
    }
  }
  std::vector<bool> stay(static_cast<std::size_t>(count), false);
  for (int place = tops.empty() ? -1 : tops.back(); place >= 0;
       place = before[static_cast<std::size_t>(place)]) {
    stay[static_cast<std::size_t>(place)] = true;
  }
  return stay;
}

}  // namespace btqt
