#include "protocol/Words.h"

using namespace MWPBtType;

template <>
const EnumWords& EnumWordsOf<PbapType>() {
  static const EnumWords words("MWPBtType::PbapType", {{BT_PBAP_PHONE_BOOK, "phone-book"},
                                                       {BT_PBAP_INCOMING_HISTORY, "incoming"},
                                                       {BT_PBAP_OUTGOING_HISTORY, "outgoing"},
                                                       {BT_PBAP_MISSED_HISTORY, "missed"},
                                                       {BT_PBAP_COMBINED_HISTORY, "combined"},
                                                       {BT_PBAP_SIM_PHONE_BOOK, "sim-phone-book"},
                                                       {BT_PBAP_ALL, "all"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<PbapStatus>() {
  static const EnumWords words("MWPBtType::PbapStatus", {{BT_PBAP_IDLE, "idle"},
                                                         {BT_PBAP_CONNECTING, "connecting"},
                                                         {BT_PBAP_DOWNLOADING, "downloading"},
                                                         {BT_PBAP_COMPLETED, "completed"},
                                                         {BT_PBAP_STOPPED, "stopped"},
                                                         {BT_PBAP_FAILED, "failed"},
                                                         {BT_PBAP_REFUSED, "refused"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<CallLogType>() {
  static const EnumWords words("CallLogType", {{CALL_LOG_ALL, "all"},
                                               {CALL_LOG_INCOMING, "incoming"},
                                               {CALL_LOG_OUTGOING, "outgoing"},
                                               {CALL_LOG_MISSED, "missed"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<MsgLoadStatus>() {
  static const EnumWords words("MWPBtType::MsgLoadStatus", {{BT_MSG_LOAD_IDLE, "idle"},
                                                            {BT_MSG_LOAD_CONNECTING, "connecting"},
                                                            {BT_MSG_LOAD_CONNECTED, "connected"},
                                                            {BT_MSG_LOAD_DOWNLOADING, "downloading"},
                                                            {BT_MSG_LOAD_COMPLETED, "completed"},
                                                            {BT_MSG_LOAD_STOPPED, "stopped"},
                                                            {BT_MSG_LOAD_FAILED, "failed"},
                                                            {BT_MSG_LOAD_REFUSED, "refused"},
                                                            {BT_MSG_LOAD_NOT_SUPPORTED, "not-supported"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<MsgStatus>() {
  static const EnumWords words("MWPBtType::MsgStatus", {{BT_MSG_NEW, "new"},
                                                        {BT_MSG_DELIVERED, "delivered"},
                                                        {BT_MSG_SENT, "sent"},
                                                        {BT_MSG_DELIVERY_FAILED, "delivery-failed"},
                                                        {BT_MSG_SENDING_FAILED, "sending-failed"},
                                                        {BT_MSG_MEMORY_FULL, "memory-full"},
                                                        {BT_MSG_MEMORY_AVAILABLE, "memory-available"},
                                                        {BT_MSG_DELETED, "deleted"},
                                                        {BT_MSG_SHIFTED, "shifted"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<SetMsgProStatus>() {
  static const EnumWords words("MWPBtType::SetMsgProStatus",
                               {{BT_MSG_SET_FAILED, "failed"}, {BT_MSG_SET_OK, "ok"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<MWPBtMessageType>() {
  static const EnumWords words("MWPBtMessageType", {{MESSAGE_INBOX, "inbox"},
                                                    {MESSAGE_OUTBOX, "outbox"},
                                                    {MESSAGE_SENT, "sent"},
                                                    {MESSAGE_DRAFT, "draft"},
                                                    {MESSAGE_DELETED, "deleted"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<HIDTYPE>() {
  static const EnumWords words("MWPBtType::HIDTYPE",
                               {{BT_HID_TOUCH, "touch"}, {BT_HID_MOUSE, "mouse"}, {BT_HID_KEY, "key"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<BleScanMode>() {
  static const EnumWords words("MWPBtType::BleScanMode", {{BT_BLE_SCAN_LOW_POWER, "low-power"},
                                                          {BT_BLE_SCAN_BALANCED, "balanced"},
                                                          {BT_BLE_SCAN_LOW_LATENCY, "low-latency"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<BleScanFilter>() {
  static const EnumWords words("MWPBtType::BleScanFilter",
                               {{BT_BLE_FILTER_NONE, "none"}, {BT_BLE_FILTER_WHITELIST, "whitelist"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<SmpEvent>() {
  static const EnumWords words("MWPBtType::SmpEvent", {{BT_SMP_PASSKEY_REQUEST, "passkey-request"},
                                                       {BT_SMP_PASSKEY_DISPLAY, "passkey-display"},
                                                       {BT_SMP_NUMERIC_COMPARISON, "numeric-comparison"},
                                                       {BT_SMP_JUST_WORKS, "just-works"},
                                                       {BT_SMP_COMPLETED, "completed"},
                                                       {BT_SMP_FAILED, "failed"}});
  return words;
}
