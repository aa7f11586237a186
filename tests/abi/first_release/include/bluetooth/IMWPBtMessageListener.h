#ifndef BLUETOOTH_IMWPBTMESSAGELISTENER_H
#define BLUETOOTH_IMWPBTMESSAGELISTENER_H

#include <string>

#include <bluetooth/IMWPBtListenerBase.h>
#include <bluetooth/MWPBtExport.h>
#include <bluetooth/MWPBtType.h>

/// Events of messages; the requests are in MWPBtMessage. Override what is needed: every method does nothing
/// by default. IMWPBtListenerBase describes when and on which thread they are called.
class MWP_BT_API IMWPBtMessageListener : public IMWPBtListenerBase {
 public:
  IMWPBtMessageListener();
  ~IMWPBtMessageListener() override;

  /// A download began, ended or failed.
  /// @param status the new status
  virtual void OnMessageDownloadStatus(MWPBtType::MsgLoadStatus status);
  /// Progress of a download, in messages.
  /// @param current messages that have come
  /// @param total messages in all
  virtual void OnMessageDownloadCountChanged(int current, int total);
  /// Something happened to the message with this handle.
  /// @param status what happened
  /// @param handle of the message
  virtual void OnMessageStatusNotify(MWPBtType::MsgStatus status, std::string handle);
  /// Outcome of a change of a message's properties.
  /// @param status the outcome
  virtual void OnMessageSetPropertyStatus(MWPBtType::SetMsgProStatus status);
};

#endif
