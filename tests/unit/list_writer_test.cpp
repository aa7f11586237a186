// How lists are written for the segments. That they are read as they were written is shown in
// contract/lists_test.cpp, where the library reads, and in service/packing_test.cpp, where the service
// writes.

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "protocol/Records.h"
#include "support/SegmentItems.h"

namespace {

using bttest::SegmentItems;
using testing::ElementsAreArray;

TEST(ListWriter, AnEmptyListIsACountOfZero) {
  EXPECT_THAT(ListWriter(100).Contents(), ElementsAreArray(SegmentItems().Int(0).Bytes()));
}

TEST(ListWriter, ItemsLieSideBySideWithoutPadding) {
  ListWriter writer(100);
  writer.Put("abc").Put(7).Put("").Put(-1).EndRecord();
  EXPECT_THAT(writer.Contents(),
              ElementsAreArray(SegmentItems().Int(1).Text("abc").Int(7).Text("").Int(-1).Bytes()));
}

TEST(ListWriter, ATextEndsAtANul) {
  ListWriter writer(100);
  writer.Put(std::string("ab\0cd", 5)).EndRecord();
  EXPECT_THAT(writer.Contents(), ElementsAreArray(SegmentItems().Int(1).Text("ab").Bytes()));
}

TEST(ListWriter, AListThatIsTooLargeEndsWithTheLastWholeRecord) {
  ListWriter writer(4 + 2 * 6 + 5);
  EXPECT_TRUE(writer.Put(1).Put("a").EndRecord());
  EXPECT_TRUE(writer.Put(2).Put("b").EndRecord());
  EXPECT_FALSE(writer.Put(3).Put("c").EndRecord());
  EXPECT_FALSE(writer.Put("").EndRecord()) << "though it would fit";
  EXPECT_EQ(writer.Count(), 2);
  EXPECT_THAT(writer.Contents(),
              ElementsAreArray(SegmentItems().Int(2).Int(1).Text("a").Int(2).Text("b").Bytes()));
}

TEST(ListWriter, AListMayFillItsSegmentToTheLastByte) {
  ListWriter writer(4 + 6);
  EXPECT_TRUE(writer.Put(1).Put("a").EndRecord());
  EXPECT_EQ(writer.Contents().size(), 10U);
}

/// Writes a list of one record.
template <typename Record>
std::vector<unsigned char> Written(const Record& record) {
  ListWriter writer(1000);
  PutRecord(writer, record);
  EXPECT_TRUE(writer.EndRecord());
  return writer.Contents();
}

TEST(Records, AContactHasItsGroupsOfNumbersAtItsEnd) {
  MWPTypeContact contact;
  contact.nContactId = 7;
  contact.strText1 = "Zoë";
  contact.strText2 = "Zimmer";
  contact.listNumbers = {{1, {"1", "22"}}, {3, {}}};
  SegmentItems expected;
  expected.Int(1).Int(7).Text("Zoë").Text("Zimmer").Int(2);
  expected.Int(1).Int(2).Text("1").Text("22").Int(3).Int(0);
  EXPECT_THAT(Written(contact), ElementsAreArray(expected.Bytes()));
}

TEST(Records, ACallLogHasItsIntegersBeforeItsTexts) {
  MWPTypeCallLog log;
  log.nLogId = 1;
  log.nValue1 = 2;
  log.nValue2 = 3;
  log.strText1 = "a";
  log.strText2 = "b";
  log.strText3 = "c";
  log.strText4 = "d";
  log.strText5 = "e";
  SegmentItems expected;
  expected.Int(1).Int(1).Int(2).Int(3).Text("a").Text("b").Text("c").Text("d").Text("e");
  EXPECT_THAT(Written(log), ElementsAreArray(expected.Bytes()));
}

TEST(Records, ACallSlotHasItsIntegersBeforeItsTexts) {
  MWPTypeCallSlot slot;
  slot.nValue1 = 1;
  slot.nValue2 = 2;
  slot.nValue3 = 3;
  slot.nValue4 = 4;
  slot.nValue5 = 5;
  slot.strText1 = "a";
  slot.strText2 = "b";
  slot.strText3 = "c";
  SegmentItems expected;
  expected.Int(1).Int(1).Int(2).Int(3).Int(4).Int(5).Text("a").Text("b").Text("c");
  EXPECT_THAT(Written(slot), ElementsAreArray(expected.Bytes()));
  EXPECT_EQ(Written(slot)[4 + RecordItems<MWPTypeCallSlot>::kOffsetOfValue5], 5);
}

TEST(Records, APairedDeviceHasItsAddressBeforeItsName) {
  MWPTypeDevice device;
  device.strAddr = "a";
  device.strName = "n";
  device.eProfileId = MWPBtType::ProfileId(1);
  device.eEnableProfileId = MWPBtType::ProfileId(2);
  device.eConnectStatus = MWPBtType::ConnStatus(3);
  device.eSupportType = MWPBtType::SupportType(4);
  EXPECT_THAT(
      Written(device),
      ElementsAreArray(SegmentItems().Int(1).Int(1).Int(2).Int(3).Int(4).Text("a").Text("n").Bytes()));
}

}  // namespace
