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
  PowerStatus status;  ///< on, off, or on its way to either
};
/// All profiles may be connected, or not.
struct ProfilesEnabledChanged {  // OnBtProfileEnableStatusChanged
  bool enabled;                  ///< true: all profiles may be connected
};
/// A pairing has begun, succeeded or failed; the reason counts only for a failure.
struct PairChanged {       // OnPairStatusChanged
  PairStatus status;       ///< whether it has begun, succeeded or failed
  PairFailedReson reason;  ///< why it failed
  Address address;         ///< of the device
};
/// A device wants to pair: answer with Service::AnswerPair or RejectPair.
struct PairRequested {        // OnAnswerPairRequest
  Address address;            ///< of the device
  std::string digits;         ///< to show or to compare; may be empty
  bool forProjection;         ///< belongs to wireless projection
  PairRequestState question;  ///< what is asked; pass it on to Service::AnswerPair
};
/// The search for devices began or ended.
struct ScanChanged {  // OnScanStatusChanged
  ScanStatus status;  ///< whether a search is running
};
/// A device answered the search. The same one may come again, for instance once its name is known.
struct DeviceFound {    // OnScanedDeviceChanged
  Address address;      ///< of the device
  std::string name;     ///< as strangers chose it: escape it before you show it; may be empty
  SupportType support;  ///< the kind of projection that the device supports
};
/// Paired devices have been deleted, or could not be.
struct PairedDevicesDeleted {  // OnDeletePairStatusChanged
  bool success;                ///< false: they are still there
};
/// The connection of one profile of a device changed.
struct ConnectionChanged {  // OnConnectStatusChanged
  Address address;          ///< of the device
  ProfileId profile;        ///< whose connection it is
  ConnStatus status;        ///< of that profile alone
};
/// A device turned out to support a profile.
struct SupportedProfileFound {  // OnSupportProfileChanged
  Address address;              ///< of the device
  ProfileId profile;            ///< which the device supports
};
/// A capability has a new value.
struct CapabilityChanged {  // OnBtCapabilityChanged
  Capability capability;    ///< which one
  bool on;                  ///< its new value
};
/// An attribute has a new value.
struct AttributeChanged {  // OnBtAttributeChanged
  Attribute attribute;     ///< which one
  std::string value;       ///< its new text, in UTF-8
};
/// A device asks for wireless projection.
struct ProjectionRequested {  // OnWirelessEnableRequest
  Address address;            ///< of the device
  std::string name;           ///< of the device, in UTF-8; as its owner chose it
  SupportType type;           ///< the kind of projection
};
/// The answer to Service::RequestAndroidAutoPairing.
struct AndroidAutoPairingAnswered {  // OnAndroidAutoPairingResponse
  HUStatus status;                   ///< the answer
};
/// What came of Service::SetOutOfBandKey.
struct OutOfBandKeySet {  // OnSetDeviceOOBLinkKeyChanged
  Address address;        ///< of the device
  bool success;           ///< false: the key was not taken
};

// ----- Phone and calls

/// The phone is in another network; an empty name: in none.
struct OperatorChanged {  // OnOperatorNameChanged
  std::string name;       ///< of the network, in UTF-8
};
/// The phone found or lost its network.
struct NetworkChanged {  // OnMobileService
  bool available;        ///< true: found, false: lost
};
/// The phone is roaming, or in its home network.
struct RoamingChanged {  // OnRoamingStatusChanged
  bool roaming;          ///< false: in its home network
};
/// Signal strength of the phone, 0 to 5 bars.
struct SignalChanged {  // OnBtSignalChanged
  int bars;             ///< 0 to 5
};
/// Battery of the phone, 0 to 5 bars.
struct BatteryChanged {  // OnBtBatteryChanged
  int bars;              ///< 0 to 5
};
/// A call changed its state; BT_CALL_IDLE: it ended. callCount is the number of calls after the change.
struct CallStatusChanged {  // OnCallStatusChanged
  int callId;               ///< which call
  CallStatus status;        ///< its new state
  int callCount;            ///< calls after the change
};
/// The calls changed: read them with Service::CurrentCalls.
struct CallsChanged {  // OnCurrentCallInfoChanged
  int callCount;       ///< calls after the change
};
/// How long a call has lasted; active is false for one on hold.
struct CallTimeChanged {  // OnCallingTimeChanged
  int seconds;            ///< since the call was answered
  int callId;             ///< which call
  bool active;            ///< false: it is on hold
};
/// An action became possible or impossible (Service::SwitchCalls).
struct CallActionChanged {  // OnConferenceChanged
  CallAction action;        ///< which one
  bool possible;            ///< as the calls now stand
};
/// A call was hung up.
struct CallHungUp {};  // OnHangupCallChanged
/// The sound of the call moved between phone and head unit.
struct AudioChanged {  // OnAudioStatusChanged
  AudioStatus status;  ///< where the sound is
};
/// Voice recognition of the phone began or ended.
struct VoiceRecognitionChanged {  // OnVoiceStatusChanged
  bool running;                   ///< true: it began, false: it ended
};
/// The call audio uses another codec.
struct CodecChanged {  // OnCodecModeChanged
  CodecMode mode;      ///< the codec
};

