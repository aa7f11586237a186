// The signals of the Bluetooth service: one handler each, which turns the arguments into the types of the
// client's event method and calls it.

#include <cxxabi.h>

#include <exception>
#include <string>
#include <type_traits>
#include <vector>

#define MWP_LOG_SOURCE "ipc/BtClientIpcAdapter"
#include <mwp/MWPLog.h>

#include "glib/Owned.h"
#include "ipc/BtClientIpcAdapter.h"
#include "ipc/BtProxy.h"
#include "ipc/D-Bus/bt_variant.h"
#include "libbluetooth/MWPBtClient.h"

namespace {

constexpr gsize kSppBufferBytes = 4096;

/// An argument of a signal as the parameter of an event method. A value out of an enumeration's range is
/// passed on as it came; a missing text becomes an empty one.
template <typename Param, typename Argument>
std::decay_t<Param> Convert(Argument argument) {
  if constexpr (std::is_same_v<std::decay_t<Param>, std::string>) {
    return argument != nullptr ? argument : "";
  } else {
    return static_cast<std::decay_t<Param>>(argument);
  }
}

void LogLost(const char* handler, const char* what) {
  MWPLogWrite(MWPLogSite{MWP_LOG_SOURCE, handler, __LINE__}, MWP_LOG_ERROR, "%s: the event is lost: %s",
              handler, what);
}

/// Runs the body of a handler. Nothing is thrown through the main loop that delivers the signal.
template <typename Body>
gboolean Guarded(const char* handler, Body body) {
  try {
    body();
  } catch (const std::exception& exception) {
    LogLost(handler, exception.what());
  } catch (const abi::__forced_unwind&) {
    throw;  // the thread is being cancelled
  } catch (...) {
    LogLost(handler, "not a std::exception");
  }
  return TRUE;
}

/// Calls an event method of the client. A signal that comes after MWP_DestroyBlueTooth() makes a client,
/// which is not started and has no listener.
template <typename... Params, typename... Arguments>
void CallClient(void (MWPBtClient::*event)(Params...), Arguments... arguments) {
  (MWPSingleton<MWPBtClient>::GetInstance()->*event)(Convert<Params>(arguments)...);
}

/// All that most handlers do.
template <typename... Params, typename... Arguments>
gboolean Deliver(const char* handler, void (MWPBtClient::*event)(Params...), Arguments... arguments) {
  return Guarded(handler, [&] { CallClient(event, arguments...); });
}

/// The number of bytes in a variant that holds an array of bytes; false for any other variant.
bool MeasureBytes(GVariant* value, gsize& size) {
  if (value == nullptr || !g_variant_is_of_type(value, G_VARIANT_TYPE_VARIANT)) {
    return false;
  }
  const OwnedVariant bytes(g_variant_get_variant(value));
  const bool isBytes = g_variant_is_of_type(bytes.get(), G_VARIANT_TYPE_BYTESTRING);
  size = isBytes ? g_variant_n_children(bytes.get()) : 0;
  return isBytes;
}

gboolean CallBackOnOpenBtStatusChanged(ComZelkLinuxBluetooth*, guchar status, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnOpenBtStatusChanged, status);
}

gboolean CallBackOnBtProfileEnableStatusChanged(ComZelkLinuxBluetooth*, gboolean enabled, gpointer) {
  MWP_LOG(MWP_LOG_DEBUG, "[gboolean CallBackOnBtProfileEnableStatusChanged] arg_status:%d", enabled);
  return Deliver(__func__, &MWPBtClient::OnBtProfileEnableStatusChanged, enabled);
}

gboolean CallBackOnPairStatusChanged(ComZelkLinuxBluetooth*, guchar status, guchar reason,
                                     const gchar* address, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnPairStatusChanged, status, reason, address);
}

gboolean CallBackOnAnswerPairRequest(ComZelkLinuxBluetooth*, const gchar* address, const gchar* pinCode,
                                     gboolean androidAutoRequest, guchar pairState, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnAnswerPairRequest, address, pinCode, androidAutoRequest,
                 pairState);
}

