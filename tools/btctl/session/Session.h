#ifndef TOOLS_BTCTL_SESSION_SESSION_H
#define TOOLS_BTCTL_SESSION_SESSION_H

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>

#include "btctl/base/Failure.h"
#include "btctl/bus/SessionBus.h"
#include "btctl/session/Alarm.h"
#include "glib/OwnedId.h"

namespace btctl {

class EventHub;

/// The library in use: how requests that block live beside a main loop that delivers events.
///
/// The library has no thread of its own. Events are delivered by the main loop of the main thread, and a
/// request blocks the thread that makes it, for up to 25 seconds. So every request is made on a thread of its
/// own, and the main thread iterates the loop until that has its answer: events keep coming, Ctrl-C and the
/// time-out work, and the code that wants the answer still reads from top to bottom.
///
/// A request that takes too long cannot be taken back. Its thread is left to itself, with all that it needs
/// in its own hands, and the library is then not stopped at the end: nobody may be inside it when that is
/// done.
///
/// Nothing is touched before it is needed: a Session that is not asked anything costs nothing.
class Session {
 public:
  using Milliseconds = std::chrono::milliseconds;

  Session();
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Makes a request; the library is started first, if it has not been. `request` may be left to itself, so
  /// it holds by value all that it uses. Throws a Failure if the start fails, the time is up, or the user
  /// interrupts, and what `request` throws.
  template <typename Request>
  auto Ask(Request request) {
    Events();  // listeners first: they then hear all from the start on
    return Beside([request] {
      StartLibrary();
      return request();
    });
  }

  /// Starts the library, if it has not been started.
  void Start();

  /// The same without the library, for anything that blocks.
  template <typename Task>
  auto Beside(Task task) {
    using Result = std::invoke_result_t<Task>;
    if constexpr (std::is_void_v<Result>) {
      RunBeside(task);
    } else {
      const auto result = std::make_shared<std::optional<Result>>();
      RunBeside([task, result] { *result = task(); });
      return std::move(**result);
    }
  }

  /// Iterates the loop until the condition is true. Throws a Failure if the service goes away, the time is
  /// up, or the user interrupts.
  void WaitUntil(const std::function<bool()>& condition);
  /// The same, but throws that Failure if the time is up.
  void WaitUntil(const std::function<bool()>& condition, const Failure& ifTooLate);
  /// The same for at most that time; whether the condition became true.
  bool WaitUntil(const std::function<bool()>& condition, Milliseconds atMost);
  /// Lets all events that have already arrived be delivered.
  void DeliverArrived();

  EventHub& Events();

  /// Begins a command: its time starts now.
  void Begin(std::optional<Milliseconds> timeout);
  /// Leaves the command no more than that time from now on.
  void Hasten(Milliseconds atMost);
  /// Whether waiting goes on while the service is away.
  void SetStays(bool stays) { m_stays = stays; }
  bool Stays() const { return m_stays; }
  /// Is called when the service comes and goes, as far as that is watched: while something is waited for, and
  /// after WatchService().
  void ObserveService(ServiceWatch::Observer observer) { m_observer = std::move(observer); }
  void WatchService();
  /// Is called again and again in WaitUntil, and ends the waiting by throwing a Failure.
  void SetGuard(std::function<void()> guard) { m_guard = std::move(guard); }
  /// Is called at Ctrl-C, in addition to what that does to those who wait.
  void ObserveInterrupt(std::function<void()> observer) { m_interruptObserver = std::move(observer); }

  /// As Ctrl-C does.
  void Interrupt();

  /// True if a request was left to itself: the program must then end without clearing up.
  bool HasLeftThreads() const { return m_hasLeftThreads; }

 private:
  static void StartLibrary();
  void RunBeside(std::function<void()> task);
  void OnService(bool isThere);
  void ThrowIfOver() const;

  const OwnedSourceId m_interrupts;
  std::unique_ptr<EventHub> m_events;
  std::optional<ServiceWatch> m_watch;
  std::optional<Alarm> m_deadline;
  bool m_isInterrupted = false;
  std::optional<bool> m_isServiceThere;
  bool m_isServiceGone = false;
  bool m_stays = false;
  bool m_hasLeftThreads = false;
  ServiceWatch::Observer m_observer;
  std::function<void()> m_interruptObserver;
  std::function<void()> m_guard;
};

}  // namespace btctl

#endif
