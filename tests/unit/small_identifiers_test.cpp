// What a service does when the system gives out no segment with a larger identifier, or no segment at all.

#include <cerrno>
#include <optional>
#include <set>

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/shm.h>

#include "ipc/ShareMemory/SmallIdentifiers.h"
#include "support/LogCapture.h"
#include "support/Segments.h"

namespace {

enum class Gives { SMALL, NONE };

std::optional<Gives> g_gives;  ///< nothing: what the system does
int g_asked = 0;               ///< how many segments were asked for
std::multiset<int> g_removed;  ///< the identifiers of those that were removed

constexpr int kSmall = 3;

}  // namespace

// These take the place of the C library's functions.
extern "C" __attribute__((visibility("default"))) int shmget(key_t key, size_t size, int shmflg) noexcept {
  using Shmget = int (*)(key_t, size_t, int);
  static const auto real = reinterpret_cast<Shmget>(dlsym(RTLD_NEXT, "shmget"));
  if (!g_gives) {
    return real(key, size, shmflg);
  }
  ++g_asked;
  if (*g_gives == Gives::SMALL) {
    return kSmall;
  }
  errno = ENOSPC;
  return -1;
}

extern "C" __attribute__((visibility("default"))) int shmctl(int shmid, int cmd, shmid_ds* buf) noexcept {
  using Shmctl = int (*)(int, int, shmid_ds*);
  static const auto real = reinterpret_cast<Shmctl>(dlsym(RTLD_NEXT, "shmctl"));
  if (!g_gives) {
    return real(shmid, cmd, buf);
  }
  if (cmd == IPC_RMID) {
    g_removed.insert(shmid);
  }
  return 0;
}

namespace {

class SmallIdentifiers : public testing::Test {
 protected:
  ~SmallIdentifiers() override { g_gives.reset(); }

  /// Tries it with such a system. False, with one error in the log, is expected.
  std::string ErrorWith(Gives gives) {
    const bttest::LogCapture log;
    g_gives = gives;
    EXPECT_FALSE(UseUpSmallIdentifiers());
    EXPECT_EQ(log.OfLevel(100).size(), 1u);
    return log.Messages().size() == 1 ? log.Messages().front() : "";
  }
};

TEST_F(SmallIdentifiers, AreGivenUpAfterSixteenSegmentsWhichAreRemoved) {
  EXPECT_EQ(ErrorWith(Gives::SMALL), "16 segments made, and not one has an identifier above 7");
  EXPECT_EQ(g_asked, 16);
  EXPECT_EQ(g_removed.size(), 16u);
  EXPECT_EQ(g_removed.count(kSmall), 16u);
}

TEST_F(SmallIdentifiers, AreGivenUpWhenThereIsNoSegmentToBeHad) {
  EXPECT_EQ(ErrorWith(Gives::NONE),
            "the identifiers of segments up to 7 cannot be used up: No space left on device");
  EXPECT_EQ(g_asked, 1);
  EXPECT_TRUE(g_removed.empty());
}

}  // namespace
