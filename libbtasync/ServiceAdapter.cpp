// Of the adapter, pairing and connections the requests that are not derived from Service.h.

#include "libbtasync/MakeRequest.h"

namespace btasync {
inline namespace v0 {

using wire::Ask;
using wire::AskForChecked;

Request<std::string> Service::GetAttribute(Attribute attribute) {
  return AskForChecked<std::string, wire::GetAttribute>(*this, attribute);
}

Request<> Service::AnswerPair(const Address& address, PairRequestState question, const PinCode& pinCode) {
  return Ask<wire::AnswerPair>(*this, pinCode, address, question);
}

Request<> Service::DeletePairedDevice(const Address& address) {
  return Ask<wire::DeletePairDevice>(*this, address, true);
}

Request<Address> Service::GetConnectedDevice(ProfileId profile) {
  return AskForChecked<Address, wire::GetCurConnectDevInfo>(*this, profile);
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
