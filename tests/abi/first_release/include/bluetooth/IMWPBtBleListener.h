#ifndef BLUETOOTH_IMWPBTBLELISTENER_H
#define BLUETOOTH_IMWPBTBLELISTENER_H

#include <string>

#include <bluetooth/IMWPBtListenerBase.h>
#include <bluetooth/MWPBtExport.h>
#include <bluetooth/MWPBtType.h>

/// Events of Bluetooth Low Energy; the requests are in MWPBtBle. Override what is needed: every method does
/// nothing by default. IMWPBtListenerBase describes when and on which thread they are called.
class MWP_BT_API IMWPBtBleListener : public IMWPBtListenerBase {
 public:
  IMWPBtBleListener();
  ~IMWPBtBleListener() override;

  /// Answer to MWPBtBle::BleDiscovery or BleStopDiscovery.
  /// @param started 1 begun, 0 ended
  /// @param result 1 for success, 0 for failure
  virtual void OnBleDiscoveryResponse(int started, int result);
  /// The connection of a device changed; an MWPBtType::ConnStatus.
  /// @param address Bluetooth address of the device
  /// @param status the new status
  virtual void OnBleConnectStatusChanged(const std::string& address, int status);
  /// The services of the connected device are known.
  /// @param count number of services
  virtual void OnBleAllService(int count);
  /// The Security Manager asks or reports something.
  /// @param event what it asks or reports
  /// @param address Bluetooth address of the device
  /// @param addressType 0 public, 1 random
  /// @param passkey the digits as a number, if there are any
  virtual void OnBleSmpNotify(MWPBtType::SmpEvent event, const std::string& address,
                              unsigned char addressType, unsigned int passkey);
  /// A characteristic notified a value. The bytes are valid only during the call.
  /// @param handle of the characteristic
  /// @param data the bytes; property of the library
  /// @param length number of bytes
  virtual void OnBleCharNotify(unsigned short handle, const unsigned char* data, unsigned int length);
  /// Answer to a read or write of an attribute. The bytes are valid only during the call.
  /// @param result an error code of the attribute protocol; 0 for success
  /// @param data the bytes; property of the library
  /// @param length number of bytes
  virtual void OnBleGAttribResultNotify(unsigned char result, const unsigned char* data,
                                        unsigned short length);
};

#endif
