#include "service/app/GLibScheduler.h"

#include <algorithm>
#include <cmath>

namespace btservice {
namespace {

constexpr gint64 kMicrosecondsPerMillisecond = 1000;

}  // namespace

GSourceFuncs GLibScheduler::s_functions = {nullptr, nullptr, &GLibScheduler::Dispatch,
                                           nullptr, nullptr, nullptr};

GLibScheduler::GLibScheduler(double speed)
    : m_speed(speed), m_start(g_get_monotonic_time()), m_source(g_source_new(&s_functions, sizeof(Source))) {
  reinterpret_cast<Source*>(m_source)->scheduler = this;
  g_source_attach(m_source, nullptr);
}

GLibScheduler::~GLibScheduler() {
  g_source_destroy(m_source);
  g_source_unref(m_source);
}

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
  m_running = true;
  while (m_queue.RunNext(until, m_taskTime)) {
  }
  m_running = false;
  Arm();
}

void GLibScheduler::Arm() {
  if (m_running) {
    return;
  }
  gint64 readyTime = -1;
  if (const auto due = m_queue.NextDue()) {
    const double delay = std::ceil(static_cast<double>(due->count()) / m_speed * kMicrosecondsPerMillisecond);
    readyTime = m_start + static_cast<gint64>(delay);
  }
  g_source_set_ready_time(m_source, readyTime);
}

}  // namespace btservice
