#ifndef EXAMPLES_NOTED_H
#define EXAMPLES_NOTED_H

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <mutex>

/// What one thread notes and another waits for: the events of a listener, and the thread that makes requests.
template <typename Facts>
class Noted {
 public:
  /// Changes the facts: change is given them.
  template <typename Change>
  void Note(Change change) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    change(m_facts);
    m_changed.notify_all();
  }

  /// Waits until the condition, which is given the facts, is true. Not for ever: false, with a message, after
  /// ten seconds.
  template <typename Condition>
  bool Wait(const char* forWhat, Condition condition) {
    std::unique_lock<std::mutex> lock(m_mutex);
    const bool hasCome =
        m_changed.wait_for(lock, std::chrono::seconds(10), [&] { return condition(m_facts); });
    if (!hasCome) {
      std::fprintf(stderr, "%s did not come within 10 seconds\n", forWhat);
    }
    return hasCome;
  }

  Facts Get() {
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_facts;
  }

 private:
  std::mutex m_mutex;
  std::condition_variable m_changed;
  Facts m_facts;
};

#endif
