#ifndef SERVICE_TIME_TASKQUEUE_H
#define SERVICE_TIME_TASKQUEUE_H

#include <map>
#include <optional>
#include <utility>

#include "service/time/Scheduler.h"

namespace btservice {

/// The tasks that wait, in the order in which they are due: what the schedulers have in common. It has no
/// clock: times are whatever its owner counts from.
class TaskQueue {
 public:
  /// Has a task wait for its time, which may have passed. As Scheduler::After and Cancel otherwise.
  Scheduler::TaskId Add(Milliseconds due, Scheduler::Task task);
  void Cancel(Scheduler::TaskId id);
  /// When the next task is due; nothing if none waits.
  std::optional<Milliseconds> NextDue() const;
  /// Runs the next task if it is due by that time; now is set to the task's time before it runs. False if
  /// there was none. A task may add and cancel others.
  bool RunNext(Milliseconds until, Milliseconds& now);

 private:
  using Place = std::pair<Milliseconds, Scheduler::TaskId>;

  std::map<Place, Scheduler::Task> m_tasks;
  std::map<Scheduler::TaskId, Milliseconds> m_dueTimes;
  Scheduler::TaskId m_lastId = 0;
};

}  // namespace btservice

#endif
