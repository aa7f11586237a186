// A stack that overrides nothing: the service refuses what it is asked, and nothing is there.

#include <gtest/gtest.h>

#include "service/stack/BluetoothStack.h"

namespace btservice {
namespace {

struct EmptyStack : BluetoothStack {
  void Start() override {}
  void Stop() override {}
};

TEST(SeamTest, WhatIsNotOverriddenIsRefused) {
  EmptyStack stack;
  EXPECT_FALSE(stack.Adapter().SetPower(true));
  EXPECT_FALSE(stack.Devices().Connect("00:1A:7D:DA:71:13", BT_PROFILE_HFP, false));
  EXPECT_FALSE(stack.Calls().Dial("112"));
  EXPECT_FALSE(stack.Music().Play());
  EXPECT_FALSE(stack.PhoneBook().StartDownload(BT_PBAP_PHONE_BOOK));
  EXPECT_FALSE(stack.Serial().Send("00:1A:7D:DA:71:13", {1}));
}

TEST(SeamTest, WhatIsNotOverriddenIsEmpty) {
  EmptyStack stack;
  EXPECT_EQ(stack.Adapter().Power(), BT_POWER_OFF);
  std::string value = "as it was";
  EXPECT_FALSE(stack.Adapter().GetAttribute(BT_ATTR_LOCAL_NAME, value));
  EXPECT_EQ(value, "as it was");
  EXPECT_TRUE(stack.Devices().PairedDevices().empty());
  EXPECT_FALSE(stack.Devices().FindDevice("00:1A:7D:DA:71:13"));
  EXPECT_TRUE(stack.Calls().Calls().empty());
  EXPECT_EQ(stack.Music().Status(), BT_MUSIC_STOPPED);
  EXPECT_TRUE(stack.PhoneBook().Contacts().empty());
  EXPECT_TRUE(stack.Kept().paired.empty());
}

}  // namespace
}  // namespace btservice
