#ifndef LIBBTASYNC_SEGMENTTURN_H
#define LIBBTASYNC_SEGMENTTURN_H

#include <functional>

#include <glib.h>

#include <bluetooth/ShareMemID.h>

#include "glib/Owned.h"

namespace btasync {
inline namespace v0 {
namespace detail {

/// A place in the queue of those of this process who want to use a segment: what one asks the service to
/// publish takes the place of what another asked for. There is one queue for each segment, for all loops.
class SegmentTurn {
 public:
  /// onTurn is called by the loop of a context, which the calling thread runs, once all who came before have
  /// gone.
  SegmentTurn(ShareMemID id, GMainContext* context, std::function<void()> onTurn);
  SegmentTurn(const SegmentTurn&) = delete;
  SegmentTurn& operator=(const SegmentTurn&) = delete;
  /// Leaves the queue: the next one has its turn. To be called by the same thread; also in onTurn.
  ~SegmentTurn();

  bool HasCome() const { return m_hasCome; }

 private:
  static gboolean OnTurn(gpointer self);
  /// Wakes its loop. From any thread, with the queues locked.
  void Wake();

  const ShareMemID m_id;
  const OwnedMainContext m_context;
  const std::function<void()> m_onTurn;
  bool m_hasCome = false;
  const OwnedSource m_source;
};

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
