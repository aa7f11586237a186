#ifndef BTASYNC_EVENTS_H
#define BTASYNC_EVENTS_H

#include <string>

#include <btasync/Records.h>

// One structure for each signal of the service, with the fields in the order of the interface; the comment
// behind a structure's name is the signal's. Subscribe with Service::On. An enumerator may have a value that
// the header does not list: be prepared for it in a switch.
//
// An event may come before the answer to the request that caused it.

namespace btasync {
inline namespace v0 {

// ----- Adapter, pairing, connections

/// The adapter was or is being switched on or off.
struct PowerChanged {  // OnOpenBtStatusChanged
  PowerStatus status;
};
/// All profiles may be connected, or not.
struct ProfilesEnabledChanged {  // OnBtProfileEnableStatusChanged
  bool enabled;
};
/// A pairing has begun, succeeded or failed; the reason counts only for a failure.
struct PairChanged {  // OnPairStatusChanged
  PairStatus status;
  PairFailedReson reason;
  Address address;
};
/// A device wants to pair: answer with Service::AnswerPair or RejectPair.
struct PairRequested {  // OnAnswerPairRequest
  Address address;
  std::string digits;  ///< to show or to compare; may be empty
  bool forProjection;  ///< belongs to wireless projection
  PairRequestState question;
};
/// The search for devices began or ended.
struct ScanChanged {  // OnScanStatusChanged
  ScanStatus status;
};
/// A device answered the search. The same one may come again, for instance once its name is known.
struct DeviceFound {  // OnScanedDeviceChanged
  Address address;
  std::string name;
  SupportType support;
};
/// Paired devices have been deleted, or could not be.
struct PairedDevicesDeleted {  // OnDeletePairStatusChanged
  bool success;
};
/// The connection of one profile of a device changed.
struct ConnectionChanged {  // OnConnectStatusChanged
  Address address;
  ProfileId profile;
  ConnStatus status;
};
/// A device turned out to support a profile.
struct SupportedProfileFound {  // OnSupportProfileChanged
  Address address;
  ProfileId profile;
};
/// A capability has a new value.
struct CapabilityChanged {  // OnBtCapabilityChanged
  Capability capability;
  bool on;
};
/// An attribute has a new value.
struct AttributeChanged {  // OnBtAttributeChanged
  Attribute attribute;
  std::string value;
};
/// A device asks for wireless projection.
struct ProjectionRequested {  // OnWirelessEnableRequest
  Address address;
  std::string name;
  SupportType type;
};
/// The answer to Service::RequestAndroidAutoPairing.
struct AndroidAutoPairingAnswered {  // OnAndroidAutoPairingResponse
  HUStatus status;
};
/// What came of Service::SetOutOfBandKey.
struct OutOfBandKeySet {  // OnSetDeviceOOBLinkKeyChanged
  Address address;
  bool success;
};

// ----- Phone and calls

/// The phone is in another network; an empty name: in none.
struct OperatorChanged {  // OnOperatorNameChanged
  std::string name;
};
/// The phone found or lost its network.
struct NetworkChanged {  // OnMobileService
  bool available;
};
/// The phone is roaming, or in its home network.
struct RoamingChanged {  // OnRoamingStatusChanged
  bool roaming;
};
/// Signal strength of the phone, 0 to 5 bars.
struct SignalChanged {  // OnBtSignalChanged
  int bars;
};
/// Battery of the phone, 0 to 5 bars.
struct BatteryChanged {  // OnBtBatteryChanged
  int bars;
};
/// A call changed its state; BT_CALL_IDLE: it ended. callCount is the number of calls after the change.
struct CallStatusChanged {  // OnCallStatusChanged
  int callId;
  CallStatus status;
  int callCount;
};
/// The calls changed: read them with Service::CurrentCalls.
struct CallsChanged {  // OnCurrentCallInfoChanged
  int callCount;
};
/// How long a call has lasted; active is false for one on hold.
struct CallTimeChanged {  // OnCallingTimeChanged
  int seconds;
  int callId;
  bool active;
};
/// An action became possible or impossible (Service::SwitchCalls).
struct CallActionChanged {  // OnConferenceChanged
  CallAction action;
  bool possible;
};
/// A call was hung up.
struct CallHungUp {};  // OnHangupCallChanged
/// The sound of the call moved between phone and head unit.
struct AudioChanged {  // OnAudioStatusChanged
  AudioStatus status;
};
/// Voice recognition of the phone began or ended.
struct VoiceRecognitionChanged {  // OnVoiceStatusChanged
  bool running;
};
/// The call audio uses another codec.
struct CodecChanged {  // OnCodecModeChanged
  CodecMode mode;
};

// ----- Music

/// The audio stream of a device began or ended.
struct MediaStreamChanged {  // OnMediaAudioStateChanged
  Address address;
  bool started;
};
/// The player began, paused or stopped.
struct MusicChanged {  // OnBtMusicPlayChanged
  MusicPlayStatus status;
};
/// Another track plays: ask for it with Service::GetMediaInfo.
struct TrackChanged {};  // OnAudioTrackChanged
/// The information on the track changed: ask for it with Service::GetMediaInfo.
struct MediaInfoChanged {};  // OnMediaInfoChanged
/// The play modes changed: ask for them with Service::GetPlayModes.
struct PlayModeChanged {};  // OnPlayModeChanged
/// Other play modes are possible: ask for them with Service::GetSupportedPlayModes.
struct SupportedPlayModeChanged {};  // OnSupportPlayModeChanged
/// The cover image of the track has been downloaded.
struct CoverImageDownloaded {};  // OnCoverImageDownloadCompleted
/// Where the player is in the track, in milliseconds.
struct PositionChanged {  // OnCurPositionChanged
  int position;
  int length;
};
/// The player supports a notification, or not.
struct AvrcpEventSupportChanged {  // OnSupportAvrcpNotify
  SupportAvrcpEvent event;
  bool supported;
};
/// Winding forward became possible or impossible.
struct FastForwardChanged {  // OnFastForwardChanged
  bool possible;
};
/// Winding back became possible or impossible.
struct FastReverseChanged {  // OnFastRewindChanged
  bool possible;
};
/// Browsing became possible or impossible.
struct BrowsingChanged {  // OnSupportBrowserStatusChanged
  bool possible;
};
/// Another player of the phone is addressed.
struct PlayerChanged {};  // OnPlayerInfoChanged
/// Items arrived: of the browsed folder, of a search or of the queue.
struct BrowsedItemsChanged {};  // OnBrowserMediaInfoChanged
/// What came of a change of folder.
struct FolderChanged {  // OnCurBrowserPathChanged
  bool success;
};
/// Number of items in the browsed folder.
struct FolderItemsCounted {  // OnBrowserFolderItemTotalChanged
  int total;
};
/// What came of Service::AddToNowPlaying.
struct AddedToNowPlaying {  // OnMediaItemToNowPlayingStatus
  bool success;
};
/// What came of Service::PlayItem.
struct ItemPlayed {  // OnSendPlayItemStatus
  bool success;
};

// ----- Phone book and call logs

/// A download began, ended or failed.
struct DownloadChanged {  // OnPBDownloadStatus
  PbapStatus status;
  PbapType type;
};
/// Progress of a download, in entries.
struct DownloadProgress {  // OnPbDownloadCountChanged
  int current;
  int total;
};
/// The call logs changed: ask for them with Service::CallLogs.
struct CallLogsChanged {};  // OnBtCallLogListChanged
/// What came of a deletion in the phone book.
struct PhoneBookDeleted {  // OnDeletePhoneBookChanged
  bool success;
};
/// A contact became a favourite or ceased to be one.
struct FavoriteChanged {  // OnContactFavoriteChanged
  int contactId;
  bool favorite;
};

// ----- Messages

/// A download of messages began, ended or failed.
struct MessageDownloadChanged {  // OnMessageDownloadStatus
  MsgLoadStatus status;
};
/// Progress of a download, in messages.
struct MessageDownloadProgress {  // OnMessageDownloadCountChanged
  int current;
  int total;
};
/// Something happened to the message with this handle.
struct MessageChanged {  // OnMessageStatusNotify
  MsgStatus status;
  std::string handle;
};
/// What came of a change of a message's properties.
struct MessagePropertySet {  // OnMessageSetPropertyStatus
  SetMsgProStatus status;
};

// ----- Serial channels and input

/// A serial channel was opened or closed.
struct SppConnectionChanged {  // OnSppConnectStatus
  Address address;
  SupportType type;
  bool connected;
};
/// Bytes arrived.
struct SppReceived {  // OnSppReceiveBufferChanged
  Address address;
  Bytes bytes;
};
/// What came of Service::SetHidCalibration.
struct HidCalibrated {  // OnHIDCalibration
  bool success;
};
/// The link for input to a device changed.
struct HidConnectionChanged {  // OnHIDConnection
  Address address;
  ConnStatus status;
};

}  // namespace v0
}  // namespace btasync

#endif
