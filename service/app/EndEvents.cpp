#include "service/app/EndEvents.h"

namespace btservice {
namespace {

constexpr CallAction kActions[] = {BT_CALL_RELEASE_HELD, BT_CALL_RELEASE_ACTIVE, BT_CALL_HOLD_ACTIVE,
                                   BT_CALL_CONFERENCE, BT_CALL_TRANSFER};

/// All that there are, since the list of paired devices does not contain every profile that was connected:
/// one more is no change to anybody.
constexpr ProfileId kProfiles[] = {BT_PROFILE_HFP,  BT_PROFILE_A2DP, BT_PROFILE_AVRCP,
                                   BT_PROFILE_PBAP, BT_PROFILE_MAP,  BT_PROFILE_SPP,
                                   BT_PROFILE_HID,  BT_PROFILE_PAN,  BT_PROFILE_GATT};

void EndCalls(const std::vector<int>& ids, std::vector<StackEvent>& events) {
  for (const int id : ids) {
    events.emplace_back(CallChanged{id, BT_CALL_IDLE, 0});
    events.emplace_back(CallHungUp{});
  }
  events.emplace_back(CallsChanged{0});
  for (const CallAction action : kActions) {
    events.emplace_back(CallActionChanged{action, false});
  }
}

/// There is sound without a call, too: voice recognition. It is in no segment.
void EndSound(std::vector<StackEvent>& events) {
  events.emplace_back(VoiceRecognitionChanged{false});
  events.emplace_back(CallAudioChanged{BT_AUDIO_DISCONNECTED});
}

void EndPlayer(std::vector<StackEvent>& events) {
  events.emplace_back(FastForwardSupported{false});
  events.emplace_back(FastReverseSupported{false});
  events.emplace_back(BrowsingSupported{false});
  events.emplace_back(PlayerChanged{});
  events.emplace_back(PlayStatusChanged{BT_MUSIC_STOPPED});
  events.emplace_back(TrackInfoChanged{});
}

void EndConnections(const std::vector<std::string>& addresses, std::vector<StackEvent>& events) {
  for (const std::string& address : addresses) {
    for (const ProfileId profile : kProfiles) {
      events.emplace_back(ConnectionChanged{address, profile, BT_CONN_DISCONNECTED});
    }
    events.emplace_back(StreamChanged{address, false});
  }
  events.emplace_back(OperatorChanged{""});
  events.emplace_back(MobileServiceChanged{false});
  events.emplace_back(RoamingChanged{false});
  events.emplace_back(SignalChanged{0});
  events.emplace_back(BatteryChanged{0});
  EndPlayer(events);
}

}  // namespace

std::vector<StackEvent> EndEvents(const LeftBehind& left) {
  std::vector<StackEvent> events;
  if (!left.callIds.empty()) {
    EndCalls(left.callIds, events);
  }
  if (!left.callIds.empty() || !left.connectedDevices.empty()) {
    EndSound(events);
  }
  if (!left.connectedDevices.empty()) {
    EndConnections(left.connectedDevices, events);
  }
  return events;
}

}  // namespace btservice
