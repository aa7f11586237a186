#ifndef TESTS_CONTRACT_RECORDINGLISTENERS_H
#define TESTS_CONTRACT_RECORDINGLISTENERS_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <bluetooth/IMWPBtBleListener.h>
#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/IMWPBtMediaListener.h>
#include <bluetooth/IMWPBtMessageListener.h>
#include <bluetooth/IMWPBtPbapListener.h>
#include <bluetooth/IMWPBtPhoneListener.h>
#include <bluetooth/IMWPBtSppListener.h>

#include "contract/ValueText.h"

// Listeners of all kinds that note each event that they receive.

namespace bttest {

/// An event as one listener received it.
struct Reception {
  const IMWPBtListenerBase* listener;
  std::string event;                ///< name of the listener's method
  std::vector<std::string> values;  ///< as ValueText gives them; a buffer counts as the text of its bytes
};

/// What several listeners received, in order.
struct Receptions {
  std::vector<Reception> all;
  std::function<void()> afterEach;  ///< runs inside the callback, and may throw
};

template <typename Interface>
class RecordingListener : public Interface {
 public:
  explicit RecordingListener(Receptions& receptions) : m_receptions(receptions) {}

 protected:
  template <typename... Values>
  void Note(const char* event, const Values&... values) {
    m_receptions.all.push_back({this, event, {ValueText::Of(values)...}});
    if (m_receptions.afterEach) {
      m_receptions.afterEach();
    }
  }

