#ifndef SERVICE_STACK_STACKTYPES_H
#define SERVICE_STACK_STACKTYPES_H

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <bluetooth/MWPBtType.h>

#include "protocol/NumberType.h"

namespace btservice {

// The enumerations of the interface are the vocabulary of the whole service.
using namespace MWPBtType;

using Bytes = std::vector<std::uint8_t>;

/// A remote device, as the list of paired devices shows it.
struct DeviceInfo {
  std::string address;
  std::string name;
  ProfileId connected = BT_PROFILE_NONE;
  ProfileId enabled = BT_PROFILE_HFP_A2DP;
  ConnStatus status = BT_CONN_DISCONNECTED;
  SupportType support = BT_SUPPORT_NONE;
};

/// Who is connected for a purpose, and how far the connection is.
struct ConnectionState {
  ConnStatus status = BT_CONN_DISCONNECTED;
  std::string address;
};

/// The numbers of one kind in a contact.
struct ContactNumbers {
  NumberType type = NUMBER_OTHER;
  std::vector<std::string> numbers;
};

/// Texts are UTF-8. What is longer than its place in the segment is cut there, between two characters.
struct Contact {
  int id = -1;  ///< unique in the phone book, from 1; the same after each download of the same book
  std::string firstName;
  std::string familyName;
  std::vector<ContactNumbers> numbers;
};

/// A call of the past.
struct CallLogEntry {
  int id = 0;                            ///< unique in all logs
  CallLogType type = CALL_LOG_INCOMING;  ///< incoming, outgoing or missed
  int contactId = -1;                    ///< the contact with this number, -1 if there is none
  std::string name;                      ///< of that contact, or what the phone said; may be empty
  std::string number;                    ///< as the network gave it; may be empty
  std::string date;                      ///< 2026-05-31
  std::string time;                      ///< 18:05:00
  int seconds = 0;                       ///< how long was spoken
};

/// A call, as the table of calls shows it.
struct CallInfo {
  int id = 0;  ///< from 1, the same as long as the call lasts
  CallStatus status = BT_CALL_IDLE;
  bool incoming = false;
  bool multiparty = false;  ///< part of a conference
  int seconds = 0;          ///< since it was answered
  std::string number;       ///< as the network gave it; may be empty
  std::string name;         ///< of the contact with that number; may be empty
  std::string deviceAddress;
};

/// Texts about the track that plays, as a player sends them.
struct TrackInfo {
  std::string title;
  std::string artist;
  std::string album;
  std::string number;  ///< of the track in the queue, from 1
  std::string count;   ///< of the tracks in the queue
  std::string genre;
  std::string duration;  ///< milliseconds
};

/// A setting of the player and its value, as AVRCP numbers them: 2 repeat, 3 shuffle.
struct PlayMode {
  std::uint8_t attribute = 0;
  std::uint8_t value = 0;
};

/// A folder or track met while browsing.
struct BrowserItem {
  std::string uid;  ///< what the player calls it; valid until another folder is entered
  std::string name;
  bool isFolder = false;
};

/// Part of a list: from a place, counted from 0, and at most that many.
struct ItemRange {
  int start = 0;
  int count = 0;
};

}  // namespace btservice

#endif
