#include "service/frontend/SignalEmitter.h"

#include <tuple>

#include "service/frontend/WireValue.h"

namespace btservice {
namespace {

// One line for each event that has a signal: the event, the stem of the signal, and its arguments from e.
#define BT_SIGNAL(Event, stem, ...)                                    \
  void operator()([[maybe_unused]] const Event& e) const {             \
    Emit(com_zelk_linux_bluetooth_emit_##stem, std::tie(__VA_ARGS__)); \
  }

struct Emission {
  ComZelkLinuxBluetooth* skeleton;

  // clang-format off
  BT_SIGNAL(PowerChanged, on_open_bt_status_changed, e.status)
  BT_SIGNAL(ProfilesEnabledChanged, on_bt_profile_enable_status_changed, e.enabled)
  BT_SIGNAL(CapabilityChanged, on_bt_capability_changed, e.capability, e.value)
  BT_SIGNAL(AttributeChanged, on_bt_attribute_changed, e.attribute, e.value)
  BT_SIGNAL(ScanChanged, on_scan_status_changed, e.status)
  BT_SIGNAL(DeviceFound, on_scaned_device_changed, e.address, e.name, e.support)
  BT_SIGNAL(PairChanged, on_pair_status_changed, e.status, e.reason, e.address)
  BT_SIGNAL(PairRequested, on_answer_pair_request, e.address, e.digits, e.projection, e.state)
  BT_SIGNAL(PairingDeleted, on_delete_pair_status_changed, e.success)
  BT_SIGNAL(ConnectionChanged, on_connect_status_changed, e.address, e.profile, e.status)
  BT_SIGNAL(ProfileSupported, on_support_profile_changed, e.address, e.profile)
  BT_SIGNAL(OobLinkKeySet, on_set_device_ooblink_key_changed, e.address, e.success)
  BT_SIGNAL(ProjectionRequested, on_wireless_enable_request, e.address, e.name, e.support)
  BT_SIGNAL(ProjectionPairingAnswered, on_android_auto_pairing_response, e.status)

  BT_SIGNAL(OperatorChanged, on_operator_name_changed, e.name)
  BT_SIGNAL(MobileServiceChanged, on_mobile_service, e.available)
  BT_SIGNAL(RoamingChanged, on_roaming_status_changed, e.roaming)
  BT_SIGNAL(SignalChanged, on_bt_signal_changed, e.bars)
  BT_SIGNAL(BatteryChanged, on_bt_battery_changed, e.bars)
  BT_SIGNAL(CallChanged, on_call_status_changed, e.callId, e.status, e.callCount)
  BT_SIGNAL(CallsChanged, on_current_call_info_changed, e.callCount)
  BT_SIGNAL(CallTimeChanged, on_calling_time_changed, e.seconds, e.callId, e.active)
  BT_SIGNAL(CallActionChanged, on_conference_changed, e.action, e.possible)
  BT_SIGNAL(CallHungUp, on_hangup_call_changed)
  BT_SIGNAL(CallAudioChanged, on_audio_status_changed, e.status)
  BT_SIGNAL(VoiceRecognitionChanged, on_voice_status_changed, e.running)
  BT_SIGNAL(CodecChanged, on_codec_mode_changed, e.codec)

  BT_SIGNAL(StreamChanged, on_media_audio_state_changed, e.address, e.running)
  BT_SIGNAL(PlayStatusChanged, on_bt_music_play_changed, e.status)
  BT_SIGNAL(TrackChanged, on_audio_track_changed)
  BT_SIGNAL(TrackInfoChanged, on_media_info_changed)
  BT_SIGNAL(CoverDownloaded, on_cover_image_download_completed)
  BT_SIGNAL(PositionChanged, on_cur_position_changed, e.position, e.length)
  BT_SIGNAL(PlayModeChanged, on_play_mode_changed)
  BT_SIGNAL(SupportedPlayModesChanged, on_support_play_mode_changed)
  BT_SIGNAL(NotificationSupported, on_support_avrcp_notify, e.event, e.supported)
  BT_SIGNAL(FastForwardSupported, on_fast_forward_changed, e.supported)
  BT_SIGNAL(FastReverseSupported, on_fast_rewind_changed, e.supported)
  BT_SIGNAL(BrowsingSupported, on_support_browser_status_changed, e.supported)
  BT_SIGNAL(PlayerChanged, on_player_info_changed)
  BT_SIGNAL(BrowserItemsArrived, on_browser_media_info_changed)
  BT_SIGNAL(BrowserPathChanged, on_cur_browser_path_changed, e.success)
  BT_SIGNAL(BrowserFolderTotal, on_browser_folder_item_total_changed, e.total)
  BT_SIGNAL(ItemQueued, on_media_item_to_now_playing_status, e.success)
  BT_SIGNAL(ItemPlayed, on_send_play_item_status, e.success)

  BT_SIGNAL(DownloadStatusChanged, on_pbdownload_status, e.status, e.type)
  BT_SIGNAL(DownloadProgress, on_pb_download_count_changed, e.current, e.total)
  BT_SIGNAL(CallLogsChanged, on_bt_call_log_list_changed)
  BT_SIGNAL(ContactsDeleted, on_delete_phone_book_changed, e.success)
  BT_SIGNAL(FavoriteChanged, on_contact_favorite_changed, e.contactId, e.favorite)

  BT_SIGNAL(SerialChannelChanged, on_spp_connect_status, e.address, e.support, e.open)
  BT_SIGNAL(SerialDataArrived, on_spp_receive_buffer_changed, e.address, e.data)
  BT_SIGNAL(HidCalibrated, on_hidcalibration, e.success)
  BT_SIGNAL(HidConnectionChanged, on_hidconnection, e.address, e.status)

  BT_SIGNAL(MessageLoadChanged, on_message_download_status, e.status)
  BT_SIGNAL(MessageLoadProgress, on_message_download_count_changed, e.current, e.total)
  BT_SIGNAL(MessageNotified, on_message_status_notify, e.status, e.handle)
  BT_SIGNAL(MessagePropertySet, on_message_set_property_status, e.status)
  // clang-format on

  // Seen in shared memory only.
  void operator()(const PairedDevicesChanged&) const {}

 private:
  template <typename... Wire, typename... Values>
  void Emit(void (*emit)(ComZelkLinuxBluetooth*, Wire...), const std::tuple<const Values&...>& values) const {
    std::apply([&](const Values&... value) { emit(skeleton, ToWire<Wire>(value)...); }, values);
  }
};

#undef BT_SIGNAL

}  // namespace

void SignalEmitter::OnStackEvent(const StackEvent& event) { std::visit(Emission{m_skeleton}, event); }

}  // namespace btservice
