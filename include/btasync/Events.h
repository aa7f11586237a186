#ifndef BTASYNC_EVENTS_H
#define BTASYNC_EVENTS_H

#include <string>

#include <btasync/Records.h>

// One structure for each signal of the service, with the fields in the order of the interface. Subscribe with
// Service::On. An enumerator may have a value that the header does not list: be prepared for it in a switch.
//
// An event may come before the answer to the request that caused it.

namespace btasync {
inline namespace v0 {

// ----- Adapter, pairing, connections

/// The adapter was or is being switched on or off.
struct PowerChanged {
  PowerStatus status;
};
/// All profiles may be connected, or not.
struct ProfilesEnabledChanged {
  bool enabled;
};
/// A pairing has begun, succeeded or failed; the reason counts only for a failure.
struct PairChanged {
  PairStatus status;
  PairFailedReson reason;
  Address address;
};
/// A device wants to pair: answer with Service::AnswerPair or RejectPair.
struct PairRequested {
  Address address;
  std::string digits;  ///< to show or to compare; may be empty
  bool forProjection;  ///< belongs to wireless projection
  PairRequestState question;
};
/// The search for devices began or ended.
struct ScanChanged {
  ScanStatus status;
};
/// A device answered the search. The same one may come again, for instance once its name is known.
struct DeviceFound {
  Address address;
  std::string name;
  SupportType support;
};
/// Paired devices have been deleted, or could not be.
struct PairedDevicesDeleted {
  bool success;
};
/// The connection of one profile of a device changed.
struct ConnectionChanged {
  Address address;
  ProfileId profile;
  ConnStatus status;
};
/// A device turned out to support a profile.
struct SupportedProfileFound {
  Address address;
  ProfileId profile;
};
/// A capability has a new value.
struct CapabilityChanged {
  Capability capability;
  bool on;
};
/// An attribute has a new value.
struct AttributeChanged {
  Attribute attribute;
  std::string value;
};
/// A device asks for wireless projection.
struct ProjectionRequested {
  Address address;
  std::string name;
  SupportType type;
};
/// The answer to Service::RequestAndroidAutoPairing.
struct AndroidAutoPairingAnswered {
  HUStatus status;
};
/// What came of Service::SetOutOfBandKey.
struct OutOfBandKeySet {
  Address address;
  bool success;
};

// ----- Phone and calls

/// The phone is in another network; an empty name: in none.
struct OperatorChanged {
  std::string name;
};
/// The phone found or lost its network.
struct NetworkChanged {
  bool available;
};
/// The phone is roaming, or in its home network.
struct RoamingChanged {
  bool roaming;
};
/// Signal strength of the phone, 0 to 5 bars.
struct SignalChanged {
  int bars;
};
/// Battery of the phone, 0 to 5 bars.
struct BatteryChanged {
  int bars;
};
/// A call changed its state; BT_CALL_IDLE: it ended. callCount is the number of calls after the change.
struct CallStatusChanged {
  int callId;
  CallStatus status;
  int callCount;
};
/// The calls changed: read them with Service::CurrentCalls.
struct CallsChanged {
  int callCount;
};
/// How long a call has lasted; active is false for one on hold.
struct CallTimeChanged {
  int seconds;
  int callId;
  bool active;
};
/// An action became possible or impossible (Service::SwitchCalls).
struct CallActionChanged {
  CallAction action;
  bool possible;
};
/// A call was hung up.
struct CallHungUp {};
/// The sound of the call moved between phone and head unit.
struct AudioChanged {
  AudioStatus status;
};
/// Voice recognition of the phone began or ended.
struct VoiceRecognitionChanged {
  bool running;
};
/// The call audio uses another codec.
struct CodecChanged {
  CodecMode mode;
};

// ----- Music

/// The audio stream of a device began or ended.
struct MediaStreamChanged {
  Address address;
  bool started;
};
/// The player began, paused or stopped.
struct MusicChanged {
  MusicPlayStatus status;
};
/// Another track plays: ask for it with Service::GetMediaInfo.
struct TrackChanged {};
/// The information on the track changed: ask for it with Service::GetMediaInfo.
struct MediaInfoChanged {};
/// The play modes changed: ask for them with Service::GetPlayModes.
struct PlayModeChanged {};
/// Other play modes are possible: ask for them with Service::GetSupportedPlayModes.
struct SupportedPlayModeChanged {};
/// The cover image of the track has been downloaded.
struct CoverImageDownloaded {};
/// Where the player is in the track, in milliseconds.
struct PositionChanged {
  int position;
  int length;
};
/// The player supports a notification, or not.
struct AvrcpEventSupportChanged {
  SupportAvrcpEvent event;
  bool supported;
};
/// Winding forward became possible or impossible.
struct FastForwardChanged {
  bool possible;
};
/// Winding back became possible or impossible.
struct FastReverseChanged {
  bool possible;
};
/// Browsing became possible or impossible.
struct BrowsingChanged {
  bool possible;
};
/// Another player of the phone is addressed.
struct PlayerChanged {};
/// Items arrived: of the browsed folder, of a search or of the queue.
struct BrowsedItemsChanged {};
/// What came of a change of folder.
struct FolderChanged {
  bool success;
};
/// Number of items in the browsed folder.
struct FolderItemsCounted {
  int total;
};
/// What came of Service::AddToNowPlaying.
struct AddedToNowPlaying {
  bool success;
};
/// What came of Service::PlayItem.
struct ItemPlayed {
  bool success;
};

// ----- Phone book and call logs

/// A download began, ended or failed.
struct DownloadChanged {
  PbapStatus status;
  PbapType type;
};
/// Progress of a download, in entries.
struct DownloadProgress {
  int current;
  int total;
};
/// The call logs changed: ask for them with Service::CallLogs.
struct CallLogsChanged {};
/// What came of a deletion in the phone book.
struct PhoneBookDeleted {
  bool success;
};
/// A contact became a favourite or ceased to be one.
struct FavoriteChanged {
  int contactId;
  bool favorite;
};

// ----- Messages

/// A download of messages began, ended or failed.
struct MessageDownloadChanged {
  MsgLoadStatus status;
};
/// Progress of a download, in messages.
struct MessageDownloadProgress {
  int current;
  int total;
};
/// Something happened to the message with this handle.
struct MessageChanged {
  MsgStatus status;
  std::string handle;
};
/// What came of a change of a message's properties.
struct MessagePropertySet {
  SetMsgProStatus status;
};

// ----- Serial channels and input

/// A serial channel was opened or closed.
struct SppConnectionChanged {
  Address address;
  SupportType type;
  bool connected;
};
/// Bytes arrived.
struct SppReceived {
  Address address;
  Bytes bytes;
};
/// What came of Service::SetHidCalibration.
struct HidCalibrated {
  bool success;
};
/// The link for input to a device changed.
struct HidConnectionChanged {
  Address address;
  ConnStatus status;
};

}  // namespace v0
}  // namespace btasync

#endif
