// The segments shared with the service, looked at from outside.

#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <sys/shm.h>

#include "ipc/BtClientIpcAdapter.h"
#include "ipc/ShareMemory/ShareMemory.h"
#include "ipc/ShareMemory/ShmUnPackUtils.h"
#include "protocol/Segments.h"
#include "support/LogCapture.h"
#include "support/Segments.h"

namespace {

/// The adapter's own lines on the creation of segments, results included.
std::vector<bttest::LogRecord> CreationLines(const bttest::LogCapture& log) {
  return log.OfFunction("InitAllShareMemory");
}

TEST(Catalogue, TheSegmentsThatHoldAListAreFive) {
  const std::map<int, int> expected{{0, 2048}, {2, 2097152}, {3, 1048576}, {5, 51200}, {6, 2048}};
  EXPECT_EQ(g_ShmIdMap, expected);
}

TEST(Segments, WithoutAServiceTheLibraryCreatesAllEightAndReadsZeros) {
  const std::size_t sizes[] = {2048, 10240, 2097152, 1048576, 5120, 51200, 2048, 40};
  bttest::MakeDummySegments();
  BtClientIpcAdapter adapter;
  for (int id = SH_PAIRED_LIST; id <= SH_BT_PARAMETER; ++id) {
    const auto segment = bttest::FindSegment(static_cast<ShareMemID>(id));
    ASSERT_TRUE(segment) << id;
    EXPECT_EQ(segment->size, sizes[id]) << id;
    EXPECT_EQ(segment->mode, 0666u) << id;
    EXPECT_EQ(segment->attachments, 1u) << id;
    if (id != SH_BT_PARAMETER) {
      const std::vector<unsigned char> zeros(sizes[id]);
      EXPECT_EQ(bttest::ReadSegment(static_cast<ShareMemID>(id), 0, sizes[id]), zeros) << id;
      EXPECT_EQ(
          std::memcmp(ShareMemory::GetShareMemory(static_cast<ShareMemID>(id)), zeros.data(), sizes[id]), 0);
    }
  }
}

TEST(Segments, EachCreationIsLoggedWithItsResultInTheOrderOfTheIds) {
  bttest::LogCapture log;
  BtClientIpcAdapter adapter;
  const auto lines = CreationLines(log);
  ASSERT_EQ(lines.size(), 8u);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    EXPECT_EQ(lines[i].file, "ipc/BtClientIpcAdapter");
    EXPECT_EQ(lines[i].level, 20);
    EXPECT_EQ(lines[i].message, std::string("[btservice][BtServerRpcAdpter::BtServerRpcAdpter] [") +
                                    kSegmentCatalogue[i].name + "] creat share memory:1");
  }
  EXPECT_EQ(std::string(kSegmentCatalogue[3].name), "SH_FAV_CONTACT_LIST");
}

TEST(Segments, WithoutTheServicesFileNoneIsMadeAndNoSettingIsLoaded) {
  bttest::RemoveServiceFile();
  bttest::LogCapture log;
  testing::internal::CaptureStderr();
  BtClientIpcAdapter adapter;
  const std::string errors = testing::internal::GetCapturedStderr();
  for (int id = SH_PAIRED_LIST; id <= SH_BT_PARAMETER; ++id) {
    EXPECT_EQ(ShareMemory::GetShareMemory(static_cast<ShareMemID>(id)), nullptr) << id;
  }
  EXPECT_TRUE(log.OfFunction("LoadPersistDataToSharemenory").empty());
  EXPECT_NE(errors.find("getShareMemory ftok failed:: No such file or directory"), std::string::npos)
      << errors;
  const auto failures = log.OfFunction("InitShareMemory");
  ASSERT_EQ(failures.size(), 8u);
  EXPECT_EQ(failures[0].file, "ipc/ShareMemory/ShareMemory");
  EXPECT_EQ(failures[0].level, 100);
  EXPECT_EQ(failures[0].message, "ShareMemory::InitCreatShareMemory Create Error!!!");
  const auto lines = CreationLines(log);
  ASSERT_EQ(lines.size(), 8u);
  EXPECT_EQ(lines[7].message,
            "[btservice][BtServerRpcAdpter::BtServerRpcAdpter] [SH_BT_PARAMETER] creat share memory:0");
}

TEST(Segments, ASegmentThatIsTooSmallIsRefusedAndTheOthersAreAttached) {
  bttest::CreateSegment(SH_CONTACT_LIST, 4096);
  bttest::LogCapture log;
  testing::internal::CaptureStderr();
  BtClientIpcAdapter adapter;
  const std::string errors = testing::internal::GetCapturedStderr();
  EXPECT_EQ(ShareMemory::GetShareMemory(SH_CONTACT_LIST), nullptr);
  EXPECT_NE(ShareMemory::GetShareMemory(SH_CONTACT_INFO), nullptr);
  EXPECT_NE(ShareMemory::GetShareMemory(SH_BT_PARAMETER), nullptr);
  EXPECT_NE(errors.find("getShareMemory failed: Invalid argument"), std::string::npos) << errors;
  const auto lines = log.OfFunction("CommShm");
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].level, 20);
  EXPECT_EQ(lines[0].message, "getShareMemory failed:shmid:-1");
}

