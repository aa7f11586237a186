#include "btctl/cli/Runner.h"

#include "btctl/base/Failure.h"

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

}  // namespace

ExitCode RunCommand(Session& session, AnswerStream& answers, const Parsed& parsed) {
  Output output(answers, parsed.options.json);
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

ExitCode RunLine(Session& session, AnswerStream& answers, const Options& options, const std::string& line,
                 const std::function<void(const Command&)>& announce) {
  try {
    Parsed parsed = ParseLine(line);
    parsed.options.json = parsed.options.json || options.json;
    parsed.options.waits = parsed.options.waits && options.waits;
    if (!parsed.options.timeoutSeconds) {
      parsed.options.timeoutSeconds = options.timeoutSeconds;
    }
    if (announce && parsed.command != nullptr) {
      announce(*parsed.command);
    }
    return RunCommand(session, answers, parsed);
  } catch (const Failure& failure) {
    Output(answers, options.json).Complain(failure);
    return failure.Code();
  }
}

}  // namespace btctl
