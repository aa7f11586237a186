#ifndef BLUETOOTH_IMWPBTPBAPLISTENER_H
#define BLUETOOTH_IMWPBTPBAPLISTENER_H

#include <bluetooth/IMWPBtListenerBase.h>
#include <bluetooth/MWPBtExport.h>
#include <bluetooth/MWPBtType.h>

/// Events of the phone book and the call logs; the requests are in MWPBtPbap. Override what is needed: every
/// method does nothing by default. IMWPBtListenerBase describes when and on which thread they are called.
class MWP_BT_API IMWPBtPbapListener : public IMWPBtListenerBase {
 public:
  IMWPBtPbapListener();
  ~IMWPBtPbapListener() override;

  /// A download began, ended or failed.
  /// @param status the new status
  /// @param type what is downloaded
  virtual void OnPBDownloadStatus(MWPBtType::PbapStatus status, MWPBtType::PbapType type);
  /// Progress of a download, in entries.
  /// @param current entries that have come
  /// @param total entries in all
  virtual void OnPbDownloadCountChanged(int current, int total);
  /// The call logs changed: read them with MWPBtPbap::GetCallLogList.
  virtual void OnBtCallLogListChanged();
  /// Outcome (1 or 0) of a deletion in the phone book.
  /// @param success 1 for success, 0 for failure
  virtual void OnDeletePhoneBookChanged(int success);
  /// A contact became a favourite (1) or ceased to be one (0).
  /// @param contactId MWPTypeContact::nContactId
  /// @param favorite 1 or 0
  virtual void OnContactFavoriteChanged(int contactId, int favorite);
};

#endif
