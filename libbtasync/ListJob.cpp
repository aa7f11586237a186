#include "libbtasync/ListJob.h"

#include <utility>

#include "protocol/Segments.h"

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

constexpr int kMostAttempts = 3;
/// Segments with more bytes are copied and decoded by another thread: the loop should be back within the 16
/// ms of a frame.
constexpr std::size_t kMostOnLoop = std::size_t{64} << 10;

/// The one argument that a list's request has, as a number; 0 if it has none.
int ArgumentOf(GVariant* arguments) {
  if (arguments == nullptr || g_variant_n_children(arguments) == 0) {
    return 0;
  }
  const OwnedVariant argument(g_variant_get_child_value(arguments, 0));
  return g_variant_is_of_type(argument.get(), G_VARIANT_TYPE_BYTE) ? g_variant_get_byte(argument.get())
                                                                   : g_variant_get_int32(argument.get());
}

}  // namespace

void ListPlan::Start(BusBackend& backend, GVariant* arguments, int timeoutMs, PendingCall& call) const {
  call.SetWork(new ListJob(backend, *this, arguments, timeoutMs, call));
}

ListJob::ListJob(BusBackend& backend, const ListPlan& plan, GVariant* arguments, int timeoutMs,
                 PendingCall& call)
    : PlanJob(backend, plan.Name(), timeoutMs, call),
      m_plan(plan),
      m_arguments(arguments != nullptr ? NewRef(arguments) : nullptr),
      m_turn(plan.Segment(), backend.Context(), [this] { Publish(); }) {
  m_question.argument = ArgumentOf(m_arguments.get());
}

void ListJob::OnDeadline() {
  Fail(Reason::TimedOut, m_turn.HasCome() ? "the deadline has passed"
                                          : "other requests for the same place were not done in time");
}

void ListJob::Ask(Outgoing outgoing, void (ListJob::*onReply)(Reply& reply)) {
  m_step.Ask(std::move(outgoing), TimeLeft(), [this, onReply](Reply& reply) { (this->*onReply)(reply); });
}

void ListJob::Look(std::function<void(ListLooks& looks)> look, void (ListJob::*onLooked)()) {
  if (kSegmentCatalogue[m_plan.Segment()].size <= kMostOnLoop) {
    look(*m_looks);
    (this->*onLooked)();
    return;
  }
  m_errand.Run(
      Bus().Context(), [looks = m_looks, look = std::move(look)] { look(*looks); },
      [this, onLooked] { (this->*onLooked)(); });
}

void ListJob::Publish() {
  ++m_attempts;
  m_looks = m_plan.NewLooks();
  Ask(m_plan.Publish(Bus(), m_arguments.get()), &ListJob::OnPublished);
}

void ListJob::OnPublished(Reply& reply) {
  if (reply.values == nullptr) {
    Fail(std::move(reply.failure));
    return;
  }
  const Answer<> answer = m_plan.ReadPublished(reply.values);
  if (answer.Accepted()) {
    Look([](ListLooks& looks) { looks.LookFirst(); }, &ListJob::OnLookedFirst);
  } else if (answer.Refused()) {
    m_looks->Refuse();
    Reply refusal;
    m_looks->PutInto(refusal);
    Finish(refusal, m_looks);
  } else {
    Fail(answer.Why());
  }
}

void ListJob::OnLookedFirst() { Ask(m_plan.Count(Bus(), m_arguments.get()), &ListJob::OnCounted); }

void ListJob::OnCounted(Reply& reply) {
  if (reply.values == nullptr) {
    Fail(std::move(reply.failure));
    return;
  }
  const Answer<int> count = m_plan.ReadCount(reply.values);
  if (!count) {
    Fail(count.Why());
    return;
  }
  m_question.serviceCount = *count;
  Look([question = m_question](ListLooks& looks) { looks.LookAgain(question); }, &ListJob::OnLookedAgain);
}

void ListJob::OnLookedAgain() {
  if (m_looks->HasFailed() && m_attempts < kMostAttempts) {
    Publish();
    return;
  }
  Reply reply;
  m_looks->PutInto(reply);
  Finish(reply, m_looks);
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