gboolean CallBackOnDeletePairStatusChanged(ComZelkLinuxBluetooth*, guchar status, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnDeletePairStatusChanged, status);
}

gboolean CallBackOnScanStatusChanged(ComZelkLinuxBluetooth*, guchar status, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnScanStatusChanged, status);
}

// Not delivered to anybody, and no client is created.
gboolean CallBackOnScanedDeviceChanged(ComZelkLinuxBluetooth*, const gchar*, const gchar*, guchar, gpointer) {
  return TRUE;
}

gboolean CallBackOnOperatorNameChanged(ComZelkLinuxBluetooth*, const gchar* name, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnOperatorNameChanged, name);
}

gboolean CallBackOnConnectStatusChanged(ComZelkLinuxBluetooth*, const gchar* address, guchar profile,
                                        guchar status, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnConnectStatusChanged, address, profile, status);
}

gboolean CallBackOnSupportProfileChanged(ComZelkLinuxBluetooth*, const gchar* address, guchar profile,
                                         gpointer) {
  return Deliver(__func__, &MWPBtClient::OnSupportProfileChanged, address, profile);
}

gboolean CallBackOnBtCapabilityChanged(ComZelkLinuxBluetooth*, guchar capability, guchar status, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnBtCapabilityChanged, capability, status);
}

gboolean CallBackOnBtAttributeChanged(ComZelkLinuxBluetooth*, guchar attribute, const gchar* value,
                                      gpointer) {
  return Deliver(__func__, &MWPBtClient::OnBtAttributeChanged, attribute, value);
}

gboolean CallBackOnAndroidAutoPairingResponse(ComZelkLinuxBluetooth*, guchar status, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnAndroidAutoPairingResponse, status);
}

gboolean CallBackOnWirelessEnableRequest(ComZelkLinuxBluetooth*, const gchar* address, const gchar* name,
                                         guchar type, gpointer) {
  MWP_LOG(MWP_LOG_INFO, "%s()", __func__);
  return Deliver(__func__, &MWPBtClient::OnWirelessEnableRequest, address, name, type);
}

gboolean CallBackOnSetDeviceOOBLinkKeyChanged(ComZelkLinuxBluetooth*, const gchar* address, gboolean success,
                                              gpointer) {
  if (address == nullptr) {
    MWP_LOG(MWP_LOG_ERROR, "CallBackOnSetDeviceOOBLinkKeyChanged address is invalid...");
    return FALSE;
  }
  return Deliver(__func__, &MWPBtClient::OnSetDeviceOOBLinkKeyChanged, address, success);
}

gboolean CallBackOnMobileService(ComZelkLinuxBluetooth*, gboolean onService, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnMobileService, onService);
}

gboolean CallBackOnRoamingStatusChanged(ComZelkLinuxBluetooth*, gboolean roaming, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnRoamingStatusChanged, roaming);
}

gboolean CallBackOnBtSignalChanged(ComZelkLinuxBluetooth*, guchar signal, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnBtSignalChanged, signal);
}

gboolean CallBackOnBtBatteryChanged(ComZelkLinuxBluetooth*, guchar battery, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnBtBatteryChanged, battery);
}

gboolean CallBackOnCurrentCallInfoChanged(ComZelkLinuxBluetooth*, gint callCount, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnCurrentCallInfoChanged, callCount);
}

gboolean CallBackOnCallingTimeChanged(ComZelkLinuxBluetooth*, gint seconds, gint callId, gboolean active,
                                      gpointer) {
  return Deliver(__func__, &MWPBtClient::OnCallingTimeChanged, seconds, callId, active);
}

gboolean CallBackOnCallStatusChanged(ComZelkLinuxBluetooth*, gint callId, guchar status, gint callCount,
                                     gpointer) {
  MWP_LOG(MWP_LOG_DEBUG,
          " gboolean CallBackOnCallStatusChanged arg_callId:%d arg_callStatus:%d arg_callCount:%d", callId,
          status, callCount);
  return Deliver(__func__, &MWPBtClient::OnCallStatusChanged, callId, status, callCount);
}

