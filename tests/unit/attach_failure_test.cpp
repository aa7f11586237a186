// What happens when the system refuses to attach a segment, which it reports with the address (void*)-1.

#include <cerrno>
#include <list>

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/shm.h>

#include "ipc/BtClientIpcAdapter.h"
#include "ipc/ShareMemory/ShareMemory.h"
#include "ipc/ShareMemory/ShmUnPackUtils.h"
#include "support/LogCapture.h"

namespace {

void* const kAttachFailure = reinterpret_cast<void*>(-1);
bool g_attachFails = false;
const void* g_askedAddress = kAttachFailure;  ///< of the last attachment
int g_askedFlags = -1;

}  // namespace

// Takes the place of the C library's function for the library under test.
extern "C" __attribute__((visibility("default"))) void* shmat(int shmid, const void* shmaddr,
                                                              int shmflg) noexcept {
  g_askedAddress = shmaddr;
  g_askedFlags = shmflg;
  if (g_attachFails) {
    errno = ENOMEM;
    return kAttachFailure;
  }
  using Shmat = void* (*)(int, const void*, int);
  static const auto real = reinterpret_cast<Shmat>(dlsym(RTLD_NEXT, "shmat"));
  return real(shmid, shmaddr, shmflg);
}

namespace {

TEST(Attachment, LeavesTheAddressToTheSystemAndIsForReadingAndWriting) {
  ASSERT_TRUE(ShareMemory::InitShareMemory(SH_PAIRED_LIST, 2048));
  EXPECT_EQ(g_askedAddress, nullptr);
  EXPECT_EQ(g_askedFlags, 0);
}

class AttachFailure : public testing::Test {
 protected:
  AttachFailure() { g_attachFails = true; }
  ~AttachFailure() override { g_attachFails = false; }
};

TEST_F(AttachFailure, IsRecordedAsTheAddressAndAnsweredAsSuccess) {
  EXPECT_TRUE(ShareMemory::InitShareMemory(SH_PAIRED_LIST, 2048));
  EXPECT_EQ(ShareMemory::GetShareMemory(SH_PAIRED_LIST), kAttachFailure);
}

TEST_F(AttachFailure, LoadsNoSettingAndSaysSo) {
  bttest::LogCapture log;
  BtClientIpcAdapter adapter;
  const auto lines = log.OfFunction("LoadPersistDataToSharemenory");
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].level, 100);
}

TEST_F(AttachFailure, ReadersTakeTheSegmentAsMissing) {
  BtClientIpcAdapter adapter;
  bttest::LogCapture log;
  EXPECT_EQ(adapter.GetCapability(MWPBtType::BT_CAP_POWER_SWITCH), 0);
  ASSERT_EQ(log.OfLevel(100).size(), 1u);
  EXPECT_EQ(log.OfLevel(100)[0].message,
            "BtClientIpcAdapter::GetCapability ShareMemory::GetShareMemory( SH_BT_PARAMETER ) Failed !!!");

  ShmUnPackUtils unpack;
  EXPECT_EQ(unpack.StartShmUnPackList(SH_CONTACT_LIST), 0);
  std::string text = "as it was";
  EXPECT_FALSE(unpack.UnPackDataFromShareMemory(text));
  EXPECT_EQ(text, "as it was");

  MWPTypeCallInfo info;
  info.nCallCount = 7;
  info.callSlot1.strText1 = "as it was";
  EXPECT_EQ(adapter.GetCurrentCallInfo(info), 1);
  EXPECT_EQ(info.nCallCount, 0);
  EXPECT_EQ(info.callSlot1.strText1, "as it was");
}

}  // namespace
