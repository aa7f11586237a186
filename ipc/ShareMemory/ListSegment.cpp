#include "ipc/ShareMemory/ListSegment.h"

bool OpenListSegment(ShareMemID id, ListSegment& list) {
  if (g_ShmIdMap.find(id) == g_ShmIdMap.end()) {
    return false;
  }
  list = ListSegment();
  list.bytes = UsableSegment(id);
  if (list.bytes.begin != nullptr) {
    list.reader = SegmentReader(list.bytes.begin, list.bytes.begin + list.bytes.size);
    list.reader.ReadInt(list.count);
  }
  return true;
}
