#ifndef BLUETOOTH_MWPBTPHONE_H
#define BLUETOOTH_MWPBTPHONE_H

#include <string>

#include <bluetooth/MWPBtExport.h>
#include <bluetooth/MWPBtRecords.h>
#include <bluetooth/MWPBtType.h>

/// Hands-free telephony. The events are in IMWPBtPhoneListener.
///
/// The object carries no state: construct one wherever it is needed. Until MWP_CreateBlueTooth() has
/// succeeded, and after MWP_DestroyBlueTooth(), a method does nothing and answers 0 or an empty string. Every
/// request blocks until the service has answered (at most 25 seconds), may be made from any thread, and makes
/// the service call of its own name unless said otherwise; a failed call is logged and answered with 0.
/// A result that is not 0 means that the service accepted the request; the outcome arrives as an event.
///
/// Pass 0 or 1 where an argument means yes or no: only its lowest byte reaches the service, so 256 counts as
/// 0.
///
/// A callId identifies a call for as long as it lasts. It is reported by
/// IMWPBtPhoneListener::OnCallStatusChanged, and btservice also writes it to MWPTypeCallSlot::nValue1.
/// btservice gives a call the smallest free id, beginning with 1.
class MWP_BT_API MWPBtPhone {
 public:
  MWPBtPhone();
  ~MWPBtPhone();

  /// Connection of the phone and its address. Status 6 and no address while the library is not initialised;
  /// status 0 and no address if the call fails, which is not logged.
  /// @return an MWPBtType::ConnStatus and the address of the phone
  MWPTypeConnectionState GetPhoneConnectionState();
  /// Accepts the incoming or waiting call.
  /// @return not 0 if the service accepted the request, else 0
  int AcceptCall();
  /// Rejects the incoming or waiting call.
  /// @return not 0 if the service accepted the request, else 0
  int RejectCall();
  /// Ends the call that is being dialed, or else the active one (a conference ends for all), or else rejects
  /// the call that rings or waits. A call on hold is not affected and stays on hold: btservice answers 0 if
  /// there is no other, and BT_CALL_RELEASE_HELD ends it. A waiting call is reported as BT_CALL_INCOMING when
  /// no other call is left.
  /// @return not 0 if the service accepted the request, else 0
  int TerminateCall();
  /// Dials a number.
  /// @param number digits, *, # and a leading +; the service refuses what the phone cannot dial
  /// @return not 0 if the service accepted the request, else 0
  int DialCall(const std::string& number);
  /// Dials the last number again.
  /// @return not 0 if the service accepted the request, else 0
  int RedialCall();
  /// Swaps, joins or releases calls, as phones do on the hands-free command AT+CHLD. callId is 0 for the
  /// calls that the action concerns by itself. A waiting call comes before those on hold, and a single call
  /// on hold is resumed by BT_CALL_HOLD_ACTIVE or BT_CALL_RELEASE_ACTIVE. OnConferenceChanged reports which
  /// actions are possible.
  ///
  /// btservice answers 0 for an action that is not possible and for an id that no call has. It heeds an id in
  /// two cases: BT_CALL_RELEASE_ACTIVE releases that call alone if it is active, resumes no other, and
  /// answers 0 if it is held or waiting; and BT_CALL_HOLD_ACTIVE of a call in a conference holds the others,
  /// to speak with that one in private.
  /// @param action what to do
  /// @param callId the call that is meant, or 0
  /// @return not 0 if the service accepted the request, else 0
  int MultipleWayCall(MWPBtType::CallAction action, int callId);
  /// The MWPBtType::CallStatus of a call; BT_CALL_IDLE if no call has this id.
  /// @param callId which call
  /// @return the status
  int GetCurCallStatus(int callId);
  /// The current calls, read from shared memory without a service call. Answers 1; with no data the count is
  /// 0 and the rest stays as it was. While the library is not initialised it answers 0 and info stays as it
  /// was.
  /// @param info receives the calls; its texts are copies
  /// @return 1 once the library is started, else 0
  int GetCurrentCallInfo(MWPTypeCallInfo& info);
  /// Sends one tone: a character of 0-9, *, #, A-D.
  /// @param tone the character
  /// @return not 0 if the service accepted the request, else 0
  int SendDTMF(char tone);
  /// Moves the sound of the call to the phone (1) or to the head unit (0). The outcome is
  /// OnAudioStatusChanged.
  /// @param onPhone 1 or 0
  /// @return not 0 if the service accepted the request, else 0
  int SetAudioPrivacy(int onPhone);
  /// 1 if the sound of the call is on the phone.
  /// @return 1 on the phone, 0 on the head unit
  int GetAudioIsPrivacy();
  /// Starts the voice recognition of the phone. The outcome is OnVoiceStatusChanged.
  void StartVoiceRecognition();
  /// Ends the voice recognition of the phone.
  void StopVoiceRecognition();
  /// Answers 1; echo cancelling is fixed and no service call is made.
  /// @param enable is not looked at
  /// @return 1; 0 while the library is not initialised
  int EnableSWAEC(int enable);
  /// Answers 1; no service call is made.
  /// @return 1; 0 while the library is not initialised
  int DisableNREC();
  /// The phone's own number; empty if it is not known.
  /// @return the number
  std::string GetCurrentMobilePhoneNumber();
  /// Plays a ring tone from a file, to let the user choose.
  /// @param path absolute path of the file
  /// @return not 0 if the service accepted the request, else 0
  int PlayPreviewRingtone(const std::string& path);
  /// Ends the preview.
  /// @return not 0 if the service accepted the request, else 0
  int StopPreviewRingtone();
};

#endif
