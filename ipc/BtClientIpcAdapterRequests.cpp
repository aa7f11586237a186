// The requests that are one call of the service each. Nearly all are one line, which names the type of the
// service's answer, the generated function, and how each argument travels. The longer ones at the end of a
// section are those that do more, or log another text than the rest: log analysis knows these texts.

#define MWP_LOG_SOURCE "ipc/BtClientIpcAdapter"
#include <mwp/MWPLog.h>

#include "ipc/BtClientIpcAdapter.h"
#include "ipc/D-Bus/bt_variant.h"
#include "ipc/ServiceCall.h"

namespace {

/// Calls a function that takes an address and a variant of bytes. Bytes that cannot travel are not sent.
template <typename Function>
void CallWithBytes(const MWPLogSite& site, const char* name, Function call, const std::string& address,
                   const void* data, std::size_t size, gboolean* result) {
  if (size > kMaxArrayBytes || (data == nullptr && size > 0)) {
    ServiceError error;
    error.Set(data == nullptr ? "there is no buffer"
                              : "the buffer is larger than the 64 MiB that D-Bus carries");
    LogFailure(site, name, error);
    return;
  }
  const VariantHolder bytes(bt_build_variant_data(const_cast<void*>(data), static_cast<int>(size)));
  CallService(site, name, call, address.c_str(), bytes.Get(), result);
}

/// Asks for a connection state. A failure is not logged.
template <typename Function>
MWPTypeConnectionState AskConnectionState(const MWPLogSite& site, Function call) {
  ServiceError ignored;
  guchar status = 0;
  OutText address(site);
  CallSilently(ignored, call, &status, address.Out());
  MWPTypeConnectionState state;
  state.status = status;
  state.address = address.Text();
  return state;
}

/// Makes room for so many further modes; false, with an error in the log, if there is no memory for them.
bool MakeRoom(const MWPLogSite& site, std::vector<MWPTypePlayMode>& modes, std::size_t count) {
  try {
    modes.reserve(modes.size() + count);
    return true;
  } catch (const std::bad_alloc&) {
    MWPLogWrite(site, MWP_LOG_ERROR, "%s: there is no memory for %zu play modes", site.function, count);
    return false;
  }
}

/// Appends the play modes that the service answers with, and prints the type of each, under the name of the
/// adapter's method, to standard output.
template <typename Function>
int AskPlayModes(const MWPLogSite& site, const char* name, Function call,
                 std::vector<MWPTypePlayMode>& modes) {
  VariantHolder answer;
  gboolean result = 0;
  if (!CallService(site, name, call, answer.Out(), &result)) {
    return result;
  }
  const gsize count = g_variant_n_children(answer.Get());
  if (!MakeRoom(site, modes, count)) {
    return result;
  }
  for (gsize i = 0; i < count; ++i) {
    VariantHolder child;
    *child.Out() = g_variant_get_child_value(answer.Get(), i);
    g_print("%s type '%s'\n", site.function, g_variant_get_type_string(child.Get()));
    if (g_variant_is_container(child.Get())) {
      guchar type = 0;
      guchar value = 0;
      g_variant_get(child.Get(), "(yy)", &type, &value);
      MWPTypePlayMode mode;
      mode.nType = type;
      mode.nValue = value;
      modes.push_back(mode);
    }
  }
  return result;
}

}  // namespace

// Adapter, pairing, connections and paired devices

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
  ServiceError error;
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

// Phone

int BtClientIpcAdapter::AcceptCall() { return CallForResult<gboolean>(BT_CALL(accept_call)); }

int BtClientIpcAdapter::RejectCall() { return CallForResult<gboolean>(BT_CALL(reject_call)); }

int BtClientIpcAdapter::TerminateCall() { return CallForResult<gboolean>(BT_CALL(terminate_call)); }

int BtClientIpcAdapter::RedialCall() { return CallForResult<gboolean>(BT_CALL(redial_call)); }

int BtClientIpcAdapter::DialCall(const std::string& number) {
  return CallForResult<gboolean>(BT_CALL(dial_call), number.c_str());
}

