#include "contract/EventCases.h"

#include <type_traits>

#include "contract/ValueText.h"

namespace bttest {
namespace {

using C = MWPBtClient;
using Bytes = std::vector<unsigned char>;

/// A case whose listeners note the values that the client is called with. Enumerations are given as numbers,
/// some of which they do not have.
template <typename... Params, typename... Values>
EventCase Case(MWPBtListenerType kind, const char* name, void (C::*event)(Params...), Values... values) {
  return {name,
          kind,
          [=](C& client) { (client.*event)(static_cast<std::decay_t<Params>>(values)...); },
          {ValueText::Of(values)...}};
}

/// For the two events that take a vector, which listeners note as the text of its bytes.
template <typename Number, typename Length>
EventCase BytesCase(const char* name, void (C::*event)(Number, Bytes, Length), Number number,
                    const Bytes& bytes) {
  return {name,
          BLE_LISTENER,
          [=](C& client) { (client.*event)(number, bytes, static_cast<Length>(bytes.size())); },
          {ValueText::Of(number), ValueText::Of(std::string(bytes.begin(), bytes.end()))}};
}

EventCase SppBufferCase() {
  const std::string address = "00:1A:7D:DA:71:13";
  const std::string bytes("a\0b", 3);
  return {"OnSppReceiveBufferChanged",
          SPP_LISTENER,
          [=](C& client) {
            std::string buffer = bytes;
            client.OnSppReceiveBufferChanged(address, buffer.data(), static_cast<int>(buffer.size()));
          },
          {ValueText::Of(address), ValueText::Of(bytes)}};
}

std::vector<EventCase> MakeCases() {
  const std::string a = "00:1A:7D:DA:71:13";
  const std::string b = "M\u00fcller";
  const int low = -2147483647 - 1;
  const int high = 2147483647;
  return {
      Case(COM_LISTENER, "OnOpenBtStatusChanged", &C::OnOpenBtStatusChanged, 3),
      Case(COM_LISTENER, "OnBtProfileEnableStatusChanged", &C::OnBtProfileEnableStatusChanged, 1),
      Case(COM_LISTENER, "OnPairStatusChanged", &C::OnPairStatusChanged, 255, 7, a),
      Case(COM_LISTENER, "OnAnswerPairRequest", &C::OnAnswerPairRequest, a, b, 1, 4),
      Case(COM_LISTENER, "OnBtCapabilityChanged", &C::OnBtCapabilityChanged, 11, 200),
      Case(COM_LISTENER, "OnBtAttributeChanged", &C::OnBtAttributeChanged, 5, b),
      Case(COM_LISTENER, "OnScanStatusChanged", &C::OnScanStatusChanged, 1),
      Case(COM_LISTENER, "OnDeletePairStatusChanged", &C::OnDeletePairStatusChanged, 255),
      Case(COM_LISTENER, "OnOperatorNameChanged", &C::OnOperatorNameChanged, b),
      Case(COM_LISTENER, "OnConnectStatusChanged", &C::OnConnectStatusChanged, a, 10, 6),
      Case(COM_LISTENER, "OnSupportProfileChanged", &C::OnSupportProfileChanged, a, 9),
      Case(COM_LISTENER, "OnWirelessEnableRequest", &C::OnWirelessEnableRequest, a, b, 2),
      Case(COM_LISTENER, "OnAndroidAutoPairingResponse", &C::OnAndroidAutoPairingResponse, 3),
      Case(COM_LISTENER, "OnSetDeviceOOBLinkKeyChanged", &C::OnSetDeviceOOBLinkKeyChanged, a, 1),

      Case(HFP_LISTENER, "OnMobileService", &C::OnMobileService, 1),
      Case(HFP_LISTENER, "OnRoamingStatusChanged", &C::OnRoamingStatusChanged, 1),
      Case(HFP_LISTENER, "OnBtSignalChanged", &C::OnBtSignalChanged, 255),
      Case(HFP_LISTENER, "OnBtBatteryChanged", &C::OnBtBatteryChanged, 128),
      Case(HFP_LISTENER, "OnCurrentCallInfoChanged", &C::OnCurrentCallInfoChanged, high),
      Case(HFP_LISTENER, "OnCallingTimeChanged", &C::OnCallingTimeChanged, low, 2, 1),
      Case(HFP_LISTENER, "OnCallStatusChanged", &C::OnCallStatusChanged, 1, 7, high),
      Case(HFP_LISTENER, "OnConferenceChanged", &C::OnConferenceChanged, 4, 1),
      Case(HFP_LISTENER, "OnHangupCallChanged", &C::OnHangupCallChanged),
      Case(HFP_LISTENER, "OnAudioStatusChanged", &C::OnAudioStatusChanged, 2),
      Case(HFP_LISTENER, "OnVoiceStatusChanged", &C::OnVoiceStatusChanged, 255),
      Case(HFP_LISTENER, "OnCodecModeChanged", &C::OnCodecModeChanged, 3),

      Case(MEDIA_LISTENER, "OnMediaAudioStateChanged", &C::OnMediaAudioStateChanged, a, 1),
      Case(MEDIA_LISTENER, "OnBtMusicPlayChanged", &C::OnBtMusicPlayChanged, 255),
      Case(MEDIA_LISTENER, "OnAudioTrackChanged", &C::OnAudioTrackChanged),
      Case(MEDIA_LISTENER, "OnPlayModeChanged", &C::OnPlayModeChanged),
      Case(MEDIA_LISTENER, "OnSupportPlayModeChanged", &C::OnSupportPlayModeChanged),
      Case(MEDIA_LISTENER, "OnMediaInfoChanged", &C::OnMediaInfoChanged),
      Case(MEDIA_LISTENER, "OnCoverImageDownloadCompleted", &C::OnCoverImageDownloadCompleted),
      Case(MEDIA_LISTENER, "OnCurPositionChanged", &C::OnCurPositionChanged, low, high),
      Case(MEDIA_LISTENER, "OnSupportAvrcpNotify", &C::OnSupportAvrcpNotify, 13, 1),
      Case(MEDIA_LISTENER, "OnFastForwardChanged", &C::OnFastForwardChanged, 1),
      Case(MEDIA_LISTENER, "OnFastRewindChanged", &C::OnFastRewindChanged, 1),
      Case(MEDIA_LISTENER, "OnSupportBrowserStatusChanged", &C::OnSupportBrowserStatusChanged, 1),
      Case(MEDIA_LISTENER, "OnPlayerInfoChanged", &C::OnPlayerInfoChanged),
      Case(MEDIA_LISTENER, "OnBrowserMediaInfoChanged", &C::OnBrowserMediaInfoChanged),
      Case(MEDIA_LISTENER, "OnCurBrowserPathChanged", &C::OnCurBrowserPathChanged, 1),
      Case(MEDIA_LISTENER, "OnBrowserFolderItemTotalChanged", &C::OnBrowserFolderItemTotalChanged, high),
      Case(MEDIA_LISTENER, "OnMediaItemToNowPlayingStatus", &C::OnMediaItemToNowPlayingStatus, 1),
      Case(MEDIA_LISTENER, "OnSendPlayItemStatus", &C::OnSendPlayItemStatus, 1),

      Case(PBAP_LISTENER, "OnPBDownloadStatus", &C::OnPBDownloadStatus, 6, 5),
      Case(PBAP_LISTENER, "OnPbDownloadCountChanged", &C::OnPbDownloadCountChanged, low, high),
      Case(PBAP_LISTENER, "OnBtCallLogListChanged", &C::OnBtCallLogListChanged),
      Case(PBAP_LISTENER, "OnDeletePhoneBookChanged", &C::OnDeletePhoneBookChanged, 1),
      Case(PBAP_LISTENER, "OnContactFavoriteChanged", &C::OnContactFavoriteChanged, high, 1),

      Case(MAP_LISTENER, "OnMessageDownloadStatus", &C::OnMessageDownloadStatus, 8),
      Case(MAP_LISTENER, "OnMessageDownloadCountChanged", &C::OnMessageDownloadCountChanged, 1, high),
      Case(MAP_LISTENER, "OnMessageStatusNotify", &C::OnMessageStatusNotify, 8, b),
      Case(MAP_LISTENER, "OnMessageSetPropertyStatus", &C::OnMessageSetPropertyStatus, 1),

      Case(SPP_LISTENER, "OnSppConnectStatus", &C::OnSppConnectStatus, a, 2, 1),
      SppBufferCase(),
      Case(SPP_LISTENER, "OnHIDCalibration", &C::OnHIDCalibration, 1),
      Case(SPP_LISTENER, "OnHIDConnection", &C::OnHIDConnection, a, low),

      Case(BLE_LISTENER, "OnBleDiscoveryResponse", &C::OnBleDiscoveryResponse, low, high),
      Case(BLE_LISTENER, "OnBleConnectStatusChanged", &C::OnBleConnectStatusChanged, a, 2),
      Case(BLE_LISTENER, "OnBleAllService", &C::OnBleAllService, high),
      Case(BLE_LISTENER, "OnBleSmpNotify", &C::OnBleSmpNotify, 5, a, 255, 4294967295u),
      BytesCase<unsigned short, unsigned int>("OnBleCharNotify", &C::OnBleCharNotify, 65535, {0, 1, 255}),
      BytesCase<unsigned char, unsigned short>("OnBleGAttribResultNotify", &C::OnBleGAttribResultNotify, 255,
                                               {9, 0}),
  };
}

}  // namespace

const std::vector<EventCase>& EventCases() {
  static const std::vector<EventCase> cases = MakeCases();
  return cases;
}

}  // namespace bttest
