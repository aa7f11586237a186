// Where signals come from: each of the interface is caused by what is asked of the service, or by what
// happens outside it.

#include <algorithm>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "contract/Witness.h"
#include "support/InterfaceDescription.h"
#include "tests/service/running_service.h"

namespace btservice {
namespace {

using testing::IsEmpty;

constexpr const char* kAda = "'00:1A:7D:DA:71:13'";
constexpr const char* kBen = "'00:1A:7D:DA:71:14'";

enum class By { REQUEST, CONTROL };

/// Something that is done, and the signals it leads to. What was done before may be needed for it.
struct Cause {
  By by;
  std::string method;
  std::string arguments;  ///< text of the values, in order
  std::vector<std::string> signals;
};

/// When the service starts the phone is connected, and reports its state; its phone book is read.
const std::vector<std::string> kAtStart{"OnOpenBtStatusChanged",   "OnConnectStatusChanged",
                                        "OnSupportProfileChanged", "OnMobileService",
                                        "OnOperatorNameChanged",   "OnRoamingStatusChanged",
                                        "OnBtSignalChanged",       "OnBtBatteryChanged",
                                        "OnMessageDownloadStatus", "OnMessageDownloadCountChanged",
                                        "OnPBDownloadStatus",      "OnPbDownloadCountChanged",
                                        "OnBtCallLogListChanged",  "OnPlayerInfoChanged",
                                        "OnSupportAvrcpNotify",    "OnFastForwardChanged",
                                        "OnFastRewindChanged",     "OnSupportBrowserStatusChanged",
                                        "OnSupportPlayModeChanged"};

std::string Ada(const std::string& more = "") { return kAda + more; }
std::string Ben(const std::string& more = "") { return kBen + more; }

const std::vector<Cause> kCauses{
    {By::REQUEST, "SetCapability", "9, 1", {"OnBtCapabilityChanged"}},
    {By::REQUEST, "SetAttribute", "0, 'Car'", {"OnBtAttributeChanged"}},
    {By::REQUEST, "EnableProfile", "", {"OnBtProfileEnableStatusChanged"}},
    {By::REQUEST, "SetScanAction", "true", {"OnScanStatusChanged", "OnScanedDeviceChanged"}},
    {By::REQUEST, "Pair", Ben(", ''"), {"OnPairStatusChanged", "OnAnswerPairRequest"}},
    {By::REQUEST, "RejectPair", Ben(", 0"), {"OnPairStatusChanged"}},
    {By::CONTROL, "RequestPairing", Ben(), {"OnPairStatusChanged", "OnAnswerPairRequest"}},
    {By::CONTROL, "RejectPairing", Ben(), {"OnPairStatusChanged"}},
    {By::REQUEST, "RequestAndroidAutoPairing", Ben(", 0"), {"OnAndroidAutoPairingResponse"}},
    {By::CONTROL, "RequestProjection", Ada(), {"OnWirelessEnableRequest"}},
    {By::REQUEST, "SetDeviceOOBLinkKey", Ada(", <[byte 1, 2]>"), {"OnSetDeviceOOBLinkKeyChanged"}},

    {By::CONTROL, "SetSignal", Ada(", 1"), {"OnBtSignalChanged"}},
    {By::CONTROL, "SetBattery", Ada(", 1"), {"OnBtBatteryChanged"}},
    {By::CONTROL, "SetRoaming", Ada(", true"), {"OnRoamingStatusChanged"}},
    {By::CONTROL, "SetOperator", Ada(", ''"), {"OnMobileService"}},
    {By::CONTROL, "SetOperator", Ada(", 'Südfunk'"), {"OnMobileService", "OnOperatorNameChanged"}},

    {By::REQUEST,
     "PlayMusic",
     "0",
     {"OnBtMusicPlayChanged", "OnMediaAudioStateChanged", "OnCurPositionChanged"}},
    {By::REQUEST,
     "NextMusic",
     "",
     {"OnAudioTrackChanged", "OnMediaInfoChanged", "OnCoverImageDownloadCompleted"}},
    {By::CONTROL, "Pause", Ada(), {"OnBtMusicPlayChanged", "OnMediaAudioStateChanged"}},
    {By::CONTROL, "Play", Ada(), {"OnBtMusicPlayChanged", "OnMediaAudioStateChanged"}},
    {By::REQUEST, "SetCurPlayMode", "(2, 3)", {"OnPlayModeChanged"}},
    {By::REQUEST, "RootDirectory", "0, 10", {"OnCurBrowserPathChanged", "OnBrowserMediaInfoChanged"}},
    {By::REQUEST, "GetBrowsingFolderItemTotal", "''", {"OnBrowserFolderItemTotalChanged"}},
    {By::REQUEST, "AddMediaItemToNowPlaying", "'t1', 1", {"OnMediaItemToNowPlayingStatus"}},
    {By::REQUEST, "PlayItem", "'t1', 1", {"OnSendPlayItemStatus", "OnAudioTrackChanged"}},

    {By::CONTROL,
     "Call",
     Ada(", '110'"),
     {"OnCallStatusChanged", "OnCurrentCallInfoChanged", "OnCodecModeChanged", "OnAudioStatusChanged",
      "OnBtMusicPlayChanged"}},
    {By::REQUEST, "AcceptCall", "", {"OnCallStatusChanged", "OnCallingTimeChanged"}},
    {By::CONTROL, "Call", Ada(", '112'"), {"OnCallStatusChanged", "OnConferenceChanged"}},
    {By::CONTROL,
     "HangUp",
     Ada(", 0"),
     {"OnHangupCallChanged", "OnBtCallLogListChanged", "OnConferenceChanged", "OnAudioStatusChanged"}},
    {By::REQUEST, "StartVoiceRecognition", "", {"OnVoiceStatusChanged"}},

    {By::REQUEST, "SetContactFavorite", "1, true", {"OnContactFavoriteChanged"}},
    {By::REQUEST, "DeleteContactById", "2", {"OnDeletePhoneBookChanged"}},
    {By::REQUEST, "StartPhoneBookDownload", "0", {"OnPBDownloadStatus", "OnPbDownloadCountChanged"}},

    {By::CONTROL, "SendMessage", Ada(", '21', 'Ben', 'Hi'"), {"OnMessageStatusNotify"}},
    {By::CONTROL, "SetMessageProperty", Ada(", '21', true"), {"OnMessageSetPropertyStatus"}},

    {By::REQUEST, "Connect", Ada(", 7, 0"), {"OnSppConnectStatus"}},
    {By::REQUEST, "SppSendText", Ada(", 'hello'"), {"OnSppReceiveBufferChanged"}},
    {By::CONTROL, "RequestConnection", Ada(", 'hid'"), {"OnHIDConnection"}},
    {By::REQUEST, "SetHIDCalibration", Ada(", 0"), {"OnHIDCalibration"}},
    {By::CONTROL, "RequestDisconnection", Ada(", 'spp'"), {"OnSppConnectStatus"}},
    {By::CONTROL, "SetInRange", Ada(", false"), {"OnConnectStatusChanged", "OnHIDConnection"}},
    {By::CONTROL, "SetInRange", Ada(", true"), {"OnConnectStatusChanged", "OnPBDownloadStatus"}},
    {By::REQUEST, "DeletePairDevice", Ada(", true"), {"OnDeletePairStatusChanged"}},
    {By::REQUEST, "SetPower", "0", {"OnOpenBtStatusChanged"}},
};

class CausesTest : public testing::Test {
 protected:
  /// The reply, as text.
  std::string Perform(const Cause& cause) {
    const bool isRequest = cause.by == By::REQUEST;
    const bttest::MethodDescription& method =
        (isRequest ? bttest::BluetoothInterface() : bttest::InterfaceOfControl(cause.method))
            .Method(cause.method);
    const std::string text = "(" + cause.arguments + (method.in.size() == 1 ? ",)" : ")");
    bttest::ErrorCollector error;
    const bttest::VariantPtr arguments(g_variant_parse(
        G_VARIANT_TYPE(bttest::TupleSignature(method.in).c_str()), text.c_str(), nullptr, nullptr, error));
    error.ThrowIfSet(cause.method + text);
    return bttest::ToText((isRequest ? service.Call(cause.method, arguments.get())
                                     : service.CallControl(cause.method, arguments.get()))
                              .get());
  }
  void Await(const std::vector<std::string>& signals, const std::string& after) {
    for (const std::string& signal : signals) {
      EXPECT_TRUE(service.WaitFor(signal + " ")) << signal << " after " << after;
      m_unseen.erase(signal);
    }
  }
  std::set<std::string>& Unseen() { return m_unseen; }

