#ifndef LIBBTASYNC_PLANJOB_H
#define LIBBTASYNC_PLANJOB_H

#include <chrono>
#include <cstdint>
#include <memory>

#include "libbtasync/BusBackend.h"
#include "libbtasync/ListLooks.h"

namespace btasync {
inline namespace v0 {
namespace detail {

/// A request for something in shared memory that is under way. Belongs to its call: it goes when the call
/// ends, whatever it is doing.
class PlanJob : public Held {
 public:
  void Drop() override { delete this; }

 protected:
  /// Takes over a reference of the call. The deadline runs from now on; OnDeadline is called when it has
  /// passed.
  PlanJob(BusBackend& backend, const char* name, int timeoutMs, PendingCall& call);
  ~PlanJob() override;

  virtual void OnDeadline() = 0;

  BusBackend& Bus() const { return m_backend; }
  std::chrono::milliseconds TimeLeft() const;

  // These are the end of this object.
  /// Ends the request. looks: who owns what the reply lends; may be null.
  void Finish(Reply& reply, std::shared_ptr<ListLooks> looks = nullptr);
  void Fail(Failure failure);
  /// The detail is the name of the request, and why.
  void Fail(Reason reason, const char* why);

 private:
  const BackendRef m_alive;
  BusBackend& m_backend;
  const char* const m_name;
  const std::int64_t m_deadlineMs;
  PendingCall& m_call;
  Timer m_deadline;
};

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
