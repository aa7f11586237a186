// The choice of log system, category and level by the environment, seen from outside on a program that is
// started anew for each: the choice is made when the platform library is loaded.

#include <string>
#include <vector>

#include <glib.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Outcome {
  std::string out;
  std::string err;
  int pid = 0;
  int status = -1;

  std::string All() const { return out + err; }
};

std::string ReadAll(int descriptor) {
  std::string text;
  char buffer[4096];
  ssize_t count = 0;
  while ((count = read(descriptor, buffer, sizeof buffer)) > 0) {
    text.append(buffer, static_cast<std::size_t>(count));
  }
  close(descriptor);
  return text;
}

using Variables = std::vector<std::pair<std::string, std::string>>;

/// Runs the program with these variables, GLib showing all levels on its standard streams.
Outcome RunProgram(const Variables& variables) {
  char** environment = g_get_environ();
  for (const char* name : {"MWP_LOG_CATEGORY", "MWP_LOG_LEVEL", "JOURNAL_STREAM"}) {
    environment = g_environ_unsetenv(environment, name);
  }
  environment = g_environ_setenv(environment, "G_MESSAGES_DEBUG", "all", TRUE);
  environment = g_environ_setenv(environment, "LC_ALL", "C.UTF-8", TRUE);
  for (const auto& variable : variables) {
    environment = g_environ_setenv(environment, variable.first.c_str(), variable.second.c_str(), TRUE);
  }
  std::string program = PLATFORM_LOG_PROGRAM;
  char* arguments[] = {program.data(), nullptr};
  Outcome run;
  int out = -1;
  int err = -1;
  GError* error = nullptr;
  if (g_spawn_async_with_pipes(nullptr, arguments, environment, G_SPAWN_DO_NOT_REAP_CHILD, nullptr, nullptr,
                               &run.pid, nullptr, &out, &err, &error)) {
    // What it writes fits into the pipes, so one may be read after the other.
    run.out = ReadAll(out);
    run.err = ReadAll(err);
    waitpid(run.pid, &run.status, 0);
  } else {
    ADD_FAILURE() << error->message;
    g_error_free(error);
  }
  g_strfreev(environment);
  return run;
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

TEST(PlatformLogChoice, ALevelThatIsNoneIsReportedAndInfoTaken) {
  for (const char* level : {"loud", "19", "101", "40x", "99999999999999999999"}) {
    const Outcome run = RunProgram({{"MWP_LOG_LEVEL", level}});
    EXPECT_TRUE(Has(run.err, std::string("MWP_LOG_LEVEL is \"") + level + "\"")) << run.All();
    EXPECT_TRUE(Has(run.All(), "line info")) << run.All();
    EXPECT_FALSE(Has(run.All(), "line debug")) << run.All();
  }
}

}  // namespace
