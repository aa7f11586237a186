#ifndef TOOLS_BTCTL_CLI_RUNNER_H
#define TOOLS_BTCTL_CLI_RUNNER_H

#include <functional>
#include <string>

#include "btctl/base/ExitCode.h"
#include "btctl/cli/CommandLine.h"

namespace btctl {

class AnswerStream;

/// Carries out what a command line says, and reports what comes of it. The exit code.
ExitCode RunCommand(Session& session, AnswerStream& answers, const Parsed& parsed);

/// The same for a text as a shell reads it, with quotes. What the options say is added to those of the text.
/// `announce`, if any, is called with the command before that runs.
ExitCode RunLine(Session& session, AnswerStream& answers, const Options& options, const std::string& line,
                 const std::function<void(const Command&)>& announce = nullptr);

}  // namespace btctl

#endif
