// Both libraries in one process and on one loop: they ask the same, and come to the same; neither disturbs
// the other.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include <bluetooth/MWPBtCom.h>

#include "contract/AdapterCalls.h"
#include "contract/RecordingListeners.h"
#include "contract/StartedLibrary.h"
#include "contract/WireValues.h"
#include "support/LogCapture.h"
#include "tests/async/AsyncFixture.h"
#include "tests/async/EventTable.h"
#include "tests/async/RequestTable.h"

namespace {

using btasync::Address;
using btasync::Availability;
using btasync::Service;
using bttest::AdapterCalls;
using bttest::BluetoothInterface;
using bttest::EventTable;
using bttest::MethodDescription;
using bttest::Outcome;
using bttest::RequestRow;
using bttest::RequestTable;
using bttest::RunUntil;
using bttest::ToText;

/// libbt answers 1 to these, whatever the service says.
const std::set<std::string> kAlwaysOneInLibbt{"PlayMusic", "StopMusic"};

/// The requests that libbt sends, too.
std::vector<RequestRow> SharedRequests() {
  std::vector<RequestRow> rows;
  for (const RequestRow& row : RequestTable()) {
    if (AdapterCalls().count(row.method) != 0) {
      rows.push_back(row);
    }
  }
  return rows;
}

/// What libbt answers: the result and the out arguments as a tuple.
OwnedVariant AskLibbt(BtClientIpcAdapter& adapter, const RequestRow& row, int variety) {
  const MethodDescription& method = BluetoothInterface().Method(row.method);
  const OwnedVariant arguments = row.arguments(variety);
  bttest::Out out(method.out);
  AdapterCalls().at(row.method)(adapter, bttest::In(arguments.get()), out);
  return OwnedVariant(out.Tuple());
}

TEST(AsyncParity, BothSendTheSameAndComeToTheSame) {
  bttest::BusDaemon bus;
  bttest::Recorder recorder;
  BtClientIpcAdapter adapter;
  ASSERT_TRUE(adapter.InitDBusConnect());
  Service service;
  ASSERT_TRUE(bttest::WaitFor(service, Availability::Present));
  recorder.TakeCalls();
  EXPECT_FALSE(SharedRequests().empty());
  for (const RequestRow& row : SharedRequests()) {
    SCOPED_TRACE("Service::" + row.member);
    for (int variety = 0; variety < bttest::kVarieties; ++variety) {
      const OwnedVariant reply =
          OwnedVariant(bttest::MakeTuple(BluetoothInterface().Method(row.method).out, variety));
      recorder.SetReply(row.method, reply.get());
      const OwnedVariant first = AskLibbt(adapter, row, variety);
      const Outcome second = row.ask(service, variety);
      const std::vector<std::string> calls = recorder.TakeCallTexts();
      ASSERT_EQ(calls.size(), 2U);
      EXPECT_EQ(calls[0], calls[1]);
      const bool isAlwaysOne = kAlwaysOneInLibbt.count(row.method) != 0;
      EXPECT_EQ(second, row.expected(isAlwaysOne ? reply.get() : first.get()));
    }
  }
}

#ifdef BTTEST_PARITY_WORLD

class AsyncParityWithTheService : public testing::Test {
 protected:
  AsyncParityWithTheService() {
    EXPECT_TRUE(bttest::WaitFor(service, Availability::Present));
    EXPECT_TRUE(adapter.InitDBusConnect());
  }

  void ExpectTheSame(const RequestRow& row) {
    SCOPED_TRACE("Service::" + row.member);
    const OwnedVariant first = AskLibbt(adapter, row, 0);
    const Outcome second = row.ask(service, 0);
    if (kAlwaysOneInLibbt.count(row.method) == 0) {
      EXPECT_EQ(second, row.expected(first.get())) << "libbt: " << ToText(first.get());
    }
  }

  /// Switches the adapter, and waits until it is switched; it may switch itself on at the start.
  bool Switch(bool on) {
    return RunUntil([&] {
      const btasync::PowerStatus status =
          bttest::Wait(service.GetPowerStatus()).ValueOr(btasync::BT_POWER_TURNING_ON);
      if (status == (on ? btasync::BT_POWER_OFF : btasync::BT_POWER_ON)) {
        static_cast<void>(bttest::Wait(service.SetPower(on)));
      }
      return status == (on ? btasync::BT_POWER_ON : btasync::BT_POWER_OFF);
    });
  }

  /// Until its player and its phone book are there, too.
  bool ConnectPhone() {
    return Switch(true) && bttest::Wait(service.Connect(Address("00:1A:7D:DA:71:10"))).Accepted() &&
           RunUntil([&] {
             return bttest::Wait(service.GetMediaInfo()).Accepted() &&
                    bttest::Wait(service.GetContactCount()).ValueOr(0) == 6;
           });
  }

