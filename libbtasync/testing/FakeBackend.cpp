#include "libbtasync/testing/FakeBackend.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include <glib.h>

#include "glib/Owned.h"

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

/// More at one moment, and it would go on for ever.
constexpr int kMostAtOnce = 100000;

std::string TextOf(const char* name, GVariant* arguments) {
  return name + (arguments != nullptr ? std::string(OwnedText(g_variant_print(arguments, TRUE)).get())
                                      : std::string("()"));
}

/// Sets a flag while it lives.
class Flagged {
 public:
  explicit Flagged(bool& flag) : m_flag(flag) { m_flag = true; }
  Flagged(const Flagged&) = delete;
  Flagged& operator=(const Flagged&) = delete;
  ~Flagged() { m_flag = false; }

 private:
  bool& m_flag;
};

}  // namespace

std::string ToText(const Outgoing& outgoing) {
  if (outgoing.WhyInvalid() != nullptr) {
    throw std::logic_error(std::string("FakeService: ") + outgoing.Name() + ": " + outgoing.WhyInvalid() +
                           "; such a request is not sent");
  }
  return TextOf(outgoing.Name(), outgoing.Arguments());
}

FakeBackend::FakeBackend(Availability availability) { SetAvailability(availability); }

// ----- Time

void FakeBackend::Advance(std::chrono::milliseconds time) {
  if (!IsOwnThread("the time of a fake service")) {
    throw std::logic_error("FakeService: Advance from another thread than that which has made it");
  }
  if (m_isAdvancing) {
    throw std::logic_error("FakeService: Advance or Settle in a callback, which runs in Advance already");
  }
  if (time.count() < 0) {
    throw std::logic_error("FakeService: Advance by less than nothing");
  }
  const BackendRef alive(*this);
  const Flagged advancing(m_isAdvancing);
  const std::int64_t end = m_nowMs + time.count();
  int atOnce = 0;
  while (IsOpen() && !m_jobs.empty() && m_jobs.begin()->first.first <= end) {
    if (m_jobs.begin()->first.first > m_nowMs) {
      m_nowMs = m_jobs.begin()->first.first;
      atOnce = 0;
    }
    if (++atOnce > kMostAtOnce) {
      throw std::logic_error(
          "FakeService: what is due makes something else due at the same moment, without end");
    }
    auto node = m_jobs.extract(m_jobs.begin());
    node.mapped().run();
  }
  m_nowMs = end;
}

FakeBackend::Job& FakeBackend::Schedule(std::chrono::milliseconds after, std::function<void()> run) {
  const Due due(m_nowMs + std::max<std::int64_t>(after.count(), 0), ++m_scheduled);
  return m_jobs.emplace(due, Job{due, false, std::move(run)}).first->second;
}

void* FakeBackend::StartTimer(int milliseconds, Wake wake, void* data) {
  Job& job = Schedule(std::chrono::milliseconds(milliseconds), [wake, data] { wake(data); });
  job.isTimer = true;
  return &job;
}

void FakeBackend::StopTimer(void* timer) { m_jobs.erase(Due(static_cast<Job*>(timer)->due)); }

void FakeBackend::OnClosed() {
  for (auto job = m_jobs.begin(); job != m_jobs.end();) {
    // Who has started a timer may still stop it.
    job = job->second.isTimer ? std::next(job) : m_jobs.erase(job);
  }
  m_heldBack.clear();
  m_sent.clear();
}

// ----- What the service does

void FakeBackend::ScheduleAct(std::chrono::milliseconds after, std::function<void()> act) {
  Schedule(after, [this, life = m_life, act = std::move(act)]() mutable { Act(life, std::move(act)); });
}

void FakeBackend::Act(unsigned long life, std::function<void()> act) {
  if (life != m_life || Now() != Availability::Present) {
    return;
  }
  if (m_isHung) {
    m_heldBack.push_back(std::move(act));
  } else {
    act();
  }
}

void FakeBackend::GoOn() {
  m_isHung = false;
  for (std::function<void()>& act : std::exchange(m_heldBack, {})) {
    ScheduleAct(std::chrono::milliseconds(0), std::move(act));
  }
}

void FakeBackend::EmitLater(std::chrono::milliseconds after, const EventKind& kind,
                            std::shared_ptr<const void> event) {
  // A service that is not there when this is asked for may be there when it is due.
  Schedule(after, [this, &kind, event = std::move(event)]() mutable {
    Act(m_life, [this, &kind, event = std::move(event)] { Deliver(kind, event.get()); });
  });
}

