// Lists whose texts find no memory: what was whole is kept, and one line says why the rest is not there.

#include <list>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "contract/ShortOfMemory.h"
#include "contract/lists_fixture.h"
#include "support/LogCapture.h"

namespace {

using bttest::Lists;
using bttest::SegmentItems;
using testing::HasSubstr;

constexpr std::size_t kLarge = 50000;

/// Fails unless one error of the method says that memory was short.
void ExpectOutOfMemory(const bttest::LogCapture& log, const std::string& method) {
  const std::vector<bttest::LogRecord> errors = log.OfLevel(100);
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_EQ(errors[0].file, "ipc/BtClientIpcAdapter");
  EXPECT_EQ(errors[0].function, method);
  EXPECT_THAT(errors[0].message, HasSubstr("there is not enough memory"));
}

TEST_F(Lists, OfContactsEndBeforeTheOneThatFindsNoMemory) {
  SegmentItems()
      .Int(3)
      .Int(1)
      .Text("a")
      .Text("")
      .Int(0)
      .Int(2)
      .Text(std::string(kLarge, 'x'))
      .Text("")
      .Int(0)
      .Int(3)
      .Text("c")
      .Text("")
      .Int(0)
      .Publish(SH_CONTACT_LIST);
  bttest::LogCapture log;
  std::list<MWPTypeContact> contacts;
  {
    const bttest::ShortOfMemory here(kLarge);
    EXPECT_NO_THROW(EXPECT_EQ(m_adapter.GetContactList(contacts), 1));
  }
  ASSERT_EQ(contacts.size(), 1u);
  EXPECT_EQ(contacts.front().strText1, "a");
  ExpectOutOfMemory(log, "GetContactList");
}

TEST_F(Lists, OfContactsEndBeforeTheOneWhoseNumberFindsNoMemory) {
  SegmentItems packer;
  packer.Int(2);
  for (const std::string& number : {std::string("110"), std::string(kLarge, '1')}) {
    packer.Int(1).Text("a").Text("").Int(1).Int(0).Int(1).Text(number);  // one group of one number
  }
  packer.Publish(SH_CONTACT_LIST);
  bttest::LogCapture log;
  std::list<MWPTypeContact> contacts;
  {
    const bttest::ShortOfMemory here(kLarge);
    EXPECT_NO_THROW(EXPECT_EQ(m_adapter.GetContactList(contacts), 1));
  }
  ASSERT_EQ(contacts.size(), 1u);
  ASSERT_EQ(contacts.front().listNumbers.size(), 1u);
  EXPECT_EQ(contacts.front().listNumbers.front().vecValues, std::vector<std::string>{"110"});
  ExpectOutOfMemory(log, "GetContactList");
}

TEST_F(Lists, OfCallLogsEndBeforeTheOneThatFindsNoMemory) {
  SegmentItems()
      .Int(2)
      .Int(1)
      .Int(2)
      .Int(3)
      .Text("a")
      .Text("")
      .Text("")
      .Text("")
      .Text("")
      .Int(2)
      .Int(2)
      .Int(3)
      .Text(std::string(kLarge, 'x'))
      .Text("")
      .Text("")
      .Text("")
      .Text("")
      .Publish(SH_CALL_LOG_LIST);
  bttest::LogCapture log;
  std::list<MWPTypeCallLog> logs;
  {
    const bttest::ShortOfMemory here(kLarge);
    EXPECT_NO_THROW(EXPECT_EQ(m_adapter.GetCallLogList(CallLogType(0), logs), 1));
  }
  ASSERT_EQ(logs.size(), 1u);
  EXPECT_EQ(logs.front().strText1, "a");
  ExpectOutOfMemory(log, "GetCallLogList");
}

TEST_F(Lists, TheCallTableKeepsTheSlotBeforeTheOneThatFindsNoMemory) {
  constexpr std::size_t kLargeForACall = 1000;
  SegmentItems()
      .Int(2)
      .Int(1)
      .Int(2)
      .Int(3)
      .Int(4)
      .Int(5)
      .Text("a")
      .Text("b")
      .Text("c")
      .Int(6)
      .Int(7)
      .Int(8)
      .Int(9)
      .Int(10)
      .Text(std::string(kLargeForACall, 'x'))
      .Text("")
      .Text("")
      .Publish(SH_CALL_INFO_LIST);
  bttest::LogCapture log;
  MWPTypeCallInfo info;
  {
    const bttest::ShortOfMemory here(kLargeForACall);
    EXPECT_NO_THROW(EXPECT_EQ(m_adapter.GetCurrentCallInfo(info), 1));
  }
  EXPECT_EQ(info.callSlot1.strText1, "a");
  EXPECT_EQ(info.callSlot2.nValue1, 0);
  EXPECT_EQ(info.callSlot2.strText1, "");
  ExpectOutOfMemory(log, "GetCurrentCallInfo");
}

}  // namespace
