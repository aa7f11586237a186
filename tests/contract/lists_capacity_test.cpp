// Segments that are full to the last byte, counts that promise one record more, and what is cut off by the
// end.

#include <list>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "contract/lists_fixture.h"
#include "support/LogCapture.h"

namespace {

using bttest::Lists;
using bttest::SegmentItems;

constexpr int kCountBytes = 4;
constexpr int kSmallestContact = 10;  // id, two empty texts, number of groups
constexpr int kSmallestGroup = 8;     // type, number of values
constexpr int kSmallestLog = 17;      // three integers, five empty texts

/// How many items of a size there can be in a segment behind its first bytes.
int Capacity(ShareMemID id, int before, int itemBytes) {
  return (static_cast<int>(kSegmentCatalogue[id].size) - before) / itemBytes;
}

/// As many of the smallest contacts as there is room for, under a count.
void PublishContacts(ShareMemID id, int announced) {
  SegmentItems packer;
  packer.Int(announced);
  for (int i = 0; i < Capacity(id, kCountBytes, kSmallestContact); ++i) {
    packer.Int(-1).Text("").Text("").Int(0);
  }
  packer.Publish(id);
}

/// Fails unless one error says that a count cannot be.
void ExpectImpossibleCount(const bttest::LogCapture& log) {
  const std::vector<bttest::LogRecord> errors = log.OfLevel(100);
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_NE(errors[0].message.find("a count is negative or too large"), std::string::npos) << errors[0];
}

TEST_F(Lists, AreReadInFullWhenTheSmallestContactsFillTheSegment) {
  const int capacity = Capacity(SH_CONTACT_LIST, kCountBytes, kSmallestContact);
  PublishContacts(SH_CONTACT_LIST, capacity);
  bttest::LogCapture log;
  std::list<MWPTypeContact> contacts;
  EXPECT_EQ(m_adapter.GetContactList(contacts), 1);
  EXPECT_EQ(contacts.size(), static_cast<std::size_t>(capacity));
  EXPECT_TRUE(log.OfLevel(100).empty());

  PublishContacts(SH_CONTACT_LIST, capacity + 1);
  EXPECT_EQ(m_adapter.GetContactList(contacts), 1);
  EXPECT_EQ(contacts.size(), static_cast<std::size_t>(capacity));
  ExpectImpossibleCount(log);
}

TEST_F(Lists, AreReadInFullWhenTheSmallestGroupsFillTheSegment) {
  const int capacity = Capacity(SH_CONTACT_LIST, kCountBytes + kSmallestContact, kSmallestGroup);
  for (const int announced : {capacity, capacity + 1}) {
    SegmentItems().Int(1).Int(7).Text("").Text("").Int(announced).Publish(SH_CONTACT_LIST);
    bttest::LogCapture log;
    std::list<MWPTypeContact> contacts;
    EXPECT_EQ(m_adapter.GetContactList(contacts), 1);
    if (announced > capacity) {
      EXPECT_TRUE(contacts.empty());
      ExpectImpossibleCount(log);
    } else {
      ASSERT_EQ(contacts.size(), 1u);
      EXPECT_EQ(contacts.front().listNumbers.size(), static_cast<std::size_t>(capacity));
      EXPECT_TRUE(log.OfLevel(100).empty());
    }
  }
}

TEST_F(Lists, AreReadInFullWhenTheSmallestCallLogsFillTheSegment) {
  const int capacity = Capacity(SH_CALL_LOG_LIST, kCountBytes, kSmallestLog);
  for (const int announced : {capacity, capacity + 1}) {
    SegmentItems packer;
    packer.Int(announced);
    for (int i = 0; i < capacity; ++i) {
      packer.Int(-1).Int(-1).Int(-1).Raw(std::string(5, '\0'));
    }
    packer.Publish(SH_CALL_LOG_LIST);
    bttest::LogCapture log;
    std::list<MWPTypeCallLog> logs;
    EXPECT_EQ(m_adapter.GetCallLogList(CallLogType(0), logs), 1);
    EXPECT_EQ(logs.size(), static_cast<std::size_t>(capacity));
    if (announced > capacity) {
      ExpectImpossibleCount(log);
    } else {
      EXPECT_TRUE(log.OfLevel(100).empty());
    }
  }
}

TEST_F(Lists, EndBeforeARecordWhoseLastIntegerIsCutOff) {
  constexpr int kRoomForTheSecond = kSmallestContact - 2;
  const std::size_t text =
      kSegmentCatalogue[SH_CONTACT_LIST].size - kCountBytes - kSmallestContact - kRoomForTheSecond;
  SegmentItems()
      .Int(2)
      .Int(1)
      .Text(std::string(text, 'x'))
      .Text("")
      .Int(0)
      .Int(2)
      .Text("")
      .Text("")
      .Publish(SH_CONTACT_LIST);
  bttest::LogCapture log;
  std::list<MWPTypeContact> contacts;
  EXPECT_EQ(m_adapter.GetContactList(contacts), 1);
  ASSERT_EQ(contacts.size(), 1u);
  EXPECT_EQ(contacts.front().strText1.size(), text);
  const std::vector<bttest::LogRecord> errors = log.OfLevel(100);
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_NE(errors[0].message.find("an integer is cut off"), std::string::npos) << errors[0];
}

}  // namespace
