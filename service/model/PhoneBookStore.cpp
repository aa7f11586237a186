#include "service/model/PhoneBookStore.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <tuple>

namespace btservice {
namespace {

constexpr std::size_t kComparedDigits = 9;

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

std::string FullName(const Contact& contact) {
  const bool both = !contact.firstName.empty() && !contact.familyName.empty();
  return contact.firstName + (both ? " " : "") + contact.familyName;
}

void PhoneBookStore::Clear() { *this = PhoneBookStore(); }

void PhoneBookStore::Add(const Contact& contact) { m_contacts.push_back(contact); }

void PhoneBookStore::ClearContacts() { m_contacts.clear(); }

bool PhoneBookStore::Remove(int contactId) {
  const auto place = std::find_if(m_contacts.begin(), m_contacts.end(),
                                  [&](const Contact& contact) { return contact.id == contactId; });
  if (place == m_contacts.end()) {
    return false;
  }
  m_contacts.erase(place);
  m_favorites.erase(contactId);
  return true;
}

const Contact* PhoneBookStore::FindByNumber(const std::string& number) const {
  const std::string key = Key(number);
  if (key.empty()) {
    return nullptr;
  }
  for (const Contact& contact : m_contacts) {
    for (const ContactNumbers& group : contact.numbers) {
      for (const std::string& one : group.numbers) {
        if (Key(one) == key) {
          return &contact;
        }
      }
    }
  }
  return nullptr;
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
