#ifndef SERVICE_STACK_PHONEBOOKCONTROL_H
#define SERVICE_STACK_PHONEBOOKCONTROL_H

#include <optional>
#include <vector>

#include "service/stack/StackTypes.h"

namespace btservice {

/// The downloaded phone book and call logs of the connected phone. What holds for all requests is said at
/// BluetoothStack.
class PhoneBookControl {
 public:
  virtual ~PhoneBookControl() = default;

  /// Refused unless a phone is connected for its phone book, and while a download runs. DownloadStatusChanged
  /// and DownloadProgress follow.
  virtual bool StartDownload(PbapType /*type*/) { return false; }
  /// Breaks off the download; what has arrived stays. Refused if none runs.
  virtual bool StopDownload() { return false; }

  /// The reference holds until something is changed or downloaded.
  virtual const std::vector<Contact>& Contacts() const {
    static const std::vector<Contact> none;
    return none;
  }
  virtual std::vector<Contact> Favorites() const { return {}; }
  /// Refused if there is no such contact. ContactsDeleted follows. The phone keeps what is deleted here.
  virtual bool DeleteContact(int /*id*/) { return false; }
  /// Deletes all contacts, as above.
  virtual bool ClearContacts() { return false; }
  /// FavoriteChanged follows. Refused if there is no such contact.
  virtual bool SetFavorite(int /*contactId*/, bool /*favorite*/) { return false; }

  /// The latest first.
  virtual std::vector<CallLogEntry> CallLogs(CallLogType /*type*/) const { return {}; }
  /// Deletes one entry, or all of a type. CallLogsChanged follows. Refused if there is no such entry. The
  /// phone keeps its own.
  virtual bool DeleteCallLog(int /*id*/) { return false; }
  virtual bool ClearCallLogs(CallLogType /*type*/) { return false; }
};

}  // namespace btservice

#endif
