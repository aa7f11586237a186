#ifndef SERVICE_TIME_TIMER_H
#define SERVICE_TIME_TIMER_H

#include <memory>
#include <set>
#include <utility>

#include "service/time/Scheduler.h"

namespace btservice {

/// One thing that shall happen later, and will not if the timer goes first. The scheduler must outlive it.
/// Used on the thread of the scheduler.
class Timer {
 public:
  explicit Timer(Scheduler& scheduler) : m_scheduler(scheduler) {}
  ~Timer() { Stop(); }
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  /// Takes back what was waiting and waits for this instead; a delay of 0 or less is as soon as possible, but
  /// never inside this call. The task may destroy the timer.
  void Start(Milliseconds delay, Scheduler::Task task) {
    Stop();
    m_id = m_scheduler.After(delay, [this, task = std::move(task)] {
      m_id = 0;
      task();
    });
  }
  /// Takes back what was waiting, if anything was.
  void Stop() { m_scheduler.Cancel(std::exchange(m_id, 0)); }
  /// Whether something waits. No longer while its task runs, which may start the timer again.
  bool IsRunning() const { return m_id != 0; }

 private:
  Scheduler& m_scheduler;
  Scheduler::TaskId m_id = 0;
};

/// Any number of things that shall happen later, unless they are called off together. They are when the group
/// goes; the scheduler must outlive it.
class TaskGroup {
 public:
  explicit TaskGroup(Scheduler& scheduler) : m_scheduler(scheduler) {}
  ~TaskGroup() { CancelAll(); }
  TaskGroup(const TaskGroup&) = delete;
  TaskGroup& operator=(const TaskGroup&) = delete;

  /// As Scheduler::After, without an id: single tasks cannot be taken back. The task may destroy the group.
  void After(Milliseconds delay, Scheduler::Task task) {
    const auto id = std::make_shared<Scheduler::TaskId>(0);
    *id = m_scheduler.After(delay, [this, id, task = std::move(task)] {
      m_ids.erase(*id);
      task();
    });
    m_ids.insert(*id);
  }
  /// Takes back all that waits; the group can be used further.
  void CancelAll() {
    for (const Scheduler::TaskId id : std::exchange(m_ids, {})) {
      m_scheduler.Cancel(id);
    }
  }

 private:
  Scheduler& m_scheduler;
  std::set<Scheduler::TaskId> m_ids;
};

}  // namespace btservice

#endif
