// A line is read as if it were the first one.

#include <gtest/gtest.h>

#include "btctl/base/Failure.h"
#include "btctl/cli/CommandLine.h"

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

}  // namespace
