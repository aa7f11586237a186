#ifndef BLUETOOTH_MWPBTMESSAGE_H
#define BLUETOOTH_MWPBTMESSAGE_H

#include <list>
#include <string>

#include <bluetooth/MWPBtExport.h>
#include <bluetooth/MWPBtRecords.h>
#include <bluetooth/MWPBtType.h>

/// Messages of the phone. The service offers none yet: no method makes a service call, and each answers the
/// value it names. The events are in IMWPBtMessageListener.
///
/// The object carries no state: construct one wherever it is needed. It answers the same whether or not the
/// library is initialised.
class MWP_BT_API MWPBtMessage {
 public:
  MWPBtMessage();
  ~MWPBtMessage();

  /// Answers 0.
  int StartMessageDownload();
  /// Answers 0.
  int StopDownloadMessage();
  /// Answers 8, BT_MSG_LOAD_NOT_SUPPORTED.
  int GetMessageLoadStatus();
  /// Answers 0; nothing is sent.
  int SendMessage(const std::string& number, const std::string& text);
  /// Answers 0.
  int SetMessageReaded(const std::string& handle);
  /// Answers a default record.
  MWPTypeMessage GetMessageByIndex(MWPBtMessageType type, int index);
  /// Answers a default record.
  MWPTypeMessage GetMessageByHandle(const std::string& handle);
  /// Answers 0; the list stays as it is.
  int GetMessageList(MWPBtMessageType type, std::list<MWPTypeMessage>& messages);
  /// Answers 0.
  int DeleteMessageByHandle(const std::string& handle, int type);
  /// Answers 0.
  int ClearMessage(MWPBtMessageType type);
  /// Answers 0.
  int GetMessageCount(MWPBtMessageType type, int readState);
  /// Answers 0.
  int GetMessageCount(MWPBtMessageType type);
};

#endif
