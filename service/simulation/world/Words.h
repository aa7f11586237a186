#ifndef SERVICE_SIMULATION_WORLD_WORDS_H
#define SERVICE_SIMULATION_WORLD_WORDS_H

#include "service/files/WordList.h"
#include "service/simulation/Timeline.h"

namespace btservice {

// The words in worlds and on the simulation's interfaces.

template <>
const WordList<ProfileId>& WordsOf();
template <>
const WordList<SupportType>& WordsOf();
template <>
const WordList<PairRequestState>& WordsOf();
template <>
const WordList<CodecMode>& WordsOf();
template <>
const WordList<CalledParty>& WordsOf();
template <>
const WordList<CallLogType>& WordsOf();
template <>
const WordList<NumberType>& WordsOf();
template <>
const WordList<MsgStatus>& WordsOf();
template <>
const WordList<HappeningKind>& WordsOf();

/// Worlds used to say "pin" where they say "pin-code" today. It is still read.
template <>
const PairRequestState* FindWord(const std::string& word);

}  // namespace btservice

#endif
