#include <bluetooth/MWPBtCom.h>

#include "contract/RequestCases.h"

namespace bttest {

using F = MWPBtCom;
using C = MWPBtClient;

std::vector<RequestCase> ComRequests() {
  const std::string a = "00:1A:7d:DA:71:13";
  const std::vector<unsigned char> key{1, 0, 255};
  const auto hfp = MWPBtType::BT_PROFILE_HFP;
  const auto pin = MWPBtType::BT_PAIR_REQUEST_PIN_CODE;
  const auto name = MWPBtType::BT_ATTR_LOCAL_NAME;
  const auto version = MWPBtType::BT_ATTR_STACK_VERSION;
  const auto ring = MWPBtType::BT_CAP_LOCAL_RING;
  return {
      // The facade answers nothing where the service answers nothing, and the client 0.
      {"GetBluetoothServiceStatus", Asks(&F::GetBluetoothServiceStatus, nullptr),
       "GetBluetoothServiceStatus()", "", ""},
      {"GetBluetoothServiceStatus", Asks(nullptr, &C::GetBluetoothServiceStatus),
       "GetBluetoothServiceStatus()", "", "0"},
      {"EnableProfile", Asks(&F::EnableProfile, nullptr), "EnableProfile()", "", ""},
      {"EnableProfile", Asks(nullptr, &C::EnableProfile), "EnableProfile()", "", "0"},
      {"DisableProfile", Asks(&F::DisableProfile, nullptr, "no address"), "DisableProfile('no address',)", "",
       ""},
      {"DisableProfile", Asks(nullptr, &C::DisableProfile, a), "DisableProfile('00:1A:7d:DA:71:13',)", "",
       "0"},
      {"SetWirelessEnable", Asks(&F::SetWirelessEnable, nullptr, a, 1),
       "SetWirelessEnable('00:1A:7d:DA:71:13', true)", "", ""},
      {"SetWirelessEnable", Asks(nullptr, &C::SetWirelessEnable, a, 1),
       "SetWirelessEnable('00:1A:7d:DA:71:13', true)", "", "0", Guarded::NO},
      {"ClearScanedDeviceList", Asks(&F::ClearScanedDeviceList, nullptr), "ClearScanedDeviceList()", "", ""},
      {"ClearScanedDeviceList", Asks(nullptr, &C::ClearScanedDeviceList), "ClearScanedDeviceList()", "", "0",
       Guarded::NO},

      {"SetPower", Asks(nullptr, &C::SetPower, 1), "SetPower(byte 0x01,)", "(-5,)", "-5"},
      {"GetPowerStatus", Asks(&F::GetPowerStatus, &C::GetPowerStatus), "GetPowerStatus()", "(200,)", "200"},
      {"SetCapability", Asks(&F::SetCapability, &C::SetCapability, ring, 255),
       "SetCapability(byte 0x0a, byte 0xff)", "(200,)", "200", Guarded::NO},
      // Read from shared memory, where the persisted settings' defaults are.
      {"GetCapability", Asks(nullptr, &C::GetCapability, MWPBtType::BT_CAP_PARAMETER_LOADED), "", "", "1"},
      {"GetAttribute", Asks(&F::GetAttribute, &C::GetAttribute, version, "before"),
       "GetAttribute(byte 0x03,)", "('after', 200)", "200 -> 'after'"},
      {"SetAttribute", Asks(&F::SetAttribute, &C::SetAttribute, name, "M\u00fcller"),
       "SetAttribute(byte 0x00, 'M\u00fcller')", "(200,)", "200"},
      {"GetRemotePairDeviceName", Asks(&F::GetRemotePairDeviceName, &C::GetRemotePairDeviceName, "anything"),
       "GetRemotePairDeviceName('anything',)", "('M\u00fcller',)", "'M\u00fcller'"},
      {"SetDeviceOOBLinkKey", Asks(&F::SetDeviceOOBLinkKey, &C::SetDeviceOOBLinkKey, a, key),
       "SetDeviceOOBLinkKey('00:1A:7d:DA:71:13', <[byte 0x01, 0x00, 0xff]>)", "(false,)", "0"},
      {"Pair", Asks(&F::Pair, &C::Pair, a, "0000"), "Pair('00:1A:7d:DA:71:13', '0000')", "(200,)", "200"},
      {"AnswerPair", Asks(&F::AnswerPair, &C::AnswerPair, "1234", "no address", pin),
       "AnswerPair('1234', 'no address', byte 0x03)", "(200,)", "200"},
      {"RejectPair", Asks(&F::RejectPair, &C::RejectPair, "no address", pin),
       "RejectPair('no address', byte 0x03)", "(200,)", "200"},
      {"SetScanAction", Asks(&F::SetScanAction, &C::SetScanAction, 1), "SetScanAction(true,)", "(true,)",
       "1"},
      {"Connect", Asks(&F::Connect, &C::Connect, a, hfp, 2),
       "Connect('00:1A:7d:DA:71:13', byte 0x01, byte 0x02)", "(200,)", "200"},
      {"DisConnect", Asks(&F::DisConnect, &C::DisConnect, a, hfp),
       "DisConnect('00:1A:7d:DA:71:13', byte 0x01)", "(200,)", "200"},
      {"ReConnect", Asks(&F::ReConnect, &C::ReConnect, a, hfp), "ReConnect('00:1A:7d:DA:71:13', byte 0x01)",
       "(200,)", "200"},
      {"SetAutoConnect", Asks(&F::SetAutoConnect, &C::SetAutoConnect, 1), "SetAutoConnect(true,)", "(true,)",
       ""},
      {"GetCurConnectDevInfo", Asks(nullptr, &C::GetCurConnectDevInfo, hfp, "before"),
       "GetCurConnectDevInfo(byte 0x01,)", "('after', 200)", "200 -> 'after'"},
      {"DeletePairDeviceList", Asks(&F::DeletePairDeviceList, &C::DeletePairDeviceList),
       "DeletePairDeviceList()", "(200,)", "200"},
      {"DeletePairDevice", Asks(&F::DeletePairDevice, &C::DeletePairDevice, a, 1),
       "DeletePairDevice('00:1A:7d:DA:71:13', true)", "(200,)", "200"},
      {"RemoveDevice", Asks(&F::RemoveDevice, &C::RemoveDevice, a), "RemoveDevice('00:1A:7d:DA:71:13',)", "",
       ""},
      {"MovePairDevicePosion", Asks(&F::MovePairDevicePosion, &C::MovePairDevicePosion, "no address", -3),
       "MovePairDevicePosion('no address', -3)", "(200,)", "200"},
      {"EnterTestMode", Asks(&F::EnterTestMode, &C::EnterTestMode), "EnterTestMode()", "(200,)", "200"},
      {"GetPairListIndexByAddress", Asks(nullptr, &C::GetPairListIndexByAddress, a),
       "GetPairListIndexByAddress('00:1A:7d:DA:71:13',)", "(-5,)", "-5"},
      {"GetPairDeviceInfoByAddress", Asks(nullptr, &C::GetPairDeviceInfoByAddress, a),
       "GetPairDeviceInfoByAddress('00:1A:7d:DA:71:13',)", "('name', 'address', 1, 2, 3, 4)",
       "{'address', 'name', [], 4, 1, 2, 3}"},
      {"SetAndroidAutoStatus", Asks(&F::SetAndroidAutoStatus, &C::SetAndroidAutoStatus, 1),
       "SetAndroidAutoStatus(byte 0x01,)", "(true,)", "1"},
      {"RequestAndroidAutoPairing", Asks(&F::RequestAndroidAutoPairing, &C::RequestAndroidAutoPairing, a, -1),
       "RequestAndroidAutoPairing('00:1A:7d:DA:71:13', -1)", "(true,)", "1"},

      // Answered without asking anybody.
      {"SetEnableScanTime", Asks(nullptr, &C::SetEnableScanTime, 9), "", "", "1", Guarded::NO},
      {"SetDeviceDisableConnect", Asks(nullptr, &C::SetDeviceDisableConnect, a, 1), "", "", "1", Guarded::NO},
      {"GetPairDevice", Asks(nullptr, &C::GetPairDevice, a), "", "", "{'', '', [], 0, 0, 3, 0}", Guarded::NO},
      {"GetScanDeviceList",
       Asks(nullptr, &C::GetScanDeviceList, std::list<MWPTypeScanDevice>{{a, "name", {}}}), "", "", "1",
       Guarded::NO},
      {"GetOperator", Asks(nullptr, &C::GetOperator, "as it was"), "", "", "", Guarded::NO},
      {"SetAECParameter", Asks(nullptr, &C::SetAECParameter, "name", 1, 2, 3, 4, 5, 6, 7, 8, 9), "", "", "0",
       Guarded::NO},
      {"ActiveBQB", Asks(nullptr, &C::ActiveBQB, 1, "argument"), "", "", "1", Guarded::NO},
      {"SetEirData", Asks(nullptr, &C::SetEirData, "data"), "", "", "1", Guarded::NO},
  };
}

}  // namespace bttest
