#ifndef IPC_BTCLIENTIPCADAPTER_H
#define IPC_BTCLIENTIPCADAPTER_H

#include <list>
#include <string>
#include <vector>

#include <bluetooth/MWPBtExport.h>
#include <bluetooth/MWPBtRecords.h>
#include <bluetooth/MWPBtType.h>

/// The client's only link to the Bluetooth service: the connection, the requests and the subscription to the
/// service's signals. Has no state of its own: the proxy (g_BtProxy) and the shared memory segments belong to
/// the process, and outlive the adapter.
///
/// A request is one synchronous call of the service method of the same name and blocks the calling thread
/// until the answer is there, 25 seconds at most. It answers what the service answers. A call that fails, or
/// is not made because there is no proxy or an argument cannot travel over the bus, is logged as one error
/// and answered with 0 (strings empty), unless the request says otherwise. Nothing is thrown.
class MWP_BT_API BtClientIpcAdapter {
 public:
  /// Attaches the shared memory segments. Makes no connection.
  BtClientIpcAdapter();
  /// Forgets the address of every segment but SH_CALL_INFO_LIST; all stay attached. The proxy and its signal
  /// handlers stay as they are.
  ~BtClientIpcAdapter();

  /// Attaches the eight segments, and fills the parameter segment if nobody has. Returns whether the
  /// parameter segment could be attached.
  bool InitAllShareMemory();
  /// Copies the persisted settings into the parameter segment, unless another process has.
  void LoadPersistDataToSharemenory();

  /// Makes the proxy, checks that the service is on the bus and subscribes to its signals. Each call that
  /// gets as far as the subscription subscribes anew, on a new proxy.
  bool InitDBusConnect();
  /// Connects a handler to each of the service's signals; of InitDBusConnect alone.
  void RegisterDBusSignal();

  // Adapter, pairing, connections and paired devices
  void GetBluetoothServiceStatus();
  void EnableProfile();
  void DisableProfile(const std::string& address);
  int SetPower(int on);
  int GetPowerStatus();
  int SetCapability(MWPBtType::Capability capability, int enable);
  /// Answered from the parameter segment, without a call.
  int GetCapability(MWPBtType::Capability capability);
  int GetAttribute(MWPBtType::Attribute attribute, std::string& value);
  int SetAttribute(MWPBtType::Attribute attribute, const std::string& value);
  std::string GetRemotePairDeviceName(const std::string& address);
  /// Answers 1 if the call fails.
  int SetDeviceOOBLinkKey(const std::string& address, const std::vector<unsigned char>& linkKey);
  int Pair(const std::string& address, const std::string& pinCode);
  int AnswerPair(const std::string& pinCode, const std::string& address, MWPBtType::PairRequestState state);
  int RejectPair(const std::string& address, MWPBtType::PairRequestState state);
  int SetScanAction(int start);
  int Connect(const std::string& address, MWPBtType::ProfileId profile, int only);
  int DisConnect(const std::string& address, MWPBtType::ProfileId profile);
  int ReConnect(const std::string& address, MWPBtType::ProfileId profile);
  int SetAutoConnect(int enable);
  int GetCurConnectDevInfo(MWPBtType::ProfileId profile, std::string& address);
  int DeletePairDeviceList();
  int DeletePairDevice(const std::string& address, int deleting);
  void RemoveDevice(const std::string& address);
  int MovePairDevicePosion(const std::string& address, int position);
  int EnterTestMode();
  int GetPairListIndexByAddress(const std::string& address);
  /// If the call fails, the record holds no text and zeros, also where a default record does not.
  MWPTypeDevice GetPairDeviceInfoByAddress(const std::string& address);
  int SetAndroidAutoStatus(int connected);
  int RequestAndroidAutoPairing(const std::string& address, int pairingMethod);
  void SetWirelessEnable(const std::string& address, int enable);
  void ClearScanedDeviceList();

