#include "support/MainLoop.h"

#include <atomic>
#include <future>

#include "glib/OwnedId.h"

namespace bttest {

namespace {

gboolean KeepTicking(gpointer) { return G_SOURCE_CONTINUE; }

}  // namespace

bool RunUntil(const std::function<bool()>& condition, std::chrono::milliseconds bound) {
  // The tick wakes up the iteration for conditions that another thread makes true.
  const OwnedSourceId tick(g_timeout_add(2, KeepTicking, nullptr));
  const auto end = std::chrono::steady_clock::now() + bound;
  bool isTrue = condition();
  while (!isTrue && std::chrono::steady_clock::now() < end) {
    g_main_context_iteration(nullptr, TRUE);
    isTrue = condition();
  }
  return isTrue;
}

void RunPending() {
  while (g_main_context_iteration(nullptr, FALSE)) {
  }
}

LoopThread::LoopThread(Context context)
    : m_context(context == Context::OWN ? g_main_context_new()
                                        : g_main_context_ref(g_main_context_default())),
      m_loop(g_main_loop_new(m_context.get(), FALSE)),
      m_thread([this, context] {
        if (context == Context::OWN) {
          g_main_context_push_thread_default(m_context.get());
        }
        g_main_loop_run(m_loop.get());
        if (context == Context::OWN) {
          g_main_context_pop_thread_default(m_context.get());
        }
      }) {
  Invoke([] {});  // the loop runs
}

LoopThread::~LoopThread() {
  Invoke([this] { g_main_loop_quit(m_loop.get()); });
  m_thread.join();
}

void LoopThread::Invoke(const std::function<void()>& task) {
  struct Job {
    const std::function<void()>& task;
    std::promise<void> done;
  } job{task, {}};
  // The loop's lock orders the two threads, but ThreadSanitizer does not see GLib's locks.
  std::atomic<Job*> handedOver;
  handedOver.store(&job, std::memory_order_release);
  const OwnedSource source(g_idle_source_new());
  g_source_set_priority(source.get(), G_PRIORITY_DEFAULT);
  g_source_set_callback(
      source.get(),
      [](gpointer data) -> gboolean {
        Job* const job = static_cast<std::atomic<Job*>*>(data)->load(std::memory_order_acquire);
        try {
          job->task();
          job->done.set_value();
        } catch (...) {
          job->done.set_exception(std::current_exception());
        }
        return G_SOURCE_REMOVE;
      },
      &handedOver, nullptr);
  // A source, not g_main_context_invoke(): that would run the task right here before the loop has the
  // context.
  g_source_attach(source.get(), m_context.get());
  job.done.get_future().get();
}

}  // namespace bttest
