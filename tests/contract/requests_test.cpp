// Every method of the interface, called through the adapter: what arrives at a service in another process,
// what comes back, and what happens when it cannot be called. Driven by the interface's description.

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "contract/AdapterCalls.h"
#include "contract/WireValues.h"
#include "contract/Witness.h"
#include "ipc/BtProxy.h"
#include "support/BusDaemon.h"
#include "support/GlibHelpers.h"
#include "support/LogCapture.h"
#include "support/Recorder.h"

namespace {

using bttest::MethodDescription;
using bttest::ToText;

// Log nothing when they fail.
const std::set<std::string> kSilent{"GetPhoneConnectionState", "GetMediaConnectionState", "StopMusic"};
// Answer 1 when they fail, and the last two in every case.
const std::set<std::string> kPresetOne{
    "SetDeviceOOBLinkKey", "SppSendBuffer", "GetContactList", "GetFavContactList",
    "GetCallLogList",      "PlayMusic",     "StopMusic"};
const std::set<std::string> kAlwaysOne{"PlayMusic", "StopMusic"};
// The error texts that do not follow the name of the generated function.
const std::map<std::string, std::string> kDeviatingTexts{
    {"GetPowerStatus", "com_zelk_linux_bluetooth_call_get_power_sync"},
    {"SetCapability", "com_zelk_linux_bluetooth_set_capability_sync"},
    {"SetAttribute", "com_zelk_linux_bluetooth_set_attribute_sync"},
    {"AnswerPair", "com_zelk_linux_bluetooth_call_pair_sync"},
    {"RejectPair", "com_zelk_linux_bluetooth_call_pair_sync"},
    {"GetPairDeviceInfoByAddress", "com_zelk_linux_bluetooth_call_get_pair_dev_name_by_address_sync"},
    {"SetAndroidAutoStatus", "com_zelk_linux_bluetooth_call_set_android_auto_connect_status_sync"},
    {"GetCurCallCount", "com_zelk_linux_bluetooth_call_get_cur_count_sync"},
    {"SetAudioPrivacy", "com_zelk_linux_bluetooth_call_set_audio_pravicy_sync"},
    {"GetAudioIsPrivacy", "com_zelk_linux_bluetooth_call_get_audio_is_pravicy_sync"},
};

/// Lower case, with an underscore before each capital whose preceding letter is none.
std::string Stem(const std::string& name) {
  std::string stem;
  for (std::size_t i = 0; i < name.size(); ++i) {
    if (i > 0 && g_ascii_isupper(name[i]) && !g_ascii_isupper(name[i - 1])) {
      stem += '_';
    }
    stem += g_ascii_tolower(name[i]);
  }
  return stem;
}

/// What the one error line of a failed request says, up to the reason.
std::string ErrorText(const std::string& method) {
  if (method == "GetAttribute") {
    return "BtClientIpcAdapter::GetAttribute Get Failed !!!";
  }
  const auto deviating = kDeviatingTexts.find(method);
  const std::string function = deviating != kDeviatingTexts.end()
                                   ? deviating->second
                                   : "com_zelk_linux_bluetooth_call_" + Stem(method) + "_sync";
  return function + ": Failed to call dbus method. Reason: ";
}

/// The methods of the interface that the library calls.
std::vector<MethodDescription> CalledMethods() {
  std::vector<MethodDescription> methods;
  for (const MethodDescription& method : bttest::BluetoothInterface().methods) {
    if (bttest::AdapterCalls().count(method.name) != 0) {
      methods.push_back(method);
    }
  }
  return methods;
}

/// Calls the request for a method and answers what it answers, as text.
std::string Call(BtClientIpcAdapter& adapter, const MethodDescription& method, const bttest::In& in) {
  bttest::Out out(method.out);
  bttest::AdapterCalls().at(method.name)(adapter, in, out);
  return ToText(OwnedVariant(out.Tuple()).get());
}

/// What a failed request answers, as text.
std::string Preset(const MethodDescription& method) {
  bttest::Out out(method.out);
  for (const bttest::ArgumentDescription& argument : method.out) {
    if (argument.signature == "s") {
      out.Text("");
    } else if (argument.signature == "a(yy)") {
      out.PlayModes({});
    } else {
      out.Int(kPresetOne.count(method.name) != 0 ? 1 : 0);
    }
  }
  return ToText(OwnedVariant(out.Tuple()).get());
}

/// Fails unless the log holds just what a failed request logs.
void ExpectOneErrorLine(const bttest::LogCapture& log, const MethodDescription& method,
                        const std::string& reason) {
  EXPECT_TRUE(log.Complaints().empty()) << method.name << ": " << log.Complaints()[0];
  const auto errors = log.OfLevel(100);
  if (kSilent.count(method.name) != 0) {
    EXPECT_TRUE(errors.empty()) << method.name;
    return;
  }
  ASSERT_EQ(errors.size(), 1u) << method.name;
  EXPECT_EQ(errors[0].file, "ipc/BtClientIpcAdapter");
  EXPECT_EQ(errors[0].function, method.name);
  const std::string text = ErrorText(method.name);
  EXPECT_EQ(errors[0].message, method.name == "GetAttribute" ? text : text + reason + ".");
}

TEST(Interface, EveryMethodIsCalledByTheLibraryButThoseThatTheWitnessNames) {
  for (const MethodDescription& method : bttest::BluetoothInterface().methods) {
    const std::vector<std::string>& uncalled = bttest::TheWitness().uncalled;
    const bool isNamed = std::find(uncalled.begin(), uncalled.end(), method.name) != uncalled.end();
    EXPECT_EQ(bttest::AdapterCalls().count(method.name), isNamed ? 0u : 1u) << method.name;
  }
}

class Requests : public testing::Test {
 protected:
  Requests() {
    // For the requests alone the adapter needs a proxy, and no signals.
    EXPECT_TRUE(m_adapter.InitDBusConnect());
    m_recorder.TakeCalls();
  }

