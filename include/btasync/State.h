#ifndef BTASYNC_STATE_H
#define BTASYNC_STATE_H

#include <optional>
#include <string>
#include <vector>

#include <btasync/Events.h>
#include <btasync/Export.h>
#include <btasync/Records.h>
#include <btasync/Service.h>

// What is known of the service: what a screen draws. Plain values. Mirror.h keeps them current.
//
// In each part, fresh is true while its values are those of the service that is there. It is false until the
// first answers after the service's coming: draw the part greyed. When the service goes, calls, questions and
// progress vanish, and everything else stays, not fresh.

namespace btasync {
inline namespace v0 {

/// The parts of the State, as bits.
enum Part : unsigned {
  PART_SERVICE = 1 << 0,
  PART_ADAPTER = 1 << 1,
  PART_FOUND = 1 << 2,
  PART_PAIRED = 1 << 3,
  PART_PAIRING = 1 << 4,
  PART_CALLS = 1 << 5,
  PART_AUDIO = 1 << 6,
  PART_NETWORK = 1 << 7,
  PART_MUSIC = 1 << 8,
  PART_MODES = 1 << 9,
  PART_POSITION = 1 << 10,
  PART_CONTACTS = 1 << 11,
  PART_FAVORITES = 1 << 12,
  PART_LOGS = 1 << 13,
  PART_DOWNLOAD = 1 << 14,
  PART_MESSAGES = 1 << 15,
};

struct AdapterState {
  bool fresh = false;
  PowerStatus power = BT_POWER_OFF;
  std::string name;           ///< that other devices see
  Address address;            ///< its own
  bool discoverable = false;  ///< visible to other devices
  bool scanning = false;      ///< searches for devices
};

struct FoundState {
  bool fresh = false;
  /// Since the search began, in the order of the finds, one for each address. A device that is paired leaves
  /// it.
  std::vector<DeviceFound> devices;
};

/// The connection of one profile.
struct ProfileConnection {
  ProfileId profile = BT_PROFILE_NONE;
  ConnStatus status = BT_CONN_DISCONNECTED;
};

struct PairedDevice {
  Address address;
  std::string name;
  SupportType support = BT_SUPPORT_NONE;
  ProfileId enabled = BT_PROFILE_NONE;         ///< the profiles it may connect
  std::vector<ProfileConnection> connections;  ///< those that were reported; all others are disconnected

  /// The connection of a profile.
  BTASYNC_API ConnStatus StatusOf(ProfileId profile) const;
};

struct PairedState {
  bool fresh = false;
  std::vector<PairedDevice> devices;  ///< in the service's order
};

struct PairingState {
  bool fresh = false;
  std::optional<Address> underWay;        ///< the device that is being paired
  std::optional<PairRequested> question;  ///< that waits for a person; gone once the pairing ends
  /// The last pairing, if it failed, with its reason. None once another one begins, or the service goes.
  std::optional<PairChanged> failed;
};

/// A call, with the meaning that btservice gives the items of a slot.
struct CallEntry {
  int callId = 0;
  CallStatus status = BT_CALL_IDLE;
  bool incoming = false;    ///< the other party has called
  bool conference = false;  ///< part of one
  int seconds = 0;          ///< since it was answered
  std::string number;
  std::string name;  ///< empty if it is not known
  Address phone;     ///< the phone it goes over

  BTASYNC_API friend bool operator==(const CallEntry& one, const CallEntry& other);
};

struct CallsState {
  bool fresh = false;
  int count = 0;                     ///< of all calls; at most two are in the list
  std::vector<CallEntry> calls;      ///< the active one first
  std::vector<CallAction> possible;  ///< what Service::SwitchCalls can do now
};

/// The sound of a call.
struct AudioState {
  bool fresh = false;
  bool onPhone = false;  ///< private: on the phone, not on the head unit
  CodecMode codec = BT_CODEC_NONE;
  bool voiceRecognition = false;
};

struct NetworkState {
  bool fresh = false;
  ConnectionState phone;  ///< the phone that calls go over
  bool available = false;
  std::string operatorName;
  bool roaming = false;
  int signal = 0;   ///< 0 to 5 bars
  int battery = 0;  ///< 0 to 5 bars
};

struct MusicState {
  bool fresh = false;
  ConnectionState player;
  MusicPlayStatus status = BT_MUSIC_STOPPED;
  MWPTypeMediaInfo track;
};

struct ModesState {
  bool fresh = false;
  std::vector<MWPTypePlayMode> current;
  std::vector<MWPTypePlayMode> possible;
};

struct PositionState {
  bool fresh = false;
  PlayPosition position;
};

struct ContactsState {
  bool fresh = false;
  std::vector<MWPTypeContact> contacts;
};

struct LogsState {
  bool fresh = false;
  std::vector<MWPTypeCallLog> logs;  ///< of all types
};

struct DownloadState {
  bool fresh = false;
  PbapStatus status = BT_PBAP_IDLE;
  PbapType type = BT_PBAP_ALL;
  DownloadProgress progress{0, 0};
};

struct MessagesState {
  bool fresh = false;
  MsgLoadStatus status = BT_MSG_LOAD_IDLE;
  MessageDownloadProgress progress{0, 0};
  std::vector<MessageChanged> news;  ///< the last that happened, at most 20, the newest last
};

struct State {
  Availability service = Availability::Unknown;
  AdapterState adapter;
  FoundState found;
  PairedState paired;
  PairingState pairing;
  CallsState calls;
  AudioState audio;
  NetworkState network;
  MusicState music;
  ModesState modes;
  PositionState position;
  ContactsState contacts;
  ContactsState favorites;
  LogsState logs;
  DownloadState download;
  MessagesState messages;
};

}  // namespace v0
}  // namespace btasync

#endif
