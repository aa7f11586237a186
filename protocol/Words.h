#ifndef PROTOCOL_WORDS_H
#define PROTOCOL_WORDS_H

#include <initializer_list>
#include <string>
#include <vector>

#include <bluetooth/MWPBtType.h>

/// A word that stands for a value where people read and write it: on the command line, in the files of
/// worlds, on the interface of the simulation's controls.
struct EnumWord {
  int value;
  const char* text;
};

/// The words for the values of one enumeration.
class EnumWords {
 public:
  EnumWords(const char* enumeration, std::initializer_list<EnumWord> words)
      : m_enumeration(enumeration), m_words(words) {}

  /// As the header calls it.
  const std::string& Enumeration() const { return m_enumeration; }
  /// In the order of the values.
  const std::vector<EnumWord>& Words() const { return m_words; }
  /// The word for a value; null if there is none.
  const char* WordFor(int value) const;

 private:
  std::string m_enumeration;
  std::vector<EnumWord> m_words;
};

/// The words for the values of an enumeration of the interface.
template <typename Enumeration>
const EnumWords& EnumWordsOf();

// clang-format off
template <> const EnumWords& EnumWordsOf<MWPBtType::PowerStatus>();
template <> const EnumWords& EnumWordsOf<MWPBtType::Capability>();
template <> const EnumWords& EnumWordsOf<MWPBtType::Attribute>();
template <> const EnumWords& EnumWordsOf<MWPBtType::ProfileId>();
template <> const EnumWords& EnumWordsOf<MWPBtType::ProfileVersion>();
template <> const EnumWords& EnumWordsOf<MWPBtType::ConnStatus>();
template <> const EnumWords& EnumWordsOf<MWPBtType::PairStatus>();
template <> const EnumWords& EnumWordsOf<MWPBtType::PairFailedReson>();
template <> const EnumWords& EnumWordsOf<MWPBtType::PairRequestState>();
template <> const EnumWords& EnumWordsOf<MWPBtType::ScanStatus>();
template <> const EnumWords& EnumWordsOf<MWPBtType::SupportType>();
template <> const EnumWords& EnumWordsOf<MWPBtType::HUStatus>();

template <> const EnumWords& EnumWordsOf<MWPBtType::CallStatus>();
template <> const EnumWords& EnumWordsOf<MWPBtType::CallAction>();
template <> const EnumWords& EnumWordsOf<MWPBtType::AudioStatus>();
template <> const EnumWords& EnumWordsOf<MWPBtType::CodecMode>();

template <> const EnumWords& EnumWordsOf<MWPBtType::MusicPlayStatus>();
template <> const EnumWords& EnumWordsOf<MWPBtType::SupportAvrcpEvent>();
template <> const EnumWords& EnumWordsOf<MWPBtType::BrowserScopeType>();

template <> const EnumWords& EnumWordsOf<MWPBtType::PbapType>();
template <> const EnumWords& EnumWordsOf<MWPBtType::PbapStatus>();
template <> const EnumWords& EnumWordsOf<CallLogType>();

template <> const EnumWords& EnumWordsOf<MWPBtType::MsgLoadStatus>();
template <> const EnumWords& EnumWordsOf<MWPBtType::MsgStatus>();
template <> const EnumWords& EnumWordsOf<MWPBtType::SetMsgProStatus>();
template <> const EnumWords& EnumWordsOf<MWPBtMessageType>();

template <> const EnumWords& EnumWordsOf<MWPBtType::HIDTYPE>();
template <> const EnumWords& EnumWordsOf<MWPBtType::BleScanMode>();
template <> const EnumWords& EnumWordsOf<MWPBtType::BleScanFilter>();
template <> const EnumWords& EnumWordsOf<MWPBtType::SmpEvent>();
// clang-format on

/// The kinds of number in a phone book: MWPTypeContactNumber::nType.
const EnumWords& NumberTypeWords();

#endif