  bttest::LogCapture quiet;  // libbt says what is refused
  bttest::BusDaemon bus;
  bttest::ChildProcess process{
      {"/app/bin/btservice", "--world", BTTEST_PARITY_WORLD, "--no-state", "--speed", "50"}};
  Service service;
  BtClientIpcAdapter adapter;
};

TEST_F(AsyncParityWithTheService, RefusedIsZeroWhileTheAdapterIsOff) {
  ASSERT_TRUE(Switch(false));
  int refused = 0;
  for (const RequestRow& row : SharedRequests()) {
    if (row.member != "SetPower") {
      ExpectTheSame(row);
      refused += row.ask(service, 0).kind == Outcome::REFUSED ? 1 : 0;
    }
  }
  EXPECT_GE(refused, 30);
}

TEST_F(AsyncParityWithTheService, ValuesAreTheSameWhileAPhoneIsConnected) {
  ASSERT_TRUE(ConnectPhone());
  int answered = 0;
  for (const RequestRow& row : SharedRequests()) {
    const bool isQuestion = row.member.rfind("Get", 0) == 0 || row.member.rfind("Supports", 0) == 0 ||
                            row.member.rfind("IsAt", 0) == 0;
    if (isQuestion && row.member != "GetBluetoothServiceStatus") {
      ExpectTheSame(row);
      ++answered;
    }
  }
  EXPECT_GT(answered, 0);
}

// What docs/second-door.md and docs/applications.md say.
TEST_F(AsyncParityWithTheService, AnEventMayComeBeforeTheAnswer) {
  ASSERT_TRUE(ConnectPhone());
  std::vector<std::string> seen;
  btasync::Scope scope;
  service.On<btasync::CallStatusChanged>(
      scope, [&](const btasync::CallStatusChanged&) { seen.emplace_back("event"); });
  service.DialCall("110").Then(scope, [&](const btasync::Answer<>& answer) {
    seen.emplace_back(answer.Accepted() ? "accepted" : "not accepted");
  });
  ASSERT_TRUE(RunUntil([&] { return seen.size() >= 2; }));
  EXPECT_EQ(seen[0], "event");
  EXPECT_EQ(seen[1], "accepted");
}

#endif

// ----- Neither disturbs the other

/// What libbt asks, and what its listeners hear of one signal of each kind.
struct Seen {
  std::vector<std::string> asked;
  std::vector<std::string> heard;
};

Seen RunLibbt(bttest::StartedLibrary& library) {
  bttest::Receptions receptions;
  const bttest::RecordingComListener com(receptions);
  const bttest::RecordingPhoneListener phone(receptions);
  const bttest::RecordingMediaListener media(receptions);
  const bttest::RecordingPbapListener pbap(receptions);
  const bttest::RecordingMessageListener message(receptions);
  const bttest::RecordingSppListener spp(receptions);
  for (const bttest::SignalDescription& signal : BluetoothInterface().signals) {
    library.Signal(signal.name, bttest::MakeTuple(signal.arguments, 0));
  }
  MWPBtCom().SetPower(1);
  MWPBtCom().GetBluetoothServiceStatus();
  Seen seen{library.recorder.TakeCallTexts(), {}};
  for (const bttest::Reception& reception : receptions.all) {
    seen.heard.push_back(reception.event + " " + bttest::ValueText::Joined(reception.values));
  }
  return seen;
}

TEST(AsyncParity, LibbtDoesTheSameBesideAServiceThatHearsEverything) {
  bttest::LogCapture quiet;
  bttest::StartedLibrary library;
  const Seen alone = RunLibbt(library);
  EXPECT_FALSE(alone.heard.empty());
  std::set<std::string> structures;
  {
    Service service;
    btasync::Scope scope;
    for (const bttest::EventRow& row : EventTable()) {
      row.subscribe(service, scope, [&](const bttest::Fields&) { structures.insert(row.structure); });
    }
    ASSERT_TRUE(bttest::WaitFor(service, Availability::Present));
    ASSERT_TRUE(bttest::Wait(service.GetPowerStatus()).Accepted());
    library.recorder.TakeCalls();
    const Seen together = RunLibbt(library);
    EXPECT_EQ(together.asked, alone.asked);
    EXPECT_EQ(together.heard, alone.heard);
    EXPECT_TRUE(RunUntil([&] { return structures.size() == EventTable().size(); }));
  }
  const Seen again = RunLibbt(library);
  EXPECT_EQ(again.asked, alone.asked);
  EXPECT_EQ(again.heard, alone.heard);
}

TEST(AsyncParity, EachGoesOnWhenTheOtherHasEnded) {
  bttest::LogCapture quiet;
  bttest::BusDaemon bus;
  bttest::Recorder recorder;
  Service service;
  {
    ASSERT_TRUE(RunUntil([] { return MWP_CreateBlueTooth() != 0; }));
    Service second;
    recorder.SetReply("GetPowerStatus", g_variant_new("(y)", btasync::BT_POWER_ON));
    EXPECT_EQ(bttest::Wait(second.GetPowerStatus()).ValueOr(btasync::BT_POWER_OFF), btasync::BT_POWER_ON);
  }
  EXPECT_EQ(MWPBtCom().GetPowerStatus(), btasync::BT_POWER_ON);
  MWP_DestroyBlueTooth();
  EXPECT_EQ(bttest::Wait(service.GetPowerStatus()).ValueOr(btasync::BT_POWER_OFF), btasync::BT_POWER_ON);
}

}  // namespace
