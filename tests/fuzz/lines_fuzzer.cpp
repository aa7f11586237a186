// libFuzzer target: any text as a line of btctl. It is a command whose values can be read, or a help, or is
// refused with a message. The commands are the target's own: one for each shape that arguments have.

#include <cstdint>
#include <string>

#include "btctl/base/Failure.h"
#include "btctl/cli/CommandLine.h"
#include "btctl/commands/FromText.h"
#include "btctl/composed/AllCommands.h"
#include "fuzz/FuzzCheck.h"

namespace btctl {

std::string HelpOfGroup(const std::string& group) { return "The commands of " + group; }

const std::vector<Command>& AllCommands() {
  static const auto shape = [](const std::string& path, const std::vector<Argument>& arguments) {
    Command command;
    command.path = path;
    command.help = "Has arguments of this shape";
    command.arguments = arguments;
    return command;
  };
  static const auto many = [](Argument argument) {
    argument.isMany = true;
    argument.isOptional = true;
    return argument;
  };
  static const auto optional = [](Argument argument) {
    argument.isOptional = true;
    return argument;
  };
  static const std::vector<Command> commands{
      shape("status", {}),
      shape("call dial", {arg::Number()}),
      shape("call tone", {arg::Text("TONE", "to send")}),
      shape("call action", {arg::OneOf("ACTION", WordsOf<MWPBtType::CallAction>()),
                            arg::Or(arg::Whole("ID", "of the call"), "1")}),
      shape("connect", {arg::Address(), arg::Fixed("3"), arg::Flag("--only", "alone")}),
      shape("power set", {arg::Switch()}),
      shape("spp send", {arg::Address(), arg::Bytes("BYTES", "to send")}),
      shape("sim", {optional(arg::Text("CONTROL", "of the simulation")),
                    many(arg::Text("VALUE", "of an argument"))}),
      shape("wait", {arg::Text("EVENT", "to wait for"), many(arg::Text("--match", "NAME=VALUE")),
                     optional(arg::Text("--seconds", "how long"))}),
  };
  return commands;
}

}  // namespace btctl

namespace {

using bttest::Check;

/// Reads a value as a command does. Throws a Failure if it cannot be read.
void Read(const btctl::Argument& argument, const std::string& value) {
  switch (argument.meaning) {
    case btctl::Meaning::ADDRESS:
      btctl::FromText<std::string>(value, argument);
      break;
    case btctl::Meaning::WHOLE:
    case btctl::Meaning::WORD:
      btctl::FromText<int>(value, argument);
      break;
    case btctl::Meaning::BYTES:
      Check(btctl::ParseBytes(value).size() * 2 == value.size(), "two digits are a byte");
      break;
    default:
      if (argument.name == "TONE") {
        btctl::ParseTone(value);
      } else if (argument.name == "--seconds") {
        Check(btctl::MillisecondsOf(value).count() >= 0, "no time is negative");
      }
  }
}

void CheckParsed(const btctl::Parsed& parsed) {
  if (parsed.help) {
    Check(!parsed.help->empty(), "a help says something");
    return;
  }
  if (parsed.command == nullptr) {
    return;
  }
  for (std::size_t i = 0; i < parsed.command->arguments.size(); ++i) {
    const btctl::Argument& argument = parsed.command->arguments[i];
    Check(argument.isOptional || argument.isFixed || parsed.given.Has(i), "what is needed is given");
    for (const std::string& value : parsed.given.All(i)) {
      Read(argument, value);
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string line(reinterpret_cast<const char*>(data), size);
  try {
    CheckParsed(btctl::ParseLine(line));
  } catch (const btctl::Failure& failure) {
    Check(failure.what()[0] != '\0', "a refusal says why");
  }
  return 0;
}
