#include "libbtasync/PlanJob.h"

#include <string>
#include <utility>

namespace btasync {
inline namespace v0 {
namespace detail {

PlanJob::PlanJob(BusBackend& backend, const char* name, int timeoutMs, PendingCall& call)
    : m_alive(backend),
      m_backend(backend),
      m_name(name),
      m_deadlineMs(backend.TimeMs() + timeoutMs),
      m_call(call),
      m_deadline(backend) {
  m_deadline.Start(std::chrono::milliseconds(timeoutMs), [this] { OnDeadline(); });
}

PlanJob::~PlanJob() { m_call.Unref(); }

std::chrono::milliseconds PlanJob::TimeLeft() const {
  return std::chrono::milliseconds(m_deadlineMs - m_backend.TimeMs());
}

void PlanJob::Finish(Reply& reply, std::shared_ptr<ListLooks> looks) {
  const std::shared_ptr<ListLooks> lender = std::move(looks);
  PendingCall& call = m_call;
  call.Ref();
  call.SetWork(nullptr);
  delete this;
  call.Complete(reply);
  call.Unref();
}

void PlanJob::Fail(Failure failure) {
  Reply reply;
  reply.failure = std::move(failure);
  Finish(reply);
}

void PlanJob::Fail(Reason reason, const char* why) {
  Fail(Failure{reason, std::string(m_name) + ": " + why});
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
