// The smallest program that switches Bluetooth on, pairs and connects a phone, and shows every event of that.
//
// It has two threads. The main thread runs a GLib main loop: events are delivered by the loop of the thread
// that called MWP_CreateBlueTooth(), and by nothing else. The requests are made on a second thread, because
// each blocks until the service has answered, at worst for 25 seconds. Made on the loop's thread, in a timer
// or in a callback, they work just the same; but until such a request is answered no event arrives, and
// nothing that this thread draws moves.

#include <bluetooth/MWPBluetooth.h>
#include <bluetooth/MWPBtCom.h>
#include <glib.h>

#include <thread>

#include "Noted.h"
#include "ShowComEvents.h"

namespace {

using namespace MWPBtType;

/// What is known from events.
struct Facts {
  PowerStatus power = BT_POWER_OFF;
  ScanStatus scan = BT_SCAN_IDLE;
  PairStatus pairing = BT_PAIR_NONE;
  bool isAsked = false;
  std::string digits;
  PairRequestState question = BT_PAIR_REQUEST_CONFIRMATION;
  ConnStatus handsFree = BT_CONN_DISCONNECTED;
  ConnStatus music = BT_CONN_DISCONNECTED;
};

/// Notes what the second thread waits for. It is called on the thread of the loop.
class Watcher : public IMWPBtComListener {
 public:
  Noted<Facts> noted;

 private:
  void OnOpenBtStatusChanged(PowerStatus status) override {
    noted.Note([&](Facts& facts) { facts.power = status; });
  }
  void OnScanStatusChanged(ScanStatus status) override {
    noted.Note([&](Facts& facts) { facts.scan = status; });
  }
  void OnPairStatusChanged(PairStatus status, PairFailedReson, const std::string&) override {
    noted.Note([&](Facts& facts) { facts.pairing = status; });
  }
  void OnAnswerPairRequest(const std::string&, const std::string& pinCode, int,
                           PairRequestState state) override {
    noted.Note([&](Facts& facts) {
      facts.isAsked = true;
      facts.digits = pinCode;
      facts.question = state;
    });
  }
  void OnConnectStatusChanged(const std::string&, ProfileId profile, ConnStatus status) override {
    noted.Note([&](Facts& facts) {
      if (profile == BT_PROFILE_HFP) {
        facts.handsFree = status;
      } else if (profile == BT_PROFILE_A2DP) {
        facts.music = status;
      }
    });
  }
};

/// The requests. Each answers at once whether the service accepts it; events report the result.
bool UseBluetooth(Noted<Facts>& noted, const std::string& phone) {
  MWPBtCom bluetooth;
  bluetooth.GetBluetoothServiceStatus();  // it reports its state as events
  ShowRequest("SetPower(1)", bluetooth.SetPower(1));
  if (!noted.Wait("power", [](const Facts& facts) { return facts.power == BT_POWER_ON; })) {
    return false;
  }

  // A search. No event names the devices that it finds: this application knows the address of its phone.
  ShowRequest("SetScanAction(1)", bluetooth.SetScanAction(1));
  if (!noted.Wait("the search", [](const Facts& facts) { return facts.scan == BT_SCAN_SCANNING; })) {
    return false;
  }
  std::this_thread::sleep_for(std::chrono::seconds(1));
  ShowRequest("SetScanAction(0)", bluetooth.SetScanAction(0));
  if (!noted.Wait("the end of the search", [](const Facts& facts) { return facts.scan == BT_SCAN_IDLE; })) {
    return false;
  }

  ShowRequest("Pair", bluetooth.Pair(phone, ""));
  if (!noted.Wait("the question", [](const Facts& facts) { return facts.isAsked; })) {
    return false;
  }
  const Facts asked = noted.Get();  // a real application shows the digits and lets the user decide
  ShowRequest("AnswerPair", bluetooth.AnswerPair(asked.digits, phone, asked.question));
  if (!noted.Wait("the pairing", [](const Facts& facts) { return facts.pairing == BT_PAIR_PAIRED; })) {
    return false;
  }

  ShowRequest("Connect", bluetooth.Connect(phone, BT_PROFILE_HFP_A2DP, 0));
  if (!noted.Wait("the connection", [](const Facts& facts) {
        return facts.handsFree == BT_CONN_CONNECTED && facts.music == BT_CONN_CONNECTED;
      })) {
    return false;
  }

  ShowRequest("SetPower(0)", bluetooth.SetPower(0));
  return noted.Wait("power off", [](const Facts& facts) { return facts.power == BT_POWER_OFF; });
}

/// The service may come up after the application: a start that failed may be tried again.
bool StartLibrary() {
  constexpr int kAttempts = 10;
  for (int attempt = 1; MWP_CreateBlueTooth() == 0; ++attempt) {
    if (attempt == kAttempts) {
      std::fprintf(stderr, "the Bluetooth service cannot be reached: is it running, on this session bus?\n");
      return false;
    }
    g_usleep(G_USEC_PER_SEC);
  }
  return true;
}

bool Run(const std::string& phone) {
  // Constructing a listener is what registers it. These two hear all that happens from the start on.
  ShowComEvents show;
  Watcher watcher;
  if (!StartLibrary()) {
    return false;
  }
  GMainLoop* const loop = g_main_loop_new(nullptr, FALSE);
  bool hasWorked = false;
  std::thread requests([&] {
    hasWorked = UseBluetooth(watcher.noted, phone);
    g_idle_add([](gpointer data) { return g_main_loop_quit(static_cast<GMainLoop*>(data)), G_SOURCE_REMOVE; },
               loop);
  });
  g_main_loop_run(loop);
  requests.join();
  g_main_loop_unref(loop);
  return hasWorked;
}

}  // namespace

int main(int argc, char** argv) {
  const bool hasWorked = Run(argc > 1 ? argv[1] : "00:1A:7D:DA:71:13");
  MWP_DestroyBlueTooth();  // after the last listener is gone
  return hasWorked ? 0 : 1;
}
