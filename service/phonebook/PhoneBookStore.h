#ifndef SERVICE_PHONEBOOK_PHONEBOOKSTORE_H
#define SERVICE_PHONEBOOK_PHONEBOOKSTORE_H

#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "service/stack/StackTypes.h"

namespace btservice {

/// The downloaded phone book and call logs. Only keeps them, and reports nothing.
class PhoneBookStore {
 public:
  /// Forgets contacts, favourites and call logs.
  void Clear();
  /// The contact has an id of its own already.

  void Add(const Contact& contact);
  /// Forgets the contacts. A favourite that comes back with its id is one again.
  void ClearContacts();
  /// False if there is no such contact.
  bool Remove(int contactId);
  const std::vector<Contact>& Contacts() const { return m_contacts; }
  /// Null if no contact has the number. Digits decide: neither blanks nor a leading country code matter.
  const Contact* FindByNumber(const std::string& number) const;

  /// False if there is no such contact.
  bool SetFavorite(int contactId, bool favorite);
  /// In the order of the phone book.
  std::vector<Contact> Favorites() const;

  /// Gives the entry an id of its own. When there are too many the oldest goes.
  void Add(const CallLogEntry& entry);
  /// False if there is no such entry.
  bool RemoveLog(int id);
  void ClearLogs(CallLogType type);
  /// The latest first, with the contacts that their numbers belong to by now.
  std::vector<CallLogEntry> Logs(CallLogType type) const;

 private:
  void IndexNumbers() const;

  std::vector<Contact> m_contacts;
  /// Places in m_contacts by what their numbers have in common; made when it is needed.
  mutable std::unordered_map<std::string, std::size_t> m_byNumber;
  mutable bool m_byNumberIsOld = false;
  std::set<int> m_favorites;
  std::vector<CallLogEntry> m_logs;
  int m_lastLogId = 0;
};

/// As many as a phone keeps; older ones go.
void KeepLatest(std::vector<CallLogEntry>& logs);

}  // namespace btservice

#endif