 private:
  Receptions& m_receptions;
};

class RecordingComListener : public RecordingListener<IMWPBtComListener> {
 public:
  using RecordingListener::RecordingListener;
  void OnOpenBtStatusChanged(MWPBtType::PowerStatus a) override { Note(__func__, a); }
  void OnBtProfileEnableStatusChanged(int a) override { Note(__func__, a); }
  void OnPairStatusChanged(MWPBtType::PairStatus a, MWPBtType::PairFailedReson b,
                           const std::string& c) override {
    Note(__func__, a, b, c);
  }
  void OnAnswerPairRequest(const std::string& a, const std::string& b, int c,
                           MWPBtType::PairRequestState d) override {
    Note(__func__, a, b, c, d);
  }
  void OnBtCapabilityChanged(MWPBtType::Capability a, int b) override { Note(__func__, a, b); }
  void OnBtAttributeChanged(MWPBtType::Attribute a, const std::string& b) override { Note(__func__, a, b); }
  void OnScanStatusChanged(MWPBtType::ScanStatus a) override { Note(__func__, a); }
  void OnDeletePairStatusChanged(int a) override { Note(__func__, a); }
  void OnOperatorNameChanged(const std::string& a) override { Note(__func__, a); }
  void OnConnectStatusChanged(const std::string& a, MWPBtType::ProfileId b,
                              MWPBtType::ConnStatus c) override {
    Note(__func__, a, b, c);
  }
  void OnSupportProfileChanged(const std::string& a, MWPBtType::ProfileId b) override {
    Note(__func__, a, b);
  }
  void OnWirelessEnableRequest(const std::string& a, const std::string& b,
                               MWPBtType::SupportType c) override {
    Note(__func__, a, b, c);
  }
  void OnAndroidAutoPairingResponse(MWPBtType::HUStatus a) override { Note(__func__, a); }
  void OnSetDeviceOOBLinkKeyChanged(const std::string& a, int b) override { Note(__func__, a, b); }
};

class RecordingPhoneListener : public RecordingListener<IMWPBtPhoneListener> {
 public:
  using RecordingListener::RecordingListener;
  void OnMobileService(int a) override { Note(__func__, a); }
  void OnRoamingStatusChanged(int a) override { Note(__func__, a); }
  void OnBtSignalChanged(unsigned char a) override { Note(__func__, a); }
  void OnBtBatteryChanged(unsigned char a) override { Note(__func__, a); }
  void OnCurrentCallInfoChanged(int a) override { Note(__func__, a); }
  void OnCallingTimeChanged(int a, int b, int c) override { Note(__func__, a, b, c); }
  void OnCallStatusChanged(int a, MWPBtType::CallStatus b, int c) override { Note(__func__, a, b, c); }
  void OnConferenceChanged(MWPBtType::CallAction a, int b) override { Note(__func__, a, b); }
  void OnHangupCallChanged() override { Note(__func__); }
  void OnAudioStatusChanged(MWPBtType::AudioStatus a) override { Note(__func__, a); }
  void OnVoiceStatusChanged(int a) override { Note(__func__, a); }
  void OnCodecModeChanged(MWPBtType::CodecMode a) override { Note(__func__, a); }
};

class RecordingMediaListener : public RecordingListener<IMWPBtMediaListener> {
 public:
  using RecordingListener::RecordingListener;
  void OnMediaAudioStateChanged(const std::string& a, int b) override { Note(__func__, a, b); }
  void OnBtMusicPlayChanged(MWPBtType::MusicPlayStatus a) override { Note(__func__, a); }
  void OnAudioTrackChanged() override { Note(__func__); }
  void OnPlayModeChanged() override { Note(__func__); }
  void OnSupportPlayModeChanged() override { Note(__func__); }
  void OnMediaInfoChanged() override { Note(__func__); }
  void OnCoverImageDownloadCompleted() override { Note(__func__); }
  void OnCurPositionChanged(int a, int b) override { Note(__func__, a, b); }
  void OnSupportAvrcpNotify(MWPBtType::SupportAvrcpEvent a, int b) override { Note(__func__, a, b); }
  void OnFastForwardChanged(int a) override { Note(__func__, a); }
  void OnFastRewindChanged(int a) override { Note(__func__, a); }
  void OnSupportBrowserStatusChanged(int a) override { Note(__func__, a); }
  void OnPlayerInfoChanged() override { Note(__func__); }
  void OnBrowserMediaInfoChanged() override { Note(__func__); }
  void OnCurBrowserPathChanged(int a) override { Note(__func__, a); }
  void OnBrowserFolderItemTotalChanged(int a) override { Note(__func__, a); }
  void OnMediaItemToNowPlayingStatus(int a) override { Note(__func__, a); }
  void OnSendPlayItemStatus(int a) override { Note(__func__, a); }
};

class RecordingPbapListener : public RecordingListener<IMWPBtPbapListener> {
 public:
  using RecordingListener::RecordingListener;
  void OnPBDownloadStatus(MWPBtType::PbapStatus a, MWPBtType::PbapType b) override { Note(__func__, a, b); }
  void OnPbDownloadCountChanged(int a, int b) override { Note(__func__, a, b); }
  void OnBtCallLogListChanged() override { Note(__func__); }
  void OnDeletePhoneBookChanged(int a) override { Note(__func__, a); }
  void OnContactFavoriteChanged(int a, int b) override { Note(__func__, a, b); }
};

class RecordingMessageListener : public RecordingListener<IMWPBtMessageListener> {
 public:
  using RecordingListener::RecordingListener;
  void OnMessageDownloadStatus(MWPBtType::MsgLoadStatus a) override { Note(__func__, a); }
  void OnMessageDownloadCountChanged(int a, int b) override { Note(__func__, a, b); }
  void OnMessageStatusNotify(MWPBtType::MsgStatus a, std::string b) override { Note(__func__, a, b); }
  void OnMessageSetPropertyStatus(MWPBtType::SetMsgProStatus a) override { Note(__func__, a); }
};

class RecordingSppListener : public RecordingListener<IMWPBtSppListener> {
 public:
  using RecordingListener::RecordingListener;
  void OnSppConnectStatus(const std::string& a, MWPBtType::SupportType b, int c) override {
    Note(__func__, a, b, c);
  }
  void OnSppReceiveBufferChanged(const std::string& a, char* buffer, int length) override {
    Note(__func__, a, std::string(buffer, static_cast<std::size_t>(length)));
  }
  void OnHIDCalibration(int a) override { Note(__func__, a); }
  void OnHIDConnection(std::string a, int b) override { Note(__func__, a, b); }
};

class RecordingBleListener : public RecordingListener<IMWPBtBleListener> {
 public:
  using RecordingListener::RecordingListener;
  void OnBleDiscoveryResponse(int a, int b) override { Note(__func__, a, b); }
  void OnBleConnectStatusChanged(const std::string& a, int b) override { Note(__func__, a, b); }
  void OnBleAllService(int a) override { Note(__func__, a); }
  void OnBleSmpNotify(MWPBtType::SmpEvent a, const std::string& b, unsigned char c, unsigned int d) override {
    Note(__func__, a, b, c, d);
  }
  void OnBleCharNotify(unsigned short a, const unsigned char* data, unsigned int length) override {
    Note(__func__, a, std::string(data, data + length));
  }
  void OnBleGAttribResultNotify(unsigned char a, const unsigned char* data, unsigned short length) override {
    Note(__func__, a, std::string(data, data + length));
  }
};

/// One listener of each kind.
struct ListenerOfEachKind {
  explicit ListenerOfEachKind(Receptions& r)
      : com(r), phone(r), media(r), pbap(r), message(r), spp(r), ble(r) {}
  RecordingComListener com;
  RecordingPhoneListener phone;
  RecordingMediaListener media;
  RecordingPbapListener pbap;
  RecordingMessageListener message;
  RecordingSppListener spp;
  RecordingBleListener ble;
};

/// Two listeners of each kind. Those constructed first have the higher addresses, so that the order of
/// addresses and that of construction are not the same.
class TwoListenersOfEachKind {
 public:
  explicit TwoListenersOfEachKind(Receptions& receptions) {
    m_sets[1].emplace(receptions);
    m_sets[0].emplace(receptions);
  }

 private:
  std::optional<ListenerOfEachKind> m_sets[2];
};

}  // namespace bttest

#endif
