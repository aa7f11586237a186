// Every command that is one request arrives at the service as the right call.

#include <algorithm>
#include <set>

#include "tools/Btctl.h"
#include "tools/command_rows.h"

namespace bttest {
namespace {

using Commands = BtctlWithRecorder;

std::string Text(const Words& words) {
  std::string text;
  for (const std::string& word : words) {
    text += (text.empty() ? "" : " ") + word;
  }
  return text;
}

struct EveryRow : Commands, testing::WithParamInterface<int> {};

/// A process a row takes its time: they are dealt out to a few tests.
constexpr int kDeals = 6;

TEST_P(EveryRow, ArrivesAsItsCallAndIsAnsweredWithItsCode) {
  AcceptAll();
  const auto& rows = AllCommandRows();
  for (std::size_t i = static_cast<std::size_t>(GetParam()); i < rows.size(); i += kDeals) {
    const CommandRow& row = rows[i];
    SCOPED_TRACE(Text(row.words));
    Words words = row.words;
    words.insert(words.begin(), {"--json", "--no-wait"});
    const Ran ran = RunBtctl(words);
    EXPECT_EQ(service.TakeCallTexts(), row.calls);
    EXPECT_EQ(ran.code, row.code) << ran.errors;
    if (row.code == 0) {
      EXPECT_EQ(ran.errors, "");
      EXPECT_NO_THROW(ran.Objects()) << ran.output;
    } else {
      EXPECT_EQ(ran.output, "");
      EXPECT_EQ(ran.Error()["code"], row.code);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Dealt, EveryRow, testing::Range(0, kDeals));

TEST(CommandRows, NameEveryCommandThatCallsAMethod) {
  std::set<std::string> tested;
  for (const CommandRow& row : AllCommandRows()) {
    tested.insert(Text(row.words));
  }
  for (const Json& command : RunBtctl({"commands", "--json"}).Objects()) {
    const std::string path = command["command"];
    const bool isTested = std::any_of(tested.begin(), tested.end(), [&](const std::string& words) {
      return words == path || words.rfind(path + " ", 0) == 0;
    });
    EXPECT_TRUE(isTested || command["methods"].empty()) << path;
  }
}

}  // namespace
}  // namespace bttest
