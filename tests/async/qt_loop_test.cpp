// Qt's loop, where that is GLib's.

#include <QAbstractEventDispatcher>
#include <QCoreApplication>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/async/AsyncFixture.h"

namespace {

using namespace btasync;
using namespace std::chrono_literals;
using testing::ElementsAre;

TEST(QtLoopTest, CompletesRequestsAndDeliversEventsAndTime) {
  char name[] = "qt_loop_test";
  char* arguments[] = {name, nullptr};
  int count = 1;
  const QCoreApplication application(count, arguments);
  if (!QCoreApplication::eventDispatcher()->inherits("QEventDispatcherGlib")) {
    GTEST_SKIP() << "this Qt does not use GLib's loop";
  }
  bttest::BusDaemon bus;
  bttest::Recorder recorder;
  Service service;
  Scope scope;
  std::vector<std::string> order;
  Timer timer(service);
  Timer tooLate(service);
  service.On<PowerChanged>(scope, [&](const PowerChanged&) {
    order.emplace_back("event");
    timer.Start(1ms, [&] {
      order.emplace_back("time");
      QCoreApplication::quit();
    });
  });
  service.GetPowerStatus().Then(scope, [&](Answer<PowerStatus> answer) {
    order.emplace_back(answer ? "answer" : "failure");
    recorder.Emit("OnOpenBtStatusChanged", g_variant_new("(y)", BT_POWER_ON));
  });
  tooLate.Start(bttest::kBound, [] { QCoreApplication::exit(1); });
  EXPECT_TRUE(order.empty());
  EXPECT_EQ(QCoreApplication::exec(), 0);
  EXPECT_THAT(order, ElementsAre("answer", "event", "time"));
}

}  // namespace
