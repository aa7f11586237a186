#include "service/segments/Records.h"

#include <cstring>

#include "service/segments/TextCut.h"

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

/// Answers where the seconds lie.
std::size_t PackSlot(ListPacker& packer, const CallInfo& call) {
  packer
      .Put(call.id)           // nValue1
      .Put(call.status)       // nValue2
      .Put(call.incoming)     // nValue3: 1 incoming, 0 outgoing
      .Put(call.multiparty);  // nValue4: 1 part of a conference
  const std::size_t seconds = packer.Offset();
  packer.Put(call.seconds);  // nValue5: since it was answered
  for (const std::string* const text : {&call.number, &call.name, &call.deviceAddress}) {
    packer.Put(CutText(*text, kLongestCallText));  // strText1 to strText3
  }
  return seconds;
}

}  // namespace

void PackRecord(ListPacker& packer, const DeviceInfo& device) {
  packer.Put(device.connected).Put(device.enabled).Put(device.status).Put(device.support);
  packer.Put(device.address).Put(device.name);
}

void PackRecord(ListPacker& packer, const Contact& contact) {
  packer.Put(contact.id)
      .Put(contact.firstName)    // strText1
      .Put(contact.familyName);  // strText2
  packer.Put(static_cast<int>(contact.numbers.size()));
  for (const ContactNumbers& group : contact.numbers) {
    packer.Put(group.type).Put(static_cast<int>(group.numbers.size()));
    for (const std::string& number : group.numbers) {
      packer.Put(number);
    }
  }
}

void PackRecord(ListPacker& packer, const CallLogEntry& entry) {
  packer.Put(entry.id)
      .Put(entry.contactId)                 // nValue1: -1 if the number is in no contact
      .Put(Repository(entry.type))          // nValue2
      .Put(entry.name)                      // strText1
      .Put(entry.number)                    // strText2
      .Put(entry.date)                      // strText3
      .Put(entry.time)                      // strText4
      .Put(std::to_string(entry.seconds));  // strText5: how long was spoken
}

PackedCallTable PackCallTable(const std::vector<CallInfo>& calls, std::size_t capacity) {
  PackedCallTable table;
  ListPacker packer(capacity);
  for (std::size_t slot = 0; slot < table.seconds.size(); ++slot) {
    table.seconds[slot] = PackSlot(packer, slot < calls.size() ? calls[slot] : CallInfo());
    packer.EndRecord();
  }
  table.contents = packer.Contents();
  const auto count = static_cast<std::int32_t>(calls.size());
  std::memcpy(table.contents.data(), &count, sizeof(count));
  return table;
}

}  // namespace btservice
