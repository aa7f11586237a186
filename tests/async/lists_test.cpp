// The lists and tables out of shared memory, from segments that the test writes, with the recording service.

#include <gmock/gmock.h>

#include "tests/async/ListsFixture.h"

namespace {

using namespace btasync;
using bttest::CallItems;
using bttest::CallLogItems;
using bttest::ContactItems;
using bttest::DeviceItems;
using bttest::SegmentItems;
using bttest::Wait;
using bttest::WaitFor;
using testing::ElementsAre;
using testing::IsEmpty;

using ListsTest = bttest::ListsFixture;

TEST_F(ListsTest, ContactsAreAskedForCountedAndRead) {
  ContactItems(2).Publish(SH_CONTACT_LIST);
  SetCount(2);
  const auto contacts = Wait(service.Contacts());
  ASSERT_TRUE(contacts) << contacts.Why().detail;
  ASSERT_EQ(contacts->size(), 2u);
  EXPECT_EQ(contacts->back().nContactId, 2);
  EXPECT_EQ(contacts->back().strText1, "Ada");
  EXPECT_EQ(contacts->back().strText2, "Arndt");
  ASSERT_EQ(contacts->back().listNumbers.size(), 1u);
  EXPECT_EQ(contacts->back().listNumbers.front().nType, 1);
  EXPECT_THAT(contacts->back().listNumbers.front().vecValues, ElementsAre("+49172"));
  EXPECT_THAT(recorder.TakeCallTexts(), ElementsAre("GetContactList()", "GetContactCount()"));
}

TEST_F(ListsTest, FavouritesAreReadFromTheirOwnPlace) {
  ContactItems(1).Publish(SH_FAV_CONTACT_LIST);
  ContactItems(2).Publish(SH_CONTACT_LIST);
  const auto contacts = Wait(service.FavoriteContacts());
  ASSERT_TRUE(contacts) << contacts.Why().detail;
  EXPECT_EQ(contacts->size(), 1u);
  EXPECT_THAT(recorder.TakeCallTexts(), ElementsAre("GetFavContactList()", "GetContactCount()"));
}

TEST_F(ListsTest, CallLogsAreThoseOfTheTypeThatWasAskedFor) {
  CallLogItems({CALL_LOG_MISSED, CALL_LOG_MISSED}).Publish(SH_CALL_LOG_LIST);
  SetCount(2);
  const auto logs = Wait(service.CallLogs(CALL_LOG_MISSED));
  ASSERT_TRUE(logs) << logs.Why().detail;
  ASSERT_EQ(logs->size(), 2u);
  EXPECT_EQ(logs->back().nLogId, 11);
  EXPECT_EQ(logs->back().strText4, "18:05:00");
  EXPECT_THAT(recorder.TakeCallTexts(),
              ElementsAre("GetCallLogList(byte 0x03,)", "GetCallLogCount(byte 0x03,)"));
}

TEST_F(ListsTest, OneContactIsAListOfOne) {
  ContactItems(1).Publish(SH_CONTACT_INFO);
  const auto contact = Wait(service.GetContact(7));
  ASSERT_TRUE(contact) << contact.Why().detail;
  EXPECT_EQ(contact->strText1, "Ada");
  EXPECT_THAT(recorder.TakeCallTexts(), ElementsAre("GetContactByIndex(7,)", "GetContactCount()"));
  SegmentItems().Int(0).Publish(SH_CONTACT_INFO);
  EXPECT_TRUE(Wait(service.GetContact(7)).Refused());
}

TEST_F(ListsTest, OneEntryOfALogIsTheOneWithItsId) {
  CallLogItems({CALL_LOG_MISSED}).Publish(SH_CALL_LOG_INFO);
  const auto log = Wait(service.GetCallLog(10));
  ASSERT_TRUE(log) << log.Why().detail;
  EXPECT_EQ(log->nValue2, CALL_LOG_MISSED);
  EXPECT_THAT(recorder.TakeCallTexts(), ElementsAre("GetCallLogById(10,)", "GetContactCount()"));
  const auto other = Wait(service.GetCallLog(11));
  ASSERT_TRUE(other.Failed());
  EXPECT_EQ(other.Why().detail, "SH_CALL_LOG_INFO holds another entry");
}

TEST_F(ListsTest, PairedDevicesNeedNoCall) {
  ASSERT_TRUE(Wait(service.GetPowerStatus()));
  EXPECT_THAT(recorder.TakeCallTexts(), ElementsAre("GetPowerStatus()"));
  DeviceItems({"00:1A:7D:DA:71:13", "00:1a:7d:da:71:14"}).Publish(SH_PAIRED_LIST);
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
  ASSERT_TRUE(Wait(service.GetPowerStatus()));
  EXPECT_THAT(recorder.TakeCallTexts(), ElementsAre("GetPowerStatus()"));
  CallItems(65).Publish(SH_CALL_INFO_LIST);
  const auto calls = Wait(service.CurrentCalls());
  ASSERT_TRUE(calls) << calls.Why().detail;
  EXPECT_EQ(calls->nCallCount, 1);
  EXPECT_EQ(calls->callSlot1.nValue5, 65);
  EXPECT_EQ(calls->callSlot1.strText2, "Ada");
  EXPECT_THAT(recorder.TakeCallTexts(), IsEmpty());
}

TEST_F(ListsTest, TablesAreReadOnceTheServiceHasAnswered) {
  DeviceItems({"00:1A:7D:DA:71:13"}).Publish(SH_PAIRED_LIST);
  for (const int times : {1, 2}) {
    EXPECT_TRUE(Wait(service.PairedDevices()));
    EXPECT_TRUE(Wait(service.PairedDevices()));
    EXPECT_THAT(recorder.TakeCallTexts(), ElementsAre("GetPowerStatus()")) << times;
    recorder.ReleaseName();
    ASSERT_TRUE(WaitFor(service, Availability::Absent));
    recorder.OwnName();
    ASSERT_TRUE(WaitFor(service, Availability::Present));
  }
  recorder.FailNext("GetPowerStatus", 1, "org.example.Tired", "not today");
  EXPECT_EQ(Wait(service.PairedDevices()).Why().reason, Reason::ServiceError);
}

}  // namespace
