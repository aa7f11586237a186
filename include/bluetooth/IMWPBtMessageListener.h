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
  virtual void OnMessageDownloadStatus(MWPBtType::MsgLoadStatus status);
  /// Progress of a download, in messages.
  virtual void OnMessageDownloadCountChanged(int current, int total);
  /// Something happened to the message with this handle.
  virtual void OnMessageStatusNotify(MWPBtType::MsgStatus status, std::string handle);
  /// Outcome of a change of a message's properties.
  virtual void OnMessageSetPropertyStatus(MWPBtType::SetMsgProStatus status);
};

#endif
