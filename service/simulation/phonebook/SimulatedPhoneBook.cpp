#include "service/simulation/phonebook/SimulatedPhoneBook.h"

#include "service/phonebook/Contacts.h"

namespace btservice {
namespace {

std::string Format(std::time_t time, const char* format) {
  std::tm parts{};
  localtime_r(&time, &parts);
  char text[32];
  return std::string(text, std::strftime(text, sizeof(text), format, &parts));
}

}  // namespace

SimulatedPhoneBook::SimulatedPhoneBook(ModelContext& context, std::time_t startTime, Settings& settings,
                                       Connections& connections, CallTable& calls)
    : m_context(context),
      m_startTime(startTime),
      m_calls(calls),
      m_download(context, settings, connections, m_store),
      m_edits(context.scheduler) {
  connections.onChanged.Add([this](RemoteDevice&, ProfileId profile, ConnStatus) {
    if (profile == BT_PROFILE_HFP) {
      Forget();
    }
  });
  calls.onEnded.Add([this](const Call& call) { Log(call); });
}

/// What was downloaded belongs to the phone that was in use so far.
void SimulatedPhoneBook::Forget() {
  m_download.PhoneLost();
  m_edits.CancelAll();
  const bool hadLogs = !m_store.Logs(CALL_LOG_ALL).empty();
  m_store.Clear();
  if (hadLogs) {
    m_context.Report(CallLogsChanged{});
  }
}

bool SimulatedPhoneBook::DeleteContact(int id) {
  if (!m_store.Remove(id)) {
    return false;
  }
  m_edits.After(m_context.delays.phoneBookEdit, [this] { m_context.Report(ContactsDeleted{true}); });
  return true;
}

bool SimulatedPhoneBook::ClearContacts() {
  m_store.ClearContacts();
  m_edits.After(m_context.delays.phoneBookEdit, [this] { m_context.Report(ContactsDeleted{true}); });
  return true;
}

bool SimulatedPhoneBook::SetFavorite(int contactId, bool favorite) {
  if (!m_store.SetFavorite(contactId, favorite)) {
    return false;
  }
  m_edits.After(m_context.delays.phoneBookEdit, [this, contactId, favorite] {
    m_context.Report(FavoriteChanged{contactId, favorite});
  });
  return true;
}

bool SimulatedPhoneBook::DeleteCallLog(int id) {
  if (!m_store.RemoveLog(id)) {
    return false;
  }
  m_edits.After(m_context.delays.phoneBookEdit, [this] { m_context.Report(CallLogsChanged{}); });
  return true;
}

bool SimulatedPhoneBook::ClearCallLogs(CallLogType type) {
  if (type < CALL_LOG_ALL || type > CALL_LOG_MISSED) {
    return false;
  }
  m_store.ClearLogs(type);
  m_edits.After(m_context.delays.phoneBookEdit, [this] { m_context.Report(CallLogsChanged{}); });
  return true;
}

std::string SimulatedPhoneBook::NameOf(const std::string& number) const {
  const Contact* const contact = m_store.FindByNumber(number);
  return contact != nullptr ? FullName(*contact) : std::string();
}

void SimulatedPhoneBook::Log(const Call& call) {
  CallLogEntry entry;
  if (!call.incoming) {
    entry.type = CALL_LOG_OUTGOING;
  } else {
    entry.type = call.answered || call.rejectedHere ? CALL_LOG_INCOMING : CALL_LOG_MISSED;
  }
  const std::time_t begin =
      m_startTime + std::chrono::duration_cast<std::chrono::seconds>(call.since).count();
  entry.number = call.number;
  entry.name = NameOf(call.number);
  entry.date = Format(begin, "%Y-%m-%d");
  entry.time = Format(begin, "%H:%M:%S");
  entry.seconds = m_calls.Seconds(call);
  std::vector<CallLogEntry>& logsOfPhone = call.device->data.phone.callLogs;
  logsOfPhone.push_back(entry);
  KeepLatest(logsOfPhone);
  m_store.Add(entry);
  m_edits.After(m_context.delays.phoneBookEdit, [this] { m_context.Report(CallLogsChanged{}); });
}

}  // namespace btservice
