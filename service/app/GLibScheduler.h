#ifndef SERVICE_APP_GLIBSCHEDULER_H
#define SERVICE_APP_GLIBSCHEDULER_H

#include <functional>
#include <utility>

#include "glib/Owned.h"
#include "service/time/TaskQueue.h"

namespace btservice {

/// The clock of the wall, or a faster one: tasks run on the default main context. At a higher speed they keep
/// their order and their distances in the time of the model.
///
/// Tasks run in short turns, between which the rest of the process gets its own. When there is more to do
/// than the machine can, the time of the model falls behind, which the log says once.
class GLibScheduler : public Scheduler {
 public:
  /// speed: how many seconds of the model pass in one on the wall. While mayGoOn answers false, no task runs
  /// and the time of the model falls behind.
  explicit GLibScheduler(
      double speed, std::function<bool()> mayGoOn = [] { return true; });
  ~GLibScheduler() override;
  GLibScheduler(const GLibScheduler&) = delete;
  GLibScheduler& operator=(const GLibScheduler&) = delete;

  Milliseconds Now() const override;
  TaskId After(Milliseconds delay, Task task) override;
  void Cancel(TaskId id) override { m_queue.Cancel(id); }

 private:
  static gboolean Dispatch(GSource* source, GSourceFunc callback, gpointer data);
  Milliseconds WallTime() const;
  void Run();
  /// Runs what is due by that time until there is nothing left or the turn is over.
  void RunTurn(Milliseconds until);
  bool IsDueBy(Milliseconds time) const;
  void FallBehind();
  void Arm();

  struct Source {
    GSource base;
    GLibScheduler* scheduler;
  };
  static GSourceFuncs s_functions;

  double m_speed;
  std::function<bool()> m_mayGoOn;
  gint64 m_start;
  OwnedSource m_source;
  TaskQueue m_queue;
  Milliseconds m_taskTime{0};
  bool m_running = false;
  bool m_isHeld = false;
  bool m_hasFallenBehind = false;
};

}  // namespace btservice

#endif