gboolean CallBackOnConferenceChanged(ComZelkLinuxBluetooth*, guchar action, gboolean supported, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnConferenceChanged, action, supported);
}

gboolean CallBackOnHangupCallChanged(ComZelkLinuxBluetooth*, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnHangupCallChanged);
}

gboolean CallBackOnAudioStatusChanged(ComZelkLinuxBluetooth*, guchar status, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnAudioStatusChanged, status);
}

gboolean CallBackOnVoiceStatusChanged(ComZelkLinuxBluetooth*, guchar started, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnVoiceStatusChanged, started);
}

gboolean CallBackOnCodecModeChanged(ComZelkLinuxBluetooth*, guchar mode, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnCodecModeChanged, mode);
}

gboolean CallBackOnBrowserFolderItemTotalChanged(ComZelkLinuxBluetooth*, gint total, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnBrowserFolderItemTotalChanged, total);
}

gboolean CallBackOnBrowserMediaInfoChanged(ComZelkLinuxBluetooth*, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnBrowserMediaInfoChanged);
}

gboolean CallBackOnMediaAudioStateChanged(ComZelkLinuxBluetooth*, const gchar* address, gboolean started,
                                          gpointer) {
  return Deliver(__func__, &MWPBtClient::OnMediaAudioStateChanged, address, started);
}

gboolean CallBackOnBtMusicPlayChanged(ComZelkLinuxBluetooth*, guchar status, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnBtMusicPlayChanged, status);
}

gboolean CallBackOnAudioTrackChanged(ComZelkLinuxBluetooth*, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnAudioTrackChanged);
}

gboolean CallBackOnCurBrowserPathChanged(ComZelkLinuxBluetooth*, gboolean success, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnCurBrowserPathChanged, success);
}

gboolean CallBackOnCurPositionChanged(ComZelkLinuxBluetooth*, gint position, gint totalLength, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnCurPositionChanged, position, totalLength);
}

gboolean CallBackOnFastForwardChanged(ComZelkLinuxBluetooth*, gboolean supported, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnFastForwardChanged, supported);
}

gboolean CallBackOnFastRewindChanged(ComZelkLinuxBluetooth*, gboolean supported, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnFastRewindChanged, supported);
}

gboolean CallBackOnMediaInfoChanged(ComZelkLinuxBluetooth*, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnMediaInfoChanged);
}

gboolean CallBackOnCoverImageDownloadCompleted(ComZelkLinuxBluetooth*, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnCoverImageDownloadCompleted);
}

gboolean CallBackOnMediaItemToNowPlayingStatus(ComZelkLinuxBluetooth*, gboolean success, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnMediaItemToNowPlayingStatus, success);
}

gboolean CallBackOnPlayModeChanged(ComZelkLinuxBluetooth*, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnPlayModeChanged);
}

gboolean CallBackOnPlayerInfoChanged(ComZelkLinuxBluetooth*, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnPlayerInfoChanged);
}

gboolean CallBackOnSendPlayItemStatus(ComZelkLinuxBluetooth*, gboolean success, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnSendPlayItemStatus, success);
}

gboolean CallBackOnSupportAvrcpNotify(ComZelkLinuxBluetooth*, guchar event, gboolean supported, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnSupportAvrcpNotify, event, supported);
}

gboolean CallBackOnSupportBrowserStatusChanged(ComZelkLinuxBluetooth*, gboolean supported, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnSupportBrowserStatusChanged, supported);
}

gboolean CallBackOnSupportPlayModeChanged(ComZelkLinuxBluetooth*, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnSupportPlayModeChanged);
}

gboolean CallBackOnPBDownloadStatus(ComZelkLinuxBluetooth*, guchar status, guchar type, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnPBDownloadStatus, status, type);
}