  // Phone
  /// A failed call is not logged; the status is then 0.
  MWPTypeConnectionState GetPhoneConnectionState();
  int AcceptCall();
  int RejectCall();
  int TerminateCall();
  int DialCall(const std::string& number);
  int RedialCall();
  int MultipleWayCall(MWPBtType::CallAction action, int callId);
  int GetCurCallStatus(int callId);
  int GetCurCallCount();
  /// Answered from SH_CALL_INFO_LIST, without a call.
  int GetCurrentCallInfo(MWPTypeCallInfo& info);
  int SendDTMF(char tone);
  int SetAudioPrivacy(int onPhone);
  int GetAudioIsPrivacy();
  void StartVoiceRecognition();
  void StopVoiceRecognition();
  int GetCurrentMobilePhoneNumber(std::string& number);

  // Media
  /// A failed call is not logged; the status is then 0.
  MWPTypeConnectionState GetMediaConnectionState();
  /// Answers 1 whatever the service answers, and if the call fails.
  int PlayMusic(int command);
  /// Answers 1 as PlayMusic does, and logs nothing.
  int StopMusic(int mute);
  int PreviousMusic();
  int NextMusic();
  int StartFastForward();
  int StopFastForward();
  int StartFastReverse();
  int StopFastReverse();
  int GetMusicPlayStatus();
  int RegGetPlayStatus(int enable, int milliseconds);
  /// Both references are 0 if the call fails.
  int GetCurPlayPosition(int& position, int& totalLength);
  int RegGetMediaInfo(int enable, int milliseconds);
  /// info stays as it was if the call fails.
  int GetMediaInfo(MWPTypeMediaInfo& info);
  int SetCurPlayMode(MWPTypePlayMode mode);
  int IsSupportAvrcpNotify(MWPBtType::SupportAvrcpEvent event);
  int IsSupportBrowserInfo();
  int IsRootDirectory();
  int RootDirectory(int startPosition, int maxCount);
  int FolderUp(int startPosition, int maxCount);
  int BrowsingNowPlayingList(int startPosition, int maxCount);
  int FolderDown(const std::string& uid, int startPosition, int maxCount);
  int BrowsingSearch(const std::string& uid, const std::string& keyWords, int startPosition, int maxCount);
  int PlayItem(const std::string& uid, MWPBtType::BrowserScopeType scope);
  int AddMediaItemToNowPlaying(const std::string& uid, MWPBtType::BrowserScopeType scope);
  /// The list is not touched: the answer carries no items.
  int GetCurMediaItemList(std::list<MWPTypeMediaItem>& items, MWPBtType::BrowserScopeType scope);
  int GetBrowsingFolderItemTotal(const std::string& uid);
  int EnableAudioDevice(int enable);
  int PlayRingtone();
  int StopRingtone();
  int StopPreviewRingtone();
  int PlayPreviewRingtone(const std::string& path);
  /// The modes are appended; what the vector holds stays. So does GetCurPlayMode.
  int GetSupportPlayMode(std::vector<MWPTypePlayMode>& modes);
  int GetCurPlayMode(std::vector<MWPTypePlayMode>& modes);

  // Phone book and call logs. The three lists are published by the service in shared memory and read there;
  // if the call fails, their answer is 1 and the list stays as it was.
  int StartPhoneBookDownload(MWPBtType::PbapType type);
  int StopPhoneBookDownload();
  int GetContactCount();
  int ClearContact();
  int DeleteContactById(int id);
  int DeleteCallLogById(int id);
  /// The entries are appended; what the list holds stays.
  int GetCallLogList(CallLogType type, std::list<MWPTypeCallLog>& logs);
  int GetCallLogCount(CallLogType type);
  int ClearCallLog(CallLogType type);
  int SetContactFavorite(int contactId, int favorite);
  /// The list is replaced. So does GetFavContactList.
  int GetContactList(std::list<MWPTypeContact>& contacts);
  int GetFavContactList(std::list<MWPTypeContact>& contacts);

  // SPP and HID
  int SetRfCommUuid(const std::string& uuid);
  int SppSendText(const std::string& address, const std::string& text);
  /// Answers 1 if the call fails.
  int SppSendBuffer(const std::string& address, char* buffer, int length);
  int SetHIDCalibration(const std::string& address, MWPBtType::HIDTYPE type);
  int SetHIDSendXY(const std::string& address, MWPBtType::HIDTYPE type, int x, int y, unsigned char button);
  int SetHIDSendKey(const std::string& address, int key);
};

#endif
