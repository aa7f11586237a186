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
  /// @return 0
  int StartMessageDownload();
  /// Answers 0.
  /// @return 0
  int StopDownloadMessage();
  /// Answers 8, BT_MSG_LOAD_NOT_SUPPORTED.
  /// @return 8
  int GetMessageLoadStatus();
  /// Answers 0; nothing is sent.
  /// @param number is not looked at
  /// @param text is not looked at
  /// @return 0
  int SendMessage(const std::string& number, const std::string& text);
  /// Answers 0.
  /// @param handle is not looked at
  /// @return 0
  int SetMessageReaded(const std::string& handle);
  /// Answers a default record.
  /// @param type is not looked at
  /// @param index is not looked at
  /// @return a record as MWPTypeMessage() makes it
  MWPTypeMessage GetMessageByIndex(MWPBtMessageType type, int index);
  /// Answers a default record.
  /// @param handle is not looked at
  /// @return a record as MWPTypeMessage() makes it
  MWPTypeMessage GetMessageByHandle(const std::string& handle);
  /// Answers 0; the list stays as it is.
  /// @param type is not looked at
  /// @param messages stays as it is
  /// @return 0
  int GetMessageList(MWPBtMessageType type, std::list<MWPTypeMessage>& messages);
  /// Answers 0.
  /// @param handle is not looked at
  /// @param type is not looked at
  /// @return 0
  int DeleteMessageByHandle(const std::string& handle, int type);
  /// Answers 0.
  /// @param type is not looked at
  /// @return 0
  int ClearMessage(MWPBtMessageType type);
  /// Answers 0.
  /// @param type is not looked at
  /// @param readState is not looked at
  /// @return 0
  int GetMessageCount(MWPBtMessageType type, int readState);
  /// Answers 0.
  /// @param type is not looked at
  /// @return 0
  int GetMessageCount(MWPBtMessageType type);
};

#endif
