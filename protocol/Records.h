#ifndef PROTOCOL_RECORDS_H
#define PROTOCOL_RECORDS_H

#include <cstddef>
#include <string>

#include <bluetooth/MWPBtRecords.h>

#include "protocol/ListWriter.h"

// The records of the list segments: which items each consists of, in the order in which they lie there, and
// how they are written. Who reads them goes by the same tables. Only the service gives the items a meaning.

/// The items with which a record begins: its integers, then its texts.
template <typename Record>
struct RecordItems;

/// SH_CALL_LOG_LIST, SH_CALL_LOG_INFO.
template <>
struct RecordItems<MWPTypeCallLog> {
  static constexpr int MWPTypeCallLog::*kIntegers[] = {&MWPTypeCallLog::nLogId, &MWPTypeCallLog::nValue1,
                                                       &MWPTypeCallLog::nValue2};
  static constexpr std::string MWPTypeCallLog::*kTexts[] = {
      &MWPTypeCallLog::strText1, &MWPTypeCallLog::strText2, &MWPTypeCallLog::strText3,
      &MWPTypeCallLog::strText4, &MWPTypeCallLog::strText5};
};

/// SH_CALL_INFO_LIST: there are always two, whatever the count says.
template <>
struct RecordItems<MWPTypeCallSlot> {
  static constexpr int MWPTypeCallSlot::*kIntegers[] = {&MWPTypeCallSlot::nValue1, &MWPTypeCallSlot::nValue2,
                                                        &MWPTypeCallSlot::nValue3, &MWPTypeCallSlot::nValue4,
                                                        &MWPTypeCallSlot::nValue5};
  static constexpr std::string MWPTypeCallSlot::*kTexts[] = {
      &MWPTypeCallSlot::strText1, &MWPTypeCallSlot::strText2, &MWPTypeCallSlot::strText3};
  /// From the beginning of a slot to its last integer, in bytes.
  static constexpr std::size_t kOffsetOfValue5 = 4 * sizeof(std::int32_t);
};

/// SH_CONTACT_LIST, SH_FAV_CONTACT_LIST, SH_CONTACT_INFO. The number of groups and the groups come behind
/// these; a group is its type, the number of its values, and the values.
template <>
struct RecordItems<MWPTypeContact> {
  static constexpr int MWPTypeContact::*kIntegers[] = {&MWPTypeContact::nContactId};
  static constexpr std::string MWPTypeContact::*kTexts[] = {&MWPTypeContact::strText1,
                                                            &MWPTypeContact::strText2};
};

/// The fewest bytes that a text, a group, and the records can take: their
/// integers, and the NULs of their texts.
constexpr std::size_t kSmallestText = 1;
constexpr std::size_t kSmallestNumberGroup = 4 + 4;
constexpr std::size_t kSmallestContact = 4 + 1 + 1 + 4;
constexpr std::size_t kSmallestCallLog = 3 * 4 + 5 * 1;
constexpr std::size_t kSmallestCallSlot = 5 * 4 + 3 * 1;
constexpr std::size_t kSmallestDevice = 4 * 4 + 2 * 1;

/// Puts the items with which a record begins; for most records, that is all of it.
template <typename Record>
void PutItems(ListWriter& writer, const Record& record) {
  for (const auto integer : RecordItems<Record>::kIntegers) {
    writer.Put(record.*integer);
  }
  for (const auto text : RecordItems<Record>::kTexts) {
    writer.Put(record.*text);
  }
}

inline void PutRecord(ListWriter& writer, const MWPTypeCallLog& log) { PutItems(writer, log); }
inline void PutRecord(ListWriter& writer, const MWPTypeCallSlot& slot) { PutItems(writer, slot); }

inline void PutRecord(ListWriter& writer, const MWPTypeContact& contact) {
  PutItems(writer, contact);
  writer.Put(static_cast<int>(contact.listNumbers.size()));
  for (const MWPTypeContactNumber& group : contact.listNumbers) {
    writer.Put(group.nType).Put(static_cast<int>(group.vecValues.size()));
    for (const std::string& value : group.vecValues) {
      writer.Put(value);
    }
  }
}

/// SH_PAIRED_LIST.
inline void PutRecord(ListWriter& writer, const MWPTypeDevice& device) {
  writer.Put(device.eProfileId)
      .Put(device.eEnableProfileId)
      .Put(device.eConnectStatus)
      .Put(device.eSupportType);
  writer.Put(device.strAddr).Put(device.strName);
}

#endif
