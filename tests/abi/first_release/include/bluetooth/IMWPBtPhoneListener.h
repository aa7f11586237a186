#ifndef BLUETOOTH_IMWPBTPHONELISTENER_H
#define BLUETOOTH_IMWPBTPHONELISTENER_H

#include <bluetooth/IMWPBtListenerBase.h>
#include <bluetooth/MWPBtExport.h>
#include <bluetooth/MWPBtType.h>

/// Events of calls and the state of the phone; the requests are in MWPBtPhone. Override what is needed: every
/// method does nothing by default. IMWPBtListenerBase describes when and on which thread they are called.
class MWP_BT_API IMWPBtPhoneListener : public IMWPBtListenerBase {
 public:
  IMWPBtPhoneListener();
  ~IMWPBtPhoneListener() override;

  /// The phone found (1) or lost (0) its network.
  /// @param onService 1 or 0
  virtual void OnMobileService(int onService);
  /// The phone is roaming (1) or in its home network (0).
  /// @param roaming 1 or 0
  virtual void OnRoamingStatusChanged(int roaming);
  /// Signal strength of the phone, 0 to 5 bars.
  /// @param signal 0 to 5
  virtual void OnBtSignalChanged(unsigned char signal);
  /// Battery of the phone, 0 to 5 bars.
  /// @param battery 0 to 5
  virtual void OnBtBatteryChanged(unsigned char battery);
  /// The calls changed: read them with MWPBtPhone::GetCurrentCallInfo.
  /// @param callCount number of calls
  virtual void OnCurrentCallInfoChanged(int callCount);
  /// The duration of a call in seconds. active is 1 for the active call, 0 for one on hold.
  /// @param seconds since the call was answered
  /// @param callId which call
  /// @param active 1 or 0
  virtual void OnCallingTimeChanged(int seconds, int callId, int active);
  /// A call changed its state; BT_CALL_IDLE means that it ended. callId identifies it (see MWPBtPhone),
  /// callCount is the number of calls after the change.
  /// @param callId which call
  /// @param status the new status
  /// @param callCount number of calls
  virtual void OnCallStatusChanged(int callId, MWPBtType::CallStatus status, int callCount);
  /// An action became possible (1) or impossible (0). btservice reports those that
  /// MWPBtPhone::MultipleWayCall accepts with callId 0 as the calls now stand: a single active call can be
  /// held or released, a single call on hold resumed or released.
  /// @param action which action
  /// @param supported 1 if it is possible, else 0
  virtual void OnConferenceChanged(MWPBtType::CallAction action, int supported);
  /// A call was hung up.
  virtual void OnHangupCallChanged();
  /// The sound of the call moved between phone and head unit.
  /// @param status the new status
  virtual void OnAudioStatusChanged(MWPBtType::AudioStatus status);
  /// Voice recognition of the phone began (1) or ended (0).
  /// @param started 1 or 0
  virtual void OnVoiceStatusChanged(int started);
  /// The call audio uses another codec.
  /// @param mode the codec
  virtual void OnCodecModeChanged(MWPBtType::CodecMode mode);
};

#endif
