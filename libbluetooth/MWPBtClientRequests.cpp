// The requests of the client. Nearly all are one line: guard, then the adapter's method of the same name. The
// longer ones are those that do something else, and the ones that log first. The line numbers they state are
// the ones by which log analysis knows them.

#include <utility>

#include <mwp/MWPSource.h>

#define MWP_LOG_SOURCE "libbluetooth/MWPBtClient"
#include <mwp/MWPLog.h>

#include "libbluetooth/MWPBtClient.h"

namespace {

constexpr int kBluetoothMusicSource = 9;  // of the audio source manager

// Commands of PlayMusic that concern the audio focus.
constexpr int kRequestAudioFocus = -1;
constexpr int kConfirmAudioFocus = 3;
constexpr int kConfirmAudioFocusLoss = 4;

/// The answer of an adapter method, or a default one while the service is not ready. A request that the
/// service does not answer is answered 0.
template <typename Result, typename... Params, typename... Args>
auto IfReady(BtClientIpcAdapter& adapter, Result (BtClientIpcAdapter::*request)(Params...), Args&&... args) {
  if constexpr (std::is_void_v<Result>) {
    if (MWPBtClient::m_bServiceReady != 0) {
      (adapter.*request)(std::forward<Args>(args)...);
    }
    return 0;
  } else {
    return MWPBtClient::m_bServiceReady != 0 ? (adapter.*request)(std::forward<Args>(args)...) : Result();
  }
}

}  // namespace

// Adapter, pairing, connections and paired devices

