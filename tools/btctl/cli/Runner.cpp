#include "btctl/cli/Runner.h"

#include <algorithm>
#include <iterator>
#include <sstream>

#include "btctl/base/Failure.h"
#include "btctl/output/AnswerStream.h"
#include "btctl/output/Output.h"
#include "btctl/session/LibraryLog.h"
#include "btctl/session/Session.h"

namespace btctl {
namespace {

constexpr double kUsualTimeoutSeconds = 30;  // a bit longer than the library waits for an answer

std::optional<Session::Milliseconds> TimeoutOf(const Parsed& parsed) {
  const double usual = parsed.command->patience == Patience::FOR_EVER ? 0 : kUsualTimeoutSeconds;
  const double seconds = parsed.options.timeoutSeconds.value_or(usual);
  if (seconds == 0) {
    return std::nullopt;
  }
  return Session::Milliseconds(static_cast<std::int64_t>(seconds * 1000));
}

/// The library's log as the options of a line want it, while it runs.
class LogOfLine {
 public:
  explicit LogOfLine(const Options& options)
      : m_before(LibraryLog::Exchange({options.verbose, options.json})) {}
  ~LogOfLine() { LibraryLog::Exchange(m_before); }
  LogOfLine(const LogOfLine&) = delete;
  LogOfLine& operator=(const LogOfLine&) = delete;

 private:
  const LibraryLog::Display m_before;
};

/// Whether a line that cannot be read asks for JSON.
bool AsksForJson(const std::string& line) {
  std::istringstream words(line);
  return std::find(std::istream_iterator<std::string>(words), {}, "--json") !=
         std::istream_iterator<std::string>();
}

ExitCode Run(Session& session, AnswerStream& answers, const Parsed& parsed, Origin origin) {
  Output output(answers, parsed.options.json, origin);
  try {
    if (parsed.help) {
      output.ShowText(*parsed.help);
    } else if (parsed.command != nullptr) {
      session.Begin(TimeoutOf(parsed));
      Context context{session, output, parsed.options};
      parsed.command->run(context, parsed.given);
    }
    output.EndProgress();
    answers.ThrowIfFailed();
    return EXIT_OK;
  } catch (const Failure& failure) {
    output.Complain(failure);
    return failure.Code();
  } catch (const std::exception& error) {
    output.Complain(Failure(EXIT_INTERNAL, error.what()));
    return EXIT_INTERNAL;
  }
}

}  // namespace

ExitCode RunCommand(Session& session, AnswerStream& answers, const Parsed& parsed) {
  return Run(session, answers, parsed, Origin::COMMAND_LINE);
}

ExitCode RunLine(Session& session, AnswerStream& answers, const Options& options, const std::string& line,
                 const std::function<void(const Command&)>& announce) {
  try {
    Parsed parsed = ParseLine(line);
    parsed.options.json = parsed.options.json || options.json;
    parsed.options.verbose = parsed.options.verbose || options.verbose;
    const LogOfLine log(parsed.options);
    parsed.options.waits = parsed.options.waits && options.waits;
    if (!parsed.options.timeoutSeconds) {
      parsed.options.timeoutSeconds = options.timeoutSeconds;
    }
    if (announce && parsed.command != nullptr) {
      announce(*parsed.command);
    }
    return Run(session, answers, parsed, Origin::LINE);
  } catch (const Failure& failure) {
    Output(answers, options.json || AsksForJson(line), Origin::LINE).Complain(failure);
    return failure.Code();
  }
}

}  // namespace btctl
