// The library with the service it is developed against, over a real bus, through the public headers alone:
// what an application does on its first day, and the service's restart in the middle of it.

#include <algorithm>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/IMWPBtPbapListener.h>
#include <bluetooth/MWPBluetooth.h>
#include <bluetooth/MWPBtCom.h>
#include <bluetooth/MWPBtPbap.h>

#include "support/BusDaemon.h"
#include "support/ChildProcess.h"
#include "support/LogCapture.h"
#include "support/MainLoop.h"

namespace bttest {
namespace {

using namespace MWPBtType;
using testing::ElementsAre;

constexpr const char* kPhone = "00:1A:7D:DA:71:13";

/// What an application would show of the events, and the question it would put to its user.
class Screen : public IMWPBtComListener, public IMWPBtPbapListener {
 public:
  std::vector<int> powers;
  std::vector<int> pairings;
  std::vector<int> connectedProfiles;
  bool isAsked = false;
  std::string digits;
  PairRequestState question = BT_PAIR_REQUEST_CONFIRMATION;
  bool isDownloaded = false;

 private:
  void OnOpenBtStatusChanged(PowerStatus status) override { powers.push_back(status); }
  void OnPairStatusChanged(PairStatus status, PairFailedReson, const std::string& address) override {
    if (address == kPhone) {
      pairings.push_back(status);
    }
  }
  void OnAnswerPairRequest(const std::string& address, const std::string& pinCode, int,
                           PairRequestState state) override {
    isAsked = address == kPhone;
    digits = pinCode;
    question = state;
  }
  void OnConnectStatusChanged(const std::string&, ProfileId profile, ConnStatus status) override {
    const auto known = std::find(connectedProfiles.begin(), connectedProfiles.end(), profile);
    if (status == BT_CONN_CONNECTED && known == connectedProfiles.end()) {
      connectedProfiles.push_back(profile);
    } else if (status == BT_CONN_DISCONNECTED && known != connectedProfiles.end()) {
      connectedProfiles.erase(known);
    }
  }
  void OnPBDownloadStatus(PbapStatus status, PbapType type) override {
    isDownloaded = isDownloaded || (status == BT_PBAP_COMPLETED && type == BT_PBAP_PHONE_BOOK);
  }
};

class EndToEnd : public testing::Test {
 protected:
  EndToEnd() { StartService(); }

  /// Starts the service, whose time runs fast.
  void StartService() {
    service = std::make_unique<ChildProcess>(std::vector<std::string>{"/app/bin/btservice", "--speed", "20"});
  }

  /// Starts the library as soon as it can be.
  void StartLibrary() {
    LogCapture quiet;  // a start fails until the service is on the bus
    ASSERT_TRUE(RunUntil([] { return MWP_CreateBlueTooth() != 0; })) << service->Errors();
  }

  void PowerUp() {
    bluetooth.SetPower(1);
    ASSERT_TRUE(RunUntil([&] { return bluetooth.GetPowerStatus() == BT_POWER_ON; }));
    ForgetPowers();
  }

  /// Forgets the events up to now: those that the service sent before its last answer are here by then.
  void ForgetPowers() {
    RunPending();
    screen.powers.clear();
  }

  void PairPhone() {
    EXPECT_NE(bluetooth.Pair(kPhone, ""), 0);
    ASSERT_TRUE(RunUntil([&] { return screen.isAsked; }));
    EXPECT_NE(bluetooth.AnswerPair(screen.digits, kPhone, screen.question), 0);
    ASSERT_TRUE(
        RunUntil([&] { return !screen.pairings.empty() && screen.pairings.back() == BT_PAIR_PAIRED; }));
  }

  void ConnectPhone(ProfileId profile, const std::vector<int>& profiles) {
    EXPECT_NE(bluetooth.Connect(kPhone, profile, 0), 0);
    EXPECT_TRUE(RunUntil([&] {
      return std::all_of(profiles.begin(), profiles.end(), [&](int wanted) {
        return std::count(screen.connectedProfiles.begin(), screen.connectedProfiles.end(), wanted) == 1;
      });
    }));
  }

  BusDaemon bus;
  std::unique_ptr<ChildProcess> service;
  Screen screen;
  MWPBtCom bluetooth;
};

TEST_F(EndToEnd, PowerGoesOffAndOnInSteps) {
  StartLibrary();
  PowerUp();
  EXPECT_NE(bluetooth.SetPower(0), 0);
  ASSERT_TRUE(RunUntil([&] { return screen.powers.size() >= 2; }));
  EXPECT_EQ(bluetooth.GetPowerStatus(), BT_POWER_OFF);
  EXPECT_NE(bluetooth.SetPower(1), 0);
  ASSERT_TRUE(RunUntil([&] { return screen.powers.size() >= 4; }));
  EXPECT_EQ(bluetooth.GetPowerStatus(), BT_POWER_ON);
  EXPECT_THAT(screen.powers,
              ElementsAre(BT_POWER_TURNING_OFF, BT_POWER_OFF, BT_POWER_TURNING_ON, BT_POWER_ON));
}

TEST_F(EndToEnd, APhoneIsPairedAndConnectedAndItsPhoneBookRead) {
  StartLibrary();
  PowerUp();
  PairPhone();
  ConnectPhone(BT_PROFILE_HFP_A2DP, {BT_PROFILE_HFP, BT_PROFILE_A2DP});
  ConnectPhone(BT_PROFILE_PBAP, {BT_PROFILE_PBAP});
  EXPECT_EQ(bluetooth.GetRemotePairDeviceName(kPhone), "Ada's phone");

  // May have begun by itself, which a setting of the service is for.
  MWPBtPbap().StartPhoneBookDownload(BT_PBAP_PHONE_BOOK);
  ASSERT_TRUE(RunUntil([&] { return screen.isDownloaded; }));
  // What is downloaded after the phone's own book may still add to it.
  std::list<MWPTypeContact> contacts;
  ASSERT_TRUE(RunUntil([&] {
    EXPECT_EQ(MWPBtPbap().GetContactList(contacts), 1);
    return !contacts.empty() && static_cast<int>(contacts.size()) == MWPBtPbap().GetContactCount();
  }));
  EXPECT_FALSE(contacts.front().strText1.empty());
  EXPECT_FALSE(contacts.front().listNumbers.empty());
}

TEST_F(EndToEnd, ARestartOfTheServiceIsSurvivedAndItIsUsableAgain) {
  StartLibrary();
  PowerUp();
  service->Kill();
  {
    LogCapture log;
    EXPECT_EQ(bluetooth.GetPowerStatus(), 0);
    EXPECT_EQ(log.OfLevel(100).size(), 1u);
  }
  StartService();
  {
    LogCapture quiet;  // requests fail until the service is on the bus
    ASSERT_TRUE(RunUntil([&] {
      bluetooth.SetPower(1);
      return bluetooth.GetPowerStatus() == BT_POWER_ON;
    }));
  }
  ForgetPowers();
  EXPECT_NE(bluetooth.SetPower(0), 0);
  EXPECT_TRUE(RunUntil([&] { return !screen.powers.empty() && screen.powers.back() == BT_POWER_OFF; }));
}

TEST_F(EndToEnd, AnApplicationThatStopsTheLibraryCanStartItAgain) {
  StartLibrary();
  PowerUp();
  MWP_DestroyBlueTooth();
  EXPECT_EQ(bluetooth.GetPowerStatus(), 0);
  StartLibrary();
  EXPECT_EQ(bluetooth.GetPowerStatus(), BT_POWER_ON);
}

}  // namespace
}  // namespace bttest
