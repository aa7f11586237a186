// A device that BlueZ has forgotten, or never knew, is found again by its address: the parts of the stack in
// this process, over a fake of BlueZ's daemon.

#include <optional>

#include <gtest/gtest.h>

#include "service/app/GLibScheduler.h"
#include "service/bluez/BluezNames.h"
#include "service/bluez/devices/Lookup.h"
#include "support/MainLoop.h"
#include "tests/bluez/FakeDaemons.h"

namespace btservice {
namespace {

constexpr const char* kWanted = "00:1A:7D:DA:71:13";
constexpr const char* kOther = "00:1A:7D:DA:71:14";

class BluezLookupTest : public testing::Test {
 protected:
  void SetUp() override {
    m_daemons.AddAdapter("hci0", "00:1B:DC:0A:0B:0C");
    m_power.Begin(true);
    m_bus.Connect();
    ASSERT_TRUE(bttest::RunUntil([this] { return m_power.IsOn(); }));
  }

  /// Looks for the device, and waits for the end.
  std::optional<bool> LookFor(const std::string& address) {
    std::optional<bool> isThere;
    if (!m_lookup.Begin(address, [&](bool there) { isThere = there; })) {
      return std::nullopt;
    }
    bttest::RunUntil([&] { return isThere.has_value(); }, 3 * bttest::kBound);
    return isThere;
  }
  bool IsStopped() {
    return bttest::RunUntil([this] { return m_daemons.CountCalls("StopDiscovery") == 1; });
  }

  bttest::SystemBusDaemon m_busDaemon;
  bttest::FakeDaemons m_daemons;
  GLibScheduler m_scheduler{1};
  StackObservers m_observers;
  bluez::StackContext m_context{m_scheduler, m_observers};
  bluez::SystemBus m_bus{m_scheduler};
  bluez::Daemon m_daemon{m_bus, bluez::kBluezName};
  bluez::CommandQueue m_commands{m_daemon};
  bluez::ObjectMirror m_mirror{m_daemon, m_scheduler, bluez::kBluezPrefix};
  bluez::CurrentAdapter m_adapter{m_mirror, m_commands};
  bluez::Power m_power{m_context, m_adapter};
  bluez::FoundDevices m_found{m_context, m_mirror, m_adapter};
  bluez::Search m_search{m_context, m_adapter, m_power, m_found};
  bluez::Lookup m_lookup{m_context, m_mirror, m_adapter, m_power, m_search};
};

TEST_F(BluezLookupTest, FindsOneDeviceByItsAddressAndNoOther) {
  m_daemons.PutInReach(kWanted);
  m_daemons.PutInReach(kOther);
  EXPECT_EQ(LookFor("00:1a:7d:da:71:13"), true);
  EXPECT_EQ(m_daemons.Devices(), std::vector<std::string>{kWanted});
  EXPECT_TRUE(IsStopped());
  EXPECT_EQ(LookFor(kWanted), true) << "it is there already";
  EXPECT_EQ(m_daemons.CountCalls("StartDiscovery"), 1);
  EXPECT_FALSE(m_found.Find(kWanted)) << "nobody has searched";
}

TEST_F(BluezLookupTest, FindsAgainWhatBluezHasForgotten) {
  m_daemons.PutInReach(kWanted);
  ASSERT_EQ(LookFor(kWanted), true);
  ASSERT_TRUE(IsStopped());
  m_daemons.ForgetDevices();
  ASSERT_TRUE(bttest::RunUntil([this] { return m_mirror.PathsWith(bluez::kDeviceInterface).empty(); }));
  EXPECT_EQ(LookFor(kWanted), true);
}

TEST_F(BluezLookupTest, EndsWithoutADeviceThatIsNotInReach) {
  m_daemons.PutInReach(kOther);
  EXPECT_EQ(LookFor(kWanted), false);
  EXPECT_TRUE(IsStopped());
}

TEST_F(BluezLookupTest, UsesTheSearchOfTheUserAndGoesOnAfterIt) {
  ASSERT_TRUE(m_search.Set(true));
  std::optional<bool> isThere;
  ASSERT_TRUE(m_lookup.Begin(kWanted, [&](bool there) { isThere = there; }));
  EXPECT_FALSE(m_lookup.Begin(kOther, [](bool) {})) << "one is looked for";
  ASSERT_TRUE(bttest::RunUntil([this] { return m_daemons.CountCalls("StartDiscovery") == 1; }));
  ASSERT_TRUE(m_search.Set(false));
  ASSERT_TRUE(bttest::RunUntil([this] { return m_daemons.CountCalls("StartDiscovery") == 2; }));
  EXPECT_NE(m_daemons.Filter().find(kWanted), std::string::npos);
  m_daemons.PutInReach(kWanted);
  EXPECT_TRUE(bttest::RunUntil([&] { return isThere == true; }));
}

TEST_F(BluezLookupTest, GivesWayToTheSearchOfTheUser) {
  std::optional<bool> isThere;
  ASSERT_TRUE(m_lookup.Begin(kWanted, [&](bool there) { isThere = there; }));
  ASSERT_TRUE(bttest::RunUntil([this] { return m_daemons.CountCalls("StartDiscovery") == 1; }));
  ASSERT_TRUE(m_search.Set(true));
  ASSERT_TRUE(bttest::RunUntil([this] { return m_daemons.CountCalls("StartDiscovery") == 2; }));
  EXPECT_TRUE(IsStopped());
  EXPECT_EQ(m_daemons.Filter().find("Pattern"), std::string::npos) << "all devices are searched for";
  m_daemons.PutInReach(kWanted);
  EXPECT_TRUE(bttest::RunUntil([&] { return isThere == true; }));
  EXPECT_EQ(m_daemons.CountCalls("StopDiscovery"), 1) << "the search of the user goes on";
  EXPECT_FALSE(m_search.IsIdle());
}

TEST_F(BluezLookupTest, EndsWithThePowerAndIsRefusedWithoutIt) {
  std::optional<bool> isThere;
  ASSERT_TRUE(m_lookup.Begin(kWanted, [&](bool there) { isThere = there; }));
  m_daemons.Process().Kill();
  EXPECT_TRUE(bttest::RunUntil([&] { return isThere == false; }));
  EXPECT_FALSE(m_lookup.Begin(kWanted, [](bool) {}));
}

TEST_F(BluezLookupTest, IsRefusedWithoutAnAddressAndEndsIfBluezRefuses) {
  EXPECT_EQ(LookFor("nobody"), std::nullopt);
  m_daemons.Refuse("StartDiscovery", "org.bluez.Error.NotReady", "not now");
  EXPECT_EQ(LookFor(kWanted), false);
  EXPECT_EQ(m_daemons.CountCalls("StopDiscovery"), 0) << "there is nothing to stop";
}

}  // namespace
}  // namespace btservice