gboolean CallBackOnPbDownloadCountChanged(ComZelkLinuxBluetooth*, gint current, gint total, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnPbDownloadCountChanged, current, total);
}

gboolean CallBackOnBtCallLogListChanged(ComZelkLinuxBluetooth*, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnBtCallLogListChanged);
}

gboolean CallBackOnDeletePhoneBookChanged(ComZelkLinuxBluetooth*, gboolean success, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnDeletePhoneBookChanged, success);
}

gboolean CallBackOnContactFavoriteChanged(ComZelkLinuxBluetooth*, gint contactId, gboolean favorite,
                                          gpointer) {
  return Deliver(__func__, &MWPBtClient::OnContactFavoriteChanged, contactId, favorite);
}

gboolean CallBack_OnSppConnectStatus(ComZelkLinuxBluetooth*, const gchar* address, guchar type,
                                     gboolean connected, gpointer) {
  MWP_LOG(MWP_LOG_DEBUG, "CallBack_OnSppConnectStatus");
  return Deliver(__func__, &MWPBtClient::OnSppConnectStatus, address, type, connected);
}

// The bytes are delivered from a buffer of 4096 zeros, or from one of their own size if they are more. The
// buffer lives for the call only.
gboolean CallBackOnSppReceiveBufferChanged(ComZelkLinuxBluetooth*, const gchar* address, GVariant* value,
                                           gpointer) {
  gsize size = 0;
  if (!MeasureBytes(value, size)) {
    MWP_LOG(MWP_LOG_ERROR, "CallBackOnSppReceiveBufferChanged: the event holds no bytes and is dropped");
    return TRUE;
  }
  return Guarded(__func__, [&] {
    char buffer[kSppBufferBytes] = {};
    std::vector<char> largeBuffer(size > sizeof buffer ? size : 0);
    char* const bytes = largeBuffer.empty() ? buffer : largeBuffer.data();
    const int length = bt_extract_variant_data(bytes, value);
    CallClient(&MWPBtClient::OnSppReceiveBufferChanged, address, bytes, length);
  });
}

gboolean CallBackOnHIDCalibration(ComZelkLinuxBluetooth*, gboolean success, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnHIDCalibration, success);
}

gboolean CallBackOnHIDConnection(ComZelkLinuxBluetooth*, const gchar* address, gint status, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnHIDConnection, address, status);
}

gboolean CallBackOnMessageDownloadStatus(ComZelkLinuxBluetooth*, guchar status, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnMessageDownloadStatus, status);
}

gboolean CallBackOnMessageDownloadCountChanged(ComZelkLinuxBluetooth*, gint current, gint total, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnMessageDownloadCountChanged, current, total);
}

gboolean CallBackOnMessageStatusNotify(ComZelkLinuxBluetooth*, guchar status, const gchar* handle, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnMessageStatusNotify, status, handle);
}

gboolean CallBackOnMessageSetPropertyStatus(ComZelkLinuxBluetooth*, guchar status, gpointer) {
  return Deliver(__func__, &MWPBtClient::OnMessageSetPropertyStatus, status);
}

}  // namespace

