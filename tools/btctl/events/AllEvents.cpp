#include "btctl/events/Event.h"

namespace btctl {

const std::vector<EventDescription>& AllEvents() {
  static const std::vector<EventDescription> events{
      // IMWPBtComListener
      {"OnOpenBtStatusChanged", {"status"}},
      {"OnBtProfileEnableStatusChanged", {"enabled"}},
      {"OnPairStatusChanged", {"status", "reason", "address"}},
      {"OnAnswerPairRequest", {"address", "pinCode", "androidAutoRequest", "state"}},
      {"OnBtCapabilityChanged", {"capability", "value"}},
      {"OnBtAttributeChanged", {"attribute", "value"}},
      {"OnScanStatusChanged", {"status"}},
      {"OnDeletePairStatusChanged", {"status"}},
      {"OnOperatorNameChanged", {"name"}},
      {"OnConnectStatusChanged", {"address", "profile", "status"}},
      {"OnSupportProfileChanged", {"address", "profile"}},
      {"OnWirelessEnableRequest", {"address", "name", "type"}},
      {"OnAndroidAutoPairingResponse", {"status"}},
      {"OnSetDeviceOOBLinkKeyChanged", {"address", "success"}},
      // IMWPBtPhoneListener
      {"OnMobileService", {"onService"}},
      {"OnRoamingStatusChanged", {"roaming"}},
      {"OnBtSignalChanged", {"signal"}},
      {"OnBtBatteryChanged", {"battery"}},
      {"OnCurrentCallInfoChanged", {"callCount"}},
      {"OnCallingTimeChanged", {"seconds", "callId", "active"}},
      {"OnCallStatusChanged", {"callId", "status", "callCount"}},
      {"OnConferenceChanged", {"action", "supported"}},
      {"OnHangupCallChanged", {}},
      {"OnAudioStatusChanged", {"status"}},
      {"OnVoiceStatusChanged", {"started"}},
      {"OnCodecModeChanged", {"mode"}},
      // IMWPBtMediaListener
      {"OnMediaAudioStateChanged", {"address", "started"}},
      {"OnBtMusicPlayChanged", {"status"}},
      {"OnAudioTrackChanged", {}},
      {"OnPlayModeChanged", {}},
      {"OnSupportPlayModeChanged", {}},
      {"OnMediaInfoChanged", {}},
      {"OnCoverImageDownloadCompleted", {}},
      {"OnCurPositionChanged", {"position", "totalLength"}},
      {"OnSupportAvrcpNotify", {"event", "supported"}},
      {"OnFastForwardChanged", {"supported"}},
      {"OnFastRewindChanged", {"supported"}},
      {"OnSupportBrowserStatusChanged", {"supported"}},
      {"OnPlayerInfoChanged", {}},
      {"OnBrowserMediaInfoChanged", {}},
      {"OnCurBrowserPathChanged", {"success"}},
      {"OnBrowserFolderItemTotalChanged", {"total"}},
      {"OnMediaItemToNowPlayingStatus", {"success"}},
      {"OnSendPlayItemStatus", {"success"}},
      // IMWPBtPbapListener
      {"OnPBDownloadStatus", {"status", "type"}},
      {"OnPbDownloadCountChanged", {"current", "total"}},
      {"OnBtCallLogListChanged", {}},
      {"OnDeletePhoneBookChanged", {"success"}},
      {"OnContactFavoriteChanged", {"contactId", "favorite"}},
      // IMWPBtMessageListener
      {"OnMessageDownloadStatus", {"status"}},
      {"OnMessageDownloadCountChanged", {"current", "total"}},
      {"OnMessageStatusNotify", {"status", "handle"}},
      {"OnMessageSetPropertyStatus", {"status"}},
      // IMWPBtSppListener
      {"OnSppConnectStatus", {"address", "type", "connected"}},
      {"OnSppReceiveBufferChanged", {"address", "bytes"}},
      {"OnHIDCalibration", {"success"}},
      {"OnHIDConnection", {"address", "status"}},
      // IMWPBtBleListener
      {"OnBleDiscoveryResponse", {"started", "result"}},
      {"OnBleConnectStatusChanged", {"address", "status"}},
      {"OnBleAllService", {"count"}},
      {"OnBleSmpNotify", {"event", "address", "addressType", "passkey"}},
      {"OnBleCharNotify", {"handle", "bytes"}},
      {"OnBleGAttribResultNotify", {"result", "bytes"}},
  };
  return events;
}

}  // namespace btctl
