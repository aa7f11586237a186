#ifndef TOOLS_BTCTL_CLI_LINEEDITOR_H
#define TOOLS_BTCTL_CLI_LINEEDITOR_H

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "btctl/cli/JobControl.h"
#include "btctl/output/AnswerStream.h"
#include "glib/OwnedId.h"

namespace btctl {

/// Lines typed at a terminal, with history and completion, while a main loop runs. There is one in a process.
class LineEditor {
 public:
  using Completer = std::function<std::vector<std::string>(const std::vector<std::string>& before,
                                                           const std::string& start)>;

  LineEditor(AnswerStream& terminal, Completer completer);
  ~LineEditor();
  LineEditor(const LineEditor&) = delete;
  LineEditor& operator=(const LineEditor&) = delete;

  /// Shows the prompt, and iterates the loop until a line is complete; nothing at the end of the input.
  /// Lines that were pasted together come one after the other, once Enter was pressed after the last.
  /// Between two lines the terminal is as it was, so that a command may ask for something by itself.
  /// `meanwhile` is called whenever something has happened, and may iterate the loop itself.
  std::optional<std::string> ReadLine(const std::string& prompt, const std::function<void()>& meanwhile);
  /// Runs what prints something, above the prompt if there is one.
  void PrintAbove(const std::function<void()>& print);
  /// Gives up what has been typed or pasted, and a search of the history.
  void Discard();
  /// Ends the input, and leaves the terminal as it was.
  void End();

 private:
  void TakeLine(char* line);
  void ShowPrompt();
  void StopReading();
  void Leave();
  void ComeBack();
  void Remember(const std::string& line);

  AnswerStream& m_terminal;
  const Completer m_completer;
  const std::string m_historyFile;
  bool m_isReading = false;
  OwnedSourceId m_typing;  ///< while it reads
  bool m_hasEnded = false;
  std::string m_prompt;
  std::optional<std::string> m_line;
  std::deque<std::string> m_pasted;  ///< lines that came with one that was complete
  const JobControl m_jobs;
};

}  // namespace btctl

#endif
