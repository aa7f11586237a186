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

void Replace(std::string& text, const std::string& part, const std::string& replacement) {
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at)) {
    text.replace(at, part.size(), replacement);
    at += replacement.size();
  }
}

/// A text that names commands as they are typed where the program runs already.
std::string WithoutProgram(std::string text) {
  Replace(text, "'btctl --help'", "'help'");
  Replace(text, "'btctl' has no ", "there is no ");
  Replace(text, "'btctl ", "'");
  return text;
}

Failure WithoutProgram(const Failure& failure) {
  return {failure.Code(), WithoutProgram(std::string(failure.what())), WithoutProgram(failure.Hint())};
}

ExitCode Run(Session& session, AnswerStream& answers, const Parsed& parsed, bool isInShell) {
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
    output.Complain(isInShell ? WithoutProgram(failure) : failure);
    return failure.Code();
  } catch (const std::exception& error) {
    output.Complain(Failure(EXIT_INTERNAL, error.what()));
    return EXIT_INTERNAL;
  }
}

}  // namespace

ExitCode RunCommand(Session& session, AnswerStream& answers, const Parsed& parsed) {
  return Run(session, answers, parsed, false);
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
    if (parsed.help) {
      parsed.help = WithoutProgram(*parsed.help);
    }
    return Run(session, answers, parsed, true);
  } catch (const Failure& failure) {
    Output(answers, options.json).Complain(WithoutProgram(failure));
    return failure.Code();
  }
}

}  // namespace btctl
