// The connection to the bus: before it stands, while there is none, and after it was lost.

#include <sys/stat.h>

#include <cstdlib>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/async/AsyncFixture.h"
#include "tests/async/SilentBus.h"

namespace {

using namespace btasync;
using namespace std::chrono_literals;
using bttest::RunUntil;
using bttest::Wait;
using bttest::WaitFor;
using testing::ElementsAre;
using testing::IsEmpty;

/// Waits for an event that the recorder emits again and again: the bus may not have the subscription yet.
template <typename Event>
bool WaitForEvent(Service& service, bttest::Recorder& recorder, const char* signal, const char* values) {
  bool came = false;
  Scope scope;
  service.On<Event>(scope, [&](const Event&) { came = true; });
  return RunUntil([&] {
    recorder.Emit(signal, g_variant_new_parsed(values));
    return came;
  });
}

TEST(ConnectionTest, IsMadeWhileRequestsWait) {
  bttest::BusDaemon bus;
  bttest::Recorder recorder;
  Service service;
  EXPECT_EQ(service.Now(), Availability::Unknown);
  recorder.SetReply("GetPowerStatus", g_variant_new("(y)", BT_POWER_ON));
  std::vector<std::string> order;
  Scope scope;
  service.SetPower(true).Then(scope, [&](Answer<>) { order.emplace_back("SetPower"); });
  service.GetPowerStatus().Then(scope, [&](Answer<PowerStatus> answer) {
    EXPECT_EQ(*answer, BT_POWER_ON);
    order.emplace_back("GetPowerStatus");
  });
  ASSERT_TRUE(RunUntil([&] { return order.size() == 2; }));
  EXPECT_THAT(order, ElementsAre("SetPower", "GetPowerStatus")) << "in the order of sending";
}

TEST(ConnectionTest, SendsNothingThatNobodyWantsAnyMore) {
  bttest::BusDaemon bus;
  bttest::Recorder recorder;
  Service service;
  Scope kept;
  {
    Scope scope;
    service.SetPower(true).Then(scope, [](Answer<>) { ADD_FAILURE(); });
  }
  bool cancelled = false;
  Call call = service.DialCall("110").Then(kept, [&](Answer<> answer) {
    cancelled = answer.Failed() && answer.Why().reason == Reason::Cancelled;
  });
  service.AcceptCall().Send();
  call.Cancel();
  ASSERT_TRUE(WaitFor(service, Availability::Present));
  ASSERT_TRUE(Wait(service.GetPowerStatus()).Accepted());
  EXPECT_TRUE(cancelled);
  EXPECT_THAT(recorder.TakeCallTexts(), ElementsAre("AcceptCall()", "GetPowerStatus()"));
}

TEST(ConnectionTest, HoldsNobodyWhileTheBusSaysNothing) {
  bttest::SilentBus bus;
  Service service;
  const Answer<> answer = Wait(service.SetPower(true).Within(50ms));
  ASSERT_TRUE(answer.Failed());
  EXPECT_EQ(answer.Why().reason, Reason::TimedOut);
  EXPECT_EQ(service.Now(), Availability::Unknown);
}

TEST(ConnectionTest, MayBeGivenUpWhileTheBusSaysNothing) {
  bttest::SilentBus bus;
  Scope scope;
  {
    Service service;
    service.SetPower(true).Then(scope, [](Answer<>) { ADD_FAILURE(); });
    bttest::RunPending();
  }
  EXPECT_TRUE(scope.IsEmpty());
  bttest::RunPending();
}

class NoAddressTest : public testing::Test {
 protected:
  NoAddressTest() {
    unsetenv("DBUS_SESSION_BUS_ADDRESS");
    // GLib looks this up once.
    setenv("XDG_RUNTIME_DIR", m_directory.Path().c_str(), 1);
  }

