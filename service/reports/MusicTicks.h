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

  /// period: between two reports of the position, as long as nobody asks for another.
  MusicTicks(Scheduler& scheduler, const StackObservers& observers, Milliseconds period, Source source);

  // The requests of applications; false for a period that is too short.
  bool ReportPosition(bool on, Milliseconds period);
  bool ReportTrackInfo(bool on, Milliseconds period);

  /// The player in use began to run or ended, or another one is in use.
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
