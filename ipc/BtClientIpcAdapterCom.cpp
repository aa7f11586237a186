// The requests about the adapter, pairing, connections and the paired devices: one call of the service each.
// ServiceCall.h says how they are read.

#define MWP_LOG_SOURCE "ipc/BtClientIpcAdapter"
#include <mwp/MWPLog.h>

#include "ipc/BtClientIpcAdapter.h"
#include "ipc/ServiceCall.h"

void BtClientIpcAdapter::GetBluetoothServiceStatus() { CallService(BT_CALL(get_bluetooth_service_status)); }

void BtClientIpcAdapter::EnableProfile() { CallService(BT_CALL(enable_profile)); }

void BtClientIpcAdapter::DisableProfile(const std::string& address) {
  CallService(BT_CALL(disable_profile), address.c_str());
}

int BtClientIpcAdapter::SetPower(int on) { return CallForResult<gint>(BT_CALL(set_power), AsByte(on)); }

int BtClientIpcAdapter::GetPowerStatus() {
  return CallForResult<guchar>(BT_CALL_AS("com_zelk_linux_bluetooth_call_get_power_sync", get_power_status));
}

int BtClientIpcAdapter::SetCapability(MWPBtType::Capability capability, int enable) {
  return CallForResult<guchar>(BT_CALL_AS("com_zelk_linux_bluetooth_set_capability_sync", set_capability),
                               AsByte(capability), AsByte(enable));
}

int BtClientIpcAdapter::SetAttribute(MWPBtType::Attribute attribute, const std::string& value) {
  return CallForResult<guchar>(BT_CALL_AS("com_zelk_linux_bluetooth_set_attribute_sync", set_attribute),
                               AsByte(attribute), value.c_str());
}

int BtClientIpcAdapter::Pair(const std::string& address, const std::string& pinCode) {
  return CallForResult<guchar>(BT_CALL(pair), address.c_str(), pinCode.c_str());
}

int BtClientIpcAdapter::AnswerPair(const std::string& pinCode, const std::string& address,
                                   MWPBtType::PairRequestState state) {
  return CallForResult<guchar>(BT_CALL_AS("com_zelk_linux_bluetooth_call_pair_sync", answer_pair),
                               pinCode.c_str(), address.c_str(), AsByte(state));
}

int BtClientIpcAdapter::RejectPair(const std::string& address, MWPBtType::PairRequestState state) {
  return CallForResult<guchar>(BT_CALL_AS("com_zelk_linux_bluetooth_call_pair_sync", reject_pair),
                               address.c_str(), AsByte(state));
}

int BtClientIpcAdapter::SetScanAction(int start) {
  return CallForResult<gboolean>(BT_CALL(set_scan_action), start);
}

int BtClientIpcAdapter::Connect(const std::string& address, MWPBtType::ProfileId profile, int only) {
  return CallForResult<guchar>(BT_CALL(connect), address.c_str(), AsByte(profile), AsByte(only));
}

int BtClientIpcAdapter::DisConnect(const std::string& address, MWPBtType::ProfileId profile) {
  return CallForResult<guchar>(BT_CALL(dis_connect), address.c_str(), AsByte(profile));
}

int BtClientIpcAdapter::ReConnect(const std::string& address, MWPBtType::ProfileId profile) {
  return CallForResult<guchar>(BT_CALL(re_connect), address.c_str(), AsByte(profile));
}

// Cut to a byte although it travels as a boolean: 256 switches off.
int BtClientIpcAdapter::SetAutoConnect(int enable) {
  return CallForResult<gboolean>(BT_CALL(set_auto_connect), AsByte(enable));
}

int BtClientIpcAdapter::DeletePairDeviceList() {
  return CallForResult<guchar>(BT_CALL(delete_pair_device_list));
}

int BtClientIpcAdapter::DeletePairDevice(const std::string& address, int deleting) {
  return CallForResult<guchar>(BT_CALL(delete_pair_device), address.c_str(), deleting);
}

void BtClientIpcAdapter::RemoveDevice(const std::string& address) {
  CallService(BT_CALL(remove_device), address.c_str());
}

int BtClientIpcAdapter::MovePairDevicePosion(const std::string& address, int position) {
  return CallForResult<guchar>(BT_CALL(move_pair_device_posion), address.c_str(), position);
}

int BtClientIpcAdapter::EnterTestMode() { return CallForResult<guchar>(BT_CALL(enter_test_mode)); }

