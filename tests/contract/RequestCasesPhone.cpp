#include <bluetooth/MWPBtPhone.h>

#include "contract/RequestCases.h"

namespace bttest {

using F = MWPBtPhone;
using C = MWPBtClient;

std::vector<RequestCase> PhoneRequests() {
  MWPTypeCallInfo nine;
  nine.nCallCount = 9;
  return {
      {"GetPhoneConnectionState", Asks(&F::GetPhoneConnectionState, &C::GetPhoneConnectionState),
       "GetPhoneConnectionState()", "(200, 'address')", "{200, 'address'}"},
      {"AcceptCall", Asks(&F::AcceptCall, &C::AcceptCall), "AcceptCall()", "(true,)", "1"},
      {"RejectCall", Asks(&F::RejectCall, &C::RejectCall), "RejectCall()", "(true,)", "1"},
      {"TerminateCall", Asks(&F::TerminateCall, &C::TerminateCall), "TerminateCall()", "(true,)", "1"},
      {"DialCall", Asks(&F::DialCall, &C::DialCall, "+49123"), "DialCall('+49123',)", "(true,)", "1"},
      {"RedialCall", Asks(&F::RedialCall, &C::RedialCall), "RedialCall()", "(true,)", "1"},
      {"MultipleWayCall", Asks(&F::MultipleWayCall, &C::MultipleWayCall, MWPBtType::BT_CALL_CONFERENCE, -2),
       "MultipleWayCall(byte 0x03, -2)", "(true,)", "1"},
      {"GetCurCallStatus", Asks(&F::GetCurCallStatus, &C::GetCurCallStatus, -2), "GetCurCallStatus(-2,)",
       "(200,)", "200"},
      {"GetCurCallCount", Asks(nullptr, &C::GetCurCallCount), "GetCurCallCount()", "(7,)", "7"},
      // Read from shared memory, where nobody has published a call.
      {"GetCurrentCallInfo", Asks(&F::GetCurrentCallInfo, &C::GetCurrentCallInfo, nine), "", "",
       "1 -> {0, {0, 0, 0, 0, '', '', '', 0}, {0, 0, 0, 0, '', '', '', 0}}"},
      {"SendDTMF", Asks(&F::SendDTMF, &C::SendDTMF, '#'), "SendDTMF(byte 0x23,)", "(true,)", "1"},
      {"SetAudioPrivacy", Asks(&F::SetAudioPrivacy, &C::SetAudioPrivacy, 1), "SetAudioPrivacy(true,)",
       "(true,)", "1"},
      {"GetAudioIsPrivacy", Asks(&F::GetAudioIsPrivacy, &C::GetAudioIsPrivacy), "GetAudioIsPrivacy()",
       "(true,)", "1"},
      {"StartVoiceRecognition", Asks(&F::StartVoiceRecognition, &C::StartVoiceRecognition),
       "StartVoiceRecognition()", "", ""},
      {"StopVoiceRecognition", Asks(&F::StopVoiceRecognition, &C::StopVoiceRecognition),
       "StopVoiceRecognition()", "", ""},
      // The facade answers the number itself, whatever the result.
      {"GetCurrentMobilePhoneNumber", Asks(&F::GetCurrentMobilePhoneNumber, nullptr),
       "GetCurrentMobilePhoneNumber()", "('+49123', false)", "'+49123'"},
      {"GetCurrentMobilePhoneNumber", Asks(nullptr, &C::GetCurrentMobilePhoneNumber, "before"),
       "GetCurrentMobilePhoneNumber()", "('+49123', true)", "1 -> '+49123'"},
      {"PlayPreviewRingtone", Asks(&F::PlayPreviewRingtone, &C::PlayPreviewRingtone, "/a/b.mp3"),
       "PlayPreviewRingtone('/a/b.mp3',)", "(true,)", "1"},
      {"StopPreviewRingtone", Asks(&F::StopPreviewRingtone, &C::StopPreviewRingtone), "StopPreviewRingtone()",
       "(true,)", "1"},

      // Answered without asking anybody.
      {"EnableSWAEC", Asks(&F::EnableSWAEC, &C::EnableSWAEC, 0), "", "", "1", Guarded::NO},
      {"DisableNREC", Asks(&F::DisableNREC, &C::DisableNREC), "", "", "1", Guarded::NO},
      {"PlayRingtone", Asks(nullptr, &C::PlayRingtone), "", "", "0", Guarded::NO},
      {"StopRingtone", Asks(nullptr, &C::StopRingtone), "", "", "1", Guarded::NO},
  };
}

}  // namespace bttest
