#ifndef BLUETOOTH_MWPBTPBAP_H
#define BLUETOOTH_MWPBTPBAP_H

#include <list>

#include <bluetooth/MWPBtExport.h>
#include <bluetooth/MWPBtRecords.h>
#include <bluetooth/MWPBtType.h>

/// Phone book and call logs. The events are in IMWPBtPbapListener.
///
/// The object carries no state: construct one wherever it is needed. Until MWP_CreateBlueTooth() has
/// succeeded, and after MWP_DestroyBlueTooth(), a method does nothing and answers 0. Every request blocks
/// until the service has answered (at most 25 seconds), may be made from any thread, and makes the service
/// call of its own name unless said otherwise; a failed call is logged and answered with 0. Where
/// "accepted" is written, a result that is not 0 means that the service accepted the request, and the outcome
/// arrives as an event.
///
/// The lists are the exception to "any thread". The service writes all call logs into one segment, and the
/// contacts into another, for all threads and processes; asking for a list and reading it are two steps, and
/// nothing is locked in between. If two ask at the same time, one may read what the other asked for: the
/// missed calls instead of all calls, or a list that is just being written. Fetch lists on one thread of the
/// application, and check the log each entry belongs to (btservice: MWPTypeCallLog::nValue2), since another
/// process may ask as well.
///
/// A list that does not fit into its segment is cut after the last whole record, and no event reports that:
/// of 40,000 contacts that btservice made up, 32,371 fitted. Compare the size of the list with
/// GetContactCount or GetCallLogCount, which answer the number of all.
class MWP_BT_API MWPBtPbap {
 public:
  MWPBtPbap();
  ~MWPBtPbap();

  /// Begins a download. Accepted; OnPBDownloadStatus and OnPbDownloadCountChanged follow.
  /// @param type what to download
  /// @return not 0 if the service accepted the request, else 0
  int StartPhoneBookDownload(MWPBtType::PbapType type);
  /// Stops the download.
  /// @return not 0 if the service accepted the request, else 0
  int StopPhoneBookDownload();
  /// The phone book: asks the service to publish it, and reads it from shared memory. The list is replaced,
  /// unless the call fails, which leaves it as it was: look at the list. Nodes, strings and vectors that the
  /// list already holds are used again, so fetching into the list of a previous call is cheapest.
  /// @param contacts receives the contacts, as copies
  /// @return 1, whatever the service answers; 0 only while the library is not started
  int GetContactList(std::list<MWPTypeContact>& contacts);
  /// The favourite contacts, as GetContactList.
  /// @param contacts receives the contacts, as copies
  /// @return 1, whatever the service answers; 0 only while the library is not started
  int GetFavContactList(std::list<MWPTypeContact>& contacts);
  /// Deletes a contact. Accepted; the outcome is OnDeletePhoneBookChanged.
  /// @param id MWPTypeContact::nContactId
  /// @return not 0 if the service accepted the request, else 0
  int DeleteContactById(int id);
  /// Number of contacts.
  /// @return the number; 0 as well if the call fails
  int GetContactCount();
  /// Deletes all contacts. Accepted; the outcome is OnDeletePhoneBookChanged.
  /// @return not 0 if the service accepted the request, else 0
  int ClearContact();
  /// A call log: asks the service to publish it, and reads it from shared memory, where by then another
  /// thread's or process's log may be (see above). The entries are appended to logs, which is not cleared
  /// first. Answers 1 if the call fails, and logs stays as it was.
  /// @param type which log
  /// @param logs what the entries are appended to, as copies
  /// @return the result of the service, which is 1 with btservice; 1 as well if the call failed
  int GetCallLogList(CallLogType type, std::list<MWPTypeCallLog>& logs);
  /// Deletes an entry of the call logs.
  /// @param id MWPTypeCallLog::nLogId
  /// @return not 0 if the service accepted the request, else 0
  int DeleteCallLogById(int id);
  /// Number of entries in a call log.
  /// @param type which log
  /// @return the number; 0 as well if the call fails
  int GetCallLogCount(CallLogType type);
  /// Deletes a call log.
  /// @param type which log
  /// @return not 0 if the service accepted the request, else 0
  int ClearCallLog(CallLogType type);
  /// Makes a contact a favourite (1) or not (0); only the lowest byte of favorite counts, so 256 is 0.
  /// Accepted; the outcome is OnContactFavoriteChanged.
  /// @param contactId MWPTypeContact::nContactId
  /// @param favorite 1 or 0
  /// @return not 0 if the service accepted the request, else 0
  int SetContactFavorite(int contactId, int favorite);
};

#endif
