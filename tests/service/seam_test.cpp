// A stack that overrides nothing: the service refuses what it is asked, and nothing is there.

#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "service/stack/BluetoothStack.h"

namespace btservice {
namespace {

struct EmptyStack : BluetoothStack {
  void Start() override {}
  void Stop() override {}
};

AdapterControl& ControlOf(BluetoothStack& stack, const AdapterControl*) { return stack.Adapter(); }
DeviceControl& ControlOf(BluetoothStack& stack, const DeviceControl*) { return stack.Devices(); }
CallControl& ControlOf(BluetoothStack& stack, const CallControl*) { return stack.Calls(); }
MusicControl& ControlOf(BluetoothStack& stack, const MusicControl*) { return stack.Music(); }
PhoneBookControl& ControlOf(BluetoothStack& stack, const PhoneBookControl*) { return stack.PhoneBook(); }
SerialControl& ControlOf(BluetoothStack& stack, const SerialControl*) { return stack.Serial(); }

// An answer of one of the types that the seam has, and whether it says that nothing was done and nothing is
// there.

bool IsNothing(bool accepted) { return !accepted; }
bool IsNothing(int value) { return value == 0; }
bool IsNothing(PowerStatus status) { return status == BT_POWER_OFF; }
bool IsNothing(MusicPlayStatus status) { return status == BT_MUSIC_STOPPED; }
bool IsNothing(const ConnectionState& state) {
  return state.status == BT_CONN_DISCONNECTED && state.address.empty();
}
template <typename Item>
bool IsNothing(const std::vector<Item>& items) {
  return items.empty();
}
template <typename Value>
bool IsNothing(const std::optional<Value>& value) {
  return !value;
}

/// Makes a request with zeros and empty texts as arguments.
template <typename Control, typename... Params, typename Request>
bool AnswersNothing(Request request) {
  EmptyStack stack;
  Control& control = ControlOf(stack, static_cast<const Control*>(nullptr));
  std::tuple<std::decay_t<Params>...> arguments{};
  const auto call = [&](auto&... argument) -> decltype(auto) { return (control.*request)(argument...); };
  if constexpr (std::is_void_v<decltype(std::apply(call, arguments))>) {
    std::apply(call, arguments);
    return true;
  } else {
    return IsNothing(std::apply(call, arguments));
  }
}
template <typename Control, typename Answer, typename... Params>
bool IsRefused(Answer (Control::*request)(Params...)) {
  return AnswersNothing<Control, Params...>(request);
}
template <typename Control, typename Answer, typename... Params>
bool IsRefused(Answer (Control::*request)(Params...) const) {
  return AnswersNothing<Control, Params...>(request);
}

TEST(SeamTest, WhatIsNotOverriddenIsRefused) {
#define BT_SEAM_REQUEST(subject, request) \
  EXPECT_TRUE(IsRefused(&subject##Control::request)) << #subject "Control::" #request;
#include "seam_requests.inc"  // derived from the headers of the seam
#undef BT_SEAM_REQUEST
}

TEST(SeamTest, WhatIsNotOverriddenIsEmpty) {
  EmptyStack stack;
  std::string value = "as it was";
  EXPECT_FALSE(stack.Adapter().GetAttribute(BT_ATTR_LOCAL_NAME, value));
  EXPECT_EQ(value, "as it was");
  EXPECT_TRUE(stack.Kept().attributes.empty());
  EXPECT_TRUE(stack.Kept().paired.empty());
}

}  // namespace
}  // namespace btservice
