#ifndef LIBBTASYNC_BACKEND_H
#define LIBBTASYNC_BACKEND_H

#include <atomic>
#include <chrono>
#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <thread>

#include <btasync/Request.h>
#include <btasync/Service.h>
#include <btasync/Timer.h>

#include "libbtasync/EventKind.h"
#include "libbtasync/Subscribers.h"

namespace btasync {
inline namespace v0 {
namespace detail {

/// A time as GLib takes it: milliseconds, none below 0, none above what an int holds.
int ToTimeout(std::chrono::milliseconds time);

class BusBackend;

/// A request that is more than one call, such as reading a list out of shared memory.
class Plan {
 public:
  /// name: how a fake knows it.
  constexpr explicit Plan(const char* name) : m_name(name) {}
  const char* Name() const { return m_name; }

  /// Begins it, over the bus. The call is completed once, by the loop, never before this returns. Owns one
  /// reference of the call, and the arguments if they are floating.
  virtual void Start(BusBackend& backend, _GVariant* arguments, int timeoutMs, PendingCall& call) const = 0;

 protected:
  ~Plan() = default;  // plans are constants

 private:
  const char* m_name;
};

/// The other end of a Service: the bus, or a fake. Keeps what is under way, and lives as long as its service,
/// or somebody who has a request or a timer of it.
///
/// All of it belongs to the thread that makes it, but for Ref, Unref and IsOwnThread.
class BTASYNC_API Backend {
 public:
  Backend();
  Backend(const Backend&) = delete;
  Backend& operator=(const Backend&) = delete;

  void Ref() { ++m_references; }
  void Unref();
  /// Whether this is the thread that everything belongs to. If not, what is refused is logged.
  bool IsOwnThread(const char* what) const;

  /// The service goes: nothing runs any more.
  void Close();
  /// The same, asked for by another thread: nothing begins to run any more, and the loop does the rest.
  void CloseByLoop();
  bool IsOpen() const { return m_isOpen; }

  Availability Now() const { return m_availability; }
  void SetDeadline(std::chrono::milliseconds time);
  int DeadlineMs() const { return m_deadlineMs; }

  /// Sends a request. Takes a reference of the call over.
  void Send(Outgoing& outgoing, PendingCall& call);
  /// Ends a call by a failure, by the loop.
  void FailLater(PendingCall& call, Failure failure);
  /// Takes a subscription in.
  void Subscribe(const EventKind& kind, Subscription& subscription);

  /// A call has ended.
  void Leave(PendingCall& call);

  /// Time that passes, in milliseconds since some moment.
  virtual std::int64_t TimeMs() const = 0;
  using Wake = void (*)(void* data);
  /// Calls wake once, by the loop, after some milliseconds, unless the timer is stopped before. What it gives
  /// back is for StopTimer, and void once wake has been called.
  virtual void* StartTimer(int milliseconds, Wake wake, void* data) = 0;
  virtual void StopTimer(void* timer) = 0;

 protected:
  virtual ~Backend();

  /// Makes a service call. Takes a reference of the call over, and the arguments if they are floating.
  virtual void SendCall(const char* method, _GVariant* arguments, int timeoutMs, PendingCall& call) = 0;
  virtual void SendPlan(const Plan& plan, _GVariant* arguments, int timeoutMs, PendingCall& call) = 0;
  /// Somebody waits for a signal, or nobody any more.
  virtual void Watch(const EventKind& kind) = 0;
  virtual void Unwatch(const EventKind& kind) = 0;
  /// The service goes.
  virtual void OnClosed() = 0;
  /// Another thread asks that the loop calls Close and Unref. One without a loop stays as it is.
  virtual void CloseLater();

  /// Whose a call is that has not ended.
  static Backend& OwnerOf(PendingCall& call) { return *call.m_backend; }

  /// Says what is known now to those who want to know, unless it was known.
  void SetAvailability(Availability availability);
  /// Delivers an event to those who wait for its kind.
  void Deliver(const EventKind& kind, const void* event);
  /// The same, from the values of a signal. Values of other types are dropped, with a line in the log.
  void DeliverSignal(const EventKind& kind, _GVariant* values);
  /// Those who wait for a kind; null if nobody ever has.
  Subscribers* Find(const EventKind& kind);
  const std::map<const EventKind*, std::unique_ptr<Subscribers>>& AllSubscribers() const {
    return m_subscribers;
  }

 private:
  /// A call that ends at the loop's next turn.
  struct LateFailure {
    LateFailure(Backend& backend, PendingCall& call, Failure failure);
    ~LateFailure();
    Timer timer;
    PendingCall& call;
    Failure failure;
  };

  void Enter(PendingCall& call);

  std::atomic<int> m_references{1};
  const std::thread::id m_thread = std::this_thread::get_id();
  std::atomic<bool> m_isOpen{true};
  int m_deadlineMs;
  Availability m_availability = Availability::Unknown;
  PendingCall* m_calls = nullptr;
  std::list<LateFailure> m_lateFailures;
  std::map<const EventKind*, std::unique_ptr<Subscribers>> m_subscribers;
};

/// Keeps a backend alive.
class BackendRef {
 public:
  explicit BackendRef(Backend& backend) : m_backend(backend) { backend.Ref(); }
  BackendRef(const BackendRef&) = delete;
  BackendRef& operator=(const BackendRef&) = delete;
  ~BackendRef() { m_backend.Unref(); }
  Backend* operator->() const { return &m_backend; }

 private:
  Backend& m_backend;
};

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
