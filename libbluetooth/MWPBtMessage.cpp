// Facade of messages.

#include <bluetooth/MWPBtMessage.h>

#include "libbluetooth/ForwardToClient.h"

MWPBtMessage::MWPBtMessage() = default;

MWPBtMessage::~MWPBtMessage() = default;

int MWPBtMessage::StartMessageDownload() { return ForwardToClient(&MWPBtClient::StartMessageDownload); }

int MWPBtMessage::StopDownloadMessage() { return ForwardToClient(&MWPBtClient::StopDownloadMessage); }

int MWPBtMessage::GetMessageLoadStatus() {
  if (MWPBtClient::m_bInitClient == 0) {
    return MWPBtType::BT_MSG_LOAD_NOT_SUPPORTED;
  }
  return CallClient(&MWPBtClient::GetMessageLoadStatus);
}

int MWPBtMessage::SendMessage(const std::string& number, const std::string& text) {
  return ForwardToClient(&MWPBtClient::SendMessage, number, text);
}

int MWPBtMessage::SetMessageReaded(const std::string& handle) {
  return ForwardToClient(&MWPBtClient::SetMessageReaded, handle);
}

MWPTypeMessage MWPBtMessage::GetMessageByIndex(MWPBtMessageType type, int index) {
  return ForwardToClient(&MWPBtClient::GetMessageByIndex, type, index);
}

MWPTypeMessage MWPBtMessage::GetMessageByHandle(const std::string& handle) {
  return ForwardToClient(&MWPBtClient::GetMessageByHandle, handle);
}

int MWPBtMessage::GetMessageList(MWPBtMessageType type, std::list<MWPTypeMessage>& messages) {
  return ForwardToClient(&MWPBtClient::GetMessageList, type, messages);
}

int MWPBtMessage::DeleteMessageByHandle(const std::string& handle, int type) {
  return ForwardToClient(&MWPBtClient::DeleteMessageByHandle, handle, type);
}

int MWPBtMessage::ClearMessage(MWPBtMessageType type) {
  return ForwardToClient(&MWPBtClient::ClearMessage, type);
}

int MWPBtMessage::GetMessageCount(MWPBtMessageType type, int readState) {
  return ForwardToClient(
      static_cast<int (MWPBtClient::*)(MWPBtMessageType, int)>(&MWPBtClient::GetMessageCount), type,
      readState);
}

int MWPBtMessage::GetMessageCount(MWPBtMessageType type) {
  return ForwardToClient(static_cast<int (MWPBtClient::*)(MWPBtMessageType)>(&MWPBtClient::GetMessageCount),
                         type);
}