// ----- Music

/// The audio stream of a device began or ended.
struct MediaStreamChanged {  // OnMediaAudioStateChanged
  Address address;           ///< of the device
  bool started;              ///< true: it began, false: it ended
};
/// The player began, paused or stopped.
struct MusicChanged {      // OnBtMusicPlayChanged
  MusicPlayStatus status;  ///< what the player does now
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
  int position;           ///< in milliseconds, from the beginning of the track
  int length;             ///< of the track, in milliseconds
};
/// The player supports a notification, or not.
struct AvrcpEventSupportChanged {  // OnSupportAvrcpNotify
  SupportAvrcpEvent event;         ///< which notification
  bool supported;                  ///< by the player
};
/// Winding forward became possible or impossible.
struct FastForwardChanged {  // OnFastForwardChanged
  bool possible;             ///< now
};
/// Winding back became possible or impossible.
struct FastReverseChanged {  // OnFastRewindChanged
  bool possible;             ///< now
};
/// Browsing became possible or impossible.
struct BrowsingChanged {  // OnSupportBrowserStatusChanged
  bool possible;          ///< now
};
/// Another player of the phone is addressed.
struct PlayerChanged {};  // OnPlayerInfoChanged
/// Items arrived: of the browsed folder, of a search or of the queue.
struct BrowsedItemsChanged {};  // OnBrowserMediaInfoChanged
/// What came of a change of folder.
struct FolderChanged {  // OnCurBrowserPathChanged
  bool success;         ///< false: it failed
};
/// Number of items in the browsed folder.
struct FolderItemsCounted {  // OnBrowserFolderItemTotalChanged
  int total;                 ///< number of items
};
/// What came of Service::AddToNowPlaying.
struct AddedToNowPlaying {  // OnMediaItemToNowPlayingStatus
  bool success;             ///< whether the item is in the queue
};
/// What came of Service::PlayItem.
struct ItemPlayed {  // OnSendPlayItemStatus
  bool success;      ///< whether the player took it
};

// ----- Phone book and call logs

/// A download began, ended or failed.
struct DownloadChanged {  // OnPBDownloadStatus
  PbapStatus status;      ///< whether it began, ended or failed
  PbapType type;          ///< what is downloaded
};
/// Progress of a download, in entries.
struct DownloadProgress {  // OnPbDownloadCountChanged
  int current;             ///< entries that have come
  int total;               ///< entries in all
};
/// The call logs changed: ask for them with Service::CallLogs.
struct CallLogsChanged {};  // OnBtCallLogListChanged
/// What came of a deletion in the phone book.
struct PhoneBookDeleted {  // OnDeletePhoneBookChanged
  bool success;            ///< false: it failed
};
/// A contact became a favourite or ceased to be one.
struct FavoriteChanged {  // OnContactFavoriteChanged
  int contactId;          ///< MWPTypeContact::nContactId
  bool favorite;          ///< true: it became one
};

// ----- Messages

/// A download of messages began, ended or failed.
struct MessageDownloadChanged {  // OnMessageDownloadStatus
  MsgLoadStatus status;          ///< whether it began, ended or failed
};
/// Progress of a download, in messages.
struct MessageDownloadProgress {  // OnMessageDownloadCountChanged
  int current;                    ///< messages that have come
  int total;                      ///< messages in all
};
/// Something happened to the message with this handle.
struct MessageChanged {  // OnMessageStatusNotify
  MsgStatus status;      ///< what happened
  std::string handle;    ///< of the message, as the phone gave it
};
/// What came of a change of a message's properties.
struct MessagePropertySet {  // OnMessageSetPropertyStatus
  SetMsgProStatus status;    ///< success or failure
};

// ----- Serial channels and input

/// A serial channel was opened or closed.
struct SppConnectionChanged {  // OnSppConnectStatus
  Address address;             ///< of the device
  SupportType type;            ///< what the channel is for
  bool connected;              ///< true: it was opened, false: closed
};
/// Bytes arrived.
struct SppReceived {  // OnSppReceiveBufferChanged
  Address address;    ///< of the device
  Bytes bytes;        ///< any bytes, zeros too; yours to keep
};
/// What came of Service::SetHidCalibration.
struct HidCalibrated {  // OnHIDCalibration
  bool success;         ///< false: the calibration was not taken
};
/// The link for input to a device changed.
struct HidConnectionChanged {  // OnHIDConnection
  Address address;             ///< of the device
  ConnStatus status;           ///< of the link for input
};

}  // namespace v0
}  // namespace btasync

#endif
