#ifndef SERVICE_SIMULATION_CALLS_SIMULATEDCALLS_H
#define SERVICE_SIMULATION_CALLS_SIMULATEDCALLS_H

#include <optional>
#include <string>
#include <vector>

#include "service/simulation/calls/CallAudio.h"
#include "service/simulation/phonebook/SimulatedPhoneBook.h"
#include "service/stack/CallControl.h"

namespace btservice {

/// Passes the requests for calls on to the parts of the model that carry them out. Ring tones are silent.
class SimulatedCalls : public CallControl {
 public:
  SimulatedCalls(PowerSwitch& power, Connections& connections, CallTable& calls, CallAudio& audio,
                 const SimulatedPhoneBook& phoneBook);

  bool Accept() override { return m_calls.Accept(); }
  bool Reject() override { return m_calls.Reject(); }
  bool HangUp() override { return m_calls.HangUp(); }
  bool Dial(const std::string& number) override { return m_calls.Dial(number); }
  bool Redial() override { return m_calls.Redial(); }
  bool Perform(CallAction action, int callId) override { return m_calls.Perform(action, callId); }
  bool SendTone(char tone) override;
  std::vector<CallInfo> Calls() const override;

  bool SetPrivate(bool onPhone) override { return m_audio.SetPrivate(onPhone); }
  bool IsPrivate() const override { return m_audio.IsPrivate(); }
  void StartVoiceRecognition() override { m_audio.StartVoiceRecognition(); }
  void StopVoiceRecognition() override { m_audio.StopVoiceRecognition(); }
  std::optional<std::string> OwnNumber() const override;

  bool PlayRingtone() override;
  bool StopRingtone() override;
  bool PlayPreview(const std::string& path) override;
  bool StopPreview() override;

 private:
  PowerSwitch& m_power;
  Connections& m_connections;
  CallTable& m_calls;
  CallAudio& m_audio;
  const SimulatedPhoneBook& m_phoneBook;
  bool m_ringing = false;
  bool m_previewing = false;
};

}  // namespace btservice

#endif