  RunningService service{{"--speed", "50", "--world", BTTEST_FULL_WORLD}};

 private:
  std::set<std::string> m_unseen = [] {
    std::set<std::string> names;
    for (const bttest::SignalDescription& signal : bttest::BluetoothInterface().signals) {
      names.insert(signal.name);
    }
    return names;
  }();
};

TEST_F(CausesTest, EverySignalOfTheInterfaceHasOne) {
  EXPECT_TRUE(service.WaitFor("OnPBDownloadStatus (byte 0x03, byte 0x06)"));
  Await(kAtStart, "the start");
  for (const Cause& cause : kCauses) {
    service.ForgetSignals();
    const std::string reply = Perform(cause);
    EXPECT_THAT(reply, testing::AnyOf("()", "(true,)", "(byte 0x01,)", "(1,)"))
        << cause.method << "(" << cause.arguments << ")";
    Await(cause.signals, cause.method + "(" + cause.arguments + ")");
  }
  for (const bttest::Witness::Cause& cause : bttest::TheWitness().causes) {
    Unseen().erase(cause.signal);
  }
  EXPECT_THAT(Unseen(), IsEmpty()) << "nothing here makes the service send these, and no \"by\" in "
                                      "tests/contract/witness.txt says what does";
}

class WitnessedCausesTest : public CausesTest {};

TEST_F(WitnessedCausesTest, LeadToTheirSignals) {
  ASSERT_TRUE(service.WaitFor("OnPBDownloadStatus (byte 0x03, byte 0x06)"));
  for (const bttest::Witness::Cause& cause : bttest::TheWitness().causes) {
    const auto& methods = bttest::BluetoothInterface().methods;
    const bool isRequest = std::any_of(methods.begin(), methods.end(),
                                       [&](const auto& method) { return method.name == cause.method; });
    service.ForgetSignals();
    Perform({isRequest ? By::REQUEST : By::CONTROL, cause.method, cause.arguments, {}});
    Await({cause.signal}, cause.method + "(" + cause.arguments + ")");
  }
}

}  // namespace
}  // namespace btservice
