#include "libbtasync/OutcomeJudge.h"

#include <algorithm>
#include <utility>

#include <glib.h>

#include "glib/Owned.h"

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

using Kind = OutcomeCondition::Kind;

ComparedValue ToCompared(GVariant* value) {
  switch (g_variant_classify(value)) {
    case G_VARIANT_CLASS_STRING:
      return std::string(g_variant_get_string(value, nullptr));
    case G_VARIANT_CLASS_BYTE:
      return g_variant_get_byte(value);
    case G_VARIANT_CLASS_BOOLEAN:
      return g_variant_get_boolean(value) != FALSE;
    case G_VARIANT_CLASS_INT32:
      return g_variant_get_int32(value);
    default:
      return 0;
  }
}

}  // namespace

bool operator==(const ComparedValue& one, const ComparedValue& other) {
  return one.number == other.number && g_ascii_strcasecmp(one.text.c_str(), other.text.c_str()) == 0;
}

ComparedValues ArgumentsOf(const Outgoing& request) {
  ComparedValues values;
  if (GVariant* const arguments = request.Arguments()) {
    for (gsize i = 0; i < g_variant_n_children(arguments); ++i) {
      values.push_back(ToCompared(OwnedVariant(g_variant_get_child_value(arguments, i)).get()));
    }
  }
  return values;
}

OutcomeJudge::OutcomeJudge(const RequestOutcome& outcome, ComparedValues arguments)
    : m_outcome(outcome), m_arguments(std::move(arguments)) {
  for (const OutcomeCondition& condition : outcome.ours) {
    if (condition.kind == Kind::PROFILE && condition.argument < m_arguments.size() &&
        m_arguments[condition.argument].number == BT_PROFILE_HFP_A2DP) {
      m_profilePlace = condition.place;
    }
  }
}

bool OutcomeJudge::Meets(const ComparedValues& event, const OutcomeCondition& condition) const {
  const ComparedValue& value = event.at(condition.place);
  if (condition.kind == Kind::VALUE) {
    return value.number == condition.value;
  }
  if (condition.kind == Kind::PROFILE && m_profilePlace) {
    return value.number == BT_PROFILE_HFP || value.number == BT_PROFILE_A2DP;
  }
  return value == m_arguments.at(condition.argument);
}

Verdict OutcomeJudge::VerdictOn(const ComparedValues& event) const {
  const auto meets = [&](const OutcomeCondition& condition) { return Meets(event, condition); };
  if (std::all_of(m_outcome.success.begin(), m_outcome.success.end(), meets)) {
    return Verdict::Reached;
  }
  return std::any_of(m_outcome.failure.begin(), m_outcome.failure.end(), meets) ? Verdict::Missed
                                                                                : Verdict::NotYet;
}

std::optional<Judgement> OutcomeJudge::Judge(const ComparedValues& event) {
  const auto meets = [&](const OutcomeCondition& condition) { return Meets(event, condition); };
  if (!std::all_of(m_outcome.ours.begin(), m_outcome.ours.end(), meets)) {
    return std::nullopt;
  }
  const int about = m_profilePlace ? event[*m_profilePlace].number : 0;
  m_verdicts[about] = VerdictOn(event);
  const auto any = [&](Verdict verdict) {
    return std::any_of(m_verdicts.begin(), m_verdicts.end(),
                       [&](const auto& entry) { return entry.second == verdict; });
  };
  Judgement judgement{any(Verdict::NotYet)   ? Verdict::NotYet
                      : any(Verdict::Missed) ? Verdict::Missed
                                             : Verdict::Reached};
  judgement.about = about;
  judgement.decisive = DecisiveFor(judgement.verdict, about);
  if (judgement.verdict != Verdict::NotYet && m_verdicts.size() < (m_profilePlace ? 2U : 1U)) {
    judgement.unlessMoreComes = kOtherProfileComesWithin;
  }
  return judgement;
}

int OutcomeJudge::DecisiveFor(Verdict verdict, int newest) const {
  if (m_verdicts.at(newest) == verdict) {
    return newest;
  }
  return std::find_if(m_verdicts.begin(), m_verdicts.end(),
                      [&](const auto& entry) { return entry.second == verdict; })
      ->first;
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
