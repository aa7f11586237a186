// The lists and tables out of shared memory, from segments that the test writes, with the recording service.

#include <functional>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/SegmentItems.h"
#include "tests/async/AsyncFixture.h"

namespace {

using namespace btasync;
using bttest::SegmentItems;
using bttest::Wait;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::vector<std::string> kThreeTimes{"GetContactList()",  "GetContactCount()", "GetContactList()",
                                           "GetContactCount()", "GetContactList()",  "GetContactCount()"};

SegmentItems& Contact(SegmentItems& items, int id, const std::string& name) {
  return items.Int(id).Text(name).Text("Arndt").Int(1).Int(1).Int(1).Text("+4917" + std::to_string(id));
}

SegmentItems ContactList(int count) {
  SegmentItems items;
  items.Int(count);
  for (int id = 1; id <= count; ++id) {
    Contact(items, id, "Ada " + std::to_string(id));
  }
  return items;
}

/// A log with an entry of each of these kinds.
SegmentItems CallLogList(const std::vector<int>& kinds) {
  SegmentItems items;
  items.Int(static_cast<int>(kinds.size()));
  int id = 10;
  for (const int kind : kinds) {
    items.Int(id++).Int(-1).Int(kind);
    items.Text("Ada").Text("+4917").Text("2026-05-31").Text("18:05:00").Text("0");
  }
  return items;
}

SegmentItems DeviceList(const std::vector<std::string>& addresses) {
  SegmentItems items;
  items.Int(static_cast<int>(addresses.size()));
  for (const std::string& address : addresses) {
    items.Int(BT_PROFILE_HFP).Int(BT_PROFILE_HFP_A2DP).Int(BT_CONN_CONNECTED).Int(BT_SUPPORT_ANDROID_AUTO);
    items.Text(address).Text("Ada's phone");
  }
  return items;
}

class ListsTest : public testing::Test {
 protected:
  ListsTest() {
    for (const SegmentEntry& entry : kSegmentCatalogue) {
      bttest::CreateSegment(entry.id, entry.size);
    }
    for (const char* const method : {"GetContactList", "GetFavContactList", "GetCallLogList"}) {
      recorder.SetReply(method, g_variant_new("(b)", TRUE));
    }
  }

  void Count(int count) {
    recorder.SetReply("GetContactCount", g_variant_new("(i)", count));
    recorder.SetReply("GetCallLogCount", g_variant_new("(i)", count));
  }

