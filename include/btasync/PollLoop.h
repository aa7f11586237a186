#ifndef BTASYNC_POLLLOOP_H
#define BTASYNC_POLLLOOP_H

#include <poll.h>
#include <pthread.h>

#include <cstddef>
#include <vector>

#include <btasync/Export.h>

struct _GMainContext;

namespace btasync {
inline namespace v0 {

/// For a program whose loop is a poll() of its own: a context to give to Service, and the steps of a turn.
///
///   std::vector<pollfd> fds;
///   for (;;) {
///     fds.assign({…});                     // the program's own
///     int timeoutMs = -1;                  // its own, -1: for ever
///     loop.Prepare(fds, timeoutMs);
///     poll(fds.data(), fds.size(), timeoutMs);
///     loop.Dispatch(fds);
///     …
///   }
///
/// Belongs to the thread that makes it: what another one calls is refused, and logged. Each Dispatch belongs
/// to the last Prepare. A loop that finds that it need not wait may call Prepare again instead of Dispatch;
/// a callback may run a turn of its own.
class BTASYNC_API PollLoop {
 public:
  PollLoop();
  PollLoop(const PollLoop&) = delete;
  PollLoop& operator=(const PollLoop&) = delete;
  ~PollLoop();

  /// For Service.
  /// @returns the context, which lives as long as this, and as what was made with it
  _GMainContext* Context() const { return m_context; }
  /// Adds what the library waits for.
  /// @param fds what is to be polled is appended to it
  /// @param timeoutMs in milliseconds, -1 for ever; is shortened where something is due earlier
  void Prepare(std::vector<pollfd>& fds, int& timeoutMs);
  /// After poll(): calls what is due.
  /// @param fds that of the last Prepare; what stands behind the appended ones does not matter
  void Dispatch(const std::vector<pollfd>& fds);

 private:
  bool IsOwnThread(const char* what) const;

  _GMainContext* m_context;
  pthread_t m_thread;
  int m_priority = 0;
  std::size_t m_first = 0;  ///< of the appended ones
  std::size_t m_count = 0;
};

}  // namespace v0
}  // namespace btasync

#endif
