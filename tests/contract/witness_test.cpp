// The interface description and the listener interfaces against the list of the contract that is kept by
// hand: what is added has to be added there, and nothing there may go, change or move.

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bluetooth/IMWPBtBleListener.h>
#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/IMWPBtMediaListener.h>
#include <bluetooth/IMWPBtMessageListener.h>
#include <bluetooth/IMWPBtPbapListener.h>
#include <bluetooth/IMWPBtPhoneListener.h>
#include <bluetooth/IMWPBtSppListener.h>

#include "contract/Witness.h"
#include "support/InterfaceDescription.h"
#include "support/VirtualSlot.h"

namespace bttest {
namespace {

using Texts = std::vector<std::string>;

/// "(s address, y status)"
std::string Text(const Arguments& arguments) {
  std::string text;
  for (const ArgumentDescription& argument : arguments) {
    text += (text.empty() ? "" : ", ") + argument.signature + " " + argument.name;
  }
  return "(" + text + ")";
}

TEST(Witness, SeesEachMethodOfTheInterfaceInItsPlace) {
  Texts declared;
  for (const MethodDescription& method : BluetoothInterface().methods) {
    declared.push_back(method.name + Text(method.in) + " -> " + Text(method.out));
  }
  EXPECT_EQ(Differences(TheWitness().methods, declared), "");
}

TEST(Witness, SeesEachSignalOfTheInterfaceInItsPlace) {
  Texts declared;
  for (const SignalDescription& signal : BluetoothInterface().signals) {
    declared.push_back(signal.name + Text(signal.arguments));
  }
  EXPECT_EQ(Differences(TheWitness().signals, declared), "");
}

std::string Line(const std::string& event, const std::string& kind, std::size_t slot) {
  return event + " " + kind + " " + std::to_string(slot);
}

TEST(Witness, SeesEachEventOfTheListenersInItsSlot) {
#define BT_EVENT(Kind, Event) Line(#Event, #Kind, SlotOf(&IMWPBt##Kind##Listener::Event)),
  Texts declared{
#include "derived/events.inc"
  };
#undef BT_EVENT
  Texts witnessed;
  for (const Witness::Event& event : TheWitness().events) {
    witnessed.push_back(Line(event.name, event.kind, static_cast<std::size_t>(event.slot)));
  }
  // Each says its place itself.
  std::sort(declared.begin(), declared.end());
  std::sort(witnessed.begin(), witnessed.end());
  EXPECT_EQ(Differences(witnessed, declared), "");
}

TEST(Witness, NamesWhatIsMissingAddedOrMoved) {
  EXPECT_EQ(Differences({"a", "b"}, {"a", "b"}), "");
  EXPECT_EQ(Differences({"a", "b"}, {"b"}), "\n  in tests/contract/witness.txt, and not declared: a");
  EXPECT_EQ(Differences({"a"}, {"a", "b"}), "\n  declared, and not in tests/contract/witness.txt: b");
  EXPECT_EQ(Differences({"a", "b"}, {"b", "a"}), "\n  declared at another place: a; there is b");
}

}  // namespace
}  // namespace bttest
