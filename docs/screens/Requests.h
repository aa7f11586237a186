#ifndef SCREENS_REQUESTS_H
#define SCREENS_REQUESTS_H

#include <glib.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

/// The thread on which an application with a screen makes the requests of libbt, one after the other, so that
/// its loop never waits for the service.
class Requests {
 public:
  using Work = std::function<void()>;

  Requests() : m_thread([this] { Run(); }) {}
  Requests(const Requests&) = delete;
  Requests& operator=(const Requests&) = delete;
  /// Waits for the request that is under way; the others are not made.
  ~Requests() {
    {
      const std::lock_guard<std::mutex> lock(m_mutex);
      m_isEnding = true;
    }
    m_condition.notify_one();
    m_thread.join();
  }

  /// Runs on the thread of the requests.
  void Make(Work request) {
    {
      const std::lock_guard<std::mutex> lock(m_mutex);
      m_waiting.push_back(std::move(request));
    }
    m_condition.notify_one();
  }

  /// For a request: runs its end on the loop, where a screen may be drawn.
  static void OnLoop(Work work) {
    g_idle_add_full(
        G_PRIORITY_DEFAULT,
        [](gpointer work) -> gboolean {
          (*static_cast<Work*>(work))();
          return G_SOURCE_REMOVE;
        },
        new Work(std::move(work)), [](gpointer work) { delete static_cast<Work*>(work); });
  }

 private:
  void Run() {
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_isEnding) {
      if (m_waiting.empty()) {
        m_condition.wait(lock);
        continue;
      }
      const Work request = std::move(m_waiting.front());
      m_waiting.pop_front();
      lock.unlock();
      request();
      lock.lock();
    }
  }

  std::mutex m_mutex;
  std::condition_variable m_condition;
  std::deque<Work> m_waiting;
  bool m_isEnding = false;
  std::thread m_thread;  // the last member: it uses the others
};

#endif
