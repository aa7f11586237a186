#ifndef TOOLS_BTCTL_OUTPUT_OUTPUT_H
#define TOOLS_BTCTL_OUTPUT_OUTPUT_H

#include <string>

#include "btctl/base/Failure.h"
#include "btctl/base/JsonFwd.h"
#include "btctl/output/AnswerStream.h"
#include "btctl/output/Style.h"

namespace btctl {

struct Event;

/// Where a command was written: on the command line of the program, or as a line that the program reads.
enum class Origin { COMMAND_LINE, LINE };

/// How all that the program has to say is shown: to people as text, to programs as a JSON object a line.
/// Answers and events go to standard output; all other messages, to standard error. Messages name commands as
/// they are written there: 'btctl call dial', or 'call dial' as a line.
class Output {
 public:
  Output(AnswerStream& answers, bool json, Origin origin = Origin::COMMAND_LINE);

  /// An object with the members "kind" and "command", and others that make up the answer.
  void ShowAnswer(const Json& answer);
  /// The items, each an object; `kind` is what one is called.
  void ShowList(const std::string& kind, const Json& items);
  void ShowEvent(const Event& event);
  /// Help, as text or as the "text" of a JSON object. It is the answer, so that it can be piped.
  void ShowText(const std::string& text);

  /// Something about what is going on.
  void Note(const std::string& text);
  /// That a list ends early: it has `listed` items of `total`.
  void NoteCut(std::size_t listed, std::size_t total);
  void Complain(const Failure& failure);
  /// A bar, on a terminal only. Ended by EndProgress.
  void ShowProgress(int current, int total);
  void EndProgress();

  /// An event in one line, without its time.
  std::string TextOf(const Event& event) const;
  bool IsJson() const { return m_json; }

 private:
  static std::string TextOf(const Event& event, const Style& style);
  void ShowTable(const Json& items);
  std::string AsWritten(const std::string& text) const;

  AnswerStream& m_answers;
  const bool m_json;
  const Origin m_origin;
  const Style m_style;       ///< of standard output
  const Style m_errorStyle;  ///< of standard error
  bool m_hasProgress = false;
};

}  // namespace btctl

#endif
