#include "support/Segments.h"

#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/shm.h>

namespace bttest {
namespace {

using testing::ElementsAre;

TEST(Segments, NoneIsThereAtFirst) {
  for (int id = SH_PAIRED_LIST; id <= SH_BT_PARAMETER; ++id) {
    EXPECT_FALSE(FindSegment(static_cast<ShareMemID>(id))) << id;
  }
  EXPECT_FALSE(SegmentExists(0));
}

TEST(Segments, DummiesTakeTheSmallIdentifiers) {
  EXPECT_THAT(MakeDummySegments(), ElementsAre(0, 1, 2, 3, 4, 5, 6, 7));
  EXPECT_GT(CreateSegment(SH_BT_PARAMETER, 40), 7);
}

TEST(Segments, StatusAndContentsAreThoseOfTheSegment) {
  const int identifier = CreateSegment(SH_PAIRED_LIST, 2048, 0640);
  void* const address = shmat(identifier, nullptr, 0);
  const auto status = FindSegment(SH_PAIRED_LIST);
  ASSERT_TRUE(status);
  EXPECT_EQ(identifier, status->identifier);
  EXPECT_EQ(2048U, status->size);
  EXPECT_EQ(0640U, status->mode);
  EXPECT_EQ(1U, status->attachments);

  WriteSegment(SH_PAIRED_LIST, 2046, {1, 2});
  EXPECT_EQ(2, static_cast<unsigned char*>(address)[2047]);
  EXPECT_THAT(ReadSegment(SH_PAIRED_LIST, 2045, 3), ElementsAre(0, 1, 2));
  EXPECT_THROW(ReadSegment(SH_PAIRED_LIST, 2047, 2), std::out_of_range);
  EXPECT_THROW(CreateSegment(SH_PAIRED_LIST, 2048), std::runtime_error);

  RemoveSegment(SH_PAIRED_LIST);
  EXPECT_FALSE(FindSegment(SH_PAIRED_LIST));
  EXPECT_TRUE(SegmentExists(identifier)) << "it is still attached";
  shmdt(address);
  EXPECT_FALSE(SegmentExists(identifier));
}

TEST(Segments, CannotBeFoundWithoutTheServiceFile) {
  CreateSegment(SH_PAIRED_LIST, 2048);
  RemoveServiceFile();
  EXPECT_FALSE(FindSegment(SH_PAIRED_LIST));
  EXPECT_THROW(CreateSegment(SH_CONTACT_INFO, 10), std::runtime_error);
  MakeServiceFile();
  CreateSegment(SH_CONTACT_INFO, 10);
  EXPECT_TRUE(FindSegment(SH_CONTACT_INFO));
}

}  // namespace
}  // namespace bttest
