// Requests, and news of the application manager, on many threads at once.

#include <list>
#include <map>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <bluetooth/MWPBtBle.h>
#include <bluetooth/MWPBtCom.h>
#include <bluetooth/MWPBtMedia.h>
#include <bluetooth/MWPBtMessage.h>
#include <bluetooth/MWPBtPbap.h>
#include <bluetooth/MWPBtPhone.h>
#include <bluetooth/MWPBtSpp.h>
#include <mwp/MWPAppMgrService.h>

#include "system/fixtures.h"
#include "system/run_together.h"

namespace bttest {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

constexpr std::size_t kThreads = 4;

struct ConcurrentRequests : Started {};

/// Every facade is asked for something, and every answer is another.
void AskEveryFacade() {
  MWPBtMedia media;
  EXPECT_EQ(MWPBtCom().GetPowerStatus(), 2);
  std::string name;
  EXPECT_EQ(MWPBtCom().GetAttribute(MWPBtType::BT_ATTR_LOCAL_NAME, name), 3);
  EXPECT_EQ(name, "the name of the car");
  EXPECT_EQ(MWPBtPhone().GetCurCallStatus(1), 4);
  EXPECT_EQ(MWPBtPhone().GetCurrentMobilePhoneNumber(), "+49170555100");
  std::vector<MWPTypePlayMode> modes;
  EXPECT_EQ(media.GetSupportPlayMode(modes), 1);
  EXPECT_EQ(modes.size(), 2u);
  std::list<MWPTypeContact> contacts;
  EXPECT_EQ(MWPBtPbap().GetContactList(contacts), 1);
  EXPECT_EQ(MWPBtPbap().GetContactCount(), 5);
  EXPECT_EQ(MWPBtMessage().GetMessageLoadStatus(), 8);
  EXPECT_EQ(MWPBtSpp().SppSendText("11:22:33:44:55:66", "text"), 1);
  EXPECT_EQ(MWPBtBle().BleGetAllService(), 2) << "the power status";
}

TEST_F(ConcurrentRequests, RequestsOfFourThreadsOverAllFacadesEachGetTheirOwnAnswer) {
  constexpr int kRounds = 25;
  service.SetReply("GetPowerStatus", g_variant_new("(y)", 2));
  service.SetReply("GetAttribute", g_variant_new("(sy)", "the name of the car", 3));
  service.SetReply("GetCurCallStatus", g_variant_new("(y)", 4));
  service.SetReply("GetCurrentMobilePhoneNumber", g_variant_new("(sb)", "+49170555100", TRUE));
  service.SetReply("GetSupportPlayMode", g_variant_new_parsed("([(byte 1, byte 2), (3, 4)], true)"));
  service.SetReply("GetContactList", g_variant_new("(b)", TRUE));
  service.SetReply("GetContactCount", g_variant_new("(i)", 5));
  service.SetReply("SppSendText", g_variant_new("(b)", TRUE));
  RunTogether(kThreads, [] {
    for (int round = 0; round < kRounds; ++round) {
      AskEveryFacade();
    }
  });
  std::map<std::string, unsigned> calls;
  for (const RecordedCall& call : service.TakeCalls()) {
    ++calls[call.method];
  }
  constexpr unsigned kEach = kThreads * kRounds;
  const std::map<std::string, unsigned> expected{
      {"GetPowerStatus", 2 * kEach}, {"GetAttribute", kEach},
      {"GetCurCallStatus", kEach},   {"GetCurrentMobilePhoneNumber", kEach},
      {"GetSupportPlayMode", kEach}, {"GetContactList", kEach},
      {"GetContactCount", kEach},    {"SppSendText", kEach}};
  EXPECT_EQ(calls, expected);
}

TEST_F(ConcurrentRequests, RequestsOfFourThreadsThatFailAreEachLoggedOnce) {
  constexpr unsigned kCalls = 50;
  service.FailNext("GetPowerStatus", kThreads * kCalls);
  LogCapture log;
  RunTogether(kThreads, [] {
    for (unsigned call = 0; call < kCalls; ++call) {
      EXPECT_EQ(MWPBtCom().GetPowerStatus(), 0);
    }
  });
  EXPECT_THAT(log.OfLevel(100), SizeIs(kThreads * kCalls));
  EXPECT_THAT(log.Complaints(), IsEmpty());
}

TEST_F(ConcurrentRequests, TheAppManagersNewsComeOnAThreadOfItsOwn) {
  constexpr int kNews = 200;
  LogCapture log;
  const auto notify = [] {
    for (int i = 0; i < kNews; ++i) {
      MWP_GetAppMgrService()->NotifyModuleStatus({SERVICE_MODULE_BLUETOOTH, 1});
    }
  };
  const auto request = [] {
    for (int i = 0; i < kNews; ++i) {
      EXPECT_EQ(MWPBtCom().GetPowerStatus(), 0);
    }
  };
  RunTogether({notify, request, request, [] { EXPECT_EQ(MWP_CreateBlueTooth(), 1); }});
  EXPECT_THAT(log.OfFunction("OnModuleStatusChanged"), SizeIs(kNews));
  EXPECT_EQ(Flags(), 1);
}

}  // namespace
}  // namespace bttest
