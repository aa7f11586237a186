#ifndef TESTS_SUPPORT_MAINLOOP_H
#define TESTS_SUPPORT_MAINLOOP_H

#include <functional>
#include <thread>

#include "glib/Owned.h"
#include "support/Waiting.h"

namespace bttest {

/// Iterates the default main context until condition() is true; false if it still is not after bound.
bool RunUntil(const std::function<bool()>& condition, std::chrono::milliseconds bound = kBound);

/// Iterates the default main context until nothing is pending. Proves that something has not arrived only if
/// something sent after it has.
void RunPending();

/// A thread that runs a main loop while the object lives, so that the test's own thread may block.
class LoopThread {
 public:
  /// Runs the default main context, or one of the thread's own, which is then its thread-default one.
  enum class Context { DEFAULT, OWN };

  explicit LoopThread(Context context = Context::DEFAULT);
  ~LoopThread();
  LoopThread(const LoopThread&) = delete;
  LoopThread& operator=(const LoopThread&) = delete;

  /// Runs task in the loop's thread and waits until it is done. Not to be called from there.
  void Invoke(const std::function<void()>& task);

 private:
  OwnedMainContext m_context;
  OwnedMainLoop m_loop;
  std::thread m_thread;
};

}  // namespace bttest

#endif
