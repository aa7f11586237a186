#ifndef SERVICE_TIME_MANUALSCHEDULER_H
#define SERVICE_TIME_MANUALSCHEDULER_H

#include <utility>

#include "service/time/TaskQueue.h"

namespace btservice {

/// A clock that advances only on demand, so that hours pass at once: for tests and fuzz targets.
class ManualScheduler : public Scheduler {
 public:
  Milliseconds Now() const override { return m_now; }
  TaskId After(Milliseconds delay, Task task) override { return m_queue.Add(m_now + delay, std::move(task)); }
  void Cancel(TaskId id) override { m_queue.Cancel(id); }

  /// Lets that much time pass, and runs on the way all that is due, with what tasks ask for meanwhile. Not to
  /// be called by a task. A task that asks again and again for another without delay keeps it from returning.
  void Advance(Milliseconds time) {
    const Milliseconds end = m_now + time;
    while (m_queue.RunNext(end, m_now)) {
    }
    m_now = end;
  }

 private:
  TaskQueue m_queue;
  Milliseconds m_now{0};
};

}  // namespace btservice

#endif
