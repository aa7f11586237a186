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
  virtual void OnBleDiscoveryResponse(int started, int result);
  /// The connection of a device changed; an MWPBtType::ConnStatus.
  virtual void OnBleConnectStatusChanged(const std::string& address, int status);
  /// The services of the connected device are known.
  virtual void OnBleAllService(int count);
  /// The Security Manager asks or reports something.
  virtual void OnBleSmpNotify(MWPBtType::SmpEvent event, const std::string& address,
                              unsigned char addressType, unsigned int passkey);
  /// A characteristic notified a value. The bytes are valid only during the call.
  virtual void OnBleCharNotify(unsigned short handle, const unsigned char* data, unsigned int length);
  /// Answer to a read or write of an attribute. The bytes are valid only during the call.
  virtual void OnBleGAttribResultNotify(unsigned char result, const unsigned char* data,
                                        unsigned short length);
};

#endif
