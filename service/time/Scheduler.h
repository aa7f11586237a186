#ifndef SERVICE_TIME_SCHEDULER_H
#define SERVICE_TIME_SCHEDULER_H

#include <chrono>
#include <cstdint>
#include <functional>

namespace btservice {

using Milliseconds = std::chrono::milliseconds;

/// The clock of the service: what shall happen later is asked of it. Tasks run one at a time, in the order of
/// their times, those of the same time in the order in which they were asked for, and never inside After. All
/// of it happens on one thread, that of the main loop; nothing here may be called on another. A task must not
/// throw, and should not take long: events and answers wait for it. It may ask for further tasks, cancel
/// others, and destroy whoever has asked for it. What it refers to must live until it runs or is cancelled:
/// Timer and TaskGroup see to that.
class Scheduler {
 public:
  using Task = std::function<void()>;
  using TaskId = std::uint64_t;  ///< 0 is no task

  virtual ~Scheduler() = default;
  /// Time since the clock was started, at the speed of the simulation. While a task runs it is the task's own
  /// time, even if the task comes late.
  virtual Milliseconds Now() const = 0;
  /// Runs the task once, that much later; a delay of 0 or less is as soon as possible. The id is good for
  /// Cancel, and is never used again.
  virtual TaskId After(Milliseconds delay, Task task) = 0;
  /// Takes a task back: it is destroyed without being run. The id of a task that has run or runs now, or 0,
  /// is ignored.
  virtual void Cancel(TaskId id) = 0;
};

}  // namespace btservice

#endif
