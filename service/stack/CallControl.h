#ifndef SERVICE_STACK_CALLCONTROL_H
#define SERVICE_STACK_CALLCONTROL_H

#include <optional>
#include <string>
#include <vector>

#include "service/stack/StackTypes.h"

namespace btservice {

/// Calls through the connected phone, their sound, and ring tones. Without a phone that is connected for
/// calls everything is refused. What becomes of a call is reported as CallChanged, for each call that has
/// changed, and CallsChanged after them. What holds for all requests is said at BluetoothStack.
class CallControl {
 public:
  virtual ~CallControl() = default;

  /// Accepts the call that rings, or the one that waits: then the other is held.
  virtual bool Accept() { return false; }
  /// Refuses the call that rings or waits.
  virtual bool Reject() { return false; }
  /// Ends the call that is being dialled, or the one that is spoken in, or refuses the one that rings.
  virtual bool HangUp() { return false; }
  /// Refused if the number has other than digits, '*', '#' and '+', or no further call is possible.
  virtual bool Dial(const std::string& /*number*/) { return false; }
  /// Dials the last number again. Refused if there is none.
  virtual bool Redial() { return false; }
  /// One of the actions with two calls. callId 0: the calls that the action is about by itself. Refused
  /// unless CallActionChanged has said that it is possible.
  virtual bool Perform(CallAction /*action*/, int /*callId*/) { return false; }
  /// '0' to '9', '*', '#' and 'A' to 'D', while a call is active.
  virtual bool SendTone(char /*tone*/) { return false; }
  /// The calls, the one that is spoken in first. Their seconds are those of now.
  virtual std::vector<CallInfo> Calls() const { return {}; }

  /// Puts the sound on the phone (true) or on the head unit. CallAudioChanged follows.
  virtual bool SetPrivate(bool /*onPhone*/) { return false; }
  virtual bool IsPrivate() const { return false; }
  /// VoiceRecognitionChanged follows.
  virtual void StartVoiceRecognition() {}
  virtual void StopVoiceRecognition() {}
  /// Nothing if no phone is connected, or if it keeps its number to itself.
  virtual std::optional<std::string> OwnNumber() const { return {}; }

  /// Refused if no call comes in; ends with the ringing.
  virtual bool PlayRingtone() { return false; }
  /// False if none was playing.
  virtual bool StopRingtone() { return false; }
  /// path: an absolute one, of a sound file.
  virtual bool PlayPreview(const std::string& /*path*/) { return false; }
  virtual bool StopPreview() { return false; }
};

}  // namespace btservice

#endif
