#ifndef BTASYNC_MIRROR_H
#define BTASYNC_MIRROR_H

#include <functional>
#include <memory>

#include <btasync/Export.h>
#include <btasync/Service.h>
#include <btasync/State.h>

namespace btasync {
inline namespace v0 {

namespace detail {
class MirrorKeeper;
}

/// Keeps a State current: by events, and by asking when the service comes, comes back, or reports that
/// something changed. It subscribes only what the parts need that a screen wants, so that a screen of calls
/// is not woken by the position in a track.
///
/// Some of the state is in no answer: whether a search or a download runs, the network and the battery, the
/// profiles that are connected, what can be done with the calls. For these it asks the service once, each
/// time that it comes, for a report, which every application hears (Service::GetBluetoothServiceStatus); and
/// once more when such a part is wanted later, for all that are wanted in one turn of the loop.
///
/// A question that fails while the service is there is asked again after some seconds; its part is not fresh
/// so long.
///
/// Belongs to the thread of the service's loop: what another one asks for is refused, and logged. May outlive
/// the service object: the state then changes no more.
class BTASYNC_API Mirror {
 public:
  /// Called by the loop, once a turn, with all parts that have changed since the last time. The state is
  /// Now(). May destroy the mirror.
  using Changed = std::function<void(const State& state, unsigned parts)>;

  /// With PART_POSITION it asks the service to report the position each second. That interval is the
  /// service's, for all applications: one that has asked for another one gets this one from then on, and the
  /// other way round. The end of the mirror does not switch it off again, as another application may show the
  /// position as well. A service that refuses to report it is asked again with the next track; the position
  /// is not fresh so long.
  /// @param service may go before the mirror
  /// @param parts those that are wanted, as bits (Part); PART_SERVICE is always among them
  /// @param changed may be empty, for one that only looks at Now()
  Mirror(Service& service, unsigned parts, Changed changed);
  Mirror(const Mirror&) = delete;
  Mirror& operator=(const Mirror&) = delete;
  ~Mirror();

  /// What is known.
  /// @returns the state, which belongs to the mirror; an empty one in another thread than the loop's
  const State& Now() const;
  /// Wants further parts, from now on. Those that it has stay as they are.
  /// @param parts as bits (Part)
  void Want(unsigned parts);
  /// Asks again for these parts, for what no event reports: the order of the paired devices after
  /// Service::MovePairedDevice.
  /// @param parts as bits (Part); those that are not wanted are left out
  void Refresh(unsigned parts);

 private:
  std::unique_ptr<detail::MirrorKeeper> m_keeper;
};

}  // namespace v0
}  // namespace btasync

#endif
