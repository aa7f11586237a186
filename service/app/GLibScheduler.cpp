#include "service/app/GLibScheduler.h"

#include <algorithm>
#include <cmath>

#define MWP_LOG_SOURCE "service/app/GLibScheduler"
#include <mwp/MWPLog.h>

namespace btservice {
namespace {

constexpr gint64 kMicrosecondsPerMillisecond = 1000;
/// How long tasks may run before requests, signals of the system and the bus get their turn.
constexpr gint64 kTurn = 5 * kMicrosecondsPerMillisecond;
/// How soon to look again after a turn in which no task was allowed to run.
constexpr gint64 kPause = kMicrosecondsPerMillisecond;
/// What can be made up for: a machine that was busy for a moment, or a process that was stopped.
constexpr gint64 kMostLag = 1000 * kMicrosecondsPerMillisecond;

}  // namespace

GSourceFuncs GLibScheduler::s_functions = {nullptr, nullptr, &GLibScheduler::Dispatch,
                                           nullptr, nullptr, nullptr};

GLibScheduler::GLibScheduler(double speed, std::function<bool()> mayGoOn)
    : m_speed(speed),
      m_mayGoOn(std::move(mayGoOn)),
      m_start(g_get_monotonic_time()),
      m_source(g_source_new(&s_functions, sizeof(Source))) {
  reinterpret_cast<Source*>(m_source.get())->scheduler = this;
  g_source_attach(m_source.get(), nullptr);
}

GLibScheduler::~GLibScheduler() { g_source_destroy(m_source.get()); }

Milliseconds GLibScheduler::Now() const { return m_running ? m_taskTime : std::max(m_taskTime, WallTime()); }

Scheduler::TaskId GLibScheduler::After(Milliseconds delay, Task task) {
  const TaskId id = m_queue.Add(Now() + delay, std::move(task));
  Arm();
  return id;
}

Milliseconds GLibScheduler::WallTime() const {
  const double elapsed = static_cast<double>(g_get_monotonic_time() - m_start) / kMicrosecondsPerMillisecond;
  return Milliseconds(static_cast<Milliseconds::rep>(elapsed * m_speed));
}

gboolean GLibScheduler::Dispatch(GSource* source, GSourceFunc, gpointer) {
  reinterpret_cast<Source*>(source)->scheduler->Run();
  return G_SOURCE_CONTINUE;
}

void GLibScheduler::Run() {
  // What tasks ask for meanwhile may be due by then as well, but other sources get their turn after this.
  const Milliseconds until = WallTime();
  RunTurn(until);
  m_isHeld = !m_mayGoOn();
  if (IsDueBy(until)) {
    FallBehind();
  }
  Arm();
}

void GLibScheduler::RunTurn(Milliseconds until) {
  const gint64 end = g_get_monotonic_time() + kTurn;
  m_running = true;
  while (m_mayGoOn() && g_get_monotonic_time() < end && m_queue.RunNext(until, m_taskTime)) {
  }
  m_running = false;
}

bool GLibScheduler::IsDueBy(Milliseconds time) const {
  const auto due = m_queue.NextDue();
  return due && *due <= time;
}

void GLibScheduler::FallBehind() {
  const auto lag = static_cast<gint64>(static_cast<double>((WallTime() - m_queue.NextDue().value()).count()) /
                                       m_speed * kMicrosecondsPerMillisecond);
  if (lag <= kMostLag) {
    return;
  }
  m_start += lag;
  if (!std::exchange(m_hasFallenBehind, true)) {
    MWP_LOG(MWP_LOG_WARNING,
            "there is more to do than this machine can at speed %g: the simulated time falls behind",
            m_speed);
  }
}

void GLibScheduler::Arm() {
  if (m_running) {
    return;
  }
  gint64 readyTime = -1;
  if (const auto due = m_queue.NextDue()) {
    const double delay = std::ceil(static_cast<double>(due->count()) / m_speed * kMicrosecondsPerMillisecond);
    readyTime = m_start + static_cast<gint64>(delay);
    if (m_isHeld) {
      readyTime = std::max(readyTime, g_get_monotonic_time() + kPause);
    }
  }
  g_source_set_ready_time(m_source.get(), readyTime);
}

}  // namespace btservice
