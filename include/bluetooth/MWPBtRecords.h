#ifndef BLUETOOTH_MWPBTRECORDS_H
#define BLUETOOTH_MWPBTRECORDS_H

#include <list>
#include <string>
#include <vector>

#include <bluetooth/MWPBtType.h>

// The records of the interface: plain values that own their strings and containers. All text is UTF-8. A
// Bluetooth address is text of 17 characters, six pairs of hexadecimal digits separated by ':'.

/// A paired or connected remote device.
struct MWPTypeDevice {
  std::string strAddr;                    ///< Bluetooth address
  std::string strName;                    ///< the name the device gives itself
  std::vector<std::string> vecExtraInfo;  ///< free for the application; the library leaves it empty
  MWPBtType::SupportType eSupportType = MWPBtType::BT_SUPPORT_NONE;
  MWPBtType::ProfileId eProfileId = MWPBtType::BT_PROFILE_NONE;            ///< connected profiles
  MWPBtType::ProfileId eEnableProfileId = MWPBtType::BT_PROFILE_HFP_A2DP;  ///< profiles it may connect
  MWPBtType::ConnStatus eConnectStatus = MWPBtType::BT_CONN_DISCONNECTED;
};

/// The numbers of one kind in a contact (home, work, mobile, ...).
struct MWPTypeContactNumber {
  int nType = 0;  ///< kind of number, as numbered by the service
  std::vector<std::string> vecValues;
};

/// One entry of the phone book.
struct MWPTypeContact {
  int nContactId = -1;  ///< the id that MWPBtPbap::DeleteContactById and SetContactFavorite take
  std::string strText1;
  std::string strText2;
  std::list<MWPTypeContactNumber> listNumbers;
};

/// One entry of a call log. Its texts and values are carried as the service wrote them.
struct MWPTypeCallLog {
  int nLogId = 0;  ///< the id that MWPBtPbap::DeleteCallLogById takes
  std::string strText1;
  std::string strText2;
  std::string strText3;
  std::string strText4;
  std::string strText5;
  int nValue1 = -1;
  int nValue2 = 6;
};

/// One of the two calls that a phone can hold at a time.
struct MWPTypeCallSlot {
  int nValue1 = 0;
  int nValue2 = 0;
  int nValue3 = 0;
  int nValue4 = 0;
  std::string strText1;
  std::string strText2;
  std::string strText3;
  int nValue5 = 0;
};

/// The current calls. Both slots are read, whatever nCallCount says.
struct MWPTypeCallInfo {
  int nCallCount = 0;
  MWPTypeCallSlot callSlot1;
  MWPTypeCallSlot callSlot2;
};

/// The track being played. Everything is text as the player sent it; duration is in milliseconds.
struct MWPTypeMediaInfo {
  std::string title;
  std::string artist;
  std::string album;
  std::string track;        ///< number of the track
  std::string numOfTracks;  ///< tracks in the album or queue
  std::string genre;
  std::string duration;
};

/// A player setting and its value, each within one byte; the AVRCP attribute and value ids (attribute 1
/// equaliser, 2 repeat, 3 shuffle, 4 scan).
struct MWPTypePlayMode {
  int nType = 0;
  int nValue = 0;
};

/// Connection state of the phone or of the player.
struct MWPTypeConnectionState {
  int status = MWPBtType::BT_CONN_UNKNOWN;  ///< an MWPBtType::ConnStatus
  std::string address;                      ///< the device, empty if there is none
};

/// A message. Its texts and values are carried as the service wrote them.
struct MWPTypeMessage {
  std::string strText1;
  int nValue1 = 3;
  std::string strText2;
  std::string strText3;
  std::string strText4;
  std::string strText5;
  std::string strText6;
  int nValue2 = 1;
};

/// A folder or track met while browsing the player.
struct MWPTypeMediaItem {
  std::string strUid;      ///< the id that MWPBtMedia::PlayItem and FolderDown take
  std::string strName;     ///< name to show
  int nType = 0;           ///< AVRCP item type: 1 player, 2 folder, 3 track
  bool bPlayable = false;  ///< a folder may be playable as well
};

/// A device found by a search.
struct MWPTypeScanDevice {
  std::string strAddr;
  std::string strName;
  MWPBtType::SupportType eSupportType = MWPBtType::BT_SUPPORT_NONE;
};

/// A low-energy device found by a search.
struct MWPTypeBleDevice {
  std::string strAddr;
  std::string strName;
  unsigned char nAddressType = 0;  ///< 0 public, 1 random
  int nRssi = 0;                   ///< signal strength in dBm
};

/// A GATT service of the connected low-energy device.
struct MWPTypeGattService {
  std::string strUuid;
  unsigned short nStartHandle = 0;
  unsigned short nEndHandle = 0;
};

#endif
