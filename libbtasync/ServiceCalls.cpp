// Calls.

#include "libbtasync/MakeRequest.h"

namespace btasync {
inline namespace v0 {

using wire::Ask;
using wire::AskFor;
using wire::AskForChecked;

Request<> Service::AcceptCall() { return Ask<wire::AcceptCall>(*this); }
Request<> Service::RejectCall() { return Ask<wire::RejectCall>(*this); }
Request<> Service::TerminateCall() { return Ask<wire::TerminateCall>(*this); }
Request<> Service::DialCall(Text number) { return Ask<wire::DialCall>(*this, number); }
Request<> Service::RedialCall() { return Ask<wire::RedialCall>(*this); }
Request<> Service::SwitchCalls(CallAction action, int callId) {
  return Ask<wire::MultipleWayCall>(*this, action, callId);
}
Request<CallStatus> Service::GetCallStatus(int callId) {
  return AskFor<CallStatus, wire::GetCurCallStatus>(*this, callId);
}
Request<unsigned> Service::GetCallCount() { return AskFor<unsigned, wire::GetCurCallCount>(*this); }
Request<> Service::SendDTMF(char tone) { return Ask<wire::SendDTMF>(*this, tone); }
Request<> Service::SetAudioPrivacy(bool onPhone) { return Ask<wire::SetAudioPrivacy>(*this, onPhone); }
Request<bool> Service::GetAudioIsPrivacy() { return AskFor<bool, wire::GetAudioIsPrivacy>(*this); }
Request<> Service::StartVoiceRecognition() { return Ask<wire::StartVoiceRecognition>(*this); }
Request<> Service::StopVoiceRecognition() { return Ask<wire::StopVoiceRecognition>(*this); }
Request<std::string> Service::GetOwnNumber() {
  return AskForChecked<std::string, wire::GetCurrentMobilePhoneNumber>(*this);
}
Request<> Service::PlayRingtone() { return Ask<wire::PlayRingtone>(*this); }
Request<> Service::StopRingtone() { return Ask<wire::StopRingtone>(*this); }
Request<> Service::PlayPreviewRingtone(Text path) { return Ask<wire::PlayPreviewRingtone>(*this, path); }
Request<> Service::StopPreviewRingtone() { return Ask<wire::StopPreviewRingtone>(*this); }
Request<ConnectionState> Service::GetPhoneConnectionState() {
  return {wire::Prepare<wire::GetPhoneConnectionState>(End()),
          &wire::Structure<wire::GetPhoneConnectionState, ConnectionState>};
}

}  // namespace v0
}  // namespace btasync
