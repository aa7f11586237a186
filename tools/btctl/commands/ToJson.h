#ifndef TOOLS_BTCTL_COMMANDS_TOJSON_H
#define TOOLS_BTCTL_COMMANDS_TOJSON_H

#include <list>
#include <string>
#include <type_traits>
#include <vector>

#include <bluetooth/MWPBtRecords.h>

#include "btctl/base/JsonFwd.h"

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
Json ToJson(int value);
Json ToJson(const std::string& text);

/// Makes an empty list of a value.
void BeginList(Json& list);
/// A new item at its end.
Json& NextItemOf(Json& list);

/// Puts what a facade method answers into a value: a record, a text or a number. Compiled for each type in
/// ToJson.cpp.
template <typename Value>
void StoreOne(Json& target, const Value& value);

template <typename Value, typename = void>
struct IsListOfRecords : std::false_type {};
template <typename Value>
struct IsListOfRecords<Value, std::void_t<typename Value::value_type>>
    : std::bool_constant<!std::is_same_v<Value, std::string>> {};

/// The same, and for a list of them.
template <typename Value>
void Store(Json& target, const Value& value) {
  if constexpr (IsListOfRecords<Value>::value) {
    BeginList(target);
    for (const auto& item : value) {
      StoreOne(NextItemOf(target), item);
    }
  } else if constexpr (std::is_arithmetic_v<Value> || std::is_enum_v<Value>) {
    StoreOne(target, static_cast<int>(value));
  } else {
    StoreOne(target, value);
  }
}

/// The name that a contact is shown and found by.
std::string NameOf(const MWPTypeContact& contact);

}  // namespace btctl

#endif
