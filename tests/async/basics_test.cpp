// The library that never blocks: what a newcomer tries first.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "glib/Owned.h"
#include "protocol/BusNames.h"
#include "tests/async/AsyncFixture.h"

namespace {

using namespace btasync;
using bttest::Wait;
using bttest::WaitFor;
using testing::ElementsAre;

class BasicsTest : public testing::Test {
 protected:
  bttest::BusDaemon bus;
  bttest::Recorder recorder;
  Service service;
};

TEST(Texts, OfEachReasonAndAvailabilityAreItsOwn) {
  EXPECT_STREQ(ToText(Reason::NoBus), "no bus");
  EXPECT_STREQ(ToText(Reason::NoService), "no service");
  EXPECT_STREQ(ToText(Reason::ServiceGone), "service gone");
  EXPECT_STREQ(ToText(Reason::TimedOut), "timed out");
  EXPECT_STREQ(ToText(Reason::Cancelled), "cancelled");
  EXPECT_STREQ(ToText(Reason::ServiceError), "service error");
  EXPECT_STREQ(ToText(Reason::Malformed), "malformed");
  EXPECT_STREQ(ToText(Reason::InvalidArgument), "invalid argument");
  EXPECT_STREQ(ToText(static_cast<Reason>(99)), "unknown");
  EXPECT_STREQ(ToText(Availability::Unknown), "unknown");
  EXPECT_STREQ(ToText(Availability::NoBus), "no bus");
  EXPECT_STREQ(ToText(Availability::Absent), "absent");
  EXPECT_STREQ(ToText(Availability::Present), "present");
  EXPECT_STREQ(ToText(static_cast<Availability>(99)), "unknown");
}

TEST_F(BasicsTest, SeesTheServiceComeAndGo) {
  std::vector<Availability> seen;
  Scope scope;
  service.OnAvailability(scope, [&](Availability now) { seen.push_back(now); });
  EXPECT_TRUE(seen.empty()) << "never inside the call";
  ASSERT_TRUE(WaitFor(service, Availability::Present));
  recorder.ReleaseName();
  ASSERT_TRUE(WaitFor(service, Availability::Absent));
  recorder.OwnName();
  ASSERT_TRUE(WaitFor(service, Availability::Present));
  EXPECT_THAT(seen, ElementsAre(Availability::Unknown, Availability::Present, Availability::Absent,
                                Availability::Present));
}

TEST_F(BasicsTest, AnswersAcceptedRefusedOrAValue) {
  recorder.SetReply("SetPower", g_variant_new("(i)", 1));
  EXPECT_TRUE(Wait(service.SetPower(true)).Accepted());
  recorder.SetReply("SetPower", g_variant_new("(i)", 0));
  EXPECT_TRUE(Wait(service.SetPower(true)).Refused());
  recorder.SetReply("GetPowerStatus", g_variant_new("(y)", BT_POWER_TURNING_ON));
  EXPECT_EQ(*Wait(service.GetPowerStatus()), BT_POWER_TURNING_ON);
  EXPECT_THAT(recorder.TakeCallTexts(),
              ElementsAre("SetPower(byte 0x01,)", "SetPower(byte 0x01,)", "GetPowerStatus()"));
}

TEST_F(BasicsTest, DeliversTheEventsThatAreSubscribed) {
  ASSERT_TRUE(WaitFor(service, Availability::Present));
  std::vector<std::string> found;
  Scope scope;
  service.On<DeviceFound>(scope, [&](const DeviceFound& event) {
    found.push_back(event.address.ToText() + " " + event.name + " " + std::to_string(event.support));
  });
  ASSERT_TRUE(Wait(service.GetPowerStatus()).Accepted());  // the bus has the subscription by now
  recorder.Emit("OnScanedDeviceChanged", g_variant_new("(ssy)", "00:1A:7D:DA:71:13", "Ada's phone", 1));
  ASSERT_TRUE(bttest::RunUntil([&] { return !found.empty(); }));
  EXPECT_THAT(found, ElementsAre("00:1A:7D:DA:71:13 Ada's phone 1"));
}

/// Which events of the service the bus has been asked to deliver, to whomever.
std::vector<std::string> EventsThatTheBusDelivers() {
  const OwnedObject<GDBusConnection> connection(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
  const OwnedVariant answer(g_dbus_connection_call_sync(
      connection.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus.Debug.Stats",
      "GetAllMatchRules", nullptr, nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr));
  if (answer == nullptr) {
    throw std::runtime_error("this bus daemon does not say what it delivers");
  }
  const OwnedText text(g_variant_print(answer.get(), FALSE));
  const std::string rules = text.get();
  const std::string ofTheService = std::string("interface='") + kServiceInterface + "'";
  const std::string member = "member='";
  std::vector<std::string> events;
  for (std::size_t at = 0; (at = rules.find(ofTheService, at)) != std::string::npos; ++at) {
    const std::size_t name = rules.find(member, at) + member.size();
    events.push_back(rules.substr(name, rules.find('\'', name) - name));
  }
  return events;
}

TEST_F(BasicsTest, LetsTheBusDeliverOnlyWhatSomebodyHasSubscribed) {
  const auto delivered = [&] {
    EXPECT_TRUE(Wait(service.GetPowerStatus()).Accepted());  // the bus knows all that it was told before
    return EventsThatTheBusDelivers();
  };
  EXPECT_THAT(delivered(), testing::IsEmpty());
  Scope one;
  Scope other;
  service.On<PowerChanged>(one, [](const PowerChanged&) {});
  EXPECT_THAT(delivered(), ElementsAre("OnOpenBtStatusChanged"));
  service.On<PowerChanged>(other, [](const PowerChanged&) {});
  service.On<ScanChanged>(other, [](const ScanChanged&) {});
  EXPECT_THAT(delivered(), testing::UnorderedElementsAre("OnOpenBtStatusChanged", "OnScanStatusChanged"));
  one.Clear();
  EXPECT_THAT(delivered(), testing::UnorderedElementsAre("OnOpenBtStatusChanged", "OnScanStatusChanged"));
  other.Clear();
  EXPECT_THAT(delivered(), testing::IsEmpty());
}

TEST_F(BasicsTest, CallsNothingOnceTheScopeIsGone) {
  bool called = false;
  {
    Scope scope;
    service.GetPowerStatus().Then(scope, [&](Answer<PowerStatus>) { called = true; });
  }
  ASSERT_TRUE(Wait(service.GetPowerStatus()).Accepted());
  EXPECT_FALSE(called);
}

TEST_F(BasicsTest, TimesOutAndSaysWhy) {
  recorder.Hang("GetPowerStatus");
  const Answer<PowerStatus> answer = Wait(service.GetPowerStatus().Within(std::chrono::milliseconds(50)));
  ASSERT_TRUE(answer.Failed());
  EXPECT_EQ(answer.Why().reason, Reason::TimedOut);
}

}  // namespace
