#ifndef LIBBTASYNC_TESTING_FAKEBACKEND_H
#define LIBBTASYNC_TESTING_FAKEBACKEND_H

#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <btasync/testing/FakeService.h>

#include "libbtasync/Backend.h"

namespace btasync {
inline namespace v0 {
namespace detail {

/// The end of a FakeService: its time, and what the service in it does.
class FakeBackend final : public Backend {
 public:
  explicit FakeBackend(Availability availability);

  void Advance(std::chrono::milliseconds time);

  FakeRule& AddRule(std::string name);
  void EndOldest(const std::string& name, const std::function<void(PendingCall&)>& end);
  void EmitLater(std::chrono::milliseconds after, const EventKind& kind, std::shared_ptr<const void> event);
  bool IsAwaited(const EventKind& kind) const { return m_watched.count(&kind) != 0; }
  void ChangeAvailability(Availability availability);
  void Hang() { m_isHung = true; }
  void GoOn();

  const std::vector<std::string>& Requests() const { return m_requests; }
  std::vector<std::string> UnansweredRequests() const;
  void ForgetRequests() { m_requests.clear(); }

  std::int64_t TimeMs() const override { return m_nowMs; }
  void* StartTimer(int milliseconds, Wake wake, void* data) override;
  void StopTimer(void* timer) override;

 private:
  /// When something is due; for the same time, in the order of the numbers.
  using Due = std::pair<std::int64_t, unsigned long>;
  struct Job {
    Due due;
    bool isTimer;
    std::function<void()> run;
  };
  /// A request that has been sent.
  struct Sent {
    Sent(std::string name, std::string text, PendingCall& call)
        : name(std::move(name)), text(std::move(text)), call(call) {}
    Sent(const Sent&) = delete;
    Sent& operator=(const Sent&) = delete;
    ~Sent() { call.Unref(); }
    bool Waits() const { return !isAnswered && !call.HasEnded(); }

    std::string name;
    std::string text;
    PendingCall& call;
    bool hasArrived = false;  ///< at the bus
    bool isAnswered = false;  ///< by the test
  };

  ~FakeBackend() override = default;
  void SendCall(const char* method, _GVariant* arguments, int timeoutMs, PendingCall& call) override;
  void SendPlan(const Plan& plan, _GVariant* arguments, int timeoutMs, PendingCall& call) override;
  void Watch(const EventKind& kind) override { m_watched.insert(&kind); }
  void Unwatch(const EventKind& kind) override { m_watched.erase(&kind); }
  void OnClosed() override;

  Job& Schedule(std::chrono::milliseconds after, std::function<void()> run);
  /// Does something that the service does: not while it hangs, and not at all once it is gone.
  void ScheduleAct(std::chrono::milliseconds after, std::function<void()> act);
  void Act(unsigned long life, std::function<void()> act);
  void Arrive(const std::shared_ptr<Sent>& sent);
  void Take(const std::shared_ptr<Sent>& sent);
  FakeRule* FindRule(const Sent& sent);
  static void Fail(Sent& sent, Reason reason, const std::string& detail);

  std::int64_t m_nowMs = 0;
  unsigned long m_scheduled = 0;
  bool m_isAdvancing = false;
  std::map<Due, Job> m_jobs;

  std::list<FakeRule> m_rules;
  std::vector<std::string> m_requests;
  std::vector<std::shared_ptr<Sent>> m_sent;  ///< in order; may hold some that have ended
  std::set<const EventKind*> m_watched;
  unsigned long m_life = 0;  ///< of the service: the next one once it has gone
  bool m_isHung = false;
  std::vector<std::function<void()>> m_heldBack;  ///< while it hangs
};

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
