#ifndef BTASYNC_TIMER_H
#define BTASYNC_TIMER_H

#include <chrono>
#include <functional>

#include <btasync/Export.h>

namespace btasync {
inline namespace v0 {

class Service;

namespace detail {
class Backend;
}

/// Calls back once after some time, by the service's loop; with a fake service, by its time. Stops when it is
/// destroyed, and when the service object goes. Belongs to the thread of the loop.
class BTASYNC_API Timer {
 public:
  /// One that does not run yet.
  /// @param service whose loop calls back; it may go before the timer
  explicit Timer(Service& service);
  /// For the library.
  /// @param backend that of a service
  explicit Timer(detail::Backend& backend);
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;
  ~Timer();

  /// Starts it, anew if it runs. callback may destroy the timer. A time of 0: at the loop's next turn.
  /// @param time from now on
  /// @param callback what it throws is logged and goes no further
  void Start(std::chrono::milliseconds time, std::function<void()> callback);
  /// It does not call back any more, until it is started again.
  void Stop();
  /// Whether it will call back.
  /// @returns false as well while its callback runs
  bool IsRunning() const { return m_timer != nullptr; }

 private:
  static void OnWake(void* self);

  detail::Backend* m_backend;
  void* m_timer = nullptr;
  std::function<void()> m_callback;
};

}  // namespace v0
}  // namespace btasync

#endif
