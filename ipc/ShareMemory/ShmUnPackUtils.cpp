#include "ipc/ShareMemory/ShmUnPackUtils.h"

#include <functional>
#include <string>

#define MWP_LOG_SOURCE "ipc/ShareMemory/ShmUnPackUtils"
#include <mwp/MWPLog.h>

#include "ipc/ShareMemory/SegmentReader.h"
#include "ipc/ShareMemory/UsableSegment.h"

namespace {

/// What is left to read from cursor on, in the segment that it points into; nothing if it is in none.
SegmentReader ReaderAt(const unsigned char* cursor) {
  for (const SegmentEntry& entry : kSegmentCatalogue) {
    const SegmentBytes segment = UsableSegment(entry.id);
    const unsigned char* const end = segment.begin + segment.size;
    const std::less_equal<const unsigned char*> notAfter;
    if (segment.begin != nullptr && notAfter(segment.begin, cursor) && notAfter(cursor, end)) {
      return SegmentReader(cursor, end);
    }
  }
  return SegmentReader(cursor, cursor);
}

}  // namespace

int ShmUnPackUtils::StartShmUnPackList(ShareMemID id) {
  if (g_ShmIdMap.find(id) == g_ShmIdMap.end()) {
    return 0;
  }
  const SegmentBytes segment = UsableSegment(id);
  m_pCursor = segment.begin;
  if (segment.begin == nullptr) {
    return 0;
  }
  SegmentReader reader(segment.begin, segment.begin + segment.size);
  int count = 0;
  reader.ReadInt(count);
  m_pCursor = reader.Cursor();
  return count;
}

template <typename T>
bool ShmUnPackUtils::UnPackDataFromShareMemory(T& out) {
  if (m_pCursor == nullptr) {
    return false;
  }
  SegmentReader reader = ReaderAt(m_pCursor);
  if (!reader.ReadString(out)) {
    MWP_LOG(MWP_LOG_ERROR, "a string does not end inside its segment");
    return false;
  }
  m_pCursor = reader.Cursor();
  return true;
}

template MWP_BT_API bool ShmUnPackUtils::UnPackDataFromShareMemory<std::string>(std::string& out);
