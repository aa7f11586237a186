// What ends what: the table, the interface description, and each outcome of the library over a real bus.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <btasync/Outcome.h>

#include "glib/Owned.h"
#include "protocol/Outcomes.h"
#include "support/InterfaceDescription.h"
#include "tests/async/AsyncFixture.h"

namespace {

using namespace btasync;
using bttest::BluetoothInterface;
using testing::IsEmpty;

const Address kAda{"00:1A:7D:DA:71:13"};

bool IsNumber(const std::string& type) { return type == "y" || type == "b" || type == "i"; }

/// What of a row cannot be, by the interface description.
std::vector<std::string> FaultsIn(const RequestOutcome& outcome) {
  const bttest::Arguments arguments = BluetoothInterface().Method(outcome.method).in;
  const bttest::Arguments values = BluetoothInterface().Signal(outcome.signal).arguments;
  std::vector<std::string> faults;
  if (outcome.ifFirstIs != kAnyFirst && (arguments.empty() || !IsNumber(arguments[0].signature))) {
    faults.emplace_back("the first argument is no number");
  }
  for (const OutcomeConditions* conditions : {&outcome.ours, &outcome.success, &outcome.failure}) {
    for (const OutcomeCondition& condition : *conditions) {
      if (condition.place >= values.size()) {
        faults.emplace_back("the signal has no such value");
        continue;
      }
      const std::string& type = values[condition.place].signature;
      if (condition.kind == OutcomeCondition::Kind::VALUE) {
        if (!IsNumber(type)) {
          faults.push_back("a number is compared with " + type);
        } else if (type == "b" && condition.value != 0 && condition.value != 1) {
          faults.emplace_back("a boolean is neither 0 nor 1");
        }
        continue;
      }
      if (condition.argument >= arguments.size()) {
        faults.emplace_back("the request has no such argument");
        continue;
      }
      const std::string& argument = arguments[condition.argument].signature;
      if (type != argument && !(IsNumber(type) && IsNumber(argument))) {
        faults.push_back(std::string(type).append(" is compared with ").append(argument));
      }
      if (condition.kind == OutcomeCondition::Kind::PROFILE && type != "y") {
        faults.push_back("a profile is no " + type);
      }
    }
  }
  return faults;
}

TEST(OutcomeTable, FitsTheInterface) {
  for (const RequestOutcome& outcome : outcomes::kAll) {
    EXPECT_THAT(FaultsIn(outcome), IsEmpty()) << outcome.method;
  }
}

TEST(OutcomeTable, WouldNotFitTheInterfaceWithAWrongRow) {
  using namespace outcomes;
  const auto expect = [](const RequestOutcome& wrong, const std::string& fault) {
    EXPECT_THAT(FaultsIn(wrong), testing::ElementsAre(fault)) << wrong.method;
  };
  expect({"DialCall", 1, "OnCallStatusChanged", {}, {}, {}}, "the first argument is no number");
  expect({"RedialCall", 0, "OnCallStatusChanged", {}, {}, {}}, "the first argument is no number");
  expect({"Pair", kAnyFirst, "OnPairStatusChanged", {}, {Is(3, 0)}, {}}, "the signal has no such value");
  expect({"Pair", kAnyFirst, "OnPairStatusChanged", {}, {}, {Is(2, 0)}}, "a number is compared with s");
  expect({"ClearContact", kAnyFirst, "OnDeletePhoneBookChanged", {}, {Is(0, 2)}, {}},
         "a boolean is neither 0 nor 1");
  expect({"Pair", kAnyFirst, "OnPairStatusChanged", {IsArgument(2, 2)}, {}, {}},
         "the request has no such argument");
  expect({"Pair", kAnyFirst, "OnPairStatusChanged", {IsArgument(0, 0)}, {}, {}}, "y is compared with s");
  expect({"Connect", kAnyFirst, "OnConnectStatusChanged", {IsProfile(0, 0)}, {}, {}}, "a profile is no s");
}

TEST(OutcomeTable, HasEachRequestOnce) {
  for (const RequestOutcome& outcome : outcomes::kAll) {
    EXPECT_EQ(FindRequestOutcome(outcome.method, outcome.ifFirstIs), &outcome) << outcome.method;
  }
  EXPECT_EQ(FindRequestOutcome("GetPowerStatus"), nullptr);
}

/// Sends outcomes, and notes how they end.
struct Sender {
  Service& service;
  Scope& scope;
  std::string& end;

