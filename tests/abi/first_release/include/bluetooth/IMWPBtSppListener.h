#ifndef BLUETOOTH_IMWPBTSPPLISTENER_H
#define BLUETOOTH_IMWPBTSPPLISTENER_H

#include <string>

#include <bluetooth/IMWPBtListenerBase.h>
#include <bluetooth/MWPBtExport.h>
#include <bluetooth/MWPBtType.h>

/// Events of serial-port channels and HID; the requests are in MWPBtSpp. Override what is needed: every
/// method does nothing by default. IMWPBtListenerBase describes when and on which thread they are called.
class MWP_BT_API IMWPBtSppListener : public IMWPBtListenerBase {
 public:
  IMWPBtSppListener();
  ~IMWPBtSppListener() override;

  /// A serial channel was opened (1) or closed (0).
  /// @param address Bluetooth address of the device
  /// @param type what the channel is for
  /// @param connected 1 or 0
  virtual void OnSppConnectStatus(const std::string& address, MWPBtType::SupportType type, int connected);
  /// Bytes arrived. The buffer is valid only during the call: copy what is to be kept.
  /// @param address Bluetooth address of the device
  /// @param buffer the bytes, which may hold zeros; property of the library
  /// @param length number of bytes
  virtual void OnSppReceiveBufferChanged(const std::string& address, char* buffer, int length);
  /// Outcome (1 or 0) of MWPBtSpp::SetHIDCalibration.
  /// @param success 1 for success, 0 for failure
  virtual void OnHIDCalibration(int success);
  /// The HID link to a device changed; an MWPBtType::ConnStatus.
  /// @param address Bluetooth address of the device
  /// @param status the new status
  virtual void OnHIDConnection(std::string address, int status);
};

#endif
