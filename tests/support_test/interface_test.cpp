#include "support/InterfaceDescription.h"

#include <stdexcept>

#include <gtest/gtest.h>

namespace bttest {
namespace {

TEST(InterfaceDescription, HoldsTheContractFromItsFirstMethodOn) {
  const InterfaceDescription& interface = BluetoothInterface();
  EXPECT_EQ("com.zelk.linux.bluetooth", interface.name);
  ASSERT_FALSE(interface.methods.empty());
  EXPECT_EQ("GetBluetoothServiceStatus", interface.methods.front().name);
  EXPECT_FALSE(interface.signals.empty());
}

TEST(InterfaceDescription, KnowsNamesAndSignaturesOfArguments) {
  const MethodDescription& method = BluetoothInterface().Method("SetCapability");
  ASSERT_EQ(2U, method.in.size());
  EXPECT_EQ("eBtCapability", method.in[0].name);
  EXPECT_EQ("y", method.in[0].signature);
  EXPECT_EQ("(yy)", TupleSignature(method.in));
  EXPECT_EQ("(y)", TupleSignature(method.out));
  EXPECT_EQ("()", TupleSignature(BluetoothInterface().Method("EnableProfile").in));
  EXPECT_EQ("(sb)", TupleSignature(BluetoothInterface().Signal("OnMediaAudioStateChanged").arguments));
}

TEST(InterfaceDescription, DoesNotMakeUpWhatIsNotDescribed) {
  EXPECT_THROW(BluetoothInterface().Method("NoSuchMethod"), std::out_of_range);
  EXPECT_THROW(BluetoothInterface().Signal("SetPower"), std::out_of_range);
  EXPECT_THROW(ParseInterface("<node/>"), std::runtime_error);
  EXPECT_THROW(ParseInterface("<nod"), std::runtime_error);
}

}  // namespace
}  // namespace bttest
