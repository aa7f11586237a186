// A day in the life of the model: everything that can be reported comes from something that happens.

#include "tests/service/model_fixture.h"

namespace btservice {
namespace {

using namespace std::chrono_literals;

/// Notes which kinds of event have come.
class KindLog : public StackObserver {
 public:
  void OnStackEvent(const StackEvent& event) override { kinds.insert(event.index()); }
  std::set<std::size_t> kinds;
};

class AllEventsTest : public ModelTest {};

TEST_F(AllEventsTest, EveryKindOfEventHappens) {
  KindLog kinds;
  Stack().AddObserver(kinds);
  AdapterControl& adapter = Stack().Adapter();
  DeviceControl& devices = Stack().Devices();
  MusicControl& music = Stack().Music();
  Outside& controls = Stack().Controls();

  adapter.SetPower(true);
  Pass(1s);
  adapter.ReportStatus();
  adapter.SetAttribute(BT_ATTR_LOCAL_NAME, "Car");
  adapter.SetCapability(BT_CAP_AUTO_ANSWER, 0);
  adapter.SetScanning(true);
  Pass(1min);
  devices.RequestProjectionPairing(kSmartphone, 0);
  Pass(1s);
  devices.AcceptPairing(kSmartphone, "", BT_PAIR_REQUEST_CONFIRMATION);
  Pass(1min);
  devices.SetOobLinkKey(kAccessory, Bytes(16));
  devices.EnableProfiles();
  devices.Connect(kSmartphone, BT_PROFILE_HFP_A2DP, false);
  devices.Connect(kSmartphone, BT_PROFILE_HID, false);
  devices.Connect(kSmartphone, BT_PROFILE_SPP, false);
  Pass(10s);

  Stack().PhoneBook().StartDownload(BT_PBAP_ALL);
  Pass(1min);
  Stack().PhoneBook().SetFavorite(1, true);
  Stack().PhoneBook().DeleteContact(2);
  Stack().Calls().StartVoiceRecognition();
  Pass(10s);
  controls.Call(kSmartphone, "112");
  Stack().Calls().Accept();
  controls.Call(kSmartphone, "110");
  Pass(10s);
  Stack().Calls().HangUp();

  music.Play();
  Pass(10s);
  music.SetPlayMode({PLAYER_REPEAT, REPEAT_ALL});
  music.Next();
  music.ToRootFolder({0, 10});
  music.CountFolder("");
  music.QueueItem("h1", BT_BROWSER_FILE_SYSTEM);
  music.PlayItem("h1", BT_BROWSER_FILE_SYSTEM);
  Pass(10s);

  Stack().Serial().Send(kSmartphone, Bytes(3));
  Stack().Serial().CalibrateHid(kSmartphone, BT_HID_TOUCH);
  controls.SendMessage(kSmartphone, {"42", "Ben", "Hi"});
  controls.SetMessageProperty(kSmartphone, "42", true);
  Pass(10s);
  devices.DeletePairings();
  Pass(1s);

  for (std::size_t kind = 0; kind < std::variant_size_v<StackEvent>; ++kind) {
    EXPECT_EQ(kinds.kinds.count(kind), 1U) << "kind " << kind << " of StackEvent";
  }
}

TEST_F(AllEventsTest, ALongDriveLeavesNothingRunningWild) {
  world.settings.capabilities[BT_CAP_AUTO_CONNECT] = 1;
  world.settings.capabilities[BT_CAP_AUTO_DOWNLOAD] = 1;
  PairBeforehand(kSmartphone);
  PairBeforehand(kOldPhone);
  PowerOn();
  Pass(1min);
  for (int round = 0; round < 200; ++round) {
    Stack().Music().Play();
    Stack().Controls().Call(kSmartphone, "112");
    Stack().Calls().Accept();
    Stack().Controls().Call(kOldPhone, "110");
    Pass(10s);
    Stack().Controls().SetInRange(kSmartphone, false);
    Pass(10s);
    Stack().Controls().SetInRange(kSmartphone, true);
    Pass(30s);
    ASSERT_EQ(Stack().Devices().Connection(BT_PROFILE_A2DP).address, kSmartphone) << round;
    Stack().Controls().HangUp(kOldPhone, 0);
    log.Clear();
  }
  EXPECT_TRUE(Stack().Adapter().SetPower(false));
  Pass(1s);
  log.Clear();
  Pass(24h);
  EXPECT_EQ(log.All().size(), 0U) << "an adapter that is off has nothing to say";
}

}  // namespace
}  // namespace btservice