int BtClientIpcAdapter::MultipleWayCall(MWPBtType::CallAction action, int callId) {
  return CallForResult<gboolean>(BT_CALL(multiple_way_call), AsByte(action), callId);
}

int BtClientIpcAdapter::GetCurCallStatus(int callId) {
  return CallForResult<guchar>(BT_CALL(get_cur_call_status), callId);
}

int BtClientIpcAdapter::GetCurCallCount() {
  return CallForResult<guint>(
      BT_CALL_AS("com_zelk_linux_bluetooth_call_get_cur_count_sync", get_cur_call_count));
}

int BtClientIpcAdapter::SendDTMF(char tone) {
  return CallForResult<gboolean>(BT_CALL(send_dtmf), static_cast<guchar>(tone));
}

int BtClientIpcAdapter::SetAudioPrivacy(int onPhone) {
  return CallForResult<gboolean>(
      BT_CALL_AS("com_zelk_linux_bluetooth_call_set_audio_pravicy_sync", set_audio_privacy), onPhone);
}

int BtClientIpcAdapter::GetAudioIsPrivacy() {
  return CallForResult<gboolean>(
      BT_CALL_AS("com_zelk_linux_bluetooth_call_get_audio_is_pravicy_sync", get_audio_is_privacy));
}

void BtClientIpcAdapter::StartVoiceRecognition() { CallService(BT_CALL(start_voice_recognition)); }

void BtClientIpcAdapter::StopVoiceRecognition() { CallService(BT_CALL(stop_voice_recognition)); }

int BtClientIpcAdapter::GetCurrentMobilePhoneNumber(std::string& number) {
  OutText text(BT_REQUEST_SITE);
  gboolean result = 0;
  CallService(BT_CALL(get_current_mobile_phone_number), text.Out(), &result);
  number = text.Text();
  return result;
}

MWPTypeConnectionState BtClientIpcAdapter::GetPhoneConnectionState() {
  return AskConnectionState(BT_REQUEST_SITE, com_zelk_linux_bluetooth_call_get_phone_connection_state_sync);
}

// Media

MWPTypeConnectionState BtClientIpcAdapter::GetMediaConnectionState() {
  return AskConnectionState(BT_REQUEST_SITE, com_zelk_linux_bluetooth_call_get_media_connection_state_sync);
}

// The answer of the service is not asked for: callers see 1 in every case.
int BtClientIpcAdapter::PlayMusic(int command) {
  CallService(BT_CALL(play_music), command, static_cast<gboolean*>(nullptr));
  return 1;
}

// As PlayMusic, and a failure is not even logged.
int BtClientIpcAdapter::StopMusic(int mute) {
  ServiceError ignored;
  gboolean result = 0;
  CallSilently(ignored, com_zelk_linux_bluetooth_call_stop_music_sync, mute, &result);
  return 1;
}

int BtClientIpcAdapter::PreviousMusic() { return CallForResult<gboolean>(BT_CALL(previous_music)); }

int BtClientIpcAdapter::NextMusic() { return CallForResult<gboolean>(BT_CALL(next_music)); }

int BtClientIpcAdapter::StartFastForward() { return CallForResult<gboolean>(BT_CALL(start_fast_forward)); }

int BtClientIpcAdapter::StopFastForward() { return CallForResult<gboolean>(BT_CALL(stop_fast_forward)); }

int BtClientIpcAdapter::StartFastReverse() { return CallForResult<gboolean>(BT_CALL(start_fast_reverse)); }

int BtClientIpcAdapter::StopFastReverse() { return CallForResult<gboolean>(BT_CALL(stop_fast_reverse)); }

int BtClientIpcAdapter::GetMusicPlayStatus() { return CallForResult<guchar>(BT_CALL(get_music_play_status)); }

int BtClientIpcAdapter::RegGetPlayStatus(int enable, int milliseconds) {
  return CallForResult<gboolean>(BT_CALL(reg_get_play_status), enable, milliseconds);
}