  template <typename Event>
  void operator()(Outcome<Event> outcome) const {
    std::move(outcome).Then(scope, [&end = end](const Answer<Event>& answer) {
      end += answer.Accepted() ? "accepted" : answer.Refused() ? "refused" : ToText(answer.Why().reason);
    });
  }
};

using Send = std::function<void(const Sender&)>;

/// Each outcome of the library, by the method and the first argument that decides.
const std::map<std::pair<std::string, int>, Send>& AllOutcomes() {
  static const MWPTypePlayMode mode{};
  // clang-format off
  static const std::map<std::pair<std::string, int>, Send> all{
      {{"SetPower", 1}, [](const Sender& send) { send(SwitchPower(send.service, true)); }},
      {{"SetPower", 0}, [](const Sender& send) { send(SwitchPower(send.service, false)); }},
      {{"SetCapability", kAnyFirst},
       [](const Sender& send) { send(SwitchCapability(send.service, BT_CAP_AUTO_ANSWER, true)); }},
      {{"SetAttribute", kAnyFirst},
       [](const Sender& send) { send(ChangeAttribute(send.service, BT_ATTR_PIN_CODE, "0000")); }},
      {{"EnableProfile", kAnyFirst}, [](const Sender& send) { send(AllowProfiles(send.service)); }},
      {{"DisableProfile", kAnyFirst}, [](const Sender& send) { send(ForbidProfiles(send.service, kAda)); }},
      {{"SetScanAction", 1}, [](const Sender& send) { send(StartScan(send.service)); }},
      {{"SetScanAction", 0}, [](const Sender& send) { send(StopScan(send.service)); }},
      {{"Pair", kAnyFirst}, [](const Sender& send) { send(PairDevice(send.service, kAda)); }},
      {{"SetDeviceOOBLinkKey", kAnyFirst},
       [](const Sender& send) { send(PassOutOfBandKey(send.service, kAda, {1, 2})); }},
      {{"RequestAndroidAutoPairing", kAnyFirst},
       [](const Sender& send) { send(PairForProjection(send.service, kAda, 0)); }},
      {{"Connect", kAnyFirst},
       [](const Sender& send) { send(ConnectDevice(send.service, kAda, BT_PROFILE_SPP)); }},
      {{"DisConnect", kAnyFirst},
       [](const Sender& send) { send(DisconnectDevice(send.service, kAda, BT_PROFILE_SPP)); }},
      {{"ReConnect", kAnyFirst},
       [](const Sender& send) { send(ReconnectDevice(send.service, kAda, BT_PROFILE_SPP)); }},
      {{"DeletePairDevice", kAnyFirst}, [](const Sender& send) { send(DeleteDevice(send.service, kAda)); }},
      {{"DeletePairDeviceList", kAnyFirst}, [](const Sender& send) { send(DeleteDevices(send.service)); }},
      {{"DialCall", kAnyFirst}, [](const Sender& send) { send(Dial(send.service, "110")); }},
      {{"RedialCall", kAnyFirst}, [](const Sender& send) { send(Redial(send.service)); }},
      {{"AcceptCall", kAnyFirst}, [](const Sender& send) { send(TakeCall(send.service)); }},
      {{"RejectCall", kAnyFirst}, [](const Sender& send) { send(DeclineCall(send.service)); }},
      {{"TerminateCall", kAnyFirst}, [](const Sender& send) { send(HangUp(send.service)); }},
      {{"SetAudioPrivacy", 1}, [](const Sender& send) { send(MoveCallAudio(send.service, true)); }},
      {{"SetAudioPrivacy", 0}, [](const Sender& send) { send(MoveCallAudio(send.service, false)); }},
      {{"StartVoiceRecognition", kAnyFirst},
       [](const Sender& send) { send(BeginVoiceRecognition(send.service)); }},
      {{"StopVoiceRecognition", kAnyFirst},
       [](const Sender& send) { send(EndVoiceRecognition(send.service)); }},
      {{"SetCurPlayMode", kAnyFirst}, [](const Sender& send) { send(ChangePlayMode(send.service, mode)); }},
      {{"RootDirectory", kAnyFirst}, [](const Sender& send) { send(GoToRoot(send.service, 0, 5)); }},
      {{"FolderUp", kAnyFirst}, [](const Sender& send) { send(GoUp(send.service, 0, 5)); }},
      {{"FolderDown", kAnyFirst}, [](const Sender& send) { send(GoDown(send.service, "7", 0, 5)); }},
      {{"BrowsingSearch", kAnyFirst},
       [](const Sender& send) { send(SearchFolder(send.service, "7", "song", 0, 5)); }},
      {{"BrowsingNowPlayingList", kAnyFirst},
       [](const Sender& send) { send(ShowNowPlaying(send.service, 0, 5)); }},
      {{"GetBrowsingFolderItemTotal", kAnyFirst},
       [](const Sender& send) { send(CountItems(send.service, "7")); }},
      {{"PlayItem", kAnyFirst},
       [](const Sender& send) { send(PlayFolderItem(send.service, "7", BrowserScopeType())); }},
      {{"AddMediaItemToNowPlaying", kAnyFirst},
       [](const Sender& send) { send(QueueItem(send.service, "7", BrowserScopeType())); }},
      {{"StartPhoneBookDownload", kAnyFirst},
       [](const Sender& send) { send(DownloadPhoneBook(send.service)); }},
      {{"StopPhoneBookDownload", kAnyFirst}, [](const Sender& send) { send(StopDownload(send.service)); }},
      {{"SetContactFavorite", kAnyFirst},
       [](const Sender& send) { send(MarkFavorite(send.service, 7, true)); }},
      {{"DeleteContactById", kAnyFirst}, [](const Sender& send) { send(EraseContact(send.service, 7)); }},
      {{"ClearContact", kAnyFirst}, [](const Sender& send) { send(EraseContacts(send.service)); }},
      {{"DeleteCallLogById", kAnyFirst}, [](const Sender& send) { send(EraseCallLog(send.service, 7)); }},
      {{"ClearCallLog", kAnyFirst},
       [](const Sender& send) { send(EraseCallLogs(send.service, CallLogType())); }},
      {{"SetHIDCalibration", kAnyFirst},
       [](const Sender& send) { send(CalibrateHid(send.service, kAda, HIDTYPE())); }},
  };
  // clang-format on
  return all;
}

class EachOutcome : public testing::Test {
 protected:
  EachOutcome() { EXPECT_TRUE(bttest::WaitFor(service, Availability::Present)); }