int MWPBtClient::GetBluetoothServiceStatus() {
  MWP_LOG_AT(82, MWP_LOG_INFO, "%s()", __func__);
  return IfReady(m_adapter, &BtClientIpcAdapter::GetBluetoothServiceStatus);
}
int MWPBtClient::EnableProfile() {
  MWP_LOG_AT(90, MWP_LOG_INFO, "%s()", __func__);
  return IfReady(m_adapter, &BtClientIpcAdapter::EnableProfile);
}
int MWPBtClient::DisableProfile(const std::string& address) {
  MWP_LOG_AT(98, MWP_LOG_INFO, "%s()", __func__);
  return IfReady(m_adapter, &BtClientIpcAdapter::DisableProfile, address);
}
int MWPBtClient::SetPower(int on) { return IfReady(m_adapter, &BtClientIpcAdapter::SetPower, on); }
int MWPBtClient::GetPowerStatus() { return IfReady(m_adapter, &BtClientIpcAdapter::GetPowerStatus); }
// Not guarded: the request goes out, and answers the adapter's result, even while the service is not ready.
int MWPBtClient::SetCapability(MWPBtType::Capability capability, int enable) {
  MWP_LOG_AT(117, MWP_LOG_DEBUG, "MWPBtClient::SetCapability eBtCapability:%d bEnable:%d", capability,
             enable);
  return m_adapter.SetCapability(capability, enable);
}
int MWPBtClient::GetCapability(MWPBtType::Capability capability) {
  return IfReady(m_adapter, &BtClientIpcAdapter::GetCapability, capability);
}
int MWPBtClient::GetAttribute(MWPBtType::Attribute attribute, std::string& value) {
  MWP_LOG_AT(128, MWP_LOG_INFO, "%s()", __func__);
  return IfReady(m_adapter, &BtClientIpcAdapter::GetAttribute, attribute, value);
}
int MWPBtClient::SetAttribute(MWPBtType::Attribute attribute, const std::string& value) {
  return IfReady(m_adapter, &BtClientIpcAdapter::SetAttribute, attribute, value);
}
int MWPBtClient::SetEnableScanTime(int) { return 1; }
std::string MWPBtClient::GetRemotePairDeviceName(const std::string& address) {
  return IfReady(m_adapter, &BtClientIpcAdapter::GetRemotePairDeviceName, address);
}
int MWPBtClient::SetDeviceOOBLinkKey(const std::string& address, const std::vector<unsigned char>& linkKey) {
  return IfReady(m_adapter, &BtClientIpcAdapter::SetDeviceOOBLinkKey, address, linkKey);
}
int MWPBtClient::Pair(const std::string& address, const std::string& pinCode) {
  MWP_LOG_AT(157, MWP_LOG_INFO, "%s()", __func__);
  return IfReady(m_adapter, &BtClientIpcAdapter::Pair, address, pinCode);
}
int MWPBtClient::AnswerPair(const std::string& pinCode, const std::string& address,
                            MWPBtType::PairRequestState state) {
  MWP_LOG_AT(165, MWP_LOG_INFO, "%s()", __func__);
  return IfReady(m_adapter, &BtClientIpcAdapter::AnswerPair, pinCode, address, state);
}
int MWPBtClient::RejectPair(const std::string& address, MWPBtType::PairRequestState state) {
  MWP_LOG_AT(171, MWP_LOG_INFO, "%s()", __func__);
  return IfReady(m_adapter, &BtClientIpcAdapter::RejectPair, address, state);
}
int MWPBtClient::SetScanAction(int start) {
  MWP_LOG_AT(177, MWP_LOG_INFO, "%s()", __func__);
  return IfReady(m_adapter, &BtClientIpcAdapter::SetScanAction, start);
}
int MWPBtClient::Connect(const std::string& address, MWPBtType::ProfileId profile, int only) {
  return IfReady(m_adapter, &BtClientIpcAdapter::Connect, address, profile, only);
}
int MWPBtClient::DisConnect(const std::string& address, MWPBtType::ProfileId profile) {
  return IfReady(m_adapter, &BtClientIpcAdapter::DisConnect, address, profile);
}
int MWPBtClient::ReConnect(const std::string& address, MWPBtType::ProfileId profile) {
  return IfReady(m_adapter, &BtClientIpcAdapter::ReConnect, address, profile);
}
void MWPBtClient::SetAutoConnect(int enable) {
  IfReady(m_adapter, &BtClientIpcAdapter::SetAutoConnect, enable);
}
int MWPBtClient::SetDeviceDisableConnect(const std::string&, int) { return 1; }
int MWPBtClient::GetCurConnectDevInfo(MWPBtType::ProfileId profile, std::string& address) {
  return IfReady(m_adapter, &BtClientIpcAdapter::GetCurConnectDevInfo, profile, address);
}
int MWPBtClient::DeletePairDeviceList() {
  return IfReady(m_adapter, &BtClientIpcAdapter::DeletePairDeviceList);
}
MWPTypeDevice MWPBtClient::GetPairDevice(const std::string&) { return MWPTypeDevice(); }
int MWPBtClient::DeletePairDevice(const std::string& address, int deleting) {
  return IfReady(m_adapter, &BtClientIpcAdapter::DeletePairDevice, address, deleting);
}
void MWPBtClient::RemoveDevice(const std::string& address) {
  IfReady(m_adapter, &BtClientIpcAdapter::RemoveDevice, address);
}
int MWPBtClient::MovePairDevicePosion(const std::string& address, int position) {
  return IfReady(m_adapter, &BtClientIpcAdapter::MovePairDevicePosion, address, position);
}
int MWPBtClient::GetScanDeviceList(std::list<MWPTypeScanDevice>&) { return 1; }
void MWPBtClient::GetOperator(std::string&) {}
int MWPBtClient::EnterTestMode() { return IfReady(m_adapter, &BtClientIpcAdapter::EnterTestMode); }
int MWPBtClient::SetAECParameter(const std::string&, unsigned short, unsigned short, unsigned short,
                                 unsigned short, unsigned short, unsigned short, unsigned short,
                                 unsigned short, unsigned short) {
  return 0;
}
int MWPBtClient::ActiveBQB(int, const std::string&) { return 1; }
int MWPBtClient::SetEirData(const std::string&) { return 1; }
// Not guarded, as SetCapability. Answers 0: the service gives no answer.
int MWPBtClient::SetWirelessEnable(const std::string& address, int enable) {
  m_adapter.SetWirelessEnable(address, enable);
  return 0;
}

// Not guarded, as SetCapability. Answers 0: the service gives no answer.
int MWPBtClient::ClearScanedDeviceList() {
  MWP_LOG_AT(302, MWP_LOG_INFO, "%s()", __func__);
  m_adapter.ClearScanedDeviceList();
  return 0;
}

