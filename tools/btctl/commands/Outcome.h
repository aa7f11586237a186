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
};

Condition Is(const std::string& field, const std::string& value);
Condition IsArgument(const std::string& field, std::size_t argument);

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

}  // namespace btctl

#endif
