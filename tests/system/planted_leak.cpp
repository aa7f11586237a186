// Leaks that script/valgrind --prove has to find: one in the process of a test, and one in a process that a
// test starts. Nothing else runs them.

#include <cstring>

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

TEST(PlantedLeak, InAProcessThatTheTestStarts) {
  char path[4096] = {};
  ASSERT_GT(readlink("/proc/self/exe", path, sizeof path - 1), 0);
  bttest::ChildProcess child({path, "--gtest_filter=*.InTheTestItself"});
  EXPECT_TRUE(child.Wait(std::chrono::minutes(2)));
}

}  // namespace
