#include "btctl/commands/Request.h"

#include "btctl/base/Failure.h"
#include "btctl/commands/ContactNames.h"
#include "btctl/session/LibraryLog.h"

namespace btctl {
namespace {

using Kind = Answer::Kind;

/// What the library waits for an answer at most, short of a bit.
constexpr std::chrono::seconds kLibraryTimeout{24};
constexpr std::chrono::seconds kOtherProfileComesWithin{1};

bool IsNothing(const Json& result) {
  return result.is_null() || result == 0 || (result.is_string() && result.get<std::string>().empty());
}

/// Whether a failed call could have been answered like that. A failure to tell a connection is not even
/// logged.
bool MayBeAPreset(const Json& result) { return IsNothing(result) || result.is_object(); }

/// The answer of a call that may have failed. Runs where the call runs: the log is read along by thread.
Reply Judged(const Call& call) {
  const auto begin = std::chrono::steady_clock::now();
  const LibraryLog::Errors errors;
  Reply reply = call();
  if (!errors.Any() && !MayBeAPreset(reply.result)) {
    return reply;
  }
  // Nothing, or a failure that was answered with a preset value.
  if (LookAround() != Surroundings::COMPLETE) {
    throw ServiceIsGone();
  }
  if (errors.Any() && std::chrono::steady_clock::now() - begin > kLibraryTimeout) {
    throw Failure(EXIT_TIMED_OUT, "the service did not answer: " + errors.Reason());
  }
  if (errors.Any()) {
    throw Failure(EXIT_REFUSED, "the request failed: " + errors.Reason());
  }
  return reply;
}

void ThrowIfRefused(const Answer& answer, const Reply& reply) {
  if (answer.kind == Kind::KNOWN && IsNothing(reply.result)) {
    throw Failure(EXIT_REFUSED, "the service does not know");
  }
  if ((answer.kind == Kind::OUTS || answer.kind == Kind::LIST) && reply.result == 0) {
    throw Failure(EXIT_REFUSED, "the service has no answer to that now");
  }
  if (answer.kind == Kind::ACCEPTED && reply.result == 0) {
    throw Refused();
  }
}

/// The members of a record become members of the object; anything else becomes its result.
void Add(Json& object, const Json& value) {
  if (value.is_object()) {
    object.update(value);
  } else {
    object["result"] = value;
  }
}

Json Shown(const Answer& answer, const Json& result) {
  if (answer.words != nullptr) {
    return answer.words->Show(result.get<int>());
  }
  const int value = answer.isYesNo ? result.get<int>() : -1;
  return value == 0 || value == 1 ? Json(value == 1) : result;
}

void Show(Context& context, const Request& request, const Reply& reply, const OutcomeWatch* watch) {
  const Answer& answer = request.answer;
  if (answer.kind == Kind::LIST) {
    context.output.ShowList(answer.names.front(), reply.outs.front());
    return;
  }
  Json object{{"kind", "answer"}, {"command", request.path}};
  if (answer.kind == Kind::ACCEPTED) {
    object["accepted"] = true;
  } else if (answer.kind == Kind::VALUE || answer.kind == Kind::KNOWN) {
    Add(object, Shown(answer, reply.result));
  } else if (answer.kind == Kind::OUTS && answer.names.empty()) {
    Add(object, reply.outs.front());
  }
  for (std::size_t i = 0; i < answer.names.size(); ++i) {
    object[answer.names[i]] = reply.outs.at(i);
  }
  if (watch != nullptr) {
    watch->AddTo(object);
  }
  context.output.ShowAnswer(object);
}

void Run(const Request& request, Context& context, Given given) {
  ResolveContacts(context, request.arguments, given);
  const Call call = request.prepare(request.arguments, given);
  std::optional<OutcomeWatch> watch;
  if (request.outcome && context.options.waits) {
    watch.emplace(context.session.Events(), *request.outcome, given);
  }
  const Reply reply = MakeRequest(context.session, request.answer, call);
  if (watch) {
    Follow(context, *watch);
  }
  Show(context, request, reply, watch ? &*watch : nullptr);
}

}  // namespace

Failure Refused() { return {EXIT_REFUSED, "the service refused", "'btctl status' shows the current state."}; }

Reply MakeRequest(Session& session, const Answer& answer, const Call& call) {
  Reply reply = session.Ask([call] { return Judged(call); });
  ThrowIfRefused(answer, reply);
  return reply;
}

void Follow(Context& context, const OutcomeWatch& watch) {
  const Failure ifTooLate(EXIT_TIMED_OUT,
                          "the service accepted, but " + watch.EventName() + " did not come in time",
                          "--timeout SECONDS gives it more time, --no-wait does not wait for it.");
  const auto isDecided = [&] { return watch.IsDecided(); };
  context.session.DeliverArrived();
  context.session.WaitUntil(isDecided, ifTooLate);
  // The other profile of a pair may be told of only when its turn has come, or not at all.
  if (!watch.IsComplete() &&
      context.session.WaitUntil([&] { return watch.IsComplete(); }, kOtherProfileComesWithin)) {
    context.session.WaitUntil(isDecided, ifTooLate);
  }
  if (!watch.IsSuccess()) {
    throw Failure(EXIT_REFUSED, "it failed: " + context.output.TextOf(watch.Decisive()));
  }
}

Command AsCommand(const Request& request) {
  Command command;
  command.path = request.path;
  command.help = request.help;
  command.arguments = request.arguments;
  command.methods = {request.method};
  command.run = [request](Context& context, const Given& given) { Run(request, context, given); };
  return command;
}

Answer Nothing() { return {Kind::NOTHING, nullptr, false, {}}; }
Answer Accepted() { return {Kind::ACCEPTED, nullptr, false, {}}; }
Answer Value() { return {Kind::VALUE, nullptr, false, {}}; }
Answer YesNo() { return {Kind::VALUE, nullptr, true, {}}; }
Answer Known() { return {Kind::KNOWN, nullptr, false, {}}; }
Answer ValueOf(const WordTable& words) { return {Kind::VALUE, &words, false, {}}; }
Answer Outs(std::vector<std::string> names) { return {Kind::OUTS, nullptr, false, std::move(names)}; }
Answer ListOf(const std::string& what) { return {Kind::LIST, nullptr, false, {what}}; }

}  // namespace btctl
