// The lists and tables of the simulated service, which the blocking library reads too.

#include <atomic>
#include <csignal>
#include <list>
#include <thread>

#include <gio/gio.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bluetooth/MWPBluetooth.h>
#include <bluetooth/MWPBtPbap.h>

#include "fuzz/Records.h"
#include "glib/Owned.h"
#include "protocol/BusNames.h"
#include "support/LogCapture.h"
#include "tests/async/AsyncFixture.h"

namespace {

using namespace btasync;
using bttest::RunUntil;
using bttest::Wait;
using bttest::WaitFor;

class SimulatedLists : public testing::Test {
 protected:
  /// Starts the service, connects its one phone, and waits until as many contacts are there.
  void Start(const std::string& world, const char* phone, int contacts) {
    process.emplace(
        std::vector<std::string>{"/app/bin/btservice", "--world", world, "--no-state", "--speed", "100"});
    address = Address(phone);
    ASSERT_TRUE(WaitFor(service, Availability::Present)) << process->Errors();
    ASSERT_TRUE(RunUntil([&] { return *Wait(service.GetPowerStatus()) == BT_POWER_ON; }));
    ASSERT_TRUE(Wait(service.Connect(address, BT_PROFILE_HFP)));
    ASSERT_TRUE(RunUntil([&] { return Wait(service.GetContactCount()).ValueOr(0) == contacts; }));
  }

  void StartWithThreeContacts() {
    Start(BTTEST_WORLD, "00:1A:7D:DA:71:13", 3);
    ASSERT_TRUE(RunUntil([&] { return Wait(service.GetCallLogCount(CALL_LOG_ALL)).ValueOr(0) == 3; }));
  }