// Every success of InitDBusConnect subscribes again, on its own proxy; no handler is ever disconnected. The
// names stand as the interface's users know them, with hyphens or underscores: GObject takes either.
void BtClientIpcAdapter::RegisterDBusSignal() {
  g_signal_connect(g_BtProxy, "on-open-bt-status-changed", G_CALLBACK(CallBackOnOpenBtStatusChanged), this);
  g_signal_connect(g_BtProxy, "on-bt-profile-enable-status-changed",
                   G_CALLBACK(CallBackOnBtProfileEnableStatusChanged), this);
  g_signal_connect(g_BtProxy, "on-pair-status-changed", G_CALLBACK(CallBackOnPairStatusChanged), this);
  g_signal_connect(g_BtProxy, "on-answer-pair-request", G_CALLBACK(CallBackOnAnswerPairRequest), this);
  g_signal_connect(g_BtProxy, "on-delete-pair-status-changed", G_CALLBACK(CallBackOnDeletePairStatusChanged),
                   this);
  g_signal_connect(g_BtProxy, "on-scan-status-changed", G_CALLBACK(CallBackOnScanStatusChanged), this);
  g_signal_connect(g_BtProxy, "on-scaned-device-changed", G_CALLBACK(CallBackOnScanedDeviceChanged), this);
  g_signal_connect(g_BtProxy, "on-operator-name-changed", G_CALLBACK(CallBackOnOperatorNameChanged), this);
  g_signal_connect(g_BtProxy, "on-connect-status-changed", G_CALLBACK(CallBackOnConnectStatusChanged), this);
  g_signal_connect(g_BtProxy, "on-support-profile-changed", G_CALLBACK(CallBackOnSupportProfileChanged),
                   this);
  g_signal_connect(g_BtProxy, "on-bt-capability-changed", G_CALLBACK(CallBackOnBtCapabilityChanged), this);
  g_signal_connect(g_BtProxy, "on-bt-attribute-changed", G_CALLBACK(CallBackOnBtAttributeChanged), this);
  g_signal_connect(g_BtProxy, "on-android-auto-pairing-response",
                   G_CALLBACK(CallBackOnAndroidAutoPairingResponse), this);
  g_signal_connect(g_BtProxy, "on-wireless-enable-request", G_CALLBACK(CallBackOnWirelessEnableRequest),
                   this);
  g_signal_connect(g_BtProxy, "on-set-device-ooblink-key-changed",
                   G_CALLBACK(CallBackOnSetDeviceOOBLinkKeyChanged), this);
  g_signal_connect(g_BtProxy, "on-mobile-service", G_CALLBACK(CallBackOnMobileService), this);
  g_signal_connect(g_BtProxy, "on-roaming-status-changed", G_CALLBACK(CallBackOnRoamingStatusChanged), this);
  g_signal_connect(g_BtProxy, "on-bt-signal-changed", G_CALLBACK(CallBackOnBtSignalChanged), this);
  g_signal_connect(g_BtProxy, "on-bt-battery-changed", G_CALLBACK(CallBackOnBtBatteryChanged), this);
  g_signal_connect(g_BtProxy, "on-current-call-info-changed", G_CALLBACK(CallBackOnCurrentCallInfoChanged),
                   this);
  g_signal_connect(g_BtProxy, "on-calling-time-changed", G_CALLBACK(CallBackOnCallingTimeChanged), this);
  g_signal_connect(g_BtProxy, "on-call-status-changed", G_CALLBACK(CallBackOnCallStatusChanged), this);
  g_signal_connect(g_BtProxy, "on-conference-changed", G_CALLBACK(CallBackOnConferenceChanged), this);
  g_signal_connect(g_BtProxy, "on-hangup-call-changed", G_CALLBACK(CallBackOnHangupCallChanged), this);
  g_signal_connect(g_BtProxy, "on-audio-status-changed", G_CALLBACK(CallBackOnAudioStatusChanged), this);
  g_signal_connect(g_BtProxy, "on-voice-status-changed", G_CALLBACK(CallBackOnVoiceStatusChanged), this);
  g_signal_connect(g_BtProxy, "on-codec-mode-changed", G_CALLBACK(CallBackOnCodecModeChanged), this);
  g_signal_connect(g_BtProxy, "on_browser_folder_item_total_changed",
                   G_CALLBACK(CallBackOnBrowserFolderItemTotalChanged), this);
  g_signal_connect(g_BtProxy, "on_browser_media_info_changed", G_CALLBACK(CallBackOnBrowserMediaInfoChanged),
                   this);
  g_signal_connect(g_BtProxy, "on_media_audio_state_changed", G_CALLBACK(CallBackOnMediaAudioStateChanged),
                   this);
  g_signal_connect(g_BtProxy, "on_bt_music_play_changed", G_CALLBACK(CallBackOnBtMusicPlayChanged), this);
  g_signal_connect(g_BtProxy, "on_audio_track_changed", G_CALLBACK(CallBackOnAudioTrackChanged), this);
  g_signal_connect(g_BtProxy, "on_cur_browser_path_changed", G_CALLBACK(CallBackOnCurBrowserPathChanged),
                   this);
  g_signal_connect(g_BtProxy, "on_cur_position_changed", G_CALLBACK(CallBackOnCurPositionChanged), this);
  g_signal_connect(g_BtProxy, "on_fast_forward_changed", G_CALLBACK(CallBackOnFastForwardChanged), this);
  g_signal_connect(g_BtProxy, "on_fast_rewind_changed", G_CALLBACK(CallBackOnFastRewindChanged), this);
  g_signal_connect(g_BtProxy, "on_media_info_changed", G_CALLBACK(CallBackOnMediaInfoChanged), this);
  g_signal_connect(g_BtProxy, "on_cover_image_download_completed",
                   G_CALLBACK(CallBackOnCoverImageDownloadCompleted), this);
  g_signal_connect(g_BtProxy, "on_media_item_to_now_playing_status",
                   G_CALLBACK(CallBackOnMediaItemToNowPlayingStatus), this);
  g_signal_connect(g_BtProxy, "on_play_mode_changed", G_CALLBACK(CallBackOnPlayModeChanged), this);
  g_signal_connect(g_BtProxy, "on_player_info_changed", G_CALLBACK(CallBackOnPlayerInfoChanged), this);
  g_signal_connect(g_BtProxy, "on_send_play_item_status", G_CALLBACK(CallBackOnSendPlayItemStatus), this);
  g_signal_connect(g_BtProxy, "on_support_avrcp_notify", G_CALLBACK(CallBackOnSupportAvrcpNotify), this);
  g_signal_connect(g_BtProxy, "on_support_browser_status_changed",
                   G_CALLBACK(CallBackOnSupportBrowserStatusChanged), this);
  g_signal_connect(g_BtProxy, "on_support_play_mode_changed", G_CALLBACK(CallBackOnSupportPlayModeChanged),
                   this);
  g_signal_connect(g_BtProxy, "on_pbdownload_status", G_CALLBACK(CallBackOnPBDownloadStatus), this);
  g_signal_connect(g_BtProxy, "on_pb_download_count_changed", G_CALLBACK(CallBackOnPbDownloadCountChanged),
                   this);
  g_signal_connect(g_BtProxy, "on_bt_call_log_list_changed", G_CALLBACK(CallBackOnBtCallLogListChanged),
                   this);
  g_signal_connect(g_BtProxy, "on_delete_phone_book_changed", G_CALLBACK(CallBackOnDeletePhoneBookChanged),
                   this);
  g_signal_connect(g_BtProxy, "on_contact_favorite_changed", G_CALLBACK(CallBackOnContactFavoriteChanged),
                   this);
  g_signal_connect(g_BtProxy, "on_spp_connect_status", G_CALLBACK(CallBack_OnSppConnectStatus), this);
  g_signal_connect(g_BtProxy, "on_spp_receive_buffer_changed", G_CALLBACK(CallBackOnSppReceiveBufferChanged),
                   this);
  g_signal_connect(g_BtProxy, "on_hidcalibration", G_CALLBACK(CallBackOnHIDCalibration), this);
  g_signal_connect(g_BtProxy, "on_hidconnection", G_CALLBACK(CallBackOnHIDConnection), this);
  g_signal_connect(g_BtProxy, "on_message_download_status", G_CALLBACK(CallBackOnMessageDownloadStatus),
                   this);
  g_signal_connect(g_BtProxy, "on_message_download_count_changed",
                   G_CALLBACK(CallBackOnMessageDownloadCountChanged), this);
  g_signal_connect(g_BtProxy, "on_message_status_notify", G_CALLBACK(CallBackOnMessageStatusNotify), this);
  g_signal_connect(g_BtProxy, "on_message_set_property_status",
                   G_CALLBACK(CallBackOnMessageSetPropertyStatus), this);
}
