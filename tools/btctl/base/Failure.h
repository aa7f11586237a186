#ifndef TOOLS_BTCTL_BASE_FAILURE_H
#define TOOLS_BTCTL_BASE_FAILURE_H

#include <stdexcept>
#include <string>
#include <utility>

#include "btctl/base/ExitCode.h"

namespace btctl {

/// Why a command was not carried out: what the user reads, what to do next, and how the program ends.
class Failure : public std::runtime_error {
 public:
  Failure(ExitCode code, const std::string& message, std::string hint = "", std::string cause = "")
      : std::runtime_error(message), m_code(code), m_hint(std::move(hint)), m_cause(std::move(cause)) {}

  ExitCode Code() const { return m_code; }
  /// What to do next; may be empty.
  const std::string& Hint() const { return m_hint; }
  /// A word for what the service refused for; empty if that is not known.
  const std::string& Cause() const { return m_cause; }

 private:
  ExitCode m_code;
  std::string m_hint;
  std::string m_cause;
};

}  // namespace btctl

#endif
