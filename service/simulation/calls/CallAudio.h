#ifndef SERVICE_SIMULATION_CALLS_CALLAUDIO_H
#define SERVICE_SIMULATION_CALLS_CALLAUDIO_H

#include "service/simulation/calls/CallTable.h"

namespace btservice {

/// Where the sound of calls and of voice recognition is: on the head unit unless the user wants it private.
class CallAudio {
 public:
  CallAudio(ModelContext& context, Settings& settings, Connections& connections, CallTable& calls);

  /// Refused unless a call has sound: one that rings has it only if the phone's own ring tone is to be heard.
  bool SetPrivate(bool onPhone);
  bool IsPrivate() const { return m_private; }
  // Without a phone, during a call, or if it is so already, nothing happens.
  void StartVoiceRecognition();
  void StopVoiceRecognition();
  /// Reports where the sound is, and voice recognition if it runs.
  void ReportAll() const;

 private:
  bool CallsNeedAudio() const;
  void SetVoice(bool running);
  void Update();
  void Enter(AudioStatus status);

  ModelContext& m_context;
  Settings& m_settings;
  Connections& m_connections;
  CallTable& m_calls;
  Timer m_connecting;
  Timer m_voiceStarting;
  AudioStatus m_status = BT_AUDIO_DISCONNECTED;
  CodecMode m_codec = BT_CODEC_NONE;
  bool m_private = false;
  bool m_voice = false;
};

}  // namespace btservice

#endif
