#include "soak/Outages.h"

#include <algorithm>
#include <limits>

namespace btsoak {

void Outages::Begin(std::int64_t now) {
  m_outages.push_back({now, std::numeric_limits<std::int64_t>::max()});
}

void Outages::End(std::int64_t now) { m_outages.back().end = now; }

bool Outages::Explain(std::int64_t begin, std::int64_t end) const {
  // It was lately, if at all.
  return std::any_of(m_outages.rbegin(), m_outages.rend(),
                     [&](const Outage& outage) { return begin <= outage.end && end >= outage.begin; });
}

}  // namespace btsoak