  /// Tries something with each entry of the table.
  void ForEach(const std::function<void()>& trial) {
    for (const RequestOutcome& outcome : outcomes::kAll) {
      SCOPED_TRACE(std::string(outcome.method) + " " + std::to_string(outcome.ifFirstIs));
      row = &outcome;
      scope.Clear();
      end.clear();
      trial();
      recorder.TakeCalls();
    }
  }
  const RequestOutcome& Row() const { return *row; }
  const bttest::Arguments& Out() const { return BluetoothInterface().Method(Row().method).out; }

  /// Sends it, with a service that accepts or refuses.
  void Begin(bool accepts) {
    if (!Out().empty()) {
      ASSERT_EQ(Out().size(), 1U);
      recorder.SetReply(Row().method, Tuple({NumberOf(Out()[0].signature, accepts ? 1 : 0)}));
    }
    const auto outcome = AllOutcomes().find({Row().method, Row().ifFirstIs});
    ASSERT_NE(outcome, AllOutcomes().end()) << Row().method << " has no outcome in btasync/Outcome.h";
    outcome->second(Sender{service, scope, end});
    ASSERT_TRUE(recorder.WaitForCalls(1));
    call = std::move(recorder.TakeCalls().at(0));
    ASSERT_EQ(call.method, Row().method);
  }
  /// Emits the event with values that meet these conditions, and the others 0. The one of the place is
  /// spoilt.
  void Emit(std::vector<const OutcomeCondition*> conditions, std::size_t spoilt = 1000) {
    std::vector<GVariant*> values;
    for (const bttest::ArgumentDescription& value : BluetoothInterface().Signal(Row().signal).arguments) {
      values.push_back(value.signature == "s" ? g_variant_new_string("") : NumberOf(value.signature, 0));
    }
    for (const OutcomeCondition* const condition : conditions) {
      GVariant*& value = values.at(condition->place);
      const bool isSpoilt = spoilt == condition->place;
      const std::string type = g_variant_get_type_string(value);
      const OwnedVariant replaced = NewRef(value);
      if (type == "s") {
        value = g_variant_new_string(isSpoilt ? "00:00:00:00:00:01" : Text(condition->argument).c_str());
      } else {
        const int number =
            condition->kind == OutcomeCondition::Kind::VALUE ? condition->value : Number(condition->argument);
        value = NumberOf(type, isSpoilt ? (number == 0 ? 1 : number - 1) : number);
      }
    }
    recorder.Emit(Row().signal, Tuple(values));
  }
  std::vector<const OutcomeCondition*> Ours() const { return Pointers(Row().ours); }
  std::vector<const OutcomeCondition*> Success() const {
    std::vector<const OutcomeCondition*> all = Ours();
    for (const OutcomeCondition* const one : Pointers(Row().success)) {
      all.push_back(one);
    }
    return all;
  }
  bool Ends() {
    return bttest::RunUntil([&] { return !end.empty(); });
  }
  /// All that was emitted has been delivered.
  void Deliver() { ASSERT_TRUE(bttest::Wait(service.GetPowerStatus()).Accepted()); }

