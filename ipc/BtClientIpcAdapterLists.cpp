// The lists that the Bluetooth service publishes in shared memory: ask for a list, then decode it in place.
//
// Every record is built where the caller keeps it, and the nodes, texts and vectors that the caller's list
// already has are filled again, since allocation is most of the cost of a large phone book.

#include <cstddef>
#include <list>
#include <new>

#define MWP_LOG_SOURCE "ipc/BtClientIpcAdapter"
#include <mwp/MWPLog.h>

#include "ipc/BtClientIpcAdapter.h"
#include "ipc/ServiceCall.h"
#include "ipc/ShareMemory/ListSegment.h"
#include "ipc/ShareMemory/SegmentRecords.h"

namespace {

using segment::Fault;
using segment::FillList;
using segment::IsPossible;
using segment::kImpossibleCount;
using segment::kNoFault;
using segment::kOutOfMemory;
using segment::ReadRecord;

/// The first byte from which on a segment is all zeros.
const unsigned char* EndOfData(const unsigned char* begin, const unsigned char* end) {
  while (end != begin && end[-1] == 0) {
    --end;
  }
  return end;
}

void LogFault(const MWPLogSite& site, ShareMemID id, const char* what, int number, std::size_t offset,
              Fault fault) {
  MWPLogWrite(site, MWP_LOG_ERROR, "%s: %s, %s %d, at byte %zu: %s; what was whole is kept", site.function,
              kSegmentCatalogue[id].name, what, number, offset, fault);
}

/// Makes [first, end of list) hold the records of a list segment. A segment that is not attached is an empty
/// list. A corrupt one is logged once and gives its whole records.
template <typename Record>
void UnpackList(const MWPLogSite& site, ShareMemID id, std::size_t smallestRecord, std::list<Record>& list,
                typename std::list<Record>::iterator first) {
  ListSegment segment;
  OpenListSegment(id, segment);
  if (segment.bytes.begin == nullptr) {
    list.erase(first, list.end());
    return;
  }
  SegmentReader& reader = segment.reader;

  // A count too large to be true still leaves the records themselves: they are read until only zeros are
  // left. A negative one announces none.
  const bool isPossible = IsPossible(segment.count, smallestRecord, reader);
  const unsigned char* const end = segment.bytes.begin + segment.bytes.size;
  const unsigned char* const dataEnd = isPossible ? end : EndOfData(reader.Cursor(), end);
  const unsigned char* recordBegin = reader.Cursor();
  int number = 0;
  const Fault fault = FillList(list, first, segment.count, [&](Record& record) -> Fault {
    recordBegin = reader.Cursor();
    if (!isPossible && recordBegin >= dataEnd) {
      return kImpossibleCount;
    }
    ++number;
    return ReadRecord(reader, record);
  });
  if (!isPossible) {
    LogFault(site, id, "announced records", segment.count, 0, kImpossibleCount);
  } else if (fault != kNoFault) {
    LogFault(site, id, "record", number, static_cast<std::size_t>(recordBegin - segment.bytes.begin), fault);
  }
}

}  // namespace

int BtClientIpcAdapter::GetContactList(std::list<MWPTypeContact>& contacts) {
  MWP_LOG(MWP_LOG_DEBUG, "BtClientIpcAdapter::GetContactList - BtClientIpcAdapter::GetContactList +++");
  gboolean result = 1;
  if (!CallService(BT_CALL(get_contact_list), &result)) {
    return result;
  }
  UnpackList(BT_REQUEST_SITE, SH_CONTACT_LIST, kSmallestRecord<MWPTypeContact>, contacts, contacts.begin());
  MWP_LOG(MWP_LOG_DEBUG, "BtClientIpcAdapter::GetContactList - BtClientIpcAdapter::GetContactList ---");
  return result;
}

int BtClientIpcAdapter::GetFavContactList(std::list<MWPTypeContact>& contacts) {
  MWP_LOG(MWP_LOG_DEBUG, "BtClientIpcAdapter::GetFavContactList  +++");
  gboolean result = 1;
  if (!CallService(BT_CALL(get_fav_contact_list), &result)) {
    return result;
  }
  UnpackList(BT_REQUEST_SITE, SH_FAV_CONTACT_LIST, kSmallestRecord<MWPTypeContact>, contacts,
             contacts.begin());
  MWP_LOG(MWP_LOG_DEBUG, "BtClientIpcAdapter::GetFavContactList ---");
  return result;
}

// The entries come after whatever the list already holds: it is not cleared first.
int BtClientIpcAdapter::GetCallLogList(CallLogType type, std::list<MWPTypeCallLog>& logs) {
  gboolean result = 1;
  if (CallService(BT_CALL(get_call_log_list), AsByte(type), &result)) {
    UnpackList(BT_REQUEST_SITE, SH_CALL_LOG_LIST, kSmallestRecord<MWPTypeCallLog>, logs, logs.end());
  }
  return result;
}

// Both slots are decoded whatever the count says, and the answer is 1 in every case. A slot that is not whole
// stays as it was in the caller's record.
int BtClientIpcAdapter::GetCurrentCallInfo(MWPTypeCallInfo& info) {
  ListSegment segment;
  OpenListSegment(SH_CALL_INFO_LIST, segment);
  info.nCallCount = segment.count;
  if (segment.bytes.begin == nullptr) {
    return 1;
  }
  SegmentReader& reader = segment.reader;
  int number = 1;
  for (MWPTypeCallSlot* slot : {&info.callSlot1, &info.callSlot2}) {
    const std::size_t offset = static_cast<std::size_t>(reader.Cursor() - segment.bytes.begin);
    MWPTypeCallSlot whole;
    Fault fault = kNoFault;
    try {
      fault = ReadRecord(reader, whole);
    } catch (const std::bad_alloc&) {
      fault = kOutOfMemory;
    }
    if (fault != kNoFault) {
      LogFault(BT_REQUEST_SITE, SH_CALL_INFO_LIST, "slot", number, offset, fault);
      break;
    }
    *slot = std::move(whole);
    ++number;
  }
  return 1;
}
