#include "service/world/Words.h"

namespace btservice {

const WordList<ProfileId>& WordsOf(ProfileId) {
  static const WordList<ProfileId> words{{"hfp", BT_PROFILE_HFP},     {"a2dp", BT_PROFILE_A2DP},
                                         {"avrcp", BT_PROFILE_AVRCP}, {"pbap", BT_PROFILE_PBAP},
                                         {"map", BT_PROFILE_MAP},     {"spp", BT_PROFILE_SPP},
                                         {"hid", BT_PROFILE_HID},     {"pan", BT_PROFILE_PAN}};
  return words;
}

const WordList<SupportType>& WordsOf(SupportType) {
  static const WordList<SupportType> words{{"none", BT_SUPPORT_NONE},
                                           {"android-auto", BT_SUPPORT_ANDROID_AUTO},
                                           {"phone-link", BT_SUPPORT_PHONE_LINK},
                                           {"serial-accessory", BT_SUPPORT_SERIAL_ACCESSORY}};
  return words;
}

const WordList<PairRequestState>& WordsOf(PairRequestState) {
  static const WordList<PairRequestState> words{{"confirmation", BT_PAIR_REQUEST_CONFIRMATION},
                                                {"passkey-entry", BT_PAIR_REQUEST_PASSKEY_ENTRY},
                                                {"passkey-display", BT_PAIR_REQUEST_PASSKEY_DISPLAY},
                                                {"pin", BT_PAIR_REQUEST_PIN_CODE},
                                                {"just-works", BT_PAIR_REQUEST_JUST_WORKS}};
  return words;
}

const WordList<CodecMode>& WordsOf(CodecMode) {
  static const WordList<CodecMode> words{
      {"cvsd", BT_CODEC_CVSD}, {"msbc", BT_CODEC_MSBC}, {"lc3-swb", BT_CODEC_LC3_SWB}};
  return words;
}

const WordList<CalledParty>& WordsOf(CalledParty) {
  static const WordList<CalledParty> words{
      {"answers", CalledParty::ANSWERS}, {"busy", CalledParty::BUSY}, {"no-answer", CalledParty::NO_ANSWER}};
  return words;
}

const WordList<CallLogType>& WordsOf(CallLogType) {
  static const WordList<CallLogType> words{
      {"incoming", CALL_LOG_INCOMING}, {"outgoing", CALL_LOG_OUTGOING}, {"missed", CALL_LOG_MISSED}};
  return words;
}

const WordList<NumberType>& WordsOf(NumberType) {
  static const WordList<NumberType> words{
      {"other", NUMBER_OTHER}, {"mobile", NUMBER_MOBILE}, {"home", NUMBER_HOME}, {"work", NUMBER_WORK}};
  return words;
}

const WordList<MsgStatus>& WordsOf(MsgStatus) {
  static const WordList<MsgStatus> words{{"new", BT_MSG_NEW},
                                         {"delivered", BT_MSG_DELIVERED},
                                         {"sent", BT_MSG_SENT},
                                         {"delivery-failed", BT_MSG_DELIVERY_FAILED},
                                         {"sending-failed", BT_MSG_SENDING_FAILED},
                                         {"memory-full", BT_MSG_MEMORY_FULL},
                                         {"memory-available", BT_MSG_MEMORY_AVAILABLE},
                                         {"deleted", BT_MSG_DELETED},
                                         {"shifted", BT_MSG_SHIFTED}};
  return words;
}

const WordList<HappeningKind>& WordsOf(HappeningKind) {
  static const WordList<HappeningKind> words{{"arrive", HappeningKind::ARRIVE},
                                             {"leave", HappeningKind::LEAVE},
                                             {"lose-link", HappeningKind::LOSE_LINK},
                                             {"request-pairing", HappeningKind::REQUEST_PAIRING},
                                             {"reject-pairing", HappeningKind::REJECT_PAIRING},
                                             {"connect", HappeningKind::CONNECT},
                                             {"disconnect", HappeningKind::DISCONNECT},
                                             {"request-projection", HappeningKind::REQUEST_PROJECTION},
                                             {"call", HappeningKind::CALL},
                                             {"answer-call", HappeningKind::ANSWER_CALL},
                                             {"hang-up", HappeningKind::HANG_UP},
                                             {"called-party", HappeningKind::CALLED_PARTY},
                                             {"signal", HappeningKind::SIGNAL},
                                             {"battery", HappeningKind::BATTERY},
                                             {"operator", HappeningKind::OPERATOR},
                                             {"roaming", HappeningKind::ROAMING},
                                             {"play", HappeningKind::PLAY},
                                             {"pause", HappeningKind::PAUSE},
                                             {"message", HappeningKind::MESSAGE},
                                             {"serial", HappeningKind::SERIAL}};
  return words;
}

}  // namespace btservice
