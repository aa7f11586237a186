// MWPBtClient::InitInstance, called directly: what it answers, and what it leaves.

#include <gmock/gmock.h>

#include "system/fixtures.h"

namespace bttest {
namespace {

struct ConnectingByHand : WithBus {
  Recorder service{Recorder::Name::NOT_YET};
};

TEST_F(ConnectingByHand, AnswersOneAndSetsBothFlags) {
  service.OwnName();
  EXPECT_EQ(Client::GetInstance()->InitInstance(), 1);
  EXPECT_EQ(Flags(), 1);
}

TEST_F(ConnectingByHand, ThatFailsAnswersZeroAndLeavesAnUnstartedClientUnstarted) {
  EXPECT_EQ(Client::GetInstance()->InitInstance(), 0);
  EXPECT_EQ(Flags(), 0);
}

TEST_F(ConnectingByHand, ThatFailsAnswersZeroAndLeavesAStartedClientStarted) {
  service.OwnName();
  ASSERT_EQ(MWP_CreateBlueTooth(), 1);
  service.ReleaseName();
  EXPECT_EQ(Client::GetInstance()->InitInstance(), 0);
  EXPECT_EQ(Flags(), 1);
  EXPECT_EQ(MWP_CreateBlueTooth(), 1) << "it still counts as started";
}

TEST_F(ConnectingByHand, DoesNotCountAsAStart) {
  service.OwnName();
  ASSERT_EQ(Client::GetInstance()->InitInstance(), 1);
  ComZelkLinuxBluetooth* const proxy = g_BtProxy;
  EXPECT_EQ(MWP_CreateBlueTooth(), 1);
  EXPECT_NE(g_BtProxy, proxy) << "it has connected once more";
}

}  // namespace
}  // namespace bttest
