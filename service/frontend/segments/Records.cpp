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
  slot.*CallFields::kId = call.id;
  slot.*CallFields::kStatus = call.status;
  slot.*CallFields::kIncoming = call.incoming ? 1 : 0;
  slot.*CallFields::kConference = call.multiparty ? 1 : 0;
  slot.*CallFields::kSeconds = call.seconds;
  slot.*CallFields::kNumber = CutText(call.number, kLongestCallText);
  slot.*CallFields::kName = CutText(call.name, kLongestCallText);
  slot.*CallFields::kPhone = CutText(call.deviceAddress, kLongestCallText);
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
  record.*ContactFields::kFirstName = contact.firstName;
  record.*ContactFields::kFamilyName = contact.familyName;
  for (const ContactNumbers& group : contact.numbers) {
    record.listNumbers.push_back({group.type, group.numbers});
  }
  PutRecord(writer, record);
}

void PackRecord(ListWriter& writer, const CallLogEntry& entry) {
  MWPTypeCallLog record;
  record.nLogId = entry.id;
  record.*CallLogFields::kContactId = entry.contactId;
  record.*CallLogFields::kRepository = Repository(entry.type);
  record.*CallLogFields::kName = entry.name;
  record.*CallLogFields::kNumber = entry.number;
  record.*CallLogFields::kDate = entry.date;
  record.*CallLogFields::kTime = entry.time;
  record.*CallLogFields::kSeconds = std::to_string(entry.seconds);
  PutRecord(writer, record);
}

CallInfo CallOf(const MWPTypeCallSlot& slot) {
  CallInfo call;
  call.id = slot.*CallFields::kId;
  call.status = static_cast<CallStatus>(slot.*CallFields::kStatus);
  call.incoming = slot.*CallFields::kIncoming != 0;
  call.multiparty = slot.*CallFields::kConference != 0;
  call.seconds = slot.*CallFields::kSeconds;
  call.number = slot.*CallFields::kNumber;
  call.name = slot.*CallFields::kName;
  call.deviceAddress = slot.*CallFields::kPhone;
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
