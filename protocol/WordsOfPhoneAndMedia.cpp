#include "protocol/Words.h"

using namespace MWPBtType;

template <>
const EnumWords& EnumWordsOf<CallStatus>() {
  static const EnumWords words("MWPBtType::CallStatus", {{BT_CALL_IDLE, "idle"},
                                                         {BT_CALL_ACTIVE, "active"},
                                                         {BT_CALL_HELD, "held"},
                                                         {BT_CALL_DIALING, "dialing"},
                                                         {BT_CALL_ALERTING, "alerting"},
                                                         {BT_CALL_INCOMING, "incoming"},
                                                         {BT_CALL_WAITING, "waiting"},
                                                         {BT_CALL_RESPONSE_HELD, "response-held"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<CallAction>() {
  static const EnumWords words("MWPBtType::CallAction", {{BT_CALL_RELEASE_HELD, "release-held"},
                                                         {BT_CALL_RELEASE_ACTIVE, "release-active"},
                                                         {BT_CALL_HOLD_ACTIVE, "swap"},
                                                         {BT_CALL_CONFERENCE, "conference"},
                                                         {BT_CALL_TRANSFER, "transfer"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<AudioStatus>() {
  static const EnumWords words("MWPBtType::AudioStatus", {{BT_AUDIO_DISCONNECTED, "disconnected"},
                                                          {BT_AUDIO_CONNECTING, "connecting"},
                                                          {BT_AUDIO_CONNECTED, "connected"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<CodecMode>() {
  static const EnumWords words("MWPBtType::CodecMode", {{BT_CODEC_NONE, "none"},
                                                        {BT_CODEC_CVSD, "cvsd"},
                                                        {BT_CODEC_MSBC, "msbc"},
                                                        {BT_CODEC_LC3_SWB, "lc3-swb"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<MusicPlayStatus>() {
  static const EnumWords words("MWPBtType::MusicPlayStatus", {{BT_MUSIC_STOPPED, "stopped"},
                                                              {BT_MUSIC_PLAYING, "playing"},
                                                              {BT_MUSIC_PAUSED, "paused"},
                                                              {BT_MUSIC_FAST_FORWARD, "fast-forward"},
                                                              {BT_MUSIC_FAST_REVERSE, "fast-reverse"},
                                                              {BT_MUSIC_ERROR, "error"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<SupportAvrcpEvent>() {
  static const EnumWords words(
      "MWPBtType::SupportAvrcpEvent",
      {{BT_AVRCP_EVENT_NONE, "none"},
       {BT_AVRCP_EVENT_PLAYBACK_STATUS_CHANGED, "playback-status-changed"},
       {BT_AVRCP_EVENT_TRACK_CHANGED, "track-changed"},
       {BT_AVRCP_EVENT_TRACK_REACHED_END, "track-reached-end"},
       {BT_AVRCP_EVENT_TRACK_REACHED_START, "track-reached-start"},
       {BT_AVRCP_EVENT_PLAYBACK_POS_CHANGED, "playback-pos-changed"},
       {BT_AVRCP_EVENT_BATT_STATUS_CHANGED, "batt-status-changed"},
       {BT_AVRCP_EVENT_SYSTEM_STATUS_CHANGED, "system-status-changed"},
       {BT_AVRCP_EVENT_PLAYER_APPLICATION_SETTING_CHANGED, "player-application-setting-changed"},
       {BT_AVRCP_EVENT_NOW_PLAYING_CONTENT_CHANGED, "now-playing-content-changed"},
       {BT_AVRCP_EVENT_AVAILABLE_PLAYERS_CHANGED, "available-players-changed"},
       {BT_AVRCP_EVENT_ADDRESSED_PLAYER_CHANGED, "addressed-player-changed"},
       {BT_AVRCP_EVENT_UIDS_CHANGED, "uids-changed"},
       {BT_AVRCP_EVENT_VOLUME_CHANGED, "volume-changed"}});
  return words;
}

template <>
const EnumWords& EnumWordsOf<BrowserScopeType>() {
  static const EnumWords words("MWPBtType::BrowserScopeType", {{BT_BROWSER_PLAYER_LIST, "player-list"},
                                                               {BT_BROWSER_FILE_SYSTEM, "file-system"},
                                                               {BT_BROWSER_SEARCH, "search"},
                                                               {BT_BROWSER_NOW_PLAYING, "now-playing"}});
  return words;
}
