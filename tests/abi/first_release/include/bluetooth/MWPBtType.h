#ifndef BLUETOOTH_MWPBTTYPE_H
#define BLUETOOTH_MWPBTTYPE_H

/// The enumerations of the interface. All are plain enumerations over int, and every value lies in 0..255,
/// since each travels to and from the Bluetooth service as one byte. A value that is not listed here is
/// passed on as it came: be prepared for it in a switch.
namespace MWPBtType {

/// Power of the local adapter. MWPBtCom::SetPower takes ON and TURNING_ON as "already on", OFF and
/// TURNING_OFF as "already off".
enum PowerStatus : int {
  BT_POWER_OFF = 0,
  BT_POWER_ON = 1,
  BT_POWER_TURNING_OFF = 2,
  BT_POWER_TURNING_ON = 3,
};

/// Switches of the adapter that are kept in the parameter segment (MWPBtCom::GetCapability). Their value is
/// 0 or 1; a reserved capability always reads 0.
enum Capability : int {
  BT_CAP_POWER_SWITCH = 0,        ///< power up with the head unit
  BT_CAP_AUTO_CONNECT = 1,        ///< connect paired devices without being asked
  BT_CAP_AUTO_ANSWER = 2,         ///< accept incoming calls without being asked
  BT_CAP_AUTO_REJECT_INCALL = 3,  ///< reject incoming calls without being asked
  BT_CAP_RESERVED4 = 4,
  BT_CAP_RESERVED5 = 5,
  BT_CAP_RESERVED6 = 6,
  BT_CAP_AUTO_DOWNLOAD = 7,  ///< download the phone book once a phone connects
  BT_CAP_RESERVED8 = 8,
  BT_CAP_ENABLE_SCAN = 9,        ///< be visible to other devices
  BT_CAP_LOCAL_RING = 10,        ///< play the head unit's own ring tone instead of the phone's
  BT_CAP_PARAMETER_LOADED = 11,  ///< the settings have been copied into the parameter segment
};

/// Text attributes of the adapter (MWPBtCom::GetAttribute, SetAttribute).
enum Attribute : int {
  BT_ATTR_LOCAL_NAME = 0,       ///< the name other devices see
  BT_ATTR_LOCAL_ADDRESS = 1,    ///< the adapter's own address; read only
  BT_ATTR_PIN_CODE = 2,         ///< the PIN offered to devices without Secure Simple Pairing
  BT_ATTR_STACK_VERSION = 3,    ///< version of the Bluetooth stack; read only
  BT_ATTR_CLASS_OF_DEVICE = 4,  ///< class of device, six hexadecimal digits
  BT_ATTR_DOWNLOAD_FOLDER = 5,  ///< where cover images are put
};

/// A Bluetooth profile, or the pair that a phone is usually connected with.
enum ProfileId : int {
  BT_PROFILE_NONE = 0,
  BT_PROFILE_HFP = 1,       ///< Hands-Free
  BT_PROFILE_A2DP = 2,      ///< Advanced Audio Distribution, together with remote control
  BT_PROFILE_HFP_A2DP = 3,  ///< both of the above: the set a new device is enabled for
  BT_PROFILE_AVRCP = 4,     ///< Audio/Video Remote Control
  BT_PROFILE_PBAP = 5,      ///< Phone Book Access
  BT_PROFILE_MAP = 6,       ///< Message Access
  BT_PROFILE_SPP = 7,       ///< Serial Port
  BT_PROFILE_HID = 8,       ///< Human Interface Device
  BT_PROFILE_PAN = 9,       ///< Personal Area Networking
  BT_PROFILE_GATT = 10,     ///< Generic Attribute, low energy
};

/// Version of a profile that a remote device offers.
enum ProfileVersion : int {
  BT_PROFILE_VERSION_UNKNOWN = 0,
  BT_PROFILE_VERSION_1_0 = 1,
  BT_PROFILE_VERSION_1_1 = 2,
  BT_PROFILE_VERSION_1_2 = 3,
  BT_PROFILE_VERSION_1_3 = 4,
  BT_PROFILE_VERSION_1_4 = 5,
  BT_PROFILE_VERSION_1_5 = 6,
  BT_PROFILE_VERSION_1_6 = 7,
  BT_PROFILE_VERSION_1_7 = 8,
  BT_PROFILE_VERSION_1_8 = 9,
  BT_PROFILE_VERSION_1_9 = 10,
};

/// State of the connection of one profile.
enum ConnStatus : int {
  BT_CONN_DISCONNECTED = 0,
  BT_CONN_CONNECTING = 1,
  BT_CONN_CONNECTED = 2,
  BT_CONN_DISCONNECTING = 3,
  BT_CONN_FAILED = 4,     ///< the last attempt to connect failed
  BT_CONN_LINK_LOST = 5,  ///< the link broke without being asked to
  BT_CONN_UNKNOWN = 6,    ///< nobody could be asked: the library or the service is not ready
};

/// State of a pairing.
enum PairStatus : int {
  BT_PAIR_NONE = 0,
  BT_PAIR_PAIRING = 1,
  BT_PAIR_PAIRED = 2,
  BT_PAIR_FAILED = 3,
};

/// Why a pairing failed (IMWPBtComListener::OnPairStatusChanged).
enum PairFailedReson : int {
  BT_PAIR_REASON_NONE = 0,
  BT_PAIR_REASON_AUTHENTICATION = 1,   ///< wrong PIN or key
  BT_PAIR_REASON_REJECTED_REMOTE = 2,  ///< refused on the other device
  BT_PAIR_REASON_REJECTED_LOCAL = 3,   ///< refused here
  BT_PAIR_REASON_TIMEOUT = 4,          ///< nobody answered the request
  BT_PAIR_REASON_UNREACHABLE = 5,      ///< the device did not answer the page
  BT_PAIR_REASON_LIST_FULL = 6,        ///< no room for a further paired device
  BT_PAIR_REASON_BUSY = 7,             ///< another pairing is under way
};

/// What a pairing asks of the user, and how the application answers it.
enum PairRequestState : int {
  BT_PAIR_REQUEST_CONFIRMATION = 0,     ///< compare six digits on both devices
  BT_PAIR_REQUEST_PASSKEY_ENTRY = 1,    ///< type the digits the other device shows
  BT_PAIR_REQUEST_PASSKEY_DISPLAY = 2,  ///< show the digits; the other device types them
  BT_PAIR_REQUEST_PIN_CODE = 3,         ///< legacy PIN
  BT_PAIR_REQUEST_JUST_WORKS = 4,       ///< yes or no, without digits
};

/// State of the search for devices.
enum ScanStatus : int {
  BT_SCAN_IDLE = 0,
  BT_SCAN_SCANNING = 1,
};

/// What a remote device supports beyond the plain profiles.
enum SupportType : int {
  BT_SUPPORT_NONE = 0,
  BT_SUPPORT_ANDROID_AUTO = 1,     ///< wireless projection
  BT_SUPPORT_PHONE_LINK = 2,       ///< screen link over a serial channel
  BT_SUPPORT_SERIAL_ACCESSORY = 3  ///< serial channel of a companion application
};

/// Answer of the head unit to a projection pairing request.
enum HUStatus : int {
  BT_HU_READY = 0,
  BT_HU_ALREADY_PAIRED = 1,
  BT_HU_BUSY = 2,
  BT_HU_FAILED = 3,
};

/// State of one call. From 1 on the order is that of the HFP result code +CLCC, shifted by one so that 0
/// can mean "no such call".
enum CallStatus : int {
  BT_CALL_IDLE = 0,
  BT_CALL_ACTIVE = 1,
  BT_CALL_HELD = 2,
  BT_CALL_DIALING = 3,
  BT_CALL_ALERTING = 4,
  BT_CALL_INCOMING = 5,
  BT_CALL_WAITING = 6,
  BT_CALL_RESPONSE_HELD = 7,
};

/// What to do with the calls. The numbering is that of the HFP command AT+CHLD.
enum CallAction : int {
  BT_CALL_RELEASE_HELD = 0,    ///< release all held calls, or reject the waiting one
  BT_CALL_RELEASE_ACTIVE = 1,  ///< release the active calls and accept the other, waiting or held
  BT_CALL_HOLD_ACTIVE = 2,     ///< hold the active calls and accept the other (swap, or resume)
  BT_CALL_CONFERENCE = 3,      ///< join the held call to the conversation
  BT_CALL_TRANSFER = 4,        ///< connect the two others and leave
};

/// Where the sound of a call is.
enum AudioStatus : int {
  BT_AUDIO_DISCONNECTED = 0,  ///< on the phone (private)
  BT_AUDIO_CONNECTING = 1,
  BT_AUDIO_CONNECTED = 2,  ///< on the head unit
};

/// Codec of the call audio; from 1 on the codec ids of HFP.
enum CodecMode : int {
  BT_CODEC_NONE = 0,
  BT_CODEC_CVSD = 1,     ///< narrow band, 8 kHz
  BT_CODEC_MSBC = 2,     ///< wide band, 16 kHz
  BT_CODEC_LC3_SWB = 3,  ///< super wide band, 32 kHz
};

/// State of the player; the values are those of AVRCP.
enum MusicPlayStatus : int {
  BT_MUSIC_STOPPED = 0,
  BT_MUSIC_PLAYING = 1,
  BT_MUSIC_PAUSED = 2,
  BT_MUSIC_FAST_FORWARD = 3,
  BT_MUSIC_FAST_REVERSE = 4,
  BT_MUSIC_ERROR = 255,
};

/// Notifications of AVRCP; from 1 on the event ids of that profile.
enum SupportAvrcpEvent : int {
  BT_AVRCP_EVENT_NONE = 0,
  BT_AVRCP_EVENT_PLAYBACK_STATUS_CHANGED = 1,
  BT_AVRCP_EVENT_TRACK_CHANGED = 2,
  BT_AVRCP_EVENT_TRACK_REACHED_END = 3,
  BT_AVRCP_EVENT_TRACK_REACHED_START = 4,
  BT_AVRCP_EVENT_PLAYBACK_POS_CHANGED = 5,
  BT_AVRCP_EVENT_BATT_STATUS_CHANGED = 6,
  BT_AVRCP_EVENT_SYSTEM_STATUS_CHANGED = 7,
  BT_AVRCP_EVENT_PLAYER_APPLICATION_SETTING_CHANGED = 8,
  BT_AVRCP_EVENT_NOW_PLAYING_CONTENT_CHANGED = 9,
  BT_AVRCP_EVENT_AVAILABLE_PLAYERS_CHANGED = 10,
  BT_AVRCP_EVENT_ADDRESSED_PLAYER_CHANGED = 11,
  BT_AVRCP_EVENT_UIDS_CHANGED = 12,
  BT_AVRCP_EVENT_VOLUME_CHANGED = 13,
};

/// What is browsed; the values are the scopes of AVRCP.
enum BrowserScopeType : int {
  BT_BROWSER_PLAYER_LIST = 0,
  BT_BROWSER_FILE_SYSTEM = 1,
  BT_BROWSER_SEARCH = 2,
  BT_BROWSER_NOW_PLAYING = 3,
};

/// What is downloaded from a phone; the repositories of PBAP.
enum PbapType : int {
  BT_PBAP_PHONE_BOOK = 0,        ///< pb, memory of the phone
  BT_PBAP_INCOMING_HISTORY = 1,  ///< ich
  BT_PBAP_OUTGOING_HISTORY = 2,  ///< och
  BT_PBAP_MISSED_HISTORY = 3,    ///< mch
  BT_PBAP_COMBINED_HISTORY = 4,  ///< cch
  BT_PBAP_SIM_PHONE_BOOK = 5,    ///< pb, memory of the SIM card
  BT_PBAP_ALL = 6,               ///< one after the other
};

/// State of a phone-book download.
enum PbapStatus : int {
  BT_PBAP_IDLE = 0,
  BT_PBAP_CONNECTING = 1,
  BT_PBAP_DOWNLOADING = 2,
  BT_PBAP_COMPLETED = 3,
  BT_PBAP_STOPPED = 4,  ///< as asked for by MWPBtPbap::StopPhoneBookDownload
  BT_PBAP_FAILED = 5,
  BT_PBAP_REFUSED = 6,  ///< the phone does not share its phone book
};

/// State of a message download (MWPBtMessage::GetMessageLoadStatus).
enum MsgLoadStatus : int {
  BT_MSG_LOAD_IDLE = 0,
  BT_MSG_LOAD_CONNECTING = 1,
  BT_MSG_LOAD_CONNECTED = 2,
  BT_MSG_LOAD_DOWNLOADING = 3,
  BT_MSG_LOAD_COMPLETED = 4,
  BT_MSG_LOAD_STOPPED = 5,
  BT_MSG_LOAD_FAILED = 6,
  BT_MSG_LOAD_REFUSED = 7,        ///< the phone does not share its messages
  BT_MSG_LOAD_NOT_SUPPORTED = 8,  ///< what MWPBtMessage::GetMessageLoadStatus always answers
};

/// What happened to a message; the order is that of the MAP event types.
enum MsgStatus : int {
  BT_MSG_NEW = 0,
  BT_MSG_DELIVERED = 1,
  BT_MSG_SENT = 2,
  BT_MSG_DELIVERY_FAILED = 3,
  BT_MSG_SENDING_FAILED = 4,
  BT_MSG_MEMORY_FULL = 5,
  BT_MSG_MEMORY_AVAILABLE = 6,
  BT_MSG_DELETED = 7,
  BT_MSG_SHIFTED = 8,  ///< moved to another folder
};

/// Outcome of a change of a message's properties.
enum SetMsgProStatus : int {
  BT_MSG_SET_FAILED = 0,
  BT_MSG_SET_OK = 1,
};

/// Kind of input that is sent to a phone over HID.
enum HIDTYPE : int {
  BT_HID_TOUCH = 0,  ///< absolute position
  BT_HID_MOUSE = 1,  ///< relative movement
  BT_HID_KEY = 2,
};

/// How eagerly low-energy devices are searched for.
enum BleScanMode : int {
  BT_BLE_SCAN_LOW_POWER = 0,
  BT_BLE_SCAN_BALANCED = 1,
  BT_BLE_SCAN_LOW_LATENCY = 2,
};

/// Which low-energy devices are reported.
enum BleScanFilter : int {
  BT_BLE_FILTER_NONE = 0,
  BT_BLE_FILTER_WHITELIST = 1,
};

/// What the low-energy Security Manager asks or reports.
enum SmpEvent : int {
  BT_SMP_PASSKEY_REQUEST = 0,  ///< type the digits the other device shows
  BT_SMP_PASSKEY_DISPLAY = 1,  ///< show the digits
  BT_SMP_NUMERIC_COMPARISON = 2,
  BT_SMP_JUST_WORKS = 3,
  BT_SMP_COMPLETED = 4,
  BT_SMP_FAILED = 5,
};

}  // namespace MWPBtType

/// Which call log is meant.
enum CallLogType : int {
  CALL_LOG_ALL = 0,
  CALL_LOG_INCOMING = 1,
  CALL_LOG_OUTGOING = 2,
  CALL_LOG_MISSED = 3,
};

/// Which folder of messages is meant.
enum MWPBtMessageType : int {
  MESSAGE_INBOX = 0,
  MESSAGE_OUTBOX = 1,
  MESSAGE_SENT = 2,
  MESSAGE_DRAFT = 3,
  MESSAGE_DELETED = 4,
};

#endif
