#include "service/frontend/segments/Publisher.h"

#include <algorithm>
#include <atomic>
#include <cstring>

#define MWP_LOG_SOURCE "service/frontend/segments/Publisher"
#include <mwp/MWPLog.h>

#include "service/frontend/segments/Records.h"

namespace btservice {

Publisher::Publisher(SegmentOwner& segments, BluetoothStack& stack)
    : m_segments(segments), m_stack(stack), m_callTable(segments) {}

void Publisher::PublishAll() {
  for (const SegmentEntry& entry : kSegmentCatalogue) {
    if (entry.id != SH_BT_PARAMETER) {
      Clear(entry);
    }
  }
  PublishPairedDevices();
  PublishCalls();
}

void Publisher::PublishPairedDevices() { PublishList(SH_PAIRED_LIST, m_stack.Devices().PairedDevices()); }

void Publisher::PublishCalls() { m_callTable.Publish(m_stack.Calls().Calls()); }

bool Publisher::PublishContacts() { return PublishList(SH_CONTACT_LIST, m_stack.PhoneBook().Contacts()); }

bool Publisher::PublishFavorites() {
  return PublishList(SH_FAV_CONTACT_LIST, m_stack.PhoneBook().Favorites());
}

bool Publisher::PublishCallLogs(CallLogType type) {
  return PublishList(SH_CALL_LOG_LIST, m_stack.PhoneBook().CallLogs(type));
}

bool Publisher::PublishContact(int index) {
  const std::vector<Contact>& contacts = m_stack.PhoneBook().Contacts();
  std::vector<Contact> found;
  if (index >= 0 && static_cast<std::size_t>(index) < contacts.size()) {
    found.push_back(contacts[index]);
  }
  return PublishList(SH_CONTACT_INFO, found);
}

bool Publisher::PublishCallLog(int id) {
  std::vector<CallLogEntry> found = m_stack.PhoneBook().CallLogs(CALL_LOG_ALL);
  found.erase(std::remove_if(found.begin(), found.end(), [id](const auto& entry) { return entry.id != id; }),
              found.end());
  return PublishList(SH_CALL_LOG_INFO, found);
}

void Publisher::OnStackEvent(const StackEvent& event) {
  if (std::holds_alternative<PairedDevicesChanged>(event)) {
    PublishPairedDevices();
  } else if (std::holds_alternative<CallChanged>(event) || std::holds_alternative<CallsChanged>(event) ||
             std::holds_alternative<CallTimeChanged>(event)) {
    PublishCalls();
  }
}

template <typename Record>
bool Publisher::PublishList(ShareMemID id, const std::vector<Record>& records) {
  const SegmentEntry& entry = kSegmentCatalogue[id];
  ListWriter writer = PackList(records, entry.size);
  if (static_cast<std::size_t>(writer.Count()) < records.size()) {
    MWP_LOG(MWP_LOG_WARNING, "%s holds %d of %zu records: no more fit into its %zu bytes", entry.name,
            writer.Count(), records.size(), entry.size);
  }
  return Write(id, writer.Contents());
}

/// What a service before this one has published is not to be found behind the lists of this one.
void Publisher::Clear(const SegmentEntry& entry) {
  auto* const memory = static_cast<std::uint8_t*>(m_segments.Attach(entry.id));
  if (memory != nullptr && !m_segments.HasMade(entry.id)) {
    std::memset(memory, 0, sizeof(std::int32_t));
    std::atomic_thread_fence(std::memory_order_seq_cst);
    std::memset(memory, 0, entry.size);
  }
}

bool Publisher::Write(ShareMemID id, const Bytes& contents) {
  auto* const memory = static_cast<std::uint8_t*>(m_segments.Attach(id));
  if (memory == nullptr) {
    return false;
  }
  // The count comes last: a reader that comes at the wrong moment sees an empty list, not a mixed one.
  constexpr std::size_t countSize = sizeof(std::int32_t);
  std::memset(memory, 0, countSize);
  std::atomic_thread_fence(std::memory_order_seq_cst);
  std::memcpy(memory + countSize, contents.data() + countSize, contents.size() - countSize);
  std::size_t& used = m_used[id];
  if (used > contents.size()) {
    std::memset(memory + contents.size(), 0, used - contents.size());
  }
  used = contents.size();
  std::atomic_thread_fence(std::memory_order_seq_cst);
  std::memcpy(memory, contents.data(), countSize);
  return true;
}

}  // namespace btservice
