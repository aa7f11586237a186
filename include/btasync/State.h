#ifndef BTASYNC_STATE_H
#define BTASYNC_STATE_H

#include <optional>
#include <string>
#include <vector>

#include <btasync/Availability.h>
#include <btasync/Events.h>
#include <btasync/Export.h>
#include <btasync/Records.h>

// What is known of the service: what a screen draws. Plain values. Mirror.h keeps them current.
//
// In each part, fresh is true while its values are those of the service that is there. It is false until the
// first answers after the service's coming, and while what was asked later has failed: draw the part greyed.
// When the service goes, calls, questions and progress vanish, and everything else stays, not fresh.

namespace btasync {
inline namespace v0 {

/// The parts of the State, as bits.
enum Part : unsigned {
  PART_SERVICE = 1 << 0,     ///< whether the service is there
  PART_ADAPTER = 1 << 1,     ///< State::adapter
  PART_FOUND = 1 << 2,       ///< State::found
  PART_PAIRED = 1 << 3,      ///< State::paired
  PART_PAIRING = 1 << 4,     ///< State::pairing
  PART_CALLS = 1 << 5,       ///< State::calls
  PART_AUDIO = 1 << 6,       ///< State::audio
  PART_NETWORK = 1 << 7,     ///< State::network
  PART_MUSIC = 1 << 8,       ///< State::music
  PART_MODES = 1 << 9,       ///< State::modes
  PART_POSITION = 1 << 10,   ///< State::position
  PART_CONTACTS = 1 << 11,   ///< State::contacts
  PART_FAVORITES = 1 << 12,  ///< State::favorites
  PART_LOGS = 1 << 13,       ///< State::logs
  PART_DOWNLOAD = 1 << 14,   ///< State::download
  PART_MESSAGES = 1 << 15,   ///< State::messages
};

/// The head unit's own adapter.
struct AdapterState {
  bool fresh = false;                ///< the rest is what the service has; false: not known yet, or no longer
  PowerStatus power = BT_POWER_OFF;  ///< on, off, or on its way to either
  std::string name;                  ///< that other devices see
  Address address;                   ///< its own
  bool discoverable = false;         ///< visible to other devices
  bool scanning = false;             ///< searches for devices
};

/// What the search for devices has found.
struct FoundState {
  bool fresh = false;  ///< the rest is what the service has; false: not known yet, or no longer
  /// Since the search began, in the order of the finds, one for each address. A device that is paired leaves
  /// it.
  std::vector<DeviceFound> devices;
};

/// The connection of one profile.
struct ProfileConnection {
  ProfileId profile = BT_PROFILE_NONE;       ///< which one
  ConnStatus status = BT_CONN_DISCONNECTED;  ///< its state
};

/// A paired device.
struct PairedDevice {
  Address address;                             ///< of the device
  std::string name;                            ///< of the device, in UTF-8
  SupportType support = BT_SUPPORT_NONE;       ///< the kind of projection it supports
  ProfileId enabled = BT_PROFILE_NONE;         ///< the profiles it may connect
  std::vector<ProfileConnection> connections;  ///< those that were reported; all others are disconnected

  /// The connection of a profile.
  /// @param profile which one
  /// @returns its state; BT_CONN_DISCONNECTED if none was reported
  BTASYNC_API ConnStatus StatusOf(ProfileId profile) const;
};

/// The paired devices.
struct PairedState {
  bool fresh = false;  ///< the rest is what the service has; false: not known yet, or no longer
  std::vector<PairedDevice> devices;  ///< in the service's order
};

/// The pairing that is under way, and how the last one ended.
struct PairingState {
  bool fresh = false;               ///< the rest is what the service has; false: not known yet, or no longer
  std::optional<Address> underWay;  ///< the device that is being paired
  std::optional<PairRequested> question;  ///< that waits for a person; gone once the pairing ends
  /// The last pairing, if it failed, with its reason. None once another one begins, or the service goes.
  std::optional<PairChanged> failed;
};

/// A call, with the meaning that btservice gives the items of a slot.
struct CallEntry {
  int callId = 0;                    ///< which call
  CallStatus status = BT_CALL_IDLE;  ///< its state
  bool incoming = false;             ///< the other party has called
  bool conference = false;           ///< part of one
  int seconds = 0;                   ///< since it was answered
  std::string number;                ///< of the other party
  std::string name;                  ///< empty if it is not known
  Address phone;                     ///< the phone it goes over

  /// The same in each of its values.
  /// @param one a call
  /// @param other another
  /// @returns true if nothing differs
  BTASYNC_API friend bool operator==(const CallEntry& one, const CallEntry& other);
};

/// The calls.
struct CallsState {
  bool fresh = false;                ///< the rest is what the service has; false: not known yet, or no longer
  int count = 0;                     ///< of all calls; at most two are in the list
  std::vector<CallEntry> calls;      ///< the active one first
  std::vector<CallAction> possible;  ///< what Service::SwitchCalls can do now
};

/// The sound of a call.
struct AudioState {
  bool fresh = false;               ///< the rest is what the service has; false: not known yet, or no longer
  bool onPhone = false;             ///< private: on the phone, not on the head unit
  CodecMode codec = BT_CODEC_NONE;  ///< of the call audio
  bool voiceRecognition = false;    ///< whether it is running
};

/// The phone that calls go over, and its network.
struct NetworkState {
  bool fresh = false;        ///< the rest is what the service has; false: not known yet, or no longer
  ConnectionState phone;     ///< the phone that calls go over
  bool available = false;    ///< whether the phone has a network
  std::string operatorName;  ///< in UTF-8; empty if there is none
  bool roaming = false;      ///< false: in its home network
  int signal = 0;            ///< 0 to 5 bars
  int battery = 0;           ///< 0 to 5 bars
};

/// The player and its track.
struct MusicState {
  bool fresh = false;      ///< the rest is what the service has; false: not known yet, or no longer
  ConnectionState player;  ///< the device that music comes from
  MusicPlayStatus status = BT_MUSIC_STOPPED;  ///< its state
  MWPTypeMediaInfo track;                     ///< what plays
};

/// The play modes.
struct ModesState {
  bool fresh = false;  ///< the rest is what the service has; false: not known yet, or no longer
  std::vector<MWPTypePlayMode> current;   ///< those that are set
  std::vector<MWPTypePlayMode> possible;  ///< those that can be set
};

/// Where the player is in the track.
struct PositionState {
  bool fresh = false;     ///< the rest is what the service has; false: not known yet, or no longer
  PlayPosition position;  ///< position and length, in milliseconds
};

/// Contacts, or those of them that are favourites.
struct ContactsState {
  bool fresh = false;  ///< the rest is what the service has; false: not known yet, or no longer
  std::vector<MWPTypeContact> contacts;  ///< in the service's order
};

/// The call logs.
struct LogsState {
  bool fresh = false;                ///< the rest is what the service has; false: not known yet, or no longer
  std::vector<MWPTypeCallLog> logs;  ///< of all types
};

/// The download of the phone book.
struct DownloadState {
  bool fresh = false;                ///< the rest is what the service has; false: not known yet, or no longer
  PbapStatus status = BT_PBAP_IDLE;  ///< its state
  PbapType type = BT_PBAP_ALL;       ///< what is downloaded
  DownloadProgress progress{0, 0};   ///< in entries
};

/// The download of messages, and what happened to them.
struct MessagesState {
  bool fresh = false;  ///< the rest is what the service has; false: not known yet, or no longer
  MsgLoadStatus status = BT_MSG_LOAD_IDLE;  ///< its state
  MessageDownloadProgress progress{0, 0};   ///< in messages
  std::vector<MessageChanged> news;         ///< the last that happened, at most 20, the newest last
};

/// All that a Mirror keeps, part by part. Each part but the service is void until it is fresh.
struct State {
  Availability service = Availability::Unknown;  ///< whether it is there
  AdapterState adapter;                          ///< PART_ADAPTER
  FoundState found;                              ///< PART_FOUND
  PairedState paired;                            ///< PART_PAIRED
  PairingState pairing;                          ///< PART_PAIRING
  CallsState calls;                              ///< PART_CALLS
  AudioState audio;                              ///< PART_AUDIO
  NetworkState network;                          ///< PART_NETWORK
  MusicState music;                              ///< PART_MUSIC
  ModesState modes;                              ///< PART_MODES
  PositionState position;                        ///< PART_POSITION
  ContactsState contacts;                        ///< PART_CONTACTS
  ContactsState favorites;                       ///< PART_FAVORITES
  LogsState logs;                                ///< PART_LOGS
  DownloadState download;                        ///< PART_DOWNLOAD
  MessagesState messages;                        ///< PART_MESSAGES
};

}  // namespace v0
}  // namespace btasync

#endif
