#include "libbtasync/Errand.h"

#include <atomic>
#include <mutex>
#include <utility>

#include "glib/Owned.h"
#include "libbtasync/Context.h"

namespace btasync {
inline namespace v0 {
namespace detail {

/// Belongs to the GTask. The lock hands it from one thread to the other; nobody ever waits for it, since GLib
/// calls the one when the other has finished.
struct Errand::Task {
  Task(Errand& errand, std::function<void()>&& work, std::function<void()>&& done)
      : errand(&errand), work(std::move(work)), done(std::move(done)) {}

  std::mutex lock;
  Errand* errand;  ///< null once it is gone; of the loop's thread
  std::atomic<bool> isWanted{true};
  std::function<void()> work;
  std::function<void()> done;

  static void Free(gpointer data) {
    auto* const self = static_cast<Task*>(data);
    { const std::lock_guard<std::mutex> locked(self->lock); }
    delete self;
  }
};

Errand::~Errand() {
  if (m_task != nullptr) {
    m_task->errand = nullptr;
    m_task->isWanted = false;
  }
}

void Errand::Run(GMainContext* context, std::function<void()> work, std::function<void()> done) {
  const AsDefault asDefault(context);
  const OwnedObject<GTask> gtask(g_task_new(nullptr, nullptr, OnDone, nullptr));
  m_task = new Task(*this, std::move(work), std::move(done));
  g_task_set_task_data(gtask.get(), m_task, Task::Free);
  { const std::lock_guard<std::mutex> locked(m_task->lock); }
  g_task_run_in_thread(gtask.get(), Work);
}

void Errand::Work(GTask* gtask, gpointer, gpointer data, GCancellable*) {
  auto* const task = static_cast<Task*>(data);
  {
    const std::lock_guard<std::mutex> locked(task->lock);
    if (task->isWanted) {
      task->work();
    }
    task->work = nullptr;
  }
  g_task_return_boolean(gtask, TRUE);
}

void Errand::OnDone(GObject*, GAsyncResult* result, gpointer) {
  auto* const task = static_cast<Task*>(g_task_get_task_data(G_TASK(result)));
  std::function<void()> done;
  Errand* errand = nullptr;
  {
    const std::lock_guard<std::mutex> locked(task->lock);
    done.swap(task->done);
    std::swap(errand, task->errand);
  }
  if (errand != nullptr) {
    errand->m_task = nullptr;
    done();
  }
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
