#ifndef SERVICE_FRONTEND_SEGMENTS_RECORDS_H
#define SERVICE_FRONTEND_SEGMENTS_RECORDS_H

#include <array>
#include <vector>

#include "protocol/Records.h"
#include "service/stack/StackTypes.h"

namespace btservice {

// The records of the list segments. Clients name their items by kind and number only; what this service means
// by them is written beside each.

/// SH_PAIRED_LIST.
void PackRecord(ListWriter& writer, const DeviceInfo& device);
/// SH_CONTACT_LIST, SH_FAV_CONTACT_LIST, SH_CONTACT_INFO.
void PackRecord(ListWriter& writer, const Contact& contact);
/// SH_CALL_LOG_LIST, SH_CALL_LOG_INFO.
void PackRecord(ListWriter& writer, const CallLogEntry& entry);

/// A counted list of records, of as many as fit into that many bytes: the rest is left out, and the writer's
/// Count says how many are in it.
template <typename Record>
ListWriter PackList(const std::vector<Record>& records, std::size_t capacity) {
  ListWriter writer(capacity);
  for (const Record& record : records) {
    PackRecord(writer, record);
    if (!writer.EndRecord()) {
      break;
    }
  }
  return writer;
}

/// The contents of SH_CALL_INFO_LIST.
struct PackedCallTable {
  Bytes contents;                               ///< empty: there has been none yet
  std::array<std::size_t, kCallSlots> seconds;  ///< where the seconds of each slot lie
};

/// SH_CALL_INFO_LIST: the number of calls, then always two slots, of which unused ones are empty. capacity is
/// in bytes; texts are cut to their places in the slots.
PackedCallTable PackCallTable(const std::vector<CallInfo>& calls, std::size_t capacity);

/// What a slot says of a call. Nothing is checked.
CallInfo CallOf(const MWPTypeCallSlot& slot);

}  // namespace btservice

#endif
