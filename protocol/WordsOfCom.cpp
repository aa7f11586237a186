#include "protocol/Words.h"

using namespace MWPBtType;

template <>
const EnumWords& EnumWordsOf<PowerStatus>() {
  static const EnumWords words("MWPBtType::PowerStatus", {{BT_POWER_OFF, "off"},
                                                          {BT_POWER_ON, "on"},
                                                          {BT_POWER_TURNING_OFF, "turning-off"},
                                                          {BT_POWER_TURNING_ON, "turning-on"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<Capability>() {
  static const EnumWords words("MWPBtType::Capability", {{BT_CAP_POWER_SWITCH, "power-switch"},
                                                         {BT_CAP_AUTO_CONNECT, "auto-connect"},
                                                         {BT_CAP_AUTO_ANSWER, "auto-answer"},
                                                         {BT_CAP_AUTO_REJECT_INCALL, "auto-reject"},
                                                         {BT_CAP_RESERVED4, "reserved4"},
                                                         {BT_CAP_RESERVED5, "reserved5"},
                                                         {BT_CAP_RESERVED6, "reserved6"},
                                                         {BT_CAP_AUTO_DOWNLOAD, "auto-download"},
                                                         {BT_CAP_RESERVED8, "reserved8"},
                                                         {BT_CAP_ENABLE_SCAN, "visible"},
                                                         {BT_CAP_LOCAL_RING, "local-ring"},
                                                         {BT_CAP_PARAMETER_LOADED, "settings-loaded"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<Attribute>() {
  static const EnumWords words("MWPBtType::Attribute", {{BT_ATTR_LOCAL_NAME, "local-name"},
                                                        {BT_ATTR_LOCAL_ADDRESS, "local-address"},
                                                        {BT_ATTR_PIN_CODE, "pin-code"},
                                                        {BT_ATTR_STACK_VERSION, "stack-version"},
                                                        {BT_ATTR_CLASS_OF_DEVICE, "class-of-device"},
                                                        {BT_ATTR_DOWNLOAD_FOLDER, "download-folder"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<ProfileId>() {
  static const EnumWords words("MWPBtType::ProfileId", {{BT_PROFILE_NONE, "none"},
                                                        {BT_PROFILE_HFP, "hfp"},
                                                        {BT_PROFILE_A2DP, "a2dp"},
                                                        {BT_PROFILE_HFP_A2DP, "hfp-a2dp"},
                                                        {BT_PROFILE_AVRCP, "avrcp"},
                                                        {BT_PROFILE_PBAP, "pbap"},
                                                        {BT_PROFILE_MAP, "map"},
                                                        {BT_PROFILE_SPP, "spp"},
                                                        {BT_PROFILE_HID, "hid"},
                                                        {BT_PROFILE_PAN, "pan"},
                                                        {BT_PROFILE_GATT, "gatt"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<ProfileVersion>() {
  static const EnumWords words("MWPBtType::ProfileVersion", {{BT_PROFILE_VERSION_UNKNOWN, "unknown"},
                                                             {BT_PROFILE_VERSION_1_0, "1.0"},
                                                             {BT_PROFILE_VERSION_1_1, "1.1"},
                                                             {BT_PROFILE_VERSION_1_2, "1.2"},
                                                             {BT_PROFILE_VERSION_1_3, "1.3"},
                                                             {BT_PROFILE_VERSION_1_4, "1.4"},
                                                             {BT_PROFILE_VERSION_1_5, "1.5"},
                                                             {BT_PROFILE_VERSION_1_6, "1.6"},
                                                             {BT_PROFILE_VERSION_1_7, "1.7"},
                                                             {BT_PROFILE_VERSION_1_8, "1.8"},
                                                             {BT_PROFILE_VERSION_1_9, "1.9"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<ConnStatus>() {
  static const EnumWords words("MWPBtType::ConnStatus", {{BT_CONN_DISCONNECTED, "disconnected"},
                                                         {BT_CONN_CONNECTING, "connecting"},
                                                         {BT_CONN_CONNECTED, "connected"},
                                                         {BT_CONN_DISCONNECTING, "disconnecting"},
                                                         {BT_CONN_FAILED, "failed"},
                                                         {BT_CONN_LINK_LOST, "link-lost"},
                                                         {BT_CONN_UNKNOWN, "unknown"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<PairStatus>() {
  static const EnumWords words("MWPBtType::PairStatus", {{BT_PAIR_NONE, "none"},
                                                         {BT_PAIR_PAIRING, "pairing"},
                                                         {BT_PAIR_PAIRED, "paired"},
                                                         {BT_PAIR_FAILED, "failed"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<PairFailedReson>() {
  static const EnumWords words("MWPBtType::PairFailedReson",
                               {{BT_PAIR_REASON_NONE, "none"},
                                {BT_PAIR_REASON_AUTHENTICATION, "authentication"},
                                {BT_PAIR_REASON_REJECTED_REMOTE, "rejected-remote"},
                                {BT_PAIR_REASON_REJECTED_LOCAL, "rejected-local"},
                                {BT_PAIR_REASON_TIMEOUT, "timeout"},
                                {BT_PAIR_REASON_UNREACHABLE, "unreachable"},
                                {BT_PAIR_REASON_LIST_FULL, "list-full"},
                                {BT_PAIR_REASON_BUSY, "busy"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<PairRequestState>() {
  static const EnumWords words("MWPBtType::PairRequestState",
                               {{BT_PAIR_REQUEST_CONFIRMATION, "confirmation"},
                                {BT_PAIR_REQUEST_PASSKEY_ENTRY, "passkey-entry"},
                                {BT_PAIR_REQUEST_PASSKEY_DISPLAY, "passkey-display"},
                                {BT_PAIR_REQUEST_PIN_CODE, "pin-code"},
                                {BT_PAIR_REQUEST_JUST_WORKS, "just-works"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<ScanStatus>() {
  static const EnumWords words("MWPBtType::ScanStatus",
                               {{BT_SCAN_IDLE, "idle"}, {BT_SCAN_SCANNING, "scanning"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<SupportType>() {
  static const EnumWords words("MWPBtType::SupportType", {{BT_SUPPORT_NONE, "none"},
                                                          {BT_SUPPORT_ANDROID_AUTO, "android-auto"},
                                                          {BT_SUPPORT_PHONE_LINK, "phone-link"},
                                                          {BT_SUPPORT_SERIAL_ACCESSORY, "serial-accessory"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<HUStatus>() {
  static const EnumWords words("MWPBtType::HUStatus", {{BT_HU_READY, "ready"},
                                                       {BT_HU_ALREADY_PAIRED, "already-paired"},
                                                       {BT_HU_BUSY, "busy"},
                                                       {BT_HU_FAILED, "failed"}});
  return words;
}
