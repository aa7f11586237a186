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
/// Results named "accepted" are non-zero if the service took the request on: its outcome arrives as an event.
///
/// Methods marked "checks the address" refuse an address that is not of the form 00:1A:7D:DA:71:13 with an
/// error in the log and the result 0.
class MWP_BT_API MWPBtCom {
 public:
  /// Asks the service to report its state; the answer is events, in this order:
  /// - power, whether a search is running, every capability and every attribute
  /// - OnConnectStatusChanged for each profile that is connected
  /// - while a phone is connected for calls: its network, signal and battery; OnCallStatusChanged for each
  ///   call, OnCurrentCallInfoChanged, OnCallingTimeChanged for each call that was answered,
  ///   OnConferenceChanged for each action that is possible; where the sound is, and voice recognition if it
  ///   is running
  /// - while a player is connected: what it supports, and whether it is playing
  /// - while the phone book is being downloaded: OnPBDownloadStatus and OnPbDownloadCountChanged
  ///
  /// What is not listed has to be requested: the records behind the lists (contacts, call logs, calls,
  /// tracks, folders), the position in a track, the play modes, the name of a paired device.
  ///
  /// Every application receives these events, not only the one that asked. Treat a status that you already
  /// know as no change.
  void GetBluetoothServiceStatus();
  /// Lets all profiles be connected.
  void EnableProfile();
  /// Disconnects the profiles of a device and keeps them from being connected.
  void DisableProfile(const std::string& address);
  /// Switches the adapter on (non-zero) or off (0). Asks GetPowerStatus first and answers 0 without a request
  /// if the adapter is in that state or on its way to it. Accepted; the outcome is OnOpenBtStatusChanged.
  int SetPower(int on);
  /// The MWPBtType::PowerStatus of the adapter.
  int GetPowerStatus();
  /// Switches a capability. Accepted; the outcome is OnBtCapabilityChanged.
  int SetCapability(MWPBtType::Capability capability, int enable);
  /// The value of a capability, 0 or 1, read from shared memory without a service call. Before
  /// MWP_CreateBlueTooth() it makes the client, and answers 0 until a start has succeeded.
  int GetCapability(MWPBtType::Capability capability);
  /// Reads an attribute into value; empty and 0 on failure.
  int GetAttribute(MWPBtType::Attribute attribute, std::string& value);
  /// Changes an attribute. Accepted; the outcome is OnBtAttributeChanged.
  int SetAttribute(MWPBtType::Attribute attribute, const std::string& value);
  /// Name of a paired device; empty if it is not known.
  std::string GetRemotePairDeviceName(const std::string& address);
  /// Hands over a link key that was exchanged out of band. Checks the address. Answers 1 even if the call
  /// fails; the outcome is OnSetDeviceOOBLinkKeyChanged.
  int SetDeviceOOBLinkKey(const std::string& address, const std::vector<unsigned char>& linkKey);
  /// Begins to pair with a device; pinCode is used by devices that need a PIN, and may be empty. Checks the
  /// address. Accepted; OnAnswerPairRequest and OnPairStatusChanged follow.
  int Pair(const std::string& address, const std::string& pinCode);
  /// Accepts a pairing request: the PIN or digits first (may be empty), then the device. state is that of
  /// OnAnswerPairRequest. The address is not checked.
  int AnswerPair(const std::string& pinCode, const std::string& address, MWPBtType::PairRequestState state);
  /// Refuses a pairing request. The address is not checked.
  int RejectPair(const std::string& address, MWPBtType::PairRequestState state);
  /// Begins (non-zero) or ends (0) the search for devices. Accepted; OnScanStatusChanged follows.
  int SetScanAction(int start);
  /// Connects a profile of a device; only = 1 disconnects other devices. Checks the address. Accepted; the
  /// outcome is OnConnectStatusChanged.
  int Connect(const std::string& address, MWPBtType::ProfileId profile, int only);
  /// Disconnects a profile of a device. Checks the address. Accepted; the outcome is OnConnectStatusChanged.
  int DisConnect(const std::string& address, MWPBtType::ProfileId profile);
  /// Connects a profile of a device again. Checks the address. Accepted; the outcome is
  /// OnConnectStatusChanged.
  int ReConnect(const std::string& address, MWPBtType::ProfileId profile);
  /// Lets paired devices be connected without being asked (1), or not (0).
  void SetAutoConnect(int enable);
  /// Deletes all paired devices. Accepted; the outcome is OnDeletePairStatusChanged.
  int DeletePairDeviceList();
  /// Deletes one paired device. Checks the address. Accepted; the outcome is OnDeletePairStatusChanged.
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
  /// Tells the service whether wireless projection runs (1) or not (0).
  int SetAndroidAutoStatus(int connected);
  /// Asks for the pairing that wireless projection needs. Checks the address. The answer is
  /// OnAndroidAutoPairingResponse.
  int RequestAndroidAutoPairing(const std::string& address, int pairingMethod);
};

#endif
