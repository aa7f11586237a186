#ifndef SERVICE_STACK_SERIALCONTROL_H
#define SERVICE_STACK_SERIALCONTROL_H

#include <string>

#include "service/stack/StackTypes.h"

namespace btservice {

/// Serial channels, and input to a phone over HID.
class SerialControl {
 public:
  virtual ~SerialControl() = default;

  virtual bool OfferService(const std::string& uuid) = 0;
  virtual bool Send(const std::string& address, const Bytes& data) = 0;

  virtual bool CalibrateHid(const std::string& address, HIDTYPE type) = 0;
  virtual bool SendHidPosition(const std::string& address, HIDTYPE type, int x, int y, int buttons) = 0;
  virtual bool SendHidKey(const std::string& address, int key) = 0;
};

}  // namespace btservice

#endif
