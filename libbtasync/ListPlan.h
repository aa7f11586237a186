#ifndef LIBBTASYNC_LISTPLAN_H
#define LIBBTASYNC_LISTPLAN_H

#include <memory>

#include "libbtasync/Backend.h"
#include "libbtasync/ListLooks.h"
#include "libbtasync/Wire.h"

namespace btasync {
inline namespace v0 {
namespace detail {

/// The request for a list that the service publishes when it is asked to, in a place that it has for all
/// applications. Nothing is locked there: what lies there may be what another application has asked for, or
/// half written. A list is therefore looked at twice, with another request in between, which the service
/// answers when it has finished what it was doing:
///
///   publish the list - copy it - how many records are there? - copy it again, and compare
class ListPlan : public Plan {
 public:
  void Start(BusBackend& backend, _GVariant* arguments, int timeoutMs, PendingCall& call) const override;

  ShareMemID Segment() const { return m_segment; }
  /// The request to publish it, and whether it was accepted.
  virtual Outgoing Publish(Backend& backend, _GVariant* arguments) const = 0;
  virtual Answer<> ReadPublished(_GVariant* values) const = 0;
  /// The request in between, and its answer.
  virtual Outgoing Count(Backend& backend, _GVariant* arguments) const = 0;
  virtual Answer<int> ReadCount(_GVariant* values) const = 0;
  virtual std::shared_ptr<ListLooks> NewLooks() const = 0;

 protected:
  constexpr ListPlan(const char* name, ShareMemID segment) : Plan(name), m_segment(segment) {}
  ~ListPlan() = default;

 private:
  const ShareMemID m_segment;
};

/// Publishing, Counting: the methods (WireNames.h). The one that counts gets the same arguments, or none.
template <typename Publishing, typename Counting, typename Value>
class ListPlanOf final : public ListPlan {
 public:
  constexpr ListPlanOf(const char* name, ShareMemID segment, FindEnd findEnd, Judge<Value> judge)
      : ListPlan(name, segment), m_findEnd(findEnd), m_judge(judge) {}

 private:
  Outgoing Publish(Backend& backend, _GVariant* arguments) const override {
    return {backend, Publishing::name, arguments};
  }
  Answer<> ReadPublished(_GVariant* values) const override { return wire::Order<Publishing>(values); }
  Outgoing Count(Backend& backend, _GVariant* arguments) const override {
    if constexpr (Counting::in.size() == 0) {
      return {backend, Counting::name, nullptr};
    } else {
      static_assert(
          Counting::in.size() == 1 && Publishing::in.size() == 1 && Counting::in[0] == Publishing::in[0],
          "the two take the same argument");
      return {backend, Counting::name, arguments};
    }
  }
  Answer<int> ReadCount(_GVariant* values) const override { return wire::Question<Counting, int>(values); }
  std::shared_ptr<ListLooks> NewLooks() const override {
    return std::make_shared<ListLooksFor<Value>>(Segment(), m_findEnd, m_judge);
  }

  const FindEnd m_findEnd;
  const Judge<Value> m_judge;
};

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
