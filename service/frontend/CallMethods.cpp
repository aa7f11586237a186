#include "service/frontend/Methods.h"

namespace btservice {

void BindCallMethods(ServiceBinder binder, CallControl& calls) {
  using C = CallControl;
  binder.Bind(BT_METHOD(accept_call), calls, &C::Accept);
  binder.Bind(BT_METHOD(reject_call), calls, &C::Reject);
  binder.Bind(BT_METHOD(terminate_call), calls, &C::HangUp);
  binder.Bind(BT_METHOD(dial_call), calls, &C::Dial);
  binder.Bind(BT_METHOD(redial_call), calls, &C::Redial);
  binder.Bind(BT_METHOD(multiple_way_call), calls, &C::Perform);
  binder.Bind(BT_METHOD(send_dtmf), calls, &C::SendTone);
  binder.Bind(BT_METHOD(get_cur_call_status), [&calls](gint id) {
    for (const CallInfo& call : calls.Calls()) {
      if (call.id == id) {
        return call.status;
      }
    }
    return BT_CALL_IDLE;
  });
  binder.Bind(BT_METHOD(get_cur_call_count), [&calls] { return calls.Calls().size(); });

  binder.Bind(BT_METHOD(set_audio_privacy), calls, &C::SetPrivate);
  binder.Bind(BT_METHOD(get_audio_is_privacy), calls, &C::IsPrivate);
  binder.Bind(BT_METHOD(start_voice_recognition), calls, &C::StartVoiceRecognition);
  binder.Bind(BT_METHOD(stop_voice_recognition), calls, &C::StopVoiceRecognition);
  binder.Bind(BT_METHOD(get_current_mobile_phone_number), [&calls] {
    const std::optional<std::string> number = calls.OwnNumber();
    return std::tuple(number.value_or(""), number.has_value());
  });

  binder.Bind(BT_METHOD(play_ringtone), calls, &C::PlayRingtone);
  binder.Bind(BT_METHOD(stop_ringtone), calls, &C::StopRingtone);
  binder.Bind(BT_METHOD(play_preview_ringtone), calls, &C::PlayPreview);
  binder.Bind(BT_METHOD(stop_preview_ringtone), calls, &C::StopPreview);
}

}  // namespace btservice
