#include "btctl/base/Failure.h"
#include "btctl/base/Json.h"
#include "btctl/composed/AllCommands.h"
#include "btctl/composed/Composed.h"
#include "btctl/events/Event.h"
#include "btctl/output/Output.h"
#include "btctl/words/Words.h"

// What this program knows without asking anybody.

namespace btctl {
namespace {

using namespace arg;

void ListEvents(Context& context, const Given&) {
  Json events = Json::array();
  for (const EventDescription& event : AllEvents()) {
    events.push_back({{"event", event.name}, {"values", event.fields}});
  }
  context.output.ShowList("event-description", events);
}

void ListWords(Context& context, const Given& given) {
  Json words = Json::array();
  for (const WordTable* const table : AllWordTables()) {
    for (const EnumWord& word : table->Words()) {
      if (given[0].empty() || table->Enumeration().find(given[0]) != std::string::npos) {
        words.push_back({{"enumeration", table->Enumeration()}, {"value", word.value}, {"word", word.text}});
      }
    }
  }
  if (words.empty()) {
    throw Failure(EXIT_UNKNOWN_NAME, "there is no enumeration '" + given[0] + "'",
                  "'btctl words' lists them all.");
  }
  context.output.ShowList("word", words);
}

Json NamesOfArguments(const Command& command) {
  Json arguments = Json::array();
  for (const Argument& argument : command.arguments) {
    if (!argument.isFixed) {
      arguments.push_back(argument.isOptional ? "[" + argument.name + "]" : argument.name);
    }
  }
  return arguments;
}

void ListCommands(Context& context, const Given&) {
  Json commands = Json::array();
  for (const Command& command : AllCommands()) {
    commands.push_back({{"command", command.path},
                        {"arguments", NamesOfArguments(command)},
                        {"methods", command.methods},
                        {"help", command.help}});
  }
  context.output.ShowList("command-description", commands);
}

}  // namespace

std::vector<Command> ReferenceCommands() {
  return {
      {"events", "List the events and the values that each has", {}, {}, Patience::A_WHILE, ListEvents},
      {"words",
       "List the words for the values of enumerations",
       {Or(Text("ENUMERATION", "all if none is named"), "")},
       {},
       Patience::A_WHILE,
       ListWords},
      {"commands",
       "List the commands and the methods that each calls",
       {},
       {},
       Patience::A_WHILE,
       ListCommands},
  };
}

}  // namespace btctl
