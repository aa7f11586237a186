#ifndef TOOLS_BTCTL_COMMANDS_COMMAND_H
#define TOOLS_BTCTL_COMMANDS_COMMAND_H

#include <functional>
#include <string>
#include <vector>

#include "btctl/base/Options.h"
#include "btctl/commands/Argument.h"

namespace btctl {

class Output;
class Session;

/// What a command works with.
struct Context {
  Session& session;
  Output& output;
  const Options& options;
};

/// How long a command may take if the command line does not say.
enum class Patience { A_WHILE, FOR_EVER };

/// One command of btctl.
struct Command {
  std::string path;  ///< "call dial"
  std::string help;
  std::vector<Argument> arguments;
  std::vector<std::string> methods;  ///< of the facades that it reaches: "MWPBtPhone::DialCall"
  Patience patience = Patience::A_WHILE;
  std::function<void(Context&, const Given&)> run;
  bool showsEvents = false;  ///< by itself, all that come while it runs
};

}  // namespace btctl

#endif
