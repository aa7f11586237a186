#include "service/reports/MusicTicks.h"

#include <utility>

namespace btservice {
namespace {

constexpr Milliseconds kShortestPeriod{20};

}  // namespace

MusicTicks::MusicTicks(Scheduler& scheduler, const StackObservers& observers, Milliseconds period,
                       Source source)
    : m_observers(observers),
      m_source(std::move(source)),
      m_positionPeriod(period),
      m_positionTimer(scheduler),
      m_infoTimer(scheduler) {}

bool MusicTicks::ReportPosition(bool on, Milliseconds period) {
  if (on && period < kShortestPeriod) {
    return false;
  }
  m_reportsPosition = on;
  if (on) {
    m_positionPeriod = period;
  }
  m_positionTimer.Stop();
  PlayerChanged();
  return true;
}

bool MusicTicks::ReportTrackInfo(bool on, Milliseconds period) {
  if (on && period < kShortestPeriod) {
    return false;
  }
  m_infoPeriod = on ? period : Milliseconds(0);
  m_infoTimer.Stop();
  TickTrackInfo();
  return true;
}

void MusicTicks::PlayerChanged() {
  const std::optional<PlayPosition> player = m_source();
  if (!m_reportsPosition || !player || !player->runs) {
    m_positionTimer.Stop();
  } else if (!m_positionTimer.IsRunning()) {
    m_observers.Report(PositionChanged{player->position, player->length});
    m_positionTimer.Start(m_positionPeriod, [this] { PlayerChanged(); });
  }
}

void MusicTicks::TickTrackInfo() {
  if (m_infoPeriod.count() > 0) {
    if (m_source()) {
      m_observers.Report(TrackInfoChanged{});
    }
    m_infoTimer.Start(m_infoPeriod, [this] { TickTrackInfo(); });
  }
}

}  // namespace btservice