int MWPBtClient::GetPairListIndexByAddress(const std::string& address) {
  return IfReady(m_adapter, &BtClientIpcAdapter::GetPairListIndexByAddress, address);
}
MWPTypeDevice MWPBtClient::GetPairDeviceInfoByAddress(const std::string& address) {
  return IfReady(m_adapter, &BtClientIpcAdapter::GetPairDeviceInfoByAddress, address);
}
int MWPBtClient::SetAndroidAutoStatus(int connected) {
  return IfReady(m_adapter, &BtClientIpcAdapter::SetAndroidAutoStatus, connected);
}
int MWPBtClient::RequestAndroidAutoPairing(const std::string& address, int pairingMethod) {
  return IfReady(m_adapter, &BtClientIpcAdapter::RequestAndroidAutoPairing, address, pairingMethod);
}

// Phone

MWPTypeConnectionState MWPBtClient::GetPhoneConnectionState() {
  return IfReady(m_adapter, &BtClientIpcAdapter::GetPhoneConnectionState);
}
int MWPBtClient::AcceptCall() { return IfReady(m_adapter, &BtClientIpcAdapter::AcceptCall); }
int MWPBtClient::RejectCall() { return IfReady(m_adapter, &BtClientIpcAdapter::RejectCall); }
int MWPBtClient::TerminateCall() { return IfReady(m_adapter, &BtClientIpcAdapter::TerminateCall); }
int MWPBtClient::DialCall(const std::string& number) {
  return IfReady(m_adapter, &BtClientIpcAdapter::DialCall, number);
}
int MWPBtClient::RedialCall() { return IfReady(m_adapter, &BtClientIpcAdapter::RedialCall); }
int MWPBtClient::MultipleWayCall(MWPBtType::CallAction action, int callId) {
  return IfReady(m_adapter, &BtClientIpcAdapter::MultipleWayCall, action, callId);
}
int MWPBtClient::GetCurCallStatus(int callId) {
  return IfReady(m_adapter, &BtClientIpcAdapter::GetCurCallStatus, callId);
}
int MWPBtClient::GetCurCallCount() { return IfReady(m_adapter, &BtClientIpcAdapter::GetCurCallCount); }
int MWPBtClient::GetCurrentCallInfo(MWPTypeCallInfo& info) {
  return IfReady(m_adapter, &BtClientIpcAdapter::GetCurrentCallInfo, info);
}
int MWPBtClient::SendDTMF(char tone) { return IfReady(m_adapter, &BtClientIpcAdapter::SendDTMF, tone); }
int MWPBtClient::SetAudioPrivacy(int onPhone) {
  return IfReady(m_adapter, &BtClientIpcAdapter::SetAudioPrivacy, onPhone);
}
int MWPBtClient::GetAudioIsPrivacy() { return IfReady(m_adapter, &BtClientIpcAdapter::GetAudioIsPrivacy); }
void MWPBtClient::StartVoiceRecognition() { IfReady(m_adapter, &BtClientIpcAdapter::StartVoiceRecognition); }
void MWPBtClient::StopVoiceRecognition() { IfReady(m_adapter, &BtClientIpcAdapter::StopVoiceRecognition); }
int MWPBtClient::EnableSWAEC(int) { return 1; }
int MWPBtClient::DisableNREC() { return 1; }
int MWPBtClient::GetCurrentMobilePhoneNumber(std::string& number) {
  return IfReady(m_adapter, &BtClientIpcAdapter::GetCurrentMobilePhoneNumber, number);
}
int MWPBtClient::PlayRingtone() { return 0; }
int MWPBtClient::StopRingtone() { return 1; }
int MWPBtClient::PlayPreviewRingtone(const std::string& path) {
  return IfReady(m_adapter, &BtClientIpcAdapter::PlayPreviewRingtone, path);
}
int MWPBtClient::StopPreviewRingtone() {
  return IfReady(m_adapter, &BtClientIpcAdapter::StopPreviewRingtone);
}

// Media

MWPTypeConnectionState MWPBtClient::GetMediaConnectionState() {
  return IfReady(m_adapter, &BtClientIpcAdapter::GetMediaConnectionState);
}
int MWPBtClient::EnableAudioDevice(int enable) {
  return IfReady(m_adapter, &BtClientIpcAdapter::EnableAudioDevice, enable);
}

