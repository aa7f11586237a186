#ifndef TOOLS_BTCTL_BASE_FAILURE_H
#define TOOLS_BTCTL_BASE_FAILURE_H

#include <stdexcept>
#include <string>
#include <utility>

#include "btctl/base/ExitCode.h"

namespace btctl {

/// Why a command did not do what it was told: what the user reads, what to do next, and how the program ends.
class Failure : public std::runtime_error {
 public:
  Failure(ExitCode code, const std::string& message, std::string hint = "")
      : std::runtime_error(message), m_code(code), m_hint(std::move(hint)) {}

  ExitCode Code() const { return m_code; }
  /// What to do next; may be empty.
  const std::string& Hint() const { return m_hint; }

 private:
  ExitCode m_code;
  std::string m_hint;
};

}  // namespace btctl

#endif
