#include "service/frontend/Methods.h"

namespace btservice {
namespace {

int PairListIndex(const DeviceControl& devices, const std::string& address) {
  const std::optional<DeviceInfo> device = devices.FindDevice(address);
  const std::vector<DeviceInfo> paired = devices.PairedDevices();
  for (std::size_t i = 0; device && i < paired.size(); ++i) {
    if (paired[i].address == device->address) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

}  // namespace

void BindDeviceMethods(ServiceBinder binder, DeviceControl& devices) {
  using D = DeviceControl;
  binder.Bind(BT_METHOD(enable_profile), devices, &D::EnableProfiles);
  binder.Bind(BT_METHOD(disable_profile), devices, &D::DisableProfiles);
  binder.Bind(BT_METHOD(set_device_ooblink_key), devices, &D::SetOobLinkKey);
  binder.Bind(BT_METHOD(pair), devices, &D::Pair);
  binder.Bind(BT_METHOD(answer_pair), [&devices](const gchar* pin, const gchar* address, guchar state) {
    return devices.AcceptPairing(address, pin, static_cast<PairRequestState>(state));
  });
  binder.Bind(BT_METHOD(reject_pair), devices, &D::RejectPairing);
  binder.Bind(BT_METHOD(connect), devices, &D::Connect);
  binder.Bind(BT_METHOD(dis_connect), devices, &D::Disconnect);
  binder.Bind(BT_METHOD(re_connect), devices, &D::Reconnect);
  binder.Bind(BT_METHOD(get_cur_connect_dev_info), [&devices](guchar profile) {
    const ConnectionState state = devices.Connection(static_cast<ProfileId>(profile));
    return std::tuple(state.address, state.status == BT_CONN_CONNECTED);
  });
  binder.Bind(BT_METHOD(get_media_connection_state), [&devices] {
    const ConnectionState state = devices.Connection(BT_PROFILE_A2DP);
    return std::tuple(state.status, state.address);
  });
  binder.Bind(BT_METHOD(get_phone_connection_state), [&devices] {
    const ConnectionState state = devices.Connection(BT_PROFILE_HFP);
    return std::tuple(state.status, state.address);
  });

  binder.Bind(BT_METHOD(get_remote_pair_device_name), [&devices](const gchar* address) {
    const std::optional<DeviceInfo> device = devices.FindDevice(address);
    return device ? device->name : std::string();
  });
  binder.Bind(BT_METHOD(get_pair_list_index_by_address),
              [&devices](const gchar* address) { return PairListIndex(devices, address); });
  binder.Bind(BT_METHOD(get_pair_device_info_by_address), [&devices](const gchar* address) {
    const DeviceInfo info = devices.FindDevice(address).value_or(DeviceInfo());
    return std::tuple(info.name, info.address, info.connected, info.enabled, info.status, info.support);
  });
  binder.Bind(BT_METHOD(delete_pair_device_list), devices, &D::DeletePairings);
  binder.Bind(BT_METHOD(delete_pair_device), [&devices](const gchar* address, gboolean deleting) {
    return deleting != FALSE && devices.DeletePairing(address);
  });
  binder.Bind(BT_METHOD(remove_device), devices, &D::RemoveDevice);
  binder.Bind(BT_METHOD(move_pair_device_posion), devices, &D::MovePairing);

  binder.Bind(BT_METHOD(set_android_auto_status), devices, &D::SetProjectionRunning);
  binder.Bind(BT_METHOD(request_android_auto_pairing), devices, &D::RequestProjectionPairing);
  binder.Bind(BT_METHOD(set_wireless_enable), devices, &D::SetProjectionAllowed);
}

}  // namespace btservice
