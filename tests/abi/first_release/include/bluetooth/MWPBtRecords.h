#ifndef BLUETOOTH_MWPBTRECORDS_H
#define BLUETOOTH_MWPBTRECORDS_H

#include <list>
#include <string>
#include <vector>

#include <bluetooth/MWPBtType.h>

// The records of the interface: plain values that own their strings and containers. All text is UTF-8. A
// Bluetooth address is text of 17 characters, six pairs of hexadecimal digits separated by ':'.
//
// The library carries the fields named strText and nValue from shared memory without looking at them: the
// service gives them their meaning. The comments state what btservice, the simulated service, writes. A
// service of another make may use them differently.

/// A paired or connected remote device.
struct MWPTypeDevice {
  std::string strAddr;                    ///< Bluetooth address
  std::string strName;                    ///< the name the device gives itself
  std::vector<std::string> vecExtraInfo;  ///< free for the application; the library leaves it empty
  MWPBtType::SupportType eSupportType = MWPBtType::BT_SUPPORT_NONE;  ///< what it supports beyond the profiles
  MWPBtType::ProfileId eProfileId = MWPBtType::BT_PROFILE_NONE;      ///< connected profiles
  MWPBtType::ProfileId eEnableProfileId = MWPBtType::BT_PROFILE_HFP_A2DP;  ///< profiles it may connect
  MWPBtType::ConnStatus eConnectStatus = MWPBtType::BT_CONN_DISCONNECTED;  ///< state of the connection
};

/// The telephone numbers of one kind in a contact.
struct MWPTypeContactNumber {
  int nType = 0;                       ///< btservice: 0 other, 1 mobile, 2 home, 3 work
  std::vector<std::string> vecValues;  ///< the numbers
};

/// One entry of the phone book.
struct MWPTypeContact {
  int nContactId = -1;   ///< the id that MWPBtPbap::DeleteContactById and SetContactFavorite take
  std::string strText1;  ///< btservice: first name
  std::string strText2;  ///< btservice: family name
  std::list<MWPTypeContactNumber> listNumbers;  ///< its numbers, by their kind
};

/// One entry of a call log.
struct MWPTypeCallLog {
  int nLogId = 0;        ///< the id that MWPBtPbap::DeleteCallLogById takes
  std::string strText1;  ///< btservice: name of the other party, empty if it is not known
  std::string strText2;  ///< btservice: number of the other party
  std::string strText3;  ///< btservice: date, as in 2026-05-31
  std::string strText4;  ///< btservice: time of day, as in 18:05:00
  std::string strText5;  ///< btservice: duration in seconds, as decimal text; "0" if nobody answered
  int nValue1 = -1;      ///< btservice: nContactId of the contact with this number, -1 if there is none
  int nValue2 = 6;       ///< btservice: the log the entry belongs to: 1 incoming, 2 outgoing, 3 missed
};

/// One call.
struct MWPTypeCallSlot {
  int nValue1 = 0;       ///< btservice: the callId; 0 in a slot without a call
  int nValue2 = 0;       ///< btservice: MWPBtType::CallStatus
  int nValue3 = 0;       ///< btservice: 1 incoming, 0 outgoing
  int nValue4 = 0;       ///< btservice: 1 if the call is part of a conference, else 0
  std::string strText1;  ///< btservice: number of the other party
  std::string strText2;  ///< btservice: name of the other party, empty if it is not known
  std::string strText3;  ///< btservice: Bluetooth address of the phone
  int nValue5 = 0;       ///< btservice: seconds since the call was answered
};

/// The current calls. Both slots are read, whatever nCallCount says. btservice puts the active call first,
/// and counts in nCallCount also a third call, for which there is no slot.
struct MWPTypeCallInfo {
  int nCallCount = 0;         ///< number of calls; may be above 2
  MWPTypeCallSlot callSlot1;  ///< the first call
  MWPTypeCallSlot callSlot2;  ///< the second call
};

/// The track being played. Everything is text as the player sent it; duration is in milliseconds.
struct MWPTypeMediaInfo {
  std::string title;        ///< name of the track
  std::string artist;       ///< who plays
  std::string album;        ///< name of the album
  std::string track;        ///< number of the track
  std::string numOfTracks;  ///< tracks in the album or queue
  std::string genre;        ///< as the player names it
  std::string duration;     ///< milliseconds, as decimal text
};

/// A player setting and its value, each within one byte; the AVRCP attribute and value ids (attribute 1
/// equaliser, 2 repeat, 3 shuffle, 4 scan).
struct MWPTypePlayMode {
  int nType = 0;   ///< AVRCP attribute id
  int nValue = 0;  ///< AVRCP value id
};

/// Connection state of the phone or of the player.
struct MWPTypeConnectionState {
  int status = MWPBtType::BT_CONN_UNKNOWN;  ///< an MWPBtType::ConnStatus
  std::string address;                      ///< the device, empty if there is none
};

/// A message. No service fills one in: MWPBtMessage only returns default records.
struct MWPTypeMessage {
  std::string strText1;  ///< not filled in
  int nValue1 = 3;       ///< not filled in
  std::string strText2;  ///< not filled in
  std::string strText3;  ///< not filled in
  std::string strText4;  ///< not filled in
  std::string strText5;  ///< not filled in
  std::string strText6;  ///< not filled in
  int nValue2 = 1;       ///< not filled in
};

/// A folder or track found while browsing the player.
struct MWPTypeMediaItem {
  std::string strUid;      ///< the id that MWPBtMedia::PlayItem and FolderDown take
  std::string strName;     ///< name to show
  int nType = 0;           ///< AVRCP item type: 1 player, 2 folder, 3 track
  bool bPlayable = false;  ///< a folder may be playable as well
};

/// A device found by a search.
struct MWPTypeScanDevice {
  std::string strAddr;                                               ///< Bluetooth address
  std::string strName;                                               ///< the name the device gives itself
  MWPBtType::SupportType eSupportType = MWPBtType::BT_SUPPORT_NONE;  ///< what it supports
};

/// A low-energy device found by a search.
struct MWPTypeBleDevice {
  std::string strAddr;             ///< Bluetooth address
  std::string strName;             ///< the name the device gives itself
  unsigned char nAddressType = 0;  ///< 0 public, 1 random
  int nRssi = 0;                   ///< signal strength in dBm
};

/// A GATT service of the connected low-energy device.
struct MWPTypeGattService {
  std::string strUuid;              ///< UUID of the service
  unsigned short nStartHandle = 0;  ///< first handle of its attributes
  unsigned short nEndHandle = 0;    ///< last handle of its attributes
};

#endif
