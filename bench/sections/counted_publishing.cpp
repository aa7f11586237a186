// Instructions of btservice for each card of a phone book, which must not grow with the number of cards.

#include <optional>
#include <string>

#include "bench/counted/Parts.h"
#include "bench/harness/Callgrind.h"
#include "bench/sections/CountedSections.h"

namespace {

constexpr double kLimitOfGrowth = 1.10;

std::string Number(unsigned number) {
  const std::string digits = std::to_string(number);
  return digits.size() > 3 ? digits.substr(0, digits.size() - 3) + "," + digits.substr(digits.size() - 3)
                           : digits;
}

/// What one card costs in a part that is done for a book of that size.
double CostOfCard(const PartCosts& costs, const char* part, unsigned size) {
  return CostOfPart(costs, part + std::to_string(size)) / size;
}

void ReportGrowth(Report& report, const PartCosts& costs, const char* part, const std::string& done) {
  const unsigned least = kBookSizes.front();
  const double ofLeast = CostOfCard(costs, part, least);
  for (const unsigned size : kBookSizes) {
    if (size != least) {
      const double cost = CostOfCard(costs, part, size);
      report.Add({"a card of " + Number(size) + ", " + done, Instructions(cost), "a card of " + Number(least),
                  Instructions(ofLeast), Times(cost / ofLeast), kLimitOfGrowth});
    }
  }
}

void ReportRatio(Report& report, const PartCosts& costs, const char* part, const char* peerPart,
                 unsigned size, const std::string& done, const std::string& peer) {
  const double cost = CostOfCard(costs, part, size);
  const double ofPeer = CostOfCard(costs, peerPart, size);
  report.Add({"a card of " + Number(size) + ", " + done, Instructions(cost), peer, Instructions(ofPeer),
              Times(cost / ofPeer), std::nullopt});
}

}  // namespace

void CountPublishing(Report& report) {
  const PartCosts costs = CountParts("bt_bench_counted_book");
  report.BeginSection("publishing", "instructions of btservice for each card of a phone book");
  ReportGrowth(report, costs, kParse, "parsed");
  ReportGrowth(report, costs, kPublish, "published");
  if (costs.count(kParseByPeer + std::to_string(kPeerBookSize)) != 0) {
    ReportRatio(report, costs, kParse, kParseByPeer, kPeerBookSize, "parsed", "libvformat");
  }
  for (const unsigned size : kBookSizes) {
    ReportRatio(report, costs, kPublish, kCopySegment, size, "published", "memcpy of the segment");
  }
}
