#ifndef LIBBTASYNC_ERRAND_H
#define LIBBTASYNC_ERRAND_H

#include <functional>

#include <gio/gio.h>

namespace btasync {
inline namespace v0 {
namespace detail {

/// Work that another thread does, one of GLib's, so that a loop is not held up by it.
class Errand {
 public:
  Errand() = default;
  Errand(const Errand&) = delete;
  Errand& operator=(const Errand&) = delete;
  /// done is not called any more, and work is left out if it has not begun. It may be running: what it uses
  /// must belong to it, and is destroyed with it, in either thread.
  ~Errand();

  /// Calls work in another thread, and then done by the loop of the context, which the calling thread runs.
  /// One at a time. work must not throw; done may destroy this.
  void Run(GMainContext* context, std::function<void()> work, std::function<void()> done);

 private:
  struct Task;
  static void Work(GTask* gtask, gpointer source, gpointer task, GCancellable* cancellable);
  static void OnDone(GObject* source, GAsyncResult* result, gpointer unused);

  Task* m_task = nullptr;  ///< under way
};

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