// Three commands are for the audio source manager and are carried out whether or not the service is ready;
// the caller sees 1. Every other command goes to the service, without the confirmation.
int MWPBtClient::PlayMusic(int command, int confirmation) {
  MWP_LOG_AT(456, MWP_LOG_DEBUG, "MWPBtClient::PlayMusic");
  switch (command) {
    case kRequestAudioFocus:
      MWPSource::Request(kBluetoothMusicSource, MWPSource::AUDIO_GAIN);
      return 1;
    case kConfirmAudioFocus:
      MWPSource::ActiveSourceConfirm(kBluetoothMusicSource, confirmation);
      m_adapter.EnableAudioDevice(1);
      return 1;
    case kConfirmAudioFocusLoss:
      MWPSource::DeactiveSourceConfirm(kBluetoothMusicSource, confirmation);
      return 1;
    default:
      return IfReady(m_adapter, &BtClientIpcAdapter::PlayMusic, command);
  }
}

int MWPBtClient::StopMusic(int mute) {
  MWP_LOG_AT(478, MWP_LOG_DEBUG, "MWPBtClient::StopMusic");
  return IfReady(m_adapter, &BtClientIpcAdapter::StopMusic, mute);
}
int MWPBtClient::PreviousMusic() { return IfReady(m_adapter, &BtClientIpcAdapter::PreviousMusic); }
int MWPBtClient::NextMusic() { return IfReady(m_adapter, &BtClientIpcAdapter::NextMusic); }
int MWPBtClient::StartFastForward() { return IfReady(m_adapter, &BtClientIpcAdapter::StartFastForward); }
int MWPBtClient::StopFastForward() { return IfReady(m_adapter, &BtClientIpcAdapter::StopFastForward); }
int MWPBtClient::StartFastReverse() { return IfReady(m_adapter, &BtClientIpcAdapter::StartFastReverse); }
int MWPBtClient::StopFastReverse() { return IfReady(m_adapter, &BtClientIpcAdapter::StopFastReverse); }
int MWPBtClient::GetMusicPlayStatus() { return IfReady(m_adapter, &BtClientIpcAdapter::GetMusicPlayStatus); }
int MWPBtClient::RegGetPlayStatus(int enable, int milliseconds) {
  return IfReady(m_adapter, &BtClientIpcAdapter::RegGetPlayStatus, enable, milliseconds);
}
int MWPBtClient::GetCurPlayPosition(int& position, int& totalLength) {
  return IfReady(m_adapter, &BtClientIpcAdapter::GetCurPlayPosition, position, totalLength);
}
int MWPBtClient::RegGetMediaInfo(int enable, int milliseconds) {
  return IfReady(m_adapter, &BtClientIpcAdapter::RegGetMediaInfo, enable, milliseconds);
}
int MWPBtClient::GetMediaInfo(MWPTypeMediaInfo& info) {
  return IfReady(m_adapter, &BtClientIpcAdapter::GetMediaInfo, info);
}
int MWPBtClient::GetCurPlayMode(std::vector<MWPTypePlayMode>& modes) {
  return IfReady(m_adapter, &BtClientIpcAdapter::GetCurPlayMode, modes);
}
int MWPBtClient::SetCurPlayMode(MWPTypePlayMode mode) {
  return IfReady(m_adapter, &BtClientIpcAdapter::SetCurPlayMode, mode);
}
int MWPBtClient::GetSupportPlayMode(std::vector<MWPTypePlayMode>& modes) {
  return IfReady(m_adapter, &BtClientIpcAdapter::GetSupportPlayMode, modes);
}
int MWPBtClient::IsSupportAvrcpNotify(MWPBtType::SupportAvrcpEvent event) {
  return IfReady(m_adapter, &BtClientIpcAdapter::IsSupportAvrcpNotify, event);
}
int MWPBtClient::IsSupportBrowserInfo() {
  return IfReady(m_adapter, &BtClientIpcAdapter::IsSupportBrowserInfo);
}
int MWPBtClient::RootDirectory(int startPosition, int maxCount) {
  return IfReady(m_adapter, &BtClientIpcAdapter::RootDirectory, startPosition, maxCount);
}
int MWPBtClient::IsRootDirectory() { return IfReady(m_adapter, &BtClientIpcAdapter::IsRootDirectory); }
int MWPBtClient::FolderUp(int startPosition, int maxCount) {
  return IfReady(m_adapter, &BtClientIpcAdapter::FolderUp, startPosition, maxCount);
}
int MWPBtClient::FolderDown(const std::string& uid, int startPosition, int maxCount) {
  return IfReady(m_adapter, &BtClientIpcAdapter::FolderDown, uid, startPosition, maxCount);
}
int MWPBtClient::BrowsingSearch(const std::string& uid, const std::string& keyWords, int startPosition,
                                int maxCount) {
  return IfReady(m_adapter, &BtClientIpcAdapter::BrowsingSearch, uid, keyWords, startPosition, maxCount);
}
int MWPBtClient::BrowsingNowPlayingList(int startPosition, int maxCount) {
  return IfReady(m_adapter, &BtClientIpcAdapter::BrowsingNowPlayingList, startPosition, maxCount);
}
int MWPBtClient::PlayItem(const std::string& uid, MWPBtType::BrowserScopeType scope) {
  MWP_LOG_AT(623, MWP_LOG_INFO, "%s()", __func__);
  return IfReady(m_adapter, &BtClientIpcAdapter::PlayItem, uid, scope);
}
int MWPBtClient::AddMediaItemToNowPlaying(const std::string& uid, MWPBtType::BrowserScopeType scope) {
  MWP_LOG_AT(629, MWP_LOG_INFO, "%s()", __func__);
  return IfReady(m_adapter, &BtClientIpcAdapter::AddMediaItemToNowPlaying, uid, scope);
}
int MWPBtClient::GetMediaItemList(std::list<MWPTypeMediaItem>& items, MWPBtType::BrowserScopeType scope) {
  MWP_LOG_AT(636, MWP_LOG_INFO, "%s()", __func__);
  return IfReady(m_adapter, &BtClientIpcAdapter::GetCurMediaItemList, items, scope);
}
int MWPBtClient::GetBrowsingFolderItemTotal(const std::string& uid) {
  return IfReady(m_adapter, &BtClientIpcAdapter::GetBrowsingFolderItemTotal, uid);
}

