#ifndef TOOLS_BTCTL_WORDS_WORDS_H
#define TOOLS_BTCTL_WORDS_WORDS_H

#include <vector>

#include <bluetooth/MWPBtType.h>

#include "btctl/words/WordTable.h"

namespace btctl {

/// The words for the values of an enumeration of the interface.
template <typename Enumeration>
const WordTable& WordsOf();

// clang-format off
template <> const WordTable& WordsOf<MWPBtType::PowerStatus>();
template <> const WordTable& WordsOf<MWPBtType::Capability>();
template <> const WordTable& WordsOf<MWPBtType::Attribute>();
template <> const WordTable& WordsOf<MWPBtType::ProfileId>();
template <> const WordTable& WordsOf<MWPBtType::ProfileVersion>();
template <> const WordTable& WordsOf<MWPBtType::ConnStatus>();
template <> const WordTable& WordsOf<MWPBtType::PairStatus>();
template <> const WordTable& WordsOf<MWPBtType::PairFailedReson>();
template <> const WordTable& WordsOf<MWPBtType::PairRequestState>();
template <> const WordTable& WordsOf<MWPBtType::ScanStatus>();
template <> const WordTable& WordsOf<MWPBtType::SupportType>();
template <> const WordTable& WordsOf<MWPBtType::HUStatus>();

template <> const WordTable& WordsOf<MWPBtType::CallStatus>();
template <> const WordTable& WordsOf<MWPBtType::CallAction>();
template <> const WordTable& WordsOf<MWPBtType::AudioStatus>();
template <> const WordTable& WordsOf<MWPBtType::CodecMode>();

template <> const WordTable& WordsOf<MWPBtType::MusicPlayStatus>();
template <> const WordTable& WordsOf<MWPBtType::SupportAvrcpEvent>();
template <> const WordTable& WordsOf<MWPBtType::BrowserScopeType>();

template <> const WordTable& WordsOf<MWPBtType::PbapType>();
template <> const WordTable& WordsOf<MWPBtType::PbapStatus>();
template <> const WordTable& WordsOf<CallLogType>();

template <> const WordTable& WordsOf<MWPBtType::MsgLoadStatus>();
template <> const WordTable& WordsOf<MWPBtType::MsgStatus>();
template <> const WordTable& WordsOf<MWPBtType::SetMsgProStatus>();
template <> const WordTable& WordsOf<MWPBtMessageType>();

template <> const WordTable& WordsOf<MWPBtType::HIDTYPE>();
template <> const WordTable& WordsOf<MWPBtType::BleScanMode>();
template <> const WordTable& WordsOf<MWPBtType::BleScanFilter>();
template <> const WordTable& WordsOf<MWPBtType::SmpEvent>();
// clang-format on

/// All of the above.
std::vector<const WordTable*> AllWordTables();

/// Off and on, for a 0 or 1 that is a switch.
const WordTable& SwitchWords();
/// The kinds of number in a phone book: MWPTypeContactNumber::nType.
const WordTable& NumberTypeWords();
/// The settings of a player: MWPTypePlayMode::nType.
const WordTable& PlayModeWords();

}  // namespace btctl

#endif
