#include "btctl/commands/OutcomeWatch.h"

#include <algorithm>

namespace btctl {
namespace {

constexpr const char* kProfile = "profile";

/// The profile of the event, if there is one.
std::string ProfileOf(const Event& event) {
  const auto& fields = event.description->fields;
  const bool hasProfile = std::find(fields.begin(), fields.end(), kProfile) != fields.end();
  return hasProfile ? event.Value(kProfile).shown.dump() : std::string();
}

}  // namespace

OutcomeWatch::OutcomeWatch(EventHub& hub, const Outcome& outcome, const Given& given)
    : m_outcome(outcome),
      m_given(given),
      m_subscription(hub, [this](const Event& event) { OnEvent(event); }) {}

bool OutcomeWatch::IsDecided() const {
  return !m_latest.empty() && std::none_of(m_latest.begin(), m_latest.end(), [](const auto& entry) {
    return entry.second.state == State::UNDER_WAY;
  });
}

bool OutcomeWatch::IsComplete() const { return m_latest.size() >= (IsForAPair() ? 2U : 1U); }

bool OutcomeWatch::IsSuccess() const {
  return std::all_of(m_latest.begin(), m_latest.end(),
                     [](const auto& entry) { return entry.second.state == State::SUCCESS; });
}

const Event& OutcomeWatch::Decisive() const {
  for (const auto& [profile, latest] : m_latest) {
    if (latest.state == State::FAILURE) {
      return latest.event;
    }
  }
  return m_latest.rbegin()->second.event;
}

void OutcomeWatch::AddTo(Json& answer) const {
  answer["outcome"] = Decisive().ToJson();
  if (m_latest.size() > 1) {
    for (const auto& [profile, latest] : m_latest) {
      answer["outcomes"].push_back(latest.event.ToJson());
    }
  }
}

void OutcomeWatch::OnEvent(const Event& event) {
  const auto meets = [&](const Condition& condition) { return Meets(event, condition); };
  if (event.Name() == m_outcome.event && std::all_of(m_outcome.ours.begin(), m_outcome.ours.end(), meets)) {
    m_latest.insert_or_assign(ProfileOf(event), Latest{StateOf(event), event});
  }
}

bool OutcomeWatch::IsForAPair() const {
  return std::any_of(m_outcome.ours.begin(), m_outcome.ours.end(), [&](const Condition& condition) {
    return condition.isProfile &&
           WordsOf<MWPBtType::ProfileId>().Find(ValueOf(condition)) == MWPBtType::BT_PROFILE_HFP_A2DP;
  });
}

std::string OutcomeWatch::ValueOf(const Condition& condition) const {
  return condition.argument ? m_given[*condition.argument] : condition.value;
}

bool OutcomeWatch::Meets(const Event& event, const Condition& condition) const {
  if (condition.isProfile && IsForAPair()) {
    return event.Has(condition.field, "hfp") ||
           event.Has(condition.field, "a2dp");  // asked for as a pair, reported one by one
  }
  return event.Has(condition.field, ValueOf(condition));
}

OutcomeWatch::State OutcomeWatch::StateOf(const Event& event) const {
  const auto meets = [&](const Condition& condition) { return Meets(event, condition); };
  if (std::all_of(m_outcome.success.begin(), m_outcome.success.end(), meets)) {
    return State::SUCCESS;
  }
  return std::any_of(m_outcome.failure.begin(), m_outcome.failure.end(), meets) ? State::FAILURE
                                                                                : State::UNDER_WAY;
}

}  // namespace btctl
