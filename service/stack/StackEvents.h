#ifndef SERVICE_STACK_STACKEVENTS_H
#define SERVICE_STACK_STACKEVENTS_H

#include <string>
#include <variant>
#include <vector>

#include "service/stack/StackTypes.h"

// What a Bluetooth stack reports, in the groups of the interfaces through which it is asked: each change
// once, when it has happened, whoever caused it. frontend/SignalEmitter.cpp says which signal an event
// becomes; the public listener interfaces explain its values where they declare the method of that name. A
// stack need not report a kind that it does not have.

namespace btservice {

// Adapter, pairing, connections.
/// The adapter is on or off, or on its way there. Each step is reported, and a start that ends off as well.
struct PowerChanged {
  PowerStatus status;
};
/// All profiles together were allowed or forbidden.
struct ProfilesEnabledChanged {
  bool enabled;
};
/// A setting of the user has another value, 0 or 1. The service keeps it for the next start.
struct CapabilityChanged {
  Capability capability;
  int value;
};
/// A text about the adapter is another one, whoever changed it. What Kept() holds is kept then.
struct AttributeChanged {
  Attribute attribute;
  std::string value;
};
/// A search begins or has ended, also by itself.
struct ScanChanged {
  ScanStatus status;
};
/// A search has found a device, or more about one: a name that was not known before.
struct DeviceFound {
  std::string address;
  std::string name;
  SupportType support;
};
/// A pairing begins, has worked or has failed; reason says why it failed.
struct PairChanged {
  PairStatus status;
  PairFailedReson reason;
  std::string address;
};
/// Somebody here has to answer a pairing, by DeviceControl::AcceptPairing or RejectPairing. digits: to be
/// compared or typed in there, six of them; empty if none are shown. projection: it is for wireless
/// projection.
struct PairRequested {
  std::string address;
  std::string digits;
  bool projection;
  PairRequestState state;
};
/// A pairing, or all of them, was to be deleted.
struct PairingDeleted {
  bool success;
};
/// The list of paired devices is another, or anything that it shows. No signal: applications look into the
/// segment.
struct PairedDevicesChanged {};
/// A profile of a device: each step, and BT_CONN_FAILED where a connection that was asked for does not come
/// about.
struct ConnectionChanged {
  std::string address;
  ProfileId profile;
  ConnStatus status;
};
/// A device has this profile. One event for each, once they are known.
struct ProfileSupported {
  std::string address;
  ProfileId profile;
};
/// How DeviceControl::SetOobLinkKey ended.
struct OobLinkKeySet {
  std::string address;
  bool success;
};
/// A phone asks for wireless projection.
struct ProjectionRequested {
  std::string address;
  std::string name;
  SupportType support;
};
/// How DeviceControl::RequestProjectionPairing ended.
struct ProjectionPairingAnswered {
  HUStatus status;
};

// The phone's network, and calls.
/// The name of the network of the phone in use; empty if it has none.
struct OperatorChanged {
  std::string name;
};
/// Whether that phone has a network.
struct MobileServiceChanged {
  bool available;
};
/// Whether it is in the network of another operator.
struct RoamingChanged {
  bool roaming;
};
/// The strength of its network, 0 to 5.
struct SignalChanged {
  int bars;
};
/// The charge of its battery, 0 to 5.
struct BatteryChanged {
  int bars;
};
/// A call is in another state; BT_CALL_IDLE: it has ended, and its id may come again. callCount: of those
/// that are left.
struct CallChanged {
  int callId;
  CallStatus status;
  int callCount;
};
/// All that there was to report about a change of calls has been reported: the table can be drawn.
struct CallsChanged {
  int callCount;
};
/// The seconds since a call was answered, each second while one is active or held.
struct CallTimeChanged {
  int seconds;
  int callId;
  bool active;
};
/// What can be done with two calls has become possible, or impossible.
struct CallActionChanged {
  CallAction action;
  bool possible;
};
/// A call has ended, whoever ended it. It follows the CallChanged of that call.
struct CallHungUp {};
/// Where the sound of calls is.
struct CallAudioChanged {
  AudioStatus status;
};
/// Whether the phone's voice recognition runs.
struct VoiceRecognitionChanged {
  bool running;
};
/// What the sound of calls is coded with now.
struct CodecChanged {
  CodecMode codec;
};

// Music and browsing.
/// Music of this device begins to flow to the head unit, or no longer does.
struct StreamChanged {
  std::string address;
  bool running;
};
/// What the player in use does.
struct PlayStatusChanged {
  MusicPlayStatus status;
};
/// Another track plays.
struct TrackChanged {};
/// MusicControl::CurrentTrack() has other texts.
struct TrackInfoChanged {};
/// The picture of the track is there.
struct CoverDownloaded {};
/// Where the player is in its track, and how long that is, in milliseconds: each second while it runs, unless
/// MusicControl::ReportPosition said otherwise.
struct PositionChanged {
  int position;
  int length;
};
/// MusicControl::PlayModes() are others.
struct PlayModeChanged {};
/// MusicControl::SupportedPlayModes() are others.
struct SupportedPlayModesChanged {};
/// Whether the player in use notifies of this.
struct NotificationSupported {
  SupportAvrcpEvent event;
  bool supported;
};
/// Whether it can wind forward.
struct FastForwardSupported {
  bool supported;
};
/// Whether it can wind back.
struct FastReverseSupported {
  bool supported;
};
/// Whether it can be browsed.
struct BrowsingSupported {
  bool supported;
};
/// Another player is in use, or none.
struct PlayerChanged {};
/// MusicControl::Items() has what was asked for, or what there is now.
struct BrowserItemsArrived {};
/// A folder was entered, or could not be.
struct BrowserPathChanged {
  bool success;
};
/// How many items a folder has, as MusicControl::CountFolder asked.
struct BrowserFolderTotal {
  int total;
};
/// How MusicControl::QueueItem ended.
struct ItemQueued {
  bool success;
};
/// How MusicControl::PlayItem ended.
struct ItemPlayed {
  bool success;
};

// Phone book and call logs.
/// A download, or the part of it that type names, begins, goes on or has ended. PhoneBookControl has what
/// came.
struct DownloadStatusChanged {
  PbapStatus status;
  PbapType type;
};
/// Entries that are there, and all that will come in this part.
struct DownloadProgress {
  int current;
  int total;
};
/// PhoneBookControl::CallLogs() are others.
struct CallLogsChanged {};
/// Contacts were to be deleted.
struct ContactsDeleted {
  bool success;
};
/// A contact is a favourite, or no longer.
struct FavoriteChanged {
  int contactId;
  bool favorite;
};

// Serial channels and HID.
/// A serial channel to a device was opened or closed.
struct SerialChannelChanged {
  std::string address;
  SupportType support;
  bool open;
};
/// A device sent bytes over its serial channel, as they came.
struct SerialDataArrived {
  std::string address;
  Bytes data;
};
/// How the calibration of a touch surface ended.
struct HidCalibrated {
  bool success;
};
/// A device for input was connected or disconnected.
struct HidConnectionChanged {
  std::string address;
  ConnStatus status;
};

// Messages.
/// How far the download of messages is.
struct MessageLoadChanged {
  MsgLoadStatus status;
};
/// Messages that are there, and all that will come.
struct MessageLoadProgress {
  int current;
  int total;
};
/// A message arrived, was sent, deleted or the like. handle: its number at the phone, in hexadecimal digits.
struct MessageNotified {
  MsgStatus status;
  std::string handle;
};
/// A message was marked, or could not be.
struct MessagePropertySet {
  SetMsgProStatus status;
};

using StackEvent = std::variant<
    PowerChanged, ProfilesEnabledChanged, CapabilityChanged, AttributeChanged, ScanChanged, DeviceFound,
    PairChanged, PairRequested, PairingDeleted, PairedDevicesChanged, ConnectionChanged, ProfileSupported,
    OobLinkKeySet, ProjectionRequested, ProjectionPairingAnswered, OperatorChanged, MobileServiceChanged,
    RoamingChanged, SignalChanged, BatteryChanged, CallChanged, CallsChanged, CallTimeChanged,
    CallActionChanged, CallHungUp, CallAudioChanged, VoiceRecognitionChanged, CodecChanged, StreamChanged,
    PlayStatusChanged, TrackChanged, TrackInfoChanged, CoverDownloaded, PositionChanged, PlayModeChanged,
    SupportedPlayModesChanged, NotificationSupported, FastForwardSupported, FastReverseSupported,
    BrowsingSupported, PlayerChanged, BrowserItemsArrived, BrowserPathChanged, BrowserFolderTotal, ItemQueued,
    ItemPlayed, DownloadStatusChanged, DownloadProgress, CallLogsChanged, ContactsDeleted, FavoriteChanged,
    SerialChannelChanged, SerialDataArrived, HidCalibrated, HidConnectionChanged, MessageLoadChanged,
    MessageLoadProgress, MessageNotified, MessagePropertySet>;

/// Hears what a stack reports, in the order in which it happens, on the thread of the stack. A request may be
/// reported on before it has returned. Requests must not be made from inside OnStackEvent.
class StackObserver {
 public:
  virtual ~StackObserver() = default;
  virtual void OnStackEvent(const StackEvent& event) = 0;
};

/// Those who hear what a stack reports.
class StackObservers {
 public:
  /// The observer is called after those that were added before, and must live as long as anything is
  /// reported.
  void Add(StackObserver& observer) { m_observers.push_back(&observer); }
  void Report(const StackEvent& event) const {
    for (StackObserver* const observer : m_observers) {
      observer->OnStackEvent(event);
    }
  }

 private:
  std::vector<StackObserver*> m_observers;
};

}  // namespace btservice

#endif
