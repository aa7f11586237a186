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
/// call of its own name unless said otherwise; a failed call is logged and answered with 0. Results named
/// "accepted" are non-zero if the service took the request on: its outcome arrives as an event.
class MWP_BT_API MWPBtPbap {
 public:
  MWPBtPbap();
  ~MWPBtPbap();

  /// Begins a download. Accepted; OnPBDownloadStatus and OnPbDownloadCountChanged follow.
  int StartPhoneBookDownload(MWPBtType::PbapType type);
  /// Stops it.
  int StopPhoneBookDownload();
  /// The phone book: asks the service to publish it, and reads it from shared memory. The list is replaced,
  /// unless the call fails, which leaves it as it was. Answers 1 in either case: look at the list. Nodes,
  /// strings and vectors that the list already holds are used again, so that fetching into the list of a
  /// previous call costs least.
  int GetContactList(std::list<MWPTypeContact>& contacts);
  /// The favourite contacts, as GetContactList.
  int GetFavContactList(std::list<MWPTypeContact>& contacts);
  /// Deletes a contact. Accepted; the outcome is OnDeletePhoneBookChanged.
  int DeleteContactById(int id);
  /// Number of contacts.
  int GetContactCount();
  /// Deletes all contacts. Accepted; the outcome is OnDeletePhoneBookChanged.
  int ClearContact();
  /// A call log: asks the service to publish it, and reads it from shared memory. The entries are appended to
  /// logs, which is not cleared first. Answers 1 if the call fails, and logs stays as it was.
  int GetCallLogList(CallLogType type, std::list<MWPTypeCallLog>& logs);
  /// Deletes an entry of the call logs.
  int DeleteCallLogById(int id);
  /// Number of entries in a call log.
  int GetCallLogCount(CallLogType type);
  /// Deletes a call log.
  int ClearCallLog(CallLogType type);
  /// Makes a contact a favourite (1) or not (0). Accepted; the outcome is OnContactFavoriteChanged.
  int SetContactFavorite(int contactId, int favorite);
};

#endif
