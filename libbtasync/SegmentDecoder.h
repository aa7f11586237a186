#ifndef LIBBTASYNC_SEGMENTDECODER_H
#define LIBBTASYNC_SEGMENTDECODER_H

#include <vector>

#include <btasync/Answer.h>
#include <btasync/Records.h>

#include "libbtasync/SharedMemory.h"

// From the bytes of a segment to records: all of them, or Malformed with the segment, the record and the byte
// where it begins.

namespace btasync {
inline namespace v0 {
namespace detail {

/// A list, and what its checks need to know.
template <typename Record>
struct DecodedList {
  std::vector<Record> records;
  std::size_t usedBytes = 0;  ///< from the begin of the segment to the end of the last record
};

/// For CopySegment: the end of the last record of a list. The segment's end if it holds no sound list: what
/// is wrong is found in the copy. Record is MWPTypeContact or MWPTypeCallLog.
template <typename Record>
const unsigned char* EndOfList(const unsigned char* begin, const unsigned char* end);

/// Record is MWPTypeContact, MWPTypeCallLog or MWPTypeDevice.
template <typename Record>
Answer<DecodedList<Record>> DecodeList(ShareMemID id, const SegmentCopy& copy);

/// Of SH_PAIRED_LIST. Malformed also if an address is none: then the records are not what they are taken for.
Answer<std::vector<MWPTypeDevice>> DecodePairedDevices(const SegmentCopy& copy);

/// Of SH_CALL_INFO_LIST.
Answer<MWPTypeCallInfo> DecodeCurrentCalls(const SegmentCopy& copy);

/// Whether a list without records has something behind its count that is not zero, which is how one looks
/// that is just being written.
bool LooksUnfinished(const SegmentCopy& copy);

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
