#ifndef SERVICE_SIMULATION_MUSIC_PLAYER_H
#define SERVICE_SIMULATION_MUSIC_PLAYER_H

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "service/reports/MusicTicks.h"
#include "service/simulation/calls/CallTable.h"
#include "service/simulation/music/DevicePlayer.h"

namespace btservice {

/// The players of all connected devices, of which one is in use: the one that was connected last, or that
/// began to play last. Only that one is heard.
class Player {
 public:
  Player(ModelContext& context, Connections& connections, CallTable& calls);

  /// Null if no player is connected.
  DevicePlayer* InUse() const;
  /// Has the player in use do something as soon as the request has reached it (Delays). False without a
  /// player; one that is gone by then does nothing.
  bool Command(std::function<void(DevicePlayer&)> command);
  /// Opens or closes the way of the music to the loudspeakers; possible without a player.
  bool SetOutput(bool open);
  /// When the position and the texts of the track are reported.
  MusicTicks& Ticks() { return m_ticks; }
  /// Reports what the player in use can do, and how it stands.
  void ReportAll() const;
  /// True for a notification that every player here can give.
  static bool Supports(SupportAvrcpEvent event);

  /// The device has other tracks now. What plays goes on with the first of them.
  void SetTracksFromRemote(RemoteDevice& device, std::vector<TrackData> tracks);
  /// Somebody at the device presses play or pause. False if its player is not connected.
  bool PlayFromRemote(RemoteDevice& device);
  bool PauseFromRemote(RemoteDevice& device);

 private:
  DevicePlayer& PlayerOf(RemoteDevice& device);
  void Arrive(RemoteDevice& device);
  void Leave(RemoteDevice& device);
  void TakeOver(DevicePlayer& player);
  void OnStatus(DevicePlayer& player);
  void UpdateStream();
  void OnCalls();
  std::optional<PlayPosition> Position() const;

  ModelContext& m_context;
  Connections& m_connections;
  CallTable& m_calls;
  std::map<RemoteDevice*, std::unique_ptr<DevicePlayer>> m_players;
  bool m_outputOpen = true;
  RemoteDevice* m_streaming = nullptr;
  DevicePlayer* m_interrupted = nullptr;  ///< paused for a call, to go on after it
  MusicTicks m_ticks;
  TaskGroup m_commands;
};

}  // namespace btservice

#endif
