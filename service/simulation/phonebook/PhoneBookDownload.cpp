#include "service/simulation/phonebook/PhoneBookDownload.h"

#include <algorithm>
#include <utility>

namespace btservice {
namespace {

/// SIM contacts get ids of their own beside those of the phone's memory.
constexpr int kFirstSimId = 100000;

std::deque<PbapType> PartsOf(PbapType type) {
  switch (type) {
    case BT_PBAP_ALL:
      return {BT_PBAP_PHONE_BOOK, BT_PBAP_SIM_PHONE_BOOK, BT_PBAP_COMBINED_HISTORY};
    case BT_PBAP_PHONE_BOOK:
    case BT_PBAP_INCOMING_HISTORY:
    case BT_PBAP_OUTGOING_HISTORY:
    case BT_PBAP_MISSED_HISTORY:
    case BT_PBAP_COMBINED_HISTORY:
    case BT_PBAP_SIM_PHONE_BOOK:
      return {type};
  }
  return {};
}

CallLogType LogTypeOf(PbapType part) {
  switch (part) {
    case BT_PBAP_INCOMING_HISTORY:
      return CALL_LOG_INCOMING;
    case BT_PBAP_OUTGOING_HISTORY:
      return CALL_LOG_OUTGOING;
    case BT_PBAP_MISSED_HISTORY:
      return CALL_LOG_MISSED;
    default:
      return CALL_LOG_ALL;
  }
}

bool IsLog(PbapType part) { return part != BT_PBAP_PHONE_BOOK && part != BT_PBAP_SIM_PHONE_BOOK; }

std::vector<CallLogEntry> LogsOf(const PhoneData& phone, PbapType part) {
  const CallLogType type = LogTypeOf(part);
  std::vector<CallLogEntry> logs;
  std::copy_if(phone.callLogs.begin(), phone.callLogs.end(), std::back_inserter(logs),
               [type](const CallLogEntry& entry) { return type == CALL_LOG_ALL || entry.type == type; });
  return logs;
}

std::vector<Contact> ContactsOf(const PhoneData& phone, PbapType part) {
  if (part == BT_PBAP_PHONE_BOOK) {
    return phone.contacts;
  }
  std::vector<Contact> contacts = phone.simContacts;
  for (Contact& contact : contacts) {
    contact.id += kFirstSimId;
  }
  return contacts;
}

}  // namespace

PhoneBookDownload::PhoneBookDownload(ModelContext& context, Settings& settings, Connections& connections,
                                     PhoneBookStore& store)
    : m_context(context),
      m_settings(settings),
      m_connections(connections),
      m_store(store),
      m_timer(context.scheduler) {
  connections.onChanged.Add([this](RemoteDevice& device, ProfileId profile, ConnStatus status) {
    if (profile != BT_PROFILE_PBAP) {
      return;
    }
    if (status != BT_CONN_CONNECTED) {
      if (m_phone == &device) {
        PhoneLost();
      }
    } else if (m_settings.IsOn(BT_CAP_AUTO_DOWNLOAD)) {
      Start(BT_PBAP_ALL);
    }
  });
}

bool PhoneBookDownload::Start(PbapType type) {
  RemoteDevice* const phone = m_connections.Active(BT_PROFILE_PBAP);
  std::deque<PbapType> parts = PartsOf(type);
  if (m_phone != nullptr || phone == nullptr || parts.empty()) {
    return false;
  }
  m_phone = phone;
  m_type = type;
  m_partBegun = false;
  m_parts = std::move(parts);
  Report();
  m_timer.Start(m_context.delays.downloadStart, [this] { Begin(); });
  return true;
}

bool PhoneBookDownload::Stop() {
  if (m_phone == nullptr) {
    return false;
  }
  End(BT_PBAP_STOPPED);
  return true;
}

void PhoneBookDownload::PhoneLost() {
  if (m_phone != nullptr) {
    End(BT_PBAP_FAILED);
  }
}

void PhoneBookDownload::Begin() {
  if (!m_phone->data.phone.sharesPhoneBook) {
    End(BT_PBAP_REFUSED);
    return;
  }
  BeginPart();
}

void PhoneBookDownload::BeginPart() {
  const PbapType part = m_parts.front();
  m_partBegun = true;
  m_done = 0;
  if (IsLog(part)) {
    m_logs = LogsOf(m_phone->data.phone, part);
    m_store.ClearLogs(LogTypeOf(part));
  } else {
    m_contacts = ContactsOf(m_phone->data.phone, part);
    if (part == BT_PBAP_PHONE_BOOK || m_type != BT_PBAP_ALL) {
      m_store.ClearContacts();
    }
  }
  Report();
  m_timer.Start(m_context.delays.downloadStep, [this] { Step(); });
}

void PhoneBookDownload::Report() const {
  if (m_phone == nullptr) {
    return;
  }
  if (!m_partBegun) {
    m_context.Report(DownloadStatusChanged{BT_PBAP_CONNECTING, m_type});
    return;
  }
  m_context.Report(DownloadStatusChanged{BT_PBAP_DOWNLOADING, m_parts.front()});
  m_context.Report(DownloadProgress{m_done, TotalOfPart()});
}

void PhoneBookDownload::Step() {
  const int total = TotalOfPart();
  const int end = std::min(total, m_done + std::max(1, m_context.delays.downloadStepSize));
  while (m_done < end) {
    Take(m_done++);
  }
  m_context.Report(DownloadProgress{m_done, total});
  if (m_done < total) {
    m_timer.Start(m_context.delays.downloadStep, [this] { Step(); });
  } else {
    FinishPart();
  }
}

void PhoneBookDownload::FinishPart() {
  const PbapType part = m_parts.front();
  m_parts.pop_front();
  if (IsLog(part)) {
    m_context.Report(CallLogsChanged{});
  }
  if (m_parts.empty()) {
    End(BT_PBAP_COMPLETED);
  } else {
    m_context.Report(DownloadStatusChanged{BT_PBAP_COMPLETED, part});
    BeginPart();
  }
}

void PhoneBookDownload::End(PbapStatus status) {
  m_timer.Stop();
  m_phone = nullptr;
  m_parts.clear();
  m_contacts = std::vector<Contact>();
  m_logs = std::vector<CallLogEntry>();
  m_context.Report(DownloadStatusChanged{status, m_type});
}

int PhoneBookDownload::TotalOfPart() const {
  return static_cast<int>(IsLog(m_parts.front()) ? m_logs.size() : m_contacts.size());
}

void PhoneBookDownload::Take(int index) {
  if (IsLog(m_parts.front())) {
    m_store.Add(m_logs[index]);
  } else {
    m_store.Add(m_contacts[index]);
  }
}

}  // namespace btservice
