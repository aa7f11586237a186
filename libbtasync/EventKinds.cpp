// Which signal each structure of Events.h comes from.

#include <btasync/Service.h>

#include "libbtasync/EventKind.h"
#include "libbtasync/Wire.h"

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

template <typename Signal, typename Event>
bool DecodeSignal(GVariant* values, EventSink& sink) {
  if (!wire::Fits<Signal>(values)) {
    return false;
  }
  const Event event = wire::Fill<Signal, Event>(values);
  sink.Take(&event);
  return true;
}

}  // namespace

template <>
BTASYNC_API const EventKind& KindOf<Availability>() {
  static constexpr EventKind kKind{nullptr, nullptr};
  return kKind;
}

#define BT_EVENT(Event, Signal)                                                               \
  template <>                                                                                 \
  BTASYNC_API const EventKind& KindOf<Event>() {                                              \
    static constexpr EventKind kKind{wire::Signal::name, &DecodeSignal<wire::Signal, Event>}; \
    return kKind;                                                                             \
  }

BT_EVENT(PowerChanged, OnOpenBtStatusChanged)
BT_EVENT(ProfilesEnabledChanged, OnBtProfileEnableStatusChanged)
BT_EVENT(PairChanged, OnPairStatusChanged)
BT_EVENT(PairRequested, OnAnswerPairRequest)
BT_EVENT(ScanChanged, OnScanStatusChanged)
BT_EVENT(DeviceFound, OnScanedDeviceChanged)
BT_EVENT(PairedDevicesDeleted, OnDeletePairStatusChanged)
BT_EVENT(ConnectionChanged, OnConnectStatusChanged)
BT_EVENT(SupportedProfileFound, OnSupportProfileChanged)
BT_EVENT(CapabilityChanged, OnBtCapabilityChanged)
BT_EVENT(AttributeChanged, OnBtAttributeChanged)
BT_EVENT(ProjectionRequested, OnWirelessEnableRequest)
BT_EVENT(AndroidAutoPairingAnswered, OnAndroidAutoPairingResponse)
BT_EVENT(OutOfBandKeySet, OnSetDeviceOOBLinkKeyChanged)

BT_EVENT(OperatorChanged, OnOperatorNameChanged)
BT_EVENT(NetworkChanged, OnMobileService)
BT_EVENT(RoamingChanged, OnRoamingStatusChanged)
BT_EVENT(SignalChanged, OnBtSignalChanged)
BT_EVENT(BatteryChanged, OnBtBatteryChanged)
BT_EVENT(CallStatusChanged, OnCallStatusChanged)
BT_EVENT(CallsChanged, OnCurrentCallInfoChanged)
BT_EVENT(CallTimeChanged, OnCallingTimeChanged)
BT_EVENT(CallActionChanged, OnConferenceChanged)
BT_EVENT(CallHungUp, OnHangupCallChanged)
BT_EVENT(AudioChanged, OnAudioStatusChanged)
BT_EVENT(VoiceRecognitionChanged, OnVoiceStatusChanged)
BT_EVENT(CodecChanged, OnCodecModeChanged)

BT_EVENT(MediaStreamChanged, OnMediaAudioStateChanged)
BT_EVENT(MusicChanged, OnBtMusicPlayChanged)
BT_EVENT(TrackChanged, OnAudioTrackChanged)
BT_EVENT(MediaInfoChanged, OnMediaInfoChanged)
BT_EVENT(PlayModeChanged, OnPlayModeChanged)
BT_EVENT(SupportedPlayModeChanged, OnSupportPlayModeChanged)
BT_EVENT(CoverImageDownloaded, OnCoverImageDownloadCompleted)
BT_EVENT(PositionChanged, OnCurPositionChanged)
BT_EVENT(AvrcpEventSupportChanged, OnSupportAvrcpNotify)
BT_EVENT(FastForwardChanged, OnFastForwardChanged)
BT_EVENT(FastReverseChanged, OnFastRewindChanged)
BT_EVENT(BrowsingChanged, OnSupportBrowserStatusChanged)
BT_EVENT(PlayerChanged, OnPlayerInfoChanged)
BT_EVENT(BrowsedItemsChanged, OnBrowserMediaInfoChanged)
BT_EVENT(FolderChanged, OnCurBrowserPathChanged)
BT_EVENT(FolderItemsCounted, OnBrowserFolderItemTotalChanged)
BT_EVENT(AddedToNowPlaying, OnMediaItemToNowPlayingStatus)
BT_EVENT(ItemPlayed, OnSendPlayItemStatus)

BT_EVENT(DownloadChanged, OnPBDownloadStatus)
BT_EVENT(DownloadProgress, OnPbDownloadCountChanged)
BT_EVENT(CallLogsChanged, OnBtCallLogListChanged)
BT_EVENT(PhoneBookDeleted, OnDeletePhoneBookChanged)
BT_EVENT(FavoriteChanged, OnContactFavoriteChanged)

BT_EVENT(MessageDownloadChanged, OnMessageDownloadStatus)
BT_EVENT(MessageDownloadProgress, OnMessageDownloadCountChanged)
BT_EVENT(MessageChanged, OnMessageStatusNotify)
BT_EVENT(MessagePropertySet, OnMessageSetPropertyStatus)

BT_EVENT(SppConnectionChanged, OnSppConnectStatus)
BT_EVENT(SppReceived, OnSppReceiveBufferChanged)
BT_EVENT(HidCalibrated, OnHIDCalibration)
BT_EVENT(HidConnectionChanged, OnHIDConnection)

#undef BT_EVENT

}  // namespace detail
}  // namespace v0
}  // namespace btasync