  bttest::BusDaemon bus;
  bttest::Recorder recorder;
  Service service;
};

TEST_F(ListsTest, ContactsAreAskedForCountedAndRead) {
  ContactList(2).Publish(SH_CONTACT_LIST);
  Count(2);
  const auto contacts = Wait(service.Contacts());
  ASSERT_TRUE(contacts) << contacts.Why().detail;
  ASSERT_EQ(contacts->size(), 2u);
  EXPECT_EQ(contacts->back().nContactId, 2);
  EXPECT_EQ(contacts->back().strText1, "Ada 2");
  EXPECT_EQ(contacts->back().strText2, "Arndt");
  ASSERT_EQ(contacts->back().listNumbers.size(), 1u);
  EXPECT_EQ(contacts->back().listNumbers.front().nType, 1);
  EXPECT_THAT(contacts->back().listNumbers.front().vecValues, ElementsAre("+49172"));
  EXPECT_THAT(recorder.TakeCallTexts(), ElementsAre("GetContactList()", "GetContactCount()"));
}

TEST_F(ListsTest, FavouritesAreReadFromTheirOwnPlace) {
  ContactList(1).Publish(SH_FAV_CONTACT_LIST);
  ContactList(2).Publish(SH_CONTACT_LIST);
  const auto contacts = Wait(service.FavoriteContacts());
  ASSERT_TRUE(contacts) << contacts.Why().detail;
  EXPECT_EQ(contacts->size(), 1u);
  EXPECT_THAT(recorder.TakeCallTexts(), ElementsAre("GetFavContactList()", "GetContactCount()"));
}

TEST_F(ListsTest, CallLogsAreThoseOfTheTypeThatWasAskedFor) {
  CallLogList({CALL_LOG_MISSED, CALL_LOG_MISSED}).Publish(SH_CALL_LOG_LIST);
  Count(2);
  const auto logs = Wait(service.CallLogs(CALL_LOG_MISSED));
  ASSERT_TRUE(logs) << logs.Why().detail;
  ASSERT_EQ(logs->size(), 2u);
  EXPECT_EQ(logs->back().nLogId, 11);
  EXPECT_EQ(logs->back().strText4, "18:05:00");
  EXPECT_THAT(recorder.TakeCallTexts(),
              ElementsAre("GetCallLogList(byte 0x03,)", "GetCallLogCount(byte 0x03,)"));
}

TEST_F(ListsTest, OneContactIsAListOfOne) {
  ContactList(1).Publish(SH_CONTACT_INFO);
  const auto contact = Wait(service.GetContact(7));
  ASSERT_TRUE(contact) << contact.Why().detail;
  EXPECT_EQ(contact->strText1, "Ada 1");
  EXPECT_THAT(recorder.TakeCallTexts(), ElementsAre("GetContactByIndex(7,)", "GetContactCount()"));
  SegmentItems().Int(0).Publish(SH_CONTACT_INFO);
  EXPECT_TRUE(Wait(service.GetContact(7)).Refused());
}

TEST_F(ListsTest, OneEntryOfALogIsTheOneWithItsId) {
  CallLogList({CALL_LOG_MISSED}).Publish(SH_CALL_LOG_INFO);
  const auto log = Wait(service.GetCallLog(10));
  ASSERT_TRUE(log) << log.Why().detail;
  EXPECT_EQ(log->nValue2, CALL_LOG_MISSED);
  EXPECT_THAT(recorder.TakeCallTexts(), ElementsAre("GetCallLogById(10,)", "GetContactCount()"));
  const auto other = Wait(service.GetCallLog(11));
  ASSERT_TRUE(other.Failed());
  EXPECT_EQ(other.Why().detail, "SH_CALL_LOG_INFO holds another entry");
}

TEST_F(ListsTest, PairedDevicesNeedNoCall) {
  DeviceList({"00:1A:7D:DA:71:13", "00:1a:7d:da:71:14"}).Publish(SH_PAIRED_LIST);
  const auto devices = Wait(service.PairedDevices());
  ASSERT_TRUE(devices) << devices.Why().detail;
  ASSERT_EQ(devices->size(), 2u);
  EXPECT_EQ(devices->front().strAddr, "00:1A:7D:DA:71:13");
  EXPECT_EQ(devices->front().strName, "Ada's phone");
  EXPECT_EQ(devices->front().eProfileId, BT_PROFILE_HFP);
  EXPECT_EQ(devices->front().eEnableProfileId, BT_PROFILE_HFP_A2DP);
  EXPECT_EQ(devices->front().eConnectStatus, BT_CONN_CONNECTED);
  EXPECT_EQ(devices->front().eSupportType, BT_SUPPORT_ANDROID_AUTO);
  EXPECT_THAT(recorder.TakeCallTexts(), IsEmpty());
}

TEST_F(ListsTest, CurrentCallsNeedNoCall) {
  SegmentItems items;
  items.Int(1);
  items.Int(1).Int(BT_CALL_ACTIVE).Int(1).Int(0).Int(65).Text("+4917").Text("Ada").Text("00:1A:7D:DA:71:13");
  items.Int(0).Int(0).Int(0).Int(0).Int(0).Text("").Text("").Text("");
  items.Publish(SH_CALL_INFO_LIST);
  const auto calls = Wait(service.CurrentCalls());
  ASSERT_TRUE(calls) << calls.Why().detail;
  EXPECT_EQ(calls->nCallCount, 1);
  EXPECT_EQ(calls->callSlot1.nValue5, 65);
  EXPECT_EQ(calls->callSlot1.strText2, "Ada");
  EXPECT_THAT(recorder.TakeCallTexts(), IsEmpty());
}

}  // namespace
