#include "service/simulation/music/SimulatedMusic.h"

#include <algorithm>

namespace btservice {
namespace {

const std::vector<PlayMode> kSupportedModes{{PLAYER_REPEAT, REPEAT_OFF},
                                            {PLAYER_REPEAT, REPEAT_TRACK},
                                            {PLAYER_REPEAT, REPEAT_ALL},
                                            {PLAYER_SHUFFLE, SHUFFLE_OFF},
                                            {PLAYER_SHUFFLE, SHUFFLE_ALL}};

}  // namespace

MusicPlayStatus SimulatedMusic::Status() const {
  const DevicePlayer* const player = m_player.InUse();
  return player != nullptr ? player->Status() : BT_MUSIC_STOPPED;
}

std::optional<std::pair<int, int>> SimulatedMusic::Position() const {
  const DevicePlayer* const player = m_player.InUse();
  if (player == nullptr) {
    return std::nullopt;
  }
  return std::pair(static_cast<int>(player->Position().count()), static_cast<int>(player->Length().count()));
}

std::optional<TrackInfo> SimulatedMusic::CurrentTrack() const {
  const DevicePlayer* const player = m_player.InUse();
  return player != nullptr ? std::optional<TrackInfo>(player->Info()) : std::nullopt;
}

bool SimulatedMusic::ReportPosition(bool on, int periodMs) {
  return m_player.Ticks().ReportPosition(on, Milliseconds(periodMs));
}

bool SimulatedMusic::ReportTrackInfo(bool on, int periodMs) {
  return m_player.Ticks().ReportTrackInfo(on, Milliseconds(periodMs));
}

std::vector<PlayMode> SimulatedMusic::PlayModes() const {
  const DevicePlayer* const player = m_player.InUse();
  return player != nullptr ? player->Modes() : std::vector<PlayMode>();
}

std::vector<PlayMode> SimulatedMusic::SupportedPlayModes() const {
  return m_player.InUse() != nullptr ? kSupportedModes : std::vector<PlayMode>();
}

bool SimulatedMusic::SetPlayMode(PlayMode mode) {
  const bool supported = std::any_of(
      kSupportedModes.begin(), kSupportedModes.end(),
      [&](const PlayMode& one) { return one.attribute == mode.attribute && one.value == mode.value; });
  return supported && m_player.Command([mode](DevicePlayer& player) { player.SetMode(mode); });
}

bool SimulatedMusic::SupportsNotification(SupportAvrcpEvent event) const {
  return m_player.InUse() != nullptr && Player::Supports(event);
}

bool SimulatedMusic::Search(const std::string& uid, const std::string& words, ItemRange range) {
  return m_browser.Search(uid, words, range);
}

bool SimulatedMusic::PlayItem(const std::string& uid, BrowserScopeType scope) {
  return m_browser.PlayItem(uid, scope);
}

bool SimulatedMusic::QueueItem(const std::string& uid, BrowserScopeType /*scope*/) {
  return m_browser.QueueItem(uid);
}

/// Winding begins from playing or pausing; what ends must have begun.
bool SimulatedMusic::Wind(MusicPlayStatus direction, bool on) {
  const MusicPlayStatus status = Status();
  if (on) {
    return (status == BT_MUSIC_PLAYING || status == BT_MUSIC_PAUSED) &&
           m_player.Command([direction](DevicePlayer& player) { player.Wind(direction); });
  }
  return status == direction && m_player.Command(&DevicePlayer::Play);
}

}  // namespace btservice
