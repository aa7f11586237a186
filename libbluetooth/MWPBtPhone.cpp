// Facade of hands-free telephony.

#include <bluetooth/MWPBtPhone.h>

#include "libbluetooth/ForwardToClient.h"

MWPBtPhone::MWPBtPhone() = default;

MWPBtPhone::~MWPBtPhone() = default;

MWPTypeConnectionState MWPBtPhone::GetPhoneConnectionState() {
  return ForwardToClient(&MWPBtClient::GetPhoneConnectionState);
}

int MWPBtPhone::AcceptCall() { return ForwardToClient(&MWPBtClient::AcceptCall); }

int MWPBtPhone::RejectCall() { return ForwardToClient(&MWPBtClient::RejectCall); }

int MWPBtPhone::TerminateCall() { return ForwardToClient(&MWPBtClient::TerminateCall); }

int MWPBtPhone::DialCall(const std::string& number) {
  return ForwardToClient(&MWPBtClient::DialCall, number);
}

int MWPBtPhone::RedialCall() { return ForwardToClient(&MWPBtClient::RedialCall); }

int MWPBtPhone::MultipleWayCall(MWPBtType::CallAction action, int callId) {
  return ForwardToClient(&MWPBtClient::MultipleWayCall, action, callId);
}

int MWPBtPhone::GetCurCallStatus(int callId) {
  return ForwardToClient(&MWPBtClient::GetCurCallStatus, callId);
}

int MWPBtPhone::GetCurrentCallInfo(MWPTypeCallInfo& info) {
  return ForwardToClient(&MWPBtClient::GetCurrentCallInfo, info);
}

int MWPBtPhone::SendDTMF(char tone) { return ForwardToClient(&MWPBtClient::SendDTMF, tone); }

int MWPBtPhone::SetAudioPrivacy(int onPhone) {
  return ForwardToClient(&MWPBtClient::SetAudioPrivacy, onPhone);
}

int MWPBtPhone::GetAudioIsPrivacy() { return ForwardToClient(&MWPBtClient::GetAudioIsPrivacy); }

void MWPBtPhone::StartVoiceRecognition() { ForwardToClient(&MWPBtClient::StartVoiceRecognition); }

void MWPBtPhone::StopVoiceRecognition() { ForwardToClient(&MWPBtClient::StopVoiceRecognition); }

int MWPBtPhone::EnableSWAEC(int enable) { return ForwardToClient(&MWPBtClient::EnableSWAEC, enable); }

int MWPBtPhone::DisableNREC() { return ForwardToClient(&MWPBtClient::DisableNREC); }

std::string MWPBtPhone::GetCurrentMobilePhoneNumber() {
  std::string number;
  ForwardToClient(&MWPBtClient::GetCurrentMobilePhoneNumber, number);
  return number;
}

int MWPBtPhone::PlayPreviewRingtone(const std::string& path) {
  return ForwardToClient(&MWPBtClient::PlayPreviewRingtone, path);
}

int MWPBtPhone::StopPreviewRingtone() { return ForwardToClient(&MWPBtClient::StopPreviewRingtone); }
