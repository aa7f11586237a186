#include "service/simulation/calls/CallAudio.h"

namespace btservice {

CallAudio::CallAudio(ModelContext& context, Settings& settings, Connections& connections, CallTable& calls)
    : m_context(context),
      m_settings(settings),
      m_connections(connections),
      m_calls(calls),
      m_connecting(context.scheduler),
      m_voiceStarting(context.scheduler) {
  m_calls.onChanged.Add([this] {
    if (m_calls.All().empty()) {
      m_private = false;
    } else {
      SetVoice(false);
    }
    Update();
  });
  connections.onChanged.Add([this](RemoteDevice&, ProfileId profile, ConnStatus) {
    if (profile == BT_PROFILE_HFP && m_connections.Active(BT_PROFILE_HFP) == nullptr) {
      SetVoice(false);
      Update();
    }
  });
}

bool CallAudio::SetPrivate(bool onPhone) {
  if (!CallsNeedAudio()) {
    return false;
  }
  m_private = onPhone;
  Update();
  return true;
}

void CallAudio::StartVoiceRecognition() {
  if (m_connections.Active(BT_PROFILE_HFP) == nullptr || !m_calls.All().empty() || m_voice ||
      m_voiceStarting.IsRunning()) {
    return;
  }
  m_voiceStarting.Start(m_context.delays.voice, [this] {
    SetVoice(true);
    Update();
  });
}

void CallAudio::StopVoiceRecognition() {
  SetVoice(false);
  Update();
}

/// An incoming call has sound only if the phone plays its own ring tone.
bool CallAudio::CallsNeedAudio() const {
  for (const auto& call : m_calls.All()) {
    if (call->status != BT_CALL_INCOMING || !m_settings.IsOn(BT_CAP_LOCAL_RING)) {
      return true;
    }
  }
  return false;
}

void CallAudio::SetVoice(bool running) {
  m_voiceStarting.Stop();
  if (m_voice != running) {
    m_voice = running;
    m_context.Report(VoiceRecognitionChanged{running});
  }
}

void CallAudio::Update() {
  const bool wanted = !m_private && (CallsNeedAudio() || m_voice);
  if (wanted && m_status == BT_AUDIO_DISCONNECTED) {
    Enter(BT_AUDIO_CONNECTING);
    m_connecting.Start(m_context.delays.callAudio, [this] { Enter(BT_AUDIO_CONNECTED); });
  } else if (!wanted && m_status != BT_AUDIO_DISCONNECTED) {
    m_connecting.Stop();
    Enter(BT_AUDIO_DISCONNECTED);
  }
}

void CallAudio::ReportAll() const {
  if (m_status == BT_AUDIO_CONNECTED) {
    m_context.Report(CodecChanged{m_codec});
  }
  m_context.Report(CallAudioChanged{m_status});
  if (m_voice) {
    m_context.Report(VoiceRecognitionChanged{true});
  }
}

void CallAudio::Enter(AudioStatus status) {
  m_status = status;
  const RemoteDevice* const phone = m_connections.Active(BT_PROFILE_HFP);
  if (status == BT_AUDIO_CONNECTED && phone != nullptr && phone->data.phone.codec != m_codec) {
    m_codec = phone->data.phone.codec;
    m_context.Report(CodecChanged{m_codec});
  }
  m_context.Report(CallAudioChanged{status});
}

}  // namespace btservice
