#include "service/simulation/world/Words.h"

#include "protocol/Words.h"

namespace btservice {
namespace {

/// The words for some values of an enumeration: those that make sense in a world.
template <typename Enum>
WordList<Enum> WordsFor(const EnumWords& words, std::initializer_list<Enum> values) {
  WordList<Enum> list;
  for (const Enum value : values) {
    list.emplace_back(words.WordFor(value), value);
  }
  return list;
}

/// The words for all values of an enumeration.
template <typename Enum>
WordList<Enum> AllWords(const EnumWords& words) {
  WordList<Enum> list;
  for (const EnumWord& word : words.Words()) {
    list.emplace_back(word.text, static_cast<Enum>(word.value));
  }
  return list;
}

}  // namespace

template <>
const WordList<ProfileId>& WordsOf() {
  static const WordList<ProfileId> words =
      WordsFor(EnumWordsOf<ProfileId>(), {BT_PROFILE_HFP, BT_PROFILE_A2DP, BT_PROFILE_AVRCP, BT_PROFILE_PBAP,
                                          BT_PROFILE_MAP, BT_PROFILE_SPP, BT_PROFILE_HID, BT_PROFILE_PAN});
  return words;
}

template <>
const WordList<SupportType>& WordsOf() {
  static const WordList<SupportType> words = AllWords<SupportType>(EnumWordsOf<SupportType>());
  return words;
}

template <>
const WordList<PairRequestState>& WordsOf() {
  static const WordList<PairRequestState> words = AllWords<PairRequestState>(EnumWordsOf<PairRequestState>());
  return words;
}

template <>
const WordList<CodecMode>& WordsOf() {
  static const WordList<CodecMode> words =
      WordsFor(EnumWordsOf<CodecMode>(), {BT_CODEC_CVSD, BT_CODEC_MSBC, BT_CODEC_LC3_SWB});
  return words;
}

template <>
const WordList<CallLogType>& WordsOf() {
  static const WordList<CallLogType> words =
      WordsFor(EnumWordsOf<CallLogType>(), {CALL_LOG_INCOMING, CALL_LOG_OUTGOING, CALL_LOG_MISSED});
  return words;
}

template <>
const WordList<NumberType>& WordsOf() {
  static const WordList<NumberType> words = AllWords<NumberType>(NumberTypeWords());
  return words;
}

template <>
const WordList<MsgStatus>& WordsOf() {
  static const WordList<MsgStatus> words = AllWords<MsgStatus>(EnumWordsOf<MsgStatus>());
  return words;
}

template <>
const WordList<CalledParty>& WordsOf() {
  static const WordList<CalledParty> words{
      {"answers", CalledParty::ANSWERS}, {"busy", CalledParty::BUSY}, {"no-answer", CalledParty::NO_ANSWER}};
  return words;
}

template <>
const WordList<HappeningKind>& WordsOf() {
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

template <>
const PairRequestState* FindWord(const std::string& word) {
  const std::string today = word == "pin" ? "pin-code" : word;
  for (const auto& [name, value] : WordsOf<PairRequestState>()) {
    if (name == today) {
      return &value;
    }
  }
  return nullptr;
}

}  // namespace btservice
