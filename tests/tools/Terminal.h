#ifndef TESTS_TOOLS_TERMINAL_H
#define TESTS_TOOLS_TERMINAL_H

#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "support/Waiting.h"

namespace bttest {

/// A program at a terminal of its own. It ends with the object, and with the test, at the latest.
class Terminal {
 public:
  explicit Terminal(const std::vector<std::string>& argv);
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  void Type(const std::string& keys);
  /// Waits until the text has been written after what was waited for before; false if it was not.
  bool WaitFor(const std::string& text, std::chrono::milliseconds bound = kBound);
  void Signal(int signal);
  /// Whether what is typed is shown and comes line by line, as before a program changed that.
  bool IsAsUsual() const;
  /// Makes it so.
  void BeAsUsual();
  /// All that was written.
  const std::string& Screen() const { return m_screen; }
  /// Waits for the end of the program.
  std::optional<int> Wait();

 private:
  /// Takes what has been written; false if nothing more will come.
  bool Read();

  pid_t m_pid = -1;
  int m_terminal = -1;
  std::string m_screen;
  std::size_t m_seen = 0;
};

}  // namespace bttest

#endif
