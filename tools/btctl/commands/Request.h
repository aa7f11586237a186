#ifndef TOOLS_BTCTL_COMMANDS_REQUEST_H
#define TOOLS_BTCTL_COMMANDS_REQUEST_H

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

/// The same in the middle of another command: makes the request and judges its answer, but shows nothing.
/// Throws a Failure, with its cause if one of the checks finds it, if it is refused.
Reply MakeRequest(Session& session, const Answer& answer, const Call& call, const Checks& checks = {},
                  const Given& given = Given({}));

/// That the service refused; it does not say why.
Failure Refused();

/// Waits for the outcome. Throws a Failure if it is one, or does not come.
void Follow(Context& context, const OutcomeWatch& watch);

/// What the call of any function is to MakeRequest. The function owns all that it needs.
template <typename Function>
Call CallOf(Function function) {
  return [function] {
    Reply reply;
    if constexpr (std::is_void_v<std::invoke_result_t<Function>>) {
      function();
    } else {
      reply.result = ToJson(function());
    }
    return reply;
  };
}

/// The name of a facade method and how it is called: two members of a Request.
#define BTCTL_METHOD(facade, method) #facade "::" #method, Bind(&facade::method)

}  // namespace btctl

#endif
