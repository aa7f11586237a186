#ifndef IPC_SHAREMEMORY_LISTSEGMENT_H
#define IPC_SHAREMEMORY_LISTSEGMENT_H

#include "ipc/ShareMemory/SegmentReader.h"
#include "ipc/ShareMemory/UsableSegment.h"

/// A segment that holds a list: a 32-bit count, then the records.
struct ListSegment {
  SegmentBytes bytes;    ///< none if the segment is not attached
  int count = 0;         ///< as it stands in the segment
  SegmentReader reader;  ///< behind the count
};

/// Opens a segment as a list. False, with list untouched, if it holds none (g_ShmIdMap).
bool OpenListSegment(ShareMemID id, ListSegment& list);

#endif
