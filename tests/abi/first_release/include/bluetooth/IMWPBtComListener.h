#ifndef BLUETOOTH_IMWPBTCOMLISTENER_H
#define BLUETOOTH_IMWPBTCOMLISTENER_H

#include <string>

#include <bluetooth/IMWPBtListenerBase.h>
#include <bluetooth/MWPBtExport.h>
#include <bluetooth/MWPBtType.h>

/// Events of power, pairing, connections and settings; the requests are in MWPBtCom. Override what is needed:
/// every method does nothing by default. IMWPBtListenerBase describes when and on which thread they are
/// called.
class MWP_BT_API IMWPBtComListener : public IMWPBtListenerBase {
 public:
  IMWPBtComListener();
  ~IMWPBtComListener() override;

  /// The adapter was or is being switched on or off.
  /// @param status the new status
  virtual void OnOpenBtStatusChanged(MWPBtType::PowerStatus status);
  /// The profiles have been enabled (1) or disabled (0).
  /// @param enabled 1 or 0
  virtual void OnBtProfileEnableStatusChanged(int enabled);
  /// A pairing has begun, succeeded or failed; the reason counts only for a failure.
  /// @param status the new status
  /// @param reason why it failed
  /// @param address Bluetooth address of the device
  virtual void OnPairStatusChanged(MWPBtType::PairStatus status, MWPBtType::PairFailedReson reason,
                                   const std::string& address);
  /// A device wants to pair: answer with MWPBtCom::AnswerPair or RejectPair. pinCode holds the digits to show
  /// or compare, or nothing. androidAutoRequest is 1 if the request belongs to wireless projection.
  /// @param address Bluetooth address of the device
  /// @param pinCode decimal digits, or empty
  /// @param androidAutoRequest 1 or 0
  /// @param state what is asked
  virtual void OnAnswerPairRequest(const std::string& address, const std::string& pinCode,
                                   int androidAutoRequest, MWPBtType::PairRequestState state);
  /// A capability has a new value, 0 or 1.
  /// @param capability which one
  /// @param value 0 or 1
  virtual void OnBtCapabilityChanged(MWPBtType::Capability capability, int value);
  /// An attribute has a new value.
  /// @param attribute which one
  /// @param value its new text, in UTF-8
  virtual void OnBtAttributeChanged(MWPBtType::Attribute attribute, const std::string& value);
  /// The search for devices began or ended.
  /// @param status the new status
  virtual void OnScanStatusChanged(MWPBtType::ScanStatus status);
  /// Paired devices have been deleted (1), or could not be (0).
  /// @param status 1 for success, 0 for failure
  virtual void OnDeletePairStatusChanged(int status);
  /// The phone is in another network.
  /// @param name of the network, in UTF-8; empty if there is none
  virtual void OnOperatorNameChanged(const std::string& name);
  /// The connection of one profile of a device changed.
  /// @param address Bluetooth address of the device
  /// @param profile which profile
  /// @param status the new status
  virtual void OnConnectStatusChanged(const std::string& address, MWPBtType::ProfileId profile,
                                      MWPBtType::ConnStatus status);
  /// A device turned out to support a profile.
  /// @param address Bluetooth address of the device
  /// @param profile which profile
  virtual void OnSupportProfileChanged(const std::string& address, MWPBtType::ProfileId profile);
  /// A device asks for wireless projection.
  /// @param address Bluetooth address of the device
  /// @param name of the device, in UTF-8
  /// @param type what it supports
  virtual void OnWirelessEnableRequest(const std::string& address, const std::string& name,
                                       MWPBtType::SupportType type);
  /// The answer to MWPBtCom::RequestAndroidAutoPairing.
  /// @param status the answer
  virtual void OnAndroidAutoPairingResponse(MWPBtType::HUStatus status);
  /// The outcome (1 or 0) of MWPBtCom::SetDeviceOOBLinkKey.
  /// @param address Bluetooth address of the device
  /// @param success 1 for success, 0 for failure
  virtual void OnSetDeviceOOBLinkKeyChanged(const std::string& address, int success);
};

#endif
