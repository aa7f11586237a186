#ifndef LIBBTASYNC_FOLLOWEDREQUEST_H
#define LIBBTASYNC_FOLLOWEDREQUEST_H

#include <functional>
#include <map>
#include <memory>
#include <optional>

#include <btasync/Outcome.h>

#include "libbtasync/Backend.h"

namespace btasync {
inline namespace v0 {
namespace detail {

/// What an event has to say, and for how long.
struct Judgement {
  Verdict verdict;
  /// It holds only if nothing else comes for so long.
  std::chrono::milliseconds unlessMoreComes{0};
  /// Of a request that has several ends, such as that for two profiles: which of them the event is about, and
  /// which of them has brought the verdict.
  int about = 0;
  int decisive = 0;
};

/// A request, and the event that ends it.
class FollowedRequest final : public Composition {
 public:
  /// Nothing, if the event is not about the request.
  using Judge = std::function<std::optional<Judgement>(const void* event)>;

  FollowedRequest(Request<> request, const EventHandling& handling, Judge judge);
  ~FollowedRequest() override;

  void Start(Backend& backend, int timeoutMs, PendingCall& call) override;
  void Drop() override { delete this; }

 private:
  template <typename Function>
  void Subscribe(Backend& backend, const EventKind& kind, Function function);
  void TakeEvent(const void* event);
  void TakeAnswer(const Answer<>& answer);
  void TakeAvailability(Availability availability);
  void OnDeadline();
  /// Ends if all that it takes is known.
  void EndIfDecided();
  // These are the end of this object.
  void EndByVerdict();
  void Fail(Failure failure);

  std::optional<Request<>> m_request;
  const EventHandling m_handling;
  const std::shared_ptr<const Judge> m_judge;
  const std::shared_ptr<const bool> m_life = std::make_shared<const bool>(true);  ///< lives as long as this
  const char* const m_name;
  PendingCall* m_call = nullptr;
  std::optional<Timer> m_deadline;
  std::optional<Timer> m_more;  ///< while more may come
  bool m_isAccepted = false;
  Verdict m_verdict = Verdict::NotYet;
  std::map<int, std::shared_ptr<const void>> m_events;  ///< the last one about each end (Judgement::about)
  int m_decisive = 0;                                   ///< which of them has brought the verdict
  Scope m_scope;
};

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
