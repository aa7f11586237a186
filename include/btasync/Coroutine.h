#ifndef BTASYNC_COROUTINE_H
#define BTASYNC_COROUTINE_H

// The only header that needs C++20.

#include <chrono>
#include <coroutine>
#include <functional>
#include <optional>
#include <utility>

#include <btasync/Service.h>

namespace btasync {
inline namespace v0 {

class Job;

namespace detail {

/// Logs the exception that is being handled: the end of a coroutine.
BTASYNC_API void LogEndOfCoroutine() noexcept;

/// The frame of a Job, as a scope holds it, and as what it waits for sees it.
class Frame : public Held {
 public:
  /// It waits from now on; to be called by what it waits for, as the last thing that this does. False if it
  /// may not run any more: it has been destroyed then, and what waited with it.
  bool Wait() {
    m_isRunning = false;
    if (m_isDropped) {
      m_frame.destroy();
      return false;
    }
    return true;
  }
  /// It goes on. It may be gone when this returns.
  void GoOn() {
    if (!MayRun()) {
      m_frame.destroy();
      return;
    }
    m_isRunning = true;
    m_frame.resume();
  }
  /// Whether its scope has gone while it ran: it ends where it waits next.
  bool IsDropped() const { return m_isDropped; }
  void Drop() override {
    if (m_isRunning) {
      m_isDropped = true;
    } else {
      m_frame.destroy();
    }
  }

 protected:
  explicit Frame(std::coroutine_handle<> frame) : m_frame(frame) {}
  ~Frame() override = default;

 private:
  std::coroutine_handle<> m_frame;
  bool m_isRunning = false;
  bool m_isDropped = false;
};

/// Waits for the answer of a request.
template <typename T>
class RequestAwaiter {
 public:
  RequestAwaiter(Frame& frame, Request<T>&& request)
      : m_frame(frame), m_outgoing(std::move(request.Parts())), m_decode(request.Decoder()) {}
  RequestAwaiter(const RequestAwaiter&) = delete;
  RequestAwaiter& operator=(const RequestAwaiter&) = delete;
  ~RequestAwaiter() {
    if (m_call != nullptr) {
      m_call->Drop();
      m_call->Unref();
    }
  }

  bool await_ready() const noexcept { return false; }
  void await_suspend(std::coroutine_handle<>) {
    if (m_frame.Wait() && m_outgoing.MayBeSent()) {
      m_call = new Waiting(*this);
      m_call->Ref();
      m_outgoing.Send(*m_call);
    }
  }
  Answer<T> await_resume() { return *std::move(m_answer); }

 private:
  class Waiting final : public PendingCall {
   public:
    explicit Waiting(RequestAwaiter& awaiter) : m_awaiter(awaiter) {}

   private:
    void Deliver(Reply& reply) override {
      m_awaiter.m_answer.emplace(TakeAnswer(reply, m_awaiter.m_decode));
      m_awaiter.m_frame.GoOn();
    }
    void Forget() override {}

    RequestAwaiter& m_awaiter;
  };

  Frame& m_frame;
  Outgoing m_outgoing;
  Decode<T> m_decode;
  Waiting* m_call = nullptr;
  std::optional<Answer<T>> m_answer;
};

}  // namespace detail

/// A coroutine that a scope holds:
///
///   Job Screen::Dial(std::string number) {
///     const auto answer = co_await m_service.DialCall(number);
///     Show(answer ? "ringing" : "try again");
///   }
///   …
///   Dial("112").StartIn(m_scope);
///
/// If the scope goes or is cleared while it waits, it is destroyed where it waits: its locals are destroyed,
/// in their usual order, and nothing after the co_await runs. So `this` may be used after a co_await if the
/// scope is a member of *this. If the coroutine itself destroys its scope, or calls what does, it runs on
/// until its next co_await, which neither sends nor waits for anything, and is destroyed there. If the
/// service object goes while it waits, it never goes on, and stays until its scope goes.
///
/// What it needs has to be parameters taken by value, which it keeps. A reference has to live as long as the
/// coroutine; and the captures of a lambda belong to the lambda, which is mostly gone at the first co_await:
///
///   [this](std::string number) -> Job { … }(number).StartIn(scope);     // wrong: `this` is a capture
///   [](Screen& screen, std::string number) -> Job { … }(*this, number).StartIn(scope);     // right
///
/// It may wait for a Request, such as an Outcome, which gives an Answer and throws nothing, for Sleep, and
/// for Next. What it throws itself is logged, ends it, and goes no further. Belongs to the thread of the
/// loop.
class [[nodiscard]] Job {
 public:
  class promise_type;
  /// What the compiler's code has of it.
  using Handle = std::coroutine_handle<promise_type>;

  /// Takes a coroutine over.
  /// @param other has none then
  Job(Job&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
  Job& operator=(Job&&) = delete;
  /// One that was not started never runs.
  ~Job() {
    if (m_handle) {
      m_handle.destroy();
    }
  }

  /// Starts it: runs it, before this returns, until it first waits.
  /// @param scope holds it until it has ended
  void StartIn(Scope& scope) &&;

 private:
  explicit Job(Handle handle) : m_handle(handle) {}

  Handle m_handle;
};

/// Waits for some time, of the service's loop: co_await Sleep(service, 200ms). With 0, until its next turn.
class Sleep {
 public:
  /// @param service whose loop counts
  /// @param time from the co_await on
  Sleep(Service& service, std::chrono::milliseconds time) : m_timer(service), m_time(time) {}

  /// For the library.
  class Awaiter {
   public:
    Awaiter(detail::Frame& frame, Sleep& sleep) : m_frame(frame), m_sleep(sleep) {}
    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<>) {
      if (m_frame.Wait()) {
        m_sleep.m_timer.Start(m_sleep.m_time, [&frame = m_frame] { frame.GoOn(); });
      }
    }
    void await_resume() const noexcept {}

   private:
    detail::Frame& m_frame;
    Sleep& m_sleep;
  };

 private:
  Timer m_timer;
  std::chrono::milliseconds m_time;
};

/// Waits for an event. It listens from the moment that it is made, and keeps the first event that fits until
/// it is waited for. So nothing is missed if it is made before what causes the event:
///
///   Next<ScanChanged> ended(service, [](const ScanChanged& event) { return … });
///   co_await service.SetScanAction(true);
///   const ScanChanged event = co_await ended;
///
/// Make it so, rather than within the co_await, if the condition captures more than references and pointers:
/// GCC 12 destroys such a temporary of a co_await twice. It may be waited for again, which gives an event
/// that has come since; by one coroutine at a time.
template <typename Event>
class Next {
 public:
  /// Listens from now on.
  /// @param service that reports the event
  /// @param fits which events count; all of them if it is empty. What it throws is logged: the event does not
  /// count.
  explicit Next(Service& service, std::function<bool(const Event&)> fits = nullptr) {
    service.On<Event>(m_scope, [this, fits = std::move(fits)](const Event& event) {
      const Guard guard(*this);
      const bool counts = fits == nullptr || fits(event);
      if (!guard.IsGone() && counts && !m_event) {
        m_event = event;
        if (m_waiting != nullptr) {
          m_waiting->GoOn();
        }
      }
    });
  }
  Next(const Next&) = delete;
  Next& operator=(const Next&) = delete;
  /// What waits for it never goes on.
  ~Next() {
    if (m_waiting != nullptr) {
      m_waiting->m_next = nullptr;
    }
    for (Guard* guard = m_guard; guard != nullptr; guard = guard->m_outer) {
      guard->m_next = nullptr;
    }
  }

  /// For the library.
  class Awaiter {
   public:
    Awaiter(detail::Frame& frame, Next& next) : m_frame(frame), m_next(&next) {}
    Awaiter(const Awaiter&) = delete;
    Awaiter& operator=(const Awaiter&) = delete;
    ~Awaiter() {
      if (m_isWaiting && m_next != nullptr) {
        m_next->m_waiting = nullptr;
      }
    }

    bool await_ready() const noexcept { return m_next->m_event.has_value() && !m_frame.IsDropped(); }
    void await_suspend(std::coroutine_handle<>) {
      if (m_frame.Wait()) {
        m_isWaiting = true;
        m_next->m_waiting = this;
      }
    }
    Event await_resume() {
      Event event = *std::move(m_next->m_event);
      m_next->m_event.reset();
      return event;
    }

   private:
    friend class Next;
    void GoOn() {
      m_isWaiting = false;
      m_next->m_waiting = nullptr;
      m_frame.GoOn();
    }

    detail::Frame& m_frame;
    Next* m_next;  ///< null once that is gone
    bool m_isWaiting = false;
  };

 private:
  /// Sees that a callback destroys the object.
  class Guard {
   public:
    explicit Guard(Next& next) : m_next(&next), m_outer(next.m_guard) { next.m_guard = this; }
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;
    ~Guard() {
      if (m_next != nullptr) {
        m_next->m_guard = m_outer;
      }
    }
    bool IsGone() const { return m_next == nullptr; }

   private:
    friend class Next;
    Next* m_next;
    Guard* m_outer;
  };

  std::optional<Event> m_event;
  Awaiter* m_waiting = nullptr;
  Guard* m_guard = nullptr;
  Scope m_scope;
};

class Job::promise_type final : public detail::Frame {
 public:
  promise_type() : Frame(Handle::from_promise(*this)) {}
  ~promise_type() override = default;

  Job get_return_object() { return Job(Handle::from_promise(*this)); }
  std::suspend_always initial_suspend() noexcept { return {}; }
  std::suspend_never final_suspend() noexcept { return {}; }
  void return_void() {}
  void unhandled_exception() { detail::LogEndOfCoroutine(); }

  template <typename T>
  detail::RequestAwaiter<T> await_transform(Request<T>&& request) {
    return {*this, std::move(request)};
  }
  Sleep::Awaiter await_transform(Sleep&& sleep) { return {*this, sleep}; }
  template <typename Event>
  typename Next<Event>::Awaiter await_transform(Next<Event>& next) {
    return {*this, next};
  }
  template <typename Event>
  typename Next<Event>::Awaiter await_transform(Next<Event>&& next) {
    return {*this, next};
  }
};

inline void Job::StartIn(Scope& scope) && {
  const Handle handle = std::exchange(m_handle, nullptr);
  if (!handle) {
    return;
  }
  detail::Frame& frame = handle.promise();
  if (!scope.MayHold()) {
    handle.destroy();
    return;
  }
  scope.Hold(frame);
  frame.GoOn();
}

}  // namespace v0
}  // namespace btasync

#endif
