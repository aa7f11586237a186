#include "fuzz/ListPacker.h"

#include <initializer_list>

#include "support/SegmentItems.h"

namespace bttest {
namespace {

void Append(SegmentItems& items, int value) { items.Int(value); }

void Append(SegmentItems& items, std::size_t count) { items.Int(static_cast<int>(count)); }

void Append(SegmentItems& items, const std::string& text) { items.Text(text); }

void Append(SegmentItems& items, const MWPTypeContact& contact) {
  Append(items, contact.nContactId);
  Append(items, contact.strText1);
  Append(items, contact.strText2);
  Append(items, contact.listNumbers.size());
  for (const MWPTypeContactNumber& group : contact.listNumbers) {
    Append(items, group.nType);
    Append(items, group.vecValues.size());
    for (const std::string& value : group.vecValues) {
      Append(items, value);
    }
  }
}

void Append(SegmentItems& items, const MWPTypeCallLog& log) {
  for (const int value : {log.nLogId, log.nValue1, log.nValue2}) {
    Append(items, value);
  }
  for (const std::string& text : {log.strText1, log.strText2, log.strText3, log.strText4, log.strText5}) {
    Append(items, text);
  }
}

void Append(SegmentItems& items, const MWPTypeCallSlot& slot) {
  for (const int value : {slot.nValue1, slot.nValue2, slot.nValue3, slot.nValue4, slot.nValue5}) {
    Append(items, value);
  }
  for (const std::string& text : {slot.strText1, slot.strText2, slot.strText3}) {
    Append(items, text);
  }
}

template <typename Record>
Bytes PackList(const std::list<Record>& records) {
  SegmentItems items;
  Append(items, records.size());
  for (const Record& record : records) {
    Append(items, record);
  }
  return items.Bytes();
}

}  // namespace

Bytes PackInteger(int value) { return SegmentItems().Int(value).Bytes(); }

Bytes Pack(const std::list<MWPTypeContact>& contacts) { return PackList(contacts); }

Bytes Pack(const std::list<MWPTypeCallLog>& logs) { return PackList(logs); }

Bytes Pack(const MWPTypeCallInfo& info) {
  SegmentItems items;
  Append(items, info.nCallCount);
  Append(items, info.callSlot1);
  Append(items, info.callSlot2);
  return items.Bytes();
}

}  // namespace bttest
