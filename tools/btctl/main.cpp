// btctl: the command line client of the Bluetooth service. The rooms, from below; each includes from itself
// and from those before it:
//   base/      exit codes, failures, JSON
//   words/     words for the values of enumerations
//   bus/       the session bus: the one place that speaks D-Bus by itself
//   events/    the seven listener interfaces, turned into one kind of event
//   output/    text for people, JSON for programs
//   session/   the library in use: requests beside a main loop
//   commands/  the table of facade methods, a line each: how it is written, read, called and shown
//   sim/       the controls of the simulated service
//   composed/  commands that are more than one request, and the list of all commands
//   cli/       the command line and the shell

#include <algorithm>
#include <clocale>
#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

#include "btctl/cli/Shell.h"
#include "btctl/session/LibraryLog.h"

namespace {

using namespace btctl;

ExitCode Run(Session& session, AnswerStream& answers, const std::vector<std::string>& words, bool json) {
  try {
    answers.ThrowIfFailed();  // before anything is done whose answer nobody would see
    session.SetGuard([&answers] { answers.ThrowIfFailed(); });
    const Parsed parsed = ParseCommandLine(words);
    if (parsed.help || parsed.command != nullptr) {
      session.ObserveService([&](bool isThere) {
        if (session.Stays()) {
          Output(answers, json).Note(isThere ? "the service is there" : "the service went away");
        }
      });
      return RunCommand(session, answers, parsed);
    }
    const bool isAtTerminal = isatty(STDIN_FILENO) != 0 && answers.IsTerminal();
    return isAtTerminal ? Shell(session, answers, parsed.options).Run()
                        : RunLines(session, answers, parsed.options);
  } catch (const Failure& failure) {
    Output(answers, json).Complain(failure);
    return failure.Code();
  }
}

/// Opens standard input and error if they are closed: else another file would take their numbers, and would
/// get the messages. Standard output is the business of AnswerStream.
void OpenStandardFiles() {
  for (const int standard : {STDIN_FILENO, STDERR_FILENO}) {
    if (fcntl(standard, F_GETFD) < 0) {
      const int file = open("/dev/null", O_RDWR | O_CLOEXEC);
      if (file != standard) {
        dup2(file, standard);
        close(file);
      }
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  OpenStandardFiles();
  std::setlocale(LC_ALL, "");
  const std::vector<std::string> words(argv + 1, argv + argc);
  const auto has = [&](const char* word) {
    return std::find(words.begin(), words.end(), word) != words.end();
  };
  const bool isVerbose = has("--verbose");
  const bool isJson = has("--json");
  AnswerStream answers(isVerbose && !isJson);
  LibraryLog::Take({isVerbose, isJson});
  Session session;
  const ExitCode code = Run(session, answers, words, isJson);
  if (session.HasLeftThreads()) {
    std::_Exit(code);  // a thread is still inside the library: nothing can be cleared up under it
  }
  return code;
}
