#include "libbtasync/FollowedRequest.h"

#include <string>
#include <utility>

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

/// Hands an event on, of whichever kind.
template <typename Function>
class AnySubscription final : public Subscription {
 public:
  explicit AnySubscription(Function function) : m_function(std::move(function)) {}

 private:
  void Deliver(const void* event) override { m_function(event); }

  Function m_function;
};

}  // namespace

FollowedRequest::FollowedRequest(Request<> request, const EventHandling& handling, Judge judge)
    : m_request(std::move(request)),
      m_handling(handling),
      m_judge(std::make_shared<const Judge>(std::move(judge))),
      m_name(m_request->Parts().Name()) {}

FollowedRequest::~FollowedRequest() {
  if (m_call != nullptr) {
    m_call->Unref();
  }
}

template <typename Function>
void FollowedRequest::Subscribe(Backend& backend, const EventKind& kind, Function function) {
  auto* const subscription = new AnySubscription<Function>(std::move(function));
  m_scope.Hold(*subscription);
  backend.Subscribe(kind, *subscription);
}

void FollowedRequest::Start(Backend& backend, int timeoutMs, PendingCall& call) {
  m_call = &call;
  call.SetWork(this);
  Subscribe(backend, *m_handling.kind, [this](const void* event) { TakeEvent(event); });
  Subscribe(backend, KindOf<Availability>(), [this](const void* availability) {
    TakeAvailability(*static_cast<const Availability*>(availability));
  });
  const std::chrono::milliseconds time(timeoutMs);
  m_deadline.emplace(backend);
  m_deadline->Start(time, [this] { OnDeadline(); });
  m_more.emplace(backend);
  std::move(*m_request).Within(time).Then(m_scope, [this](const Answer<>& answer) { TakeAnswer(answer); });
}

void FollowedRequest::TakeEvent(const void* event) {
  if (m_verdict != Verdict::NotYet && !m_more->IsRunning()) {
    return;  // it is decided, and waits for the answer
  }
  // The application's condition may destroy everything: it is needed to its end, and this may be gone then.
  const std::shared_ptr<const Judge> judge = m_judge;
  const std::weak_ptr<const bool> life = m_life;
  const std::optional<Judgement> judgement = (*judge)(event);
  if (life.expired() || !judgement) {
    return;
  }
  m_more->Stop();
  m_verdict = judgement->verdict;
  m_decisive = judgement->decisive;
  m_events[judgement->about] = m_handling.copy(event);
  if (m_verdict != Verdict::NotYet && judgement->unlessMoreComes.count() > 0) {
    m_more->Start(judgement->unlessMoreComes, [this] { EndIfDecided(); });
  }
  EndIfDecided();
}

void FollowedRequest::TakeAnswer(const Answer<>& answer) {
  if (answer.Accepted()) {
    m_isAccepted = true;
    EndIfDecided();
  } else if (answer.Refused()) {
    m_verdict = Verdict::Missed;
    m_events.clear();  // they are about what another one asked for
    EndByVerdict();
  } else if (answer.Why().reason == Reason::TimedOut) {
    OnDeadline();
  } else {
    Fail(answer.Why());
  }
}

void FollowedRequest::TakeAvailability(Availability availability) {
  if (!m_isAccepted || availability == Availability::Present) {
    return;  // until it has its answer, the request itself fails by that
  }
  const bool isBusLost = availability == Availability::NoBus;
  Fail({isBusLost ? Reason::NoBus : Reason::ServiceGone,
        std::string(m_name) + (isBusLost ? ": the connection to the session bus was lost before its end"
                                         : ": the service left the bus before its end")});
}

void FollowedRequest::OnDeadline() {
  if (m_verdict != Verdict::NotYet) {
    EndByVerdict();  // only the answer is missing, or a second event that need not come
    return;
  }
  Fail({Reason::TimedOut, std::string(m_name) + ": " + m_handling.kind->signal + " did not come in time"});
}

void FollowedRequest::EndIfDecided() {
  if (m_isAccepted && m_verdict != Verdict::NotYet && !m_more->IsRunning()) {
    EndByVerdict();
  }
}

void FollowedRequest::EndByVerdict() {
  const std::shared_ptr<const void> event = m_events[m_decisive];
  m_handling.complete(*m_call, m_verdict == Verdict::Reached, event.get());
}

void FollowedRequest::Fail(Failure failure) {
  Reply reply;
  reply.failure = std::move(failure);
  m_call->Complete(reply);
}

Outgoing Follow(Service& service, Request<> request, const EventHandling& handling,
                std::function<Verdict(const void* event)> judge) {
  const char* const name = request.Parts().Name();
  return {service.End(), name,
          std::make_unique<FollowedRequest>(
              std::move(request), handling,
              [judge = std::move(judge)](const void* event) -> std::optional<Judgement> {
                const Verdict verdict = judge(event);
                return verdict == Verdict::NotYet ? std::nullopt : std::optional<Judgement>({verdict});
              })};
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
