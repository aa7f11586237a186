// What the headers say of the records and arguments that only the service gives a meaning to, asked of the
// simulated service through the public headers.

#include <iterator>
#include <list>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/IMWPBtPbapListener.h>
#include <bluetooth/IMWPBtPhoneListener.h>
#include <bluetooth/MWPBluetooth.h>
#include <bluetooth/MWPBtCom.h>
#include <bluetooth/MWPBtMedia.h>
#include <bluetooth/MWPBtPbap.h>
#include <bluetooth/MWPBtPhone.h>

#include "protocol/BusNames.h"
#include "support/BusDaemon.h"
#include "support/ChildProcess.h"
#include "support/GlibHelpers.h"
#include "support/LogCapture.h"
#include "support/MainLoop.h"

namespace bttest {
namespace {

using namespace MWPBtType;
using testing::ElementsAre;

constexpr const char* kPhone = "00:1A:7D:DA:71:13";

/// The calls as the events report them.
class Calls : public IMWPBtPhoneListener {
 public:
  std::vector<int> ids;
  int hungUp = 0;

 private:
  void OnCallStatusChanged(int callId, CallStatus, int) override { ids.push_back(callId); }
  void OnHangupCallChanged() override { ++hungUp; }
};

/// A started library, and a phone that is connected with all its profiles.
class ServiceValues : public testing::Test {
 protected:
  ServiceValues() {
    LogCapture quiet;  // a start fails until the service is on the bus
    EXPECT_TRUE(RunUntil([] { return MWP_CreateBlueTooth() != 0; })) << service.Errors();
    com.SetPower(1);
    EXPECT_TRUE(RunUntil([&] { return com.GetPowerStatus() == BT_POWER_ON; }));
    com.Connect(kPhone, BT_PROFILE_HFP_A2DP, 0);
    EXPECT_TRUE(RunUntil([&] {
      return phone.GetPhoneConnectionState().status == BT_CONN_CONNECTED &&
             media.GetMediaConnectionState().status == BT_CONN_CONNECTED;
    }));
  }

  /// Waits for the download that begins by itself.
  void Download() {
    ASSERT_TRUE(
        RunUntil([&] { return pbap.GetContactCount() == 3 && pbap.GetCallLogCount(CALL_LOG_ALL) == 3; }));
  }

  /// Lets somebody call the phone, and answers the id of the call.
  int ComeIn(const char* number) {
    const std::size_t before = calls.ids.size();
    OwnedError error;
    const OwnedObject<GDBusConnection> connection(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, error.Out()));
    const OwnedVariant happened(g_dbus_connection_call_sync(
        connection.get(), kServiceName, kControlPath, kOutsideInterface, "Call",
        g_variant_new("(ss)", kPhone, number), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, error.Out()));
    ThrowIfSet(error, "Call");
    EXPECT_TRUE(RunUntil([&] { return calls.ids.size() > before; }));
    return calls.ids.empty() ? 0 : calls.ids.back();
  }

  /// Remote control is connected a moment after the stream.
  void WaitForPlayer() {
    ASSERT_TRUE(RunUntil([&] {
      MWPTypeMediaInfo info;
      return media.GetMediaInfo(info) == 1;
    }));
  }

  bool Becomes(int callId, CallStatus status) {
    return RunUntil([&] { return phone.GetCurCallStatus(callId) == status; });
  }

