// The listener interfaces do nothing by default: an application overrides what it needs.

#include <bluetooth/IMWPBtBleListener.h>
#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/IMWPBtMediaListener.h>
#include <bluetooth/IMWPBtMessageListener.h>
#include <bluetooth/IMWPBtPbapListener.h>
#include <bluetooth/IMWPBtPhoneListener.h>
#include <bluetooth/IMWPBtSppListener.h>

void IMWPBtComListener::OnOpenBtStatusChanged(MWPBtType::PowerStatus) {}
void IMWPBtComListener::OnBtProfileEnableStatusChanged(int) {}
void IMWPBtComListener::OnPairStatusChanged(MWPBtType::PairStatus, MWPBtType::PairFailedReson,
                                            const std::string&) {}
void IMWPBtComListener::OnAnswerPairRequest(const std::string&, const std::string&, int,
                                            MWPBtType::PairRequestState) {}
void IMWPBtComListener::OnBtCapabilityChanged(MWPBtType::Capability, int) {}
void IMWPBtComListener::OnBtAttributeChanged(MWPBtType::Attribute, const std::string&) {}
void IMWPBtComListener::OnScanStatusChanged(MWPBtType::ScanStatus) {}
void IMWPBtComListener::OnDeletePairStatusChanged(int) {}
void IMWPBtComListener::OnOperatorNameChanged(const std::string&) {}
void IMWPBtComListener::OnConnectStatusChanged(const std::string&, MWPBtType::ProfileId,
                                               MWPBtType::ConnStatus) {}
void IMWPBtComListener::OnSupportProfileChanged(const std::string&, MWPBtType::ProfileId) {}
void IMWPBtComListener::OnWirelessEnableRequest(const std::string&, const std::string&,
                                                MWPBtType::SupportType) {}
void IMWPBtComListener::OnAndroidAutoPairingResponse(MWPBtType::HUStatus) {}
void IMWPBtComListener::OnSetDeviceOOBLinkKeyChanged(const std::string&, int) {}

void IMWPBtPhoneListener::OnMobileService(int) {}
void IMWPBtPhoneListener::OnRoamingStatusChanged(int) {}
void IMWPBtPhoneListener::OnBtSignalChanged(unsigned char) {}
void IMWPBtPhoneListener::OnBtBatteryChanged(unsigned char) {}
void IMWPBtPhoneListener::OnCurrentCallInfoChanged(int) {}
void IMWPBtPhoneListener::OnCallingTimeChanged(int, int, int) {}
void IMWPBtPhoneListener::OnCallStatusChanged(int, MWPBtType::CallStatus, int) {}
void IMWPBtPhoneListener::OnConferenceChanged(MWPBtType::CallAction, int) {}
void IMWPBtPhoneListener::OnHangupCallChanged() {}
void IMWPBtPhoneListener::OnAudioStatusChanged(MWPBtType::AudioStatus) {}
void IMWPBtPhoneListener::OnVoiceStatusChanged(int) {}
void IMWPBtPhoneListener::OnCodecModeChanged(MWPBtType::CodecMode) {}

void IMWPBtMediaListener::OnMediaAudioStateChanged(const std::string&, int) {}
void IMWPBtMediaListener::OnBtMusicPlayChanged(MWPBtType::MusicPlayStatus) {}
void IMWPBtMediaListener::OnAudioTrackChanged() {}
void IMWPBtMediaListener::OnPlayModeChanged() {}
void IMWPBtMediaListener::OnSupportPlayModeChanged() {}
void IMWPBtMediaListener::OnMediaInfoChanged() {}
void IMWPBtMediaListener::OnCoverImageDownloadCompleted() {}
void IMWPBtMediaListener::OnCurPositionChanged(int, int) {}
void IMWPBtMediaListener::OnSupportAvrcpNotify(MWPBtType::SupportAvrcpEvent, int) {}
void IMWPBtMediaListener::OnFastForwardChanged(int) {}
void IMWPBtMediaListener::OnFastRewindChanged(int) {}
void IMWPBtMediaListener::OnSupportBrowserStatusChanged(int) {}
void IMWPBtMediaListener::OnPlayerInfoChanged() {}
void IMWPBtMediaListener::OnBrowserMediaInfoChanged() {}
void IMWPBtMediaListener::OnCurBrowserPathChanged(int) {}
void IMWPBtMediaListener::OnBrowserFolderItemTotalChanged(int) {}
void IMWPBtMediaListener::OnMediaItemToNowPlayingStatus(int) {}
void IMWPBtMediaListener::OnSendPlayItemStatus(int) {}

void IMWPBtPbapListener::OnPBDownloadStatus(MWPBtType::PbapStatus, MWPBtType::PbapType) {}
void IMWPBtPbapListener::OnPbDownloadCountChanged(int, int) {}
void IMWPBtPbapListener::OnBtCallLogListChanged() {}
void IMWPBtPbapListener::OnDeletePhoneBookChanged(int) {}
void IMWPBtPbapListener::OnContactFavoriteChanged(int, int) {}

void IMWPBtMessageListener::OnMessageDownloadStatus(MWPBtType::MsgLoadStatus) {}
void IMWPBtMessageListener::OnMessageDownloadCountChanged(int, int) {}
void IMWPBtMessageListener::OnMessageStatusNotify(MWPBtType::MsgStatus, std::string) {}
void IMWPBtMessageListener::OnMessageSetPropertyStatus(MWPBtType::SetMsgProStatus) {}

void IMWPBtSppListener::OnSppConnectStatus(const std::string&, MWPBtType::SupportType, int) {}
void IMWPBtSppListener::OnSppReceiveBufferChanged(const std::string&, char*, int) {}
void IMWPBtSppListener::OnHIDCalibration(int) {}
void IMWPBtSppListener::OnHIDConnection(std::string, int) {}

void IMWPBtBleListener::OnBleDiscoveryResponse(int, int) {}
void IMWPBtBleListener::OnBleConnectStatusChanged(const std::string&, int) {}
void IMWPBtBleListener::OnBleAllService(int) {}
void IMWPBtBleListener::OnBleSmpNotify(MWPBtType::SmpEvent, const std::string&, unsigned char, unsigned int) {
}
void IMWPBtBleListener::OnBleCharNotify(unsigned short, const unsigned char*, unsigned int) {}
void IMWPBtBleListener::OnBleGAttribResultNotify(unsigned char, const unsigned char*, unsigned short) {}
