#include "libbtasync/Backend.h"

#include <pthread.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

#include "libbtasync/Log.h"

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

constexpr std::chrono::seconds kDefaultDeadline{25};

}  // namespace

int ToTimeout(std::chrono::milliseconds time) {
  return static_cast<int>(
      std::clamp<std::chrono::milliseconds::rep>(time.count(), 0, std::numeric_limits<int>::max()));
}

Backend::Backend() : m_deadlineMs(ToTimeout(kDefaultDeadline)) {}

Backend::~Backend() = default;

void Backend::Unref() {
  if (--m_references == 0) {
    delete this;
  }
}

bool Backend::IsOwnThread(const char* what) const {
  if (m_thread == std::this_thread::get_id()) {
    return true;
  }
  LogForeignThread(what);
  return false;
}

void Backend::SetDeadline(std::chrono::milliseconds time) { m_deadlineMs = ToTimeout(time); }

void Backend::Close() {
  m_isOpen = false;
  while (m_calls != nullptr) {
    m_calls->Drop();
  }
  m_lateFailures.clear();
  for (const auto& [kind, subscribers] : m_subscribers) {
    subscribers->Clear();
  }
  OnClosed();
}

void Backend::CloseByLoop() {
  m_isOpen = false;
  CloseLater();
}

void Backend::CloseLater() {}

void Backend::Enter(PendingCall& call) {
  call.m_thread = pthread_self();
  call.m_backend = this;
  call.m_nextCall = m_calls;
  call.m_previousCall = nullptr;
  if (m_calls != nullptr) {
    m_calls->m_previousCall = &call;
  }
  m_calls = &call;
}

void Backend::Leave(PendingCall& call) {
  (call.m_previousCall != nullptr ? call.m_previousCall->m_nextCall : m_calls) = call.m_nextCall;
  if (call.m_nextCall != nullptr) {
    call.m_nextCall->m_previousCall = call.m_previousCall;
  }
}

void Backend::Send(Outgoing& outgoing, PendingCall& call) {
  if (!m_isOpen) {
    call.Drop();
    call.Unref();
    return;
  }
  Enter(call);
  if (outgoing.m_invalid != nullptr) {
    FailLater(call,
              Failure{Reason::InvalidArgument, std::string(outgoing.m_method) + ": " + outgoing.m_invalid});
    call.Unref();
    return;
  }
  const int timeoutMs = outgoing.m_timeoutMs >= 0 ? outgoing.m_timeoutMs : m_deadlineMs;
  if (outgoing.m_composition != nullptr) {
    outgoing.m_composition.release()->Start(*this, timeoutMs, call);
    return;
  }
  _GVariant* const arguments = std::exchange(outgoing.m_arguments, nullptr);
  if (outgoing.m_plan != nullptr) {
    SendPlan(*outgoing.m_plan, arguments, timeoutMs, call);
  } else {
    SendCall(outgoing.m_method, arguments, timeoutMs, call);
  }
}

Backend::LateFailure::LateFailure(Backend& backend, PendingCall& call, Failure failure)
    : timer(backend), call(call), failure(std::move(failure)) {
  call.Ref();
}

Backend::LateFailure::~LateFailure() { call.Unref(); }

void Backend::FailLater(PendingCall& call, Failure failure) {
  m_lateFailures.emplace_back(*this, call, std::move(failure));
  const auto late = std::prev(m_lateFailures.end());
  late->timer.Start(std::chrono::milliseconds(0), [this, late] {
    std::list<LateFailure> own;
    own.splice(own.begin(), m_lateFailures, late);
    Reply reply;
    reply.failure = std::move(late->failure);
    late->call.Complete(reply);
  });
}

Subscribers* Backend::Find(const EventKind& kind) {
  const auto found = m_subscribers.find(&kind);
  return found == m_subscribers.end() ? nullptr : found->second.get();
}

void Backend::Subscribe(const EventKind& kind, Subscription& subscription) {
  std::unique_ptr<Subscribers>& subscribers = m_subscribers[&kind];
  if (subscribers == nullptr) {
    subscribers = std::make_unique<Subscribers>([this, &kind] { Unwatch(kind); });
  }
  const bool isFirst = subscribers->IsEmpty();
  subscribers->Add(subscription);
  if (isFirst) {
    Watch(kind);
  }
}

void Backend::Deliver(const EventKind& kind, const void* event) {
  Subscribers* const subscribers = Find(kind);
  if (m_isOpen && subscribers != nullptr) {
    const BackendRef alive(*this);
    subscribers->Take(event);
  }
}

void Backend::DeliverSignal(const EventKind& kind, _GVariant* values) {
  Subscribers* const subscribers = Find(kind);
  if (!m_isOpen || subscribers == nullptr || subscribers->IsEmpty()) {
    return;
  }
  const BackendRef alive(*this);
  if (!kind.decode(values, *subscribers)) {
    LogDebug("%s has values of other types than the interface's: dropped", kind.signal);
  }
}

void Backend::SetAvailability(Availability availability) {
  if (m_isOpen && m_availability != availability) {
    m_availability = availability;
    Deliver(KindOf<Availability>(), &m_availability);
  }
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
