#ifndef SERVICE_STACK_CALLCONTROL_H
#define SERVICE_STACK_CALLCONTROL_H

#include <optional>
#include <string>
#include <vector>

#include "service/stack/StackTypes.h"

namespace btservice {

/// Calls through the connected phone, their sound, and ring tones.
class CallControl {
 public:
  virtual ~CallControl() = default;

  virtual bool Accept() = 0;
  virtual bool Reject() = 0;
  virtual bool HangUp() = 0;
  virtual bool Dial(const std::string& number) = 0;
  virtual bool Redial() = 0;
  /// callId 0: the calls that the action is about by itself.
  virtual bool Perform(CallAction action, int callId) = 0;
  virtual bool SendTone(char tone) = 0;
  /// The calls, the one that is spoken in first.
  virtual std::vector<CallInfo> Calls() const = 0;

  /// Puts the sound on the phone (true) or on the head unit.
  virtual bool SetPrivate(bool onPhone) = 0;
  virtual bool IsPrivate() const = 0;
  virtual void StartVoiceRecognition() = 0;
  virtual void StopVoiceRecognition() = 0;
  /// Nothing if no phone is connected or its number is unknown.
  virtual std::optional<std::string> OwnNumber() const = 0;

  virtual bool PlayRingtone() = 0;
  virtual bool StopRingtone() = 0;
  virtual bool PlayPreview(const std::string& path) = 0;
  virtual bool StopPreview() = 0;
};

}  // namespace btservice

#endif
