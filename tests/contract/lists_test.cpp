// The lists that a service publishes in shared memory: asked for over the bus, read from the segment.

#include <list>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "contract/lists_fixture.h"
#include "ipc/ShareMemory/ShareMemory.h"
#include "ipc/ShareMemory/ShmUnPackUtils.h"
#include "support/LogCapture.h"

namespace {

using bttest::Lists;
using bttest::SegmentItems;

SegmentItems& AddContact(SegmentItems& packer, int id, const std::string& first, const std::string& second) {
  return packer.Int(id).Text(first).Text(second).Int(1).Int(2).Int(1).Text("+49 123");
}

SegmentItems& AddLog(SegmentItems& packer, int id) {
  return packer.Int(id).Int(id + 1).Int(id + 2).Text("a").Text("").Text("ccc").Text("d").Text("e");
}

TEST_F(Lists, ContactsAreReadWithTheirGroupsAndNumbersInOrder) {
  SegmentItems packer;
  packer.Int(2);
  packer.Int(7).Text("J\u00fcrgen").Text("M").Int(2);
  packer.Int(1).Int(2).Text("111").Text("222");
  packer.Int(3).Int(1).Text("333");
  AddContact(packer, -5, "", "x");
  packer.Publish(SH_CONTACT_LIST);

  bttest::LogCapture log;
  std::list<MWPTypeContact> contacts(3);
  EXPECT_EQ(m_adapter.GetContactList(contacts), 1);
  ASSERT_EQ(contacts.size(), 2u);
  const MWPTypeContact& first = contacts.front();
  EXPECT_EQ(first.nContactId, 7);
  EXPECT_EQ(first.strText1, "J\u00fcrgen");
  EXPECT_EQ(first.strText2, "M");
  ASSERT_EQ(first.listNumbers.size(), 2u);
  EXPECT_EQ(first.listNumbers.front().nType, 1);
  EXPECT_EQ(first.listNumbers.front().vecValues, (std::vector<std::string>{"111", "222"}));
  EXPECT_EQ(first.listNumbers.back().nType, 3);
  EXPECT_EQ(first.listNumbers.back().vecValues, std::vector<std::string>{"333"});
  EXPECT_EQ(contacts.back().nContactId, -5);
  EXPECT_EQ(contacts.back().strText1, "");
  EXPECT_EQ(m_recorder.TakeCallTexts(), std::vector<std::string>{"GetContactList()"});
  EXPECT_EQ(log.Messages(),
            (std::vector<std::string>{
                "BtClientIpcAdapter::GetContactList - BtClientIpcAdapter::GetContactList +++",
                "BtClientIpcAdapter::GetContactList - BtClientIpcAdapter::GetContactList ---"}));
  EXPECT_EQ(log.OfLevel(20).size(), 2u);
}

TEST_F(Lists, FavouritesComeFromTheirOwnSegmentUnderTheirOwnLogTexts) {
  SegmentItems packer;
  packer.Int(1);
  AddContact(packer, 1, "a", "b").Publish(SH_FAV_CONTACT_LIST);
  bttest::LogCapture log;
  std::list<MWPTypeContact> contacts;
  EXPECT_EQ(m_adapter.GetFavContactList(contacts), 1);
  EXPECT_EQ(contacts.size(), 1u);
  EXPECT_EQ(m_recorder.TakeCallTexts(), std::vector<std::string>{"GetFavContactList()"});
  EXPECT_EQ(log.Messages(), (std::vector<std::string>{"BtClientIpcAdapter::GetFavContactList  +++",
                                                      "BtClientIpcAdapter::GetFavContactList ---"}));
}

TEST_F(Lists, AnEmptySegmentYieldsAnEmptyListAndTheServicesResult) {
  for (const int result : {1, 0}) {
    m_recorder.SetReply("GetContactList", g_variant_new("(b)", result));
    std::list<MWPTypeContact> contacts(3);
    EXPECT_EQ(m_adapter.GetContactList(contacts), result);
    EXPECT_TRUE(contacts.empty());
  }
}

TEST_F(Lists, AGroupWithoutNumbersHasAnEmptyVector) {
  SegmentItems().Int(1).Int(1).Text("a").Text("b").Int(1).Int(4).Int(0).Publish(SH_CONTACT_LIST);
  std::list<MWPTypeContact> contacts;
  m_adapter.GetContactList(contacts);
  ASSERT_EQ(contacts.size(), 1u);
  ASSERT_EQ(contacts.front().listNumbers.size(), 1u);
  EXPECT_EQ(contacts.front().listNumbers.front().nType, 4);
  EXPECT_TRUE(contacts.front().listNumbers.front().vecValues.empty());
}

TEST_F(Lists, IntegersAfterTextsOfAnyLengthAreReadFromUnalignedAddresses) {
  for (const char* text : {"", "1", "12", "123", "1234"}) {
    SegmentItems()
        .Int(1)
        .Int(0x01020304)
        .Text(text)
        .Text("")
        .Int(1)
        .Int(-2)
        .Int(1)
        .Text(text)
        .Publish(SH_CONTACT_LIST);
    std::list<MWPTypeContact> contacts;
    m_adapter.GetContactList(contacts);
    ASSERT_EQ(contacts.size(), 1u);
    EXPECT_EQ(contacts.front().nContactId, 0x01020304);
    ASSERT_EQ(contacts.front().listNumbers.size(), 1u);
    EXPECT_EQ(contacts.front().listNumbers.front().nType, -2);
  }
}

TEST_F(Lists, AFailedCallLeavesTheListAsItWasAndAnswersOne) {
  std::list<MWPTypeContact> contacts(3);
  std::list<MWPTypeCallLog> logs(2);
  for (const char* method : {"GetContactList", "GetFavContactList", "GetCallLogList"}) {
    m_recorder.FailNext(method);
  }
  bttest::LogCapture log;
  EXPECT_EQ(m_adapter.GetContactList(contacts), 1);
  EXPECT_EQ(m_adapter.GetFavContactList(contacts), 1);
  EXPECT_EQ(m_adapter.GetCallLogList(CALL_LOG_ALL, logs), 1);
  EXPECT_EQ(contacts.size(), 3u);
  EXPECT_EQ(logs.size(), 2u);
  // The opening line of each is logged, the closing one is not.
  EXPECT_EQ(log.OfLevel(20).size(), 2u);
  EXPECT_EQ(log.OfLevel(100).size(), 3u);
}

TEST_F(Lists, AListThatIsFetchedAgainIsReplacedInFull) {
  SegmentItems large;
  large.Int(3);
  for (const int id : {1, 2, 3}) {
    AddContact(large, id, "a long first name of many letters", "b");
  }
  large.Publish(SH_CONTACT_LIST);
  std::list<MWPTypeContact> contacts;
  m_adapter.GetContactList(contacts);
  ASSERT_EQ(contacts.size(), 3u);

  SegmentItems().Int(1).Int(9).Text("x").Text("").Int(0).Publish(SH_CONTACT_LIST);
  m_adapter.GetContactList(contacts);
  ASSERT_EQ(contacts.size(), 1u);
  EXPECT_EQ(contacts.front().nContactId, 9);
  EXPECT_EQ(contacts.front().strText1, "x");
  EXPECT_TRUE(contacts.front().listNumbers.empty());
}

TEST_F(Lists, CallLogsAreAppendedSoThatFetchingTwiceYieldsEveryEntryTwice) {
  SegmentItems packer;
  packer.Int(2);
  AddLog(packer, 10);
  AddLog(packer, 20).Publish(SH_CALL_LOG_LIST);
  std::list<MWPTypeCallLog> logs;
  bttest::LogCapture log;
  EXPECT_EQ(m_adapter.GetCallLogList(CALL_LOG_MISSED, logs), 1);
  EXPECT_EQ(m_adapter.GetCallLogList(static_cast<CallLogType>(256 + 2), logs), 1);
  EXPECT_TRUE(log.Records().empty());
  ASSERT_EQ(logs.size(), 4u);
  const MWPTypeCallLog& first = logs.front();
  EXPECT_EQ(first.nLogId, 10);
  EXPECT_EQ(first.nValue1, 11);
  EXPECT_EQ(first.nValue2, 12);
  EXPECT_EQ(first.strText1 + "|" + first.strText2 + "|" + first.strText3 + "|" + first.strText4 + "|" +
                first.strText5,
            "a||ccc|d|e");
  std::vector<int> ids;
  for (const MWPTypeCallLog& entry : logs) {
    ids.push_back(entry.nLogId);
  }
  EXPECT_EQ(ids, (std::vector<int>{10, 20, 10, 20}));
  EXPECT_EQ(m_recorder.TakeCallTexts(),
            (std::vector<std::string>{"GetCallLogList(byte 0x03,)", "GetCallLogList(byte 0x02,)"}));
}

TEST_F(Lists, ALogThatSomebodyElseAskedForMeanwhileIsWhatIsReadAndItsEntriesSayWhichItIs) {
  // Asking and reading are two steps, and everybody shares one segment.
  constexpr int kMissed = 3;
  constexpr int kOutgoing = 2;
  const auto publish = [](int log) {
    SegmentItems packer;
    packer.Int(1).Int(5).Int(-1).Int(log).Text("").Text("").Text("").Text("").Text("");
    packer.Publish(SH_CALL_LOG_LIST);
  };
  m_recorder.Hang("GetCallLogList");
  std::list<MWPTypeCallLog> logs;
  std::thread asking([&] { m_adapter.GetCallLogList(CALL_LOG_MISSED, logs); });
  EXPECT_TRUE(m_recorder.WaitForCalls(1));
  publish(kMissed);
  publish(kOutgoing);  // for somebody else
  m_recorder.Release("GetCallLogList");
  asking.join();
  ASSERT_EQ(logs.size(), 1u);
  EXPECT_EQ(logs.front().nValue2, kOutgoing);
}

TEST_F(Lists, AMissingSegmentClearsContactsAndLeavesCallLogs) {
  ShareMemory::DetachShareMemory(SH_CONTACT_LIST);
  ShareMemory::DetachShareMemory(SH_CALL_LOG_LIST);
  bttest::LogCapture log;
  std::list<MWPTypeContact> contacts(2);
  std::list<MWPTypeCallLog> logs(2);
  EXPECT_EQ(m_adapter.GetContactList(contacts), 1);
  EXPECT_EQ(m_adapter.GetCallLogList(CALL_LOG_ALL, logs), 1);
  EXPECT_TRUE(contacts.empty());
  EXPECT_EQ(logs.size(), 2u);
  EXPECT_TRUE(log.OfLevel(100).empty());
}

TEST_F(Lists, ASegmentThatIsNoListIsNotUnpacked) {
  // Without its row in the table of lists, a segment reads as empty.
  SegmentItems packer;
  packer.Int(1);
  AddContact(packer, 1, "a", "b").Publish(SH_CONTACT_LIST);
  g_ShmIdMap.erase(SH_CONTACT_LIST);
  std::list<MWPTypeContact> contacts(2);
  EXPECT_EQ(m_adapter.GetContactList(contacts), 1);
  EXPECT_TRUE(contacts.empty());
}

TEST_F(Lists, CallInfoIsReadWithoutACallAndBothSlotsWhateverTheCountSays) {
  SegmentItems packer;
  packer.Int(1);
  packer.Int(1).Int(2).Int(3).Int(4).Int(5).Text("a").Text("bb").Text("ccc");
  packer.Int(-1).Int(-2).Int(-3).Int(-4).Int(-5).Text("").Text("").Text("z");
  packer.Publish(SH_CALL_INFO_LIST);
  MWPTypeCallInfo info;
  EXPECT_EQ(m_adapter.GetCurrentCallInfo(info), 1);
  EXPECT_EQ(info.nCallCount, 1);
  EXPECT_EQ(info.callSlot1.nValue1, 1);
  EXPECT_EQ(info.callSlot1.nValue4, 4);
  EXPECT_EQ(info.callSlot1.nValue5, 5);
  EXPECT_EQ(info.callSlot1.strText1 + info.callSlot1.strText2 + info.callSlot1.strText3, "abbccc");
  EXPECT_EQ(info.callSlot2.nValue1, -1);
  EXPECT_EQ(info.callSlot2.nValue5, -5);
  EXPECT_EQ(info.callSlot2.strText3, "z");
  EXPECT_TRUE(m_recorder.TakeCalls().empty());
}

TEST_F(Lists, CallInfoWithoutItsSegmentIsACountOfZeroAndTheRestUnchanged) {
  ShareMemory::DetachShareMemory(SH_CALL_INFO_LIST);
  MWPTypeCallInfo info;
  info.nCallCount = 5;
  info.callSlot2.strText1 = "as it was";
  EXPECT_EQ(m_adapter.GetCurrentCallInfo(info), 1);
  EXPECT_EQ(info.nCallCount, 0);
  EXPECT_EQ(info.callSlot2.strText1, "as it was");
}

/// The ids of the contacts that are read, and the one error line that must be logged meanwhile.
std::vector<int> ReadCorrupt(BtClientIpcAdapter& adapter, const std::string& error) {
  bttest::LogCapture log;
  std::list<MWPTypeContact> contacts;
  EXPECT_EQ(adapter.GetContactList(contacts), 1);
  const auto errors = log.OfLevel(100);
  EXPECT_EQ(errors.size(), 1u);
  if (!errors.empty()) {
    EXPECT_EQ(errors[0].message, error);
    EXPECT_EQ(errors[0].function, "GetContactList");
    EXPECT_EQ(errors[0].file, "ipc/BtClientIpcAdapter");
  }
  std::vector<int> ids;
  for (const MWPTypeContact& contact : contacts) {
    ids.push_back(contact.nContactId);
  }
  return ids;
}

TEST_F(Lists, ANegativeCountYieldsNoRecordAndOneErrorLine) {
  SegmentItems packer;
  packer.Int(-1);
  AddContact(packer, 1, "a", "b").Publish(SH_CONTACT_LIST);
  EXPECT_EQ(
      ReadCorrupt(m_adapter,
                  "GetContactList: SH_CONTACT_LIST, announced records -1, at byte 0: a count is negative or "
                  "too large for the segment; what was whole is kept"),
      std::vector<int>{});
}

TEST_F(Lists, AnAbsurdCountYieldsTheRecordsThatAreThereAndNoneMadeOfZeros) {
  SegmentItems packer;
  packer.Int(2147483647);
  AddContact(packer, 1, "a", "b");
  AddContact(packer, 2, "c", "d").Publish(SH_CONTACT_LIST);
  EXPECT_EQ(
      ReadCorrupt(m_adapter,
                  "GetContactList: SH_CONTACT_LIST, announced records 2147483647, at byte 0: a count is "
                  "negative or too large for the segment; what was whole is kept"),
      (std::vector<int>{1, 2}));
}

TEST_F(Lists, ATextWithoutAnEndKeepsTheRecordsBeforeIt) {
  SegmentItems packer;
  packer.Int(3);
  AddContact(packer, 1, "a", "b");
  packer.Int(2).Raw(std::string(kSegmentCatalogue[SH_CONTACT_LIST].size, 'x')).Publish(SH_CONTACT_LIST);
  EXPECT_EQ(ReadCorrupt(m_adapter,
                        "GetContactList: SH_CONTACT_LIST, record 2, at byte 32: a text has no end inside the "
                        "segment; what was whole is kept"),
            std::vector<int>{1});
}

TEST_F(Lists, ABadCountInsideARecordKeepsTheRecordsBeforeIt) {
  for (const int count : {-1, 2147483647, 300000}) {
    SegmentItems packer;
    packer.Int(3);
    AddContact(packer, 1, "a", "b");
    packer.Int(2).Text("c").Text("d").Int(count).Publish(SH_CONTACT_LIST);
    EXPECT_EQ(
        ReadCorrupt(m_adapter,
                    "GetContactList: SH_CONTACT_LIST, record 2, at byte 32: a count is negative or too large "
                    "for the segment; what was whole is kept"),
        std::vector<int>{1});
  }
}

TEST_F(Lists, ACorruptCallTableKeepsTheSlotThatIsWhole) {
  SegmentItems packer;
  packer.Int(2);
  packer.Int(1).Int(2).Int(3).Int(4).Int(5).Text("a").Text("b").Text("c");
  packer.Int(6).Int(7).Int(8).Int(9).Int(10).Raw(std::string(2048, 'x'));
  packer.Publish(SH_CALL_INFO_LIST);
  bttest::LogCapture log;
  MWPTypeCallInfo info;
  info.callSlot2.strText1 = "as it was";
  EXPECT_EQ(m_adapter.GetCurrentCallInfo(info), 1);
  EXPECT_EQ(info.nCallCount, 2);
  EXPECT_EQ(info.callSlot1.strText3, "c");
  EXPECT_EQ(info.callSlot2.strText1, "as it was");
  ASSERT_EQ(log.OfLevel(100).size(), 1u);
  EXPECT_EQ(
      log.OfLevel(100)[0].message,
      "GetCurrentCallInfo: SH_CALL_INFO_LIST, slot 2, at byte 30: a text has no end inside the segment; what "
      "was whole is kept");
}

constexpr ShareMemID kListSegments[] = {SH_PAIRED_LIST, SH_CONTACT_LIST, SH_FAV_CONTACT_LIST,
                                        SH_CALL_LOG_LIST, SH_CALL_INFO_LIST};

TEST_F(Lists, UnpackUtilsReadTheCountAndTextsAtTheirCursor) {
  for (const ShareMemID id : kListSegments) {
    SegmentItems().Int(3).Text("first").Text("").Text("third").Publish(id);
    ShmUnPackUtils unpack;
    EXPECT_EQ(sizeof unpack, sizeof(void*));
    std::string text = "as it was";
    EXPECT_FALSE(unpack.UnPackDataFromShareMemory(text));
    EXPECT_EQ(text, "as it was");
    EXPECT_EQ(unpack.StartShmUnPackList(id), 3);
    for (const char* expected : {"first", "", "third"}) {
      EXPECT_TRUE(unpack.UnPackDataFromShareMemory(text));
      EXPECT_EQ(text, expected) << id;
    }
  }
}

TEST_F(Lists, UnpackUtilsDoNotStartOnASegmentThatIsNoListAndStayWhereTheyAre) {
  SegmentItems().Int(1).Text("first").Publish(SH_PAIRED_LIST);
  ShmUnPackUtils unpack;
  ASSERT_EQ(unpack.StartShmUnPackList(SH_PAIRED_LIST), 1);
  EXPECT_EQ(unpack.StartShmUnPackList(SH_CONTACT_INFO), 0);
  EXPECT_EQ(unpack.StartShmUnPackList(SH_BT_PARAMETER), 0);
  std::string text;
  EXPECT_TRUE(unpack.UnPackDataFromShareMemory(text));
  EXPECT_EQ(text, "first");
}

TEST_F(Lists, UnpackUtilsReadNothingAfterAStartOnASegmentThatIsNotThere) {
  SegmentItems().Int(1).Text("first").Publish(SH_PAIRED_LIST);
  ShmUnPackUtils unpack;
  ASSERT_EQ(unpack.StartShmUnPackList(SH_PAIRED_LIST), 1);
  ShareMemory::DetachShareMemory(SH_CONTACT_LIST);
  EXPECT_EQ(unpack.StartShmUnPackList(SH_CONTACT_LIST), 0);
  std::string text = "as it was";
  EXPECT_FALSE(unpack.UnPackDataFromShareMemory(text));
  EXPECT_EQ(text, "as it was");
}

TEST_F(Lists, UnpackUtilsStopAtATextWithoutAnEnd) {
  for (const ShareMemID id : kListSegments) {
    SegmentItems().Int(1).Raw(std::string(kSegmentCatalogue[id].size - sizeof(int), 'x')).Publish(id);
    ShmUnPackUtils unpack;
    EXPECT_EQ(unpack.StartShmUnPackList(id), 1);
    bttest::LogCapture log;
    std::string text = "as it was";
    EXPECT_FALSE(unpack.UnPackDataFromShareMemory(text)) << id;
    EXPECT_EQ(text, "as it was");
    EXPECT_EQ(log.OfLevel(100).size(), 1u);
  }
}

TEST_F(Lists, UnpackUtilsReadOnInASegmentThatWasDestroyed) {
  // The end of the last text is that of the segment.
  const std::size_t before = sizeof(std::int32_t) + sizeof("first");
  const std::string longest(kSegmentCatalogue[SH_FAV_CONTACT_LIST].size - before - 1, 'x');
  SegmentItems().Int(1).Text("first").Text(longest).Publish(SH_FAV_CONTACT_LIST);
  ShmUnPackUtils unpack;
  EXPECT_EQ(unpack.StartShmUnPackList(SH_FAV_CONTACT_LIST), 1);
  std::string text;
  ASSERT_TRUE(unpack.UnPackDataFromShareMemory(text));
  ShareMemory::DestroyShareMemory(SH_FAV_CONTACT_LIST);
  // The next client attaches another one, of which it uses less.
  ASSERT_TRUE(ShareMemory::InitShareMemory(SH_FAV_CONTACT_LIST, 4096));
  {
    bttest::LogCapture log;
    EXPECT_TRUE(unpack.UnPackDataFromShareMemory(text));
    EXPECT_TRUE(text == longest);
    EXPECT_EQ(log.Messages(), std::vector<std::string>());
  }
  bttest::WriteSegment(SH_FAV_CONTACT_LIST, 0, SegmentItems().Int(1).Raw(std::string(4092, 'x')).Bytes());
  ShmUnPackUtils next;
  EXPECT_EQ(next.StartShmUnPackList(SH_FAV_CONTACT_LIST), 1);
  EXPECT_FALSE(next.UnPackDataFromShareMemory(text));
}

TEST_F(Lists, UnpackUtilsSayThatTheirSegmentWasDetachedAndReadNothing) {
  SegmentItems().Int(1).Text("first").Text("second").Publish(SH_PAIRED_LIST);
  ShmUnPackUtils unpack;
  EXPECT_EQ(unpack.StartShmUnPackList(SH_PAIRED_LIST), 1);
  std::string text;
  ASSERT_TRUE(unpack.UnPackDataFromShareMemory(text));
  ShareMemory::DetachShareMemory(SH_PAIRED_LIST);
  bttest::LogCapture log;
  EXPECT_FALSE(unpack.UnPackDataFromShareMemory(text));
  EXPECT_EQ(text, "first");
  EXPECT_EQ(log.Messages(), std::vector<std::string>{"the segment that is being unpacked has been detached"});
  EXPECT_EQ(log.OfLevel(100).size(), 1u);
}

}  // namespace
