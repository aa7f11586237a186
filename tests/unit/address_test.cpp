// Which texts count as Bluetooth addresses.

#include <regex>
#include <string>

#include <gtest/gtest.h>

#include "protocol/Address.h"

namespace {

/// Asks both ways of saying what an address is, which must agree.
bool IsAddress(const std::string& text) {
  static const std::regex pattern(kBluetoothAddressPattern);
  EXPECT_EQ(std::regex_match(text, pattern), IsBluetoothAddress(text)) << text;
  return IsBluetoothAddress(text);
}

TEST(BluetoothAddress, DigitsOfEitherCaseAreValid) {
  EXPECT_TRUE(IsAddress("00:1A:7d:DA:71:13"));
  EXPECT_TRUE(IsAddress("00:1a:2b:3c:4d:5e"));
  EXPECT_TRUE(IsAddress("FF:FF:FF:FF:FF:FF"));
}

TEST(BluetoothAddress, MissingOrOtherSeparatorsAreNot) {
  EXPECT_FALSE(IsAddress("001A7DDA7113"));
  EXPECT_FALSE(IsAddress("00-1A-7D-DA-71-13"));
  for (const std::size_t place : {2, 5, 8, 11, 14}) {
    std::string address = "00:1A:7D:DA:71:13";
    address[place] = '0';
    EXPECT_FALSE(IsAddress(address)) << address;
  }
}

TEST(BluetoothAddress, AnythingButADigitInADigitsPlaceIsNot) {
  for (std::size_t place = 0; place < 17; ++place) {
    if (place % 3 == 2) {
      continue;
    }
    for (const char wrong : {'G', 'g', '@', '`', '/', ':', ' ', '\0', '\x7f', '\xc1', '\x10'}) {
      std::string address = "00:1A:7D:DA:71:13";
      address[place] = wrong;
      EXPECT_FALSE(IsAddress(address)) << address;
    }
  }
}

TEST(BluetoothAddress, OneCharacterMoreOrLessIsNot) {
  EXPECT_FALSE(IsAddress("00:1a:2b:3c:4d:5e "));
  EXPECT_FALSE(IsAddress("00:1a:2b:3c:4d:5"));
  EXPECT_FALSE(IsAddress(""));
}

}  // namespace
