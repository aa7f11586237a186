#ifndef SERVICE_APP_GLIBSCHEDULER_H
#define SERVICE_APP_GLIBSCHEDULER_H

#include <utility>

#include <glib.h>

#include "service/time/TaskQueue.h"

namespace btservice {

/// The clock of the wall, or a faster one: tasks run on the default main context. At a higher speed they keep
/// their order and their distances in the time of the model.
class GLibScheduler : public Scheduler {
 public:
  explicit GLibScheduler(double speed);
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
  void Arm();

  struct Source {
    GSource base;
    GLibScheduler* scheduler;
  };
  static GSourceFuncs s_functions;

  double m_speed;
  gint64 m_start;
  GSource* m_source;
  TaskQueue m_queue;
  Milliseconds m_taskTime{0};
  bool m_running = false;
};

}  // namespace btservice

#endif
