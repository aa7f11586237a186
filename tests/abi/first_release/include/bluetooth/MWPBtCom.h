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
  /// @param address Bluetooth address of the device, such as 00:1A:7D:DA:71:13
  void DisableProfile(const std::string& address);
  /// Switches the adapter on (1) or off (0). Accepted; the outcome is OnOpenBtStatusChanged.
  ///
  /// This takes two round trips: it first asks for the power status, and answers 0 without a further request
  /// if the adapter is in that state or on its way to it. A service that hangs therefore blocks it for 50
  /// seconds. If the status cannot be read it counts as BT_POWER_OFF: SetPower(0) then answers 0 and sends
  /// nothing, while SetPower(1) is sent. SetPower(256) is compared as on, but arrives as off.
  /// @param on 1 on, 0 off
  /// @return not 0 if the service accepted the request, or 0 if not, and if there is nothing to change
  int SetPower(int on);
  /// The MWPBtType::PowerStatus of the adapter.
  /// @return the status; BT_POWER_OFF as well if it could not be read
  int GetPowerStatus();
  /// Switches a capability on (1) or off (0). Accepted; the outcome is OnBtCapabilityChanged.
  /// @param capability which one
  /// @param enable 1 on, 0 off
  /// @return not 0 if the service accepted the request, else 0
  int SetCapability(MWPBtType::Capability capability, int enable);
  /// The value of a capability, 0 or 1, read from shared memory without a service call. Before
  /// MWP_CreateBlueTooth() it creates the client, and answers 0 until a start has succeeded.
  /// @param capability which one
  /// @return 0 or 1; 0 as well for a reserved one, and without shared memory
  int GetCapability(MWPBtType::Capability capability);
  /// Reads an attribute into value; empty and 0 on failure.
  /// @param attribute which one
  /// @param value receives the text, in UTF-8
  /// @return the result of the service, not 0 for success; 0 if the call failed
  int GetAttribute(MWPBtType::Attribute attribute, std::string& value);
  /// Changes an attribute. Accepted; the outcome is OnBtAttributeChanged.
  /// @param attribute which one; the service refuses those that are read only
  /// @param value its new text, in UTF-8
  /// @return not 0 if the service accepted the request, else 0
  int SetAttribute(MWPBtType::Attribute attribute, const std::string& value);
  /// The name of a paired device; empty if it is not known.
  /// @param address Bluetooth address of the device, such as 00:1A:7D:DA:71:13
  /// @return the name, in UTF-8
  std::string GetRemotePairDeviceName(const std::string& address);
  /// Hands over a link key that was exchanged out of band. Checks the address. Answers 1 even if the call
  /// fails; the outcome is OnSetDeviceOOBLinkKeyChanged.
  /// @param address Bluetooth address of the device, such as 00:1A:7D:DA:71:13
  /// @param linkKey the key; Bluetooth has keys of 16 bytes, which is not checked here
  /// @return 1; 0 only for an address of another form, and while the library is not started
  int SetDeviceOOBLinkKey(const std::string& address, const std::vector<unsigned char>& linkKey);
  /// Begins to pair with a device; pinCode is used by devices that need a PIN, and may be empty. Checks the
  /// address. Accepted; OnAnswerPairRequest and OnPairStatusChanged follow.
  /// @param address Bluetooth address of the device, such as 00:1A:7D:DA:71:13
  /// @param pinCode decimal digits, or empty
  /// @return not 0 if the service accepted the request, else 0
  int Pair(const std::string& address, const std::string& pinCode);
  /// Accepts a pairing request. The PIN or digits come first (and may be empty), the address second: mind the
  /// order, since both are texts and the address is not checked. btservice answers 0 if they are swapped.
  /// state is that of OnAnswerPairRequest.
  /// @param pinCode PIN or digits, or empty
  /// @param address Bluetooth address of the device, such as 00:1A:7D:DA:71:13
  /// @param state what the device asked for
  /// @return not 0 if the service accepted the request, else 0
  int AnswerPair(const std::string& pinCode, const std::string& address, MWPBtType::PairRequestState state);
  /// Refuses a pairing request. The address is not checked.
  /// @param address Bluetooth address of the device, such as 00:1A:7D:DA:71:13
  /// @param state what the device asked for
  /// @return not 0 if the service accepted the request, else 0
  int RejectPair(const std::string& address, MWPBtType::PairRequestState state);
  /// Begins (1) or ends (0) the search for devices. Accepted; OnScanStatusChanged follows.
  /// @param start 1 begins, 0 ends
  /// @return not 0 if the service accepted the request, else 0
  int SetScanAction(int start);
  /// Connects a profile of a device. If only is 1, other devices are disconnected first. Checks the address.
  /// Accepted; the outcome is OnConnectStatusChanged.
  /// @param address Bluetooth address of the device, such as 00:1A:7D:DA:71:13
  /// @param profile which profile, or the usual pair
  /// @param only 1 to disconnect other devices first, else 0
  /// @return not 0 if the service accepted the request, else 0
  int Connect(const std::string& address, MWPBtType::ProfileId profile, int only);
  /// Disconnects a profile of a device. Checks the address. Accepted; the outcome is OnConnectStatusChanged.
  /// @param address Bluetooth address of the device, such as 00:1A:7D:DA:71:13
  /// @param profile which profile, or the usual pair
  /// @return not 0 if the service accepted the request, else 0
  int DisConnect(const std::string& address, MWPBtType::ProfileId profile);
  /// Connects a profile of a device again. Checks the address. Accepted; the outcome is
  /// OnConnectStatusChanged.
  /// @param address Bluetooth address of the device, such as 00:1A:7D:DA:71:13
  /// @param profile which profile, or the usual pair
  /// @return not 0 if the service accepted the request, else 0
  int ReConnect(const std::string& address, MWPBtType::ProfileId profile);
  /// Whether paired devices are connected automatically (1) or not (0).
  /// @param enable 1 or 0
  void SetAutoConnect(int enable);
  /// Deletes all paired devices. Accepted; the outcome is OnDeletePairStatusChanged.
  /// @return not 0 if the service accepted the request, else 0
  int DeletePairDeviceList();
  /// Deletes one paired device. Checks the address. Pass 1 for deleting: btservice refuses 0 and keeps the
  /// device. Accepted; the outcome is OnDeletePairStatusChanged.
  /// @param address Bluetooth address of the device, such as 00:1A:7D:DA:71:13
  /// @param deleting 1
  /// @return not 0 if the service accepted the request, else 0
  int DeletePairDevice(const std::string& address, int deleting);
  /// Forgets a device that was found. Checks the address.
  /// @param address Bluetooth address of the device, such as 00:1A:7D:DA:71:13
  void RemoveDevice(const std::string& address);
  /// Moves a paired device to another position, counted from 0, of the list of paired devices.
  /// @param address Bluetooth address of the device, such as 00:1A:7D:DA:71:13
  /// @param position the new position, from 0
  /// @return not 0 if the service accepted the request, else 0
  int MovePairDevicePosion(const std::string& address, int position);
  /// Puts the adapter into its test mode.
  /// @return not 0 if the service accepted the request, else 0
  int EnterTestMode();
  /// Allows wireless projection from a device, or not. Checks the address.
  /// @param address Bluetooth address of the device, such as 00:1A:7D:DA:71:13
  /// @param enable 1 allows it, 0 forbids it
  void SetWirelessEnable(const std::string& address, int enable);
  /// Forgets all devices that were found.
  void ClearScanedDeviceList();
  /// Informs the service whether wireless projection is running (1) or not (0).
  /// @param connected 1 or 0
  /// @return not 0 if the service accepted the request, else 0
  int SetAndroidAutoStatus(int connected);
  /// Asks for the pairing that wireless projection needs. Checks the address. The answer is
  /// OnAndroidAutoPairingResponse.
  /// @param address Bluetooth address of the device, such as 00:1A:7D:DA:71:13
  /// @param pairingMethod how to pair, as the projection numbers it
  /// @return not 0 if the service accepted the request, else 0
  int RequestAndroidAutoPairing(const std::string& address, int pairingMethod);
};

#endif
