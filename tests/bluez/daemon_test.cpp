// A daemon on the system bus, and the queue of commands to it, in this process: what later parts of the stack
// rely on.

#include <csignal>
#include <optional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "service/app/GLibScheduler.h"
#include "service/bluez/BluezNames.h"
#include "service/bluez/bus/CommandQueue.h"
#include "support/MainLoop.h"
#include "tests/bluez/FakeDaemons.h"

namespace btservice {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kFirstObject = "/org/bluez/hci0";
constexpr const char* kSecondObject = "/org/bluez/hci1";

class BluezDaemonTest : public testing::Test {
 protected:
  void SetUp() override {
    m_daemons.AddAdapter("hci0", "00:1B:DC:0A:0B:0C");
    m_daemons.AddAdapter("hci1", "00:1B:DC:0A:0B:0D");
    m_bus.Connect();
    ASSERT_TRUE(bttest::RunUntil([this] { return m_daemon.IsThere(); }));
  }

  static bluez::MethodCall SetAlias(const char* object, const char* name,
                                    Milliseconds limit = Milliseconds(25000)) {
    return {
        object, "org.freedesktop.DBus.Properties", "Set",
        OwnedVariant(g_variant_new("(ssv)", bluez::kAdapterInterface, "Alias", g_variant_new_string(name))),
        limit};
  }
  /// Orders a name; its end is noted.
  bool Order(const char* object, const char* name) {
    return m_queue.Add(SetAlias(object, name),
                       [this, name](const bluez::Reply&) { m_ended.push_back(name); });
  }

  bttest::SystemBusDaemon m_busDaemon;
  bttest::FakeDaemons m_daemons;
  GLibScheduler m_scheduler{1};
  bluez::SystemBus m_bus{m_scheduler};
  bluez::Daemon m_daemon{m_bus, bluez::kBluezName};
  bluez::CommandQueue m_queue{m_daemon};
  std::vector<std::string> m_ended;
};

TEST_F(BluezDaemonTest, ACallThatIsNotAnsweredFailsAfterItsLimit) {
  m_daemons.Hang("Set Alias");
  std::optional<std::string> error;
  ASSERT_TRUE(m_daemon.Call(SetAlias(kFirstObject, "late", Milliseconds(20)), nullptr,
                            [&](const bluez::Reply& reply) { error = reply.error; }));
  EXPECT_TRUE(bttest::RunUntil([&] { return error.has_value(); }));
  EXPECT_NE(*error, "");
}

TEST_F(BluezDaemonTest, AnErrorIsThatOfTheDaemon) {
  m_daemons.Refuse("Set Alias", "org.bluez.Error.Busy", "In Progress");
  std::optional<std::string> error;
  m_daemon.Call(SetAlias(kFirstObject, "x"), nullptr,
                [&](const bluez::Reply& reply) { error = reply.error; });
  EXPECT_TRUE(bttest::RunUntil([&] { return error == "org.bluez.Error.Busy: In Progress"; }));
}

TEST_F(BluezDaemonTest, AnAnswerOfAnotherTypeIsAnError) {
  m_daemons.AnswerWith("Set Alias", g_variant_new("(i)", 5));
  std::optional<std::string> error;
  m_daemon.Call(SetAlias(kFirstObject, "x"), G_VARIANT_TYPE("()"),
                [&](const bluez::Reply& reply) { error = reply.error; });
  EXPECT_TRUE(bttest::RunUntil([&] { return error.has_value(); }));
  EXPECT_NE(*error, "");
}

TEST_F(BluezDaemonTest, ACallToADaemonThatEndsFailsAndThoseAfterItAreRefused) {
  m_daemons.Hang("Set Alias");
  std::optional<std::string> error;
  m_daemon.Call(SetAlias(kFirstObject, "x"), nullptr,
                [&](const bluez::Reply& reply) { error = reply.error; });
  ASSERT_TRUE(bttest::RunUntil([this] { return m_daemons.CountCalls("Set Alias") == 1; }));
  m_daemons.Process().Kill();
  EXPECT_TRUE(bttest::RunUntil([&] { return error.has_value() && !m_daemon.IsThere(); }));
  EXPECT_FALSE(m_daemon.Call(SetAlias(kFirstObject, "x"), nullptr, [](const bluez::Reply&) {}));
  EXPECT_FALSE(Order(kFirstObject, "x"));
}

TEST_F(BluezDaemonTest, CommandsForOneObjectGoOneAfterTheOtherAndThoseOfAnotherDoNotWait) {
  m_daemons.Hang("Set Alias");
  ASSERT_TRUE(Order(kFirstObject, "first"));
  ASSERT_TRUE(Order(kFirstObject, "second"));
  ASSERT_TRUE(bttest::RunUntil([this] { return m_daemons.CountCalls("Set Alias") == 1; }));
  m_daemons.Behave();
  ASSERT_TRUE(Order(kSecondObject, "other"));
  ASSERT_TRUE(bttest::RunUntil([this] { return !m_ended.empty(); }));
  EXPECT_THAT(m_ended, ElementsAre("other")) << "the first is not answered, and the second waits for it";
  EXPECT_EQ(m_daemons.CountCalls("Set Alias"), 2);
}

TEST_F(BluezDaemonTest, CommandsAreCarriedOutInTheirOrder) {
  ASSERT_TRUE(Order(kFirstObject, "first"));
  ASSERT_TRUE(Order(kFirstObject, "second"));
  ASSERT_TRUE(Order(kFirstObject, "third"));
  EXPECT_THAT(m_ended, IsEmpty()) << "never inside Add";
  ASSERT_TRUE(bttest::RunUntil([this] { return m_ended.size() == 3; }));
  EXPECT_THAT(m_ended, ElementsAre("first", "second", "third"));
}

TEST_F(BluezDaemonTest, CommandsThatAreForgottenAreNotReported) {
  m_daemons.Process().Signal(SIGSTOP);
  ASSERT_TRUE(Order(kFirstObject, "under way"));
  ASSERT_TRUE(Order(kFirstObject, "waits"));
  m_queue.Forget(kFirstObject);
  ASSERT_TRUE(Order(kFirstObject, "after"));
  m_daemons.Process().Signal(SIGCONT);
  ASSERT_TRUE(bttest::RunUntil([this] { return !m_ended.empty(); }));
  EXPECT_THAT(m_ended, ElementsAre("after"));
  EXPECT_EQ(m_daemons.CountCalls("Set Alias"), 2);
}

}  // namespace
}  // namespace btservice
