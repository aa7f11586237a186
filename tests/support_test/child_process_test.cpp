#include "support/ChildProcess.h"

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace bttest {
namespace {

using std::chrono::milliseconds;

TEST(ChildProcess, GivesBackItsStatusAndWhatItWrote) {
  ChildProcess child({"sh", "-c", "echo out; echo err >&2; exit 7"});
  EXPECT_EQ(7, child.Wait());
  EXPECT_EQ("out\n", child.Output());
  EXPECT_EQ("err\n", child.Errors());
  EXPECT_FALSE(child.IsAlive());
}

TEST(ChildProcess, KeepsEverythingThatIsWrittenByItAndItsChildren) {
  ChildProcess child({"sh", "-c", "for i in 1 2 3; do sh -c 'head -c 100000 /dev/zero'; done"});
  EXPECT_EQ(0, child.Wait());
  EXPECT_EQ(300000U, child.Output().size());
}

TEST(ChildProcess, CanBeSignalledAndKilled) {
  ChildProcess child({"sleep", "1000"});
  EXPECT_EQ(std::nullopt, child.Wait(milliseconds(10)));
  EXPECT_TRUE(child.IsAlive());
  child.Signal(SIGTERM);
  EXPECT_EQ(128 + SIGTERM, child.Wait());
  ChildProcess other({"sleep", "1000"});
  other.Kill();
  EXPECT_EQ(128 + SIGKILL, other.Wait(milliseconds(0)));
}

TEST(ChildProcess, EndsWithTheObject) {
  pid_t pid = 0;
  {
    ChildProcess child({"sleep", "1000"});
    pid = child.Pid();
    EXPECT_EQ(0, kill(pid, 0));
  }
  EXPECT_EQ(-1, kill(pid, 0));
}

TEST(ChildProcess, EndsWithTheProcessThatStartedIt) {
  int pids[2];
  ASSERT_EQ(0, pipe(pids));
  const pid_t starter = fork();
  if (starter == 0) {
    ChildProcess child({"sleep", "1000"});
    const pid_t pid = child.Pid();
    [[maybe_unused]] const ssize_t written = write(pids[1], &pid, sizeof pid);
    pause();
  }
  pid_t pid = 0;
  ASSERT_EQ(static_cast<ssize_t>(sizeof pid), read(pids[0], &pid, sizeof pid));
  EXPECT_EQ(0, kill(pid, 0));
  // Whoever adopts it does not matter, and may be slow to notice its end: its zombie is as good as gone.
  kill(starter, SIGKILL);
  waitpid(starter, nullptr, 0);
  EXPECT_TRUE(WaitUntil([=] {
    std::string text;
    std::getline(std::ifstream("/proc/" + std::to_string(pid) + "/stat"), text);
    return text.empty() || text.find(") Z ") != std::string::npos;
  }));
}

TEST(ChildProcess, SeesTheChangedEnvironment) {
  setenv("BTTEST_KEPT", "kept", 1);
  setenv("BTTEST_GONE", "gone", 1);
  ChildProcess child({"sh", "-c", "echo $BTTEST_KEPT,$BTTEST_GONE,$BTTEST_NEW"},
                     {{"BTTEST_GONE", std::nullopt}, {"BTTEST_NEW", "new=1"}});
  EXPECT_TRUE(child.WaitForOutput("kept,,new=1\n"));
}

TEST(ChildProcess, SaysWhyItCannotBeStarted) {
  try {
    ChildProcess child({"/no/such/program"});
    FAIL() << "it was started";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ("starting /no/such/program: No such file or directory", error.what());
  }
}

TEST(ChildProcess, WaitingForOutputEndsWhenTheProcessEnds) {
  ChildProcess child({"true"});
  EXPECT_FALSE(child.WaitForOutput("text"));
}

}  // namespace
}  // namespace bttest
