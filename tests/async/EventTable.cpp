#include "tests/async/EventTable.h"

#include <type_traits>

#include "contract/ValueText.h"

namespace bttest {
namespace {

template <typename Value>
Field Noted(const Value& value) {
  if constexpr (std::is_same_v<Value, btasync::Address>) {
    return {ValueText::Of(value.ToText()), false};
  } else if constexpr (std::is_same_v<Value, btasync::Bytes>) {
    return {ValueText::Of(std::string(value.begin(), value.end())), false};
  } else {
    return {ValueText::Of(value), std::is_same_v<Value, bool>};
  }
}

#include "derived/async_fields.inc"

template <typename Event>
EventRow MakeRow(const char* structure, const char* signal) {
  return {structure, signal,
          [](btasync::Service& service, btasync::Scope& scope, std::function<void(const Fields&)> take) {
            service.On<Event>(scope, [take = std::move(take)](const Event& event) { take(FieldsOf(event)); });
          }};
}

}  // namespace

const std::vector<EventRow>& EventTable() {
  static const std::vector<EventRow> rows{
#define BT_ASYNC_EVENT(Structure, signal) MakeRow<btasync::Structure>(#Structure, signal),
#include "derived/async_events.inc"
#undef BT_ASYNC_EVENT
  };
  return rows;
}

}  // namespace bttest
