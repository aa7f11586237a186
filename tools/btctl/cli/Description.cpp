#include "btctl/cli/Description.h"

#include <set>

#include "btctl/base/ExitCode.h"
#include "btctl/base/Json.h"
#include "btctl/cli/Completion.h"
#include "btctl/cli/Usage.h"
#include "btctl/composed/AllCommands.h"

namespace btctl {
namespace {

Json GlobalOptionsAsJson() {
  Json options = Json::array();
  for (const GlobalOption& option : kGlobalOptions) {
    options.push_back({{"name", option.name}, {"value", option.value}, {"help", option.help}});
  }
  return options;
}

Json ExitCodesAsJson() {
  Json codes = Json::array();
  for (const ExitCodeDescription& code : kExitCodes) {
    codes.push_back({{"code", static_cast<int>(code.code)}, {"name", code.name}, {"meaning", code.meaning}});
  }
  return codes;
}

/// In the order in which the commands first name them.
Json GroupsAsJson() {
  std::set<std::string> known;
  for (const Command& command : AllCommands()) {
    known.insert(command.path);
  }
  Json groups = Json::array();
  for (const Command& command : AllCommands()) {
    for (std::size_t end = command.path.find(' '); end != std::string::npos;
         end = command.path.find(' ', end + 1)) {
      const std::string path = command.path.substr(0, end);
      if (known.insert(path).second) {
        groups.push_back({{"path", path}, {"help", HelpOfGroup(path)}});
      }
    }
  }
  return groups;
}

Json ArgumentsAsJson(const Command& command) {
  Json arguments = Json::array();
  for (const Argument& argument : command.arguments) {
    if (argument.isFixed) {
      continue;  // nobody writes it
    }
    const bool hasValue = argument.IsOption() && !argument.isFlag;
    arguments.push_back({{"name", argument.name},
                         {"help", argument.help},
                         {"value", hasValue ? NameOfValue(argument) : std::string()},
                         {"values", argument.isFlag ? std::set<std::string>() : FixedValuesOf(argument)},
                         {"preset", argument.isFlag ? std::string() : argument.preset},
                         {"isOption", argument.IsOption()},
                         {"isOptional", argument.isOptional},
                         {"isMany", argument.isMany}});
  }
  return arguments;
}

}  // namespace

Json Describe() {
  Json commands = Json::array();
  for (const Command& command : AllCommands()) {
    commands.push_back({{"path", command.path},
                        {"help", command.help},
                        {"methods", command.methods},
                        {"arguments", ArgumentsAsJson(command)}});
  }
  return {{"description", kDescription},
          {"options", GlobalOptionsAsJson()},
          {"exitCodes", ExitCodesAsJson()},
          {"groups", GroupsAsJson()},
          {"commands", commands}};
}

}  // namespace btctl