int BtClientIpcAdapter::GetPairListIndexByAddress(const std::string& address) {
  return CallForResult<gint>(BT_CALL(get_pair_list_index_by_address), address.c_str());
}

int BtClientIpcAdapter::SetAndroidAutoStatus(int connected) {
  return CallForResult<gboolean>(
      BT_CALL_AS("com_zelk_linux_bluetooth_call_set_android_auto_connect_status_sync",
                 set_android_auto_status),
      AsByte(connected));
}

int BtClientIpcAdapter::RequestAndroidAutoPairing(const std::string& address, int pairingMethod) {
  return CallForResult<gboolean>(BT_CALL(request_android_auto_pairing), address.c_str(), pairingMethod);
}

void BtClientIpcAdapter::SetWirelessEnable(const std::string& address, int enable) {
  CallService(BT_CALL(set_wireless_enable), address.c_str(), enable);
}

void BtClientIpcAdapter::ClearScanedDeviceList() { CallService(BT_CALL(clear_scaned_device_list)); }

// A missing text is the failure that is logged; the error of the call is not.
int BtClientIpcAdapter::GetAttribute(MWPBtType::Attribute attribute, std::string& value) {
  OwnedError error;
  OutText text(BT_REQUEST_SITE);
  guchar result = 0;
  CallSilently(error, com_zelk_linux_bluetooth_call_get_attribute_sync, AsByte(attribute), text.Out(),
               &result);
  if (text.IsMissing()) {
    MWP_LOG(MWP_LOG_ERROR, "BtClientIpcAdapter::GetAttribute Get Failed !!!");
    value.clear();
    return 0;
  }
  value = text.Text();
  LogFailure(BT_REQUEST_SITE, "com_zelk_linux_bluetooth_get_attribute_sync", error);
  return result;
}

std::string BtClientIpcAdapter::GetRemotePairDeviceName(const std::string& address) {
  OutText name(BT_REQUEST_SITE);
  CallService(BT_CALL(get_remote_pair_device_name), address.c_str(), name.Out());
  return name.Text();
}

int BtClientIpcAdapter::GetCurConnectDevInfo(MWPBtType::ProfileId profile, std::string& address) {
  OutText text(BT_REQUEST_SITE);
  guchar result = 0;
  CallService(BT_CALL(get_cur_connect_dev_info), AsByte(profile), text.Out(), &result);
  address = text.Text();
  return result;
}

// The preset of 1 is what callers get from a call that fails.
int BtClientIpcAdapter::SetDeviceOOBLinkKey(const std::string& address,
                                            const std::vector<unsigned char>& linkKey) {
  MWP_LOG(MWP_LOG_DEBUG, "BtClientIpcAdapter::SetDeviceOOBLinkKey :%s", address.c_str());
  for (const unsigned char byte : linkKey) {
    MWP_LOG(MWP_LOG_DEBUG, "BtClientIpcAdapter::SetDeviceOOBLinkKey : %x", byte);
  }
  gboolean result = 1;
  CallWithBytes(BT_CALL(set_device_ooblink_key), address, linkKey.data(), linkKey.size(), &result);
  return result;
}

MWPTypeDevice BtClientIpcAdapter::GetPairDeviceInfoByAddress(const std::string& address) {
  OutText name(BT_REQUEST_SITE);
  OutText deviceAddress(BT_REQUEST_SITE);
  guchar profile = 0;
  guchar enableProfile = 0;
  guchar connectStatus = 0;
  guchar supportType = 0;
  CallService(BT_CALL_AS("com_zelk_linux_bluetooth_call_get_pair_dev_name_by_address_sync",
                         get_pair_device_info_by_address),
              address.c_str(), name.Out(), deviceAddress.Out(), &profile, &enableProfile, &connectStatus,
              &supportType);
  // A failed call leaves zeros, so that eEnableProfileId is 0 and not what a default record has.
  MWPTypeDevice device;
  device.strAddr = deviceAddress.Text();
  device.strName = name.Text();
  device.eProfileId = static_cast<MWPBtType::ProfileId>(profile);
  device.eEnableProfileId = static_cast<MWPBtType::ProfileId>(enableProfile);
  device.eConnectStatus = static_cast<MWPBtType::ConnStatus>(connectStatus);
  device.eSupportType = static_cast<MWPBtType::SupportType>(supportType);
  return device;
}
