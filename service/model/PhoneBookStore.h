#ifndef SERVICE_MODEL_PHONEBOOKSTORE_H
#define SERVICE_MODEL_PHONEBOOKSTORE_H

#include <set>
#include <string>
#include <vector>

#include "service/stack/StackTypes.h"

namespace btservice {

/// The downloaded phone book and call logs. Only keeps them, and reports nothing.
class PhoneBookStore {
 public:
  void Clear();

  void Add(const Contact& contact);
  void ClearContacts();
  bool Remove(int contactId);
  const std::vector<Contact>& Contacts() const { return m_contacts; }
  /// Null if no contact has the number. Digits decide: neither blanks nor a leading country code matter.
  const Contact* FindByNumber(const std::string& number) const;

  /// False if there is no such contact.
  bool SetFavorite(int contactId, bool favorite);
  std::vector<Contact> Favorites() const;

  /// Gives the entry an id of its own.
  void Add(const CallLogEntry& entry);
  bool RemoveLog(int id);
  void ClearLogs(CallLogType type);
  /// The latest first, with the contacts that their numbers belong to by now.
  std::vector<CallLogEntry> Logs(CallLogType type) const;

 private:
  std::vector<Contact> m_contacts;
  std::set<int> m_favorites;
  std::vector<CallLogEntry> m_logs;
  int m_lastLogId = 0;
};

std::string FullName(const Contact& contact);

}  // namespace btservice

#endif
