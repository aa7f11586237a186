#ifndef SERVICE_SEGMENTS_RECORDS_H
#define SERVICE_SEGMENTS_RECORDS_H

#include <array>
#include <vector>

#include "service/segments/ListPacker.h"

namespace btservice {

// The records of the list segments, in the order in which their items lie there. Clients name the items by
// kind and number only; what this service means by them is written beside each.

/// SH_PAIRED_LIST.
void PackRecord(ListPacker& packer, const DeviceInfo& device);
/// SH_CONTACT_LIST, SH_FAV_CONTACT_LIST, SH_CONTACT_INFO.
void PackRecord(ListPacker& packer, const Contact& contact);
/// SH_CALL_LOG_LIST, SH_CALL_LOG_INFO.
void PackRecord(ListPacker& packer, const CallLogEntry& entry);

/// A counted list of records.
template <typename Record>
ListPacker PackList(const std::vector<Record>& records, std::size_t capacity) {
  ListPacker packer(capacity);
  for (const Record& record : records) {
    PackRecord(packer, record);
    if (!packer.EndRecord()) {
      break;
    }
  }
  return packer;
}

/// The contents of SH_CALL_INFO_LIST.
struct PackedCallTable {
  Bytes contents;                      ///< empty: there has been none yet
  std::array<std::size_t, 2> seconds;  ///< where the seconds of each slot lie
};

/// SH_CALL_INFO_LIST: the number of calls, then always two slots, of which unused ones are empty.
PackedCallTable PackCallTable(const std::vector<CallInfo>& calls, std::size_t capacity);

}  // namespace btservice

#endif
