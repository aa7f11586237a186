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

/// The fields of each event that hold words, in the order of its fields; null for those that do not. An event
/// that is not here has none.
const std::map<std::string, std::vector<const WordTable*>>& Table() {
  static const WordTable* const yesNo = &YesNoWords();
  // clang-format off
  static const std::map<std::string, std::vector<const WordTable*>> table{
      {"OnOpenBtStatusChanged", {&WordsOf<PowerStatus>()}},
      {"OnBtProfileEnableStatusChanged", {yesNo}},
      {"OnPairStatusChanged", {&WordsOf<PairStatus>(), &WordsOf<PairFailedReson>(), nullptr}},
      {"OnAnswerPairRequest", {nullptr, nullptr, yesNo, &WordsOf<PairRequestState>()}},
      {"OnBtCapabilityChanged", {&WordsOf<Capability>(), &SwitchWords()}},
      {"OnBtAttributeChanged", {&WordsOf<Attribute>(), nullptr}},
      {"OnScanStatusChanged", {&WordsOf<ScanStatus>()}},
      {"OnDeletePairStatusChanged", {yesNo}},
      {"OnConnectStatusChanged", {nullptr, &WordsOf<ProfileId>(), &WordsOf<ConnStatus>()}},
      {"OnSupportProfileChanged", {nullptr, &WordsOf<ProfileId>()}},
      {"OnWirelessEnableRequest", {nullptr, nullptr, &WordsOf<SupportType>()}},
      {"OnAndroidAutoPairingResponse", {&WordsOf<HUStatus>()}},
      {"OnSetDeviceOOBLinkKeyChanged", {nullptr, yesNo}},
      {"OnMobileService", {yesNo}},
      {"OnRoamingStatusChanged", {yesNo}},
      {"OnCallingTimeChanged", {nullptr, nullptr, yesNo}},
      {"OnCallStatusChanged", {nullptr, &WordsOf<CallStatus>(), nullptr}},
      {"OnConferenceChanged", {&WordsOf<CallAction>(), yesNo}},
      {"OnAudioStatusChanged", {&WordsOf<AudioStatus>()}},
      {"OnVoiceStatusChanged", {yesNo}},
      {"OnCodecModeChanged", {&WordsOf<CodecMode>()}},
      {"OnMediaAudioStateChanged", {nullptr, yesNo}},
      {"OnBtMusicPlayChanged", {&WordsOf<MusicPlayStatus>()}},
      {"OnSupportAvrcpNotify", {&WordsOf<SupportAvrcpEvent>(), yesNo}},
      {"OnFastForwardChanged", {yesNo}},
      {"OnFastRewindChanged", {yesNo}},
      {"OnSupportBrowserStatusChanged", {yesNo}},
      {"OnCurBrowserPathChanged", {yesNo}},
      {"OnMediaItemToNowPlayingStatus", {yesNo}},
      {"OnSendPlayItemStatus", {yesNo}},
      {"OnPBDownloadStatus", {&WordsOf<PbapStatus>(), &WordsOf<PbapType>()}},
      {"OnDeletePhoneBookChanged", {yesNo}},
      {"OnContactFavoriteChanged", {nullptr, yesNo}},
      {"OnMessageDownloadStatus", {&WordsOf<MsgLoadStatus>()}},
      {"OnMessageStatusNotify", {&WordsOf<MsgStatus>(), nullptr}},
      {"OnMessageSetPropertyStatus", {&WordsOf<SetMsgProStatus>()}},
      {"OnSppConnectStatus", {nullptr, &WordsOf<SupportType>(), yesNo}},
      {"OnHIDCalibration", {yesNo}},
      {"OnHIDConnection", {nullptr, &WordsOf<ConnStatus>()}},
      {"OnBleDiscoveryResponse", {yesNo, nullptr}},
      {"OnBleConnectStatusChanged", {nullptr, &WordsOf<ConnStatus>()}},
      {"OnBleSmpNotify", {&WordsOf<SmpEvent>(), nullptr, nullptr, nullptr}},
  };
  // clang-format on
  return table;
}

}  // namespace

const WordTable* WordsOfField(const EventDescription& event, const std::string& field) {
  const auto row = Table().find(event.name);
  const auto place = std::find(event.fields.begin(), event.fields.end(), field);
  if (row == Table().end() || place == event.fields.end()) {
    return nullptr;
  }
  return row->second.at(static_cast<std::size_t>(place - event.fields.begin()));
}

void CheckCanHave(const EventDescription& event, const std::string& field, const std::string& value) {
  const WordTable* const words = WordsOfField(event, field);
  if (words == nullptr || words->Find(value)) {
    return;
  }
  std::string known;
  std::vector<std::string> names;
  for (const Word& word : words->Words()) {
    known += known.empty() ? word.text : std::string(", ") + word.text;
    names.emplace_back(word.text);
  }
  const std::string suggestion = DidYouMean(value, names, "");
  throw Failure(EXIT_UNKNOWN_NAME, field + " of " + event.name + " is never '" + value + "'",
                suggestion + (suggestion.empty() ? "" : " ") + "It can be: " + known + ".");
}

}  // namespace btctl
