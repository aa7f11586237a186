#include <cstring>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "service/frontend/segments/Records.h"
#include "service/frontend/segments/TextCut.h"
#include "support/SegmentItems.h"

namespace btservice {
namespace {

using bttest::SegmentItems;
using testing::ElementsAreArray;

TEST(RecordsTest, AContactWithGroupsOfNumbers) {
  Contact contact;
  contact.id = 7;
  contact.firstName = "Zoë";
  contact.familyName = "Zimmer";
  contact.numbers = {{NUMBER_MOBILE, {"1", "22"}}, {NUMBER_WORK, {}}};
  EXPECT_THAT(PackList<Contact>({contact}, 1000).Contents(), ElementsAreArray(SegmentItems()
                                                                                  .Int(1)
                                                                                  .Int(7)
                                                                                  .Text("Zoë")
                                                                                  .Text("Zimmer")
                                                                                  .Int(2)
                                                                                  .Int(NUMBER_MOBILE)
                                                                                  .Int(2)
                                                                                  .Text("1")
                                                                                  .Text("22")
                                                                                  .Int(NUMBER_WORK)
                                                                                  .Int(0)
                                                                                  .Bytes()));
}

TEST(RecordsTest, ACallLogEntryHasItsNumbersBeforeItsTexts) {
  CallLogEntry entry;
  entry.id = 3;
  entry.type = CALL_LOG_MISSED;
  entry.contactId = 9;
  entry.name = "Ben";
  entry.number = "112";
  entry.date = "2026-05-29";
  entry.time = "18:05:10";
  entry.seconds = 61;
  EXPECT_THAT(PackList<CallLogEntry>({entry}, 1000).Contents(),
              ElementsAreArray(SegmentItems()
                                   .Int(1)
                                   .Int(3)
                                   .Int(9)
                                   .Int(BT_PBAP_MISSED_HISTORY)
                                   .Text("Ben")
                                   .Text("112")
                                   .Text("2026-05-29")
                                   .Text("18:05:10")
                                   .Text("61")
                                   .Bytes()));
}

TEST(RecordsTest, TheCallTableAlwaysHasTwoSlots) {
  CallInfo call;
  call.id = 1;
  call.status = BT_CALL_ACTIVE;
  call.incoming = true;
  call.seconds = 12;
  call.number = "112";
  call.name = "Help";
  call.deviceAddress = "00:1A:7D:DA:71:13";
  SegmentItems expected;
  expected.Int(1);
  expected.Int(1).Int(BT_CALL_ACTIVE).Int(1).Int(0).Int(12);
  expected.Text("112").Text("Help").Text("00:1A:7D:DA:71:13");
  expected.Int(0).Int(0).Int(0).Int(0).Int(0).Text("").Text("").Text("");
  EXPECT_THAT(PackCallTable({call}, 2048).contents, ElementsAreArray(expected.Bytes()));
}

TEST(RecordsTest, TheCallTableFitsWhateverTheTexts) {
  CallInfo call;
  call.number = call.name = call.deviceAddress = std::string(5000, 'x');
  const Bytes contents = PackCallTable({call, call, call}, 2048).contents;
  EXPECT_LE(contents.size(), 2048U);
  std::int32_t count = 0;
  std::memcpy(&count, contents.data(), sizeof(count));
  EXPECT_EQ(count, 3) << "the number of calls, not of slots";
  EXPECT_EQ(contents.size(), 4U + 2 * (20 + 3 * 256));
}

TEST(RecordsTest, TheCallTableCutsATextBetweenItsCharacters) {
  CallInfo call;
  call.number = "1";
  call.name = std::string(254, 'x') + "ä";
  const Bytes contents = PackCallTable({call}, 2048).contents;
  const auto* const name =
      reinterpret_cast<const char*>(contents.data() + 26);  // the count, 5 integers, the number
  EXPECT_EQ(std::string(name), std::string(254, 'x'));
}

TEST(TextCutTest, ATextThatFitsIsLeftAlone) {
  EXPECT_EQ(CutText("", 0), "");
  EXPECT_EQ(CutText("Zoë", 4), "Zoë");
  EXPECT_EQ(CutText("Zoë", 100), "Zoë");
}

TEST(TextCutTest, ACharacterGoesAsAWhole) {
  EXPECT_EQ(CutText("abc", 2), "ab");
  EXPECT_EQ(CutText("Zoë", 3), "Zo");
  EXPECT_EQ(CutText("a€b", 4), "a€");
  EXPECT_EQ(CutText("a€b", 3), "a");
  EXPECT_EQ(CutText("a€b", 2), "a");
  EXPECT_EQ(CutText("a\U0001F600b", 5), "a\U0001F600");
  EXPECT_EQ(CutText("a\U0001F600b", 4), "a");
  EXPECT_EQ(CutText("\U0001F600", 3), "");
  EXPECT_EQ(CutText("ä", 0), "");
}

TEST(TextCutTest, WhatIsNotUtf8IsCutAnywhere) {
  EXPECT_EQ(CutText(std::string(10, '\x80'), 6), std::string(6, '\x80'));
  EXPECT_EQ(CutText(std::string(10, '\x80'), 2), std::string(2, '\x80'));
}

TEST(RecordsTest, ADeviceOfThePairedList) {
  DeviceInfo device;
  device.address = "00:1A:7D:DA:71:13";
  device.name = "Phone";
  device.connected = BT_PROFILE_HFP;
  device.status = BT_CONN_CONNECTED;
  device.support = BT_SUPPORT_PHONE_LINK;
  EXPECT_THAT(PackList<DeviceInfo>({device}, 1000).Contents(),
              ElementsAreArray(SegmentItems()
                                   .Int(1)
                                   .Int(BT_PROFILE_HFP)
                                   .Int(BT_PROFILE_HFP_A2DP)
                                   .Int(BT_CONN_CONNECTED)
                                   .Int(BT_SUPPORT_PHONE_LINK)
                                   .Text("00:1A:7D:DA:71:13")
                                   .Text("Phone")
                                   .Bytes()));
}

}  // namespace
}  // namespace btservice
