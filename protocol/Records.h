#ifndef PROTOCOL_RECORDS_H
#define PROTOCOL_RECORDS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <tuple>

#include <bluetooth/MWPBtRecords.h>

#include "protocol/ListWriter.h"

// The records of the list segments: which items each consists of, in the order in which they lie there, and
// how they are written. What reads them goes by the same tables. Only the service gives the items a meaning:
// what btservice means by those that have a number for a name is below, by names.

/// The items with which a record begins: its integers, then its texts, as pointers to members, for
/// std::apply.
template <typename Record>
struct RecordItems;

/// SH_PAIRED_LIST. The integers are enumerators.
template <>
struct RecordItems<MWPTypeDevice> {
  static constexpr std::tuple kIntegers{&MWPTypeDevice::eProfileId, &MWPTypeDevice::eEnableProfileId,
                                        &MWPTypeDevice::eConnectStatus, &MWPTypeDevice::eSupportType};
  static constexpr std::array kTexts{&MWPTypeDevice::strAddr, &MWPTypeDevice::strName};
};

/// SH_CALL_LOG_LIST, SH_CALL_LOG_INFO.
template <>
struct RecordItems<MWPTypeCallLog> {
  static constexpr std::array kIntegers{&MWPTypeCallLog::nLogId, &MWPTypeCallLog::nValue1,
                                        &MWPTypeCallLog::nValue2};
  static constexpr std::array kTexts{&MWPTypeCallLog::strText1, &MWPTypeCallLog::strText2,
                                     &MWPTypeCallLog::strText3, &MWPTypeCallLog::strText4,
                                     &MWPTypeCallLog::strText5};
};

/// SH_CALL_INFO_LIST: there are always kCallSlots of them, whatever the count says.
template <>
struct RecordItems<MWPTypeCallSlot> {
  static constexpr std::array kIntegers{&MWPTypeCallSlot::nValue1, &MWPTypeCallSlot::nValue2,
                                        &MWPTypeCallSlot::nValue3, &MWPTypeCallSlot::nValue4,
                                        &MWPTypeCallSlot::nValue5};
  static constexpr std::array kTexts{&MWPTypeCallSlot::strText1, &MWPTypeCallSlot::strText2,
                                     &MWPTypeCallSlot::strText3};
  /// From the beginning of a slot to its last integer, in bytes.
  static constexpr std::size_t kOffsetOfValue5 = 4 * sizeof(std::int32_t);
};
constexpr std::size_t kCallSlots = 2;

/// What btservice means by the items of a call slot: slot.*CallFields::kNumber.
struct CallFields {
  using Slot = MWPTypeCallSlot;
  static constexpr int Slot::*kId = &Slot::nValue1;          ///< 0: the slot is empty
  static constexpr int Slot::*kStatus = &Slot::nValue2;      ///< a CallStatus
  static constexpr int Slot::*kIncoming = &Slot::nValue3;    ///< 1: the other party has called
  static constexpr int Slot::*kConference = &Slot::nValue4;  ///< 1: part of one
  static constexpr int Slot::*kSeconds = &Slot::nValue5;     ///< since it was answered
  static constexpr std::string Slot::*kNumber = &Slot::strText1;
  static constexpr std::string Slot::*kName = &Slot::strText2;   ///< empty if it is not known
  static constexpr std::string Slot::*kPhone = &Slot::strText3;  ///< the address of the phone it goes over
};

/// What btservice means by the items of an entry of a call log.
struct CallLogFields {
  using Log = MWPTypeCallLog;
  static constexpr int Log::*kContactId = &Log::nValue1;      ///< -1: the number is in no contact
  static constexpr int Log::*kRepository = &Log::nValue2;     ///< the log it is in, as a PbapType
  static constexpr std::string Log::*kName = &Log::strText1;  ///< empty if it is not known
  static constexpr std::string Log::*kNumber = &Log::strText2;
  static constexpr std::string Log::*kDate = &Log::strText3;     ///< 2026-05-31
  static constexpr std::string Log::*kTime = &Log::strText4;     ///< 18:05:00
  static constexpr std::string Log::*kSeconds = &Log::strText5;  ///< how long was spoken, in digits
};

/// What btservice means by the texts of a contact.
struct ContactFields {
  using Person = MWPTypeContact;
  static constexpr std::string Person::*kFirstName = &Person::strText1;
  static constexpr std::string Person::*kFamilyName = &Person::strText2;
};

/// SH_CONTACT_LIST, SH_FAV_CONTACT_LIST, SH_CONTACT_INFO. The number of groups and the groups come behind
/// these; a group is its type, the number of its values, and the values.
template <>
struct RecordItems<MWPTypeContact> {
  static constexpr std::array kIntegers{&MWPTypeContact::nContactId};
  static constexpr std::array kTexts{&MWPTypeContact::strText1, &MWPTypeContact::strText2};
};

/// The fewest bytes that a text, a group of numbers, and a record can take: the integers, and the NULs of the
/// texts.
constexpr std::size_t kSmallestText = 1;
constexpr std::size_t kSmallestNumberGroup = 2 * sizeof(std::int32_t);
template <typename Record>
constexpr std::size_t kSmallestItems =
    std::tuple_size_v<decltype(RecordItems<Record>::kIntegers)> * sizeof(std::int32_t) +
    std::tuple_size_v<decltype(RecordItems<Record>::kTexts)>* kSmallestText;
template <typename Record>
constexpr std::size_t kSmallestRecord = kSmallestItems<Record>;
template <>
inline constexpr std::size_t kSmallestRecord<MWPTypeContact> = kSmallestItems<MWPTypeContact> +
                                                               sizeof(std::int32_t);

/// Puts the items with which a record begins; for most records, that is all of it.
template <typename Record>
void PutItems(ListWriter& writer, const Record& record) {
  const auto put = [&](const auto... items) { (writer.Put(record.*items), ...); };
  std::apply(put, RecordItems<Record>::kIntegers);
  std::apply(put, RecordItems<Record>::kTexts);
}

inline void PutRecord(ListWriter& writer, const MWPTypeDevice& device) { PutItems(writer, device); }
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

#endif
