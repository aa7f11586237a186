#include <algorithm>

#include "btctl/base/Failure.h"
#include "btctl/commands/FromText.h"
#include "btctl/composed/Composed.h"
#include "btctl/events/EventHub.h"
#include "btctl/events/FieldWords.h"
#include "btctl/output/Output.h"
#include "btctl/session/Session.h"

namespace btctl {
namespace {

using namespace arg;

Argument EventName(const std::string& name, const std::string& help) {
  Argument argument = Text(name, help);
  argument.meaning = Meaning::EVENT;
  return argument;
}

Argument Many(Argument argument) {
  argument.isMany = true;
  argument.isOptional = true;
  return argument;
}

/// "status=on" as its two halves.
std::pair<std::string, std::string> ParseMatch(const std::string& text) {
  const std::size_t place = text.find('=');
  if (place == std::string::npos || place == 0) {
    throw Failure(EXIT_USAGE, "--match is '" + text + "', not of the form name=value");
  }
  return {text.substr(0, place), text.substr(place + 1)};
}

void Monitor(Context& context, const Given& given) {
  enum Place : std::size_t { EVENTS, SECONDS, STAY };
  std::vector<std::string> wanted;
  for (const std::string& name : given.All(EVENTS)) {
    wanted.emplace_back(FindEvent(name).name);
  }
  const EventHub::Subscription events(context.session.Events(), [&](const Event& event) {
    if (wanted.empty() || std::find(wanted.begin(), wanted.end(), event.Name()) != wanted.end()) {
      context.output.ShowEvent(event);
    }
  });
  const bool isLimited = given.Has(SECONDS);
  const auto atMost = MillisecondsOf(isLimited ? given[SECONDS] : "0");
  context.session.SetStays(given[STAY] == "on");
  context.session.Start();
  context.output.Note("listening; Ctrl-C ends it");
  const auto never = [] { return false; };
  try {
    if (isLimited) {
      context.session.WaitUntil(never, atMost);
    } else {
      context.session.WaitUntil(never);
    }
  } catch (const Failure& failure) {
    if (failure.Code() != EXIT_INTERRUPTED) {
      throw;
    }
  }
}

void Wait(Context& context, const Given& given) {
  enum Place : std::size_t { EVENT, MATCH, COUNT };
  const EventDescription& wanted = FindEvent(given[EVENT]);
  std::vector<std::pair<std::string, std::string>> matches;
  for (const std::string& text : given.All(MATCH)) {
    matches.push_back(ParseMatch(text));
    if (std::find(wanted.fields.begin(), wanted.fields.end(), matches.back().first) == wanted.fields.end()) {
      throw Failure(EXIT_UNKNOWN_NAME,
                    std::string(wanted.name) + " has no value '" + matches.back().first + "'",
                    "'btctl events' lists the fields of each event.");
    }
    if (matches.back().first == "address") {
      CheckAddress(matches.back().second);
    }
    CheckCanHave(wanted, matches.back().first, matches.back().second);
  }
  long long missing = ParseWhole(given[COUNT], Whole("--count", ""), 1, 1000000);
  const EventHub::Subscription events(context.session.Events(), [&](const Event& event) {
    const bool isMeant = missing > 0 && event.Name() == wanted.name &&
                         std::all_of(matches.begin(), matches.end(),
                                     [&](const auto& match) { return event.Has(match.first, match.second); });
    if (isMeant) {
      --missing;
      context.output.ShowEvent(event);
    }
  });
  context.session.Start();
  context.output.Note(std::string("waiting for ") + wanted.name);
  context.session.WaitUntil([&] { return missing == 0; },
                            Failure(EXIT_TIMED_OUT, std::string(wanted.name) + " did not come in time"));
}

}  // namespace

std::vector<Command> EventCommands() {
  return {
      {"monitor",
       "Show events as they come",
       {Many(EventName("EVENT", "the events to show; all if none is named")),
        Or(Text("--seconds", "how long"), ""), Flag("--stay", "go on while the service is away")},
       {},
       Patience::FOR_EVER,
       Monitor,
       true},
      {"wait",
       "Wait for an event",
       {EventName("EVENT", "its name, such as OnOpenBtStatusChanged"),
        Many(Text("--match", "count only events with that value")),
        Or(Whole("--count", "how many events to wait for"), "1")},
       {},
       Patience::FOR_EVER,
       Wait,
       true},
  };
}

}  // namespace btctl
