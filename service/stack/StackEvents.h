#ifndef SERVICE_STACK_STACKEVENTS_H
#define SERVICE_STACK_STACKEVENTS_H

#include <string>
#include <variant>
#include <vector>

#include "service/stack/StackTypes.h"

// What a Bluetooth stack reports, in the groups of the interfaces through which it is asked. The public
// listener interfaces explain the members where they declare the event of the same name.

namespace btservice {

// Adapter, pairing, connections.
struct PowerChanged {
  PowerStatus status;
};
struct ProfilesEnabledChanged {
  bool enabled;
};
struct CapabilityChanged {
  Capability capability;
  int value;
};
struct AttributeChanged {
  Attribute attribute;
  std::string value;
};
struct ScanChanged {
  ScanStatus status;
};
struct DeviceFound {
  std::string address;
  std::string name;
  SupportType support;
};
struct PairChanged {
  PairStatus status;
  PairFailedReson reason;
  std::string address;
};
struct PairRequested {
  std::string address;
  std::string digits;
  bool projection;
  PairRequestState state;
};
struct PairingDeleted {
  bool success;
};
struct PairedDevicesChanged {};  ///< the list, or anything that it shows
struct ConnectionChanged {
  std::string address;
  ProfileId profile;
  ConnStatus status;
};
struct ProfileSupported {
  std::string address;
  ProfileId profile;
};
struct OobLinkKeySet {
  std::string address;
  bool success;
};
struct ProjectionRequested {
  std::string address;
  std::string name;
  SupportType support;
};
struct ProjectionPairingAnswered {
  HUStatus status;
};

// The phone's network, and calls.
struct OperatorChanged {
  std::string name;
};
struct MobileServiceChanged {
  bool available;
};
struct RoamingChanged {
  bool roaming;
};
struct SignalChanged {
  int bars;
};
struct BatteryChanged {
  int bars;
};
struct CallChanged {
  int callId;
  CallStatus status;
  int callCount;
};
struct CallsChanged {
  int callCount;
};
struct CallTimeChanged {
  int seconds;
  int callId;
  bool active;
};
struct CallActionChanged {
  CallAction action;
  bool possible;
};
struct CallHungUp {};
struct CallAudioChanged {
  AudioStatus status;
};
struct VoiceRecognitionChanged {
  bool running;
};
struct CodecChanged {
  CodecMode codec;
};

// Music and browsing.
struct StreamChanged {
  std::string address;
  bool running;
};
struct PlayStatusChanged {
  MusicPlayStatus status;
};
struct TrackChanged {};
struct TrackInfoChanged {};
struct CoverDownloaded {};
struct PositionChanged {
  int position;
  int length;
};
struct PlayModeChanged {};
struct SupportedPlayModesChanged {};
struct NotificationSupported {
  SupportAvrcpEvent event;
  bool supported;
};
struct FastForwardSupported {
  bool supported;
};
struct FastReverseSupported {
  bool supported;
};
struct BrowsingSupported {
  bool supported;
};
struct PlayerChanged {};
struct BrowserItemsArrived {};
struct BrowserPathChanged {
  bool success;
};
struct BrowserFolderTotal {
  int total;
};
struct ItemQueued {
  bool success;
};
struct ItemPlayed {
  bool success;
};

// Phone book and call logs.
struct DownloadStatusChanged {
  PbapStatus status;
  PbapType type;
};
struct DownloadProgress {
  int current;
  int total;
};
struct CallLogsChanged {};
struct ContactsDeleted {
  bool success;
};
struct FavoriteChanged {
  int contactId;
  bool favorite;
};

// Serial channels and HID.
struct SerialChannelChanged {
  std::string address;
  SupportType support;
  bool open;
};
struct SerialDataArrived {
  std::string address;
  Bytes data;
};
struct HidCalibrated {
  bool success;
};
struct HidConnectionChanged {
  std::string address;
  ConnStatus status;
};

// Messages.
struct MessageLoadChanged {
  MsgLoadStatus status;
};
struct MessageLoadProgress {
  int current;
  int total;
};
struct MessageNotified {
  MsgStatus status;
  std::string handle;
};
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
