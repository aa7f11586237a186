#ifndef TOOLS_BTCTL_CLI_SHELL_H
#define TOOLS_BTCTL_CLI_SHELL_H

#include <string>

#include "btctl/cli/Completion.h"
#include "btctl/cli/LineEditor.h"
#include "btctl/cli/Runner.h"
#include "btctl/events/EventHub.h"
#include "btctl/output/Output.h"
#include "btctl/session/Session.h"
#include "glib/OwnedId.h"

namespace btctl {

/// Commands typed one after the other at a terminal, with the events shown as they come, above the prompt.
class Shell {
 public:
  Shell(Session& session, AnswerStream& terminal, const Options& options);
  ~Shell();
  Shell(const Shell&) = delete;
  Shell& operator=(const Shell&) = delete;

  /// Until the user leaves, or SIGTERM comes. The exit code of the last command, or of a start without a bus.
  ExitCode Run();

 private:
  void OnEvent(const Event& event);
  void OnService(bool isThere);
  void OnTermination();
  bool Start();
  void FetchContacts();
  /// False if the line ends the shell.
  bool Handle(const std::string& line);

  Session& m_session;
  AnswerStream& m_terminal;
  const Options m_options;
  Output m_output;
  KnownNames m_known;
  LineEditor m_editor;
  ExitCode m_code = EXIT_OK;
  bool m_showsEvents = false;
  bool m_commandShowsEvents = false;
  bool m_isStarted = false;
  bool m_areContactsOld = true;
  bool m_isTerminated = false;
  const OwnedSourceId m_termination;
  const EventHub::Subscription m_events;
};

/// Commands from a file or pipe, one a line. Ends with the first that fails.
ExitCode RunLines(Session& session, AnswerStream& answers, const Options& options);

}  // namespace btctl

#endif
