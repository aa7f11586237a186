#ifndef BLUETOOTH_MWPBTCOM_H
#define BLUETOOTH_MWPBTCOM_H

#include <string>
#include <vector>

#include <bluetooth/MWPBtExport.h>
#include <bluetooth/MWPBtType.h>

/// Power, settings, pairing, connections and the list of paired devices. The events are in IMWPBtComListener.
///
/// The object carries no state: construct one wherever it is needed. Until MWP_CreateBlueTooth() has
/// succeeded, and after MWP_DestroyBlueTooth(), a method makes no request and answers 0 or an empty string.
/// Every request blocks until the service has answered (at most 25 seconds), may be made from any thread, and
/// makes the service call of its own name unless said otherwise; a failed call is logged and answered with 0.
/// Where "accepted" is written, the result is 1 (or another number that is not 0) if the service accepted the
/// request, and the outcome arrives as an event.
///
/// Pass 0 or 1 where an argument means yes or no: only its lowest byte reaches the service, so 256 counts as
/// 0.
///
/// Methods marked "checks the address" refuse an address that is not of the form 00:1A:7D:DA:71:13 with an
/// error in the log and the result 0.
class MWP_BT_API MWPBtCom {
 public:
  /// Asks the service to report its state; the answer is events, in this order:
  /// - power, whether a search is running, every capability and every attribute
  /// - while a device is being paired: OnPairStatusChanged
  /// - OnConnectStatusChanged for each profile that is connected
  /// - while a phone is connected for calls: its network, signal and battery; OnCallStatusChanged for each
  ///   call, OnCurrentCallInfoChanged, OnCallingTimeChanged for each call that was answered,
  ///   OnConferenceChanged for each action that is possible; where the sound is, its codec while the head
  ///   unit has it, and voice recognition if it is running
  /// - while a player is connected: what it supports, and whether it is playing
  /// - while the phone book is being downloaded: OnPBDownloadStatus and OnPbDownloadCountChanged
  ///
  /// What is not listed has to be requested: the records behind the lists (contacts, call logs, calls,
  /// tracks, folders), the position in a track, the play modes, the name of a paired device.
  ///
  /// Every application receives these events, not only the one that asked. Treat a status that you already
  /// know as no change.
  void GetBluetoothServiceStatus();
  /// Allows all profiles to be connected.
  void EnableProfile();
  /// Disconnects the profiles of a device and prevents them from being connected.
  void DisableProfile(const std::string& address);
  /// Switches the adapter on (1) or off (0). Accepted; the outcome is OnOpenBtStatusChanged.
  ///
  /// This takes two round trips: it first asks for the power status, and answers 0 without a further request
  /// if the adapter is in that state or on its way to it. A service that hangs therefore blocks it for 50
  /// seconds. If the status cannot be read it counts as BT_POWER_OFF: SetPower(0) then answers 0 and sends
  /// nothing, while SetPower(1) is sent. SetPower(256) is compared as on, but arrives as off.
  int SetPower(int on);
  /// The MWPBtType::PowerStatus of the adapter.
  int GetPowerStatus();
  /// Switches a capability on (1) or off (0). Accepted; the outcome is OnBtCapabilityChanged.
  int SetCapability(MWPBtType::Capability capability, int enable);
  /// The value of a capability, 0 or 1, read from shared memory without a service call. Before
  /// MWP_CreateBlueTooth() it creates the client, and answers 0 until a start has succeeded.
  int GetCapability(MWPBtType::Capability capability);
  /// Reads an attribute into value; empty and 0 on failure.
  int GetAttribute(MWPBtType::Attribute attribute, std::string& value);
  /// Changes an attribute. Accepted; the outcome is OnBtAttributeChanged.
  int SetAttribute(MWPBtType::Attribute attribute, const std::string& value);
  /// The name of a paired device; empty if it is not known.
  std::string GetRemotePairDeviceName(const std::string& address);
  /// Hands over a link key that was exchanged out of band. Checks the address. Answers 1 even if the call
  /// fails; the outcome is OnSetDeviceOOBLinkKeyChanged.
  int SetDeviceOOBLinkKey(const std::string& address, const std::vector<unsigned char>& linkKey);
  /// Begins to pair with a device; pinCode is used by devices that need a PIN, and may be empty. Checks the
  /// address. Accepted; OnAnswerPairRequest and OnPairStatusChanged follow.
  int Pair(const std::string& address, const std::string& pinCode);
  /// Accepts a pairing request. The PIN or digits come first (and may be empty), the address second: mind the
  /// order, since both are texts and the address is not checked. btservice answers 0 if they are swapped.
  /// state is that of OnAnswerPairRequest.
  int AnswerPair(const std::string& pinCode, const std::string& address, MWPBtType::PairRequestState state);
  /// Refuses a pairing request. The address is not checked.
  int RejectPair(const std::string& address, MWPBtType::PairRequestState state);
  /// Begins (1) or ends (0) the search for devices. Accepted; OnScanStatusChanged follows.
  int SetScanAction(int start);
  /// Connects a profile of a device. If only is 1, other devices are disconnected first. Checks the address.
  /// Accepted; the outcome is OnConnectStatusChanged.
  int Connect(const std::string& address, MWPBtType::ProfileId profile, int only);
  /// Disconnects a profile of a device. Checks the address. Accepted; the outcome is OnConnectStatusChanged.
  int DisConnect(const std::string& address, MWPBtType::ProfileId profile);
  /// Connects a profile of a device again. Checks the address. Accepted; the outcome is
  /// OnConnectStatusChanged.
  int ReConnect(const std::string& address, MWPBtType::ProfileId profile);
  /// Whether paired devices are connected automatically (1) or not (0).
  void SetAutoConnect(int enable);
  /// Deletes all paired devices. Accepted; the outcome is OnDeletePairStatusChanged.
  int DeletePairDeviceList();
  /// Deletes one paired device. Checks the address. Pass 1 for deleting: btservice refuses 0 and keeps the
  /// device. Accepted; the outcome is OnDeletePairStatusChanged.
  int DeletePairDevice(const std::string& address, int deleting);
  /// Forgets a device that was found. Checks the address.
  void RemoveDevice(const std::string& address);
  /// Moves a paired device to another position, counted from 0, of the list of paired devices.
  int MovePairDevicePosion(const std::string& address, int position);
  /// Puts the adapter into its test mode.
  int EnterTestMode();
  /// Allows wireless projection from a device, or not. Checks the address.
  void SetWirelessEnable(const std::string& address, int enable);
  /// Forgets all devices that were found.
  void ClearScanedDeviceList();
  /// Informs the service whether wireless projection is running (1) or not (0).
  int SetAndroidAutoStatus(int connected);
  /// Asks for the pairing that wireless projection needs. Checks the address. The answer is
  /// OnAndroidAutoPairingResponse.
  int RequestAndroidAutoPairing(const std::string& address, int pairingMethod);
};

#endif
