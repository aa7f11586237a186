#ifndef LIBBLUETOOTH_MWPBTCLIENT_H
#define LIBBLUETOOTH_MWPBTCLIENT_H

#include <list>
#include <map>
#include <string>
#include <vector>

#include <bluetooth/IMWPBtListenerBase.h>
#include <bluetooth/MWPBtExport.h>
#include <bluetooth/MWPBtRecords.h>
#include <bluetooth/MWPBtType.h>
#include <mwp/IMWPAppListener.h>

#include "ipc/BtClientIpcAdapter.h"
#include "libbluetooth/IMWPService.h"
#include "libbluetooth/MWPSingleton.h"

/// The one client of the Bluetooth service: start and stop, the registry of listeners, the requests that the
/// facades forward and the fan-out of the service's events. Reached through MWPSingleton<MWPBtClient>.
class MWP_BT_API MWPBtClient : public IMWPService<IMWPBtListenerBase>, public IMWPAppListener {
 public:
  /// 1 while the library is started, else 0. The facades look at the first, the requests below at the second;
  /// both change together.
  static int m_bInitClient;
  static int m_bServiceReady;

  /// Attaches the shared memory and registers with the application manager; makes no connection.
  MWPBtClient();
  /// Leaves the application manager with a pointer to this object: it is not unregistered there.
  ~MWPBtClient() override;

  int InitInstance() override;
  int ExitInstance() override;
  void InitListener() override;
  void ExitListener() override;

  /// Of the application manager. Notes that the Bluetooth service has come up; changes nothing else.
  void OnModuleStatusChanged(AppBootInfo& info) override;

  // Requests. Unless its definition shows otherwise, a request answers 0 (an empty string, a default record)
  // while m_bServiceReady is 0, and otherwise what the adapter's method of the same name answers. Requests
  // that are declared int although the service gives no answer return 0.

  // Adapter, pairing, connections and paired devices
  int GetBluetoothServiceStatus();
  int EnableProfile();
  int DisableProfile(const std::string& address);
  int SetPower(int on);
  int GetPowerStatus();
  int SetCapability(MWPBtType::Capability capability, int enable);
  int GetCapability(MWPBtType::Capability capability);
  int GetAttribute(MWPBtType::Attribute attribute, std::string& value);
  int SetAttribute(MWPBtType::Attribute attribute, const std::string& value);
  int SetEnableScanTime(int seconds);
  std::string GetRemotePairDeviceName(const std::string& address);
  int SetDeviceOOBLinkKey(const std::string& address, const std::vector<unsigned char>& linkKey);
  int Pair(const std::string& address, const std::string& pinCode);
  int AnswerPair(const std::string& pinCode, const std::string& address, MWPBtType::PairRequestState state);
  int RejectPair(const std::string& address, MWPBtType::PairRequestState state);
  int SetScanAction(int start);
  int Connect(const std::string& address, MWPBtType::ProfileId profile, int only);
  int DisConnect(const std::string& address, MWPBtType::ProfileId profile);
  int ReConnect(const std::string& address, MWPBtType::ProfileId profile);
  void SetAutoConnect(int enable);
  int SetDeviceDisableConnect(const std::string& address, int disable);
  int GetCurConnectDevInfo(MWPBtType::ProfileId profile, std::string& address);
  int DeletePairDeviceList();
  MWPTypeDevice GetPairDevice(const std::string& address);
  int DeletePairDevice(const std::string& address, int deleting);
  void RemoveDevice(const std::string& address);
  int MovePairDevicePosion(const std::string& address, int position);
  int GetScanDeviceList(std::list<MWPTypeScanDevice>& devices);
  void GetOperator(std::string& name);
  int EnterTestMode();
  int SetAECParameter(const std::string& name, unsigned short value1, unsigned short value2,
                      unsigned short value3, unsigned short value4, unsigned short value5,
                      unsigned short value6, unsigned short value7, unsigned short value8,
                      unsigned short value9);
  int ActiveBQB(int enable, const std::string& argument);
  int SetEirData(const std::string& data);
  int SetWirelessEnable(const std::string& address, int enable);
  int ClearScanedDeviceList();
  int GetPairListIndexByAddress(const std::string& address);
  MWPTypeDevice GetPairDeviceInfoByAddress(const std::string& address);
  int SetAndroidAutoStatus(int connected);
  int RequestAndroidAutoPairing(const std::string& address, int pairingMethod);

