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
  /// Calls a number; the call that is spoken in is held. Refused if the number has characters that cannot be
  /// dialled (those that can are digits, '*', '#', '+', 'A' to 'D', and ',' and ';' for pauses), or if no
  /// further call is possible now.
  virtual bool Dial(const std::string& /*number*/) { return false; }
  /// Dials the last number again. Refused if there is none.
  virtual bool Redial() { return false; }
  /// One of the actions with two calls. callId 0: the calls that the action is about by itself. Refused
  /// unless CallActionChanged has said that it is possible.
  virtual bool Perform(CallAction /*action*/, int /*callId*/) { return false; }
  /// Sends a tone to the other end: '0' to '9', '*', '#' and 'A' to 'D'. Refused unless a call is active.
  virtual bool SendTone(char /*tone*/) { return false; }
  /// The calls, the one that is spoken in first. Their seconds are those of now.
  virtual std::vector<CallInfo> Calls() const { return {}; }

  /// Puts the sound on the phone (true) or on the head unit. CallAudioChanged follows.
  /// Refused if there is no call with sound.
  virtual bool SetPrivate(bool /*onPhone*/) { return false; }
  /// Whether the sound of the calls is on the phone by such a request. It no longer is once all calls have
  /// ended.
  virtual bool IsPrivate() const { return false; }
  /// Has the phone listen to the user; VoiceRecognitionChanged follows. Nothing happens without a connected
  /// phone, during a call, or if it listens already.
  virtual void StartVoiceRecognition() {}
  virtual void StopVoiceRecognition() {}
  /// Nothing if no phone is connected, or if it keeps its number to itself.
  virtual std::optional<std::string> OwnNumber() const { return {}; }

  /// Plays the head unit's ring tone, until it is stopped or the call no longer rings. Refused if no call
  /// comes in.
  virtual bool PlayRingtone() { return false; }
  /// False if none was playing.
  virtual bool StopRingtone() { return false; }
  /// Plays a sound file, so that the user can choose a ring tone. path: an absolute one.
  virtual bool PlayPreview(const std::string& /*path*/) { return false; }
  /// False if none was playing.
  virtual bool StopPreview() { return false; }
};

}  // namespace btservice

#endif
