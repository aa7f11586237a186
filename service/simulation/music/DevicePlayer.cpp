#include "service/simulation/music/DevicePlayer.h"

#include <algorithm>
#include <utility>

namespace btservice {
namespace {

constexpr int kWindingRate = 8;
constexpr Milliseconds kBackToStart{3000};  ///< later than this, "previous" is the start of the same track

std::vector<TrackData> AllTracks(const FolderData& folder) {
  std::vector<TrackData> tracks = folder.tracks;
  for (const FolderData& sub : folder.folders) {
    const std::vector<TrackData> more = AllTracks(sub);
    tracks.insert(tracks.end(), more.begin(), more.end());
  }
  return tracks;
}

}  // namespace

DevicePlayer::DevicePlayer(ModelContext& context, RemoteDevice& device, Report report)
    : m_context(context),
      m_device(device),
      m_report(std::move(report)),
      m_end(context.scheduler),
      m_cover(context.scheduler) {
  m_queue.Set(AllTracks(device.data.music), 0);
}

bool DevicePlayer::IsRunning() const { return Rate() != 0; }

int DevicePlayer::Rate() const {
  switch (m_status) {
    case BT_MUSIC_PLAYING:
      return 1;
    case BT_MUSIC_FAST_FORWARD:
      return kWindingRate;
    case BT_MUSIC_FAST_REVERSE:
      return -kWindingRate;
    default:
      return 0;
  }
}

Milliseconds DevicePlayer::Position() const {
  const Milliseconds position = m_base + Rate() * (m_context.scheduler.Now() - m_since);
  return std::clamp(position, Milliseconds(0), Length());
}

Milliseconds DevicePlayer::Length() const {
  const TrackData* const track = m_queue.Current();
  return track != nullptr ? track->length : Milliseconds(0);
}

TrackInfo DevicePlayer::Info() const {
  TrackInfo info;
  if (const TrackData* const track = m_queue.Current()) {
    info.title = track->title;
    info.artist = track->artist;
    info.album = track->album;
    info.genre = track->genre;
    info.number = std::to_string(m_queue.CurrentNumber());
    info.count = std::to_string(m_queue.Tracks().size());
    info.duration = std::to_string(track->length.count());
  }
  return info;
}

void DevicePlayer::Play() {
  if (m_queue.Current() != nullptr) {
    Enter(BT_MUSIC_PLAYING);
  }
}

void DevicePlayer::Pause() {
  if (m_status != BT_MUSIC_STOPPED) {
    Enter(BT_MUSIC_PAUSED);
  }
}

void DevicePlayer::Next() {
  m_queue.Next();
  ChangeTrack();
}

void DevicePlayer::Previous() {
  if (Position() <= kBackToStart) {
    m_queue.Previous();
    ChangeTrack();
  } else {
    Rebase(Milliseconds(0));
    m_report(PositionChanged{0, static_cast<int>(Length().count())});
  }
}

void DevicePlayer::Wind(MusicPlayStatus direction) { Enter(direction); }

void DevicePlayer::PlayFromStart() {
  ChangeTrack();
  Play();
}

void DevicePlayer::TakeNewTracks() {
  m_queue.Set(AllTracks(m_device.data.music), 0);
  if (m_queue.Current() != nullptr) {
    ChangeTrack();
    return;
  }
  Enter(BT_MUSIC_STOPPED);
  m_report(TrackInfoChanged{});
}

std::vector<PlayMode> DevicePlayer::Modes() const {
  return {{PLAYER_REPEAT, m_queue.Repeat()}, {PLAYER_SHUFFLE, m_queue.Shuffle()}};
}

bool DevicePlayer::SetMode(PlayMode mode) {
  if (mode.attribute == PLAYER_REPEAT && mode.value >= REPEAT_OFF && mode.value <= REPEAT_ALL) {
    m_queue.SetRepeat(static_cast<RepeatMode>(mode.value));
  } else if (mode.attribute == PLAYER_SHUFFLE && mode.value >= SHUFFLE_OFF && mode.value <= SHUFFLE_ALL) {
    m_queue.SetShuffle(static_cast<ShuffleMode>(mode.value), m_context.random);
  } else {
    return false;
  }
  m_report(PlayModeChanged{});
  return true;
}

void DevicePlayer::Enter(MusicPlayStatus status) {
  const Milliseconds position = Position();
  const bool changed = std::exchange(m_status, status) != status;
  Rebase(position);
  if (changed) {
    m_report(PlayStatusChanged{status});
    onStatusChanged();
  }
}

/// Goes on from a position, at the rate of the state it is in.
void DevicePlayer::Rebase(Milliseconds position) {
  m_base = position;
  m_since = m_context.scheduler.Now();
  const int rate = Rate();
  if (rate > 0) {
    // A track without a length that is repeated would otherwise end for ever in the same instant.
    const Milliseconds length = std::max(Length(), Milliseconds(1));
    m_end.Start((length - position + Milliseconds(rate - 1)) / rate, [this] { ReachEnd(); });
  } else if (rate < 0) {
    m_end.Start((position + Milliseconds(-rate - 1)) / -rate, [this] { Enter(BT_MUSIC_PLAYING); });
  } else {
    m_end.Stop();
  }
}

void DevicePlayer::ReachEnd() {
  if (m_queue.Repeat() == REPEAT_TRACK) {
    Rebase(Milliseconds(0));
    m_report(PositionChanged{0, static_cast<int>(Length().count())});
    return;
  }
  const bool ends = m_queue.IsAtEnd() && m_queue.Repeat() == REPEAT_OFF;
  m_queue.Next();
  if (m_status == BT_MUSIC_FAST_FORWARD && !ends) {
    Enter(BT_MUSIC_PLAYING);
  }
  ChangeTrack();
  if (ends) {
    Enter(BT_MUSIC_STOPPED);
  }
}

void DevicePlayer::ChangeTrack() {
  if (m_queue.Current() == nullptr) {
    return;
  }
  Rebase(Milliseconds(0));
  m_report(TrackChanged{});
  m_report(TrackInfoChanged{});
  m_report(PositionChanged{0, static_cast<int>(Length().count())});
  m_cover.Start(m_context.delays.cover, [this] { m_report(CoverDownloaded{}); });
}

}  // namespace btservice