  // Phone
  MWPTypeConnectionState GetPhoneConnectionState();
  int AcceptCall();
  int RejectCall();
  int TerminateCall();
  int DialCall(const std::string& number);
  int RedialCall();
  int MultipleWayCall(MWPBtType::CallAction action, int callId);
  int GetCurCallStatus(int callId);
  int GetCurCallCount();
  int GetCurrentCallInfo(MWPTypeCallInfo& info);
  int SendDTMF(char tone);
  int SetAudioPrivacy(int onPhone);
  int GetAudioIsPrivacy();
  void StartVoiceRecognition();
  void StopVoiceRecognition();
  int EnableSWAEC(int enable);
  int DisableNREC();
  int GetCurrentMobilePhoneNumber(std::string& number);
  int PlayRingtone();
  int StopRingtone();
  int PlayPreviewRingtone(const std::string& path);
  int StopPreviewRingtone();

  // Media
  MWPTypeConnectionState GetMediaConnectionState();
  int EnableAudioDevice(int enable);
  int PlayMusic(int command, int confirmation);
  int StopMusic(int mute);
  int PreviousMusic();
  int NextMusic();
  int StartFastForward();
  int StopFastForward();
  int StartFastReverse();
  int StopFastReverse();
  int GetMusicPlayStatus();
  int RegGetPlayStatus(int enable, int milliseconds);
  int GetCurPlayPosition(int& position, int& totalLength);
  int RegGetMediaInfo(int enable, int milliseconds);
  int GetMediaInfo(MWPTypeMediaInfo& info);
  int GetCurPlayMode(std::vector<MWPTypePlayMode>& modes);
  int SetCurPlayMode(MWPTypePlayMode mode);
  int GetSupportPlayMode(std::vector<MWPTypePlayMode>& modes);
  int IsSupportAvrcpNotify(MWPBtType::SupportAvrcpEvent event);
  int IsSupportBrowserInfo();
  int RootDirectory(int startPosition, int maxCount);
  int IsRootDirectory();
  int FolderUp(int startPosition, int maxCount);
  int FolderDown(const std::string& uid, int startPosition, int maxCount);
  int BrowsingSearch(const std::string& uid, const std::string& keyWords, int startPosition, int maxCount);
  int BrowsingNowPlayingList(int startPosition, int maxCount);
  int PlayItem(const std::string& uid, MWPBtType::BrowserScopeType scope);
  int AddMediaItemToNowPlaying(const std::string& uid, MWPBtType::BrowserScopeType scope);
  int GetMediaItemList(std::list<MWPTypeMediaItem>& items, MWPBtType::BrowserScopeType scope);
  int GetBrowsingFolderItemTotal(const std::string& uid);

  // Phone book
  int StartPhoneBookDownload(MWPBtType::PbapType type);
  int StopPhoneBookDownload();
  int GetContactList(std::list<MWPTypeContact>& contacts);
  int GetFavContactList(std::list<MWPTypeContact>& contacts);
  int GetContactCount();
  int DeleteContactById(int id);
  int ClearContact();
  int GetCallLogList(CallLogType type, std::list<MWPTypeCallLog>& logs);
  int DeleteCallLogById(int id);
  int ClearCallLog(CallLogType type);
  int GetCallLogCount(CallLogType type);
  int SetContactFavorite(int contactId, int favorite);

