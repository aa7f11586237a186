#include "btctl/events/FieldWords.h"

#include <algorithm>
#include <map>

#include "btctl/base/Failure.h"
#include "btctl/base/Nearest.h"

namespace btctl {
namespace {

using namespace MWPBtType;

/// As Event::Has takes them.
const WordTable& YesNoWords() {
  static const WordTable words("", {{1, "yes"}, {0, "no"}, {1, "on"}, {0, "off"}, {1, "true"}, {0, "false"}});
  return words;
}

/// Stands for any whole number in the table below.
const WordTable& Numbers() {
  static const WordTable numbers("", {});
  return numbers;
}

/// What the fields of each event hold, in the order of its fields. An event that is not here has none.
const std::map<std::string, std::vector<const WordTable*>>& Table() {
  static const WordTable* const yesNo = &YesNoWords();
  static const WordTable* const number = &Numbers();
  static constexpr const WordTable* text = nullptr;
  // clang-format off
  static const std::map<std::string, std::vector<const WordTable*>> table{
      {"OnOpenBtStatusChanged", {&WordsOf<PowerStatus>()}},
      {"OnBtProfileEnableStatusChanged", {yesNo}},
      {"OnPairStatusChanged", {&WordsOf<PairStatus>(), &WordsOf<PairFailedReson>(), text}},
      {"OnAnswerPairRequest", {text, text, yesNo, &WordsOf<PairRequestState>()}},
      {"OnBtCapabilityChanged", {&WordsOf<Capability>(), &SwitchWords()}},
      {"OnBtAttributeChanged", {&WordsOf<Attribute>(), text}},
      {"OnScanStatusChanged", {&WordsOf<ScanStatus>()}},
      {"OnDeletePairStatusChanged", {yesNo}},
      {"OnOperatorNameChanged", {text}},
      {"OnConnectStatusChanged", {text, &WordsOf<ProfileId>(), &WordsOf<ConnStatus>()}},
      {"OnSupportProfileChanged", {text, &WordsOf<ProfileId>()}},
      {"OnWirelessEnableRequest", {text, text, &WordsOf<SupportType>()}},
      {"OnAndroidAutoPairingResponse", {&WordsOf<HUStatus>()}},
      {"OnSetDeviceOOBLinkKeyChanged", {text, yesNo}},
      {"OnMobileService", {yesNo}},
      {"OnRoamingStatusChanged", {yesNo}},
      {"OnBtSignalChanged", {number}},
      {"OnBtBatteryChanged", {number}},
      {"OnCurrentCallInfoChanged", {number}},
      {"OnCallingTimeChanged", {number, number, yesNo}},
      {"OnCallStatusChanged", {number, &WordsOf<CallStatus>(), number}},
      {"OnConferenceChanged", {&WordsOf<CallAction>(), yesNo}},
      {"OnAudioStatusChanged", {&WordsOf<AudioStatus>()}},
      {"OnVoiceStatusChanged", {yesNo}},
      {"OnCodecModeChanged", {&WordsOf<CodecMode>()}},
      {"OnMediaAudioStateChanged", {text, yesNo}},
      {"OnBtMusicPlayChanged", {&WordsOf<MusicPlayStatus>()}},
      {"OnCurPositionChanged", {number, number}},
      {"OnSupportAvrcpNotify", {&WordsOf<SupportAvrcpEvent>(), yesNo}},
      {"OnFastForwardChanged", {yesNo}},
      {"OnFastRewindChanged", {yesNo}},
      {"OnSupportBrowserStatusChanged", {yesNo}},
      {"OnCurBrowserPathChanged", {yesNo}},
      {"OnBrowserFolderItemTotalChanged", {number}},
      {"OnMediaItemToNowPlayingStatus", {yesNo}},
      {"OnSendPlayItemStatus", {yesNo}},
      {"OnPBDownloadStatus", {&WordsOf<PbapStatus>(), &WordsOf<PbapType>()}},
      {"OnPbDownloadCountChanged", {number, number}},
      {"OnDeletePhoneBookChanged", {yesNo}},
      {"OnContactFavoriteChanged", {number, yesNo}},
      {"OnMessageDownloadStatus", {&WordsOf<MsgLoadStatus>()}},
      {"OnMessageDownloadCountChanged", {number, number}},
      {"OnMessageStatusNotify", {&WordsOf<MsgStatus>(), text}},
      {"OnMessageSetPropertyStatus", {&WordsOf<SetMsgProStatus>()}},
      {"OnSppConnectStatus", {text, &WordsOf<SupportType>(), yesNo}},
      {"OnSppReceiveBufferChanged", {text, text}},
      {"OnHIDCalibration", {yesNo}},
      {"OnHIDConnection", {text, &WordsOf<ConnStatus>()}},
      {"OnBleDiscoveryResponse", {yesNo, number}},
      {"OnBleConnectStatusChanged", {text, &WordsOf<ConnStatus>()}},
      {"OnBleAllService", {number}},
      {"OnBleSmpNotify", {&WordsOf<SmpEvent>(), text, number, text}},
      {"OnBleCharNotify", {number, text}},
      {"OnBleGAttribResultNotify", {number, text}},
  };
  // clang-format on
  return table;
}

const WordTable* EntryOf(const EventDescription& event, const std::string& field) {
  const auto row = Table().find(event.name);
  const auto place = std::find(event.fields.begin(), event.fields.end(), field);
  if (row == Table().end() || place == event.fields.end()) {
    return nullptr;
  }
  return row->second.at(static_cast<std::size_t>(place - event.fields.begin()));
}

}  // namespace

bool HoldsNumber(const EventDescription& event, const std::string& field) {
  return EntryOf(event, field) == &Numbers();
}

const WordTable* WordsOfField(const EventDescription& event, const std::string& field) {
  return HoldsNumber(event, field) ? nullptr : EntryOf(event, field);
}

void CheckCanHave(const EventDescription& event, const std::string& field, const std::string& value) {
  const std::string never = field + " of " + event.name + " is never '" + value + "'";
  if (HoldsNumber(event, field) && !NumberIn(value)) {
    throw Failure(EXIT_UNKNOWN_NAME, never, "It is a whole number.");
  }
  const WordTable* const words = WordsOfField(event, field);
  if (words == nullptr || words->Find(value)) {
    return;
  }
  std::string known;
  std::vector<std::string> names;
  for (const EnumWord& word : words->Words()) {
    known += known.empty() ? word.text : std::string(", ") + word.text;
    names.emplace_back(word.text);
  }
  const std::string suggestion = DidYouMean(value, names, "");
  throw Failure(EXIT_UNKNOWN_NAME, never,
                suggestion + (suggestion.empty() ? "" : " ") + "It can be: " + known + ".");
}

}  // namespace btctl
