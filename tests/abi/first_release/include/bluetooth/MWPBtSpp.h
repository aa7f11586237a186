#ifndef BLUETOOTH_MWPBTSPP_H
#define BLUETOOTH_MWPBTSPP_H

#include <string>

#include <bluetooth/MWPBtExport.h>
#include <bluetooth/MWPBtType.h>

/// Serial-port channels, and touch and key input to a phone over HID. The events are in IMWPBtSppListener.
///
/// The object carries no state: construct one wherever it is needed. Until MWP_CreateBlueTooth() has
/// succeeded, and after MWP_DestroyBlueTooth(), a method does nothing and answers 0. Every request blocks
/// until the service has answered (at most 25 seconds), may be made from any thread, and makes the service
/// call of its own name unless said otherwise; a failed call is logged and answered with 0. A result that is
/// not 0 means that the service accepted the request; the outcome arrives as an event.
class MWP_BT_API MWPBtSpp {
 public:
  MWPBtSpp();
  ~MWPBtSpp();

  /// Offers a serial-port service under this UUID.
  /// @param uuid such as 00001101-0000-1000-8000-00805f9b34fb
  /// @return not 0 if the service accepted the request, else 0
  int SetRfCommUuid(const std::string& uuid);
  /// Sends text over the channel of a device.
  /// @param address Bluetooth address of the device, such as 00:1A:7D:DA:71:13
  /// @param text in UTF-8
  /// @return not 0 if the service accepted the request, else 0
  int SppSendText(const std::string& address, const std::string& text);
  /// Sends length bytes, which are copied and may hold zeros, over the channel of a device. Answers 1
  /// whatever happens; a failure is in the log.
  /// @param address Bluetooth address of the device, such as 00:1A:7D:DA:71:13
  /// @param buffer the bytes; stays the property of the caller
  /// @param length number of bytes
  /// @return 1; 0 while the library is not initialised
  int SppSendBuffer(const std::string& address, char* buffer, int length);
  /// Calibrates the input. The outcome is OnHIDCalibration.
  /// @param address Bluetooth address of the device, such as 00:1A:7D:DA:71:13
  /// @param type kind of input
  /// @return not 0 if the service accepted the request, else 0
  int SetHIDCalibration(const std::string& address, MWPBtType::HIDTYPE type);
  /// Sends a position or movement and the state of the buttons.
  /// @param address Bluetooth address of the device, such as 00:1A:7D:DA:71:13
  /// @param type kind of input, which says whether x and y are a position or a movement
  /// @param x across, as the phone counts
  /// @param y down, as the phone counts
  /// @param button one bit for each button that is held
  /// @return not 0 if the service accepted the request, else 0
  int SetHIDSendXY(const std::string& address, MWPBtType::HIDTYPE type, int x, int y, unsigned char button);
  /// Sends a key.
  /// @param address Bluetooth address of the device, such as 00:1A:7D:DA:71:13
  /// @param key the code of the key
  /// @return not 0 if the service accepted the request, else 0
  int SetHIDSendKey(const std::string& address, int key);
};

#endif
