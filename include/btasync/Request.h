#ifndef BTASYNC_REQUEST_H
#define BTASYNC_REQUEST_H

#include <pthread.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

#include <btasync/Answer.h>
#include <btasync/Export.h>
#include <btasync/Scope.h>

struct _GVariant;

namespace btasync {
inline namespace v0 {

namespace detail {

class Backend;
class Plan;

/// What came back: the values of an answer, one that is decoded already, or why there is none.
struct Reply {
  _GVariant* values = nullptr;  ///< borrowed
  void* answer = nullptr;       ///< an Answer<T> of the request's type, borrowed; may be moved from
  Failure failure = Failure();
};

/// A call under way. It lives as long as somebody waits for its answer or has a handle on it. All of it
/// belongs to the thread of the loop, but for its references and HasEnded.
class BTASYNC_API PendingCall : public Held {
 public:
  void Ref() { ++m_references; }
  void Unref();

  /// Ends it: runs what waits for the answer, unless it was dropped or has ended already. Nothing that is
  /// thrown there goes further.
  void Complete(Reply& reply);
  bool HasEnded() const { return m_hasEnded; }
  /// Whether anybody still wants what it asks for: it has neither ended nor been cancelled.
  bool IsWanted() const { return !m_hasEnded && !m_isCancelled; }
  /// Ends it with Reason::Cancelled, by the loop, even if its answer comes first.
  void Cancel();
  void Drop() override;
  /// What works for it when it is more than one service call; null for nothing any more. It is dropped if the
  /// call ends before.
  void SetWork(Held* work) { m_work = work; }

 protected:
  PendingCall() = default;
  ~PendingCall() override = default;
  /// Runs what waits for the answer.
  virtual void Deliver(Reply& reply) = 0;
  /// Destroys what waits for the answer.
  virtual void Forget() = 0;

 private:
  friend class Backend;
  void MarkEnded();

  std::atomic<int> m_references{1};
  std::atomic<bool> m_hasEnded{false};
  bool m_isCancelled = false;
  pthread_t m_thread = pthread_t();  ///< the loop's; from the moment of sending
  Backend* m_backend = nullptr;      ///< from the moment of sending until its end
  PendingCall* m_nextCall = nullptr;
  PendingCall* m_previousCall = nullptr;
  Held* m_work = nullptr;
};

/// A request that is made of another one and more, such as an Outcome.
class BTASYNC_API Composition : public Held {
 public:
  ~Composition() override;
  /// Begins it. It belongs to the call from now on, and is dropped with it. The call is completed once, by
  /// the loop, never before this returns. Takes a reference of the call over.
  virtual void Start(Backend& backend, int timeoutMs, PendingCall& call) = 0;
};

/// A request as it will be sent.
class BTASYNC_API Outgoing {
 public:
  /// Takes the arguments over if they are floating; null for none. invalid, if not null, says why they cannot
  /// travel.
  Outgoing(Backend& backend, const char* method, _GVariant* arguments, const char* invalid = nullptr);
  /// One that is more than a call, such as reading a list.
  Outgoing(Backend& backend, const Plan& plan, _GVariant* arguments, const char* invalid = nullptr);
  /// One that is made of others. The name has to live as long as this.
  Outgoing(Backend& backend, const char* name, std::unique_ptr<Composition> composition);
  Outgoing(Outgoing&& other) noexcept;
  Outgoing& operator=(Outgoing&&) = delete;
  ~Outgoing();

  void SetDeadline(std::chrono::milliseconds time);
  /// Whether it may be sent. Another thread than the loop's is refused, and so is a second time; both are
  /// logged.
  bool MayBeSent() const;
  /// Sends it, and takes a reference of the call over. The call gets the answer, or why there is none, once,
  /// by the loop; never before this returns.
  void Send(PendingCall& call);

  /// The name of the method, or of the plan.
  const char* Name() const { return m_method; }
  /// Borrowed; null for none, and for what cannot travel.
  _GVariant* Arguments() const { return m_arguments; }
  /// Why the arguments cannot travel, or null.
  const char* WhyInvalid() const { return m_invalid; }

 private:
  friend class Backend;
  Backend* m_backend;  ///< null once it has been sent
  const char* m_method;
  const Plan* m_plan = nullptr;
  _GVariant* m_arguments;
  const char* m_invalid;
  int m_timeoutMs = -1;  ///< -1: the service's default
  std::unique_ptr<Composition> m_composition;
};

/// Reads the values of a reply.
template <typename T>
using Decode = Answer<T> (*)(_GVariant* values);

template <typename T>
Answer<T> TakeAnswer(Reply& reply, Decode<T> decode) {
  if (reply.answer != nullptr) {
    return std::move(*static_cast<Answer<T>*>(reply.answer));
  }
  return reply.values != nullptr ? decode(reply.values) : Answer<T>(std::move(reply.failure));
}

template <typename T, typename Function>
class Completion final : public PendingCall {
 public:
  Completion(Decode<T> decode, Function&& function) : m_decode(decode), m_function(std::move(function)) {}

 private:
  void Deliver(Reply& reply) override {
    Function function = std::move(*m_function);
    m_function.reset();
    function(TakeAnswer(reply, m_decode));
  }
  void Forget() override { m_function.reset(); }

  /// A Decode<T>; that name has no arguments in debug information, and is the same for all types there.
  typename std::add_pointer<Answer<T>(_GVariant*)>::type m_decode;
  std::optional<Function> m_function;
};

struct IgnoreAnswer {
  template <typename T>
  void operator()(const T&) const {}
};

}  // namespace detail

/// A call under way, for a button that cancels it. Its scope decides about its life: nothing happens when
/// this is destroyed. Belongs to the thread of the service's loop.
class BTASYNC_API Call {
 public:
  /// Of nothing: it is not under way.
  Call() = default;
  /// For the library.
  /// @param call what is under way
  explicit Call(detail::PendingCall& call) : m_call(&call) { call.Ref(); }
  /// Takes a call over.
  /// @param other is of nothing then
  Call(Call&& other) noexcept : m_call(std::exchange(other.m_call, nullptr)) {}
  /// Takes a call over. The one that it had goes on.
  /// @param other has that one then
  /// @returns itself
  Call& operator=(Call&& other) noexcept {
    std::swap(m_call, other.m_call);
    return *this;
  }
  ~Call() {
    if (m_call != nullptr) {
      m_call->Unref();
    }
  }

  /// Whether its completion may still run.
  /// @returns false once it has ended, was cancelled by its scope, or if it was never sent
  bool IsUnderWay() const { return m_call != nullptr && !m_call->HasEnded(); }
  /// Completes it with Reason::Cancelled, by the loop, if it is under way. The service does not hear of it:
  /// it carries on with what it was asked for. (A pairing is called off by RejectPair, a call by
  /// TerminateCall.)
  void Cancel() {
    if (IsUnderWay()) {
      m_call->Cancel();
    }
  }

 private:
  detail::PendingCall* m_call = nullptr;
};

/// A request that has not been sent yet. Then(), Send() or co_await (btasync/Coroutine.h) sends it, once; one
/// that is destroyed before is not sent.
template <typename T = Accepted>
class [[nodiscard]] Request {
 public:
  /// For the library: Service and Outcome.h make them.
  /// @param outgoing what will be sent
  /// @param decode reads the answer
  Request(detail::Outgoing outgoing, detail::Decode<T> decode)
      : m_outgoing(std::move(outgoing)), m_decode(decode) {}

  /// Sets its deadline. Without one, the service's default holds (Service::SetDeadline), or that which a
  /// function of Outcome.h names.
  /// @param time from the sending on
  /// @returns itself, to be sent
  Request&& Within(std::chrono::milliseconds time) && {
    m_outgoing.SetDeadline(time);
    return std::move(*this);
  }
  /// Sends it. completion(Answer<T>) is called once, by the loop, never before this returns, and not at all
  /// once the scope or the service object is gone. An exception that it throws is logged and goes no further.
  /// @param scope holds the call until it has ended
  /// @param completion is moved from
  /// @returns a handle to cancel it, which need not be kept
  template <typename Function>
  Call Then(Scope& scope, Function completion) && {
    if (!m_outgoing.MayBeSent() || !scope.MayHold()) {
      return Call();
    }
    auto* const call = new detail::Completion<T, Function>(m_decode, std::move(completion));
    Call handle(*call);
    scope.Hold(*call);
    m_outgoing.Send(*call);
    return handle;
  }
  /// Sends it; nobody wants the answer.
  void Send() && {
    if (!m_outgoing.MayBeSent()) {
      return;
    }
    m_outgoing.Send(*new detail::Completion<T, detail::IgnoreAnswer>(m_decode, detail::IgnoreAnswer()));
  }

  /// For the library, for other ways to wait: what will be sent.
  /// @returns a part of the request
  detail::Outgoing& Parts() { return m_outgoing; }
  /// For the library: what will be sent.
  /// @returns a part of the request
  const detail::Outgoing& Parts() const { return m_outgoing; }
  /// For the library: how the answer is read.
  /// @returns a function, or null where the answer needs none
  detail::Decode<T> Decoder() const { return m_decode; }

 private:
  detail::Outgoing m_outgoing;
  /// A Decode<T>, as in Completion.
  typename std::add_pointer<Answer<T>(_GVariant*)>::type m_decode;
};

}  // namespace v0
}  // namespace btasync

#endif
