// The adapter, pairing, connections and wireless projection.

#include "libbtasync/MakeRequest.h"

namespace btasync {
inline namespace v0 {

using wire::Ask;
using wire::AskFor;
using wire::AskForChecked;

Request<> Service::GetBluetoothServiceStatus() { return Ask<wire::GetBluetoothServiceStatus>(*this); }
Request<> Service::SetPower(bool on) { return Ask<wire::SetPower>(*this, on); }
Request<PowerStatus> Service::GetPowerStatus() { return AskFor<PowerStatus, wire::GetPowerStatus>(*this); }
Request<> Service::SetCapability(Capability capability, bool on) {
  return Ask<wire::SetCapability>(*this, capability, on);
}
Request<std::string> Service::GetAttribute(Attribute attribute) {
  return AskForChecked<std::string, wire::GetAttribute>(*this, attribute);
}
Request<> Service::SetAttribute(Attribute attribute, Text value) {
  return Ask<wire::SetAttribute>(*this, attribute, value);
}
Request<> Service::SetAutoConnect(bool on) { return Ask<wire::SetAutoConnect>(*this, on); }
Request<> Service::EnableProfiles() { return Ask<wire::EnableProfile>(*this); }
Request<> Service::DisableProfiles(const Address& address) {
  return Ask<wire::DisableProfile>(*this, address);
}
Request<> Service::EnterTestMode() { return Ask<wire::EnterTestMode>(*this); }

Request<> Service::SetScanAction(bool start) { return Ask<wire::SetScanAction>(*this, start); }
Request<> Service::ClearFoundDevices() { return Ask<wire::ClearScanedDeviceList>(*this); }
Request<> Service::RemoveFoundDevice(const Address& address) {
  return Ask<wire::RemoveDevice>(*this, address);
}
Request<> Service::Pair(const Address& address, const PinCode& pinCode) {
  return Ask<wire::Pair>(*this, address, pinCode);
}
Request<> Service::AnswerPair(const Address& address, PairRequestState question, const PinCode& pinCode) {
  return Ask<wire::AnswerPair>(*this, pinCode, address, question);
}
Request<> Service::RejectPair(const Address& address, PairRequestState question) {
  return Ask<wire::RejectPair>(*this, address, question);
}
Request<> Service::SetOutOfBandKey(const Address& address, const Bytes& linkKey) {
  return Ask<wire::SetDeviceOOBLinkKey>(*this, address, linkKey);
}

Request<> Service::MovePairedDevice(const Address& address, int position) {
  return Ask<wire::MovePairDevicePosion>(*this, address, position);
}
Request<> Service::DeletePairedDevice(const Address& address) {
  return Ask<wire::DeletePairDevice>(*this, address, true);
}
Request<> Service::DeletePairedDevices() { return Ask<wire::DeletePairDeviceList>(*this); }
Request<> Service::Connect(const Address& address, ProfileId profile, bool only) {
  return Ask<wire::Connect>(*this, address, profile, only);
}
Request<> Service::Disconnect(const Address& address, ProfileId profile) {
  return Ask<wire::DisConnect>(*this, address, profile);
}
Request<> Service::Reconnect(const Address& address, ProfileId profile) {
  return Ask<wire::ReConnect>(*this, address, profile);
}
Request<Address> Service::GetConnectedDevice(ProfileId profile) {
  return AskForChecked<Address, wire::GetCurConnectDevInfo>(*this, profile);
}

Request<> Service::SetAndroidAutoStatus(bool running) {
  return Ask<wire::SetAndroidAutoStatus>(*this, running);
}
Request<> Service::RequestAndroidAutoPairing(const Address& address, int pairingMethod) {
  return Ask<wire::RequestAndroidAutoPairing>(*this, address, pairingMethod);
}
Request<> Service::SetWirelessEnable(const Address& address, bool on) {
  return Ask<wire::SetWirelessEnable>(*this, address, on);
}

Request<bool> Service::GetCapability(Capability capability) {
  const auto decode = [](GVariant* values) -> Answer<bool> {
    const Answer<int> value = wire::Question<wire::GetCapability, int>(values);
    return value ? Answer<bool>(*value != 0) : Answer<bool>(value.Why());
  };
  return {wire::Prepare<wire::GetCapability>(End(), capability), decode};
}

Request<std::string> Service::GetPairedDeviceName(const Address& address) {
  const auto decode = [](GVariant* values) -> Answer<std::string> {
    Answer<std::string> name = wire::Question<wire::GetRemotePairDeviceName, std::string>(values);
    return name && name->empty() ? Answer<std::string>(Refusal()) : name;
  };
  return {wire::Prepare<wire::GetRemotePairDeviceName>(End(), address), decode};
}

Request<int> Service::GetPairedDeviceIndex(const Address& address) {
  const auto decode = [](GVariant* values) -> Answer<int> {
    const Answer<int> index = wire::Question<wire::GetPairListIndexByAddress, int>(values);
    return index && *index < 0 ? Answer<int>(Refusal()) : index;
  };
  return {wire::Prepare<wire::GetPairListIndexByAddress>(End(), address), decode};
}

Request<MWPTypeDevice> Service::GetPairedDevice(const Address& address) {
  using Method = wire::GetPairDeviceInfoByAddress;
  const auto decode = [](GVariant* values) -> Answer<MWPTypeDevice> {
    if (!wire::Fits<Method>(values)) {
      return wire::BadTypes(Method::name);
    }
    MWPTypeDevice device;
    device.strName = wire::TextAt(values, 0);
    device.strAddr = wire::TextAt(values, 1);
    device.eProfileId = wire::Value<Method, 2>{values};
    device.eEnableProfileId = wire::Value<Method, 3>{values};
    device.eConnectStatus = wire::Value<Method, 4>{values};
    device.eSupportType = wire::Value<Method, 5>{values};
    return device.strAddr.empty() ? Answer<MWPTypeDevice>(Refusal())
                                  : Answer<MWPTypeDevice>(std::move(device));
  };
  return {wire::Prepare<Method>(End(), address), decode};
}

}  // namespace v0
}  // namespace btasync
