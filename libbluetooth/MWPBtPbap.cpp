// Facade of the phone book and the call logs.

#include <bluetooth/MWPBtPbap.h>

#define MWP_LOG_SOURCE "libbluetooth/MWPBtPbap"
#include <mwp/MWPLog.h>

#include "libbluetooth/ForwardToClient.h"

MWPBtPbap::MWPBtPbap() = default;

MWPBtPbap::~MWPBtPbap() = default;

int MWPBtPbap::StartPhoneBookDownload(MWPBtType::PbapType type) {
  return ForwardToClient(&MWPBtClient::StartPhoneBookDownload, type);
}

// Logs its line even while the library is not initialised.
int MWPBtPbap::StopPhoneBookDownload() {
  MWP_LOG_AT(26, MWP_LOG_DEBUG, "MWPBtPbap::StopPhoneBookDownload m_bInitClient:%d",
             MWPBtClient::m_bInitClient);
  return ForwardToClient(&MWPBtClient::StopPhoneBookDownload);
}

// Answers 1 whatever the client answers: the caller looks at the list.
int MWPBtPbap::GetContactList(std::list<MWPTypeContact>& contacts) {
  if (MWPBtClient::m_bInitClient == 0) {
    return 0;
  }
  CallClient(&MWPBtClient::GetContactList, contacts);
  return 1;
}

// Answers 1, as GetContactList.
int MWPBtPbap::GetFavContactList(std::list<MWPTypeContact>& contacts) {
  if (MWPBtClient::m_bInitClient == 0) {
    return 0;
  }
  CallClient(&MWPBtClient::GetFavContactList, contacts);
  return 1;
}

int MWPBtPbap::DeleteContactById(int id) { return ForwardToClient(&MWPBtClient::DeleteContactById, id); }

int MWPBtPbap::GetContactCount() { return ForwardToClient(&MWPBtClient::GetContactCount); }

int MWPBtPbap::ClearContact() { return ForwardToClient(&MWPBtClient::ClearContact); }

int MWPBtPbap::GetCallLogList(CallLogType type, std::list<MWPTypeCallLog>& logs) {
  return ForwardToClient(&MWPBtClient::GetCallLogList, type, logs);
}

int MWPBtPbap::DeleteCallLogById(int id) { return ForwardToClient(&MWPBtClient::DeleteCallLogById, id); }

int MWPBtPbap::GetCallLogCount(CallLogType type) {
  return ForwardToClient(&MWPBtClient::GetCallLogCount, type);
}

int MWPBtPbap::ClearCallLog(CallLogType type) { return ForwardToClient(&MWPBtClient::ClearCallLog, type); }

int MWPBtPbap::SetContactFavorite(int contactId, int favorite) {
  return ForwardToClient(&MWPBtClient::SetContactFavorite, contactId, favorite);
}
