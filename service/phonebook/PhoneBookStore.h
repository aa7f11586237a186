#ifndef SERVICE_PHONEBOOK_PHONEBOOKSTORE_H
#define SERVICE_PHONEBOOK_PHONEBOOKSTORE_H

#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "service/stack/StackTypes.h"

namespace btservice {

/// The downloaded phone book and call logs, for every stack. Only keeps them: whoever changes something has
/// to report it. In memory alone, and used on one thread.
class PhoneBookStore {
 public:
  /// Forgets contacts, favourites and call logs. The ids of call logs begin anew.
  void Clear();
  /// Adds a contact at the end. It has an id already, that no other contact here has. Nothing is limited: a
  /// stack takes no more than a segment holds, or lets the Publisher leave out the rest.
  void Add(const Contact& contact);
  /// Forgets the contacts. A favourite that comes back with its id is one again.
  void ClearContacts();
  /// False if there is no such contact.
  bool Remove(int contactId);
  /// In the order in which they were added. The reference holds as long as this, its items until something is
  /// changed.
  const std::vector<Contact>& Contacts() const { return m_contacts; }
  /// The first contact with a number; null if none has it. The last nine digits decide: neither blanks nor a
  /// leading country code matter. The first search after a change takes time that grows with the phone book.
  const Contact* FindByNumber(const std::string& number) const;

  /// False if there is no such contact.
  bool SetFavorite(int contactId, bool favorite);
  /// In the order of the phone book.
  std::vector<Contact> Favorites() const;

  /// Adds an entry as the latest, and gives it an id of its own. When there are too many the oldest goes.
  void Add(const CallLogEntry& entry);
  /// False if there is no such entry.
  bool RemoveLog(int id);
  /// Forgets all entries of a type; CALL_LOG_ALL: all entries.
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

/// Leaves as many as a phone keeps, 500: those at the beginning, the older ones, go.
void KeepLatest(std::vector<CallLogEntry>& logs);

}  // namespace btservice

#endif
