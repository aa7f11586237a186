#include "service/simulation/music/Player.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace btservice {
namespace {

constexpr SupportAvrcpEvent kNotifications[] = {
    BT_AVRCP_EVENT_PLAYBACK_STATUS_CHANGED,     BT_AVRCP_EVENT_TRACK_CHANGED,
    BT_AVRCP_EVENT_PLAYBACK_POS_CHANGED,        BT_AVRCP_EVENT_PLAYER_APPLICATION_SETTING_CHANGED,
    BT_AVRCP_EVENT_NOW_PLAYING_CONTENT_CHANGED, BT_AVRCP_EVENT_VOLUME_CHANGED};

}  // namespace

Player::Player(ModelContext& context, Connections& connections, CallTable& calls)
    : m_context(context),
      m_connections(connections),
      m_calls(calls),
      m_ticks(context.scheduler, context.observers, context.delays.positionTick,
              [this] { return Position(); }),
      m_commands(context.scheduler) {
  connections.onChanged.Add([this](RemoteDevice& device, ProfileId profile, ConnStatus status) {
    if (profile == BT_PROFILE_AVRCP) {
      status == BT_CONN_CONNECTED ? Arrive(device) : Leave(device);
    } else if (profile == BT_PROFILE_A2DP) {
      UpdateStream();
    }
  });
  calls.onChanged.Add([this] { OnCalls(); });
}

DevicePlayer* Player::InUse() const {
  const auto entry = m_players.find(m_connections.Active(BT_PROFILE_AVRCP));
  return entry != m_players.end() ? entry->second.get() : nullptr;
}

bool Player::Command(std::function<void(DevicePlayer&)> command) {
  DevicePlayer* const player = InUse();
  if (player == nullptr) {
    return false;
  }
  m_commands.After(m_context.delays.playerReply, [this, player, command = std::move(command)] {
    if (InUse() == player) {
      command(*player);
    }
  });
  return true;
}

bool Player::SetOutput(bool open) {
  m_outputOpen = open;
  UpdateStream();
  return true;
}

void Player::ReportAll() const {
  const DevicePlayer* const player = InUse();
  const bool present = player != nullptr;
  for (const SupportAvrcpEvent event : kNotifications) {
    m_context.Report(NotificationSupported{event, present});
  }
  m_context.Report(FastForwardSupported{present});
  m_context.Report(FastReverseSupported{present});
  m_context.Report(BrowsingSupported{present});
  m_context.Report(PlayerChanged{});
  m_context.Report(SupportedPlayModesChanged{});
  m_context.Report(PlayModeChanged{});
  m_context.Report(PlayStatusChanged{present ? player->Status() : BT_MUSIC_STOPPED});
  m_context.Report(TrackInfoChanged{});
}

bool Player::Supports(SupportAvrcpEvent event) {
  return std::find(std::begin(kNotifications), std::end(kNotifications), event) != std::end(kNotifications);
}

void Player::SetTracksFromRemote(RemoteDevice& device, std::vector<TrackData> tracks) {
  device.data.music.folders.clear();
  device.data.music.tracks = std::move(tracks);
  const auto player = m_players.find(&device);
  if (player != m_players.end()) {
    player->second->TakeNewTracks();
  }
}

bool Player::PlayFromRemote(RemoteDevice& device) {
  if (!device.IsConnected(BT_PROFILE_AVRCP)) {
    return false;
  }
  PlayerOf(device).Play();
  return true;
}

bool Player::PauseFromRemote(RemoteDevice& device) {
  if (!device.IsConnected(BT_PROFILE_AVRCP)) {
    return false;
  }
  PlayerOf(device).Pause();
  return true;
}

DevicePlayer& Player::PlayerOf(RemoteDevice& device) {
  std::unique_ptr<DevicePlayer>& player = m_players[&device];
  if (player == nullptr) {
    player = std::make_unique<DevicePlayer>(m_context, device, [this, &device](const StackEvent& event) {
      if (m_connections.Active(BT_PROFILE_AVRCP) == &device) {
        m_context.Report(event);
      }
    });
    player->onStatusChanged.Add([this, raw = player.get()] { OnStatus(*raw); });
  }
  return *player;
}

void Player::Arrive(RemoteDevice& device) {
  // Whoever plays goes on being the one in use.
  for (const auto& [other, player] : m_players) {
    if (other != &device && player->IsRunning() && other->IsConnected(BT_PROFILE_AVRCP)) {
      m_connections.Activate(*other, BT_PROFILE_AVRCP);
      PlayerOf(device);
      return;
    }
  }
  PlayerOf(device);
  ReportAll();
}

void Player::Leave(RemoteDevice& device) {
  const auto entry = m_players.find(&device);
  if (entry == m_players.end()) {
    return;
  }
  if (m_interrupted == entry->second.get()) {
    m_interrupted = nullptr;
  }
  entry->second->Pause();
  UpdateStream();
  ReportAll();
}

/// A device that begins to play is heard instead of the one before.
void Player::TakeOver(DevicePlayer& player) {
  DevicePlayer* const before = InUse();
  if (before == &player || !player.Device().IsConnected(BT_PROFILE_AVRCP)) {
    return;
  }
  m_connections.Activate(player.Device(), BT_PROFILE_AVRCP);
  m_connections.Activate(player.Device(), BT_PROFILE_A2DP);
  if (before != nullptr) {
    before->Pause();
  }
  ReportAll();
}

void Player::OnStatus(DevicePlayer& player) {
  if (player.IsRunning()) {
    TakeOver(player);
  }
  UpdateStream();
  if (InUse() == &player) {
    m_ticks.PlayerChanged();
  }
}

void Player::UpdateStream() {
  DevicePlayer* const player = InUse();
  RemoteDevice* streaming = nullptr;
  if (m_outputOpen && player != nullptr && player->IsRunning() &&
      player->Device().IsConnected(BT_PROFILE_A2DP)) {
    streaming = &player->Device();
  }
  if (streaming == m_streaming) {
    return;
  }
  if (RemoteDevice* const before = std::exchange(m_streaming, streaming)) {
    m_context.Report(StreamChanged{before->data.address, false});
  }
  if (streaming != nullptr) {
    m_context.Report(StreamChanged{streaming->data.address, true});
  }
}

void Player::OnCalls() {
  DevicePlayer* const player = InUse();
  if (!m_calls.All().empty()) {
    if (player != nullptr && player->IsRunning()) {
      m_interrupted = player;
      player->Pause();
    }
  } else if (DevicePlayer* const resumed = std::exchange(m_interrupted, nullptr)) {
    resumed->Play();
  }
}

std::optional<PlayPosition> Player::Position() const {
  const DevicePlayer* const player = InUse();
  if (player == nullptr) {
    return std::nullopt;
  }
  return PlayPosition{player->IsRunning(), static_cast<int>(player->Position().count()),
                      static_cast<int>(player->Length().count())};
}

}  // namespace btservice
