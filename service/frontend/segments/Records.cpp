#include "service/frontend/segments/Records.h"

#include <cstring>

#include "service/frontend/segments/TextCut.h"

namespace btservice {
namespace {

constexpr std::size_t kLongestCallText = 255;  // so that both slots always fit

/// The call log that an entry belongs to, as the phone numbers its repositories.
PbapType Repository(CallLogType type) {
  switch (type) {
    case CALL_LOG_INCOMING:
      return BT_PBAP_INCOMING_HISTORY;
    case CALL_LOG_OUTGOING:
      return BT_PBAP_OUTGOING_HISTORY;
    case CALL_LOG_MISSED:
      return BT_PBAP_MISSED_HISTORY;
    case CALL_LOG_ALL:
      break;
  }
  return BT_PBAP_ALL;
}

MWPTypeCallSlot SlotOf(const CallInfo& call) {
  MWPTypeCallSlot slot;
  slot.nValue1 = call.id;
  slot.nValue2 = call.status;
  slot.nValue3 = call.incoming ? 1 : 0;
  slot.nValue4 = call.multiparty ? 1 : 0;  // part of a conference
  slot.nValue5 = call.seconds;             // since it was answered
  slot.strText1 = CutText(call.number, kLongestCallText);
  slot.strText2 = CutText(call.name, kLongestCallText);
  slot.strText3 = CutText(call.deviceAddress, kLongestCallText);
  return slot;
}

/// Returns where the seconds lie.
std::size_t PackSlot(ListWriter& writer, const CallInfo& call) {
  const std::size_t seconds = writer.Offset() + RecordItems<MWPTypeCallSlot>::kOffsetOfValue5;
  PutRecord(writer, SlotOf(call));
  return seconds;
}

}  // namespace

void PackRecord(ListWriter& writer, const DeviceInfo& device) {
  MWPTypeDevice record;
  record.strAddr = device.address;
  record.strName = device.name;
  record.eProfileId = device.connected;
  record.eEnableProfileId = device.enabled;
  record.eConnectStatus = device.status;
  record.eSupportType = device.support;
  PutRecord(writer, record);
}

void PackRecord(ListWriter& writer, const Contact& contact) {
  MWPTypeContact record;
  record.nContactId = contact.id;
  record.strText1 = contact.firstName;
  record.strText2 = contact.familyName;
  for (const ContactNumbers& group : contact.numbers) {
    record.listNumbers.push_back({group.type, group.numbers});
  }
  PutRecord(writer, record);
}

void PackRecord(ListWriter& writer, const CallLogEntry& entry) {
  MWPTypeCallLog record;
  record.nLogId = entry.id;
  record.nValue1 = entry.contactId;  // -1 if the number is in no contact
  record.nValue2 = Repository(entry.type);
  record.strText1 = entry.name;
  record.strText2 = entry.number;
  record.strText3 = entry.date;
  record.strText4 = entry.time;
  record.strText5 = std::to_string(entry.seconds);  // how long was spoken
  PutRecord(writer, record);
}

CallInfo CallOf(const MWPTypeCallSlot& slot) {
  CallInfo call;
  call.id = slot.nValue1;
  call.status = static_cast<CallStatus>(slot.nValue2);
  call.incoming = slot.nValue3 != 0;
  call.multiparty = slot.nValue4 != 0;
  call.seconds = slot.nValue5;
  call.number = slot.strText1;
  call.name = slot.strText2;
  call.deviceAddress = slot.strText3;
  return call;
}

PackedCallTable PackCallTable(const std::vector<CallInfo>& calls, std::size_t capacity) {
  PackedCallTable table;
  ListWriter writer(capacity);
  for (std::size_t slot = 0; slot < table.seconds.size(); ++slot) {
    table.seconds[slot] = PackSlot(writer, slot < calls.size() ? calls[slot] : CallInfo());
    writer.EndRecord();
  }
  table.contents = writer.Contents();
  const auto count = static_cast<std::int32_t>(calls.size());
  std::memcpy(table.contents.data(), &count, sizeof(count));
  return table;
}

}  // namespace btservice
