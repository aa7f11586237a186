#ifndef LIBBTASYNC_LISTJOB_H
#define LIBBTASYNC_LISTJOB_H

#include <functional>
#include <memory>

#include "glib/Owned.h"
#include "libbtasync/Errand.h"
#include "libbtasync/ListPlan.h"
#include "libbtasync/PlanJob.h"
#include "libbtasync/SegmentTurn.h"
#include "libbtasync/Step.h"

namespace btasync {
inline namespace v0 {
namespace detail {

/// A request for a list that is under way.
class ListJob final : public PlanJob {
 public:
  /// Takes over a reference of the call, and the arguments if they are floating.
  ListJob(BusBackend& backend, const ListPlan& plan, GVariant* arguments, int timeoutMs, PendingCall& call);

 private:
  ~ListJob() override = default;

  void OnDeadline() override;
  void Publish();
  void OnPublished(Reply& reply);
  void OnLookedFirst();
  void OnCounted(Reply& reply);
  void OnLookedAgain();

  /// Makes a service call; onReply gets its reply.
  void Ask(Outgoing outgoing, void (ListJob::*onReply)(Reply& reply));
  /// Does something with the segment, off the loop's thread if that may take long.
  void Look(std::function<void(ListLooks& looks)> look, void (ListJob::*onLooked)());

  const ListPlan& m_plan;
  const OwnedVariant m_arguments;
  std::shared_ptr<ListLooks> m_looks;
  ListQuestion m_question;
  Step m_step;
  Errand m_errand;
  int m_attempts = 0;
  SegmentTurn m_turn;
};

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
