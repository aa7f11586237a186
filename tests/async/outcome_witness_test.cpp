// The table of outcomes against a witness: what each request and each value of its event mean, written down a
// second time, from the headers. outcome_table_test.cpp shows that the library does what the table says; this
// shows that the table is right, and that a wrong row would be found.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "libbtasync/OutcomeJudge.h"
#include "protocol/Outcomes.h"

namespace {

using namespace btasync;
using detail::ComparedValues;

const std::string kPhone = "00:1A:7D:DA:71:13";
constexpr std::size_t kNoPlace = 99;

/// A request, and what the events say about it.
struct OutcomeWitness {
  const char* method;
  int first;  ///< RequestOutcome::ifFirstIs
  const char* signal;
  ComparedValues arguments;
  ComparedValues event;                 ///< one that is about the request; the value at `place` is replaced
  std::size_t place;                    ///< of the value that decides; kNoPlace if none does
  std::string says;                     ///< for its values 0, 1, 2, ...: R reached, M missed, - neither
  std::vector<std::size_t> about = {};  ///< where the event has to have the request's values
};

const std::vector<OutcomeWitness>& AllWitnesses() {
  // clang-format off
  static const std::vector<OutcomeWitness> all{
      {"SetPower", 1, "OnOpenBtStatusChanged", {1}, {0}, 0, "-R--"},
      {"SetPower", 0, "OnOpenBtStatusChanged", {0}, {0}, 0, "R---"},
      {"SetCapability", kAnyFirst, "OnBtCapabilityChanged", {BT_CAP_AUTO_ANSWER, 1},
       {BT_CAP_AUTO_ANSWER, 0}, 1, "-R", {0}},
      {"SetCapability", kAnyFirst, "OnBtCapabilityChanged", {BT_CAP_AUTO_ANSWER, 0},
       {BT_CAP_AUTO_ANSWER, 0}, 1, "R-", {0}},
      {"SetAttribute", kAnyFirst, "OnBtAttributeChanged", {BT_ATTR_PIN_CODE, std::string("1234")},
       {BT_ATTR_PIN_CODE, std::string("1234")}, kNoPlace, "R", {0}},
      {"SetScanAction", 1, "OnScanStatusChanged", {1}, {0}, 0, "-R"},
      {"SetScanAction", 0, "OnScanStatusChanged", {0}, {0}, 0, "R-"},
      {"Pair", kAnyFirst, "OnPairStatusChanged", {kPhone, std::string("1234")},
       {0, BT_PAIR_REASON_BUSY, kPhone}, 0, "--RM", {2}},
      {"SetDeviceOOBLinkKey", kAnyFirst, "OnSetDeviceOOBLinkKeyChanged", {kPhone, 0}, {kPhone, 0}, 1, "MR",
       {0}},
      {"RequestAndroidAutoPairing", kAnyFirst, "OnAndroidAutoPairingResponse", {kPhone, 0}, {0}, 0, "RRRR"},

      {"Connect", kAnyFirst, "OnConnectStatusChanged", {kPhone, BT_PROFILE_HID, 0},
       {kPhone, BT_PROFILE_HID, 0}, 2, "M-R-MM-", {0, 1}},
      {"DisConnect", kAnyFirst, "OnConnectStatusChanged", {kPhone, BT_PROFILE_HID},
       {kPhone, BT_PROFILE_HID, 0}, 2, "R------", {0, 1}},
      {"ReConnect", kAnyFirst, "OnConnectStatusChanged", {kPhone, BT_PROFILE_HID},
       {kPhone, BT_PROFILE_HID, 0}, 2, "--R-M--", {0, 1}},
      {"EnableProfile", kAnyFirst, "OnBtProfileEnableStatusChanged", {}, {0}, 0, "-R"},
      {"DisableProfile", kAnyFirst, "OnBtProfileEnableStatusChanged", {kPhone}, {0}, 0, "R-"},
      {"DeletePairDevice", kAnyFirst, "OnDeletePairStatusChanged", {kPhone, 1}, {0}, 0, "MR"},
      {"DeletePairDeviceList", kAnyFirst, "OnDeletePairStatusChanged", {}, {0}, 0, "MR"},

      {"DialCall", kAnyFirst, "OnCallStatusChanged", {std::string("110")}, {1, 0, 1}, 1, "---R----"},
      {"RedialCall", kAnyFirst, "OnCallStatusChanged", {}, {1, 0, 1}, 1, "---R----"},
      {"AcceptCall", kAnyFirst, "OnCallStatusChanged", {}, {2, 0, 2}, 1, "-R------"},
      {"RejectCall", kAnyFirst, "OnCallStatusChanged", {}, {1, 0, 1}, 1, "R-------"},
      {"TerminateCall", kAnyFirst, "OnCallStatusChanged", {}, {1, 0, 1}, 1, "R-------"},
      {"SetAudioPrivacy", 1, "OnAudioStatusChanged", {1}, {0}, 0, "R--"},
      {"SetAudioPrivacy", 0, "OnAudioStatusChanged", {0}, {0}, 0, "--R"},
      {"StartVoiceRecognition", kAnyFirst, "OnVoiceStatusChanged", {}, {0}, 0, "-R"},
      {"StopVoiceRecognition", kAnyFirst, "OnVoiceStatusChanged", {}, {0}, 0, "R-"},

      {"SetCurPlayMode", kAnyFirst, "OnPlayModeChanged", {0}, {}, kNoPlace, "R"},
      {"RootDirectory", kAnyFirst, "OnCurBrowserPathChanged", {0, 5}, {0}, 0, "MR"},
      {"FolderUp", kAnyFirst, "OnCurBrowserPathChanged", {0, 5}, {0}, 0, "MR"},
      {"FolderDown", kAnyFirst, "OnCurBrowserPathChanged", {std::string("7"), 0, 5}, {0}, 0, "MR"},
      {"BrowsingSearch", kAnyFirst, "OnBrowserMediaInfoChanged",
       {std::string("7"), std::string("song"), 0, 5}, {}, kNoPlace, "R"},
      {"BrowsingNowPlayingList", kAnyFirst, "OnBrowserMediaInfoChanged", {0, 5}, {}, kNoPlace, "R"},
      {"GetBrowsingFolderItemTotal", kAnyFirst, "OnBrowserFolderItemTotalChanged", {std::string("7")},
       {0}, 0, "RRR"},
      {"PlayItem", kAnyFirst, "OnSendPlayItemStatus", {std::string("7"), 0}, {0}, 0, "MR"},
      {"AddMediaItemToNowPlaying", kAnyFirst, "OnMediaItemToNowPlayingStatus", {std::string("7"), 0},
       {0}, 0, "MR"},

      {"StartPhoneBookDownload", kAnyFirst, "OnPBDownloadStatus", {BT_PBAP_ALL},
       {0, BT_PBAP_ALL}, 0, "---RMMM", {1}},
      {"StopPhoneBookDownload", kAnyFirst, "OnPBDownloadStatus", {}, {0, BT_PBAP_ALL}, 0, "----R--"},
      {"SetContactFavorite", kAnyFirst, "OnContactFavoriteChanged", {7, 1}, {7, 0}, 1, "-R", {0}},
      {"SetContactFavorite", kAnyFirst, "OnContactFavoriteChanged", {7, 0}, {7, 0}, 1, "R-", {0}},
      {"DeleteContactById", kAnyFirst, "OnDeletePhoneBookChanged", {7}, {0}, 0, "MR"},
      {"ClearContact", kAnyFirst, "OnDeletePhoneBookChanged", {}, {0}, 0, "MR"},
      {"DeleteCallLogById", kAnyFirst, "OnBtCallLogListChanged", {7}, {}, kNoPlace, "R"},
      {"ClearCallLog", kAnyFirst, "OnBtCallLogListChanged", {1}, {}, kNoPlace, "R"},

      {"SetHIDCalibration", kAnyFirst, "OnHIDCalibration", {kPhone, 0}, {0}, 0, "MR"},
  };
  // clang-format on
  return all;
}

std::vector<OutcomeWitness> WitnessesOf(const RequestOutcome& row) {
  std::vector<OutcomeWitness> found;
  std::copy_if(AllWitnesses().begin(), AllWitnesses().end(), std::back_inserter(found),
               [&](const OutcomeWitness& witness) {
                 return std::string(witness.method) == row.method && witness.first == row.ifFirstIs;
               });
  return found;
}

/// What the row says about one event: R, M, -, or a blank if it is not about the request.
char SaidBy(const RequestOutcome& row, const ComparedValues& arguments, const ComparedValues& event) {
  const std::optional<detail::Judgement> judgement = detail::OutcomeJudge(row, arguments).Judge(event);
  return !judgement                               ? ' '
         : judgement->verdict == Verdict::Reached ? 'R'
         : judgement->verdict == Verdict::Missed  ? 'M'
                                                  : '-';
}

/// Where a row and a witness differ; empty if they agree.
std::string DifferenceOf(const RequestOutcome& row, const OutcomeWitness& witness) {
  if (std::string(row.signal) != witness.signal) {
    return std::string("the signal is ") + row.signal;
  }
  try {
    ComparedValues event = witness.event;
    for (std::size_t value = 0; value < witness.says.size(); ++value) {
      if (witness.place != kNoPlace) {
        event[witness.place] = static_cast<int>(value);
      }
      const char said = SaidBy(row, witness.arguments, event);
      if (said != witness.says[value]) {
        return "value " + std::to_string(value) + " says '" + said + "'";
      }
    }
    for (std::size_t place = 0; place < event.size(); ++place) {
      ComparedValues another = event;
      another[place].number += 50;
      another[place].text += another[place].text.empty() ? "" : "0";
      const bool isAbout =
          std::find(witness.about.begin(), witness.about.end(), place) != witness.about.end();
      if (place != witness.place && (SaidBy(row, witness.arguments, another) == ' ') != isAbout) {
        return "the value at " + std::to_string(place) + " is " + (isAbout ? "not " : "") + "compared";
      }
    }
  } catch (const std::out_of_range&) {
    return "it compares what is not there";
  }
  return "";
}

std::string DifferenceOf(const RequestOutcome& row) {
  for (const OutcomeWitness& witness : WitnessesOf(row)) {
    std::string difference = DifferenceOf(row, witness);
    if (!difference.empty()) {
      return difference;
    }
  }
  return "";
}

TEST(OutcomeWitnesses, AgreeWithTheTable) {
  for (const RequestOutcome& row : outcomes::kAll) {
    SCOPED_TRACE(std::string(row.method) + " " + std::to_string(row.ifFirstIs));
    EXPECT_FALSE(WitnessesOf(row).empty()) << "no witness for it";
    EXPECT_EQ(DifferenceOf(row), "");
  }
  for (const OutcomeWitness& witness : AllWitnesses()) {
    const RequestOutcome* const row = FindRequestOutcome(witness.method, witness.first);
    EXPECT_TRUE(row != nullptr && row->ifFirstIs == witness.first) << witness.method << ": not in the table";
  }
}

// ----- Wrong rows

using Conditions = std::vector<OutcomeCondition>;
constexpr std::size_t kMostConditions = 3;

OutcomeConditions Fixed(const Conditions& some) {
  switch (some.size()) {
    case 0:
      return {};
    case 1:
      return {some[0]};
    case 2:
      return {some[0], some[1]};
    default:
      return {some.at(0), some.at(1), some.at(2)};
  }
}

/// All that one condition could be by a slip: left out, of another value, at another place.
/// (A number that is compared with a text is found by OutcomeTable.FitsTheInterface.)
std::vector<Conditions> Slips(const OutcomeConditions& right, const ComparedValues& event,
                              std::size_t arguments) {
  const Conditions all(right.begin(), right.end());
  std::vector<Conditions> wrong;
  for (std::size_t i = 0; i < all.size(); ++i) {
    Conditions without = all;
    without.erase(without.begin() + static_cast<std::ptrdiff_t>(i));
    wrong.push_back(without);
    const auto with = [&](const std::function<void(OutcomeCondition&)>& change) {
      Conditions changed = all;
      change(changed[i]);
      wrong.push_back(changed);
    };
    const bool isNumber = all[i].kind == OutcomeCondition::Kind::VALUE;
    for (std::size_t place = 0; place <= event.size(); ++place) {
      const bool isText = place < event.size() && !event[place].text.empty();
      if (place != all[i].place && !(isNumber && isText)) {
        with([&](OutcomeCondition& condition) { condition.place = place; });
      }
    }
    if (isNumber) {
      with([](OutcomeCondition& condition) { ++condition.value; });
      with([](OutcomeCondition& condition) { --condition.value; });
    } else {
      for (std::size_t argument = 0; argument <= arguments; ++argument) {
        if (argument != all[i].argument) {
          with([&](OutcomeCondition& condition) { condition.argument = argument; });
        }
      }
    }
  }
  return wrong;
}

/// Rows that differ from a right one by one slip.
std::vector<RequestOutcome> WrongRows(const RequestOutcome& right, const OutcomeWitness& witness) {
  std::vector<RequestOutcome> wrong;
  const auto add = [&](const std::function<void(RequestOutcome&)>& change) {
    change(wrong.emplace_back(right));
  };
  add([](RequestOutcome& row) { row.signal = "OnSomethingElse"; });
  for (OutcomeConditions RequestOutcome::*const list :
       {&RequestOutcome::ours, &RequestOutcome::success, &RequestOutcome::failure}) {
    for (const Conditions& slip : Slips(right.*list, witness.event, witness.arguments.size())) {
      add([&](RequestOutcome& row) { row.*list = Fixed(slip); });
    }
  }
  // A success that is none, and a failure that is none.
  for (std::size_t value = 0; witness.place != kNoPlace && value < witness.says.size(); ++value) {
    const OutcomeCondition is = outcomes::Is(witness.place, static_cast<int>(value));
    Conditions failure(right.failure.begin(), right.failure.end());
    failure.push_back(is);
    if (witness.says[value] == '-' && failure.size() <= kMostConditions) {
      add([&](RequestOutcome& row) { row.failure = Fixed(failure); });
    }
    if (witness.says[value] != 'R') {
      add([&](RequestOutcome& row) { row.success = Fixed({is}); });
    }
  }
  return wrong;
}

TEST(OutcomeWitnesses, FindEachRowThatIsWrong) {
  for (const RequestOutcome& right : outcomes::kAll) {
    SCOPED_TRACE(std::string(right.method) + " " + std::to_string(right.ifFirstIs));
    for (const OutcomeWitness& witness : WitnessesOf(right)) {
      for (const RequestOutcome& wrong : WrongRows(right, witness)) {
        std::string conditions;
        for (const OutcomeConditions* const list : {&wrong.ours, &wrong.success, &wrong.failure}) {
          for (const OutcomeCondition& condition : *list) {
            conditions += " " + std::to_string(condition.place) + "=" + std::to_string(condition.value) +
                          "/" + std::to_string(condition.argument);
          }
          conditions += ";";
        }
        EXPECT_NE(DifferenceOf(wrong), "") << "nobody would notice" << conditions;
      }
    }
  }
}

}  // namespace
