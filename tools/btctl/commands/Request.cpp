#include "btctl/commands/Request.h"

#include <algorithm>

#include "btctl/base/Failure.h"
#include "btctl/bus/Diagnosis.h"
#include "btctl/bus/SessionBus.h"
#include "btctl/commands/ContactNames.h"
#include "btctl/commands/MakeRequest.h"
#include "btctl/session/LibraryLog.h"
#include "protocol/Outcomes.h"

namespace btctl {
namespace {

using Kind = Answer::Kind;

/// What the library waits for an answer at most, short of a bit.
constexpr std::chrono::seconds kLibraryTimeout{24};

bool IsNothing(const Json& result) {
  return result.is_null() || result == 0 || (result.is_string() && result.get<std::string>().empty());
}

/// Whether a failed call could have been answered like that. That the state of a connection could not be had
/// is not even logged.
bool MayBeAPreset(const Json& result) { return IsNothing(result) || result.is_object(); }

/// The answer of a call that may have failed. Runs where the call runs: the log is read along by thread.
Reply Judged(const Call& call) {
  const auto begin = std::chrono::steady_clock::now();
  const LibraryLog::Errors errors;
  Reply reply;
  call(reply);
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

/// Nothing if the answer is not a refusal.
std::optional<Failure> RefusalIn(const Answer& answer, const Reply& reply) {
  if (answer.kind == Kind::KNOWN && IsNothing(reply.result)) {
    return Failure(EXIT_REFUSED, "the service does not know");
  }
  if ((answer.kind == Kind::OUTS || answer.kind == Kind::LIST) && reply.result == 0) {
    return Failure(EXIT_REFUSED, "the service has no answer to that now");
  }
  if (answer.kind == Kind::ACCEPTED && reply.result == 0) {
    return Refused();
  }
  return std::nullopt;
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

/// How many items there are by the word of the service; 0 if it does not say.
std::size_t TotalOf(const Request& request, Context& context, const Given& given) {
  if (!request.count) {
    return 0;
  }
  try {
    const Call count = request.count(request.arguments, given);
    const int total = MakeRequest(context.session, Value(), count).result;
    return static_cast<std::size_t>(std::max(total, 0));
  } catch (const Failure& failure) {
    if (failure.Code() == EXIT_INTERRUPTED) {
      throw;
    }
    return 0;  // the list has come, and is shown
  }
}

/// A list ends where its segment does, and nothing in it says so.
void ShowList(const Request& request, Context& context, const Given& given, Reply reply) {
  const std::size_t total = TotalOf(request, context, given);
  const auto isCut = [&] { return !reply.outs.front().empty() && reply.outs.front().size() < total; };
  if (isCut()) {  // or has grown before the items were counted
    reply = MakeRequest(context.session, request.answer, request.prepare(request.arguments, given));
  }
  const Json& items = reply.outs.front();
  context.output.ShowList(request.answer.names.front(), items);
  if (isCut()) {
    context.output.NoteCut(items.size(), total);
  }
}

void Show(Context& context, const Request& request, const Reply& reply, const OutcomeWatch* watch) {
  const Answer& answer = request.answer;
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
  const Reply reply = MakeRequest(context.session, request.answer, call, request.checks, given);
  if (watch) {
    Follow(context, *watch);
  }
  if (request.answer.kind == Kind::LIST) {
    ShowList(request, context, given, reply);
  } else {
    Show(context, request, reply, watch ? &*watch : nullptr);
  }
}

}  // namespace

Failure Refused() { return {EXIT_REFUSED, "the service refused", "'btctl status' shows the current state."}; }

Reply MakeRequest(Session& session, const Answer& answer, const Call& call, const Checks& checks,
                  const Given& given) {
  Reply reply = session.Ask([call] { return Judged(call); });
  if (const std::optional<Failure> refusal = RefusalIn(answer, reply)) {
    throw Explained(*refusal, session, checks, given);
  }
  return reply;
}

void Follow(Context& context, const OutcomeWatch& watch) {
  const Failure ifTooLate(EXIT_TIMED_OUT,
                          "the service accepted, but " + watch.EventName() + " did not come in time",
                          "--timeout SECONDS gives it more time, --no-wait does not wait for it.");
  const auto isDecided = [&] { return watch.IsDecided(); };
  context.session.DeliverArrived();
  context.session.WaitUntil(isDecided, ifTooLate);
  if (!watch.IsComplete() &&
      context.session.WaitUntil([&] { return watch.IsComplete(); }, kOtherProfileComesWithin)) {
    context.session.WaitUntil(isDecided, ifTooLate);
  }
  if (!watch.IsSuccess()) {
    throw Failure(EXIT_REFUSED, "it failed: " + context.output.TextOf(watch.Decisive()));
  }
}

Command AsCommand(Request request) {
  const auto shared = std::make_shared<const Request>(std::move(request));
  Command command;
  command.path = shared->path;
  command.help = shared->help;
  command.arguments = shared->arguments;
  command.methods = {shared->method};
  if (!shared->countMethod.empty() && shared->countMethod != shared->method) {
    command.methods.push_back(shared->countMethod);
  }
  command.run = [shared](Context& context, const Given& given) { Run(*shared, context, given); };
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