  // Messages: the service offers none; fixed answers
  int StartMessageDownload();
  int StopDownloadMessage();
  int GetMessageLoadStatus();
  int SendMessage(const std::string& number, const std::string& text);
  int SetMessageReaded(const std::string& handle);
  MWPTypeMessage GetMessageByIndex(MWPBtMessageType type, int index);
  MWPTypeMessage GetMessageByHandle(const std::string& handle);
  int GetMessageList(MWPBtMessageType type, std::list<MWPTypeMessage>& messages);
  int DeleteMessageByHandle(const std::string& handle, int type);
  int ClearMessage(MWPBtMessageType type);
  int GetMessageCount(MWPBtMessageType type, int readState);
  int GetMessageCount(MWPBtMessageType type);

  // SPP and HID
  int SetRfCommUuid(const std::string& uuid);
  int SppSendText(const std::string& address, const std::string& text);
  int SppSendBuffer(const std::string& address, char* buffer, int length);
  int SetHIDCalibration(const std::string& address, MWPBtType::HIDTYPE type);
  int SetHIDSendXY(const std::string& address, MWPBtType::HIDTYPE type, int x, int y, unsigned char button);
  int SetHIDSendKey(const std::string& address, int key);

  // Bluetooth Low Energy: the service offers none; every method answers 0
  int BleInit();
  int BleDeInit();
  int BleDiscovery(int start, MWPBtType::BleScanMode mode, MWPBtType::BleScanFilter filter);
  int BleStopDiscovery();
  int BleGATTConnect(const std::string& address, unsigned char addressType);
  int BleGATTDisConnect();
  int BleGetAllService();
  int BleGetServiceByUUID(const std::string& uuid, int& handle);
  int BleGetCharByUUID(const std::string& uuid, int& handle, int& valueHandle, int& properties);
  int BleGetDescByUUID(const std::string& uuid, int& handle, int& valueHandle, int& properties);
  int BleGATTRegisterCharNotification(unsigned short handle);
  int BleGATTReadChar(unsigned short handle);
  int BleGATTWriteChar(unsigned short handle, const unsigned char* data, unsigned int length);
  int BleGetDiscoveryDevices(std::list<MWPTypeBleDevice>& devices);
  int BleGetAllServices(std::list<MWPTypeGattService>& services);
  int BleSMPPair(const std::string& address, unsigned char addressType);
  int BleSmpPasskeyReply(int accept, unsigned int passkey);
  int BleGetWhitelistSize();
  int BleAddToWhiteList(const std::string& address, unsigned char addressType);
  int BleRemoveFromWhitelist(const std::string& address, unsigned char addressType);
  int BleClearWhitelist();

  // Events, called by the adapter on the thread that delivers the service's signals. Each is handed to the
  // listeners of one kind, in ascending order of their addresses, with the registry locked.

  // To IMWPBtComListener
  void OnOpenBtStatusChanged(MWPBtType::PowerStatus status);
  void OnBtProfileEnableStatusChanged(int enabled);
  void OnPairStatusChanged(MWPBtType::PairStatus status, MWPBtType::PairFailedReson reason,
                           const std::string& address);
  void OnAnswerPairRequest(const std::string& address, const std::string& pinCode, int androidAutoRequest,
                           MWPBtType::PairRequestState state);
  void OnBtCapabilityChanged(MWPBtType::Capability capability, int value);
  void OnBtAttributeChanged(MWPBtType::Attribute attribute, const std::string& value);
  void OnScanStatusChanged(MWPBtType::ScanStatus status);
  void OnDeletePairStatusChanged(int status);
  void OnOperatorNameChanged(const std::string& name);
  void OnConnectStatusChanged(const std::string& address, MWPBtType::ProfileId profile,
                              MWPBtType::ConnStatus status);
  void OnSupportProfileChanged(const std::string& address, MWPBtType::ProfileId profile);
  void OnWirelessEnableRequest(const std::string& address, const std::string& name,
                               MWPBtType::SupportType type);
  void OnAndroidAutoPairingResponse(MWPBtType::HUStatus status);
  void OnSetDeviceOOBLinkKeyChanged(const std::string& address, int success);

