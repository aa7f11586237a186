#ifndef TOOLS_BTCTL_COMMANDS_OUTCOME_H
#define TOOLS_BTCTL_COMMANDS_OUTCOME_H

#include <optional>
#include <string>
#include <vector>

namespace btctl {

/// A value that a field of an event has: one that is known beforehand, or that of an argument of the command.
struct Condition {
  std::string field;
  std::string value;
  std::optional<std::size_t> argument;
  bool isProfile;  ///< one that may be asked for as a pair, and is reported one by one
};

/// The event by which the service reports what has come of a request.
struct Outcome {
  std::string event;
  /// Only an event with these values is about the request.
  std::vector<Condition> ours;
  /// With these it reports success; if there are none, it always does.
  std::vector<Condition> success;
  /// With any of these it reports failure; with none of all these, that the request is under way.
  std::vector<Condition> failure;
};

/// That of a method, as protocol/Outcomes.h has it. The arguments of the command have to be those of the
/// method, or at least the ones that count. first: the first of them, if it decides what the outcome is.
Outcome OutcomeOf(const std::string& method, int first = 0);

}  // namespace btctl

#endif