  BusDaemon bus;
  ChildProcess service{{"/app/bin/btservice", "--world", BTTEST_WORLD, "--no-state", "--speed", "20"}};
  Calls calls;
  MWPBtCom com;
  MWPBtPhone phone;
  MWPBtMedia media;
  MWPBtPbap pbap;
};

TEST_F(ServiceValues, OfAContactAreItsNamesAndItsNumbersByKind) {
  Download();
  std::list<MWPTypeContact> contacts;
  pbap.GetContactList(contacts);
  ASSERT_EQ(contacts.size(), 3u);
  const MWPTypeContact& ada = contacts.front();
  EXPECT_GT(ada.nContactId, 0);
  EXPECT_EQ(ada.strText1, "Ada");
  EXPECT_EQ(ada.strText2, "Arndt");
  std::vector<int> kinds;
  for (const MWPTypeContactNumber& numbers : ada.listNumbers) {
    kinds.push_back(numbers.nType);
  }
  EXPECT_THAT(kinds, ElementsAre(1, 2, 3)) << "mobile, home, work";
  EXPECT_THAT(ada.listNumbers.back().vecValues, ElementsAre("+49301234562", "+49301234563"));
  EXPECT_EQ(contacts.back().listNumbers.front().nType, 0) << "another kind of number";
}

TEST_F(ServiceValues, OfACallLogEntryAreContactLogNameNumberDateTimeAndSeconds) {
  Download();
  std::list<MWPTypeContact> contacts;
  pbap.GetContactList(contacts);
  const int ben = std::next(contacts.begin())->nContactId;
  std::list<MWPTypeCallLog> logs;
  EXPECT_EQ(pbap.GetCallLogList(CALL_LOG_INCOMING, logs), 1);
  ASSERT_EQ(logs.size(), 1u);
  const MWPTypeCallLog& entry = logs.front();
  EXPECT_EQ(entry.nValue1, ben);
  EXPECT_EQ(entry.nValue2, 1);
  EXPECT_THAT((std::vector<std::string>{entry.strText1, entry.strText2, entry.strText3, entry.strText4,
                                        entry.strText5}),
              ElementsAre("Ben Baker", "+49170000002", "2026-05-29", "18:05:10", "125"));
  pbap.GetCallLogList(CALL_LOG_OUTGOING, logs);
  EXPECT_EQ(logs.back().nValue2, 2);
  pbap.GetCallLogList(CALL_LOG_MISSED, logs);
  EXPECT_EQ(logs.back().nValue2, 3);
  EXPECT_EQ(logs.back().nValue1, -1) << "the number is in no contact";
  EXPECT_EQ(logs.back().strText5, "0") << "nothing was spoken";
}

TEST_F(ServiceValues, OfTheTableOfCallsAreIdStateDirectionConferenceSecondsNumberNameAndPhone) {
  Download();
  const int first = ComeIn("+49170000002");
  EXPECT_EQ(first, 1) << "ids count from 1";
  EXPECT_EQ(phone.GetCurCallStatus(first), BT_CALL_INCOMING);
  EXPECT_EQ(phone.GetCurCallStatus(9), BT_CALL_IDLE) << "no call has this id";
  EXPECT_EQ(phone.AcceptCall(), 1);
  ASSERT_TRUE(Becomes(first, BT_CALL_ACTIVE));
  const int second = ComeIn("+4999");
  EXPECT_EQ(second, 2);
  EXPECT_EQ(phone.MultipleWayCall(BT_CALL_HOLD_ACTIVE, 9), 0) << "no call has this id";
  EXPECT_EQ(phone.MultipleWayCall(BT_CALL_HOLD_ACTIVE, 0), 1);
  ASSERT_TRUE(Becomes(second, BT_CALL_ACTIVE));
  ASSERT_TRUE(Becomes(first, BT_CALL_HELD));

  MWPTypeCallInfo info;
  ASSERT_TRUE(RunUntil([&] { return phone.GetCurrentCallInfo(info) == 1 && info.callSlot1.nValue5 > 0; }));
  EXPECT_EQ(info.nCallCount, 2);
  EXPECT_EQ(info.callSlot1.nValue1, second) << "the call one speaks in comes first";
  EXPECT_EQ(info.callSlot1.nValue2, BT_CALL_ACTIVE);
  EXPECT_EQ(info.callSlot1.nValue3, 1) << "incoming";
  EXPECT_EQ(info.callSlot1.nValue4, 0) << "no conference";
  EXPECT_EQ(info.callSlot1.strText1, "+4999");
  EXPECT_EQ(info.callSlot1.strText2, "") << "the number is in no contact";
  EXPECT_EQ(info.callSlot1.strText3, kPhone);
  EXPECT_EQ(info.callSlot2.nValue1, first);
  EXPECT_EQ(info.callSlot2.nValue2, BT_CALL_HELD);
  EXPECT_EQ(info.callSlot2.strText2, "Ben Baker");

  EXPECT_EQ(phone.MultipleWayCall(BT_CALL_CONFERENCE, 0), 1);
  ASSERT_TRUE(RunUntil([&] { return phone.GetCurrentCallInfo(info) == 1 && info.callSlot1.nValue4 == 1; }));
  EXPECT_EQ(phone.MultipleWayCall(BT_CALL_RELEASE_ACTIVE, first), 1) << "this one alone";
  ASSERT_TRUE(Becomes(first, BT_CALL_IDLE));
  EXPECT_EQ(phone.GetCurCallStatus(second), BT_CALL_ACTIVE);
}

TEST_F(ServiceValues, OfACallIdInAConferenceIsTheOneToSpeakWithInPrivate) {
  const int first = ComeIn("+4911");
  phone.AcceptCall();
  ASSERT_TRUE(Becomes(first, BT_CALL_ACTIVE));
  const int second = ComeIn("+4922");
  phone.MultipleWayCall(BT_CALL_HOLD_ACTIVE, 0);
  ASSERT_TRUE(Becomes(second, BT_CALL_ACTIVE));
  phone.MultipleWayCall(BT_CALL_CONFERENCE, 0);
  ASSERT_TRUE(Becomes(first, BT_CALL_ACTIVE));
  EXPECT_EQ(phone.MultipleWayCall(BT_CALL_HOLD_ACTIVE, first), 1);
  EXPECT_TRUE(Becomes(second, BT_CALL_HELD));
  EXPECT_EQ(phone.GetCurCallStatus(first), BT_CALL_ACTIVE);
}

TEST_F(ServiceValues, OfMuteIsNothingSinceStopMusicPausesInEitherCase) {
  WaitForPlayer();
  for (const int mute : {0, 1}) {
    EXPECT_EQ(media.PlayMusic(0, 0), 1);
    ASSERT_TRUE(RunUntil([&] { return media.GetMusicPlayStatus() == BT_MUSIC_PLAYING; }));
    EXPECT_EQ(media.StopMusic(mute), 1);
    EXPECT_TRUE(RunUntil([&] { return media.GetMusicPlayStatus() == BT_MUSIC_PAUSED; }));
  }
}

TEST_F(ServiceValues, OfPlayMusicIsToPlayForEachCommandThatIsNotTheLibrarysOwn) {
  WaitForPlayer();
  for (const int command : {0, 1, 2, 5, 256, -2}) {
    media.StopMusic(0);
    ASSERT_TRUE(RunUntil([&] { return media.GetMusicPlayStatus() != BT_MUSIC_PLAYING; }));
    EXPECT_EQ(media.PlayMusic(command, 0), 1);
    ASSERT_TRUE(RunUntil([&] { return media.GetMusicPlayStatus() == BT_MUSIC_PLAYING; })) << command;
  }
}

TEST_F(ServiceValues, OfDeletingIsOneToDeleteAndZeroToBeRefused) {
  EXPECT_EQ(com.DeletePairDevice(kPhone, 0), 0);
  EXPECT_EQ(com.GetRemotePairDeviceName(kPhone), "Ada's phone");
  EXPECT_EQ(com.DeletePairDevice(kPhone, 1), 1);
}

TEST_F(ServiceValues, OfAnswerPairWithPinAndAddressTheWrongWayRoundIsARefusal) {
  struct : IMWPBtComListener {
    void OnAnswerPairRequest(const std::string& address, const std::string& pinCode, int,
                             PairRequestState state) override {
      isAsked = address == kPhone;
      digits = pinCode;
      question = state;
    }
    bool isAsked = false;
    std::string digits;
    PairRequestState question = BT_PAIR_REQUEST_CONFIRMATION;
  } screen;
  com.DeletePairDevice(kPhone, 1);
  com.SetScanAction(1);
  ASSERT_TRUE(RunUntil([&] { return com.Pair(kPhone, "") != 0; }));
  ASSERT_TRUE(RunUntil([&] { return screen.isAsked; }));
  EXPECT_EQ(com.AnswerPair(kPhone, screen.digits, screen.question), 0);
  EXPECT_EQ(com.AnswerPair(screen.digits, kPhone, screen.question), 1);
}

}  // namespace
}  // namespace bttest
