#include <future>

#include <gtest/gtest.h>

#include "recorder/ZeroValue.h"
#include "recorder_client.h"
#include "support/BusDaemon.h"
#include "support/GlibHelpers.h"
#include "support/InterfaceDescription.h"
#include "support/Recorder.h"

namespace bttest {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

struct RecorderAnswers : testing::Test {
  GVariant* On() { return g_variant_new("(y)", 1); }

  BusDaemon bus;
  Recorder recorder;
  Client client;
};

TEST_F(RecorderAnswers, AreZerosForEveryMethod) {
  for (const MethodDescription& method : BluetoothInterface().methods) {
    const auto zeros = [](const Arguments& arguments) {
      return ZeroValue(G_VARIANT_TYPE(TupleSignature(arguments).c_str()));
    };
    const OwnedVariant expected(zeros(method.out));
    EXPECT_EQ(ToText(expected.get()), client.Answer(method.name.c_str(), zeros(method.in))) << method.name;
  }
}

TEST_F(RecorderAnswers, AreTheValuesSet) {
  recorder.SetReply("GetAttribute", g_variant_new("(sy)", "attribute", 200));
  EXPECT_EQ("('attribute', byte 0xc8)", client.Answer("GetAttribute", On()));
  EXPECT_EQ("('attribute', byte 0xc8)", client.Answer("GetAttribute", On()));
  recorder.Reset();
  EXPECT_EQ("('', byte 0x00)", client.Answer("GetAttribute", On()));
}

TEST_F(RecorderAnswers, AreErrorsAsOftenAsAskedFor) {
  recorder.FailNext("SetPower", 2, "test.Error", "why");
  EXPECT_EQ("test.Error", client.Error("SetPower", On()));
  EXPECT_EQ("", client.Error("GetPowerStatus")) << "another method fails";
  EXPECT_EQ("test.Error", client.Error("SetPower", On()));
  EXPECT_EQ("", client.Error("SetPower", On()));
}

TEST_F(RecorderAnswers, CanBeOfAWrongType) {
  recorder.ReplyWrongType("SetPower");
  recorder.ReplyWrongType("GetRemotePairDeviceName");
  EXPECT_EQ("('wrong type',)", client.Answer("SetPower", On()));
  EXPECT_EQ("(42,)", client.Answer("GetRemotePairDeviceName", g_variant_new("(s)", "")));
}

TEST_F(RecorderAnswers, CanBeHeldBackUntilReleased) {
  recorder.Hang("SetPower");
  auto answer = std::async(std::launch::async, [this] { return client.Answer("SetPower", On()); });
  ASSERT_TRUE(recorder.WaitForCalls(1));
  EXPECT_EQ(std::future_status::timeout, answer.wait_for(milliseconds(20)));
  recorder.Release("SetPower");
  ASSERT_EQ(std::future_status::ready, answer.wait_for(kBound));
  EXPECT_EQ("(0,)", answer.get());
  EXPECT_EQ("(0,)", client.Answer("SetPower", On())) << "it still hangs";
}

TEST_F(RecorderAnswers, CanBeDelayed) {
  recorder.Delay("SetPower", milliseconds(50));
  const auto start = steady_clock::now();
  EXPECT_EQ("(0,)", client.Answer("SetPower", On()));
  EXPECT_LE(milliseconds(50), steady_clock::now() - start);
}

TEST_F(RecorderAnswers, CanBeTheDeathOfTheProcess) {
  recorder.DieOn("SetPower");
  EXPECT_EQ("org.freedesktop.DBus.Error.NoReply", client.Error("SetPower", On()));
  EXPECT_EQ(9, recorder.Process().Wait());
}

}  // namespace
}  // namespace bttest
