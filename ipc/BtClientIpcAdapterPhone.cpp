// The requests about calls and the phone: one call of the service each.
// ServiceCall.h says how they are read.

#define MWP_LOG_SOURCE "ipc/BtClientIpcAdapter"
#include <mwp/MWPLog.h>

#include "ipc/BtClientIpcAdapter.h"
#include "ipc/ServiceCall.h"

int BtClientIpcAdapter::AcceptCall() { return CallForResult<gboolean>(BT_CALL(accept_call)); }

int BtClientIpcAdapter::RejectCall() { return CallForResult<gboolean>(BT_CALL(reject_call)); }

int BtClientIpcAdapter::TerminateCall() { return CallForResult<gboolean>(BT_CALL(terminate_call)); }

int BtClientIpcAdapter::RedialCall() { return CallForResult<gboolean>(BT_CALL(redial_call)); }

int BtClientIpcAdapter::DialCall(const std::string& number) {
  return CallForResult<gboolean>(BT_CALL(dial_call), number.c_str());
}

int BtClientIpcAdapter::MultipleWayCall(MWPBtType::CallAction action, int callId) {
  return CallForResult<gboolean>(BT_CALL(multiple_way_call), AsByte(action), callId);
}

int BtClientIpcAdapter::GetCurCallStatus(int callId) {
  return CallForResult<guchar>(BT_CALL(get_cur_call_status), callId);
}

int BtClientIpcAdapter::GetCurCallCount() {
  return CallForResult<guint>(
      BT_CALL_AS("com_zelk_linux_bluetooth_call_get_cur_count_sync", get_cur_call_count));
}

int BtClientIpcAdapter::SendDTMF(char tone) {
  return CallForResult<gboolean>(BT_CALL(send_dtmf), static_cast<guchar>(tone));
}

int BtClientIpcAdapter::SetAudioPrivacy(int onPhone) {
  return CallForResult<gboolean>(
      BT_CALL_AS("com_zelk_linux_bluetooth_call_set_audio_pravicy_sync", set_audio_privacy), onPhone);
}

int BtClientIpcAdapter::GetAudioIsPrivacy() {
  return CallForResult<gboolean>(
      BT_CALL_AS("com_zelk_linux_bluetooth_call_get_audio_is_pravicy_sync", get_audio_is_privacy));
}

void BtClientIpcAdapter::StartVoiceRecognition() { CallService(BT_CALL(start_voice_recognition)); }

void BtClientIpcAdapter::StopVoiceRecognition() { CallService(BT_CALL(stop_voice_recognition)); }

int BtClientIpcAdapter::GetCurrentMobilePhoneNumber(std::string& number) {
  OutText text(BT_REQUEST_SITE);
  gboolean result = 0;
  CallService(BT_CALL(get_current_mobile_phone_number), text.Out(), &result);
  number = text.Text();
  return result;
}

MWPTypeConnectionState BtClientIpcAdapter::GetPhoneConnectionState() {
  return AskConnectionState(BT_REQUEST_SITE, com_zelk_linux_bluetooth_call_get_phone_connection_state_sync);
}
