// What script/valgrind --prove has to find: a leak in the process of a test, one in a process that a test
// starts, and a process that ends so that valgrind cannot report on it. And what it has to let pass:
// processes that a test kills, or that become a program of others. Nothing else runs them.

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

#include "support/ChildProcess.h"

namespace {

/// Loses the only pointer to some memory.
__attribute__((noinline)) void Planted() {
  char* volatile lost = new char[1000];
  std::memset(lost, 1, 1000);
  lost = nullptr;
}

TEST(PlantedLeak, InTheTestItself) { Planted(); }

/// The command that runs another test of this program.
std::vector<std::string> Another(const std::string& test) {
  char path[4096] = {};
  EXPECT_GT(readlink("/proc/self/exe", path, sizeof path - 1), 0);
  return {path, "--gtest_filter=" + test, "--gtest_also_run_disabled_tests"};
}

TEST(PlantedLeak, InAProcessThatTheTestStarts) {
  bttest::ChildProcess child(Another("*.InTheTestItself"));
  EXPECT_TRUE(child.Wait(std::chrono::minutes(2)));
}

/// The test that this program runs in another process, until that is ended.
TEST(Child, DISABLED_Waits) {
  std::puts("waiting");
  std::fflush(stdout);
  pause();
}

TEST(PlantedEnd, OfAProcessThatTheTestStarts) {
  bttest::ChildProcess child(Another("Child.DISABLED_Waits"));
  ASSERT_TRUE(child.WaitForOutput("waiting", std::chrono::minutes(2))) << child.Errors();
  kill(child.Pid(), SIGKILL);  // as a machine does that has no more memory
  EXPECT_EQ(child.Wait(), 128 + SIGKILL);
}

TEST(NothingPlanted, InAProcessThatTheTestKillsAndInThoseOfOthers) {
  bttest::ChildProcess child(Another("Child.DISABLED_Waits"));
  ASSERT_TRUE(child.WaitForOutput("waiting", std::chrono::minutes(2))) << child.Errors();
  child.Kill();
  bttest::ChildProcess other({"sh", "-c", "exit 0"});
  EXPECT_EQ(other.Wait(), 0);
}

}  // namespace
