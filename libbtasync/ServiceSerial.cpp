// Serial channels and input.

#include "libbtasync/MakeRequest.h"

namespace btasync {
inline namespace v0 {

using wire::Ask;

Request<> Service::SetRfCommUuid(Text uuid) { return Ask<wire::SetRfCommUuid>(*this, uuid); }
Request<> Service::SppSendText(const Address& address, Text text) {
  return Ask<wire::SppSendText>(*this, address, text);
}
Request<> Service::SppSendBuffer(const Address& address, const Bytes& bytes) {
  return Ask<wire::SppSendBuffer>(*this, address, bytes);
}
Request<> Service::SetHidCalibration(const Address& address, HIDTYPE type) {
  return Ask<wire::SetHIDCalibration>(*this, address, type);
}
Request<> Service::SendHidPosition(const Address& address, HIDTYPE type, int x, int y,
                                   unsigned char buttons) {
  return Ask<wire::SetHIDSendXY>(*this, address, type, x, y, buttons);
}
Request<> Service::SendHidKey(const Address& address, int key) {
  return Ask<wire::SetHIDSendKey>(*this, address, key);
}

}  // namespace v0
}  // namespace btasync