  bttest::TemporaryDirectory m_directory;
};

TEST_F(NoAddressTest, IsNoBusIfNoneIsInTheUsualPlace) {
  std::vector<Availability> seen;
  Service service;
  Scope scope;
  service.OnAvailability(scope, [&](Availability now) { seen.push_back(now); });
  EXPECT_THAT(seen, IsEmpty());
  const Answer<PowerStatus> answer = Wait(service.GetPowerStatus());
  ASSERT_TRUE(answer.Failed());
  EXPECT_EQ(answer.Why().reason, Reason::NoBus);
  EXPECT_THAT(seen, ElementsAre(Availability::NoBus));
}

TEST_F(NoAddressTest, IsTheBusInTheUsualPlace) {
  bttest::BusDaemon bus;
  bttest::Recorder recorder;
  unsetenv("DBUS_SESSION_BUS_ADDRESS");
  std::filesystem::create_symlink(bus.Address().substr(sizeof "unix:path=" - 1), m_directory.Path() / "bus");
  Service service;
  EXPECT_TRUE(Wait(service.GetPowerStatus()).Accepted());
}

TEST(ConnectionTest, ComesAboutOnceThereIsABus) {
  bttest::BusDaemon bus;
  bus.Stop();
  Service service;
  ASSERT_TRUE(WaitFor(service, Availability::NoBus));
  bus.Start();
  bttest::Recorder recorder;
  ASSERT_TRUE(WaitFor(service, Availability::Present));
  EXPECT_TRUE(Wait(service.GetPowerStatus()).Accepted());
}

TEST(ConnectionTest, ComesBackWithTheBusAndWithWhatWasSubscribed) {
  bttest::BusDaemon bus;
  Service service;
  std::vector<Availability> seen;
  Scope scope;
  int changes = 0;
  service.OnAvailability(scope, [&](Availability now) { seen.push_back(now); });
  service.On<PowerChanged>(scope, [&](const PowerChanged&) { ++changes; });
  std::optional<bttest::Recorder> recorder(std::in_place);
  ASSERT_TRUE(WaitFor(service, Availability::Present));

  bus.Stop();
  ASSERT_TRUE(WaitFor(service, Availability::NoBus));
  service.On<ScanChanged>(scope, [&](const ScanChanged&) { ++changes; });
  bus.Start();
  recorder.emplace();
  ASSERT_TRUE(WaitFor(service, Availability::Present));
  EXPECT_TRUE(Wait(service.GetPowerStatus()).Accepted());
  recorder->Emit("OnOpenBtStatusChanged", g_variant_new("(y)", BT_POWER_ON));
  recorder->Emit("OnScanStatusChanged", g_variant_new("(y)", 1));
  ASSERT_TRUE(RunUntil([&] { return changes == 2; }));
  EXPECT_TRUE(WaitForEvent<SignalChanged>(service, *recorder, "OnBtSignalChanged", "(byte 3,)"));
  EXPECT_THAT(std::vector<Availability>(seen.end() - 3, seen.end()), testing::Contains(Availability::NoBus));
}

TEST(ConnectionTest, IsKnownToBeLostBeforeTheRequestsFail) {
  bttest::BusDaemon bus;
  bttest::Recorder recorder;
  Service service;
  ASSERT_TRUE(WaitFor(service, Availability::Present));
  recorder.Hang("GetPowerStatus");
  std::vector<Availability> heard;
  std::vector<bool> wasHeard;
  Scope scope;
  service.OnAvailability(scope, [&](Availability now) { heard.push_back(now); });
  ASSERT_TRUE(RunUntil([&] { return heard.size() == 1; }));
  for (int i = 0; i < 2; ++i) {
    service.GetPowerStatus().Then(scope, [&](Answer<PowerStatus>) {
      wasHeard.push_back(heard.back() == Availability::NoBus && service.Now() == Availability::NoBus);
    });
  }
  ASSERT_TRUE(recorder.WaitForCalls(2));
  bus.Stop();
  ASSERT_TRUE(RunUntil([&] { return wasHeard.size() == 2; }));
  EXPECT_THAT(wasHeard, ElementsAre(true, true));
}

TEST(ConnectionTest, SeesThatAnotherProcessIsTheServiceNow) {
  bttest::BusDaemon bus;
  std::optional<bttest::Recorder> recorder(std::in_place);
  Service service;
  ASSERT_TRUE(WaitFor(service, Availability::Present));
  std::vector<Availability> seen;
  Scope scope;
  service.OnAvailability(scope, [&](Availability now) { seen.push_back(now); });
  ASSERT_TRUE(RunUntil([&] { return seen.size() == 1; }));
  recorder->Kill();
  recorder.emplace();  // while the loop does not run
  ASSERT_TRUE(RunUntil([&] { return seen.size() == 3; }));
  EXPECT_THAT(seen, ElementsAre(Availability::Present, Availability::Absent, Availability::Present));
  EXPECT_TRUE(WaitForEvent<SignalChanged>(service, *recorder, "OnBtSignalChanged", "(byte 3,)"));
}

TEST(ConnectionTest, OutlivesBusesThatComeAndGo) {
  bttest::BusDaemon bus;
  Service service;
  int changes = 0;
  Scope scope;
  service.On<PowerChanged>(scope, [&](const PowerChanged&) { ++changes; });
  for (int i = 0; i < 3; ++i) {
    {
      bttest::Recorder recorder;
      ASSERT_TRUE(WaitFor(service, Availability::Present)) << i;
      ASSERT_TRUE(Wait(service.GetPowerStatus()).Accepted());
      recorder.Emit("OnOpenBtStatusChanged", g_variant_new("(y)", BT_POWER_ON));
      ASSERT_TRUE(RunUntil([&] { return changes == i + 1; })) << i;
    }
    bus.Stop();
    ASSERT_TRUE(WaitFor(service, Availability::NoBus)) << i;
    bus.Start();
  }
}

}  // namespace
