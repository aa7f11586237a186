#include "btctl/commands/Outcome.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "btctl/events/Event.h"
#include "protocol/Outcomes.h"

namespace btctl {
namespace {

std::vector<Condition> Named(const EventDescription& event, const OutcomeConditions& conditions) {
  std::vector<Condition> named;
  std::transform(conditions.begin(), conditions.end(), std::back_inserter(named), [&](const auto& condition) {
    using Kind = OutcomeCondition::Kind;
    const std::string& field = event.fields.at(condition.place);
    return condition.kind == Kind::VALUE
               ? Condition{field, std::to_string(condition.value), std::nullopt, false}
               : Condition{field, "", condition.argument, condition.kind == Kind::PROFILE};
  });
  return named;
}

}  // namespace

Outcome OutcomeOf(const std::string& method, int first) {
  const RequestOutcome* const outcome = FindRequestOutcome(method, first);
  if (outcome == nullptr) {
    throw std::logic_error("nothing ends " + method);
  }
  const EventDescription& event = FindEvent(outcome->signal);  // its values are those of the signal, in order
  return {outcome->signal, Named(event, outcome->ours), Named(event, outcome->success),
          Named(event, outcome->failure)};
}

}  // namespace btctl
