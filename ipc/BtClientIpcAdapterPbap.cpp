// The requests about the phone book and the call logs; the lists themselves are in
// BtClientIpcAdapterLists.cpp: one call of the service each. ServiceCall.h says how they are read.

#define MWP_LOG_SOURCE "ipc/BtClientIpcAdapter"
#include <mwp/MWPLog.h>

#include "ipc/BtClientIpcAdapter.h"
#include "ipc/ServiceCall.h"

int BtClientIpcAdapter::StartPhoneBookDownload(MWPBtType::PbapType type) {
  return CallForResult<gboolean>(BT_CALL(start_phone_book_download), AsByte(type));
}

int BtClientIpcAdapter::StopPhoneBookDownload() {
  return CallForResult<gboolean>(BT_CALL(stop_phone_book_download));
}

int BtClientIpcAdapter::GetContactCount() { return CallForResult<gint>(BT_CALL(get_contact_count)); }

int BtClientIpcAdapter::ClearContact() { return CallForResult<gboolean>(BT_CALL(clear_contact)); }

int BtClientIpcAdapter::DeleteContactById(int id) {
  return CallForResult<gboolean>(BT_CALL(delete_contact_by_id), id);
}

int BtClientIpcAdapter::DeleteCallLogById(int id) {
  return CallForResult<gboolean>(BT_CALL(delete_call_log_by_id), id);
}

int BtClientIpcAdapter::GetCallLogCount(CallLogType type) {
  return CallForResult<gint>(BT_CALL(get_call_log_count), AsByte(type));
}

int BtClientIpcAdapter::ClearCallLog(CallLogType type) {
  return CallForResult<gboolean>(BT_CALL(clear_call_log), AsByte(type));
}

int BtClientIpcAdapter::SetContactFavorite(int contactId, int favorite) {
  return CallForResult<gboolean>(BT_CALL(set_contact_favorite), contactId, favorite);
}
