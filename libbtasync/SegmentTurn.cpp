#include "libbtasync/SegmentTurn.h"

#include <array>
#include <iterator>
#include <list>
#include <mutex>
#include <utility>

#include "protocol/Segments.h"

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

struct Queues {
  std::mutex lock;  ///< held for moments only: nothing is waited for in it
  std::array<std::list<SegmentTurn*>, std::size(kSegmentCatalogue)> ofSegment;  ///< the first has its turn
};

/// Never destroyed: other threads may still use them when the process ends.
Queues& AllQueues() {
  static auto& queues = *new Queues;
  return queues;
}

}  // namespace

SegmentTurn::SegmentTurn(ShareMemID id, GMainContext* context, std::function<void()> onTurn)
    : m_id(id),
      m_context(g_main_context_ref(context)),
      m_onTurn(std::move(onTurn)),
      m_source(g_idle_source_new()) {
  g_source_set_priority(m_source.get(), G_PRIORITY_DEFAULT);
  g_source_set_callback(m_source.get(), OnTurn, this, nullptr);
  Queues& queues = AllQueues();
  const std::lock_guard<std::mutex> locked(queues.lock);
  std::list<SegmentTurn*>& queue = queues.ofSegment[m_id];
  queue.push_back(this);
  if (queue.front() == this) {
    Wake();
  }
}

SegmentTurn::~SegmentTurn() {
  {
    Queues& queues = AllQueues();
    const std::lock_guard<std::mutex> locked(queues.lock);
    std::list<SegmentTurn*>& queue = queues.ofSegment[m_id];
    const bool wasFirst = queue.front() == this;
    queue.remove(this);
    if (wasFirst && !queue.empty()) {
      queue.front()->Wake();
    }
  }
  g_source_destroy(m_source.get());
}

void SegmentTurn::Wake() { g_source_attach(m_source.get(), m_context.get()); }

gboolean SegmentTurn::OnTurn(gpointer data) {
  SegmentTurn& self = *static_cast<SegmentTurn*>(data);
  self.m_hasCome = true;
  self.m_onTurn();
  return G_SOURCE_REMOVE;
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
