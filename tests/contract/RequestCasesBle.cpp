#include <bluetooth/MWPBtBle.h>

#include "contract/RequestCases.h"

namespace bttest {

using F = MWPBtBle;
using C = MWPBtClient;

namespace {

/// Both answer 0, and nobody is asked.
template <typename... Params, typename... Args>
void AddFixed(std::vector<RequestCase>& cases, const char* name, int (F::*facade)(Params...),
              int (C::*client)(Params...), const Args&... args) {
  cases.push_back({name, Asks(facade, client, args...), "", "", "0", Guarded::NO});
}

/// The facade answers the power status instead, and leaves its arguments as they are.
template <typename... Params, typename... Args>
void AddPowerStatus(std::vector<RequestCase>& cases, const char* name, int (F::*facade)(Params...),
                    int (C::*client)(Params...), const Args&... args) {
  cases.push_back({name, Asks(facade, nullptr, args...), "GetPowerStatus()", "(200,)", "200"});
  cases.push_back({name, Asks(nullptr, client, args...), "", "", "0", Guarded::NO});
}

}  // namespace

std::vector<RequestCase> BleRequests() {
  const std::string a = "00:1A:7d:DA:71:13";
  static const unsigned char bytes[] = {1, 2, 3};
  const unsigned char* const data = bytes;
  const auto mode = MWPBtType::BT_BLE_SCAN_BALANCED;
  const auto filter = MWPBtType::BT_BLE_FILTER_WHITELIST;

  std::vector<RequestCase> all;
  AddFixed(all, "BleInit", &F::BleInit, &C::BleInit);
  AddFixed(all, "BleDeInit", &F::BleDeInit, &C::BleDeInit);
  AddFixed(all, "BleDiscovery", &F::BleDiscovery, &C::BleDiscovery, 1, mode, filter);
  AddFixed(all, "BleStopDiscovery", &F::BleStopDiscovery, &C::BleStopDiscovery);
  AddFixed(all, "BleGATTConnect", &F::BleGATTConnect, &C::BleGATTConnect, a, 1);
  AddFixed(all, "BleGATTDisConnect", &F::BleGATTDisConnect, &C::BleGATTDisConnect);

  AddPowerStatus(all, "BleGetAllService", &F::BleGetAllService, &C::BleGetAllService);
  AddPowerStatus(all, "BleGetServiceByUUID", &F::BleGetServiceByUUID, &C::BleGetServiceByUUID, "uuid", 11);
  AddPowerStatus(all, "BleGetCharByUUID", &F::BleGetCharByUUID, &C::BleGetCharByUUID, "uuid", 11, 12, 13);
  AddPowerStatus(all, "BleGetDescByUUID", &F::BleGetDescByUUID, &C::BleGetDescByUUID, "uuid", 11, 12, 13);
  AddPowerStatus(all, "BleGATTRegisterCharNotification", &F::BleGATTRegisterCharNotification,
                 &C::BleGATTRegisterCharNotification, 65535);
  AddPowerStatus(all, "BleGATTReadChar", &F::BleGATTReadChar, &C::BleGATTReadChar, 65535);
  AddPowerStatus(all, "BleGATTWriteChar", &F::BleGATTWriteChar, &C::BleGATTWriteChar, 65535, data, 3u);
  AddPowerStatus(all, "BleGetDiscoveryDevices", &F::BleGetDiscoveryDevices, &C::BleGetDiscoveryDevices,
                 std::list<MWPTypeBleDevice>(1));
  AddPowerStatus(all, "BleGetAllServices", &F::BleGetAllServices, &C::BleGetAllServices,
                 std::list<MWPTypeGattService>(1));
  AddPowerStatus(all, "BleSMPPair", &F::BleSMPPair, &C::BleSMPPair, a, 1);
  AddPowerStatus(all, "BleSmpPasskeyReply", &F::BleSmpPasskeyReply, &C::BleSmpPasskeyReply, 1, 123456u);
  AddPowerStatus(all, "BleGetWhitelistSize", &F::BleGetWhitelistSize, &C::BleGetWhitelistSize);
  AddPowerStatus(all, "BleAddToWhiteList", &F::BleAddToWhiteList, &C::BleAddToWhiteList, a, 1);
  AddPowerStatus(all, "BleRemoveFromWhitelist", &F::BleRemoveFromWhitelist, &C::BleRemoveFromWhitelist, a, 1);
  AddPowerStatus(all, "BleClearWhitelist", &F::BleClearWhitelist, &C::BleClearWhitelist);
  return all;
}

}  // namespace bttest
