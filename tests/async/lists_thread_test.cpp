// Which thread reads a list. The library attaches segments with shmat: this program has its own, which notes
// who calls it.

#include <dlfcn.h>
#include <sys/shm.h>

#include <mutex>
#include <thread>
#include <vector>

#include <gmock/gmock.h>

#include "tests/async/ListsFixture.h"

namespace {

std::mutex readersLock;
std::vector<std::thread::id> readers;  ///< each that has attached a segment to read it

}  // namespace

extern "C" __attribute__((visibility("default"))) void* shmat(int identifier, const void* address,
                                                              int flags) noexcept {
  if ((flags & SHM_RDONLY) != 0) {
    const std::lock_guard<std::mutex> locked(readersLock);
    readers.push_back(std::this_thread::get_id());
  }
  using Attach = void* (*)(int, const void*, int);
  static const auto attach = reinterpret_cast<Attach>(dlsym(RTLD_NEXT, "shmat"));
  return attach(identifier, address, flags);
}

namespace {

using namespace btasync;
using bttest::Wait;
using testing::AllOf;
using testing::Each;
using testing::IsEmpty;
using testing::Ne;
using testing::Not;

class ReadingThread : public bttest::ListsFixture {
 protected:
  /// The threads that have read something since the last time.
  static std::vector<std::thread::id> TakeReaders() {
    const std::lock_guard<std::mutex> locked(readersLock);
    return std::exchange(readers, {});
  }
};

TEST_F(ReadingThread, IsNotTheLoopsForALargeListSoThatAFrameIsKept) {
  bttest::ContactItems(5000).Publish(SH_CONTACT_LIST);
  SetCount(5000);
  TakeReaders();
  const auto contacts = Wait(service.Contacts());
  ASSERT_TRUE(contacts) << contacts.Why().detail;
  EXPECT_EQ(contacts->size(), 5000u);
  EXPECT_THAT(TakeReaders(), AllOf(Not(IsEmpty()), Each(Ne(std::this_thread::get_id()))));
}

TEST_F(ReadingThread, IsTheLoopsForASmallTable) {
  bttest::DeviceItems({"00:1A:7D:DA:71:13"}).Publish(SH_PAIRED_LIST);
  TakeReaders();
  ASSERT_TRUE(Wait(service.PairedDevices()));
  EXPECT_THAT(TakeReaders(), AllOf(Not(IsEmpty()), Each(std::this_thread::get_id())));
}

}  // namespace