void FakeBackend::ChangeAvailability(Availability availability) {
  Schedule(std::chrono::milliseconds(0), [this, availability] {
    if (availability == Now()) {
      return;
    }
    const bool wasPresent = Now() == Availability::Present;
    const std::vector<std::shared_ptr<Sent>> before = m_sent;
    if (wasPresent) {
      ++m_life;
      m_isHung = false;
      m_heldBack.clear();
    }
    SetAvailability(availability);
    for (const std::shared_ptr<Sent>& sent : before) {
      if (!IsOpen()) {
        return;
      }
      if (!sent->hasArrived) {
        continue;
      }
      if (!wasPresent) {
        Arrive(sent);
      } else if (availability == Availability::Absent) {
        Fail(*sent, Reason::ServiceGone, "the service has left the bus");
      } else {
        Fail(*sent, Reason::NoBus, "the connection to the bus is lost");
      }
    }
  });
}

// ----- Requests

void FakeBackend::SendCall(const char* method, GVariant* arguments, int timeoutMs, PendingCall& call) {
  const OwnedVariant owned(arguments);
  m_sent.erase(std::remove_if(m_sent.begin(), m_sent.end(), [](const auto& sent) { return !sent->Waits(); }),
               m_sent.end());
  const auto sent = std::make_shared<Sent>(method, TextOf(method, arguments), call);
  m_sent.push_back(sent);
  m_requests.push_back(sent->text);
  Schedule(std::chrono::milliseconds(0), [this, sent] { Arrive(sent); });
  Schedule(std::chrono::milliseconds(timeoutMs), [sent, timeoutMs] {
    Fail(*sent, Reason::TimedOut, "no answer in " + std::to_string(timeoutMs) + " ms");
  });
}

void FakeBackend::SendPlan(const Plan& plan, GVariant* arguments, int timeoutMs, PendingCall& call) {
  SendCall(plan.Name(), arguments, timeoutMs, call);
}

void FakeBackend::Fail(Sent& sent, Reason reason, const std::string& detail) {
  if (!sent.call.HasEnded()) {
    Reply reply;
    reply.failure = Failure{reason, sent.text + ": " + detail};
    sent.call.Complete(reply);
  }
}

void FakeBackend::Arrive(const std::shared_ptr<Sent>& sent) {
  sent->hasArrived = true;
  switch (Now()) {
    case Availability::Unknown:
      break;  // it waits until something is known
    case Availability::NoBus:
      Fail(*sent, Reason::NoBus, "there is no connection to the bus");
      break;
    case Availability::Absent:
      Fail(*sent, Reason::NoService, "nobody is the service");
      break;
    case Availability::Present:
      Act(m_life, [this, sent] { Take(sent); });
      break;
  }
}

void FakeBackend::Take(const std::shared_ptr<Sent>& sent) {
  if (!sent->Waits()) {
    return;
  }
  FakeRule* const rule = FindRule(*sent);
  if (rule == nullptr) {
    Fail(*sent, Reason::ServiceError,
         "FakeService was not given an answer for it: use WillAccept, WillAnswer, WillRefuse …");
    return;
  }
  rule->isSpent = rule->isOnce;
  for (const FakeRule::Event& event : rule->events) {
    ScheduleAct(event.after, [this, kind = event.kind, event = event.event] { Deliver(*kind, event.get()); });
  }
  if (rule->react) {
    const std::chrono::milliseconds delay = rule->delay;
    auto end = rule->react(sent->text);
    ScheduleAct(delay, [sent, end = std::move(end)] { end(sent->call); });
  }
}

FakeRule& FakeBackend::AddRule(std::string name) {
  m_rules.emplace_back();
  m_rules.back().name = std::move(name);
  return m_rules.back();
}

FakeRule* FakeBackend::FindRule(const Sent& sent) {
  FakeRule* always = nullptr;
  for (FakeRule& rule : m_rules) {
    if (rule.name != sent.name || rule.isSpent || (!rule.request.empty() && rule.request != sent.text)) {
      continue;
    }
    if (rule.isOnce) {
      return &rule;
    }
    always = &rule;
  }
  return always;
}

void FakeBackend::EndOldest(const std::string& name, const std::function<void(PendingCall&)>& end) {
  const auto oldest = std::find_if(m_sent.begin(), m_sent.end(),
                                   [&](const auto& sent) { return sent->name == name && sent->Waits(); });
  if (oldest == m_sent.end()) {
    throw std::logic_error("FakeService: no " + name + " waits for its answer");
  }
  (*oldest)->isAnswered = true;
  Schedule(std::chrono::milliseconds(0), [sent = *oldest, end] { end(sent->call); });
}

std::vector<std::string> FakeBackend::UnansweredRequests() const {
  std::vector<std::string> texts;
  for (const std::shared_ptr<Sent>& sent : m_sent) {
    if (sent->Waits()) {
      texts.push_back(sent->text);
    }
  }
  return texts;
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