  // To IMWPBtPhoneListener
  void OnMobileService(int onService);
  void OnRoamingStatusChanged(int roaming);
  void OnBtSignalChanged(unsigned char signal);
  void OnBtBatteryChanged(unsigned char battery);
  void OnCurrentCallInfoChanged(int callCount);
  void OnCallingTimeChanged(int seconds, int callId, int active);
  void OnCallStatusChanged(int callId, MWPBtType::CallStatus status, int callCount);
  void OnConferenceChanged(MWPBtType::CallAction action, int supported);
  void OnHangupCallChanged();
  void OnAudioStatusChanged(MWPBtType::AudioStatus status);
  void OnVoiceStatusChanged(int started);
  void OnCodecModeChanged(MWPBtType::CodecMode mode);

  // To IMWPBtMediaListener
  void OnMediaAudioStateChanged(const std::string& address, int started);
  void OnBtMusicPlayChanged(MWPBtType::MusicPlayStatus status);
  void OnAudioTrackChanged();
  void OnPlayModeChanged();
  void OnSupportPlayModeChanged();
  void OnMediaInfoChanged();
  void OnCoverImageDownloadCompleted();
  void OnCurPositionChanged(int position, int totalLength);
  void OnSupportAvrcpNotify(MWPBtType::SupportAvrcpEvent event, int supported);
  void OnFastForwardChanged(int supported);
  void OnFastRewindChanged(int supported);
  void OnSupportBrowserStatusChanged(int supported);
  void OnPlayerInfoChanged();
  void OnBrowserMediaInfoChanged();
  void OnCurBrowserPathChanged(int success);
  void OnBrowserFolderItemTotalChanged(int total);
  void OnMediaItemToNowPlayingStatus(int success);
  void OnSendPlayItemStatus(int success);

  // To IMWPBtPbapListener
  void OnPBDownloadStatus(MWPBtType::PbapStatus status, MWPBtType::PbapType type);
  void OnPbDownloadCountChanged(int current, int total);
  void OnBtCallLogListChanged();
  void OnDeletePhoneBookChanged(int success);
  void OnContactFavoriteChanged(int contactId, int favorite);

  // To IMWPBtMessageListener
  void OnMessageDownloadStatus(MWPBtType::MsgLoadStatus status);
  void OnMessageDownloadCountChanged(int current, int total);
  void OnMessageStatusNotify(MWPBtType::MsgStatus status, std::string handle);
  void OnMessageSetPropertyStatus(MWPBtType::SetMsgProStatus status);

  // To IMWPBtSppListener
  void OnSppConnectStatus(const std::string& address, MWPBtType::SupportType type, int connected);
  void OnSppReceiveBufferChanged(const std::string& address, char* buffer, int length);
  void OnHIDCalibration(int success);
  void OnHIDConnection(std::string address, int status);

  // To IMWPBtBleListener
  void OnBleDiscoveryResponse(int started, int result);
  void OnBleConnectStatusChanged(const std::string& address, int status);
  void OnBleAllService(int count);
  void OnBleSmpNotify(MWPBtType::SmpEvent event, const std::string& address, unsigned char addressType,
                      unsigned int passkey);
  void OnBleCharNotify(unsigned short handle, std::vector<unsigned char> data, unsigned int length);
  void OnBleGAttribResultNotify(unsigned char result, std::vector<unsigned char> data, unsigned short length);

  // To nobody: no listener interface has a method for these.
  void OnSupportProfilesInfoChanged(
      const std::string& address, const std::map<MWPBtType::ProfileId, MWPBtType::ProfileVersion>& versions);
  void OnLocalAddressChanged(const std::string& address);
  void OnCallInfoListChanged();

 private:
  BtClientIpcAdapter m_adapter;
};

#endif
