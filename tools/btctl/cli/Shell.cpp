#include "btctl/cli/Shell.h"

#include <csignal>
#include <cstring>
#include <iostream>
#include <set>
#include <sstream>

#include <glib-unix.h>

#include <bluetooth/MWPBtCom.h>

#include "btctl/commands/ContactNames.h"
#include "btctl/commands/ToJson.h"
#include "btctl/events/Event.h"
#include "btctl/session/LibraryLog.h"

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

bool IsWordOfTheShell(const std::string& word) {
  return word == "help" || word == "?" || word == "watch" || word == "clear" || IsLeaving(word);
}

/// The line with one blank between words outside quotes, and without the program's name, which examples have.
std::string Normal(const std::string& line) {
  static constexpr char kProgram[] = "btctl ";
  const std::string trimmed = Trimmed(line);
  if (trimmed.find_first_of("\"'\\") != std::string::npos) {
    return trimmed.rfind(kProgram, 0) == 0 ? Trimmed(trimmed.substr(std::strlen(kProgram))) : trimmed;
  }
  std::istringstream words(trimmed);
  std::string normal;
  for (std::string word; words >> word;) {
    normal += (normal.empty() ? "" : " ") + word;
  }
  return normal.rfind(kProgram, 0) == 0 ? normal.substr(std::strlen(kProgram)) : normal;
}

/// What is meant by a line that asks for help.
struct Help {
  std::string command;   ///< "call --help"; empty if nothing but the shell's own help is wanted
  bool isAboutTheShell;  ///< as well
};

std::optional<Help> HelpIn(const std::string& line) {
  const std::string word = line.substr(0, line.find(' '));
  if (word != "help" && word != "?") {
    return std::nullopt;
  }
  const std::string about = Trimmed(line.substr(word.size()));
  if (about.empty()) {
    return Help{"--help", true};
  }
  return IsWordOfTheShell(about) ? Help{"", true} : Help{about + " --help", false};
}

}  // namespace

Shell::Shell(Session& session, AnswerStream& terminal, const Options& options)
    : m_session(session),
      m_terminal(terminal),
      m_options(options),
      m_output(terminal, options.json, Origin::LINE),
      m_editor(terminal, [this](const std::vector<std::string>& before,
                                const std::string& start) { return Complete(before, start, m_known); }),
      m_termination(g_unix_signal_add(
          SIGTERM,
          [](gpointer self) -> gboolean {
            static_cast<Shell*>(self)->OnTermination();
            return G_SOURCE_CONTINUE;
          },
          this)),
      m_events(session.Events(), [this](const Event& event) { OnEvent(event); }) {
  LibraryLog::SetPrinter(
      [this](const std::string& line) { m_editor.PrintAbove([&] { std::fputs(line.c_str(), stderr); }); });
  m_session.ObserveService([this](bool isThere) { OnService(isThere); });
  m_session.WatchService();
  m_session.ObserveInterrupt([this] { m_editor.Discard(); });
}

Shell::~Shell() {
  m_session.ObserveService(nullptr);
  m_session.ObserveInterrupt(nullptr);
  LibraryLog::SetPrinter(nullptr);
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
    goesOn = line && Handle(Normal(*line)) && !m_isTerminated;
  }
  return m_isTerminated ? EXIT_TERMINATED : m_code;
}

/// The terminal is left as it was, which it would not be if the signal ended the program.
void Shell::OnTermination() {
  m_isTerminated = true;
  m_editor.End();
  m_session.Interrupt();
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
  if (m_showsEvents && !m_commandShowsEvents && !m_session.Events().HasOwnQuestion()) {
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
  const std::optional<Help> help = HelpIn(line);
  if (!help || !help->command.empty()) {
    m_code = RunLine(m_session, m_terminal, m_options, help ? help->command : line,
                     [this](const Command& named) { m_commandShowsEvents = named.showsEvents; });
    m_commandShowsEvents = false;
  }
  if (help && help->isAboutTheShell) {
    m_output.ShowText(kShellHelp);
  }
  m_isStarted = m_isStarted || m_code == EXIT_OK;
  return true;
}

ExitCode RunLines(Session& session, AnswerStream& answers, const Options& options) {
  std::string line;
  while (std::getline(std::cin, line)) {
    const std::string command = Normal(line);
    if (IsLeaving(command)) {
      break;
    }
    const std::optional<Help> help = HelpIn(command);
    const ExitCode code = RunLine(session, answers, options,
                                  !help                   ? command
                                  : help->command.empty() ? "--help"
                                                          : help->command);
    if (code != EXIT_OK) {
      return code;
    }
  }
  return EXIT_OK;
}

}  // namespace btctl
