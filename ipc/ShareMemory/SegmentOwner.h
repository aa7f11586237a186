#ifndef IPC_SHAREMEMORY_SEGMENTOWNER_H
#define IPC_SHAREMEMORY_SEGMENTOWNER_H

#include <cstddef>
#include <map>

#include "protocol/Segments.h"

/// The segments as seen by the service, which writes them: knows which of them this process has made, and
/// follows a key to the segment that it names now. A client that tears down can mark a segment for removal:
/// it then stays attached here, but new clients find another under its key. Segments made here never have one
/// of the small identifiers that such a client removes by mistake.
class SegmentOwner {
 public:
  SegmentOwner() = default;
  SegmentOwner(const SegmentOwner&) = delete;
  SegmentOwner& operator=(const SegmentOwner&) = delete;
  /// Detaches all. Removes none.
  ~SegmentOwner();

  /// The memory that clients see under this id: attached, and made if there is none. fresh is set if it is
  /// another segment than the last time. Null, with one error in the log until it changes, if it cannot be
  /// had.
  void* Attach(ShareMemID id, bool* fresh = nullptr);
  /// Whether this process has made the segment that is attached under this id: it held only zeros then.
  bool HasMade(ShareMemID id) const;
  /// Removes the segments that this process has made, and those whose creator no longer exists, such as a
  /// service that was killed: nobody else would.
  void Remove();

 private:
  struct Segment {
    int shmid = -1;
    void* address = nullptr;
    bool own = false;
    int reportedError = 0;
  };

  /// The identifier of the segment that the key names now, or -1 with errno set.
  int Find(const SegmentEntry& entry, bool* made) const;
  void Detach(Segment& segment);
  void ReportError(const SegmentEntry& entry, Segment& segment, int error) const;

  std::map<ShareMemID, Segment> m_segments;
};

#endif
