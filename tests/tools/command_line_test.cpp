// A line is read as if it were the first one.

#include <regex>
#include <sstream>

#include <gtest/gtest.h>

#include "btctl/base/Failure.h"
#include "btctl/cli/CommandLine.h"
#include "btctl/composed/AllCommands.h"

namespace {

using btctl::Parsed;
using btctl::ParseLine;

constexpr char kConnect[] = "connect 00:1A:7D:DA:71:13";

void ExpectAlone(const std::string& line) {
  const Parsed parsed = ParseLine(line);
  ASSERT_NE(parsed.command, nullptr);
  EXPECT_FALSE(parsed.help);
  EXPECT_FALSE(parsed.options.json);
  EXPECT_FALSE(parsed.options.verbose);
  EXPECT_TRUE(parsed.options.waits);
  EXPECT_FALSE(parsed.options.timeoutSeconds);
  for (std::size_t i = 0; i < parsed.command->arguments.size(); ++i) {
    const btctl::Argument& argument = parsed.command->arguments[i];
    if (argument.IsOption()) {
      EXPECT_EQ(parsed.given[i], argument.preset) << argument.name;
    }
  }
}

TEST(CommandLine, ALineLeavesNothingToTheNext) {
  ExpectAlone(kConnect);
  const Parsed full =
      ParseLine(std::string(kConnect) + " --only --json --no-wait --verbose --timeout 3 --profile a2dp");
  EXPECT_TRUE(full.options.json);
  EXPECT_FALSE(full.options.waits);
  EXPECT_EQ(full.options.timeoutSeconds, 3);
  ExpectAlone(kConnect);
  EXPECT_EQ(full.given[0], "00:1A:7D:DA:71:13") << "what was read stays with who has it";
}

TEST(CommandLine, NeitherDoesOneThatIsRefusedOrAsksForHelp) {
  EXPECT_TRUE(ParseLine("connect --json --help").help);
  ExpectAlone(kConnect);
  EXPECT_THROW(ParseLine(std::string(kConnect) + " --only --json --fast"), btctl::Failure);
  ExpectAlone(kConnect);
  EXPECT_THROW(ParseLine(std::string(kConnect) + " --verbose --timeout soon"), btctl::Failure);
  ExpectAlone(kConnect);
  EXPECT_EQ(ParseLine("").command, nullptr);
  EXPECT_TRUE(ParseLine("--version").help);
  EXPECT_EQ(ParseLine("# a comment").command, nullptr);
}

TEST(CommandLine, AnEmptyTimeoutIsRefused) {
  EXPECT_THROW(ParseLine("power status --timeout ''"), btctl::Failure);
  EXPECT_THROW(ParseLine("--timeout='' power status"), btctl::Failure);
}

TEST(CommandLine, HelpHasNoLineThatATerminalBreaksAndNamesTheValuesOfOptions) {
  for (const btctl::Command& command : btctl::AllCommands()) {
    std::istringstream help(*ParseLine(command.path + " --help").help);
    for (std::string line; std::getline(help, line);) {
      EXPECT_LE(line.size(), 100U) << command.path << ": " << line;
      EXPECT_EQ(line.find_last_not_of(' ') + 1, line.size()) << line;
    }
    for (const btctl::Argument& argument : command.arguments) {
      const std::string value = argument.isFlag ? "" : " [A-Z=]+";
      EXPECT_TRUE(!argument.IsOption() ||
                  std::regex_search(help.str(), std::regex("\n  " + argument.name + value)))
          << command.path << " " << argument.name;
    }
  }
  std::istringstream help(*ParseLine("--help").help);
  for (std::string line; std::getline(help, line);) {
    EXPECT_LE(line.size(), 100U) << line;
  }
}

}  // namespace
