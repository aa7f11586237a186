#include <bluetooth/MWPBtPbap.h>

#include "contract/RequestCases.h"

namespace bttest {

using F = MWPBtPbap;
using C = MWPBtClient;

std::vector<RequestCase> PbapRequests() {
  // The segments are empty: a list that is replaced becomes empty, one that is appended to stays as it is.
  const std::list<MWPTypeContact> oneContact(1);
  const std::list<MWPTypeCallLog> oneLog(1);
  return {
      {"StartPhoneBookDownload",
       Asks(&F::StartPhoneBookDownload, &C::StartPhoneBookDownload, MWPBtType::BT_PBAP_ALL),
       "StartPhoneBookDownload(byte 0x06,)", "(true,)", "1"},
      {"StopPhoneBookDownload", Asks(&F::StopPhoneBookDownload, &C::StopPhoneBookDownload),
       "StopPhoneBookDownload()", "(true,)", "1"},
      // The facade answers 1 whatever the client answers.
      {"GetContactList", Asks(&F::GetContactList, nullptr, oneContact), "GetContactList()", "(false,)",
       "1 -> []"},
      {"GetContactList", Asks(nullptr, &C::GetContactList, oneContact), "GetContactList()", "(false,)",
       "0 -> []"},
      {"GetFavContactList", Asks(&F::GetFavContactList, nullptr, oneContact), "GetFavContactList()",
       "(false,)", "1 -> []"},
      {"GetFavContactList", Asks(nullptr, &C::GetFavContactList, oneContact), "GetFavContactList()",
       "(false,)", "0 -> []"},
      {"GetContactCount", Asks(&F::GetContactCount, &C::GetContactCount), "GetContactCount()", "(-5,)", "-5"},
      {"DeleteContactById", Asks(&F::DeleteContactById, &C::DeleteContactById, -7), "DeleteContactById(-7,)",
       "(true,)", "1"},
      {"ClearContact", Asks(&F::ClearContact, &C::ClearContact), "ClearContact()", "(true,)", "1"},
      {"GetCallLogList", Asks(&F::GetCallLogList, &C::GetCallLogList, CALL_LOG_MISSED, oneLog),
       "GetCallLogList(byte 0x03,)", "(true,)", "1"},
      {"DeleteCallLogById", Asks(&F::DeleteCallLogById, &C::DeleteCallLogById, -7), "DeleteCallLogById(-7,)",
       "(true,)", "1"},
      {"ClearCallLog", Asks(&F::ClearCallLog, &C::ClearCallLog, CALL_LOG_MISSED), "ClearCallLog(byte 0x03,)",
       "(true,)", "1"},
      {"GetCallLogCount", Asks(&F::GetCallLogCount, &C::GetCallLogCount, CALL_LOG_MISSED),
       "GetCallLogCount(byte 0x03,)", "(-5,)", "-5"},
      {"SetContactFavorite", Asks(&F::SetContactFavorite, &C::SetContactFavorite, -7, 1),
       "SetContactFavorite(-7, true)", "(true,)", "1"},
  };
}

}  // namespace bttest
