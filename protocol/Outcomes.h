#ifndef PROTOCOL_OUTCOMES_H
#define PROTOCOL_OUTCOMES_H

#include <array>
#include <chrono>
#include <cstddef>
#include <initializer_list>
#include <string_view>

#include <bluetooth/MWPBtType.h>

// What ends what: by which signal the service reports what has come of a request that it has accepted.
// Arguments and the values of signals are counted from 0, in the order of the interface description.

/// A value that a signal has.
struct OutcomeCondition {
  enum class Kind {
    VALUE,     ///< one that is known beforehand
    ARGUMENT,  ///< that of an argument of the request
    PROFILE,   ///< likewise; asked for as the pair BT_PROFILE_HFP_A2DP, it is reported as either of the two
  };

  std::size_t place;  ///< in the signal
  Kind kind;
  int value;             ///< of Kind::VALUE
  std::size_t argument;  ///< of the others: its place in the request
};

class OutcomeConditions {
 public:
  constexpr OutcomeConditions() = default;
  constexpr OutcomeConditions(std::initializer_list<OutcomeCondition> conditions) {
    for (const OutcomeCondition& condition : conditions) {
      m_conditions[m_count++] = condition;
    }
  }
  constexpr const OutcomeCondition* begin() const { return m_conditions.data(); }
  constexpr const OutcomeCondition* end() const { return m_conditions.data() + m_count; }

 private:
  std::array<OutcomeCondition, 3> m_conditions{};
  std::size_t m_count = 0;
};

/// Whatever the first argument is.
constexpr int kAnyFirst = -1;

/// The signal by which the service reports what has come of a request.
struct RequestOutcome {
  const char* method;
  int ifFirstIs;  ///< only if this is the first argument, for one that asks for a thing or its opposite; or
                  ///< kAnyFirst
  const char* signal;
  /// Only a signal with these values is about the request.
  OutcomeConditions ours;
  /// With these it reports success; if there are none, it always does.
  OutcomeConditions success;
  /// With any of these it reports failure; with none of all these, that the request is under way.
  OutcomeConditions failure;
};

/// A request for a pair of profiles has an outcome for each. The second may be reported only when its turn
/// has come, or not at all if the device does not have it: it is waited for so long after the first.
constexpr std::chrono::seconds kOtherProfileComesWithin{1};

