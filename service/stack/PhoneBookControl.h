#ifndef SERVICE_STACK_PHONEBOOKCONTROL_H
#define SERVICE_STACK_PHONEBOOKCONTROL_H

#include <optional>
#include <vector>

#include "service/stack/StackTypes.h"

namespace btservice {

/// The downloaded phone book and call logs of the connected phone.
class PhoneBookControl {
 public:
  virtual ~PhoneBookControl() = default;

  virtual bool StartDownload(PbapType type) = 0;
  virtual bool StopDownload() = 0;

  virtual const std::vector<Contact>& Contacts() const = 0;
  virtual std::vector<Contact> Favorites() const = 0;
  virtual bool DeleteContact(int id) = 0;
  virtual bool ClearContacts() = 0;
  virtual bool SetFavorite(int contactId, bool favorite) = 0;

  /// The latest first.
  virtual std::vector<CallLogEntry> CallLogs(CallLogType type) const = 0;
  virtual bool DeleteCallLog(int id) = 0;
  virtual bool ClearCallLogs(CallLogType type) = 0;
};

}  // namespace btservice

#endif
