// The library with a service on the bus, but with segments that are missing or of another size.

#include <cstring>

#include <gmock/gmock.h>

#include <bluetooth/MWPBtCom.h>
#include <bluetooth/MWPBtPbap.h>
#include <bluetooth/MWPBtPhone.h>

#include "ipc/ShareMemory/ShareMemory.h"
#include "system/fixtures.h"

namespace bttest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct OddSegments : WithService {
  OddSegments() {
    service.SetReply("GetContactList", g_variant_new("(b)", TRUE));
    service.SetReply("GetPowerStatus", g_variant_new("(y)", MWPBtType::BT_POWER_ON));
  }

  /// Starts the library, which says on standard error what it cannot have.
  static int Create() {
    testing::internal::CaptureStderr();
    const int result = MWP_CreateBlueTooth();
    testing::internal::GetCapturedStderr();
    return result;
  }

  void ExpectRequestsAndEventsToWork() {
    PowerEvents listener;
    EXPECT_EQ(MWPBtCom().GetPowerStatus(), MWPBtType::BT_POWER_ON);
    EmitPower(service, MWPBtType::BT_POWER_OFF);
    EXPECT_TRUE(RunUntil([&] { return !listener.Seen().empty(); }));
  }
};

TEST_F(OddSegments, WithoutTheServicesFileTheLibraryStartsAndRequestsAndEventsWork) {
  RemoveServiceFile();
  EXPECT_EQ(Create(), 1);
  EXPECT_THAT(ShareMemory::m_ShmId_AddrMap, IsEmpty());
  ExpectRequestsAndEventsToWork();
}

TEST_F(OddSegments, WithoutTheServicesFileEveryListIsEmptyAndEveryCapabilityZero) {
  RemoveServiceFile();
  ASSERT_EQ(Create(), 1);
  std::list<MWPTypeContact> contacts(1);
  EXPECT_EQ(MWPBtPbap().GetContactList(contacts), 1);
  EXPECT_THAT(contacts, IsEmpty());
  std::list<MWPTypeCallLog> logs;
  MWPBtPbap().GetCallLogList(CALL_LOG_ALL, logs);
  EXPECT_THAT(logs, IsEmpty());
  MWPTypeCallInfo info;
  EXPECT_EQ(MWPBtPhone().GetCurrentCallInfo(info), 1);
  EXPECT_EQ(info.nCallCount, 0);
  EXPECT_EQ(MWPBtCom().GetCapability(MWPBtType::BT_CAP_POWER_SWITCH), 0);
}

TEST_F(OddSegments, ASegmentThatIsTooSmallIsDoneWithoutAndTheRestWorks) {
  CreateSegment(SH_CONTACT_LIST, 4096);
  EXPECT_EQ(Create(), 1);
  EXPECT_EQ(ShareMemory::m_ShmId_AddrMap.size(), 7u);
  ExpectRequestsAndEventsToWork();
  std::list<MWPTypeContact> contacts(1);
  EXPECT_EQ(MWPBtPbap().GetContactList(contacts), 1);
  EXPECT_THAT(contacts, IsEmpty());
  EXPECT_THAT(service.TakeCallTexts(), ElementsAre("GetPowerStatus()", "GetContactList()"));
}

TEST_F(OddSegments, ASegmentThatIsLargerIsReadAsIfItWereNot) {
  CreateSegment(SH_CONTACT_LIST, 4u << 20);
  ASSERT_EQ(MWP_CreateBlueTooth(), 1);
  // One contact with an id, two texts and no numbers.
  const std::vector<unsigned char> bytes{1, 0, 0, 0, 7, 0, 0, 0, 'a', 0, 'b', 0, 0, 0, 0, 0};
  WriteSegment(SH_CONTACT_LIST, 0, bytes);
  std::list<MWPTypeContact> contacts;
  EXPECT_EQ(MWPBtPbap().GetContactList(contacts), 1);
  ASSERT_EQ(contacts.size(), 1u);
  EXPECT_EQ(contacts.front().nContactId, 7);
  EXPECT_EQ(contacts.front().strText1, "a");
  EXPECT_EQ(contacts.front().strText2, "b");
}

TEST_F(OddSegments, WithAParameterSegmentThatIsTooSmallNoSettingIsLoadedAndEveryCapabilityIsZero) {
  CreateSegment(SH_BT_PARAMETER, 8);
  LogCapture log;
  EXPECT_EQ(Create(), 1);
  EXPECT_THAT(log.OfFunction("LoadPersistDataToSharemenory"), IsEmpty());
  EXPECT_EQ(MWPBtCom().GetCapability(MWPBtType::BT_CAP_POWER_SWITCH), 0);
  EXPECT_EQ(ReadSegment(SH_BT_PARAMETER, 0, 8), std::vector<unsigned char>(8));
  ExpectRequestsAndEventsToWork();
}

}  // namespace
}  // namespace bttest
