#ifndef BTASYNC_SUBSCRIPTION_H
#define BTASYNC_SUBSCRIPTION_H

#include <chrono>
#include <utility>

#include <btasync/Availability.h>
#include <btasync/Export.h>
#include <btasync/Scope.h>
#include <btasync/Timer.h>

namespace btasync {
inline namespace v0 {

class Service;

namespace detail {

class Backend;
struct EventKind;
class Subscribers;

/// What waits for a kind of event.
class BTASYNC_API Subscription : public Held {
 public:
  /// Runs what waits, with an event of the subscription's kind. Nothing that is thrown there goes further.
  void Run(const void* event);
  void Drop() override;

 protected:
  Subscription() = default;
  /// Runs, with the availability that is known now.
  void RunWithNow(const Backend& backend);
  ~Subscription() override;
  virtual void Deliver(const void* event) = 0;

 private:
  friend class Subscribers;
  Subscribers* m_subscribers = nullptr;
  Subscription* m_nextOfKind = nullptr;
  Subscription* m_previousOfKind = nullptr;
  unsigned long m_number = 0;
  int m_runs = 0;
  bool m_isDropped = false;
};

template <typename Event, typename Function>
class EventSubscription final : public Subscription {
 public:
  explicit EventSubscription(Function&& function) : m_function(std::move(function)) {}

 private:
  void Deliver(const void* event) override { m_function(*static_cast<const Event*>(event)); }

  Function m_function;
};

/// Runs once by itself, with what is known then, and at each change.
template <typename Function>
class AvailabilitySubscription final : public Subscription {
 public:
  AvailabilitySubscription(Service& service, const Backend& backend, Function&& function)
      : m_function(std::move(function)), m_first(service) {
    m_first.Start(std::chrono::milliseconds(0), [this, &backend] { RunWithNow(backend); });
  }

 private:
  void Deliver(const void* event) override {
    m_first.Stop();
    m_function(*static_cast<const Availability*>(event));
  }

  Function m_function;
  Timer m_first;
};

/// The kind of an event; there is one for each structure of Events.h, and for Availability.
template <typename Event>
BTASYNC_API const EventKind& KindOf();

}  // namespace detail

}  // namespace v0
}  // namespace btasync

#endif
