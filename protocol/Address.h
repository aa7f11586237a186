#ifndef PROTOCOL_ADDRESS_H
#define PROTOCOL_ADDRESS_H

#include <string>

/// The same as IsBluetoothAddress, as a regular expression, for those who check addresses elsewhere.
constexpr const char* kBluetoothAddressPattern = "^([0-9A-Fa-f]{2}:){5}[0-9A-Fa-f]{2}$";

/// Whether text is a Bluetooth address: 17 characters, six pairs of hexadecimal digits of either case
/// separated by ':'.
inline bool IsBluetoothAddress(const std::string& text) {
  constexpr std::string::size_type kLength = 17;
  if (text.size() != kLength) {
    return false;
  }
  for (std::string::size_type i = 0; i < kLength; ++i) {
    const char c = text[i];
    const bool isDigit = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
    const bool isSeparatorPlace = i % 3 == 2;
    if (isSeparatorPlace ? c != ':' : !isDigit) {
      return false;
    }
  }
  return true;
}

#endif
