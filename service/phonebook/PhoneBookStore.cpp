#include "service/phonebook/PhoneBookStore.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <tuple>
#include <utility>

#include "service/phonebook/Contacts.h"

namespace btservice {
namespace {

constexpr std::size_t kComparedDigits = 9;
constexpr std::size_t kMostLogs = 500;

/// What two ways of writing a number have in common: its last digits.
std::string Key(const std::string& number) {
  std::string digits;
  std::copy_if(number.begin(), number.end(), std::back_inserter(digits),
               [](unsigned char letter) { return std::isdigit(letter) != 0; });
  return digits.size() > kComparedDigits ? digits.substr(digits.size() - kComparedDigits) : digits;
}

bool IsOfType(const CallLogEntry& entry, CallLogType type) {
  return type == CALL_LOG_ALL || entry.type == type;
}

}  // namespace

void KeepLatest(std::vector<CallLogEntry>& logs) {
  if (logs.size() > kMostLogs) {
    logs.erase(logs.begin(), logs.end() - kMostLogs);
  }
}

void PhoneBookStore::Clear() { *this = PhoneBookStore(); }

void PhoneBookStore::Add(const Contact& contact) {
  m_contacts.push_back(contact);
  m_byNumberIsOld = true;
}

void PhoneBookStore::ClearContacts() {
  m_contacts.clear();
  m_byNumberIsOld = true;
}

bool PhoneBookStore::Remove(int contactId) {
  const auto place = std::find_if(m_contacts.begin(), m_contacts.end(),
                                  [&](const Contact& contact) { return contact.id == contactId; });
  if (place == m_contacts.end()) {
    return false;
  }
  m_contacts.erase(place);
  m_byNumberIsOld = true;
  m_favorites.erase(contactId);
  return true;
}

const Contact* PhoneBookStore::FindByNumber(const std::string& number) const {
  if (std::exchange(m_byNumberIsOld, false)) {
    IndexNumbers();
  }
  const auto entry = m_byNumber.find(Key(number));
  return entry != m_byNumber.end() ? &m_contacts[entry->second] : nullptr;
}

void PhoneBookStore::IndexNumbers() const {
  m_byNumber.clear();
  for (std::size_t place = 0; place < m_contacts.size(); ++place) {
    for (const ContactNumbers& group : m_contacts[place].numbers) {
      for (const std::string& number : group.numbers) {
        m_byNumber.emplace(Key(number), place);  // the first with a number has it
      }
    }
  }
  m_byNumber.erase("");
}

bool PhoneBookStore::SetFavorite(int contactId, bool favorite) {
  const bool exists = std::any_of(m_contacts.begin(), m_contacts.end(),
                                  [&](const Contact& contact) { return contact.id == contactId; });
  if (exists && favorite) {
    m_favorites.insert(contactId);
  } else if (exists) {
    m_favorites.erase(contactId);
  }
  return exists;
}

std::vector<Contact> PhoneBookStore::Favorites() const {
  std::vector<Contact> favorites;
  std::copy_if(m_contacts.begin(), m_contacts.end(), std::back_inserter(favorites),
               [this](const Contact& contact) { return m_favorites.count(contact.id) != 0; });
  return favorites;
}

void PhoneBookStore::Add(const CallLogEntry& entry) {
  m_logs.push_back(entry);
  m_logs.back().id = ++m_lastLogId;
  KeepLatest(m_logs);
}

bool PhoneBookStore::RemoveLog(int id) {
  const auto place =
      std::find_if(m_logs.begin(), m_logs.end(), [&](const CallLogEntry& entry) { return entry.id == id; });
  if (place == m_logs.end()) {
    return false;
  }
  m_logs.erase(place);
  return true;
}

void PhoneBookStore::ClearLogs(CallLogType type) {
  m_logs.erase(std::remove_if(m_logs.begin(), m_logs.end(),
                              [&](const CallLogEntry& entry) { return IsOfType(entry, type); }),
               m_logs.end());
}

std::vector<CallLogEntry> PhoneBookStore::Logs(CallLogType type) const {
  std::map<std::string, const Contact*> known;
  std::vector<CallLogEntry> logs;
  for (const CallLogEntry& entry : m_logs) {
    if (!IsOfType(entry, type)) {
      continue;
    }
    logs.push_back(entry);
    const auto [place, isNew] = known.emplace(entry.number, nullptr);
    if (isNew) {
      place->second = FindByNumber(entry.number);
    }
    if (place->second != nullptr) {
      logs.back().contactId = place->second->id;
      logs.back().name = FullName(*place->second);
    }
  }
  std::stable_sort(logs.begin(), logs.end(), [](const CallLogEntry& left, const CallLogEntry& right) {
    return std::tie(left.date, left.time) > std::tie(right.date, right.time);
  });
  return logs;
}

}  // namespace btservice