  bttest::BusDaemon bus;
  std::optional<bttest::ChildProcess> process;
  Address address;
  Service service;
};

TEST_F(SimulatedLists, OfContactsHaveTheValuesOfThePhone) {
  StartWithThreeContacts();
  const auto contacts = Wait(service.Contacts());
  ASSERT_TRUE(contacts) << contacts.Why().detail;
  ASSERT_EQ(contacts->size(), 3u);
  EXPECT_EQ(contacts->front().strText1, "Ada");
  EXPECT_EQ(contacts->front().strText2, "Arndt");
  EXPECT_EQ(contacts->front().listNumbers.size(), 3u);
  for (int index = 0; index < 3; ++index) {
    const auto contact = Wait(service.GetContact(index));
    ASSERT_TRUE(contact) << contact.Why().detail;
    EXPECT_TRUE(bttest::IsSame(*contact, (*contacts)[static_cast<std::size_t>(index)]));
  }
  EXPECT_TRUE(Wait(service.GetContact(3)).Refused());
  EXPECT_TRUE(Wait(service.GetContact(-1)).Refused());
}

TEST_F(SimulatedLists, OfFavouritesHaveThoseThatWereMadeOnes) {
  StartWithThreeContacts();
  EXPECT_TRUE(Wait(service.FavoriteContacts())->empty());
  const auto contacts = Wait(service.Contacts());
  ASSERT_TRUE(Wait(service.SetContactFavorite(contacts->back().nContactId, true)));
  const auto favorites = Wait(service.FavoriteContacts());
  ASSERT_TRUE(favorites) << favorites.Why().detail;
  ASSERT_EQ(favorites->size(), 1u);
  EXPECT_TRUE(bttest::IsSame(favorites->front(), contacts->back()));
}

TEST_F(SimulatedLists, OfCallLogsHaveTheirType) {
  StartWithThreeContacts();
  EXPECT_EQ(Wait(service.CallLogs(CALL_LOG_ALL))->size(), 3u);
  for (const CallLogType type : {CALL_LOG_INCOMING, CALL_LOG_OUTGOING, CALL_LOG_MISSED}) {
    const auto logs = Wait(service.CallLogs(type));
    ASSERT_TRUE(logs) << logs.Why().detail;
    ASSERT_EQ(logs->size(), 1u);
    EXPECT_EQ(logs->front().nValue2, type);
    const auto log = Wait(service.GetCallLog(logs->front().nLogId));
    ASSERT_TRUE(log) << log.Why().detail;
    EXPECT_TRUE(bttest::IsSame(*log, logs->front()));
  }
  EXPECT_TRUE(Wait(service.GetCallLog(12345)).Refused());
}

TEST_F(SimulatedLists, OfFiveThousandContactsAreThoseOfTheBlockingLibrary) {
  Start(BTTEST_BIG_WORLD, "00:1A:7D:DA:71:15", 5000);
  const auto contacts = Wait(service.Contacts());
  ASSERT_TRUE(contacts) << contacts.Why().detail;
  {
    const bttest::LogCapture quiet;
    ASSERT_NE(MWP_CreateBlueTooth(), 0);
  }
  std::list<MWPTypeContact> theirs;
  MWPBtPbap().GetContactList(theirs);
  ASSERT_EQ(contacts->size(), theirs.size());
  EXPECT_TRUE(std::equal(theirs.begin(), theirs.end(), contacts->begin(),
                         [](const auto& one, const auto& other) { return bttest::IsSame(one, other); }));
  MWP_DestroyBlueTooth();
}

TEST_F(SimulatedLists, TablesFollowTheService) {
  StartWithThreeContacts();
  const auto isConnected = [&] {
    const auto devices = Wait(service.PairedDevices());
    return devices && devices->size() == 1 && devices->front().strAddr == address.ToText() &&
           devices->front().strName == "Ada's phone" && devices->front().eConnectStatus == BT_CONN_CONNECTED;
  };
  EXPECT_TRUE(RunUntil(isConnected));
  ASSERT_TRUE(Wait(service.DialCall("+49170000002")));
  const auto hasCall = [&] {
    const auto calls = Wait(service.CurrentCalls());
    return calls && calls->nCallCount == 1 && calls->callSlot1.strText1 == "+49170000002" &&
           calls->callSlot1.strText2 == "Ben Baker";
  };
  EXPECT_TRUE(RunUntil(hasCall));

  // The service dies in the call. Its segments stay; what is in them is not answered.
  process->Kill();
  ASSERT_TRUE(WaitFor(service, Availability::Absent));
  EXPECT_EQ(Wait(service.CurrentCalls()).Why().reason, Reason::NoService);
  process.emplace(std::vector<std::string>{"/app/bin/btservice", "--world", BTTEST_WORLD, "--no-state"});
  ASSERT_TRUE(WaitFor(service, Availability::Present));
  EXPECT_EQ(Wait(service.CurrentCalls())->nCallCount, 0);
  EXPECT_EQ(Wait(service.PairedDevices())->front().eConnectStatus, BT_CONN_DISCONNECTED);

  // A service that ends removes its segments, and the next one makes others.
  process->Signal(SIGTERM);
  ASSERT_TRUE(process->Wait());
  process.emplace(std::vector<std::string>{"/app/bin/btservice", "--world", BTTEST_WORLD, "--no-state"});
  ASSERT_TRUE(WaitFor(service, Availability::Absent));
  ASSERT_TRUE(WaitFor(service, Availability::Present));
  EXPECT_EQ(Wait(service.PairedDevices())->size(), 1u);
}

/// Another application, which asks for all call logs again and again, in the place that all applications use.
class OtherApplication {
 public:
  explicit OtherApplication(const std::string& busAddress)
      : m_thread([this, busAddress] { Run(busAddress); }) {}
  OtherApplication(const OtherApplication&) = delete;
  OtherApplication& operator=(const OtherApplication&) = delete;
  ~OtherApplication() {
    m_stop = true;
    m_thread.join();
  }

  int Requests() const { return m_requests; }

 private:
  void Run(const std::string& busAddress) {
    const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                         G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    const OwnedObject<GDBusConnection> connection(
        g_dbus_connection_new_for_address_sync(busAddress.c_str(), flags, nullptr, nullptr, nullptr));
    while (!m_stop) {
      const OwnedVariant answer(g_dbus_connection_call_sync(
          connection.get(), kServiceName, kServicePath, kServiceInterface, "GetCallLogList",
          g_variant_new("(y)", CALL_LOG_ALL), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr));
      m_requests += answer != nullptr ? 1 : 0;
    }
  }

  std::atomic<bool> m_stop{false};
  std::atomic<int> m_requests{0};
  std::thread m_thread;
};

TEST_F(SimulatedLists, OfAnotherApplicationAreNotTakenForOnesOwn) {
  StartWithThreeContacts();
  const OtherApplication other(bus.Address());
  int right = 0;
  for (int i = 0; i < 100 || other.Requests() < 100 || right == 0; ++i) {
    const auto logs = Wait(service.CallLogs(CALL_LOG_MISSED));
    if (!logs) {
      ASSERT_EQ(logs.Why().reason, Reason::Malformed);
      continue;
    }
    ++right;
    ASSERT_EQ(logs->size(), 1u);
    ASSERT_EQ(logs->front().nValue2, CALL_LOG_MISSED);
  }
}

}  // namespace
