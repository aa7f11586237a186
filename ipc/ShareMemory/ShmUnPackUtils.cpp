#include "ipc/ShareMemory/ShmUnPackUtils.h"

#include <functional>
#include <string>

#define MWP_LOG_SOURCE "ipc/ShareMemory/ShmUnPackUtils"
#include <mwp/MWPLog.h>

#include "ipc/ShareMemory/ListSegment.h"

namespace {

/// Puts reader on what is left from cursor on in the segment that it points into; false if it points into
/// none that is attached.
bool FindReader(const unsigned char* cursor, SegmentReader& reader) {
  for (const SegmentEntry& entry : kSegmentCatalogue) {
    const SegmentBytes segment = UsableSegment(entry.id);
    const unsigned char* const end = segment.begin + segment.size;
    const std::less_equal<const unsigned char*> notAfter;
    if (segment.begin != nullptr && notAfter(segment.begin, cursor) && notAfter(cursor, end)) {
      reader = SegmentReader(cursor, end);
      return true;
    }
  }
  if (const unsigned char* const end = EndOfAttached(cursor)) {
    reader = SegmentReader(cursor, end);  // destroyed, and still attached
    return true;
  }
  return false;
}

}  // namespace

int ShmUnPackUtils::StartShmUnPackList(ShareMemID id) {
  ListSegment list;
  if (!OpenListSegment(id, list)) {
    return 0;
  }
  m_pCursor = list.reader.Cursor();
  return list.count;
}

template <typename T>
bool ShmUnPackUtils::UnPackDataFromShareMemory(T& out) {
  if (m_pCursor == nullptr) {
    return false;
  }
  SegmentReader reader;
  if (!FindReader(m_pCursor, reader)) {
    MWP_LOG(MWP_LOG_ERROR, "the segment that is being unpacked has been detached");
    return false;
  }
  if (!reader.ReadString(out)) {
    MWP_LOG(MWP_LOG_ERROR, "a string does not end inside its segment");
    return false;
  }
  m_pCursor = reader.Cursor();
  return true;
}

template MWP_BT_API bool ShmUnPackUtils::UnPackDataFromShareMemory<std::string>(std::string& out);
