// The library with a service whose stack can only be switched on and off: what a stack leaves out is refused,
// and the service needs no simulation.

#include <csignal>
#include <list>
#include <vector>

#include <gmock/gmock.h>

#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/MWPBluetooth.h>
#include <bluetooth/MWPBtCom.h>
#include <bluetooth/MWPBtPbap.h>
#include <bluetooth/MWPBtPhone.h>

#include "support/BusDaemon.h"
#include "support/ChildProcess.h"
#include "support/LogCapture.h"
#include "support/MainLoop.h"

namespace bttest {
namespace {

using namespace MWPBtType;
using testing::ElementsAre;
using testing::IsEmpty;

class PowerEvents : public IMWPBtComListener {
 public:
  std::vector<int> all;

 private:
  void OnOpenBtStatusChanged(PowerStatus status) override { all.push_back(status); }
};

class SmallestStack : public testing::Test {
 protected:
  SmallestStack() {
    LogCapture quiet;  // a start fails until the service is on the bus
    EXPECT_TRUE(RunUntil([] { return MWP_CreateBlueTooth() != 0; })) << service.Errors();
    EXPECT_TRUE(RunUntil([&] { return bluetooth.GetPowerStatus() == BT_POWER_ON; }));  // the default
    RunPending();
    events.all.clear();
  }
  ~SmallestStack() override { MWP_DestroyBlueTooth(); }

  BusDaemon bus;
  ChildProcess service{{BTTEST_POWER_ONLY_SERVICE, "--no-state"}};
  PowerEvents events;
  MWPBtCom bluetooth;
};

TEST_F(SmallestStack, IsSwitchedOffAndOn) {
  EXPECT_NE(bluetooth.SetPower(0), 0);
  EXPECT_EQ(bluetooth.GetPowerStatus(), BT_POWER_OFF);
  EXPECT_NE(bluetooth.SetPower(1), 0);
  EXPECT_EQ(bluetooth.GetPowerStatus(), BT_POWER_ON);
  EXPECT_TRUE(RunUntil([&] { return events.all.size() >= 2; }));
  EXPECT_THAT(events.all, ElementsAre(BT_POWER_OFF, BT_POWER_ON));
}

TEST_F(SmallestStack, RefusesWhatItDoesNotDoAndHasNothing) {
  EXPECT_EQ(bluetooth.SetScanAction(1), 0);
  EXPECT_EQ(bluetooth.Connect("00:1A:7D:DA:71:13", BT_PROFILE_HFP, 0), 0);
  EXPECT_EQ(MWPBtPhone().DialCall("112"), 0);
  std::list<MWPTypeContact> contacts;
  MWPBtPbap().GetContactList(contacts);
  EXPECT_THAT(contacts, IsEmpty());
  EXPECT_TRUE(service.IsAlive());
}

TEST_F(SmallestStack, SaysThatItIsOffWhenItEnds) {
  service.Signal(SIGTERM);
  EXPECT_EQ(service.Wait(), 0) << service.Errors();
  EXPECT_TRUE(RunUntil([&] { return !events.all.empty(); }));
  EXPECT_THAT(events.all, ElementsAre(BT_POWER_OFF));
}

}  // namespace
}  // namespace bttest
