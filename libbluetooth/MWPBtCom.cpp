// Facade of power, settings, pairing, connections and the list of paired devices.

#include <bluetooth/MWPBtCom.h>

#define MWP_LOG_SOURCE "libbluetooth/MWPBtCom"
#include <mwp/MWPLog.h>

#include "libbluetooth/ForwardToClient.h"
#include "protocol/Address.h"

namespace {

/// Guard of the methods that check their address: true if the request may go to the client.
bool IsActiveAndValid(const char* method, const std::string& address) {
  if (MWPBtClient::m_bInitClient != 0 && IsBluetoothAddress(address)) {
    return true;
  }
  MWPLogWrite(MWPLogSite{MWP_LOG_SOURCE, method, __LINE__}, MWP_LOG_ERROR,
              "No Active or address %s is invalid!", address.c_str());
  return false;
}

/// As ForwardToClient, for a request whose first argument is an address: refuses one that is not valid. The
/// address goes to the client as it is, in the case it is written in.
template <typename Result, typename... Params, typename... Args>
Result ForwardIfAddressIsValid(const char* method,
                               Result (MWPBtClient::*request)(const std::string&, Params...),
                               const std::string& address, const Args&... args) {
  return IsActiveAndValid(method, address) ? CallClient(request, address, args...) : Result();
}

}  // namespace

void MWPBtCom::GetBluetoothServiceStatus() { ForwardToClient(&MWPBtClient::GetBluetoothServiceStatus); }

void MWPBtCom::EnableProfile() { ForwardToClient(&MWPBtClient::EnableProfile); }

void MWPBtCom::DisableProfile(const std::string& address) {
  ForwardToClient(&MWPBtClient::DisableProfile, address);
}

int MWPBtCom::SetPower(int on) {
  if (MWPBtClient::m_bInitClient == 0) {
    return 0;
  }
  const int status = CallClient(&MWPBtClient::GetPowerStatus);
  MWP_LOG(MWP_LOG_INFO, "MWPBtCom::SetPower bPower = %d, status = %d .", on, status);
  const bool isOn = status == MWPBtType::BT_POWER_ON || status == MWPBtType::BT_POWER_TURNING_ON;
  const bool isOff = status == MWPBtType::BT_POWER_OFF || status == MWPBtType::BT_POWER_TURNING_OFF;
  if (on != 0 ? isOn : isOff) {
    return 0;
  }
  return CallClient(&MWPBtClient::SetPower, on);
}

int MWPBtCom::GetPowerStatus() { return ForwardToClient(&MWPBtClient::GetPowerStatus); }

int MWPBtCom::SetCapability(MWPBtType::Capability capability, int enable) {
  return ForwardToClient(&MWPBtClient::SetCapability, capability, enable);
}

// Has no guard on purpose: it makes the client if there is none. The client answers 0 until it is started.
int MWPBtCom::GetCapability(MWPBtType::Capability capability) {
  MWP_LOG(MWP_LOG_INFO, "%s()", __func__);
  return CallClient(&MWPBtClient::GetCapability, capability);
}

int MWPBtCom::GetAttribute(MWPBtType::Attribute attribute, std::string& value) {
  return ForwardToClient(&MWPBtClient::GetAttribute, attribute, value);
}

int MWPBtCom::SetAttribute(MWPBtType::Attribute attribute, const std::string& value) {
  return ForwardToClient(&MWPBtClient::SetAttribute, attribute, value);
}

std::string MWPBtCom::GetRemotePairDeviceName(const std::string& address) {
  return ForwardToClient(&MWPBtClient::GetRemotePairDeviceName, address);
}

int MWPBtCom::SetDeviceOOBLinkKey(const std::string& address, const std::vector<unsigned char>& linkKey) {
  return ForwardIfAddressIsValid(__func__, &MWPBtClient::SetDeviceOOBLinkKey, address, linkKey);
}

int MWPBtCom::Pair(const std::string& address, const std::string& pinCode) {
  return ForwardIfAddressIsValid(__func__, &MWPBtClient::Pair, address, pinCode);
}

int MWPBtCom::AnswerPair(const std::string& pinCode, const std::string& address,
                         MWPBtType::PairRequestState state) {
  return ForwardToClient(&MWPBtClient::AnswerPair, pinCode, address, state);
}

int MWPBtCom::RejectPair(const std::string& address, MWPBtType::PairRequestState state) {
  return ForwardToClient(&MWPBtClient::RejectPair, address, state);
}

int MWPBtCom::SetScanAction(int start) { return ForwardToClient(&MWPBtClient::SetScanAction, start); }

// Logs the attempt first, even while the library is not initialised.
int MWPBtCom::Connect(const std::string& address, MWPBtType::ProfileId profile, int only) {
  MWP_LOG(MWP_LOG_INFO, "connect bt_profile = %d ,bOnly = %d", profile, only);
  if (!IsActiveAndValid(__func__, address)) {
    return 0;
  }
  MWP_LOG(MWP_LOG_INFO, "MWPBtCom::Connect bt_profile = %d", profile);
  return CallClient(&MWPBtClient::Connect, address, profile, only);
}

int MWPBtCom::DisConnect(const std::string& address, MWPBtType::ProfileId profile) {
  return ForwardIfAddressIsValid(__func__, &MWPBtClient::DisConnect, address, profile);
}

int MWPBtCom::ReConnect(const std::string& address, MWPBtType::ProfileId profile) {
  return ForwardIfAddressIsValid(__func__, &MWPBtClient::ReConnect, address, profile);
}

void MWPBtCom::SetAutoConnect(int enable) { ForwardToClient(&MWPBtClient::SetAutoConnect, enable); }

int MWPBtCom::DeletePairDeviceList() { return ForwardToClient(&MWPBtClient::DeletePairDeviceList); }

int MWPBtCom::DeletePairDevice(const std::string& address, int deleting) {
  return ForwardIfAddressIsValid(__func__, &MWPBtClient::DeletePairDevice, address, deleting);
}

void MWPBtCom::RemoveDevice(const std::string& address) {
  ForwardIfAddressIsValid(__func__, &MWPBtClient::RemoveDevice, address);
}

int MWPBtCom::MovePairDevicePosion(const std::string& address, int position) {
  return ForwardToClient(&MWPBtClient::MovePairDevicePosion, address, position);
}

int MWPBtCom::EnterTestMode() { return ForwardToClient(&MWPBtClient::EnterTestMode); }

void MWPBtCom::SetWirelessEnable(const std::string& address, int enable) {
  ForwardIfAddressIsValid(__func__, &MWPBtClient::SetWirelessEnable, address, enable);
}

void MWPBtCom::ClearScanedDeviceList() { ForwardToClient(&MWPBtClient::ClearScanedDeviceList); }

int MWPBtCom::SetAndroidAutoStatus(int connected) {
  if (MWPBtClient::m_bInitClient == 0) {
    return 0;
  }
  MWP_LOG(MWP_LOG_DEBUG, "MWPBtCom::SetAndroidAutoStatus");
  return CallClient(&MWPBtClient::SetAndroidAutoStatus, connected);
}

int MWPBtCom::RequestAndroidAutoPairing(const std::string& address, int pairingMethod) {
  return ForwardIfAddressIsValid(__func__, &MWPBtClient::RequestAndroidAutoPairing, address, pairingMethod);
}
