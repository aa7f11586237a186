#ifndef TOOLS_BTCTL_EVENTS_LISTENERCLASSES_H
#define TOOLS_BTCTL_EVENTS_LISTENERCLASSES_H

#include <bluetooth/IMWPBtBleListener.h>
#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/IMWPBtMediaListener.h>
#include <bluetooth/IMWPBtMessageListener.h>
#include <bluetooth/IMWPBtPbapListener.h>
#include <bluetooth/IMWPBtPhoneListener.h>
#include <bluetooth/IMWPBtSppListener.h>

#include "btctl/events/Reporter.h"

// For each listener interface its events: the names of their values, and the words that these can be; then
// how each is reported, with its values in that order.

namespace btctl {

using namespace MWPBtType;

inline std::vector<EventDescription> ComEvents() {
  return {
      {"OnOpenBtStatusChanged", {{"status", &WordsOf<PowerStatus>()}}},
      {"OnBtProfileEnableStatusChanged", {{"enabled", &YesNoWords()}}},
      {"OnPairStatusChanged",
       {{"status", &WordsOf<PairStatus>()}, {"reason", &WordsOf<PairFailedReson>()}, {"address"}}},
      {"OnAnswerPairRequest",
       {{"address"},
        {"pinCode"},
        {"androidAutoRequest", &YesNoWords()},
        {"state", &WordsOf<PairRequestState>()}}},
      {"OnBtCapabilityChanged", {{"capability", &WordsOf<Capability>()}, {"value", &SwitchWords()}}},
      {"OnBtAttributeChanged", {{"attribute", &WordsOf<Attribute>()}, {"value"}}},
      {"OnScanStatusChanged", {{"status", &WordsOf<ScanStatus>()}}},
      {"OnDeletePairStatusChanged", {{"status", &YesNoWords()}}},
      {"OnOperatorNameChanged", {{"name"}}},
      {"OnConnectStatusChanged",
       {{"address"}, {"profile", &WordsOf<ProfileId>()}, {"status", &WordsOf<ConnStatus>()}}},
      {"OnSupportProfileChanged", {{"address"}, {"profile", &WordsOf<ProfileId>()}}},
      {"OnWirelessEnableRequest", {{"address"}, {"name"}, {"type", &WordsOf<SupportType>()}}},
      {"OnAndroidAutoPairingResponse", {{"status", &WordsOf<HUStatus>()}}},
      {"OnSetDeviceOOBLinkKeyChanged", {{"address"}, {"success", &YesNoWords()}}},
  };
}

class ComListener : public IMWPBtComListener, private Reporter {
 public:
  using Reporter::Reporter;

 private:
  void OnOpenBtStatusChanged(PowerStatus status) override { Report(__func__, status); }
  void OnBtProfileEnableStatusChanged(int enabled) override { Report(__func__, Flag(enabled)); }
  void OnPairStatusChanged(PairStatus status, PairFailedReson reason, const std::string& address) override {
    Report(__func__, status, reason, address);
  }
  void OnAnswerPairRequest(const std::string& address, const std::string& pinCode, int androidAutoRequest,
                           PairRequestState state) override {
    Report(__func__, address, pinCode, Flag(androidAutoRequest), state);
  }
  void OnBtCapabilityChanged(Capability capability, int value) override {
    Report(__func__, capability, Switched(value));
  }
  void OnBtAttributeChanged(Attribute attribute, const std::string& value) override {
    Report(__func__, attribute, value);
  }
  void OnScanStatusChanged(ScanStatus status) override { Report(__func__, status); }
  void OnDeletePairStatusChanged(int status) override { Report(__func__, Flag(status)); }
  void OnOperatorNameChanged(const std::string& name) override { Report(__func__, name); }
  void OnConnectStatusChanged(const std::string& address, ProfileId profile, ConnStatus status) override {
    Report(__func__, address, profile, status);
  }
  void OnSupportProfileChanged(const std::string& address, ProfileId profile) override {
    Report(__func__, address, profile);
  }
  void OnWirelessEnableRequest(const std::string& address, const std::string& name,
                               SupportType type) override {
    Report(__func__, address, name, type);
  }
  void OnAndroidAutoPairingResponse(HUStatus status) override { Report(__func__, status); }
  void OnSetDeviceOOBLinkKeyChanged(const std::string& address, int success) override {
    Report(__func__, address, Flag(success));
  }
};

inline std::vector<EventDescription> PhoneEvents() {
  return {
      {"OnMobileService", {{"onService", &YesNoWords()}}},
      {"OnRoamingStatusChanged", {{"roaming", &YesNoWords()}}},
      {"OnBtSignalChanged", {{"signal", &AnyNumber()}}},
      {"OnBtBatteryChanged", {{"battery", &AnyNumber()}}},
      {"OnCurrentCallInfoChanged", {{"callCount", &AnyNumber()}}},
      {"OnCallingTimeChanged",
       {{"seconds", &AnyNumber()}, {"callId", &AnyNumber()}, {"active", &YesNoWords()}}},
      {"OnCallStatusChanged",
       {{"callId", &AnyNumber()}, {"status", &WordsOf<CallStatus>()}, {"callCount", &AnyNumber()}}},
      {"OnConferenceChanged", {{"action", &WordsOf<CallAction>()}, {"supported", &YesNoWords()}}},
      {"OnHangupCallChanged", {}},
      {"OnAudioStatusChanged", {{"status", &WordsOf<AudioStatus>()}}},
      {"OnVoiceStatusChanged", {{"started", &YesNoWords()}}},
      {"OnCodecModeChanged", {{"mode", &WordsOf<CodecMode>()}}},
  };
}

class PhoneListener : public IMWPBtPhoneListener, private Reporter {
 public:
  using Reporter::Reporter;

