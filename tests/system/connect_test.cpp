// Bringing up the connection: with the service there, with only a bus, and with nothing.

#include <fstream>

#include <gmock/gmock.h>

#include "ipc/BtClientIpcAdapter.h"
#include "support/TemporaryDirectory.h"
#include "system/BusPeer.h"
#include "system/fixtures.h"
#include "system/log_lines.h"

namespace bttest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kStartLine =
    "ipc/BtClientIpcAdapter InitDBusConnect 20 [btservice] [BtClientIpcAdapter::InitDBusConnect] start";
constexpr const char* kNoOwnerLine =
    "ipc/BtClientIpcAdapter InitDBusConnect 80 bt_proxy_get_service_dbus_ready_status Owner Name is nullptr";

std::string OwnerLine(const std::string& owner) {
  return "ipc/BtClientIpcAdapter InitDBusConnect 40 [btservice] [BtClientIpcAdapter::InitDBusConnect] "
         "bt_proxy_get_service_dbus_ready_status Owner Name: " +
         owner;
}

/// Whether the library's handler of OnOpenBtStatusChanged, or any other, is connected to the proxy.
bool IsSubscribed() {
  return g_signal_has_handler_pending(g_BtProxy,
                                      g_signal_lookup("on-open-bt-status-changed", G_OBJECT_TYPE(g_BtProxy)),
                                      0, TRUE) != FALSE;
}

// With the service on the bus

struct ConnectWithService : WithService {};

TEST_F(ConnectWithService, LogsTheStartAndTheServicesUniqueNameAndAnswersTrue) {
  Client::GetInstance();
  LogCapture log;
  EXPECT_EQ(MWP_CreateBlueTooth(), 1);
  EXPECT_THAT(LineTexts(log.Records()),
              ElementsAre(kStartLine, OwnerLine(BusPeer(bus.Address()).ServiceOwner())));
  EXPECT_THAT(log.Complaints(), IsEmpty());
}

TEST_F(ConnectWithService, SubscribesOnce) {
  PowerEvents listener;
  ASSERT_EQ(MWP_CreateBlueTooth(), 1);
  EXPECT_TRUE(IsSubscribed());
  EmitPower(service, MWPBtType::BT_POWER_TURNING_ON);
  EmitPower(service, MWPBtType::BT_POWER_ON);
  EXPECT_TRUE(RunUntil([&] { return listener.Seen().size() >= 2; }));
  EXPECT_THAT(listener.Seen(), ElementsAre(MWPBtType::BT_POWER_TURNING_ON, MWPBtType::BT_POWER_ON));
}

TEST_F(ConnectWithService, MakesNoCallOfTheService) {
  ASSERT_EQ(MWP_CreateBlueTooth(), 1);
  EXPECT_THAT(service.TakeCallTexts(), IsEmpty());
}

TEST_F(ConnectWithService, DoesNotLetGLibEndTheProcessWithItsBus) {
  ASSERT_EQ(MWP_CreateBlueTooth(), 1);
  EXPECT_FALSE(g_dbus_connection_get_exit_on_close(g_dbus_proxy_get_connection(G_DBUS_PROXY(g_BtProxy))));
}

// With a bus that can start the service

TEST(ConnectWithServiceFile, TheBusStartsAServiceThatItKnows) {
  TemporaryDirectory directory;
  std::ofstream(directory.Path() / "bluetooth.service")
      << "[D-BUS Service]\nName=" << kServiceName << "\nExec=" BTTEST_RECORDER "\n";
  BusDaemon bus(directory.Path());
  EXPECT_EQ(MWP_CreateBlueTooth(), 1);
}

// With a bus alone

struct ConnectWithBus : WithBus {
  Recorder service{Recorder::Name::NOT_YET};
};

TEST_F(ConnectWithBus, WarnsThatThereIsNoOwnerAndAnswersFalse) {
  Client::GetInstance();
  LogCapture log;
  EXPECT_EQ(MWP_CreateBlueTooth(), 0);
  EXPECT_THAT(LineTexts(log.Records()), ElementsAre(kStartLine, kNoOwnerLine));
  EXPECT_THAT(log.Complaints(), IsEmpty());
}

TEST_F(ConnectWithBus, KeepsAProxyWithoutHandlers) {
  ASSERT_EQ(MWP_CreateBlueTooth(), 0);
  ASSERT_NE(g_BtProxy, nullptr);
  EXPECT_FALSE(IsSubscribed());
}

