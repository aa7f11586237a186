#ifndef SERVICE_STACK_STACKTYPES_H
#define SERVICE_STACK_STACKTYPES_H

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <bluetooth/MWPBtType.h>

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

/// Kinds of telephone number in a contact.
enum NumberType : int { NUMBER_OTHER = 0, NUMBER_MOBILE = 1, NUMBER_HOME = 2, NUMBER_WORK = 3 };

struct ContactNumbers {
  NumberType type = NUMBER_OTHER;
  std::vector<std::string> numbers;
};

struct Contact {
  int id = -1;
  std::string firstName;
  std::string familyName;
  std::vector<ContactNumbers> numbers;
};

struct CallLogEntry {
  int id = 0;
  CallLogType type = CALL_LOG_INCOMING;
  int contactId = -1;  ///< the contact with this number, -1 if there is none
  std::string name;
  std::string number;
  std::string date;  ///< 2026-05-31
  std::string time;  ///< 18:05:00
  int seconds = 0;   ///< how long was spoken
};

struct CallInfo {
  int id = 0;
  CallStatus status = BT_CALL_IDLE;
  bool incoming = false;
  bool multiparty = false;
  int seconds = 0;  ///< since it was answered
  std::string number;
  std::string name;
  std::string deviceAddress;
};

/// Texts about the track that plays, as a player sends them.
struct TrackInfo {
  std::string title;
  std::string artist;
  std::string album;
  std::string number;
  std::string count;
  std::string genre;
  std::string duration;  ///< milliseconds
};

/// A setting of the player and its value.
struct PlayMode {
  std::uint8_t attribute = 0;
  std::uint8_t value = 0;
};

/// A folder or track met while browsing.
struct BrowserItem {
  std::string uid;
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
