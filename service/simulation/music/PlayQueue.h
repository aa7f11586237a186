#ifndef SERVICE_SIMULATION_MUSIC_PLAYQUEUE_H
#define SERVICE_SIMULATION_MUSIC_PLAYQUEUE_H

#include <random>
#include <string>
#include <vector>

#include "service/simulation/world/World.h"

namespace btservice {

/// Values of the player settings, as AVRCP numbers them.
enum PlayerAttribute : std::uint8_t { PLAYER_REPEAT = 2, PLAYER_SHUFFLE = 3 };
enum RepeatMode : std::uint8_t { REPEAT_OFF = 1, REPEAT_TRACK = 2, REPEAT_ALL = 3 };
enum ShuffleMode : std::uint8_t { SHUFFLE_OFF = 1, SHUFFLE_ALL = 2 };

/// The tracks that a player goes through, and in which order.
class PlayQueue {
 public:
  const std::vector<TrackData>& Tracks() const { return m_tracks; }
  /// Null if the queue is empty.
  const TrackData* Current() const;
  int CurrentNumber() const;  ///< counted from 1, 0 if the queue is empty

  /// Other tracks, in their order; current is the place of the one that comes first, from 0.
  void Set(const std::vector<TrackData>& tracks, std::size_t current);
  /// Puts a track at the end, whatever the order is. False if there are kMostTracks already.
  bool Append(const TrackData& track);
  static constexpr std::size_t kMostTracks = 10000;
  /// Makes that track the current one. False if it is not in the queue.
  bool Select(const std::string& uid);

  // From the last track to the first and the other way round; whether to do so is up to the player.

  void Next();
  void Previous();
  bool IsAtEnd() const;

  void SetRepeat(RepeatMode mode) { m_repeat = mode; }
  RepeatMode Repeat() const { return m_repeat; }
  /// The current track stays the current one.
  void SetShuffle(ShuffleMode mode, std::mt19937& random);
  ShuffleMode Shuffle() const { return m_shuffle; }

 private:
  std::vector<TrackData> m_tracks;
  std::vector<std::size_t> m_order;  ///< places in m_tracks
  std::size_t m_place = 0;           ///< in m_order
  RepeatMode m_repeat = REPEAT_OFF;
  ShuffleMode m_shuffle = SHUFFLE_OFF;
};

}  // namespace btservice

#endif
