// A write is safe from a power cut: the order in which its content, its name and its directory are made to
// last. The calls of the C library that matter are noted on their way.

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <mwp/MWPPersistService.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/LogCapture.h"
#include "support/TemporaryDirectory.h"

namespace {

std::vector<std::string>& Steps() {
  static std::vector<std::string> steps;
  return steps;
}

bool s_hasNoLocks = false;

template <typename Function>
Function Original(const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

// These take the place of the C library's functions for the whole process.
extern "C" {

__attribute__((visibility("default"))) int fsync(int descriptor) {
  struct stat status;
  fstat(descriptor, &status);
  Steps().push_back(S_ISDIR(status.st_mode) ? "sync directory" : "sync file");
  return Original<int (*)(int)>("fsync")(descriptor);
}

__attribute__((visibility("default"))) int rename(const char* from, const char* to) noexcept {
  Steps().push_back("rename to " + std::string(to));
  return Original<int (*)(const char*, const char*)>("rename")(from, to);
}

__attribute__((visibility("default"))) int flock(int descriptor, int operation) noexcept {
  if (s_hasNoLocks) {
    errno = ENOLCK;
    return -1;
  }
  return Original<int (*)(int, int)>("flock")(descriptor, operation);
}
}

namespace {

TEST(PlatformPersistDurability, TheContentIsOnTheDiskBeforeItGetsTheNameAndTheNameBeforeTheWriteReturns) {
  const bttest::TemporaryDirectory directory;
  const std::string store = directory.Path() / "persist.ini";
  setenv("MWP_PERSIST_FILE", store.c_str(), 1);
  const std::vector<std::string> expected = {"sync file", "rename to " + store, "sync directory"};

  for (const char* kind : {"first write", "later write"}) {
    Steps().clear();
    ASSERT_EQ(MWP_GetA7PersistService()->WriteInt(8, 303, 1, 0), 0);
    EXPECT_EQ(Steps(), expected) << kind;
  }
  unsetenv("MWP_PERSIST_FILE");
}

TEST(PlatformPersistDurability, AWriteFailsWithOneErrorLineWhereTheKernelHasNoLockLeft) {
  const bttest::TemporaryDirectory directory;
  const bttest::LogCapture log;
  const std::string store = directory.Path() / "persist.ini";
  setenv("MWP_PERSIST_FILE", store.c_str(), 1);
  s_hasNoLocks = true;
  EXPECT_NE(MWP_GetA7PersistService()->WriteInt(8, 303, 1, 0), 0);
  s_hasNoLocks = false;
  unsetenv("MWP_PERSIST_FILE");
  EXPECT_THAT(log.Messages(), testing::ElementsAre(testing::HasSubstr("cannot lock " + store)));
  EXPECT_FALSE(std::filesystem::exists(store));
}

}  // namespace
