#ifndef LIBBTASYNC_TABLEPLAN_H
#define LIBBTASYNC_TABLEPLAN_H

#include <memory>

#include "libbtasync/Backend.h"
#include "libbtasync/ListLooks.h"

namespace btasync {
inline namespace v0 {
namespace detail {

/// The request for a small table that the service keeps current in shared memory. No service call: it is
/// looked at until two looks in a row see the same, which makes sense.
class TablePlan : public Plan {
 public:
  void Start(BusBackend& backend, _GVariant* arguments, int timeoutMs, PendingCall& call) const override;

  virtual std::unique_ptr<ListLooks> NewLooks() const = 0;

 protected:
  constexpr explicit TablePlan(const char* name) : Plan(name) {}
  ~TablePlan() = default;
};

template <typename Value>
class TablePlanOf final : public TablePlan {
 public:
  constexpr TablePlanOf(const char* name, ShareMemID segment, Judge<Value> judge)
      : TablePlan(name), m_segment(segment), m_judge(judge) {}

 private:
  std::unique_ptr<ListLooks> NewLooks() const override {
    return std::make_unique<ListLooksFor<Value>>(m_segment, EndOfSegment, m_judge);
  }

  const ShareMemID m_segment;
  const Judge<Value> m_judge;
};

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