TEST(Segments, ASegmentThatIsLargerIsAttached) {
  bttest::CreateSegment(SH_CALL_INFO_LIST, 8192);
  BtClientIpcAdapter adapter;
  EXPECT_NE(ShareMemory::GetShareMemory(SH_CALL_INFO_LIST), nullptr);
}

TEST(Segments, ASegmentThatWasAskedForWithASmallerSizeIsReadToItsEndAndNoFurther) {
  constexpr int kSize = 4096;
  ASSERT_TRUE(ShareMemory::InitShareMemory(SH_CONTACT_LIST, kSize));
  std::vector<unsigned char> content(kSize, 'x');
  const int count = 1;
  std::memcpy(content.data(), &count, sizeof count);
  bttest::WriteSegment(SH_CONTACT_LIST, 0, content);
  ShmUnPackUtils unpack;
  EXPECT_EQ(unpack.StartShmUnPackList(SH_CONTACT_LIST), 1);
  std::string text = "as it was";
  EXPECT_FALSE(unpack.UnPackDataFromShareMemory(text));
  EXPECT_EQ(text, "as it was");
}

TEST(Segments, AListWhoseSegmentWasTheOnlyOneAndIsDetachedIsReadNoFurther) {
  ASSERT_TRUE(ShareMemory::InitShareMemory(SH_CONTACT_LIST, kSegmentCatalogue[SH_CONTACT_LIST].size));
  std::vector<unsigned char> content(64, 0);
  const int count = 1;
  std::memcpy(content.data(), &count, sizeof count);
  bttest::WriteSegment(SH_CONTACT_LIST, 0, content);
  ShmUnPackUtils unpack;
  EXPECT_EQ(unpack.StartShmUnPackList(SH_CONTACT_LIST), 1);
  ASSERT_EQ(ShareMemory::DetachShareMemory(SH_CONTACT_LIST), 0);
  const bttest::LogCapture log;
  std::string text = "as it was";
  EXPECT_FALSE(unpack.UnPackDataFromShareMemory(text));
  EXPECT_EQ(text, "as it was");
  EXPECT_EQ(log.Messages(), std::vector<std::string>{"the segment that is being unpacked has been detached"});
}

TEST(Segments, DestroyingTheAdapterForgetsAllButTheCallTable) {
  bttest::MakeDummySegments();
  { BtClientIpcAdapter adapter; }
  for (int id = SH_PAIRED_LIST; id <= SH_BT_PARAMETER; ++id) {
    void* const address = ShareMemory::GetShareMemory(static_cast<ShareMemID>(id));
    EXPECT_EQ(address != nullptr, id == SH_CALL_INFO_LIST) << id;
    // No memory is detached and, with identifiers above 7, no segment is removed.
    const auto segment = bttest::FindSegment(static_cast<ShareMemID>(id));
    ASSERT_TRUE(segment) << id;
    EXPECT_EQ(segment->attachments, 1u) << id;
  }
}

TEST(Segments, DestroyRemovesTheSegmentWhoseIdentifierIsTheIdByChance) {
  const std::vector<int> dummies = bttest::MakeDummySegments();
  ASSERT_EQ(dummies[2], 2);
  ASSERT_TRUE(ShareMemory::InitShareMemory(SH_CONTACT_LIST, 2097152));
  EXPECT_EQ(ShareMemory::DestroyShareMemory(SH_CONTACT_LIST), 0);
  EXPECT_FALSE(bttest::SegmentExists(2));
  EXPECT_TRUE(bttest::FindSegment(SH_CONTACT_LIST));
}

TEST(Segments, DestroyAndDetachOfAnIdThatWasNeverInitialisedAnswerMinusOneAndCallNothing) {
  bttest::MakeDummySegments();
  EXPECT_EQ(ShareMemory::DestroyShareMemory(SH_CONTACT_LIST), -1);
  EXPECT_EQ(ShareMemory::DetachShareMemory(SH_CONTACT_LIST), -1);
  EXPECT_TRUE(bttest::SegmentExists(SH_CONTACT_LIST));
}

TEST(Segments, DetachGivesTheMemoryBack) {
  ASSERT_TRUE(ShareMemory::InitShareMemory(SH_PAIRED_LIST, 2048));
  EXPECT_EQ(bttest::FindSegment(SH_PAIRED_LIST)->attachments, 1u);
  EXPECT_EQ(ShareMemory::DetachShareMemory(SH_PAIRED_LIST), 0);
  EXPECT_EQ(bttest::FindSegment(SH_PAIRED_LIST)->attachments, 0u);
  EXPECT_EQ(ShareMemory::GetShareMemory(SH_PAIRED_LIST), nullptr);
}

TEST(Segments, ASecondInitialisationAttachesAgainAndKeepsTheFirstAddress) {
  ASSERT_TRUE(ShareMemory::InitShareMemory(SH_PAIRED_LIST, 2048));
  void* const address = ShareMemory::GetShareMemory(SH_PAIRED_LIST);
  ASSERT_TRUE(ShareMemory::InitShareMemory(SH_PAIRED_LIST, 2048));
  EXPECT_EQ(ShareMemory::GetShareMemory(SH_PAIRED_LIST), address);
  EXPECT_EQ(bttest::FindSegment(SH_PAIRED_LIST)->attachments, 2u);
}

}  // namespace