  bttest::BusDaemon m_bus;
  bttest::Recorder m_recorder;
  BtClientIpcAdapter m_adapter;
};

TEST_F(Requests, ArriveWithNameSignatureAndValuesAndBringBackEachReplyValue) {
  for (const MethodDescription& method : CalledMethods()) {
    for (int variety = 0; variety < bttest::kVarieties; ++variety) {
      bttest::LogCapture log;
      const OwnedVariant arguments(bttest::MakeTuple(method.in, variety));
      const OwnedVariant reply(bttest::MakeTuple(method.out, variety));
      if (!method.out.empty()) {
        m_recorder.SetReply(method.name, reply.get());
      }

      const std::string answer = Call(m_adapter, method, bttest::In(arguments.get()));

      const auto calls = m_recorder.TakeCalls();
      ASSERT_EQ(calls.size(), 1u) << method.name;
      EXPECT_EQ(calls[0].method, method.name);
      EXPECT_EQ(g_variant_get_type_string(calls[0].arguments.get()), bttest::TupleSignature(method.in));
      EXPECT_EQ(ToText(calls[0].arguments.get()), ToText(arguments.get())) << method.name;
      EXPECT_EQ(answer, kAlwaysOne.count(method.name) != 0 ? "(true,)" : ToText(reply.get())) << method.name;
      EXPECT_TRUE(log.OfLevel(100).empty()) << method.name;
      EXPECT_TRUE(log.Complaints().empty()) << method.name;
    }
  }
}

TEST_F(Requests, ThatFailLogOneErrorWithItsReasonAndAnswerTheirPreset) {
  for (const MethodDescription& method : CalledMethods()) {
    m_recorder.FailNext(method.name, 1, "org.freedesktop.DBus.Error.Failed", "no such luck");
    bttest::LogCapture log;
    const OwnedVariant arguments(bttest::MakeTuple(method.in, 0));
    EXPECT_EQ(Call(m_adapter, method, bttest::In(arguments.get())), Preset(method)) << method.name;
    ExpectOneErrorLine(log, method, "GDBus.Error:org.freedesktop.DBus.Error.Failed: no such luck");
  }
}

TEST_F(Requests, ThatAreAnsweredWithOtherTypesFailLikeThatAndCrashNothing) {
  for (const MethodDescription& method : CalledMethods()) {
    m_recorder.ReplyWrongType(method.name);
    bttest::LogCapture log;
    const OwnedVariant arguments(bttest::MakeTuple(method.in, 0));
    EXPECT_EQ(Call(m_adapter, method, bttest::In(arguments.get())), Preset(method)) << method.name;
    EXPECT_EQ(log.OfLevel(100).size(), kSilent.count(method.name) != 0 ? 0u : 1u) << method.name;
    EXPECT_TRUE(log.Complaints().empty()) << method.name;
  }
}

TEST_F(Requests, WithTextThatIsNotUtf8NeverReachTheBus) {
  for (const MethodDescription& method : CalledMethods()) {
    for (std::size_t place = 0; place < method.in.size(); ++place) {
      if (method.in[place].signature != "s") {
        continue;
      }
      bttest::LogCapture log;
      const OwnedVariant arguments(bttest::MakeTuple(method.in, 0));
      EXPECT_EQ(Call(m_adapter, method, bttest::In(arguments.get(), place)), Preset(method)) << method.name;
      ExpectOneErrorLine(log, method, "a text argument is not valid UTF-8");
      EXPECT_TRUE(m_recorder.TakeCalls().empty()) << method.name;
    }
  }
}

TEST_F(Requests, WithoutAProxyLogOneErrorWithAClearReasonAndAnswerTheirPreset) {
  ComZelkLinuxBluetooth* const proxy = g_BtProxy;
  g_BtProxy = nullptr;
  for (const MethodDescription& method : CalledMethods()) {
    bttest::LogCapture log;
    const OwnedVariant arguments(bttest::MakeTuple(method.in, 0));
    EXPECT_EQ(Call(m_adapter, method, bttest::In(arguments.get())), Preset(method)) << method.name;
    ExpectOneErrorLine(log, method, "there is no connection to the Bluetooth service");
  }
  g_BtProxy = proxy;
}

TEST_F(Requests, CutToAByteWhatTheInterfaceCarriesAsOne) {
  const int wide = 256 * 3 + 5;
  m_adapter.SetPower(wide);
  m_adapter.SetCapability(static_cast<MWPBtType::Capability>(wide), wide + 1);
  m_adapter.Connect("a", static_cast<MWPBtType::ProfileId>(wide), -1);
  m_adapter.SetAndroidAutoStatus(wide);
  m_adapter.SetAutoConnect(wide);
  m_adapter.SetAutoConnect(256);
  m_adapter.MultipleWayCall(static_cast<MWPBtType::CallAction>(wide), wide);
  MWPTypePlayMode mode;
  mode.nType = wide;
  mode.nValue = -2;
  m_adapter.SetCurPlayMode(mode);
  EXPECT_EQ(
      m_recorder.TakeCallTexts(),
      (std::vector<std::string>{
          "SetPower(byte 0x05,)", "SetCapability(byte 0x05, byte 0x06)", "Connect('a', byte 0x05, byte 0xff)",
          "SetAndroidAutoStatus(byte 0x05,)", "SetAutoConnect(true,)", "SetAutoConnect(false,)",
          "MultipleWayCall(byte 0x05, 773)", "SetCurPlayMode((byte 0x05, byte 0xfe),)"}));
}

TEST_F(Requests, OtherIntegersTravelUnchanged) {
  m_adapter.MovePairDevicePosion("a", -3);
  m_adapter.RegGetPlayStatus(1, 100000);
  m_adapter.PlayMusic(-2);
  EXPECT_EQ(m_recorder.TakeCallTexts(),
            (std::vector<std::string>{"MovePairDevicePosion('a', -3)", "RegGetPlayStatus(true, 100000)",
                                      "PlayMusic(-2,)"}));
}

TEST_F(Requests, AnswerPairSendsThePinFirst) {
  m_adapter.AnswerPair("1234", "00:1A:7D:DA:71:13", MWPBtType::BT_PAIR_REQUEST_PIN_CODE);
  EXPECT_EQ(m_recorder.TakeCallTexts(),
            std::vector<std::string>{"AnswerPair('1234', '00:1A:7D:DA:71:13', byte 0x03)"});
}

TEST_F(Requests, GetMediaInfoLeavesTheRecordAsItWasOnFailure) {
  MWPTypeMediaInfo info;
  info.title = "as it was";
  m_recorder.FailNext("GetMediaInfo");
  EXPECT_EQ(m_adapter.GetMediaInfo(info), 0);
  EXPECT_EQ(info.title, "as it was");
}

TEST_F(Requests, GetPairDeviceInfoAnswersZerosOnFailureAlsoForTheEnabledProfile) {
  m_recorder.FailNext("GetPairDeviceInfoByAddress");
  const MWPTypeDevice device = m_adapter.GetPairDeviceInfoByAddress("a");
  EXPECT_EQ(device.eEnableProfileId, 0);
}

TEST_F(Requests, PlayModesAreAppendedAndTheirTypesPrinted) {
  m_recorder.SetReply("GetSupportPlayMode", g_variant_new_parsed("([(byte 1, byte 2), (3, 4)], true)"));
  m_recorder.SetReply("GetCurPlayMode", g_variant_new_parsed("([(byte 5, byte 6)], true)"));
  std::vector<MWPTypePlayMode> modes(1);
  modes[0].nType = 9;
  testing::internal::CaptureStdout();
  EXPECT_EQ(m_adapter.GetSupportPlayMode(modes), 1);
  EXPECT_EQ(m_adapter.GetCurPlayMode(modes), 1);
  const std::string printed = testing::internal::GetCapturedStdout();
  ASSERT_EQ(modes.size(), 4u);
  EXPECT_EQ(modes[0].nType, 9);
  EXPECT_EQ(modes[1].nType, 1);
  EXPECT_EQ(modes[1].nValue, 2);
  EXPECT_EQ(modes[2].nValue, 4);
  EXPECT_EQ(modes[3].nType, 5);
  EXPECT_EQ(printed,
            "GetSupportPlayMode type '(yy)'\nGetSupportPlayMode type '(yy)'\nGetCurPlayMode type '(yy)'\n");
}

TEST_F(Requests, LinkKeyIsLoggedByteByByteAfterTheAddress) {
  bttest::LogCapture log;
  m_adapter.SetDeviceOOBLinkKey("00:1A:7D:DA:71:13", {0, 10, 255});
  EXPECT_EQ(log.Messages(),
            (std::vector<std::string>{"BtClientIpcAdapter::SetDeviceOOBLinkKey :00:1A:7D:DA:71:13",
                                      "BtClientIpcAdapter::SetDeviceOOBLinkKey : 0",
                                      "BtClientIpcAdapter::SetDeviceOOBLinkKey : a",
                                      "BtClientIpcAdapter::SetDeviceOOBLinkKey : ff"}));
  EXPECT_EQ(log.OfLevel(20).size(), 4u);
}

TEST_F(Requests, EmptyLinkKeyLogsOnlyTheAddressAndSendsAnEmptyArrayOfBytes) {
  bttest::LogCapture log;
  m_adapter.SetDeviceOOBLinkKey("a", {});
  EXPECT_EQ(log.Messages(), std::vector<std::string>{"BtClientIpcAdapter::SetDeviceOOBLinkKey :a"});
  EXPECT_EQ(m_recorder.TakeCallTexts(), std::vector<std::string>{"SetDeviceOOBLinkKey('a', <@ay []>)"});
}

TEST_F(Requests, SppBufferOfNoLengthIsAnEmptyArrayAndANullOneIsAnErrorThatSendsNothing) {
  char byte = 'x';
  EXPECT_EQ(m_adapter.SppSendBuffer("a", &byte, 0), 0);
  EXPECT_EQ(m_adapter.SppSendBuffer("a", &byte, -5), 0);
  EXPECT_EQ(m_adapter.SppSendBuffer("a", nullptr, 0), 0);
  EXPECT_EQ(m_recorder.TakeCallTexts(), std::vector<std::string>(3, "SppSendBuffer('a', <@ay []>)"));

  bttest::LogCapture log;
  EXPECT_EQ(m_adapter.SppSendBuffer("a", nullptr, 1), 1);
  ExpectOneErrorLine(log, bttest::BluetoothInterface().Method("SppSendBuffer"), "there is no buffer");
  EXPECT_TRUE(m_recorder.TakeCalls().empty());
}

TEST_F(Requests, OversizedBuffersAndTextsAreRefusedAndTheConnectionLives) {
  const std::size_t tooLarge = (std::size_t{64} << 20) + 1;
  {
    std::vector<unsigned char> bytes(tooLarge);
    bttest::LogCapture log;
    EXPECT_EQ(m_adapter.SppSendBuffer("a", reinterpret_cast<char*>(bytes.data()), static_cast<int>(tooLarge)),
              1);
    ExpectOneErrorLine(log, bttest::BluetoothInterface().Method("SppSendBuffer"),
                       "the buffer is larger than the 64 MiB that D-Bus carries");
  }
  {
    bttest::LogCapture log;
    EXPECT_EQ(m_adapter.DialCall(std::string(std::size_t{128} << 20, '5')), 0);
    ExpectOneErrorLine(log, bttest::BluetoothInterface().Method("DialCall"),
                       "the arguments are too large for a D-Bus message");
  }
  m_recorder.SetReply("AcceptCall", g_variant_new("(b)", TRUE));
  EXPECT_EQ(m_adapter.AcceptCall(), 1);
}

TEST_F(Requests, TheLargestBufferArrives) {
  std::vector<unsigned char> bytes(std::size_t{64} << 20, 'x');
  m_recorder.SetReply("SppSendBuffer", g_variant_new("(b)", FALSE));
  EXPECT_EQ(
      m_adapter.SppSendBuffer("a", reinterpret_cast<char*>(bytes.data()), static_cast<int>(bytes.size())), 0);
}

}  // namespace
