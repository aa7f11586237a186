// A bus that goes away while the library is connected.

#include <thread>

#include <gmock/gmock.h>

#include <bluetooth/MWPBtCom.h>

#include "glib/OwnedId.h"
#include "system/fixtures.h"
#include "system/preset_requests.h"

namespace bttest {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

struct LostBus : Started {
  /// Ends the bus as a crash would and lets the main loop deliver the news, upon which GLib would by default
  /// end this process.
  void LoseBus() {
    GDBusConnection* const connection = g_dbus_proxy_get_connection(G_DBUS_PROXY(g_BtProxy));
    bool isToldOfEnd = false;
    const auto note =
        +[](GDBusConnection*, gboolean, GError*, gpointer flag) { *static_cast<bool*>(flag) = true; };
    OwnedHandler handler(G_OBJECT(connection),
                         g_signal_connect(connection, "closed", G_CALLBACK(note), &isToldOfEnd));
    bus.Stop();
    EXPECT_TRUE(RunUntil([&] { return isToldOfEnd; }));
    handler.reset();
    RunPending();
  }
};

TEST_F(LostBus, TheProcessLives) {
  LogCapture log;
  LoseBus();
  EXPECT_THAT(log.Records(), IsEmpty());
  EXPECT_THAT(log.Complaints(), IsEmpty());
}

TEST_F(LostBus, EveryRequestAnswersItsPresetWithOneErrorLine) {
  LoseBus();
  ExpectPresets("The connection is closed");
}

TEST_F(LostBus, TheFacadesAnswerZeroAndTheLibraryStaysStarted) {
  LoseBus();
  EXPECT_EQ(MWPBtCom().GetPowerStatus(), 0);
  EXPECT_EQ(Flags(), 1);
  EXPECT_EQ(MWP_CreateBlueTooth(), 1) << "it does not connect again";
}

TEST_F(LostBus, ARequestUnderWayAnswersItsPreset) {
  service.Hang("SetPower");
  BtClientIpcAdapter adapter;
  LogCapture log;
  int answer = -1;
  std::thread request([&] { answer = adapter.SetPower(1); });
  EXPECT_TRUE(service.WaitForCalls(1));
  bus.Stop();
  request.join();
  EXPECT_EQ(answer, 0);
  EXPECT_THAT(log.OfLevel(100), SizeIs(1));
}

TEST_F(LostBus, TheLibraryCanBeStopped) {
  LoseBus();
  MWP_DestroyBlueTooth();
  EXPECT_EQ(Client::ms_pSingleton, nullptr);
  EXPECT_EQ(Flags(), 0);
}

}  // namespace
}  // namespace bttest
