#ifndef TOOLS_BTCTL_COMMANDS_REQUEST_H
#define TOOLS_BTCTL_COMMANDS_REQUEST_H

#include <optional>
#include <string>
#include <vector>

#include "btctl/commands/Bind.h"
#include "btctl/commands/Causes.h"
#include "btctl/commands/Command.h"
#include "btctl/commands/Outcome.h"

namespace btctl {

/// How the answer of a facade method is shown, and which answers mean that it failed.
struct Answer {
  enum class Kind {
    NOTHING,   ///< the method answers nothing
    ACCEPTED,  ///< 0 means that the service refused
    VALUE,     ///< the result is what was asked for
    KNOWN,     ///< so it is, but an empty text means that the service does not know
    OUTS,      ///< the out arguments are what was asked for; a result of 0 means that the service has none
    LIST,      ///< so they are, and are lists
  };

  Kind kind = Kind::NOTHING;
  const WordTable* words = nullptr;  ///< of a VALUE, if it is one of an enumeration
  bool isYesNo = false;              ///< a VALUE of 0 or 1
  std::vector<std::string> names;    ///< of the OUTS, or what one of the LIST is called
};

Answer Nothing();
Answer Accepted();
Answer Value();
Answer YesNo();
Answer Known();
Answer ValueOf(const WordTable& words);
Answer Outs(std::vector<std::string> names);
Answer ListOf(const std::string& what);

/// One facade method as a command.
struct Request {
  std::string path;
  std::string help;
  std::string method;
  Prepare prepare;
  std::vector<Argument> arguments;
  Answer answer;
  std::optional<Outcome> outcome;
  Checks checks = {};  ///< what may have stood in the way if it is refused, in that order
  /// The method that counts the items of a LIST, with the same arguments: the list may be cut.
  std::string countMethod = {};
  Prepare count = {};
};

/// The command that makes the request, shows its answer, and follows it to its outcome.
Command AsCommand(Request request);

/// The name of a facade method and how it is called: two members of a Request.
#define BTCTL_METHOD(facade, method) #facade "::" #method, Bind(&facade::method)

}  // namespace btctl

#endif
