// Addresses of devices in the requests: an application may write them in lower case, and means the same
// device.

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/GlibHelpers.h"
#include "support/InterfaceDescription.h"
#include "tests/service/running_service.h"

namespace btservice {
namespace {

using testing::HasSubstr;

constexpr const char* kAda = "00:1A:7D:DA:71:13";  // paired and connected
constexpr const char* kBen = "00:1A:7D:DA:71:14";  // not paired yet
constexpr const char* kAdaInLowerCase = "'00:1a:7d:da:71:13'";
constexpr const char* kBenInLowerCase = "'00:1a:7d:da:71:14'";

std::string Ada(const std::string& more = "") { return kAdaInLowerCase + more; }
std::string Ben(const std::string& more = "") { return kBenInLowerCase + more; }
/// The beginning of a signal about a device, whose address comes first.
std::string Of(const std::string& signal, const std::string& address) { return signal + " ('" + address; }

/// A request with an address, what is answered if the device is known, and the signal that it leads to.
struct Request {
  std::string method;
  std::string arguments;  ///< text of the values, in order
  std::string reply;
  std::string signal;  ///< how it begins; empty for none
};

// In an order in which each can be accepted.
const std::vector<Request> kRequests{
    {"GetRemotePairDeviceName", Ada(), "(\"Ada's phone\",)", ""},
    {"GetPairListIndexByAddress", Ada(), "(0,)", ""},
    {"GetPairDeviceInfoByAddress", Ada(), "(\"Ada's phone\", '00:1A:7D:DA:71:13', ", ""},
    {"SetWirelessEnable", Ada(", true"), "()", ""},
    {"SetDeviceOOBLinkKey", Ada(", <[byte 1, 2]>"), "(true,)", Of("OnSetDeviceOOBLinkKeyChanged", kAda)},
    {"RequestAndroidAutoPairing", Ada(", 0"), "(true,)", "OnAndroidAutoPairingResponse (byte 0x01"},
    {"Connect", Ada(", 7, 0"), "(byte 0x01,)", Of("OnSppConnectStatus", kAda)},
    {"SppSendText", Ada(", 'hello'"), "(true,)", Of("OnSppReceiveBufferChanged", kAda)},
    {"SppSendBuffer", Ada(", <[byte 1, 2]>"), "(true,)", Of("OnSppReceiveBufferChanged", kAda)},
    {"Connect", Ada(", 8, 0"), "(byte 0x01,)", Of("OnHIDConnection", kAda) + "', 2"},
    {"SetHIDCalibration", Ada(", 0"), "(true,)", "OnHIDCalibration (true"},
    {"SetHIDSendXY", Ada(", 0, 1, 2, 0"), "(true,)", ""},
    {"SetHIDSendKey", Ada(", 5"), "(true,)", ""},
    {"DisConnect", Ada(", 7"), "(byte 0x01,)", Of("OnSppConnectStatus", kAda)},
    {"ReConnect", Ada(", 7"), "(byte 0x01,)", Of("OnSppConnectStatus", kAda)},
    {"Pair", Ben(", ''"), "(byte 0x01,)", Of("OnAnswerPairRequest", kBen)},
    {"RejectPair", Ben(", 0"), "(byte 0x01,)", "OnPairStatusChanged"},
    {"Pair", Ben(", ''"), "(byte 0x01,)", Of("OnAnswerPairRequest", kBen)},
    {"AnswerPair", "'', " + Ben(", 0"), "(byte 0x01,)", ""},
    {"RejectPair", Ben(", 0"), "(byte 0x01,)", "OnPairStatusChanged"},
    {"RemoveDevice", Ben(), "()", ""},
    {"MovePairDevicePosion", Ada(", 0"), "(byte 0x01,)", ""},
    {"DisableProfile", Ada(), "()", Of("OnConnectStatusChanged", kAda)},
    {"DeletePairDevice", Ada(", true"), "(byte 0x01,)", "OnDeletePairStatusChanged (byte 0x01"},
};

bool IsAddress(const bttest::ArgumentDescription& argument) {
  return argument.name.find("addr") != std::string::npos || argument.name.find("Addr") != std::string::npos;
}

/// The text of a value for an argument of a request that the list does not have.
std::string SampleOf(const bttest::ArgumentDescription& argument, const std::string& address) {
  if (argument.signature == "s") {
    return IsAddress(argument) ? "'" + address + "'" : "''";
  }
  return argument.signature == "b" ? "true" : argument.signature == "v" ? "<[byte 1, 2]>" : "0";
}

/// The values for a request that the list does not have.
OwnedVariant SamplesFor(const bttest::MethodDescription& method, const std::string& address) {
  std::string text;
  for (const bttest::ArgumentDescription& argument : method.in) {
    text += (text.empty() ? "" : ", ") + SampleOf(argument, address);
  }
  text += method.in.size() == 1 ? "," : "";  // else it is no tuple
  OwnedError error;
  OwnedVariant values(g_variant_parse(G_VARIANT_TYPE(bttest::TupleSignature(method.in).c_str()),
                                      ("(" + text + ")").c_str(), nullptr, nullptr, error.Out()));
  bttest::ThrowIfSet(error, method.name + "(" + text + ")");
  return values;
}

TEST(AddressesTest, ARequestThatIsNotInTheListTakesBothCasesForTheSameDevice) {
  RunningService service({"--speed", "50", "--world", BTTEST_FULL_WORLD});
  ASSERT_TRUE(service.WaitFor("OnPBDownloadStatus (byte 0x03, byte 0x06)"));
  for (const bttest::MethodDescription& method : bttest::BluetoothInterface().methods) {
    const bool isListed = std::any_of(kRequests.begin(), kRequests.end(),
                                      [&](const Request& request) { return request.method == method.name; });
    if (isListed || std::none_of(method.in.begin(), method.in.end(), IsAddress)) {
      continue;
    }
    const std::string reply = service.Ask(method.name, SamplesFor(method, kAda).get());
    EXPECT_THAT(reply, testing::Not(testing::AnyOf("(false,)", "(byte 0x00,)", "(0,)")))
        << method.name << " does not know a device that is connected";
    EXPECT_EQ(service.Ask(method.name, SamplesFor(method, "00:1a:7d:da:71:13").get()), reply) << method.name;
    for (const std::string& signal : service.Signals()) {
      EXPECT_THAT(signal, testing::Not(HasSubstr("7d:da"))) << "after " << method.name;
    }
  }
}

TEST(AddressesTest, EachRequestTakesALowerCaseAddressForTheSameDevice) {
  RunningService service({"--speed", "50", "--world", BTTEST_FULL_WORLD});
  ASSERT_TRUE(service.WaitFor("OnPBDownloadStatus (byte 0x03, byte 0x06)"));
  for (const Request& request : kRequests) {
    service.ForgetSignals();
    const bttest::MethodDescription& method = bttest::BluetoothInterface().Method(request.method);
    const std::string text = "(" + request.arguments + (method.in.size() == 1 ? ",)" : ")");
    OwnedError error;
    const OwnedVariant arguments(g_variant_parse(G_VARIANT_TYPE(bttest::TupleSignature(method.in).c_str()),
                                                 text.c_str(), nullptr, nullptr, error.Out()));
    bttest::ThrowIfSet(error, request.method + text);
    EXPECT_THAT(service.Ask(request.method, arguments.get()), testing::StartsWith(request.reply))
        << request.method << text;
    if (!request.signal.empty()) {
      EXPECT_TRUE(service.WaitFor(request.signal)) << request.signal << " after " << request.method << text;
    }
    for (const std::string& signal : service.Signals()) {
      EXPECT_THAT(signal, testing::Not(HasSubstr("7d:da"))) << "after " << request.method << text;
    }
  }
}

TEST(AddressesTest, AnAddressOfNoDeviceIsReportedInUpperCase) {
  RunningService service({"--speed", "50", "--world", BTTEST_FULL_WORLD});
  ASSERT_TRUE(service.WaitFor("OnOpenBtStatusChanged (byte 0x01"));
  service.Call("Pair", g_variant_new("(ss)", "aa:bb:cc:dd:ee:ff", ""));
  EXPECT_TRUE(service.WaitFor("OnPairStatusChanged (byte 0x01, byte 0x00, 'AA:BB:CC:DD:EE:FF'"));
}

}  // namespace
}  // namespace btservice
