#ifndef IPC_SHAREMEMORY_SEGMENTRECORDS_H
#define IPC_SHAREMEMORY_SEGMENTRECORDS_H

#include <cstddef>
#include <list>
#include <new>
#include <string>
#include <tuple>

#include "ipc/ShareMemory/SegmentReader.h"
#include "protocol/Records.h"

/// Reads the records of the list segments; protocol/Records.h writes them. Every reader stops at the first
/// fault and never reads outside of the segment, whatever that holds.
namespace segment {

/// What reading a piece of a segment answers: null if all went well, or what was wrong.
using Fault = const char*;
inline constexpr Fault kNoFault = nullptr;
inline constexpr Fault kIntCutOff = "an integer is cut off by the end of the segment";
inline constexpr Fault kTextWithoutEnd = "a text has no end inside the segment";
inline constexpr Fault kImpossibleCount = "a count is negative or too large for the segment";
inline constexpr Fault kOutOfMemory = "there is not enough memory";

/// Whether so many items can be in what is left of a segment.
inline bool IsPossible(int count, std::size_t smallestItem, const SegmentReader& reader) {
  return count >= 0 && static_cast<std::size_t>(count) <= reader.Remaining() / smallestItem;
}

/// Reads the number of items that follow.
inline Fault ReadCount(SegmentReader& reader, std::size_t smallestItem, int& count) {
  if (!reader.ReadInt(count)) {
    return kIntCutOff;
  }
  return IsPossible(count, smallestItem, reader) ? kNoFault : kImpossibleCount;
}

/// Reads count items one after the other into the list from next on, using the nodes that are there and
/// adding what is missing. next is then behind the last whole item, also if this throws.
template <typename Item, typename ReadItem>
Fault ReadIntoList(std::list<Item>& list, typename std::list<Item>::iterator& next, int count,
                   ReadItem readItem) {
  for (int i = 0; i < count; ++i) {
    if (next == list.end()) {
      next = list.emplace(next);
    }
    if (const Fault fault = readItem(*next)) {
      return fault;
    }
    ++next;
  }
  return kNoFault;
}

/// Makes [first, end of list) hold count items read one after the other, using the nodes that are there and
/// adding or erasing the difference. After a fault the list ends with the last whole item.
template <typename Item, typename ReadItem>
Fault FillList(std::list<Item>& list, typename std::list<Item>::iterator first, int count,
               ReadItem readItem) {
  Fault fault = kNoFault;
  auto next = first;
  try {
    fault = ReadIntoList(list, next, count, readItem);
  } catch (const std::bad_alloc&) {
    fault = kOutOfMemory;
  }
  list.erase(next, list.end());
  return fault;
}

inline Fault ReadNumberGroup(SegmentReader& reader, MWPTypeContactNumber& group) {
  if (!reader.ReadInt(group.nType)) {
    return kIntCutOff;
  }
  int count = 0;
  if (const Fault fault = ReadCount(reader, kSmallestText, count)) {
    return fault;
  }
  GiveBackExcess(group.vecValues, static_cast<std::size_t>(count));
  group.vecValues.resize(static_cast<std::size_t>(count));
  for (std::string& value : group.vecValues) {
    if (!reader.ReadString(value)) {
      return kTextWithoutEnd;
    }
  }
  return kNoFault;
}

inline bool ReadInteger(SegmentReader& reader, int& value) { return reader.ReadInt(value); }

/// Reads an integer as an enumerator. One that the list does not have is passed on.
template <typename Enumeration>
bool ReadInteger(SegmentReader& reader, Enumeration& enumerator) {
  int value = 0;
  if (!reader.ReadInt(value)) {
    return false;
  }
  enumerator = static_cast<Enumeration>(value);
  return true;
}

/// Reads the items with which a record begins. The integers come first in the segment, wherever the record
/// has them.
template <typename Record>
Fault ReadItems(SegmentReader& reader, Record& record) {
  const auto readIntegers = [&](const auto... items) { return (ReadInteger(reader, record.*items) && ...); };
  if (!std::apply(readIntegers, RecordItems<Record>::kIntegers)) {
    return kIntCutOff;
  }
  const auto readTexts = [&](const auto... items) { return (reader.ReadString(record.*items) && ...); };
  return std::apply(readTexts, RecordItems<Record>::kTexts) ? kNoFault : kTextWithoutEnd;
}

inline Fault ReadRecord(SegmentReader& reader, MWPTypeContact& contact) {
  if (const Fault fault = ReadItems(reader, contact)) {
    return fault;
  }
  int count = 0;
  if (const Fault fault = ReadCount(reader, kSmallestNumberGroup, count)) {
    return fault;
  }
  // Whoever reads contacts drops one that is not whole, and expects that memory may run out.
  auto next = contact.listNumbers.begin();
  const Fault fault = ReadIntoList(contact.listNumbers, next, count, [&reader](MWPTypeContactNumber& group) {
    return ReadNumberGroup(reader, group);
  });
  contact.listNumbers.erase(next, contact.listNumbers.end());
  return fault;
}

inline Fault ReadRecord(SegmentReader& reader, MWPTypeCallLog& log) { return ReadItems(reader, log); }

inline Fault ReadRecord(SegmentReader& reader, MWPTypeCallSlot& slot) { return ReadItems(reader, slot); }

inline Fault ReadRecord(SegmentReader& reader, MWPTypeDevice& device) { return ReadItems(reader, device); }

/// Goes behind the items with which a record begins.
template <typename Record>
Fault SkipItems(SegmentReader& reader) {
  int unused = 0;
  for (std::size_t i = 0; i < std::tuple_size_v<decltype(RecordItems<Record>::kIntegers)>; ++i) {
    if (!reader.ReadInt(unused)) {
      return kIntCutOff;
    }
  }
  for (std::size_t i = 0; i < std::size(RecordItems<Record>::kTexts); ++i) {
    if (!reader.SkipString()) {
      return kTextWithoutEnd;
    }
  }
  return kNoFault;
}

/// Goes behind a record.
template <typename Record>
Fault SkipRecord(SegmentReader& reader) {
  return SkipItems<Record>(reader);
}

template <>
inline Fault SkipRecord<MWPTypeContact>(SegmentReader& reader) {
  if (const Fault fault = SkipItems<MWPTypeContact>(reader)) {
    return fault;
  }
  int groups = 0;
  if (const Fault fault = ReadCount(reader, kSmallestNumberGroup, groups)) {
    return fault;
  }
  for (; groups > 0; --groups) {
    int type = 0;
    int values = 0;
    if (!reader.ReadInt(type)) {
      return kIntCutOff;
    }
    if (const Fault fault = ReadCount(reader, kSmallestText, values)) {
      return fault;
    }
    for (; values > 0; --values) {
      if (!reader.SkipString()) {
        return kTextWithoutEnd;
      }
    }
  }
  return kNoFault;
}

}  // namespace segment

#endif