int BtClientIpcAdapter::RegGetMediaInfo(int enable, int milliseconds) {
  return CallForResult<gboolean>(BT_CALL(reg_get_media_info), enable, milliseconds);
}

int BtClientIpcAdapter::GetCurPlayPosition(int& position, int& totalLength) {
  position = 0;
  totalLength = 0;
  return CallForResult<gboolean>(BT_CALL(get_cur_play_position), &position, &totalLength);
}

int BtClientIpcAdapter::GetMediaInfo(MWPTypeMediaInfo& info) {
  const MWPLogSite site = BT_REQUEST_SITE;
  OutText title(site), artist(site), album(site), track(site), numOfTracks(site), genre(site), duration(site);
  gboolean result = 0;
  if (CallService(BT_CALL(get_media_info), title.Out(), artist.Out(), album.Out(), track.Out(),
                  numOfTracks.Out(), genre.Out(), duration.Out(), &result)) {
    info = {title.Text(),       artist.Text(), album.Text(),   track.Text(),
            numOfTracks.Text(), genre.Text(),  duration.Text()};
  }
  return result;
}

int BtClientIpcAdapter::SetCurPlayMode(MWPTypePlayMode mode) {
  const VariantHolder pair(g_variant_new("(yy)", AsByte(mode.nType), AsByte(mode.nValue)));
  return CallForResult<gboolean>(BT_CALL(set_cur_play_mode), pair.Get());
}

int BtClientIpcAdapter::GetSupportPlayMode(std::vector<MWPTypePlayMode>& modes) {
  return AskPlayModes(BT_CALL(get_support_play_mode), modes);
}

int BtClientIpcAdapter::GetCurPlayMode(std::vector<MWPTypePlayMode>& modes) {
  return AskPlayModes(BT_CALL(get_cur_play_mode), modes);
}

int BtClientIpcAdapter::IsSupportAvrcpNotify(MWPBtType::SupportAvrcpEvent event) {
  return CallForResult<gboolean>(BT_CALL(is_support_avrcp_notify), AsByte(event));
}

int BtClientIpcAdapter::IsSupportBrowserInfo() {
  return CallForResult<gboolean>(BT_CALL(is_support_browser_info));
}

int BtClientIpcAdapter::IsRootDirectory() { return CallForResult<gboolean>(BT_CALL(is_root_directory)); }

int BtClientIpcAdapter::RootDirectory(int startPosition, int maxCount) {
  return CallForResult<gboolean>(BT_CALL(root_directory), startPosition, maxCount);
}

int BtClientIpcAdapter::FolderUp(int startPosition, int maxCount) {
  return CallForResult<gboolean>(BT_CALL(folder_up), startPosition, maxCount);
}

int BtClientIpcAdapter::BrowsingNowPlayingList(int startPosition, int maxCount) {
  return CallForResult<gboolean>(BT_CALL(browsing_now_playing_list), startPosition, maxCount);
}

int BtClientIpcAdapter::FolderDown(const std::string& uid, int startPosition, int maxCount) {
  return CallForResult<gboolean>(BT_CALL(folder_down), uid.c_str(), startPosition, maxCount);
}

int BtClientIpcAdapter::BrowsingSearch(const std::string& uid, const std::string& keyWords, int startPosition,
                                       int maxCount) {
  return CallForResult<gboolean>(BT_CALL(browsing_search), uid.c_str(), keyWords.c_str(), startPosition,
                                 maxCount);
}

int BtClientIpcAdapter::PlayItem(const std::string& uid, MWPBtType::BrowserScopeType scope) {
  return CallForResult<gboolean>(BT_CALL(play_item), uid.c_str(), AsByte(scope));
}

int BtClientIpcAdapter::AddMediaItemToNowPlaying(const std::string& uid, MWPBtType::BrowserScopeType scope) {
  return CallForResult<gboolean>(BT_CALL(add_media_item_to_now_playing), uid.c_str(), AsByte(scope));
}

// Answers whether the service accepts; the items have no way back, and the list stays as it is.
int BtClientIpcAdapter::GetCurMediaItemList(std::list<MWPTypeMediaItem>&, MWPBtType::BrowserScopeType scope) {
  return CallForResult<gboolean>(BT_CALL(get_cur_media_item_list), AsByte(scope));
}

