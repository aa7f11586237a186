#include "libbtasync/Subscribers.h"

#include "libbtasync/Backend.h"
#include "libbtasync/Log.h"

namespace btasync {
inline namespace v0 {
namespace detail {

Subscription::~Subscription() {
  if (m_subscribers != nullptr) {
    m_subscribers->Remove(*this);
  }
}

void Subscription::Run(const void* event) {
  if (!MayRun()) {
    Drop();
    return;
  }
  ++m_runs;
  RunGuarded("the callback of an event", [&] { Deliver(event); });
  --m_runs;
  if (m_isDropped && m_runs == 0) {
    delete this;
  }
}

void Subscription::RunWithNow(const Backend& backend) {
  const Availability now = backend.Now();
  Run(&now);
}

void Subscription::Drop() {
  if (m_subscribers != nullptr) {
    m_subscribers->Remove(*this);
  }
  // Its callback may be what drops it, and is needed to its end.
  m_isDropped = true;
  if (m_runs == 0) {
    delete this;
  }
}

void Subscribers::Clear() {
  for (Walk* walk = m_walks; walk != nullptr; walk = walk->outer) {
    walk->next = nullptr;
  }
  while (m_first != nullptr) {
    Subscription& subscription = *m_first;
    m_first = subscription.m_nextOfKind;
    subscription.m_subscribers = nullptr;
    subscription.m_nextOfKind = subscription.m_previousOfKind = nullptr;
  }
  m_last = nullptr;
}

void Subscribers::Add(Subscription& subscription) {
  subscription.m_subscribers = this;
  subscription.m_number = ++m_added;
  subscription.m_previousOfKind = m_last;
  (m_last != nullptr ? m_last->m_nextOfKind : m_first) = &subscription;
  m_last = &subscription;
}

void Subscribers::Remove(Subscription& subscription) {
  for (Walk* walk = m_walks; walk != nullptr; walk = walk->outer) {
    if (walk->next == &subscription) {
      walk->next = subscription.m_nextOfKind;
    }
  }
  (subscription.m_previousOfKind != nullptr ? subscription.m_previousOfKind->m_nextOfKind : m_first) =
      subscription.m_nextOfKind;
  (subscription.m_nextOfKind != nullptr ? subscription.m_nextOfKind->m_previousOfKind : m_last) =
      subscription.m_previousOfKind;
  subscription.m_subscribers = nullptr;
  subscription.m_nextOfKind = subscription.m_previousOfKind = nullptr;
  if (m_first == nullptr) {
    m_lastHasGone();
  }
}

void Subscribers::Take(const void* event) {
  const unsigned long newest = m_added;
  Walk walk{m_first, m_walks};
  m_walks = &walk;
  while (walk.next != nullptr && walk.next->m_number <= newest) {
    Subscription& subscription = *walk.next;
    walk.next = subscription.m_nextOfKind;
    subscription.Run(event);
  }
  m_walks = walk.outer;
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
