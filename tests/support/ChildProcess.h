#ifndef TESTS_SUPPORT_CHILDPROCESS_H
#define TESTS_SUPPORT_CHILDPROCESS_H

#include <map>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "support/Waiting.h"

namespace bttest {

/// A process started by a test. It ends with the object, and with the thread that started it, at the latest.
/// What it writes is captured. Its standard input is empty.
class ChildProcess {
 public:
  /// Variables to change in the environment; those without a value are removed.
  using Environment = std::map<std::string, std::optional<std::string>>;

  /// Starts the program argv[0], searched in PATH. Throws if it cannot be started.
  explicit ChildProcess(const std::vector<std::string>& argv, const Environment& changes = {});
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  pid_t Pid() const { return m_pid; }
  bool IsAlive();
  /// The exit status, or 128 plus the signal that ended it; nothing if it is still running after bound.
  std::optional<int> Wait(std::chrono::milliseconds bound = kBound);
  /// Sends a signal, unless the process has ended.
  void Signal(int signal);
  /// Ends it with SIGKILL and waits for that.
  void Kill();

  /// What it wrote so far to standard output, and to standard error.
  std::string Output() const;
  std::string Errors() const;
  /// Waits until it has written text to standard output; false if it ended or the bound passed without.
  bool WaitForOutput(const std::string& text, std::chrono::milliseconds bound = kBound);

 private:
  pid_t m_pid = -1;
  int m_output = -1;  ///< files in memory: no pipe that could fill up, no thread to empty it
  int m_errors = -1;
  std::optional<int> m_status;
};

}  // namespace bttest

#endif
