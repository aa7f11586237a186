#ifndef TOOLS_BTCTL_COMMANDS_OUTCOMEWATCH_H
#define TOOLS_BTCTL_COMMANDS_OUTCOMEWATCH_H

#include <map>
#include <string>

#include "btctl/base/JsonFwd.h"
#include "btctl/commands/Argument.h"
#include "btctl/commands/Outcome.h"
#include "btctl/events/Event.h"
#include "btctl/events/EventHub.h"

namespace btctl {

/// Waits for the outcome of one request. Make it before the request: the outcome may be there before the
/// answer.
///
/// A request for a pair of profiles has an outcome for each. It is decided once no profile is under way any
/// more.
class OutcomeWatch {
 public:
  OutcomeWatch(EventHub& hub, const Outcome& outcome, const Given& given);

  const std::string& EventName() const { return m_outcome.event; }
  bool IsDecided() const;
  /// Whether both profiles have been reported, if a pair was asked for.
  bool IsComplete() const;
  bool IsSuccess() const;
  /// The event that decided, once one has: that of a failure, if there is one.
  const Event& Decisive() const;
  /// Adds "outcome", the event that decided, and "outcomes" if there is one for each of two profiles.
  void AddTo(Json& answer) const;

 private:
  enum class State { UNDER_WAY, SUCCESS, FAILURE };
  struct Latest {
    State state;
    Event event;
  };

  void OnEvent(const Event& event);
  bool IsForAPair() const;
  std::string ValueOf(const Condition& condition) const;
  bool Meets(const Event& event, const Condition& condition) const;
  State StateOf(const Event& event) const;

  const Outcome m_outcome;
  const Given m_given;
  std::map<std::string, Latest> m_latest;  ///< by profile; one of no name if the event has no profile
  const EventHub::Subscription m_subscription;
};

}  // namespace btctl

#endif
