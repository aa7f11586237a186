#ifndef TOOLS_BTCTL_COMMANDS_TOJSON_H
#define TOOLS_BTCTL_COMMANDS_TOJSON_H

#include <list>
#include <string>
#include <type_traits>
#include <vector>

#include <bluetooth/MWPBtRecords.h>

#include "btctl/base/Json.h"

// The records of the library as JSON objects. Numbered texts and values have the names here that the service
// gives them with which this tool is developed.

namespace btctl {

Json ToJson(const MWPTypeContact& contact);
Json ToJson(const MWPTypeCallLog& log);
Json ToJson(const MWPTypeCallInfo& info);
Json ToJson(const MWPTypeMediaInfo& info);
Json ToJson(const MWPTypePlayMode& mode);
Json ToJson(const MWPTypeConnectionState& state);
Json ToJson(const MWPTypeMessage& message);
Json ToJson(const MWPTypeMediaItem& item);
Json ToJson(const MWPTypeBleDevice& device);
Json ToJson(const MWPTypeGattService& service);
inline Json ToJson(int value) { return value; }
inline Json ToJson(const std::string& text) { return text; }

/// A list or vector of them.
template <typename List, typename = typename List::value_type>
Json ToJson(const List& items) {
  Json all = Json::array();
  for (const auto& item : items) {
    all.push_back(ToJson(item));
  }
  return all;
}

/// The name that a contact is shown and found by.
std::string NameOf(const MWPTypeContact& contact);

}  // namespace btctl

#endif
