#ifndef SERVICE_SIMULATION_MUSIC_DEVICEPLAYER_H
#define SERVICE_SIMULATION_MUSIC_DEVICEPLAYER_H

#include <functional>
#include <vector>

#include "service/simulation/ModelContext.h"
#include "service/simulation/devices/RemoteDevice.h"
#include "service/simulation/music/PlayQueue.h"
#include "service/time/Timer.h"

namespace btservice {

/// The player of one device. It goes on whether or not somebody listens; what it reports goes to whoever made
/// it, who knows if it is the one in use.
class DevicePlayer {
 public:
  using Report = std::function<void(const StackEvent&)>;

  /// The device and what report refers to must outlive it. report gets each event before the call that causes
  /// it returns.
  DevicePlayer(ModelContext& context, RemoteDevice& device, Report report);

  RemoteDevice& Device() { return m_device; }
  PlayQueue& Queue() { return m_queue; }
  const PlayQueue& Queue() const { return m_queue; }
  MusicPlayStatus Status() const { return m_status; }
  /// Whether it plays or winds: its position changes.
  bool IsRunning() const;
  // In the current track, at this moment; 0 if there is none.

  Milliseconds Position() const;
  Milliseconds Length() const;
  TrackInfo Info() const;

  // The keys of a remote control. A player without tracks stays stopped.

  void Play();
  void Pause();
  void Next();
  /// Goes back to the beginning of the track if more than three seconds of it were played.
  void Previous();
  /// Winds forward or back; ends with the next command to play or pause.
  void Wind(MusicPlayStatus direction);
  /// Plays the current track of the queue from its beginning.
  void PlayFromStart();
  /// The device has other tracks: its queue begins anew with them.
  void TakeNewTracks();
  std::vector<PlayMode> Modes() const;
  /// False if the player has no such mode.
  bool SetMode(PlayMode mode);

  /// After it was reported.
  Notifier<> onStatusChanged;

 private:
  int Rate() const;
  void Enter(MusicPlayStatus status);
  void Rebase(Milliseconds position);
  void ReachEnd();
  void ChangeTrack();

  ModelContext& m_context;
  RemoteDevice& m_device;
  Report m_report;
  PlayQueue m_queue;
  MusicPlayStatus m_status = BT_MUSIC_STOPPED;
  Milliseconds m_base{0};  ///< position at the time m_since
  Milliseconds m_since{0};
  Timer m_end;
  Timer m_cover;
};

}  // namespace btservice

#endif