 private:
  void OnMobileService(int onService) override { Report(__func__, Flag(onService)); }
  void OnRoamingStatusChanged(int roaming) override { Report(__func__, Flag(roaming)); }
  void OnBtSignalChanged(unsigned char signal) override { Report(__func__, signal); }
  void OnBtBatteryChanged(unsigned char battery) override { Report(__func__, battery); }
  void OnCurrentCallInfoChanged(int callCount) override { Report(__func__, callCount); }
  void OnCallingTimeChanged(int seconds, int callId, int active) override {
    Report(__func__, seconds, callId, Flag(active));
  }
  void OnCallStatusChanged(int callId, CallStatus status, int callCount) override {
    Report(__func__, callId, status, callCount);
  }
  void OnConferenceChanged(CallAction action, int supported) override {
    Report(__func__, action, Flag(supported));
  }
  void OnHangupCallChanged() override { Report(__func__); }
  void OnAudioStatusChanged(AudioStatus status) override { Report(__func__, status); }
  void OnVoiceStatusChanged(int started) override { Report(__func__, Flag(started)); }
  void OnCodecModeChanged(CodecMode mode) override { Report(__func__, mode); }
};

inline std::vector<EventDescription> MediaEvents() {
  return {
      {"OnMediaAudioStateChanged", {{"address"}, {"started", &YesNoWords()}}},
      {"OnBtMusicPlayChanged", {{"status", &WordsOf<MusicPlayStatus>()}}},
      {"OnAudioTrackChanged", {}},
      {"OnPlayModeChanged", {}},
      {"OnSupportPlayModeChanged", {}},
      {"OnMediaInfoChanged", {}},
      {"OnCoverImageDownloadCompleted", {}},
      {"OnCurPositionChanged", {{"position", &AnyNumber()}, {"totalLength", &AnyNumber()}}},
      {"OnSupportAvrcpNotify", {{"event", &WordsOf<SupportAvrcpEvent>()}, {"supported", &YesNoWords()}}},
      {"OnFastForwardChanged", {{"supported", &YesNoWords()}}},
      {"OnFastRewindChanged", {{"supported", &YesNoWords()}}},
      {"OnSupportBrowserStatusChanged", {{"supported", &YesNoWords()}}},
      {"OnPlayerInfoChanged", {}},
      {"OnBrowserMediaInfoChanged", {}},
      {"OnCurBrowserPathChanged", {{"success", &YesNoWords()}}},
      {"OnBrowserFolderItemTotalChanged", {{"total", &AnyNumber()}}},
      {"OnMediaItemToNowPlayingStatus", {{"success", &YesNoWords()}}},
      {"OnSendPlayItemStatus", {{"success", &YesNoWords()}}},
  };
}

class MediaListener : public IMWPBtMediaListener, private Reporter {
 public:
  using Reporter::Reporter;

 private:
  void OnMediaAudioStateChanged(const std::string& address, int started) override {
    Report(__func__, address, Flag(started));
  }
  void OnBtMusicPlayChanged(MusicPlayStatus status) override { Report(__func__, status); }
  void OnAudioTrackChanged() override { Report(__func__); }
  void OnPlayModeChanged() override { Report(__func__); }
  void OnSupportPlayModeChanged() override { Report(__func__); }
  void OnMediaInfoChanged() override { Report(__func__); }
  void OnCoverImageDownloadCompleted() override { Report(__func__); }
  void OnCurPositionChanged(int position, int totalLength) override {
    Report(__func__, position, totalLength);
  }
  void OnSupportAvrcpNotify(SupportAvrcpEvent event, int supported) override {
    Report(__func__, event, Flag(supported));
  }
  void OnFastForwardChanged(int supported) override { Report(__func__, Flag(supported)); }
  void OnFastRewindChanged(int supported) override { Report(__func__, Flag(supported)); }
  void OnSupportBrowserStatusChanged(int supported) override { Report(__func__, Flag(supported)); }
  void OnPlayerInfoChanged() override { Report(__func__); }
  void OnBrowserMediaInfoChanged() override { Report(__func__); }
  void OnCurBrowserPathChanged(int success) override { Report(__func__, Flag(success)); }
  void OnBrowserFolderItemTotalChanged(int total) override { Report(__func__, total); }
  void OnMediaItemToNowPlayingStatus(int success) override { Report(__func__, Flag(success)); }
  void OnSendPlayItemStatus(int success) override { Report(__func__, Flag(success)); }
};

inline std::vector<EventDescription> PbapEvents() {
  return {
      {"OnPBDownloadStatus", {{"status", &WordsOf<PbapStatus>()}, {"type", &WordsOf<PbapType>()}}},
      {"OnPbDownloadCountChanged", {{"current", &AnyNumber()}, {"total", &AnyNumber()}}},
      {"OnBtCallLogListChanged", {}},
      {"OnDeletePhoneBookChanged", {{"success", &YesNoWords()}}},
      {"OnContactFavoriteChanged", {{"contactId", &AnyNumber()}, {"favorite", &YesNoWords()}}},
  };
}

class PbapListener : public IMWPBtPbapListener, private Reporter {
 public:
  using Reporter::Reporter;