namespace outcomes {

using namespace MWPBtType;

constexpr OutcomeCondition Is(std::size_t place, int value) {
  return {place, OutcomeCondition::Kind::VALUE, value, 0};
}
constexpr OutcomeCondition IsArgument(std::size_t place, std::size_t argument) {
  return {place, OutcomeCondition::Kind::ARGUMENT, 0, argument};
}
constexpr OutcomeCondition IsProfile(std::size_t place, std::size_t argument) {
  return {place, OutcomeCondition::Kind::PROFILE, 0, argument};
}

constexpr OutcomeConditions kYes{Is(0, 1)};
constexpr OutcomeConditions kNo{Is(0, 0)};
constexpr OutcomeConditions kConnection{IsArgument(0, 0), IsProfile(1, 1)};

// clang-format off
inline constexpr RequestOutcome kAll[] = {
    {"SetPower", 1, "OnOpenBtStatusChanged", {}, {Is(0, BT_POWER_ON)}, {}},
    {"SetPower", 0, "OnOpenBtStatusChanged", {}, {Is(0, BT_POWER_OFF)}, {}},
    {"SetCapability", kAnyFirst, "OnBtCapabilityChanged", {IsArgument(0, 0)}, {IsArgument(1, 1)}, {}},
    {"SetAttribute", kAnyFirst, "OnBtAttributeChanged", {IsArgument(0, 0)}, {}, {}},

    {"SetScanAction", 1, "OnScanStatusChanged", {}, {Is(0, BT_SCAN_SCANNING)}, {}},
    {"SetScanAction", 0, "OnScanStatusChanged", {}, {Is(0, BT_SCAN_IDLE)}, {}},
    {"Pair", kAnyFirst, "OnPairStatusChanged", {IsArgument(2, 0)}, {Is(0, BT_PAIR_PAIRED)},
     {Is(0, BT_PAIR_FAILED)}},
    {"SetDeviceOOBLinkKey", kAnyFirst, "OnSetDeviceOOBLinkKeyChanged", {IsArgument(0, 0)}, {Is(1, 1)},
     {Is(1, 0)}},
    {"RequestAndroidAutoPairing", kAnyFirst, "OnAndroidAutoPairingResponse", {}, {}, {}},

    {"Connect", kAnyFirst, "OnConnectStatusChanged", kConnection, {Is(2, BT_CONN_CONNECTED)},
     {Is(2, BT_CONN_FAILED), Is(2, BT_CONN_DISCONNECTED), Is(2, BT_CONN_LINK_LOST)}},
    {"DisConnect", kAnyFirst, "OnConnectStatusChanged", kConnection, {Is(2, BT_CONN_DISCONNECTED)}, {}},
    // What was connected is disconnected first.
    {"ReConnect", kAnyFirst, "OnConnectStatusChanged", kConnection, {Is(2, BT_CONN_CONNECTED)},
     {Is(2, BT_CONN_FAILED)}},
    {"EnableProfile", kAnyFirst, "OnBtProfileEnableStatusChanged", {}, kYes, {}},
    {"DisableProfile", kAnyFirst, "OnBtProfileEnableStatusChanged", {}, kNo, {}},
    {"DeletePairDevice", kAnyFirst, "OnDeletePairStatusChanged", {}, kYes, kNo},
    {"DeletePairDeviceList", kAnyFirst, "OnDeletePairStatusChanged", {}, kYes, kNo},

    // The interface does not say which call it is about.
    {"DialCall", kAnyFirst, "OnCallStatusChanged", {}, {Is(1, BT_CALL_DIALING)}, {}},
    {"RedialCall", kAnyFirst, "OnCallStatusChanged", {}, {Is(1, BT_CALL_DIALING)}, {}},
    {"AcceptCall", kAnyFirst, "OnCallStatusChanged", {}, {Is(1, BT_CALL_ACTIVE)}, {}},
    {"RejectCall", kAnyFirst, "OnCallStatusChanged", {}, {Is(1, BT_CALL_IDLE)}, {}},
    {"TerminateCall", kAnyFirst, "OnCallStatusChanged", {}, {Is(1, BT_CALL_IDLE)}, {}},
    {"SetAudioPrivacy", 1, "OnAudioStatusChanged", {}, {Is(0, BT_AUDIO_DISCONNECTED)}, {}},
    {"SetAudioPrivacy", 0, "OnAudioStatusChanged", {}, {Is(0, BT_AUDIO_CONNECTED)}, {}},
    {"StartVoiceRecognition", kAnyFirst, "OnVoiceStatusChanged", {}, kYes, {}},
    {"StopVoiceRecognition", kAnyFirst, "OnVoiceStatusChanged", {}, kNo, {}},

    {"SetCurPlayMode", kAnyFirst, "OnPlayModeChanged", {}, {}, {}},
    {"RootDirectory", kAnyFirst, "OnCurBrowserPathChanged", {}, kYes, kNo},
    {"FolderUp", kAnyFirst, "OnCurBrowserPathChanged", {}, kYes, kNo},
    {"FolderDown", kAnyFirst, "OnCurBrowserPathChanged", {}, kYes, kNo},
    {"BrowsingSearch", kAnyFirst, "OnBrowserMediaInfoChanged", {}, {}, {}},
    {"BrowsingNowPlayingList", kAnyFirst, "OnBrowserMediaInfoChanged", {}, {}, {}},
    {"GetBrowsingFolderItemTotal", kAnyFirst, "OnBrowserFolderItemTotalChanged", {}, {}, {}},
    {"PlayItem", kAnyFirst, "OnSendPlayItemStatus", {}, kYes, kNo},
    {"AddMediaItemToNowPlaying", kAnyFirst, "OnMediaItemToNowPlayingStatus", {}, kYes, kNo},

    {"StartPhoneBookDownload", kAnyFirst, "OnPBDownloadStatus", {IsArgument(1, 0)},
     {Is(0, BT_PBAP_COMPLETED)},
     {Is(0, BT_PBAP_STOPPED), Is(0, BT_PBAP_FAILED), Is(0, BT_PBAP_REFUSED)}},
    {"StopPhoneBookDownload", kAnyFirst, "OnPBDownloadStatus", {}, {Is(0, BT_PBAP_STOPPED)}, {}},
    {"SetContactFavorite", kAnyFirst, "OnContactFavoriteChanged", {IsArgument(0, 0)}, {IsArgument(1, 1)}, {}},
    {"DeleteContactById", kAnyFirst, "OnDeletePhoneBookChanged", {}, kYes, kNo},
    {"ClearContact", kAnyFirst, "OnDeletePhoneBookChanged", {}, kYes, kNo},
    {"DeleteCallLogById", kAnyFirst, "OnBtCallLogListChanged", {}, {}, {}},
    {"ClearCallLog", kAnyFirst, "OnBtCallLogListChanged", {}, {}, {}},

    {"SetHIDCalibration", kAnyFirst, "OnHIDCalibration", {}, kYes, kNo},
};
// clang-format on

}  // namespace outcomes

/// What ends a request with this first argument, if it is a number; null if nothing does.
constexpr const RequestOutcome* FindRequestOutcome(std::string_view method, int first = 0) {
  for (const RequestOutcome& outcome : outcomes::kAll) {
    if (method == outcome.method && (outcome.ifFirstIs == kAnyFirst || outcome.ifFirstIs == first)) {
      return &outcome;
    }
  }
  return nullptr;
}

#endif
