#include <bluetooth/MWPBtBle.h>

#include "btctl/commands/Tables.h"

namespace btctl {
namespace {

using namespace MWPBtType;
using namespace arg;

/// The method that takes a buffer, with a vector in its place.
struct Characteristic {
  int Write(unsigned short handle, const std::vector<unsigned char>& bytes) {
    return MWPBtBle().BleGATTWriteChar(handle, bytes.data(), static_cast<unsigned int>(bytes.size()));
  }
};

Argument AddressType() { return Or(Whole("--address-type", "0 public, 1 random"), "0"); }
Argument Handle() { return Whole("HANDLE", "of the characteristic"); }
Argument Uuid() { return Text("UUID", "that is looked for"); }

}  // namespace

// The service offers no low energy yet. The first requests are refused by the library itself; the others
// answer whether the adapter is on, and nothing of what was asked.
std::vector<Request> BleRequests() {
  const Answer power = ValueOf(WordsOf<PowerStatus>());
  std::vector<Request> requests{
      {"ble init", "Begin to use low energy", BTCTL_METHOD(MWPBtBle, BleInit), {}, Accepted(), {}},
      {"ble deinit", "End using low energy", BTCTL_METHOD(MWPBtBle, BleDeInit), {}, Accepted(), {}},
      {"ble scan",
       "Begin or end a search",
       BTCTL_METHOD(MWPBtBle, BleDiscovery),
       {Switch(), Or(OneOf("--mode", WordsOf<BleScanMode>()), "balanced"),
        Or(OneOf("--filter", WordsOf<BleScanFilter>()), "none")},
       Accepted(),
       {}},
      {"ble scan-stop", "End a search", BTCTL_METHOD(MWPBtBle, BleStopDiscovery), {}, Accepted(), {}},
      {"ble connect",
       "Connect a device",
       BTCTL_METHOD(MWPBtBle, BleGATTConnect),
       {Address(), AddressType()},
       Accepted(),
       {}},
      {"ble disconnect",
       "Disconnect the device",
       BTCTL_METHOD(MWPBtBle, BleGATTDisConnect),
       {},
       Accepted(),
       {}},
      {"ble discover",
       "Ask for the services of the device",
       BTCTL_METHOD(MWPBtBle, BleGetAllService),
       {},
       power,
       {}},
      {"ble service", "Find a service", BTCTL_METHOD(MWPBtBle, BleGetServiceByUUID), {Uuid()}, power, {}},
      {"ble characteristic",
       "Find a characteristic",
       BTCTL_METHOD(MWPBtBle, BleGetCharByUUID),
       {Uuid()},
       power,
       {}},
      {"ble descriptor", "Find a descriptor", BTCTL_METHOD(MWPBtBle, BleGetDescByUUID), {Uuid()}, power, {}},
      {"ble notify",
       "Subscribe to changes",
       BTCTL_METHOD(MWPBtBle, BleGATTRegisterCharNotification),
       {Handle()},
       power,
       {}},
      {"ble read", "Read a characteristic", BTCTL_METHOD(MWPBtBle, BleGATTReadChar), {Handle()}, power, {}},
      {"ble write",
       "Write a characteristic",
       "MWPBtBle::BleGATTWriteChar",
       Bind(&Characteristic::Write),
       {Handle(), Bytes("BYTES", "to write, in hexadecimal digits")},
       power,
       {}},
      {"ble devices",
       "Ask for the devices that were found",
       BTCTL_METHOD(MWPBtBle, BleGetDiscoveryDevices),
       {},
       power,
       {}},
      {"ble services", "List the known services", BTCTL_METHOD(MWPBtBle, BleGetAllServices), {}, power, {}},
      {"ble pair",
       "Pair with a device",
       BTCTL_METHOD(MWPBtBle, BleSMPPair),
       {Address(), AddressType()},
       power,
       {}},
      {"ble passkey",
       "Answer the question for a passkey",
       BTCTL_METHOD(MWPBtBle, BleSmpPasskeyReply),
       {Switch(), Whole("PASSKEY", "the digits, if there are any")},
       power,
       {}},
      {"ble whitelist size",
       "Show how many devices the white list can hold",
       BTCTL_METHOD(MWPBtBle, BleGetWhitelistSize),
       {},
       power,
       {}},
      {"ble whitelist add",
       "Put a device on the white list",
       BTCTL_METHOD(MWPBtBle, BleAddToWhiteList),
       {Address(), AddressType()},
       power,
       {}},
      {"ble whitelist remove",
       "Take a device from the white list",
       BTCTL_METHOD(MWPBtBle, BleRemoveFromWhitelist),
       {Address(), AddressType()},
       power,
       {}},
      {"ble whitelist clear",
       "Empty the white list",
       BTCTL_METHOD(MWPBtBle, BleClearWhitelist),
       {},
       power,
       {}},
  };
  for (Request& request : requests) {
    request.checks = {NotSupportedYet("low energy")};
  }
  return requests;
}

}  // namespace btctl
