#include "btctl/words/Words.h"

namespace btctl {

using namespace MWPBtType;

std::vector<const WordTable*> AllWordTables() {
  return {&WordsOf<PowerStatus>(),      &WordsOf<Capability>(),       &WordsOf<Attribute>(),
          &WordsOf<ProfileId>(),        &WordsOf<ProfileVersion>(),   &WordsOf<ConnStatus>(),
          &WordsOf<PairStatus>(),       &WordsOf<PairFailedReson>(),  &WordsOf<PairRequestState>(),
          &WordsOf<ScanStatus>(),       &WordsOf<SupportType>(),      &WordsOf<HUStatus>(),
          &WordsOf<CallStatus>(),       &WordsOf<CallAction>(),       &WordsOf<AudioStatus>(),
          &WordsOf<CodecMode>(),        &WordsOf<MusicPlayStatus>(),  &WordsOf<SupportAvrcpEvent>(),
          &WordsOf<BrowserScopeType>(), &WordsOf<PbapType>(),         &WordsOf<PbapStatus>(),
          &WordsOf<CallLogType>(),      &WordsOf<MsgLoadStatus>(),    &WordsOf<MsgStatus>(),
          &WordsOf<SetMsgProStatus>(),  &WordsOf<MWPBtMessageType>(), &WordsOf<HIDTYPE>(),
          &WordsOf<BleScanMode>(),      &WordsOf<BleScanFilter>(),    &WordsOf<SmpEvent>()};
}

const WordTable& SwitchWords() {
  static const WordTable words("switch", {{0, "off"}, {1, "on"}});
  return words;
}

const WordTable& NumberTypeWords() {
  static const WordTable words(::NumberTypeWords());
  return words;
}

const WordTable& PlayModeWords() {
  static const WordTable words("play mode", {{1, "equalizer"}, {2, "repeat"}, {3, "shuffle"}, {4, "scan"}});
  return words;
}

}  // namespace btctl
