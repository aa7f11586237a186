#include "btctl/cli/Shell.h"

#include <iostream>
#include <set>

#include <bluetooth/MWPBtCom.h>

#include "btctl/commands/ContactNames.h"
#include "btctl/commands/ToJson.h"

namespace btctl {
namespace {

constexpr std::chrono::seconds kQuestionsOfItsOwn{5};  // what nobody asked for may take no longer

constexpr char kClearScreen[] = "\033[H\033[2J";

constexpr char kShellHelp[] =
    "\n"
    "In the shell, without 'btctl':\n"
    "  help [COMMAND], ?           Show this help, or that of a command\n"
    "  watch on, watch off         Show or hide events\n"
    "  clear                       Clear the screen\n"
    "  quit, exit                  Leave the shell, as Ctrl-D does\n";

std::string Trimmed(const std::string& text) {
  static constexpr char kBlanks[] = " \t\r";
  const std::size_t begin = text.find_first_not_of(kBlanks);
  return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

bool IsLeaving(const std::string& line) { return line == "quit" || line == "exit"; }

}  // namespace

Shell::Shell(Session& session, AnswerStream& terminal, const Options& options)
    : m_session(session),
      m_terminal(terminal),
      m_options(options),
      m_output(terminal, options.json),
      m_editor(terminal, [this](const std::vector<std::string>& before,
                                const std::string& start) { return Complete(before, start, m_known); }),
      m_events(session.Events(), [this](const Event& event) { OnEvent(event); }) {
  m_session.ObserveService([this](bool isThere) { OnService(isThere); });
  m_session.ObserveInterrupt([this] { m_editor.Discard(); });
}

ExitCode Shell::Run() {
  if (!Start() && m_code == EXIT_NO_BUS) {
    return m_code;  // nothing can be done here, and nothing will change
  }
  m_output.Note("Tab completes, 'help' helps, 'watch off' hides events, Ctrl-D leaves");
  bool goesOn = true;
  while (goesOn) {
    FetchContacts();
    const std::optional<std::string> line = m_editor.ReadLine("btctl> ", [this] { FetchContacts(); });
    goesOn = line && Handle(Trimmed(*line));
  }
  m_session.ObserveService(nullptr);
  m_session.ObserveInterrupt(nullptr);
  return m_code;
}

/// Starts the library, and learns by the report of the service which devices there are.
bool Shell::Start() {
  try {
    m_session.Begin(kQuestionsOfItsOwn);
    m_session.Ask([] { MWPBtCom().GetBluetoothServiceStatus(); });
    m_session.DeliverArrived();
    m_isStarted = true;
  } catch (const Failure& failure) {
    m_code = failure.Code();
    m_output.Complain(failure);
  }
  m_showsEvents = true;
  return m_isStarted;
}

void Shell::OnEvent(const Event& event) {
  m_known.Learn(event);
  m_areContactsOld = m_areContactsOld || event.Name() == "OnDeletePhoneBookChanged" ||
                     (event.Name() == "OnPBDownloadStatus" && event.Has("status", "completed"));
  if (m_showsEvents && !m_commandShowsEvents) {
    m_editor.PrintAbove([&] { m_output.ShowEvent(event); });
  }
}

void Shell::OnService(bool isThere) {
  m_editor.PrintAbove([&] { m_output.Note(isThere ? "the service is there" : "the service went away"); });
  m_areContactsOld = true;
}

/// For completion. Whether it works out is seen there.
void Shell::FetchContacts() {
  if (!m_isStarted || !m_areContactsOld) {
    return;
  }
  m_areContactsOld = false;
  try {
    m_session.Begin(kQuestionsOfItsOwn);
    std::set<std::string> names;
    for (const MWPTypeContact& contact : btctl::FetchContacts(m_session)) {
      names.insert(NameOf(contact));
    }
    m_known.SetContacts(names);
  } catch (const Failure&) {
    m_areContactsOld = true;
  }
}

bool Shell::Handle(const std::string& line) {
  if (line.empty()) {
    return true;
  }
  if (IsLeaving(line)) {
    return false;
  }
  if (line == "watch on" || line == "watch off") {
    m_showsEvents = line == "watch on";
    return true;
  }
  if (line == "clear") {
    m_terminal.Write(kClearScreen);
    return true;
  }
  const bool isGeneralHelp = line == "help" || line == "?";
  const bool isHelp = isGeneralHelp || line.rfind("help ", 0) == 0;
  const std::string command = isGeneralHelp ? "--help" : isHelp ? Trimmed(line.substr(4)) + " --help" : line;
  m_code = RunLine(m_session, m_terminal, m_options, command,
                   [this](const Command& named) { m_commandShowsEvents = named.showsEvents; });
  m_commandShowsEvents = false;
  if (isGeneralHelp) {
    m_output.ShowText(kShellHelp);
  }
  m_isStarted = m_isStarted || m_code == EXIT_OK;
  return true;
}

ExitCode RunLines(Session& session, AnswerStream& answers, const Options& options) {
  std::string line;
  while (std::getline(std::cin, line)) {
    const std::string command = Trimmed(line);
    if (IsLeaving(command)) {
      break;
    }
    const ExitCode code = RunLine(session, answers, options, command);
    if (code != EXIT_OK) {
      return code;
    }
  }
  return EXIT_OK;
}

}  // namespace btctl