// Phone book

int MWPBtClient::StartPhoneBookDownload(MWPBtType::PbapType type) {
  return IfReady(m_adapter, &BtClientIpcAdapter::StartPhoneBookDownload, type);
}
int MWPBtClient::StopPhoneBookDownload() {
  MWP_LOG_AT(655, MWP_LOG_INFO, "%s()", __func__);
  return IfReady(m_adapter, &BtClientIpcAdapter::StopPhoneBookDownload);
}
int MWPBtClient::GetContactList(std::list<MWPTypeContact>& contacts) {
  return IfReady(m_adapter, &BtClientIpcAdapter::GetContactList, contacts);
}
int MWPBtClient::GetFavContactList(std::list<MWPTypeContact>& contacts) {
  MWP_LOG_AT(667, MWP_LOG_INFO, "%s()", __func__);
  return IfReady(m_adapter, &BtClientIpcAdapter::GetFavContactList, contacts);
}
int MWPBtClient::GetContactCount() { return IfReady(m_adapter, &BtClientIpcAdapter::GetContactCount); }
int MWPBtClient::DeleteContactById(int id) {
  return IfReady(m_adapter, &BtClientIpcAdapter::DeleteContactById, id);
}
int MWPBtClient::ClearContact() { return IfReady(m_adapter, &BtClientIpcAdapter::ClearContact); }
int MWPBtClient::GetCallLogList(CallLogType type, std::list<MWPTypeCallLog>& logs) {
  return IfReady(m_adapter, &BtClientIpcAdapter::GetCallLogList, type, logs);
}
int MWPBtClient::DeleteCallLogById(int id) {
  return IfReady(m_adapter, &BtClientIpcAdapter::DeleteCallLogById, id);
}
int MWPBtClient::ClearCallLog(CallLogType type) {
  return IfReady(m_adapter, &BtClientIpcAdapter::ClearCallLog, type);
}
int MWPBtClient::GetCallLogCount(CallLogType type) {
  return IfReady(m_adapter, &BtClientIpcAdapter::GetCallLogCount, type);
}
int MWPBtClient::SetContactFavorite(int contactId, int favorite) {
  MWP_LOG_AT(716, MWP_LOG_INFO, "%s()", __func__);
  return IfReady(m_adapter, &BtClientIpcAdapter::SetContactFavorite, contactId, favorite);
}

// Messages: the service offers none

