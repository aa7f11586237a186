// The mutex belongs to a thread, which may lock it again.

#include <chrono>
#include <future>

#include <gtest/gtest.h>
#include <mwp/MWPMutex.h>

namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

TEST(PlatformMutex, OtherThreadsWaitUntilItIsUnlockedAsOftenAsItWasLocked) {
  MWPMutex mutex;
  mutex.Lock();
  mutex.Lock();
  std::future<void> other = std::async(std::launch::async, [&mutex] {
    mutex.Lock();
    mutex.Unlock();
  });
  EXPECT_EQ(other.wait_for(milliseconds(20)), std::future_status::timeout);
  mutex.Unlock();
  EXPECT_EQ(other.wait_for(milliseconds(20)), std::future_status::timeout);
  mutex.Unlock();
  EXPECT_EQ(other.wait_for(seconds(10)), std::future_status::ready);
}

}  // namespace
