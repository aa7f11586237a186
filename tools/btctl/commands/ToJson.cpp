#include "btctl/commands/ToJson.h"

#include "btctl/base/Json.h"
#include "btctl/words/Words.h"
#include "protocol/Records.h"

namespace btctl {

using namespace MWPBtType;

std::string NameOf(const MWPTypeContact& contact) {
  const std::string& first = contact.*ContactFields::kFirstName;
  const std::string& family = contact.*ContactFields::kFamilyName;
  return first + (!first.empty() && !family.empty() ? " " : "") + family;
}

Json ToJson(const MWPTypeContact& contact) {
  Json numbers = Json::array();
  for (const MWPTypeContactNumber& group : contact.listNumbers) {
    numbers.push_back({{"type", NumberTypeWords().Show(group.nType)}, {"numbers", group.vecValues}});
  }
  return {{"id", contact.nContactId}, {"name", NameOf(contact)}, {"numbers", numbers}};
}

Json ToJson(const MWPTypeCallLog& log) {
  return {{"id", log.nLogId},
          {"name", log.*CallLogFields::kName},
          {"number", log.*CallLogFields::kNumber},
          {"date", log.*CallLogFields::kDate},
          {"time", log.*CallLogFields::kTime},
          {"seconds", log.*CallLogFields::kSeconds},
          {"contact", log.*CallLogFields::kContactId},
          {"type", WordsOf<PbapType>().Show(log.*CallLogFields::kRepository)}};
}

Json ToJson(const MWPTypeCallInfo& info) {
  Json calls = Json::array();
  int count = 0;
  for (const MWPTypeCallSlot* const slot : {&info.callSlot1, &info.callSlot2}) {
    if (count++ < info.nCallCount) {
      calls.push_back({{"id", slot->*CallFields::kId},
                       {"status", WordsOf<CallStatus>().Show(slot->*CallFields::kStatus)},
                       {"incoming", slot->*CallFields::kIncoming != 0},
                       {"conference", slot->*CallFields::kConference != 0},
                       {"seconds", slot->*CallFields::kSeconds},
                       {"number", slot->*CallFields::kNumber},
                       {"name", slot->*CallFields::kName},
                       {"address", slot->*CallFields::kPhone}});
    }
  }
  return calls;
}

Json ToJson(const MWPTypeMediaInfo& info) {
  return {{"title", info.title},      {"artist", info.artist},           {"album", info.album},
          {"track", info.track},      {"numOfTracks", info.numOfTracks}, {"genre", info.genre},
          {"duration", info.duration}};
}

Json ToJson(const MWPTypePlayMode& mode) {
  return {{"mode", PlayModeWords().Show(mode.nType)}, {"value", mode.nValue}};
}

Json ToJson(const MWPTypeConnectionState& state) {
  return {{"status", WordsOf<ConnStatus>().Show(state.status)}, {"address", state.address}};
}

Json ToJson(const MWPTypeMessage& message) {
  return {{"text1", message.strText1}, {"value1", message.nValue1}, {"text2", message.strText2},
          {"text3", message.strText3}, {"text4", message.strText4}, {"text5", message.strText5},
          {"text6", message.strText6}, {"value2", message.nValue2}};
}

Json ToJson(const MWPTypeMediaItem& item) {
  return {{"uid", item.strUid}, {"name", item.strName}, {"type", item.nType}, {"playable", item.bPlayable}};
}

Json ToJson(const MWPTypeBleDevice& device) {
  return {{"address", device.strAddr},
          {"name", device.strName},
          {"addressType", device.nAddressType},
          {"rssi", device.nRssi}};
}

Json ToJson(const MWPTypeGattService& service) {
  return {{"uuid", service.strUuid}, {"start", service.nStartHandle}, {"end", service.nEndHandle}};
}

Json ToJson(int value) { return value; }

Json ToJson(const std::string& text) { return text; }

void BeginList(Json& list) { list = Json::array(); }

Json& NextItemOf(Json& list) { return list.emplace_back(); }

template <typename Value>
void StoreOne(Json& target, const Value& value) {
  target = ToJson(value);
}

// All that a facade method answers, or that is in a list which it answers.
template void StoreOne(Json& target, const int& value);
template void StoreOne(Json& target, const std::string& value);
template void StoreOne(Json& target, const MWPTypeBleDevice& value);
template void StoreOne(Json& target, const MWPTypeCallInfo& value);
template void StoreOne(Json& target, const MWPTypeCallLog& value);
template void StoreOne(Json& target, const MWPTypeConnectionState& value);
template void StoreOne(Json& target, const MWPTypeContact& value);
template void StoreOne(Json& target, const MWPTypeGattService& value);
template void StoreOne(Json& target, const MWPTypeMediaInfo& value);
template void StoreOne(Json& target, const MWPTypeMediaItem& value);
template void StoreOne(Json& target, const MWPTypeMessage& value);
template void StoreOne(Json& target, const MWPTypePlayMode& value);

}  // namespace btctl