 private:
  void OnPBDownloadStatus(PbapStatus status, PbapType type) override { Report(__func__, status, type); }
  void OnPbDownloadCountChanged(int current, int total) override { Report(__func__, current, total); }
  void OnBtCallLogListChanged() override { Report(__func__); }
  void OnDeletePhoneBookChanged(int success) override { Report(__func__, Flag(success)); }
  void OnContactFavoriteChanged(int contactId, int favorite) override {
    Report(__func__, contactId, Flag(favorite));
  }
};

inline std::vector<EventDescription> MessageEvents() {
  return {
      {"OnMessageDownloadStatus", {{"status", &WordsOf<MsgLoadStatus>()}}},
      {"OnMessageDownloadCountChanged", {{"current", &AnyNumber()}, {"total", &AnyNumber()}}},
      {"OnMessageStatusNotify", {{"status", &WordsOf<MsgStatus>()}, {"handle"}}},
      {"OnMessageSetPropertyStatus", {{"status", &WordsOf<SetMsgProStatus>()}}},
  };
}

class MessageListener : public IMWPBtMessageListener, private Reporter {
 public:
  using Reporter::Reporter;

 private:
  void OnMessageDownloadStatus(MsgLoadStatus status) override { Report(__func__, status); }
  void OnMessageDownloadCountChanged(int current, int total) override { Report(__func__, current, total); }
  void OnMessageStatusNotify(MsgStatus status, std::string handle) override {
    Report(__func__, status, handle);
  }
  void OnMessageSetPropertyStatus(SetMsgProStatus status) override { Report(__func__, status); }
};

inline std::vector<EventDescription> SppEvents() {
  return {
      {"OnSppConnectStatus", {{"address"}, {"type", &WordsOf<SupportType>()}, {"connected", &YesNoWords()}}},
      {"OnSppReceiveBufferChanged", {{"address"}, {"bytes"}}},
      {"OnHIDCalibration", {{"success", &YesNoWords()}}},
      {"OnHIDConnection", {{"address"}, {"status", &WordsOf<ConnStatus>()}}},
  };
}

class SppListener : public IMWPBtSppListener, private Reporter {
 public:
  using Reporter::Reporter;

 private:
  void OnSppConnectStatus(const std::string& address, SupportType type, int connected) override {
    Report(__func__, address, type, Flag(connected));
  }
  void OnSppReceiveBufferChanged(const std::string& address, char* buffer, int length) override {
    Report(__func__, address, Bytes(buffer, static_cast<std::size_t>(length)));
  }
  void OnHIDCalibration(int success) override { Report(__func__, Flag(success)); }
  void OnHIDConnection(std::string address, int status) override {
    Report(__func__, address, static_cast<ConnStatus>(status));
  }
};

inline std::vector<EventDescription> BleEvents() {
  return {
      {"OnBleDiscoveryResponse", {{"started", &YesNoWords()}, {"result", &AnyNumber()}}},
      {"OnBleConnectStatusChanged", {{"address"}, {"status", &WordsOf<ConnStatus>()}}},
      {"OnBleAllService", {{"count", &AnyNumber()}}},
      {"OnBleSmpNotify",
       {{"event", &WordsOf<SmpEvent>()}, {"address"}, {"addressType", &AnyNumber()}, {"passkey"}}},
      {"OnBleCharNotify", {{"handle", &AnyNumber()}, {"bytes"}}},
      {"OnBleGAttribResultNotify", {{"result", &AnyNumber()}, {"bytes"}}},
  };
}

class BleListener : public IMWPBtBleListener, private Reporter {
 public:
  using Reporter::Reporter;

 private:
  void OnBleDiscoveryResponse(int started, int result) override { Report(__func__, Flag(started), result); }
  void OnBleConnectStatusChanged(const std::string& address, int status) override {
    Report(__func__, address, static_cast<ConnStatus>(status));
  }
  void OnBleAllService(int count) override { Report(__func__, count); }
  void OnBleSmpNotify(SmpEvent event, const std::string& address, unsigned char addressType,
                      unsigned int passkey) override {
    Report(__func__, event, address, addressType, SixDigits(passkey));
  }
  void OnBleCharNotify(unsigned short handle, const unsigned char* data, unsigned int length) override {
    Report(__func__, handle, Bytes(data, length));
  }
  void OnBleGAttribResultNotify(unsigned char result, const unsigned char* data,
                                unsigned short length) override {
    Report(__func__, result, Bytes(data, length));
  }
};

}  // namespace btctl

#endif
