// Facade of serial-port channels and HID.

#include <bluetooth/MWPBtSpp.h>

#include "libbluetooth/ForwardToClient.h"

MWPBtSpp::MWPBtSpp() = default;

MWPBtSpp::~MWPBtSpp() = default;

int MWPBtSpp::SetRfCommUuid(const std::string& uuid) {
  return ForwardToClient(&MWPBtClient::SetRfCommUuid, uuid);
}

int MWPBtSpp::SppSendText(const std::string& address, const std::string& text) {
  return ForwardToClient(&MWPBtClient::SppSendText, address, text);
}

int MWPBtSpp::SppSendBuffer(const std::string& address, char* buffer, int length) {
  return ForwardToClient(&MWPBtClient::SppSendBuffer, address, buffer, length);
}

int MWPBtSpp::SetHIDCalibration(const std::string& address, MWPBtType::HIDTYPE type) {
  return ForwardToClient(&MWPBtClient::SetHIDCalibration, address, type);
}

int MWPBtSpp::SetHIDSendXY(const std::string& address, MWPBtType::HIDTYPE type, int x, int y,
                           unsigned char button) {
  return ForwardToClient(&MWPBtClient::SetHIDSendXY, address, type, x, y, button);
}

int MWPBtSpp::SetHIDSendKey(const std::string& address, int key) {
  return ForwardToClient(&MWPBtClient::SetHIDSendKey, address, key);
}
