#include <bluetooth/MWPBtCom.h>

#include "btctl/base/Failure.h"
#include "btctl/commands/MakeRequest.h"
#include "btctl/composed/Composed.h"
#include "btctl/session/Prompt.h"

namespace btctl {
namespace {

using namespace MWPBtType;
using namespace arg;

enum PairPlace : std::size_t { ADDRESS, PIN, YES };

/// What a device asks before it pairs.
struct Question {
  PairRequestState state;
  std::string digits;
};

/// What the user wants said to it.
struct Reaction {
  bool isAccepted = false;
  std::string pin;
};

/// Nothing if it is for somebody else to answer.
std::optional<Reaction> AskUser(Context& context, const Question& question, const Given& given) {
  const bool isPin =
      question.state == BT_PAIR_REQUEST_PIN_CODE || question.state == BT_PAIR_REQUEST_PASSKEY_ENTRY;
  if (question.state == BT_PAIR_REQUEST_PASSKEY_DISPLAY) {
    context.output.Note("type these digits on the device: " + question.digits);
    return std::nullopt;
  }
  if (isPin && given.Has(PIN) && !given[PIN].empty()) {
    return Reaction{true, given[PIN]};
  }
  if (!isPin && given[YES] == "on") {
    return Reaction{true, question.digits};
  }
  if (!CanPrompt()) {
    context.output.Note("the device waits for an answer: " +
                        WordsOf<PairRequestState>().Show(question.state).get<std::string>() + " " +
                        question.digits + "; see 'btctl pairing answer --help'");
    return std::nullopt;
  }
  if (isPin) {
    const std::string pin = Prompt(context.session, "PIN of the device: ");
    return Reaction{!pin.empty(), pin};
  }
  const std::string text = question.digits.empty() ? "Pair with the device? [y/N] "
                                                   : "Does the device show " + question.digits + "? [y/N] ";
  const std::string answer = Prompt(context.session, text);
  return Reaction{answer == "y" || answer == "Y" || answer == "yes", question.digits};
}

void PassOn(Context& context, const std::string& address, const Question& question,
            const Reaction& reaction) {
  const PairRequestState state = question.state;
  const std::string pin = reaction.pin;
  const Call call = reaction.isAccepted ? CallOf([=] { return MWPBtCom().AnswerPair(pin, address, state); })
                                        : CallOf([=] { return MWPBtCom().RejectPair(address, state); });
  // The service may have answered by itself, and refuse to be answered again: what counts is the outcome.
  MakeRequest(context.session, Value(), call);
}

/// Lets the user answer the question, or somebody else.
void SettleQuestion(Context& context, const std::string& address, const Question& question,
                    const Given& given) {
  try {
    if (const std::optional<Reaction> reaction = AskUser(context, question, given)) {
      PassOn(context, address, question, *reaction);
    }
  } catch (const Failure& failure) {
    if (failure.Code() == EXIT_INTERRUPTED) {
      context.session.Begin(std::chrono::seconds(2));  // to end what was begun; then it is over
      PassOn(context, address, question, Reaction());
    }
    throw;
  }
}

void Pair(Context& context, const Given& given) {
  const std::string address = given[ADDRESS];
  const std::string pin = given[PIN];
  CheckAddress(address);
  const OutcomeWatch watch(context.session.Events(), OutcomeOf("Pair"), given);
  std::optional<Question> question;
  const EventHub::Subscription questions(context.session.Events(), [&](const Event& event) {
    if (event.Name() == "OnAnswerPairRequest" && event.Has("address", address)) {
      question = Question{static_cast<PairRequestState>(event.Value("state").number.value()),
                          event.Value("pinCode").shown.get<std::string>()};
    }
  });

  MakeRequest(context.session, Accepted(), CallOf([=] { return MWPBtCom().Pair(address, pin); }),
              {AdapterIsOff(), DeviceIsPairedAlready(ADDRESS), PairingIsUnderWay()}, given);
  Json answer{{"kind", "answer"}, {"command", "pair"}, {"accepted", true}};
  if (context.options.waits) {
    context.session.DeliverArrived();
    context.session.WaitUntil([&] { return question || watch.IsDecided(); });
    if (question) {
      SettleQuestion(context, address, *question, given);
    }
    Follow(context, watch);
    watch.AddTo(answer);
  }
  context.output.ShowAnswer(answer);
}

}  // namespace

std::vector<Command> PairCommands() {
  Command command;
  command.path = "pair";
  command.help = "Pair with a device; asks what the device asks";
  command.arguments = {Address(), Or(Text("--pin", "the PIN, for devices that need one"), ""),
                       Flag("--yes", "answer yes to the device's question")};
  command.methods = {"MWPBtCom::Pair", "MWPBtCom::AnswerPair", "MWPBtCom::RejectPair"};
  command.run = Pair;
  return {command};
}

}  // namespace btctl
