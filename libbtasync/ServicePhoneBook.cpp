// The phone book and the call logs, but for the lists.

#include "libbtasync/MakeRequest.h"

namespace btasync {
inline namespace v0 {

using wire::Ask;
using wire::AskFor;

Request<> Service::StartPhoneBookDownload(PbapType type) {
  return Ask<wire::StartPhoneBookDownload>(*this, type);
}
Request<> Service::StopPhoneBookDownload() { return Ask<wire::StopPhoneBookDownload>(*this); }
Request<int> Service::GetContactCount() { return AskFor<int, wire::GetContactCount>(*this); }
Request<> Service::DeleteContact(int contactId) { return Ask<wire::DeleteContactById>(*this, contactId); }
Request<> Service::DeleteContacts() { return Ask<wire::ClearContact>(*this); }
Request<> Service::SetContactFavorite(int contactId, bool favorite) {
  return Ask<wire::SetContactFavorite>(*this, contactId, favorite);
}
Request<int> Service::GetCallLogCount(CallLogType type) {
  return AskFor<int, wire::GetCallLogCount>(*this, type);
}
Request<> Service::DeleteCallLog(int logId) { return Ask<wire::DeleteCallLogById>(*this, logId); }
Request<> Service::DeleteCallLogs(CallLogType type) { return Ask<wire::ClearCallLog>(*this, type); }

}  // namespace v0
}  // namespace btasync
