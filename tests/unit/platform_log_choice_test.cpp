// The choice of log system, category and level by the environment, seen from outside on a program that is
// started anew for each: the choice is made when the platform library is loaded.

#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "support/ChildProcess.h"

namespace {

struct Outcome {
  std::string out;
  std::string err;
  pid_t pid;
  std::optional<int> status;

  std::string All() const { return out + err; }
};

/// Runs the program with these variables, GLib showing all levels on its standard streams.
Outcome RunProgram(const bttest::ChildProcess::Environment& variables) {
  bttest::ChildProcess::Environment changes = variables;
  changes.insert({{"MWP_LOG_CATEGORY", std::nullopt},
                  {"MWP_LOG_LEVEL", std::nullopt},
                  {"JOURNAL_STREAM", std::nullopt},
                  {"G_MESSAGES_DEBUG", "all"},
                  {"LC_ALL", "C.UTF-8"}});
  bttest::ChildProcess program({PLATFORM_LOG_PROGRAM}, changes);
  const std::optional<int> status = program.Wait();
  return {program.Output(), program.Errors(), program.Pid(), status};
}

bool Has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

TEST(PlatformLogChoice, WithoutALogSystemEachLineBecomesTheFallbackLineOnStandardOutput) {
  const Outcome run = RunProgram({{"MWP_LOG_CATEGORY", ""}});

  const std::string pid = "[" + std::to_string(run.pid) + "]";
  const std::string end = "Warn:Log system not init.\n";
  EXPECT_EQ(run.out, pid + "[file:tests/program][func:LogEarly][line:10]" + end +  //
                         pid + "[file:tests/program][func:main][line:20]" + end +  //
                         pid + "[file:tests/program][func:main][line:21]" + end +  //
                         pid + "[file:tests/program][func:main][line:22]" + end +  //
                         pid + "[file:tests/program][func:main][line:23]" + end);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.status, 0);
}

TEST(PlatformLogChoice, StaticInitialisersOfApplicationsAreLogged) {
  const Outcome run = RunProgram({});
  EXPECT_TRUE(Has(run.err, "line early")) << run.All();
  EXPECT_FALSE(Has(run.All(), "Log system not init")) << run.All();
}

TEST(PlatformLogChoice, LinesFromInfoUpwardsInTheCategoryLibbtAreTheDefault) {
  const Outcome run = RunProgram({});
  EXPECT_FALSE(Has(run.All(), "line debug")) << run.All();
  EXPECT_TRUE(Has(run.All(), "line info")) << run.All();
  EXPECT_TRUE(Has(run.err, "libbt-WARNING **")) << run.All();
}

TEST(PlatformLogChoice, TheCategoryIsNamedByTheEnvironment) {
  const Outcome run = RunProgram({{"MWP_LOG_CATEGORY", "headunit"}});
  EXPECT_TRUE(Has(run.err, "headunit-WARNING **")) << run.All();
}

TEST(PlatformLogChoice, ErrorsAndBytesThatAreNotUtf8DoNotEndTheProcess) {
  const Outcome run = RunProgram({});
  EXPECT_TRUE(Has(run.err, "line error \\xff")) << run.All();
  EXPECT_EQ(run.status, 0);
}

TEST(PlatformLogChoice, TheLevelIsGivenByNameOrNumber) {
  EXPECT_TRUE(Has(RunProgram({{"MWP_LOG_LEVEL", "debug"}}).All(), "line debug"));
  EXPECT_TRUE(Has(RunProgram({{"MWP_LOG_LEVEL", "20"}}).All(), "line debug"));

  for (const char* level : {"warning", "80", "notice", "41"}) {
    const Outcome run = RunProgram({{"MWP_LOG_LEVEL", level}});
    EXPECT_FALSE(Has(run.All(), "line info")) << level << run.All();
    EXPECT_TRUE(Has(run.All(), "line warning")) << level << run.All();
  }
}

TEST(PlatformLogChoice, AnEmptyLevelIsTheDefault) {
  const Outcome run = RunProgram({{"MWP_LOG_LEVEL", ""}});
  EXPECT_FALSE(Has(run.All(), "MWP_LOG_LEVEL")) << run.All();
  EXPECT_FALSE(Has(run.All(), "line debug")) << run.All();
  EXPECT_TRUE(Has(run.All(), "line info")) << run.All();
}

TEST(PlatformLogChoice, ALevelThatIsNoneIsReportedAndInfoTaken) {
  for (const char* level : {"loud", "19", "101", "40x", "99999999999999999999"}) {
    const Outcome run = RunProgram({{"MWP_LOG_LEVEL", level}});
    EXPECT_TRUE(Has(run.err, std::string("MWP_LOG_LEVEL is \"") + level + "\"")) << run.All();
    EXPECT_TRUE(Has(run.All(), "line info")) << run.All();
    EXPECT_FALSE(Has(run.All(), "line debug")) << run.All();
  }
}

}  // namespace
