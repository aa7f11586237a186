#include "btctl/cli/Completion.h"

#include <glib.h>

#include "btctl/cli/Usage.h"
#include "btctl/composed/AllCommands.h"
#include "btctl/events/Event.h"
#include "btctl/sim/ControlHelp.h"
#include "btctl/words/WordTable.h"

namespace btctl {
namespace {

using Names = std::set<std::string>;
using Words = std::vector<std::string>;

const Names kShellWords{"clear", "exit", "help", "quit", "watch"};

bool IsOption(const std::string& word) { return word.rfind("--", 0) == 0; }

/// Case does not count; nor do letters beyond ASCII, unless they are the same.
bool CanBecome(const std::string& text, const std::string& start) {
  return g_ascii_strncasecmp(text.c_str(), start.c_str(), start.size()) == 0;
}

/// The words of the line that name a command, and what comes after them.
struct Line {
  std::string path;
  const Command* command = nullptr;
  Words rest;
};

const Command* FindCommand(const std::string& path) {
  for (const Command& command : AllCommands()) {
    if (command.path == path) {
      return &command;
    }
  }
  return nullptr;
}

/// The words that may come after the path, on the way to a command.
Names NextWords(const std::string& path) {
  const std::string start = path.empty() ? "" : path + " ";
  Names words;
  for (const Command& command : AllCommands()) {
    if (command.path.size() > start.size() && command.path.compare(0, start.size(), start) == 0) {
      const std::string rest = command.path.substr(start.size());
      words.insert(rest.substr(0, rest.find(' ')));
    }
  }
  return words;
}

Line Read(const Words& before) {
  Line line;
  bool isPath = true;
  for (const std::string& word : before) {
    isPath = isPath && (IsOption(word) || NextWords(line.path).count(word) != 0);
    if (isPath && !IsOption(word)) {
      line.path += line.path.empty() ? word : " " + word;
    } else {
      line.rest.push_back(word);
    }
  }
  line.command = FindCommand(line.path);
  return line;
}

const Argument* FindOption(const Command& command, const std::string& name) {
  for (const Argument& argument : command.arguments) {
    if (argument.name == name && !argument.isFlag) {
      return &argument;
    }
  }
  return nullptr;
}

/// The argument that the next word is for: the value of an option, or the first place that is free.
const Argument* NextArgument(const Command& command, const Words& rest) {
  if (!rest.empty() && IsOption(rest.back())) {
    if (const Argument* const option = FindOption(command, rest.back())) {
      return option;
    }
  }
  std::size_t taken = 0;
  for (std::size_t i = 0; i < rest.size(); ++i) {
    const bool isValue = i > 0 && IsOption(rest[i - 1]) && FindOption(command, rest[i - 1]) != nullptr;
    taken += IsOption(rest[i]) || isValue ? 0 : 1;
  }
  for (const Argument& argument : command.arguments) {
    if (!argument.IsOption() && !argument.isFixed && (taken-- == 0 || argument.isMany)) {
      return &argument;
    }
  }
  return nullptr;
}

Names ValuesOf(const Argument& argument, const KnownNames& known) {
  switch (argument.meaning) {
    case Meaning::ADDRESS:
      return known.Addresses();
    case Meaning::NUMBER:
    case Meaning::CONTACT:
      return known.Contacts();
    default:
      return FixedValuesOf(argument);
  }
}

Names OptionsOf(const Line& line) {
  Names options;
  for (const GlobalOption& option : kGlobalOptions) {
    options.insert(option.name);
  }
  if (line.command != nullptr) {
    for (const Argument& argument : line.command->arguments) {
      if (argument.IsOption()) {
        options.insert(argument.name);
      }
    }
  }
  return options;
}

Names Candidates(const Words& before, const std::string& start, const KnownNames& known) {
  const bool isHelp = !before.empty() && before.front() == "help";
  const Line line = Read(isHelp ? Words(before.begin() + 1, before.end()) : before);
  if (IsOption(start)) {
    return OptionsOf(line);
  }
  Names candidates = line.rest.empty() ? NextWords(line.path) : Names();
  if (before.empty()) {
    candidates.insert(kShellWords.begin(), kShellWords.end());
  }
  if (before == Words{"watch"}) {
    candidates = {"off", "on"};
  }
  if (line.command != nullptr && !isHelp) {
    if (const Argument* const argument = NextArgument(*line.command, line.rest)) {
      candidates.merge(ValuesOf(*argument, known));
    }
  }
  return candidates;
}

}  // namespace

std::set<std::string> FixedValuesOf(const Argument& argument) {
  Names values;
  switch (argument.meaning) {
    case Meaning::WORD:
      for (const EnumWord& word : argument.words->Words()) {
        values.insert(word.text);
      }
      break;
    case Meaning::EVENT:
      for (const EventDescription& event : AllEvents()) {
        values.insert(event.name);
      }
      break;
    case Meaning::CONTROL:
      for (const std::string& control : NamesOfControls()) {
        values.insert(control);
      }
      break;
    default:
      break;
  }
  return values;
}

std::vector<std::string> Complete(const std::vector<std::string>& before, const std::string& start,
                                  const KnownNames& known) {
  std::vector<std::string> matches;
  for (const std::string& candidate : Candidates(before, start, known)) {
    if (CanBecome(candidate, start)) {
      matches.push_back(candidate);
    }
  }
  return matches;
}

}  // namespace btctl
