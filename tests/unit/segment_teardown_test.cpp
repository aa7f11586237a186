// The order in which the segments are given up, as the system sees it.

#include <map>
#include <vector>

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/shm.h>

#include <bluetooth/MWPBluetooth.h>

#include "ipc/BtClientIpcAdapter.h"
#include "ipc/ShareMemory/ShareMemory.h"
#include "support/Segments.h"

namespace {

struct Control {
  int identifier;
  int command;
  const void* buffer;
};

bool operator==(const Control& left, const Control& right) {
  return left.identifier == right.identifier && left.command == right.command && left.buffer == right.buffer;
}

std::vector<Control> g_controls;

}  // namespace

// Takes the place of the C library's function for the library under test.
extern "C" __attribute__((visibility("default"))) int shmctl(int shmid, int cmd, shmid_ds* buf) noexcept {
  using Shmctl = int (*)(int, int, shmid_ds*);
  static const auto real = reinterpret_cast<Shmctl>(dlsym(RTLD_NEXT, "shmctl"));
  g_controls.push_back({shmid, cmd, buf});
  return real(shmid, cmd, buf);
}

namespace {

/// The removal of each segment but the call table, by its id, in ascending order.
const std::vector<Control> kRemovals{{0, IPC_RMID, nullptr}, {1, IPC_RMID, nullptr}, {2, IPC_RMID, nullptr},
                                     {3, IPC_RMID, nullptr}, {4, IPC_RMID, nullptr}, {5, IPC_RMID, nullptr},
                                     {7, IPC_RMID, nullptr}};

TEST(SegmentTeardown, TheAdapterDestroysSevenSegmentsInTheOrderOfTheirIds) {
  bttest::MakeDummySegments();
  {
    BtClientIpcAdapter adapter;
    g_controls.clear();
  }
  EXPECT_EQ(g_controls, kRemovals);
}

TEST(SegmentTeardown, SoDoesTheEndOfTheLibrary) {
  bttest::MakeDummySegments();
  g_controls.clear();
  MWP_DestroyBlueTooth();
  EXPECT_EQ(g_controls, kRemovals);
}

TEST(SegmentTeardown, AnIdThatWasNeverInitialisedIsNotHandedToTheSystem) {
  g_controls.clear();
  EXPECT_EQ(ShareMemory::DestroyShareMemory(SH_CONTACT_LIST), -1);
  EXPECT_EQ(g_controls, std::vector<Control>());
}

}  // namespace
