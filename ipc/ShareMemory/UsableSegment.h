#ifndef IPC_SHAREMEMORY_USABLESEGMENT_H
#define IPC_SHAREMEMORY_USABLESEGMENT_H

#include <cstddef>

#include "ipc/ShareMemory/ShareMemory.h"
#include "protocol/Segments.h"

/// The bytes of a segment that may be read and written.
struct SegmentBytes {
  unsigned char* begin = nullptr;  ///< null if there is no such segment
  std::size_t size = 0;
};

/// The attached bytes of a segment: none if it was never initialised or shmat failed for it, which
/// ShareMemory records as the address (void*)-1. Never more than the contract gives the segment.
SegmentBytes UsableSegment(ShareMemID id);

/// Where the usable bytes end of the segment that an address points into, or just behind. A segment that was
/// destroyed counts as well, since it stays attached; one that was detached does not. Null if there is none.
const unsigned char* EndOfAttached(const unsigned char* address);

#endif
