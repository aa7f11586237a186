#include "libbtasync/SegmentDecoder.h"

#include <algorithm>
#include <string>
#include <utility>

#include "ipc/ShareMemory/SegmentRecords.h"
#include "protocol/Address.h"
#include "protocol/Segments.h"

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

using segment::Fault;

SegmentReader ReaderOf(const SegmentCopy& copy) {
  return SegmentReader(copy.bytes.data(), copy.bytes.data() + copy.bytes.size());
}

std::size_t PlaceOf(const SegmentReader& reader, const SegmentCopy& copy) {
  return static_cast<std::size_t>(reader.Cursor() - copy.bytes.data());
}

/// number: of the record, from 1; 0 for the count.
Failure Bad(ShareMemID id, int number, std::size_t place, const char* fault) {
  const std::string record = number == 0 ? "the count" : "record " + std::to_string(number);
  return {Reason::Malformed, std::string(kSegmentCatalogue[id].name) + ", " + record + ", at byte " +
                                 std::to_string(place) + ": " + fault};
}

/// What shows that a record is not what it is taken for.
Fault WhyOdd(const MWPTypeContact&) { return segment::kNoFault; }
Fault WhyOdd(const MWPTypeCallLog&) { return segment::kNoFault; }
Fault WhyOdd(const MWPTypeDevice& device) {
  return IsBluetoothAddress(device.strAddr) ? segment::kNoFault : "its address is no Bluetooth address";
}

}  // namespace

template <typename Record>
const unsigned char* EndOfList(const unsigned char* begin, const unsigned char* end) {
  SegmentReader reader(begin, end);
  int count = 0;
  if (segment::ReadCount(reader, kSmallestRecord<Record>, count) != segment::kNoFault) {
    return end;
  }
  for (; count > 0; --count) {
    if (segment::SkipRecord<Record>(reader) != segment::kNoFault) {
      return end;
    }
  }
  return reader.Cursor();
}

template <typename Record>
Answer<DecodedList<Record>> DecodeList(ShareMemID id, const SegmentCopy& copy) {
  SegmentReader reader = ReaderOf(copy);
  int count = 0;
  if (const Fault fault = segment::ReadCount(reader, kSmallestRecord<Record>, count)) {
    return Bad(id, 0, 0, fault);
  }
  DecodedList<Record> list;
  list.records.reserve(static_cast<std::size_t>(count));
  for (int number = 1; number <= count; ++number) {
    const std::size_t place = PlaceOf(reader, copy);
    list.records.emplace_back();
    Record& record = list.records.back();
    if (const Fault fault = segment::ReadRecord(reader, record)) {
      return Bad(id, number, place, fault);
    }
    if (const Fault fault = WhyOdd(record)) {
      return Bad(id, number, place, fault);
    }
  }
  list.usedBytes = PlaceOf(reader, copy);
  return list;
}

template const unsigned char* EndOfList<MWPTypeContact>(const unsigned char*, const unsigned char*);
template const unsigned char* EndOfList<MWPTypeCallLog>(const unsigned char*, const unsigned char*);
template Answer<DecodedList<MWPTypeContact>> DecodeList(ShareMemID, const SegmentCopy&);
template Answer<DecodedList<MWPTypeCallLog>> DecodeList(ShareMemID, const SegmentCopy&);
template Answer<DecodedList<MWPTypeDevice>> DecodeList(ShareMemID, const SegmentCopy&);

Answer<std::vector<MWPTypeDevice>> DecodePairedDevices(const SegmentCopy& copy) {
  Answer<DecodedList<MWPTypeDevice>> list = DecodeList<MWPTypeDevice>(SH_PAIRED_LIST, copy);
  if (!list) {
    return list.Why();
  }
  return std::move(list->records);
}

Answer<MWPTypeCallInfo> DecodeCurrentCalls(const SegmentCopy& copy) {
  SegmentReader reader = ReaderOf(copy);
  MWPTypeCallInfo info;
  if (const Fault fault = segment::ReadCount(reader, kSmallestRecord<MWPTypeCallSlot>, info.nCallCount)) {
    return Bad(SH_CALL_INFO_LIST, 0, 0, fault);
  }
  int number = 1;
  for (MWPTypeCallSlot* const slot : {&info.callSlot1, &info.callSlot2}) {
    const std::size_t place = PlaceOf(reader, copy);
    if (const Fault fault = segment::ReadRecord(reader, *slot)) {
      return Bad(SH_CALL_INFO_LIST, number, place, fault);
    }
    ++number;
  }
  return info;
}

bool LooksUnfinished(const SegmentCopy& copy) {
  SegmentReader reader = ReaderOf(copy);
  int count = 0;
  const unsigned char* const end = copy.bytes.data() + copy.bytes.size();
  return reader.ReadInt(count) && count == 0 &&
         std::any_of(reader.Cursor(), end, [](unsigned char byte) { return byte != 0; });
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
