// Which texts count as Bluetooth addresses.

#include <gtest/gtest.h>

#include "protocol/Address.h"

namespace {

TEST(BluetoothAddress, DigitsOfEitherCaseAreValid) {
  EXPECT_TRUE(IsBluetoothAddress("00:1A:7d:DA:71:13"));
  EXPECT_TRUE(IsBluetoothAddress("00:1a:2b:3c:4d:5e"));
  EXPECT_TRUE(IsBluetoothAddress("FF:FF:FF:FF:FF:FF"));
}

TEST(BluetoothAddress, MissingOrOtherSeparatorsAreNot) {
  EXPECT_FALSE(IsBluetoothAddress("001A7DDA7113"));
  EXPECT_FALSE(IsBluetoothAddress("00-1A-7D-DA-71-13"));
  for (const std::size_t place : {2, 5, 8, 11, 14}) {
    std::string address = "00:1A:7D:DA:71:13";
    address[place] = '0';
    EXPECT_FALSE(IsBluetoothAddress(address)) << address;
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
      EXPECT_FALSE(IsBluetoothAddress(address)) << address;
    }
  }
}

TEST(BluetoothAddress, OneCharacterMoreOrLessIsNot) {
  EXPECT_FALSE(IsBluetoothAddress("00:1a:2b:3c:4d:5e "));
  EXPECT_FALSE(IsBluetoothAddress("00:1a:2b:3c:4d:5"));
  EXPECT_FALSE(IsBluetoothAddress(""));
}

}  // namespace
