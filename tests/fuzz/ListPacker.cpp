#include "fuzz/ListPacker.h"

#include <initializer_list>

namespace bttest {
namespace {

void Append(Bytes& bytes, int value) {
  const Bytes packed = PackInteger(value);
  bytes.insert(bytes.end(), packed.begin(), packed.end());
}

void Append(Bytes& bytes, std::size_t count) { Append(bytes, static_cast<int>(count)); }

void Append(Bytes& bytes, const std::string& text) {
  bytes.insert(bytes.end(), text.begin(), text.end());
  bytes.push_back(0);
}

void Append(Bytes& bytes, const MWPTypeContact& contact) {
  Append(bytes, contact.nContactId);
  Append(bytes, contact.strText1);
  Append(bytes, contact.strText2);
  Append(bytes, contact.listNumbers.size());
  for (const MWPTypeContactNumber& group : contact.listNumbers) {
    Append(bytes, group.nType);
    Append(bytes, group.vecValues.size());
    for (const std::string& value : group.vecValues) {
      Append(bytes, value);
    }
  }
}

void Append(Bytes& bytes, const MWPTypeCallLog& log) {
  for (const int value : {log.nLogId, log.nValue1, log.nValue2}) {
    Append(bytes, value);
  }
  for (const std::string& text : {log.strText1, log.strText2, log.strText3, log.strText4, log.strText5}) {
    Append(bytes, text);
  }
}

void Append(Bytes& bytes, const MWPTypeCallSlot& slot) {
  for (const int value : {slot.nValue1, slot.nValue2, slot.nValue3, slot.nValue4, slot.nValue5}) {
    Append(bytes, value);
  }
  for (const std::string& text : {slot.strText1, slot.strText2, slot.strText3}) {
    Append(bytes, text);
  }
}

template <typename Record>
Bytes PackList(const std::list<Record>& records) {
  Bytes bytes;
  Append(bytes, records.size());
  for (const Record& record : records) {
    Append(bytes, record);
  }
  return bytes;
}

}  // namespace

Bytes PackInteger(int value) {
  const auto bits = static_cast<unsigned>(value);
  Bytes bytes;
  for (int shift = 0; shift < 32; shift += 8) {
    bytes.push_back(static_cast<unsigned char>(bits >> shift));
  }
  return bytes;
}

Bytes Pack(const std::list<MWPTypeContact>& contacts) { return PackList(contacts); }

Bytes Pack(const std::list<MWPTypeCallLog>& logs) { return PackList(logs); }

Bytes Pack(const MWPTypeCallInfo& info) {
  Bytes bytes;
  Append(bytes, info.nCallCount);
  Append(bytes, info.callSlot1);
  Append(bytes, info.callSlot2);
  return bytes;
}

}  // namespace bttest
