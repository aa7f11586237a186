#ifndef LIBBTASYNC_OUTCOMEJUDGE_H
#define LIBBTASYNC_OUTCOMEJUDGE_H

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include <btasync/Records.h>

#include "libbtasync/FollowedRequest.h"
#include "protocol/Outcomes.h"

namespace btasync {
inline namespace v0 {
namespace detail {

/// An argument of a request or a value of an event, as what conditions compare: a number or a text.
struct ComparedValue {
  int number = 0;
  std::string text;  ///< an address, whose letters may be of either case

  ComparedValue(const std::string& text) : text(text) {}
  ComparedValue(const Address& address) : text(address.ToText()) {}
  template <typename Number, std::enable_if_t<std::is_enum_v<Number> || std::is_integral_v<Number>, int> = 0>
  ComparedValue(Number number) : number(static_cast<int>(number)) {}
};

bool operator==(const ComparedValue& one, const ComparedValue& other);

using ComparedValues = std::vector<ComparedValue>;

/// The arguments of a request. Those that no condition can compare become 0.
ComparedValues ArgumentsOf(const Outgoing& request);

/// The values of an event that has so many of them.
template <std::size_t count, typename Event>
ComparedValues ValuesOf([[maybe_unused]] const Event& event) {
  static_assert(count <= 3, "an event with more values than any outcome had so far");
  if constexpr (count == 1) {
    const auto& [first] = event;
    return {first};
  } else if constexpr (count == 2) {
    const auto& [first, second] = event;
    return {first, second};
  } else if constexpr (count == 3) {
    const auto& [first, second, third] = event;
    return {first, second, third};
  } else {
    return {};
  }
}

/// Decides by an entry of protocol/Outcomes.h what the events say about one request.
class OutcomeJudge {
 public:
  OutcomeJudge(const RequestOutcome& outcome, ComparedValues arguments);

  /// Nothing, if the event is not about the request.
  std::optional<Judgement> Judge(const ComparedValues& event);

 private:
  bool Meets(const ComparedValues& event, const OutcomeCondition& condition) const;
  Verdict VerdictOn(const ComparedValues& event) const;
  /// The profile that has brought a verdict of all: that of the newest event, if it agrees.
  int DecisiveFor(Verdict verdict, int newest) const;

  const RequestOutcome& m_outcome;
  const ComparedValues m_arguments;
  std::optional<std::size_t> m_profilePlace;  ///< in the event, if a pair of profiles was asked for
  std::map<int, Verdict> m_verdicts;          ///< by profile; one if no pair was asked for
};

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
