#include <bluetooth/MWPBtSpp.h>

#include "btctl/commands/Tables.h"

namespace btctl {
namespace {

using namespace MWPBtType;
using namespace arg;

/// The method that takes a buffer, with a vector in its place.
struct Channel {
  int SendBuffer(const std::string& address, const std::vector<unsigned char>& bytes) {
    std::string buffer(bytes.begin(), bytes.end());
    return MWPBtSpp().SppSendBuffer(address, buffer.data(), static_cast<int>(buffer.size()));
  }
};

Argument Input(const std::string& preset) { return Or(OneOf("--type", WordsOf<HIDTYPE>()), preset); }

/// Of the device that is the first argument.
Checks NeedsProfile(const std::string& profile) {
  return {AdapterIsOff(), DeviceIsUnknown(0), DeviceIsNotConnected(0, profile)};
}

}  // namespace

std::vector<Request> SppRequests() {
  return {
      {"spp offer",
       "Offer a serial-port service",
       BTCTL_METHOD(MWPBtSpp, SetRfCommUuid),
       {Text("UUID", "of the service")},
       Accepted(),
       {},
       {AdapterIsOff()}},
      {"spp send",
       "Send text over the serial channel of a device",
       BTCTL_METHOD(MWPBtSpp, SppSendText),
       {Address(), Text("TEXT", "to send")},
       Accepted(),
       {},
       NeedsProfile("spp")},
      {"spp send-bytes",
       "Send bytes over the serial channel of a device",
       "MWPBtSpp::SppSendBuffer",
       Bind(&Channel::SendBuffer),
       {Address(), Bytes("BYTES", "to send, in hexadecimal digits")},
       Accepted(),
       {},
       NeedsProfile("spp")},

      {"hid calibrate",
       "Calibrate the input to a phone",
       BTCTL_METHOD(MWPBtSpp, SetHIDCalibration),
       {Address(), Input("touch")},
       Accepted(),
       OutcomeOf("SetHIDCalibration"),
       NeedsProfile("hid")},
      {"hid move",
       "Send a position or movement, and the state of the buttons",
       BTCTL_METHOD(MWPBtSpp, SetHIDSendXY),
       {Address(), Input("touch"), Whole("X", "across"), Whole("Y", "down"),
        Or(Whole("--buttons", "one bit for each button"), "0")},
       Accepted(),
       {},
       NeedsProfile("hid")},
      {"hid key",
       "Send a key",
       BTCTL_METHOD(MWPBtSpp, SetHIDSendKey),
       {Address(), Whole("KEY", "its code")},
       Accepted(),
       {},
       NeedsProfile("hid")},
  };
}

}  // namespace btctl
