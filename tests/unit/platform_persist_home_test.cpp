// Where persisted values are kept if nothing names a file for them. A program of its own, because GLib looks
// for the user's directories once in a process.

#include <cstdlib>

#include <gtest/gtest.h>
#include <mwp/MWPPersistService.h>

#include "support/TemporaryDirectory.h"
#include "unit/platform_files.h"

namespace {

TEST(PlatformPersistHome, WithoutTheVariableOrWithAnEmptyOneTheStoreIsInTheUsersStateDirectory) {
  const bttest::TemporaryDirectory directory;
  setenv("XDG_STATE_HOME", (directory.Path() / "home").c_str(), 1);

  unsetenv("MWP_PERSIST_FILE");
  EXPECT_EQ(MWP_GetA7PersistService()->WriteInt(8, 303, 4, 0), 0);
  EXPECT_EQ(platform_test::ReadFile(directory.Path() / "home/libbt/persist.ini"), "[category-8]\n303=4\n");

  setenv("MWP_PERSIST_FILE", "", 1);
  int value = 0;
  EXPECT_EQ(MWP_GetA7PersistService()->ReadInt(8, 303, &value), 0);
  EXPECT_EQ(value, 4);
}

}  // namespace
