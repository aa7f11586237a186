// The store of persisted values under several processes and threads at once.

#include <atomic>
#include <cstdlib>
#include <string>
#include <thread>

#include <gtest/gtest.h>
#include <mwp/MWPPersistService.h>
#include <signal.h>

#include "support/TemporaryDirectory.h"
#include "unit/platform_process.h"

namespace {

using platform_test::StartProcess;
using platform_test::Succeeded;

constexpr int kCategory = 8;
constexpr int kWrites = 200;

bool Write(int key, int value) { return MWP_GetA7PersistService()->WriteInt(kCategory, key, value, 0) == 0; }

bool Holds(int key, int expected) {
  int value = expected - 1;
  return MWP_GetA7PersistService()->ReadInt(kCategory, key, &value) == 0 && value == expected;
}

/// Writes kWrites keys from firstKey on, each with its own number as value.
bool WriteKeysFrom(int firstKey) {
  for (int key = firstKey; key < firstKey + kWrites; ++key) {
    if (!Write(key, key)) {
      return false;
    }
  }
  return true;
}

int CountLost(int firstKey) {
  int lost = 0;
  for (int key = firstKey; key < firstKey + kWrites; ++key) {
    lost += Holds(key, key) ? 0 : 1;
  }
  return lost;
}

class PlatformPersistConcurrency : public ::testing::Test {
 protected:
  PlatformPersistConcurrency() { setenv("MWP_PERSIST_FILE", (directory.Path() / "persist.ini").c_str(), 1); }
  ~PlatformPersistConcurrency() override { unsetenv("MWP_PERSIST_FILE"); }

  bttest::TemporaryDirectory directory;
};

TEST_F(PlatformPersistConcurrency, TwoProcessesThatWriteDifferentKeysLoseNothing) {
  const pid_t one = StartProcess([] { return WriteKeysFrom(1000); });
  const pid_t two = StartProcess([] { return WriteKeysFrom(2000); });
  EXPECT_TRUE(Succeeded(one));
  EXPECT_TRUE(Succeeded(two));
  EXPECT_EQ(CountLost(1000), 0);
  EXPECT_EQ(CountLost(2000), 0);
}

TEST_F(PlatformPersistConcurrency, TwoThreadsThatWriteDifferentKeysLoseNothing) {
  std::atomic<bool> wrote{true};
  const auto write = [&wrote](int firstKey) {
    if (!WriteKeysFrom(firstKey)) {
      wrote = false;
    }
  };
  std::thread one(write, 1000);
  std::thread two(write, 2000);
  one.join();
  two.join();
  EXPECT_TRUE(wrote);
  EXPECT_EQ(CountLost(1000), 0);
  EXPECT_EQ(CountLost(2000), 0);
}

TEST_F(PlatformPersistConcurrency, AReaderSeesEveryValueWhileAnotherProcessWrites) {
  ASSERT_TRUE(Write(303, 5));
  const pid_t writer = StartProcess([] { return WriteKeysFrom(1000); });
  int reads = 0;
  // The writer's last key ends the race; a writer that fails is noticed below.
  while (!Holds(1000 + kWrites - 1, 1000 + kWrites - 1) && waitpid(writer, nullptr, WNOHANG) == 0) {
    ASSERT_TRUE(Holds(303, 5)) << "after " << reads << " reads";
    ++reads;
  }
  EXPECT_GT(reads, 0);
  waitpid(writer, nullptr, 0);
  EXPECT_EQ(CountLost(1000), 0);
}

TEST_F(PlatformPersistConcurrency, AWriterKilledAtAnyMomentLeavesAWholeStoreAndNoLock) {
  for (int round = 1; round <= 20; ++round) {
    const int before = round * 1000;
    ASSERT_TRUE(Write(303, before));
    const pid_t writer = StartProcess([before] {
      for (int value = before + 1;; ++value) {
        Write(303, value);
      }
      return true;
    });
    // Killed as soon as some of its writes are seen, at whatever point of the next one it then is.
    int value = 0;
    do {
      ASSERT_EQ(MWP_GetA7PersistService()->ReadInt(kCategory, 303, &value), 0);
    } while (value < before + 3 && waitpid(writer, nullptr, WNOHANG) == 0);
    kill(writer, SIGKILL);
    waitpid(writer, nullptr, 0);

    int after = 0;
    ASSERT_EQ(MWP_GetA7PersistService()->ReadInt(kCategory, 303, &after), 0);
    EXPECT_GE(after, before + 3);
  }
  EXPECT_TRUE(Write(303, 1));
  EXPECT_TRUE(Holds(303, 1));
}

}  // namespace
