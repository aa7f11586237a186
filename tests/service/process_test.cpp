// The process: command line, place on the bus, end, and what it leaves behind.

#include <csignal>
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "protocol/Segments.h"
#include "support/Segments.h"
#include "support/TemporaryDirectory.h"
#include "support/Waiting.h"
#include "tests/service/running_service.h"

namespace btservice {
namespace {

using bttest::ChildProcess;
using testing::HasSubstr;
using testing::StartsWith;

int SegmentsLeft() {
  int left = 0;
  for (const SegmentEntry& entry : kSegmentCatalogue) {
    left += bttest::FindSegment(entry.id).has_value();
  }
  return left;
}

TEST(ServiceProcessTest, ShowsHowItIsUsed) {
  ChildProcess help({kExecutable, "--help"});
  EXPECT_EQ(help.Wait(), 0);
  for (const char* const word : {"--speed", "--keep-segments", "--remove-segments", "--reserve", "--version",
                                 "--world", "bad-day", "--state", "Exit codes"}) {
    EXPECT_THAT(help.Output(), HasSubstr(word));
  }
  ChildProcess version({kExecutable, "--version"});
  EXPECT_EQ(version.Wait(), 0);
  EXPECT_EQ(version.Output(), "btservice 1.0.0\n");
}

TEST(ServiceProcessTest, RefusesACommandLineWithoutSense) {
  for (const std::vector<std::string>& words : {std::vector<std::string>{"--fast"},
                                                {"--speed", "0"},
                                                {"--speed", "-1"},
                                                {"--speed", "x"},
                                                {"--speed", "0.0009"},
                                                {"--speed", "1e-300"},
                                                {"--speed", "nan"},
                                                {"--keep-segments", "--remove-segments"},
                                                {"please"}}) {
    std::vector<std::string> command{kExecutable};
    command.insert(command.end(), words.begin(), words.end());
    ChildProcess process(command);
    EXPECT_EQ(process.Wait(), 2) << words[0];
    EXPECT_THAT(process.Errors(), StartsWith("btservice: ")) << words[0];
    EXPECT_EQ(process.Output(), "") << words[0];
  }
}

TEST(ServiceProcessTest, NeedsABus) {
  ChildProcess process({kExecutable}, {{"DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere"}});
  EXPECT_EQ(process.Wait(), 4);
  EXPECT_THAT(process.Errors(), HasSubstr("there is no session bus"));
}

/// Ends a service with these options, and answers how many of its segments are left.
int SegmentsLeftBy(const std::vector<std::string>& options) {
  RunningService service(options);
  EXPECT_TRUE(bttest::RunUntil([] { return SegmentsLeft() == 8; }));
  service.Process().Signal(SIGTERM);
  EXPECT_EQ(service.Process().Wait(), 0);
  return SegmentsLeft();
}

TEST(ServiceProcessTest, EndsOnSigtermAndLeavesItsSegments) { EXPECT_EQ(SegmentsLeftBy({}), 8); }

TEST(ServiceProcessTest, LeavesItsSegmentsIfAskedTo) { EXPECT_EQ(SegmentsLeftBy({"--keep-segments"}), 8); }

TEST(ServiceProcessTest, RemovesItsSegmentsIfAskedTo) { EXPECT_EQ(SegmentsLeftBy({"--remove-segments"}), 0); }

TEST(ServiceProcessTest, EndsOnSigint) {
  RunningService service;
  service.Process().Signal(SIGINT);
  EXPECT_EQ(service.Process().Wait(), 0);
}

TEST(ServiceProcessTest, RemovesNoSegmentsOfOthersThatLive) {
  bttest::CreateSegment(SH_CONTACT_LIST, kSegmentCatalogue[SH_CONTACT_LIST].size);
  EXPECT_EQ(SegmentsLeftBy({"--remove-segments"}), 1);
  EXPECT_TRUE(bttest::FindSegment(SH_CONTACT_LIST));
}

TEST(ServiceProcessTest, TakesOverTheSegmentsOfAServiceThatWasKilled) {
  RunningService service({"--remove-segments"});
  ASSERT_TRUE(bttest::RunUntil([] { return SegmentsLeft() == 8; }));
  const int identifier = bttest::FindSegment(SH_CONTACT_LIST)->identifier;
  service.Process().Kill();
  EXPECT_EQ(SegmentsLeft(), 8);
  service.Start();
  ASSERT_EQ(service.Ask("GetContactList"), "(true,)");
  EXPECT_EQ(bttest::FindSegment(SH_CONTACT_LIST)->identifier, identifier) << "clients have it attached";
  service.Process().Signal(SIGTERM);
  EXPECT_EQ(service.Process().Wait(), 0);
  EXPECT_EQ(SegmentsLeft(), 0);
}

TEST(ServiceProcessTest, EndsWithTheBus) {
  RunningService service;
  ASSERT_TRUE(bttest::RunUntil([] { return SegmentsLeft() == 8; }));
  service.Bus().Stop();
  EXPECT_EQ(service.Process().Wait(), 0);
  EXPECT_EQ(SegmentsLeft(), 8);
}

TEST(ServiceProcessTest, EndsWithTheBusAndRemovesItsSegmentsIfAskedTo) {
  RunningService service({"--remove-segments"});
  ASSERT_TRUE(bttest::RunUntil([] { return SegmentsLeft() == 8; }));
  service.Bus().Stop();
  EXPECT_EQ(service.Process().Wait(), 0);
  EXPECT_EQ(SegmentsLeft(), 0);
}

TEST(ServiceProcessTest, RefusesToBeTheSecondOnABus) {
  RunningService service;
  ASSERT_EQ(service.Ask("GetContactList"), "(true,)");
  ChildProcess second({kExecutable});
  EXPECT_EQ(second.Wait(), 3);
  EXPECT_EQ(second.Errors(),
            "btservice: com.zelk.linux.bluetooth has an owner on this bus already; end that service first\n");
  EXPECT_EQ(SegmentsLeft(), 8) << "those of the first are untouched";
  EXPECT_EQ(service.Ask("GetContactList"), "(true,)");
}

/// A message that the bus lets pass, and whose types are nested too deeply for GLib, which then closes the
/// connection.
void SendWhatGLibCannotDecode(GDBusConnection* connection, const std::string& name) {
  constexpr int kVariants = 40;
  const std::string arrays = std::string(31, 'a') + "y";
  GVariant* value = g_variant_new_array(G_VARIANT_TYPE(arrays.c_str() + 1), nullptr, 0);
  for (int i = 0; i < kVariants; ++i) {
    value = g_variant_new_variant(value);
  }
  g_dbus_connection_call(connection, name.c_str(), kServicePath, kServiceName, "AcceptCall",
                         g_variant_new_tuple(&value, 1), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr,
                         nullptr, nullptr);
}

TEST(ServiceProcessTest, IsOnTheBusAgainAfterAMessageThatEndsItsConnection) {
  RunningService service({"--speed", "100"});
  ASSERT_TRUE(service.WaitFor("OnOpenBtStatusChanged (byte 0x01,)"));
  const std::string name = service.Owner();
  SendWhatGLibCannotDecode(service.Connection(), name);
  ASSERT_TRUE(bttest::RunUntil([&] { return service.Owner() != name && !service.Owner().empty(); }));
  EXPECT_EQ(service.Ask("GetPowerStatus"), "(byte 0x01,)") << "it is the same service";
  EXPECT_EQ(service.Ask("SetScanAction", g_variant_new("(b)", TRUE)), "(true,)");
  EXPECT_TRUE(service.WaitFor("OnScanStatusChanged (byte 0x01,)"))
      << "signals are sent on the new connection";
  service.Process().Signal(SIGTERM);
  EXPECT_EQ(service.Process().Wait(), 0);
}

TEST(ServiceProcessTest, StaysAwayForAsLongAsItWasSentAwayAlsoOnANewConnection) {
  RunningService service;
  const std::string name = service.Owner();
  service.Control("LeaveBus", g_variant_new("(u)", 1000000));
  SendWhatGLibCannotDecode(service.Connection(), name);
  EXPECT_TRUE(bttest::RunUntil(
      [&] { return service.Process().Errors().find("there is a new one") != std::string::npos; }));
  EXPECT_EQ(service.Owner(), "");
  service.Process().Signal(SIGTERM);
  EXPECT_EQ(service.Process().Wait(), 0);
}

TEST(ServiceProcessTest, IsStartedByTheBusWhenAClientNeedsIt) {
  bttest::TemporaryDirectory directory;
  std::filesystem::copy(BTTEST_SERVICE_FILE, directory.Path());
  bttest::BusDaemon bus(directory.Path());
  ChildProcess client({BTTEST_LISTENING_CLIENT});
  EXPECT_TRUE(client.WaitForOutput("ready\n")) << client.Errors();
  EXPECT_EQ(SegmentsLeft(), 8);
}

TEST(ServiceProcessTest, TimeCanRunFast) {
  constexpr gint64 kHourMs =
      gint64{60} * 60 * 1000;  // without the fast clock, it would not pass within any bound
  RunningService service({"--speed", "1000"});
  const auto now = [&] {
    gint64 milliseconds = 0;
    g_variant_get(service.CallControl("GetTime").get(), "(xd)", &milliseconds, nullptr);
    return milliseconds;
  };
  const gint64 begin = now();
  EXPECT_TRUE(bttest::RunUntil([&] { return now() >= begin + kHourMs; }));
}

}  // namespace
}  // namespace btservice
