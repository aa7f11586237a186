#include "support/Recorder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "recorder_client.h"
#include "support/BusDaemon.h"
#include "support/GlibHelpers.h"
#include "support/InterfaceDescription.h"
#include "support/MainLoop.h"

namespace bttest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct RecorderTest : testing::Test {
  BusDaemon bus;
  Recorder recorder;
  Client client;
};

TEST_F(RecorderTest, ExportsExactlyTheDescribedInterface) {
  OwnedError error;
  const OwnedVariant reply =
      client.Call("Introspect", nullptr, error.Out(), "org.freedesktop.DBus.Introspectable");
  ThrowIfSet(error, "introspection");
  const char* xml = nullptr;
  g_variant_get(reply.get(), "(&s)", &xml);
  const OwnedNodeInfo node(g_dbus_node_info_new_for_xml(xml, error.Out()));
  ThrowIfSet(error, "parsing");
  const InterfaceDescription& expected = BluetoothInterface();
  const InterfaceDescription exported =
      DescribeInterface(*g_dbus_node_info_lookup_interface(node.get(), expected.name.c_str()));
  ASSERT_EQ(expected.methods.size(), exported.methods.size());
  ASSERT_EQ(expected.signals.size(), exported.signals.size());
  for (std::size_t i = 0; i < expected.methods.size(); ++i) {
    EXPECT_EQ(expected.methods[i].name, exported.methods[i].name);
    EXPECT_EQ(TupleSignature(expected.methods[i].in), TupleSignature(exported.methods[i].in));
    EXPECT_EQ(TupleSignature(expected.methods[i].out), TupleSignature(exported.methods[i].out));
  }
  for (std::size_t i = 0; i < expected.signals.size(); ++i) {
    EXPECT_EQ(expected.signals[i].name, exported.signals[i].name);
    EXPECT_EQ(TupleSignature(expected.signals[i].arguments), TupleSignature(exported.signals[i].arguments));
  }
}

TEST_F(RecorderTest, RecordsCallsInOrderAndHandsThemOutOnce) {
  EXPECT_THAT(recorder.TakeCallTexts(), IsEmpty());
  client.Answer("SetPower", g_variant_new("(y)", 1));
  client.Answer("Pair", g_variant_new("(ss)", "11:22:33:44:55:66", "0000"));
  client.Answer("GetPowerStatus");
  EXPECT_TRUE(recorder.WaitForCalls(3));
  EXPECT_THAT(recorder.TakeCallTexts(),
              ElementsAre("SetPower(byte 0x01,)", "Pair('11:22:33:44:55:66', '0000')", "GetPowerStatus()"));
  EXPECT_THAT(recorder.TakeCallTexts(), IsEmpty());
}

TEST_F(RecorderTest, SendsSignalsInOrder) {
  std::vector<std::string> seen;
  client.Listen(seen);
  recorder.Emit("OnOpenBtStatusChanged", g_variant_new("(y)", 3));
  recorder.Emit("OnOperatorNameChanged", g_variant_new("(s)", "name"), 2);
  recorder.Emit("OnAudioTrackChanged", g_variant_new("()"));
  recorder.EmitRaw("NotDescribed", g_variant_new("(ix)", 1, gint64{2}));
  EXPECT_TRUE(RunUntil([&] { return seen.size() >= 5; }));
  EXPECT_THAT(seen, ElementsAre("OnOpenBtStatusChanged(byte 0x03,)", "OnOperatorNameChanged('name',)",
                                "OnOperatorNameChanged('name',)", "OnAudioTrackChanged()",
                                "NotDescribed(1, int64 2)"));
}

TEST_F(RecorderTest, RefusesWhatTheInterfaceDoesNotDescribe) {
  EXPECT_THROW(recorder.SetReply("NoSuchMethod", g_variant_new("(i)", 1)), std::runtime_error);
  EXPECT_THROW(recorder.SetReply("SetPower", g_variant_new("(s)", "")), std::runtime_error);
  EXPECT_THROW(recorder.Emit("NoSuchSignal", g_variant_new("()")), std::runtime_error);
  EXPECT_THROW(recorder.Emit("OnOperatorNameChanged", g_variant_new("(i)", 1)), std::runtime_error);
  EXPECT_THROW(recorder.Hang("NoSuchMethod"), std::runtime_error);
}

TEST_F(RecorderTest, GivesUpItsNameAndTakesItAgain) {
  EXPECT_EQ("(0,)", client.Answer("SetPower", g_variant_new("(y)", 1)));
  recorder.ReleaseName();
  EXPECT_EQ("org.freedesktop.DBus.Error.ServiceUnknown", client.Error("SetPower", g_variant_new("(y)", 1)));
  recorder.OwnName();
  EXPECT_EQ("(0,)", client.Answer("SetPower", g_variant_new("(y)", 1)));
}

TEST_F(RecorderTest, CannotTakeANameThatIsTaken) { EXPECT_THROW(Recorder(), std::runtime_error); }

TEST_F(RecorderTest, QuitsInAnOrderlyWay) {
  recorder.Quit();
  EXPECT_EQ(0, recorder.Process().Wait(std::chrono::milliseconds(0)));
}

TEST(Recorder, CanComeWithoutItsName) {
  BusDaemon bus;
  Recorder recorder(Recorder::Name::NOT_YET);
  Client client;
  EXPECT_EQ("org.freedesktop.DBus.Error.ServiceUnknown", client.Error("SetPower", g_variant_new("(y)", 1)));
  recorder.OwnName();
  EXPECT_EQ("(0,)", client.Answer("SetPower", g_variant_new("(y)", 1)));
}

}  // namespace
}  // namespace bttest
