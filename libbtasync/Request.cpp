#include <btasync/Request.h>

#include <utility>

#include <glib.h>

#include "glib/Owned.h"
#include "libbtasync/Backend.h"
#include "libbtasync/Log.h"

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

/// Keeps a call that ends until it has ended: what works for it may own the last reference.
class Kept {
 public:
  explicit Kept(PendingCall& call) : m_call(call) { call.Ref(); }
  Kept(const Kept&) = delete;
  Kept& operator=(const Kept&) = delete;
  ~Kept() { m_call.Unref(); }

 private:
  PendingCall& m_call;
};

}  // namespace

void PendingCall::Unref() {
  if (--m_references == 0) {
    delete this;
  }
}

void PendingCall::MarkEnded() {
  m_hasEnded = true;
  if (m_backend != nullptr) {
    m_backend->Leave(*this);
    m_backend = nullptr;
  }
  Leave();
  if (m_work != nullptr) {
    std::exchange(m_work, nullptr)->Drop();
  }
}

void PendingCall::Complete(Reply& reply) {
  if (m_hasEnded) {
    return;
  }
  const BackendRef alive(*m_backend);
  const Kept kept(*this);
  const bool mayRun = MayRun() && m_backend->IsOpen();
  MarkEnded();
  if (m_isCancelled) {
    reply = Reply();
    reply.failure = Failure{Reason::Cancelled, "cancelled by the application"};
  }
  if (mayRun) {
    RunGuarded("the completion of a request", [&] { Deliver(reply); });
  } else {
    Forget();
  }
}

void PendingCall::Cancel() {
  if (m_hasEnded) {
    return;
  }
  if (!pthread_equal(m_thread, pthread_self())) {
    LogForeignThread("the end of a call");
    return;
  }
  if (!m_isCancelled) {
    m_isCancelled = true;
    m_backend->FailLater(*this, Failure());
  }
}

void PendingCall::Drop() {
  if (!m_hasEnded) {
    const Kept kept(*this);
    MarkEnded();
    Forget();
  }
}

Outgoing::Outgoing(Backend& backend, const char* method, _GVariant* arguments, const char* invalid)
    : m_backend(&backend), m_method(method), m_arguments(arguments), m_invalid(invalid) {
  backend.Ref();
}

Outgoing::Outgoing(Backend& backend, const Plan& plan, _GVariant* arguments, const char* invalid)
    : Outgoing(backend, plan.Name(), arguments, invalid) {
  m_plan = &plan;
}

Composition::~Composition() = default;

Outgoing::Outgoing(Backend& backend, const char* name, std::unique_ptr<Composition> composition)
    : Outgoing(backend, name, static_cast<_GVariant*>(nullptr)) {
  m_composition = std::move(composition);
}

Outgoing::Outgoing(Outgoing&& other) noexcept
    : m_backend(std::exchange(other.m_backend, nullptr)),
      m_method(other.m_method),
      m_plan(other.m_plan),
      m_arguments(std::exchange(other.m_arguments, nullptr)),
      m_invalid(other.m_invalid),
      m_timeoutMs(other.m_timeoutMs),
      m_composition(std::move(other.m_composition)) {}

Outgoing::~Outgoing() {
  if (m_arguments != nullptr) {
    const OwnedVariant unsent = NewRef(m_arguments);
  }
  if (m_backend != nullptr) {
    m_backend->Unref();
  }
}

void Outgoing::SetDeadline(std::chrono::milliseconds time) { m_timeoutMs = ToTimeout(time); }

bool Outgoing::MayBeSent() const {
  if (m_backend == nullptr) {
    LogWarning("%s is sent a second time: refused", m_method);
    return false;
  }
  return m_backend->IsOwnThread(m_method);
}

void Outgoing::Send(PendingCall& call) {
  Backend* const backend = std::exchange(m_backend, nullptr);
  backend->Send(*this, call);
  backend->Unref();
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