int MWPBtClient::StartMessageDownload() { return 0; }
int MWPBtClient::StopDownloadMessage() { return 0; }
int MWPBtClient::GetMessageLoadStatus() { return MWPBtType::BT_MSG_LOAD_NOT_SUPPORTED; }
int MWPBtClient::SendMessage(const std::string&, const std::string&) { return 0; }
int MWPBtClient::SetMessageReaded(const std::string&) { return 0; }
MWPTypeMessage MWPBtClient::GetMessageByIndex(MWPBtMessageType, int) { return MWPTypeMessage(); }
MWPTypeMessage MWPBtClient::GetMessageByHandle(const std::string&) { return MWPTypeMessage(); }
int MWPBtClient::GetMessageList(MWPBtMessageType, std::list<MWPTypeMessage>&) { return 0; }
int MWPBtClient::DeleteMessageByHandle(const std::string&, int) { return 0; }
int MWPBtClient::ClearMessage(MWPBtMessageType) { return 0; }
int MWPBtClient::GetMessageCount(MWPBtMessageType, int) { return 0; }
int MWPBtClient::GetMessageCount(MWPBtMessageType) { return 0; }

// SPP and HID

int MWPBtClient::SetRfCommUuid(const std::string& uuid) {
  return IfReady(m_adapter, &BtClientIpcAdapter::SetRfCommUuid, uuid);
}
int MWPBtClient::SppSendText(const std::string& address, const std::string& text) {
  return IfReady(m_adapter, &BtClientIpcAdapter::SppSendText, address, text);
}
// Not guarded, and answers 1 whatever the adapter answers.
int MWPBtClient::SppSendBuffer(const std::string& address, char* buffer, int length) {
  MWP_LOG_AT(800, MWP_LOG_DEBUG, "MWPBtClient::SppSendBuffer length:%d", length);
  m_adapter.SppSendBuffer(address, buffer, length);
  return 1;
}
int MWPBtClient::SetHIDCalibration(const std::string& address, MWPBtType::HIDTYPE type) {
  return IfReady(m_adapter, &BtClientIpcAdapter::SetHIDCalibration, address, type);
}
int MWPBtClient::SetHIDSendXY(const std::string& address, MWPBtType::HIDTYPE type, int x, int y,
                              unsigned char button) {
  return IfReady(m_adapter, &BtClientIpcAdapter::SetHIDSendXY, address, type, x, y, button);
}
int MWPBtClient::SetHIDSendKey(const std::string& address, int key) {
  return IfReady(m_adapter, &BtClientIpcAdapter::SetHIDSendKey, address, key);
}

// Bluetooth Low Energy: the service offers none

int MWPBtClient::BleInit() { return 0; }
int MWPBtClient::BleDeInit() { return 0; }
int MWPBtClient::BleDiscovery(int, MWPBtType::BleScanMode, MWPBtType::BleScanFilter) { return 0; }
int MWPBtClient::BleStopDiscovery() { return 0; }
int MWPBtClient::BleGATTConnect(const std::string&, unsigned char) { return 0; }
int MWPBtClient::BleGATTDisConnect() { return 0; }
int MWPBtClient::BleGetAllService() { return 0; }
int MWPBtClient::BleGetServiceByUUID(const std::string&, int&) { return 0; }
int MWPBtClient::BleGetCharByUUID(const std::string&, int&, int&, int&) { return 0; }
int MWPBtClient::BleGetDescByUUID(const std::string&, int&, int&, int&) { return 0; }
int MWPBtClient::BleGATTRegisterCharNotification(unsigned short) { return 0; }
int MWPBtClient::BleGATTReadChar(unsigned short) { return 0; }
int MWPBtClient::BleGATTWriteChar(unsigned short, const unsigned char*, unsigned int) { return 0; }
int MWPBtClient::BleGetDiscoveryDevices(std::list<MWPTypeBleDevice>&) { return 0; }
int MWPBtClient::BleGetAllServices(std::list<MWPTypeGattService>&) { return 0; }
int MWPBtClient::BleSMPPair(const std::string&, unsigned char) { return 0; }
int MWPBtClient::BleSmpPasskeyReply(int, unsigned int) { return 0; }
int MWPBtClient::BleGetWhitelistSize() { return 0; }
int MWPBtClient::BleAddToWhiteList(const std::string&, unsigned char) { return 0; }
int MWPBtClient::BleRemoveFromWhitelist(const std::string&, unsigned char) { return 0; }
int MWPBtClient::BleClearWhitelist() { return 0; }