TEST_F(ConnectWithBus, TheSignalsOfAServiceThatComesLaterReachNoListener) {
  PowerEvents listener;
  ASSERT_EQ(MWP_CreateBlueTooth(), 0);
  // The proxy itself gets them: that is how this test knows that the library could have.
  bool hasReachedProxy = false;
  const auto note = +[](ComZelkLinuxBluetooth*, guchar, gpointer flag) { *static_cast<bool*>(flag) = true; };
  g_signal_connect(g_BtProxy, "on-open-bt-status-changed", G_CALLBACK(note), &hasReachedProxy);
  service.OwnName();
  const auto emitAndLook = [&] {
    EmitPower(service, MWPBtType::BT_POWER_ON);
    return hasReachedProxy;
  };
  EXPECT_TRUE(RunUntil(emitAndLook));
  RunPending();
  EXPECT_THAT(listener.Seen(), IsEmpty());
}

TEST_F(ConnectWithBus, RequestsOnTheProxyReachAServiceThatComesLater) {
  ASSERT_EQ(MWP_CreateBlueTooth(), 0);
  service.OwnName();
  service.SetReply("SetPower", g_variant_new("(i)", 5));
  BtClientIpcAdapter adapter;
  EXPECT_EQ(adapter.SetPower(1), 5);
  EXPECT_EQ(Client::GetInstance()->SetPower(1), 0) << "the client's own requests wait for a start";
  EXPECT_THAT(service.TakeCallTexts(), ElementsAre("SetPower(byte 0x01,)"));
}

TEST_F(ConnectWithBus, TheNextAttemptStartsOverWithANewProxy) {
  BtClientIpcAdapter adapter;
  ASSERT_FALSE(adapter.InitDBusConnect());
  ComZelkLinuxBluetooth* const first = g_BtProxy;
  LogCapture log;
  EXPECT_FALSE(adapter.InitDBusConnect());
  EXPECT_NE(g_BtProxy, first);
  EXPECT_THAT(LineTexts(log.Records()), ElementsAre(kStartLine, kNoOwnerLine));
}

// With nothing

struct ConnectWithoutBus : testing::Test {
  ConnectWithoutBus() { setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/there/is/no/bus", 1); }
};

TEST_F(ConnectWithoutBus, FailsSevenTimesEachWithTheReasonAndAnswersFalse) {
  Client::GetInstance();
  LogCapture log;
  EXPECT_EQ(MWP_CreateBlueTooth(), 0);
  std::vector<std::string> expected{kStartLine};
  for (int retry = 0; retry < 7; ++retry) {
    expected.push_back(
        "ipc/BtClientIpcAdapter InitDBusConnect 100 InitDBusConnect: Failed to create proxy. Reason: Could "
        "not "
        "connect: No such file or directory.retry->" +
        std::to_string(retry));
  }
  EXPECT_EQ(LineTexts(log.Records()), expected);
  EXPECT_EQ(g_BtProxy, nullptr);
  EXPECT_THAT(log.Complaints(), IsEmpty());
}

TEST_F(ConnectWithoutBus, ARequestThenFailsWithAClearReasonAndNoComplaint) {
  ASSERT_EQ(MWP_CreateBlueTooth(), 0);
  BtClientIpcAdapter adapter;
  LogCapture log;
  EXPECT_EQ(adapter.SetPower(1), 0);
  EXPECT_THAT(LineTexts(log.Records()),
              ElementsAre("ipc/BtClientIpcAdapter SetPower 100 com_zelk_linux_bluetooth_call_set_power_sync: "
                          "Failed to call dbus method. Reason: there is no connection to the Bluetooth "
                          "service."));
  EXPECT_THAT(log.Complaints(), IsEmpty());
}

TEST_F(ConnectWithoutBus, EachCreateTriesAnew) {
  EXPECT_EQ(MWP_CreateBlueTooth(), 0);
  LogCapture log;
  EXPECT_EQ(MWP_CreateBlueTooth(), 0);
  EXPECT_EQ(log.OfFunction("InitDBusConnect").size(), 8u);
}

TEST(ConnectWithoutBusAddress, FailsInTheSameWay) {
  unsetenv("DBUS_SESSION_BUS_ADDRESS");
  LogCapture log;
  EXPECT_EQ(MWP_CreateBlueTooth(), 0);
  EXPECT_EQ(log.OfFunction("InitDBusConnect").size(), 8u);
  EXPECT_EQ(g_BtProxy, nullptr);
  EXPECT_THAT(log.Complaints(), IsEmpty());
}

TEST_F(ConnectWithoutBus, ABusAndServiceThatComeLaterAreFoundByTheNextCreate) {
  ASSERT_EQ(MWP_CreateBlueTooth(), 0);
  BusDaemon bus;
  Recorder service;
  EXPECT_EQ(MWP_CreateBlueTooth(), 1);
}

}  // namespace
}  // namespace bttest
