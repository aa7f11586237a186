// What outlives the client: the proxy with its handlers, one segment, and memory that stays mapped.

#include <gmock/gmock.h>

#include "ipc/BtClientIpcAdapter.h"
#include "ipc/ShareMemory/ShareMemory.h"
#include "system/fixtures.h"

namespace bttest {
namespace {

using testing::ElementsAre;

struct AfterDestroy : Started {
  AfterDestroy() { MWP_DestroyBlueTooth(); }

  ComZelkLinuxBluetooth* const proxy = g_BtProxy;
};

TEST_F(AfterDestroy, TheProxyIsKeptAndCarriesTheRequestsOfAnAdapter) {
  EXPECT_EQ(g_BtProxy, proxy);
  service.SetReply("SetPower", g_variant_new("(i)", 5));
  BtClientIpcAdapter adapter;
  EXPECT_EQ(adapter.SetPower(1), 5);
  EXPECT_THAT(service.TakeCallTexts(), ElementsAre("SetPower(byte 0x01,)"));
}

TEST_F(AfterDestroy, ASignalMakesAClientThatIsNotStarted) {
  EmitPower(service, MWPBtType::BT_POWER_ON);
  EXPECT_TRUE(RunUntil([] { return Client::ms_pSingleton != nullptr; }));
  EXPECT_EQ(Flags(), 0);
}

TEST_F(AfterDestroy, ASecondStartSubscribesOnceMoreSoThatAnEventArrivesOnBothProxies) {
  PowerEvents listener;
  ASSERT_EQ(MWP_CreateBlueTooth(), 1);
  ASSERT_NE(g_BtProxy, proxy);
  EmitPower(service, MWPBtType::BT_POWER_ON);
  EmitPower(service, MWPBtType::BT_POWER_OFF);
  EXPECT_TRUE(RunUntil([&] { return listener.Seen().size() >= 4; }));
  EXPECT_THAT(listener.Seen(), ElementsAre(MWPBtType::BT_POWER_ON, MWPBtType::BT_POWER_ON,
                                           MWPBtType::BT_POWER_OFF, MWPBtType::BT_POWER_OFF));
}

TEST_F(AfterDestroy, AllSegmentsAreForgottenButTheCallTable) {
  for (int id = SH_PAIRED_LIST; id <= SH_BT_PARAMETER; ++id) {
    EXPECT_EQ(ShareMemory::GetShareMemory(static_cast<ShareMemID>(id)) != nullptr, id == SH_CALL_INFO_LIST)
        << id;
    EXPECT_EQ(FindSegment(static_cast<ShareMemID>(id))->attachments, 1u) << id << " is not detached";
  }
}

TEST_F(AfterDestroy, TheNextClientAttachesAllAgainAndReadsTheCallTableWhereItWas) {
  void* const callTable = ShareMemory::GetShareMemory(SH_CALL_INFO_LIST);
  Client::GetInstance();
  EXPECT_EQ(ShareMemory::GetShareMemory(SH_CALL_INFO_LIST), callTable);
  for (int id = SH_PAIRED_LIST; id <= SH_BT_PARAMETER; ++id) {
    EXPECT_NE(ShareMemory::GetShareMemory(static_cast<ShareMemID>(id)), nullptr) << id;
  }
}

}  // namespace
}  // namespace bttest