int BtClientIpcAdapter::GetBrowsingFolderItemTotal(const std::string& uid) {
  return CallForResult<gboolean>(BT_CALL(get_browsing_folder_item_total), uid.c_str());
}

int BtClientIpcAdapter::EnableAudioDevice(int enable) {
  return CallForResult<gboolean>(BT_CALL(enable_audio_device), enable);
}

int BtClientIpcAdapter::PlayRingtone() { return CallForResult<gboolean>(BT_CALL(play_ringtone)); }

int BtClientIpcAdapter::StopRingtone() { return CallForResult<gboolean>(BT_CALL(stop_ringtone)); }

int BtClientIpcAdapter::StopPreviewRingtone() {
  return CallForResult<gboolean>(BT_CALL(stop_preview_ringtone));
}

int BtClientIpcAdapter::PlayPreviewRingtone(const std::string& path) {
  return CallForResult<gboolean>(BT_CALL(play_preview_ringtone), path.c_str());
}

// Phone book and call logs

int BtClientIpcAdapter::StartPhoneBookDownload(MWPBtType::PbapType type) {
  return CallForResult<gboolean>(BT_CALL(start_phone_book_download), AsByte(type));
}

int BtClientIpcAdapter::StopPhoneBookDownload() {
  return CallForResult<gboolean>(BT_CALL(stop_phone_book_download));
}

int BtClientIpcAdapter::GetContactCount() { return CallForResult<gint>(BT_CALL(get_contact_count)); }

int BtClientIpcAdapter::ClearContact() { return CallForResult<gboolean>(BT_CALL(clear_contact)); }

int BtClientIpcAdapter::DeleteContactById(int id) {
  return CallForResult<gboolean>(BT_CALL(delete_contact_by_id), id);
}

int BtClientIpcAdapter::DeleteCallLogById(int id) {
  return CallForResult<gboolean>(BT_CALL(delete_call_log_by_id), id);
}

int BtClientIpcAdapter::GetCallLogCount(CallLogType type) {
  return CallForResult<gint>(BT_CALL(get_call_log_count), AsByte(type));
}

int BtClientIpcAdapter::ClearCallLog(CallLogType type) {
  return CallForResult<gboolean>(BT_CALL(clear_call_log), AsByte(type));
}

int BtClientIpcAdapter::SetContactFavorite(int contactId, int favorite) {
  return CallForResult<gboolean>(BT_CALL(set_contact_favorite), contactId, favorite);
}

// SPP and HID

int BtClientIpcAdapter::SetRfCommUuid(const std::string& uuid) {
  return CallForResult<gboolean>(BT_CALL(set_rf_comm_uuid), uuid.c_str());
}

int BtClientIpcAdapter::SppSendText(const std::string& address, const std::string& text) {
  return CallForResult<gboolean>(BT_CALL(spp_send_text), address.c_str(), text.c_str());
}

// The preset of 1 is what callers get from a call that fails.
int BtClientIpcAdapter::SppSendBuffer(const std::string& address, char* buffer, int length) {
  gboolean result = 1;
  CallWithBytes(BT_CALL(spp_send_buffer), address, buffer, length > 0 ? length : 0, &result);
  return result;
}

int BtClientIpcAdapter::SetHIDCalibration(const std::string& address, MWPBtType::HIDTYPE type) {
  return CallForResult<gboolean>(BT_CALL(set_hidcalibration), address.c_str(), AsByte(type));
}

int BtClientIpcAdapter::SetHIDSendXY(const std::string& address, MWPBtType::HIDTYPE type, int x, int y,
                                     unsigned char button) {
  return CallForResult<gboolean>(BT_CALL(set_hidsend_xy), address.c_str(), AsByte(type), x, y, button);
}

int BtClientIpcAdapter::SetHIDSendKey(const std::string& address, int key) {
  return CallForResult<gboolean>(BT_CALL(set_hidsend_key), address.c_str(), key);
}
