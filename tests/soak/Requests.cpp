#include "soak/Requests.h"

#include <list>

#include <bluetooth/MWPBtCom.h>
#include <bluetooth/MWPBtPbap.h>
#include <bluetooth/MWPBtPhone.h>

namespace btsoak {
namespace {

using namespace MWPBtType;

constexpr const char* kPhone = "00:1A:7D:DA:71:13";

std::string AskAttribute(Attribute attribute) {
  std::string value = "before";
  const int result = MWPBtCom().GetAttribute(attribute, value);
  return std::to_string(result) + " " + value;
}

std::string FetchContacts() {
  std::list<MWPTypeContact> contacts;
  // How many there are is the service's affair, which may just be reading them, or writing the segment.
  return std::to_string(MWPBtPbap().GetContactList(contacts));
}

std::string SetPin(const std::string& pin) {
  return std::to_string(MWPBtCom().SetAttribute(BT_ATTR_PIN_CODE, pin));
}

}  // namespace

const std::array<std::vector<KnownRequest>, kThreads>& RequestsOverTheBus() {
  static const auto askName = [] { return AskAttribute(BT_ATTR_LOCAL_NAME); };
  static const auto askAddress = [] { return AskAttribute(BT_ATTR_LOCAL_ADDRESS); };
  static const auto askPhone = [] { return MWPBtCom().GetRemotePairDeviceName(kPhone); };
  static const auto askStranger = [] { return MWPBtCom().GetRemotePairDeviceName("00:00:00:00:00:01"); };
  static const auto askPower = [] { return std::to_string(MWPBtCom().GetPowerStatus()); };
  static const auto askNoCall = [] { return std::to_string(MWPBtPhone().GetCurCallStatus(7)); };
  static const auto movePhone = [] { return std::to_string(MWPBtCom().MovePairDevicePosion(kPhone, 0)); };
  static const std::vector<std::string> allOfPower{"0", "1", "2", "3"};
  static const std::vector<std::string> accepted{"1"};
  static const std::array<std::vector<KnownRequest>, kThreads> requests{{
      {{"GetAttribute(name)", askName, {"1 Soaked car"}, "0 ", 1},
       {"GetAttribute(address)", askAddress, {"1 00:1B:DC:00:00:07"}, "0 ", 1}},
      {{"GetRemotePairDeviceName", askPhone, {"Ada's phone"}, "", 1},
       {"GetRemotePairDeviceName(unknown)", askStranger, {""}, "", 1},
       {"GetPowerStatus", askPower, allOfPower, "0", 2}},
      {{"GetCurCallStatus", askNoCall, {"0"}, "0", 40},
       {"MovePairDevicePosion", movePhone, accepted, "0", 40},
       {"SetAttribute(PIN)", [] { return SetPin("1234"); }, accepted, "0", 1},
       {"GetAttribute(name)", askName, {"1 Soaked car"}, "0 ", 40},
       {"SetAttribute(other PIN)", [] { return SetPin("4321"); }, accepted, "0", 1}},
      {{"GetContactCount",
        [] { return std::to_string(MWPBtPbap().GetContactCount()); },
        {"0", "20"},
        "0",
        60},
       {"GetContactList", FetchContacts, {"1"}, "1", 1}},
  }};
  return requests;
}

void ReadSharedMemory() {
  MWPTypeCallInfo info;
  MWPBtPhone().GetCurrentCallInfo(info);
  MWPBtCom().GetCapability(BT_CAP_AUTO_CONNECT);
}

}  // namespace btsoak
