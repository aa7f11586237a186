#ifndef LIBBTASYNC_SHAREDMEMORY_H
#define LIBBTASYNC_SHAREDMEMORY_H

#include <cstddef>
#include <string>
#include <vector>

#include <bluetooth/ShareMemID.h>

namespace btasync {
inline namespace v0 {
namespace detail {

/// What lay in a segment.
struct SegmentCopy {
  std::vector<unsigned char> bytes;  ///< from the begin on
  std::size_t segmentSize = 0;       ///< bytes that could be read
  std::string whyNone;               ///< why there is no copy; empty if there is one
};

/// The end of what is of interest in a segment, which may hold anything and change meanwhile.
using FindEnd = const unsigned char* (*)(const unsigned char* begin, const unsigned char* end);

/// Copies what the segment holds that the key names now: it may be another one than the last time. Never
/// makes one, never waits, and keeps nothing attached. Reads no more than the segment has, and than the
/// contract gives it. May be called in any thread.
SegmentCopy CopySegment(ShareMemID id, FindEnd findEnd);

/// For CopySegment: all of it.
const unsigned char* EndOfSegment(const unsigned char* begin, const unsigned char* end);

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