  static GVariant* NumberOf(const std::string& type, int number) {
    return type == "y"   ? g_variant_new_byte(static_cast<guchar>(number))
           : type == "b" ? g_variant_new_boolean(number != 0)
                         : g_variant_new_int32(number);
  }
  static GVariant* Tuple(const std::vector<GVariant*>& values) {
    return g_variant_new_tuple(values.data(), values.size());
  }
  static std::vector<const OutcomeCondition*> Pointers(const OutcomeConditions& conditions) {
    std::vector<const OutcomeCondition*> pointers;
    for (const OutcomeCondition& condition : conditions) {
      pointers.push_back(&condition);
    }
    return pointers;
  }
  std::string Text(std::size_t place) const {
    const OwnedVariant value(g_variant_get_child_value(call.arguments.get(), place));
    return g_variant_get_string(value.get(), nullptr);
  }
  int Number(std::size_t place) const {
    const OwnedVariant value(g_variant_get_child_value(call.arguments.get(), place));
    const std::string type = g_variant_get_type_string(value.get());
    return type == "y"   ? g_variant_get_byte(value.get())
           : type == "b" ? g_variant_get_boolean(value.get())
                         : g_variant_get_int32(value.get());
  }

  bttest::BusDaemon bus;
  bttest::Recorder recorder;
  Service service;
  const RequestOutcome* row = nullptr;
  bttest::RecordedCall call;
  std::string end;
  Scope scope;
};

TEST_F(EachOutcome, IsReachedByItsEvent) {
  ForEach([&] {
    Begin(true);
    Deliver();
    EXPECT_EQ(end, "") << "the answer alone counts";
    Emit(Success());
    ASSERT_TRUE(Ends());
    EXPECT_EQ(end, "accepted");
  });
}

TEST_F(EachOutcome, IgnoresTheEventsOfOthers) {
  ForEach([&] {
    Begin(true);
    for (const OutcomeCondition* const condition : Ours()) {
      Emit(Success(), condition->place);
    }
    Deliver();
    EXPECT_EQ(end, "");
  });
}

TEST_F(EachOutcome, IsStillUnderWayAfterAnEventThatIsNeitherSuccessNorFailure) {
  ForEach([&] {
    if (Row().failure.begin() == Row().failure.end()) {
      Begin(true);
      for (const OutcomeCondition* const condition : Success()) {
        Emit(Success(), condition->place);
      }
      Deliver();
      EXPECT_EQ(end, "");
    }
  });
}

TEST_F(EachOutcome, IsRefusedByAnEventOfFailure) {
  ForEach([&] {
    for (const OutcomeCondition* const failure : Pointers(Row().failure)) {
      end.clear();
      Begin(true);
      std::vector<const OutcomeCondition*> conditions = Ours();
      conditions.push_back(failure);
      Emit(conditions);
      ASSERT_TRUE(Ends());
      EXPECT_EQ(end, "refused");
    }
  });
}

TEST_F(EachOutcome, IsRefusedByTheService) {
  ForEach([&] {
    if (!Out().empty()) {
      Begin(false);
      ASSERT_TRUE(Ends());
      EXPECT_EQ(end, "refused");
    }
  });
}

TEST(OutcomeTable, HasEachOutcomeOfTheLibrary) {
  for (const auto& [request, send] : AllOutcomes()) {
    const RequestOutcome* const outcome = FindRequestOutcome(request.first, request.second);
    EXPECT_TRUE(outcome != nullptr && outcome->ifFirstIs == request.second) << request.first;
  }
  EXPECT_EQ(AllOutcomes().size(), std::size(outcomes::kAll));
}

}  // namespace
