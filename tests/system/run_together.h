#ifndef TESTS_SYSTEM_RUN_TOGETHER_H
#define TESTS_SYSTEM_RUN_TOGETHER_H

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

namespace bttest {

/// Runs the tasks, each on a thread of its own, which begin at the same moment; returns when all have ended.
inline void RunTogether(const std::vector<std::function<void()>>& tasks) {
  std::atomic<std::size_t> waiting{0};
  std::vector<std::thread> threads;
  for (const auto& task : tasks) {
    threads.emplace_back([&waiting, &task, count = tasks.size()] {
      ++waiting;
      while (waiting < count) {
        std::this_thread::yield();
      }
      task();
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
}

/// The same task on so many threads.
inline void RunTogether(std::size_t count, const std::function<void()>& task) {
  RunTogether(std::vector<std::function<void()>>(count, task));
}

}  // namespace bttest

#endif
