#ifndef SERVICE_REPORTS_MUSICTICKS_H
#define SERVICE_REPORTS_MUSICTICKS_H

#include <functional>
#include <optional>

#include "service/stack/StackEvents.h"
#include "service/time/Timer.h"

namespace btservice {

/// Where a player is in its track.
struct PlayPosition {
  bool runs = false;  ///< it plays, or winds
  int position = 0;   ///< milliseconds
  int length = 0;     ///< milliseconds
};

/// Decides when a stack reports where the music is: the position while a player runs, and the track's texts
/// as often as an application asked for.
class MusicTicks {
 public:
  /// The player in use; nothing if there is none.
  using Source = std::function<std::optional<PlayPosition>()>;

  /// The scheduler, the observers, and what source refers to must outlive this. period: between two reports
  /// of the position, as long as nobody asks for another.
  MusicTicks(Scheduler& scheduler, const StackObservers& observers, Milliseconds period, Source source);

  // The requests of MusicControl. False, and nothing changed, for a period below 20 ms. There is one period
  // for all applications: the last request counts.

  /// PositionChanged, at once and then after each period while the player runs; off: no more.
  bool ReportPosition(bool on, Milliseconds period);
  /// TrackInfoChanged, at once and then after each period while there is a player; off: no more.
  bool ReportTrackInfo(bool on, Milliseconds period);

  /// To be called when the player in use has begun to run or has stopped, or another one is in use.
  void PlayerChanged();

 private:
  void TickTrackInfo();

  const StackObservers& m_observers;
  Source m_source;
  bool m_reportsPosition = true;
  Milliseconds m_positionPeriod;
  Milliseconds m_infoPeriod{0};
  Timer m_positionTimer;
  Timer m_infoTimer;
};

}  // namespace btservice

#endif
