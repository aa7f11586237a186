// The events of the client. Nearly all are one line: hand the event to the listeners of its kind.

#include <cxxabi.h>

#include <atomic>
#include <exception>
#include <set>

#include <bluetooth/IMWPBtBleListener.h>
#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/IMWPBtMediaListener.h>
#include <bluetooth/IMWPBtMessageListener.h>
#include <bluetooth/IMWPBtPbapListener.h>
#include <bluetooth/IMWPBtPhoneListener.h>
#include <bluetooth/IMWPBtSppListener.h>

#define MWP_LOG_SOURCE "libbluetooth/MWPBtClient"
#include <mwp/MWPLog.h>

#include "libbluetooth/MWPBtClient.h"

namespace {

/// The type tag of a listener interface.
template <typename Listener>
constexpr int kListenerType = MAX_LISTENER;

template <>
constexpr int kListenerType<IMWPBtComListener> = COM_LISTENER;
template <>
constexpr int kListenerType<IMWPBtPhoneListener> = HFP_LISTENER;
template <>
constexpr int kListenerType<IMWPBtMediaListener> = MEDIA_LISTENER;
template <>
constexpr int kListenerType<IMWPBtPbapListener> = PBAP_LISTENER;
template <>
constexpr int kListenerType<IMWPBtMessageListener> = MAP_LISTENER;
template <>
constexpr int kListenerType<IMWPBtSppListener> = SPP_LISTENER;
template <>
constexpr int kListenerType<IMWPBtBleListener> = BLE_LISTENER;

/// Learns that a client is deleted, for as long as this lives, without touching the client: that may happen
/// in a callback, or on another thread. The client itself must not grow, so those who watch are entered here.
class ClientWatch {
 public:
  /// Throws std::bad_alloc if more walks than ever before are under way and there is no memory for one more.
  explicit ClientWatch(const MWPBtClient& client) : m_client(client), m_slot(Occupy(client)) {}
  ~ClientWatch() { m_slot.client.store(nullptr); }
  ClientWatch(const ClientWatch&) = delete;
  ClientWatch& operator=(const ClientWatch&) = delete;

  bool ClientIsGone() const { return m_slot.client.load() != &m_client; }

  /// Tells those who watch a client that it is being deleted.
  static void MarkClientGone(const MWPBtClient& client) {
    for (Slot* slot = &s_first; slot != nullptr; slot = slot->next.load()) {
      const void* watched = &client;
      slot->client.compare_exchange_strong(watched, &s_gone);
    }
  }

 private:
  /// A place for one watch. Places are never given back, since others may be looking at them: there are as
  /// many as there were watches at the same time.
  struct Slot {
    std::atomic<const void*> client{nullptr};  ///< null: free; &s_gone: occupied, and the client is gone
    std::atomic<Slot*> next{nullptr};
  };

  static Slot& Occupy(const MWPBtClient& client) {
    for (Slot* slot = &s_first;;) {
      const void* nobody = nullptr;
      if (slot->client.compare_exchange_strong(nobody, &client)) {
        return *slot;
      }
      Slot* next = slot->next.load();
      if (next == nullptr) {
        auto* const fresh = new Slot;
        if (slot->next.compare_exchange_strong(next, fresh)) {
          next = fresh;
        } else {
          delete fresh;
        }
      }
      slot = next;
    }
  }

  static Slot s_first;
  static const char s_gone;

  const MWPBtClient& m_client;
  Slot& m_slot;
};

ClientWatch::Slot ClientWatch::s_first;
const char ClientWatch::s_gone = 0;

/// One walk over the listeners of a client: holds the registry locked for as long as it lives, or until that
/// client is deleted under its hands.
class Walk {
 public:
  explicit Walk(MWPBtClient& client) : m_client(client), m_watch(client) { client.LockListener(); }
  ~Walk() {
    if (!m_watch.ClientIsGone()) {
      m_client.UnlockListener();
    }
  }
  Walk(const Walk&) = delete;
  Walk& operator=(const Walk&) = delete;

  /// Ask after each call of a listener.
  bool ClientIsGone() const { return m_watch.ClientIsGone(); }

 private:
  MWPBtClient& m_client;
  const ClientWatch m_watch;
};

void LogThrown(const char* event, const char* what) {
  MWPLogWrite(MWPLogSite{MWP_LOG_SOURCE, event, __LINE__}, MWP_LOG_ERROR,
              "%s: a listener threw an exception: %s", event, what);
}

/// Calls notify on every listener of one kind in ascending order of their addresses, with the registry
/// locked. What a listener throws is logged and keeps neither the others from being called nor the registry
/// locked. Listeners may come and go during a call: the next one is looked up after it, so that each is
/// called at most once, and none after its removal. A call that deletes the client (MWP_DestroyBlueTooth) is
/// the last one.
template <typename Listener, typename Notify>
void ForEachListener(MWPBtClient& client, const char* event, Notify notify) {
  Walk walk(client);
  const std::set<IMWPBtListenerBase*>& listeners = client.GetListeners();
  for (auto next = listeners.begin(); next != listeners.end();) {
    IMWPBtListenerBase* const listener = *next;
    if (listener->m_nType != kListenerType<Listener>) {
      ++next;
      continue;
    }
    try {
      notify(*static_cast<Listener*>(listener));
    } catch (const std::exception& exception) {
      LogThrown(event, exception.what());
    } catch (const abi::__forced_unwind&) {
      throw;  // the thread is being cancelled
    } catch (...) {
      LogThrown(event, "not a std::exception");
    }
    if (walk.ClientIsGone()) {
      return;
    }
    next = listeners.upper_bound(listener);
  }
}

/// Hands an event to every listener of its kind.
template <typename Listener, typename... Params, typename... Args>
void Send(MWPBtClient& client, const char* event, void (Listener::*method)(Params...), const Args&... args) {
  ForEachListener<Listener>(client, event, [&](Listener& listener) { (listener.*method)(args...); });
}

}  // namespace

MWPBtClient::~MWPBtClient() { ClientWatch::MarkClientGone(*this); }

// To IMWPBtComListener

void MWPBtClient::OnOpenBtStatusChanged(MWPBtType::PowerStatus status) {
  MWP_LOG_AT(976, MWP_LOG_DEBUG, "[btclient][MWPBtClient::OnOpenBtStatusChanged] %d", status);
  Send(*this, __func__, &IMWPBtComListener::OnOpenBtStatusChanged, status);
}
void MWPBtClient::OnBtProfileEnableStatusChanged(int enabled) {
  MWP_LOG_AT(991, MWP_LOG_DEBUG, "[btclient][MWPBtClient::OnBtProfileEnableStatusChanged] %d", enabled);
  Send(*this, __func__, &IMWPBtComListener::OnBtProfileEnableStatusChanged, enabled);
}
void MWPBtClient::OnPairStatusChanged(MWPBtType::PairStatus status, MWPBtType::PairFailedReson reason,
                                      const std::string& address) {
  Send(*this, __func__, &IMWPBtComListener::OnPairStatusChanged, status, reason, address);
}
void MWPBtClient::OnAnswerPairRequest(const std::string& address, const std::string& pinCode,
                                      int androidAutoRequest, MWPBtType::PairRequestState state) {
  Send(*this, __func__, &IMWPBtComListener::OnAnswerPairRequest, address, pinCode, androidAutoRequest, state);
}
void MWPBtClient::OnBtCapabilityChanged(MWPBtType::Capability capability, int value) {
  Send(*this, __func__, &IMWPBtComListener::OnBtCapabilityChanged, capability, value);
}
void MWPBtClient::OnBtAttributeChanged(MWPBtType::Attribute attribute, const std::string& value) {
  Send(*this, __func__, &IMWPBtComListener::OnBtAttributeChanged, attribute, value);
}
void MWPBtClient::OnScanStatusChanged(MWPBtType::ScanStatus status) {
  Send(*this, __func__, &IMWPBtComListener::OnScanStatusChanged, status);
}
void MWPBtClient::OnDeletePairStatusChanged(int status) {
  Send(*this, __func__, &IMWPBtComListener::OnDeletePairStatusChanged, status);
}
void MWPBtClient::OnOperatorNameChanged(const std::string& name) {
  MWP_LOG_AT(1183, MWP_LOG_INFO, "%s()", __func__);
  Send(*this, __func__, &IMWPBtComListener::OnOperatorNameChanged, name);
}
void MWPBtClient::OnConnectStatusChanged(const std::string& address, MWPBtType::ProfileId profile,
                                         MWPBtType::ConnStatus status) {
  MWP_LOG_AT(1201, MWP_LOG_INFO, "%s()", __func__);
  Send(*this, __func__, &IMWPBtComListener::OnConnectStatusChanged, address, profile, status);
}
void MWPBtClient::OnSupportProfileChanged(const std::string& address, MWPBtType::ProfileId profile) {
  Send(*this, __func__, &IMWPBtComListener::OnSupportProfileChanged, address, profile);
}
void MWPBtClient::OnWirelessEnableRequest(const std::string& address, const std::string& name,
                                          MWPBtType::SupportType type) {
  Send(*this, __func__, &IMWPBtComListener::OnWirelessEnableRequest, address, name, type);
}
void MWPBtClient::OnAndroidAutoPairingResponse(MWPBtType::HUStatus status) {
  Send(*this, __func__, &IMWPBtComListener::OnAndroidAutoPairingResponse, status);
}
void MWPBtClient::OnSetDeviceOOBLinkKeyChanged(const std::string& address, int success) {
  Send(*this, __func__, &IMWPBtComListener::OnSetDeviceOOBLinkKeyChanged, address, success);
}

// To IMWPBtPhoneListener

void MWPBtClient::OnMobileService(int onService) {
  Send(*this, __func__, &IMWPBtPhoneListener::OnMobileService, onService);
}
void MWPBtClient::OnRoamingStatusChanged(int roaming) {
  MWP_LOG_AT(1283, MWP_LOG_INFO, "%s()", __func__);
  Send(*this, __func__, &IMWPBtPhoneListener::OnRoamingStatusChanged, roaming);
}
void MWPBtClient::OnBtSignalChanged(unsigned char signal) {
  Send(*this, __func__, &IMWPBtPhoneListener::OnBtSignalChanged, signal);
}
void MWPBtClient::OnBtBatteryChanged(unsigned char battery) {
  Send(*this, __func__, &IMWPBtPhoneListener::OnBtBatteryChanged, battery);
}
void MWPBtClient::OnCurrentCallInfoChanged(int callCount) {
  Send(*this, __func__, &IMWPBtPhoneListener::OnCurrentCallInfoChanged, callCount);
}
void MWPBtClient::OnCallingTimeChanged(int seconds, int callId, int active) {
  Send(*this, __func__, &IMWPBtPhoneListener::OnCallingTimeChanged, seconds, callId, active);
}
void MWPBtClient::OnCallStatusChanged(int callId, MWPBtType::CallStatus status, int callCount) {
  Send(*this, __func__, &IMWPBtPhoneListener::OnCallStatusChanged, callId, status, callCount);
}
void MWPBtClient::OnConferenceChanged(MWPBtType::CallAction action, int supported) {
  Send(*this, __func__, &IMWPBtPhoneListener::OnConferenceChanged, action, supported);
}
void MWPBtClient::OnHangupCallChanged() { Send(*this, __func__, &IMWPBtPhoneListener::OnHangupCallChanged); }
void MWPBtClient::OnAudioStatusChanged(MWPBtType::AudioStatus status) {
  Send(*this, __func__, &IMWPBtPhoneListener::OnAudioStatusChanged, status);
}
void MWPBtClient::OnVoiceStatusChanged(int started) {
  MWP_LOG_AT(1541, MWP_LOG_INFO, "%s()", __func__);
  Send(*this, __func__, &IMWPBtPhoneListener::OnVoiceStatusChanged, started);
}
void MWPBtClient::OnCodecModeChanged(MWPBtType::CodecMode mode) {
  Send(*this, __func__, &IMWPBtPhoneListener::OnCodecModeChanged, mode);
}

// To IMWPBtMediaListener

void MWPBtClient::OnMediaAudioStateChanged(const std::string& address, int started) {
  Send(*this, __func__, &IMWPBtMediaListener::OnMediaAudioStateChanged, address, started);
}
void MWPBtClient::OnBtMusicPlayChanged(MWPBtType::MusicPlayStatus status) {
  Send(*this, __func__, &IMWPBtMediaListener::OnBtMusicPlayChanged, status);
}
// Logs once for each listener, just before it is called.
void MWPBtClient::OnAudioTrackChanged() {
  ForEachListener<IMWPBtMediaListener>(*this, __func__, [](IMWPBtMediaListener& listener) {
    MWPLogWrite(MWPLogSite{MWP_LOG_SOURCE, "OnAudioTrackChanged", 1611}, MWP_LOG_DEBUG,
                "MWPBtClient:: OnAudioTrackChanged()");
    listener.OnAudioTrackChanged();
  });
}
void MWPBtClient::OnPlayModeChanged() { Send(*this, __func__, &IMWPBtMediaListener::OnPlayModeChanged); }
void MWPBtClient::OnSupportPlayModeChanged() {
  Send(*this, __func__, &IMWPBtMediaListener::OnSupportPlayModeChanged);
}
void MWPBtClient::OnMediaInfoChanged() { Send(*this, __func__, &IMWPBtMediaListener::OnMediaInfoChanged); }
void MWPBtClient::OnCoverImageDownloadCompleted() {
  Send(*this, __func__, &IMWPBtMediaListener::OnCoverImageDownloadCompleted);
}
void MWPBtClient::OnCurPositionChanged(int position, int totalLength) {
  Send(*this, __func__, &IMWPBtMediaListener::OnCurPositionChanged, position, totalLength);
}
void MWPBtClient::OnSupportAvrcpNotify(MWPBtType::SupportAvrcpEvent event, int supported) {
  Send(*this, __func__, &IMWPBtMediaListener::OnSupportAvrcpNotify, event, supported);
}
void MWPBtClient::OnFastForwardChanged(int supported) {
  Send(*this, __func__, &IMWPBtMediaListener::OnFastForwardChanged, supported);
}
void MWPBtClient::OnFastRewindChanged(int supported) {
  Send(*this, __func__, &IMWPBtMediaListener::OnFastRewindChanged, supported);
}
void MWPBtClient::OnSupportBrowserStatusChanged(int supported) {
  Send(*this, __func__, &IMWPBtMediaListener::OnSupportBrowserStatusChanged, supported);
}
void MWPBtClient::OnPlayerInfoChanged() { Send(*this, __func__, &IMWPBtMediaListener::OnPlayerInfoChanged); }
void MWPBtClient::OnBrowserMediaInfoChanged() {
  Send(*this, __func__, &IMWPBtMediaListener::OnBrowserMediaInfoChanged);
}
void MWPBtClient::OnCurBrowserPathChanged(int success) {
  Send(*this, __func__, &IMWPBtMediaListener::OnCurBrowserPathChanged, success);
}
void MWPBtClient::OnBrowserFolderItemTotalChanged(int total) {
  Send(*this, __func__, &IMWPBtMediaListener::OnBrowserFolderItemTotalChanged, total);
}
void MWPBtClient::OnMediaItemToNowPlayingStatus(int success) {
  Send(*this, __func__, &IMWPBtMediaListener::OnMediaItemToNowPlayingStatus, success);
}
void MWPBtClient::OnSendPlayItemStatus(int success) {
  Send(*this, __func__, &IMWPBtMediaListener::OnSendPlayItemStatus, success);
}

// To IMWPBtPbapListener

void MWPBtClient::OnPBDownloadStatus(MWPBtType::PbapStatus status, MWPBtType::PbapType type) {
  Send(*this, __func__, &IMWPBtPbapListener::OnPBDownloadStatus, status, type);
}
void MWPBtClient::OnPbDownloadCountChanged(int current, int total) {
  Send(*this, __func__, &IMWPBtPbapListener::OnPbDownloadCountChanged, current, total);
}
void MWPBtClient::OnBtCallLogListChanged() {
  Send(*this, __func__, &IMWPBtPbapListener::OnBtCallLogListChanged);
}
void MWPBtClient::OnDeletePhoneBookChanged(int success) {
  Send(*this, __func__, &IMWPBtPbapListener::OnDeletePhoneBookChanged, success);
}
void MWPBtClient::OnContactFavoriteChanged(int contactId, int favorite) {
  Send(*this, __func__, &IMWPBtPbapListener::OnContactFavoriteChanged, contactId, favorite);
}

// To IMWPBtMessageListener

void MWPBtClient::OnMessageDownloadStatus(MWPBtType::MsgLoadStatus status) {
  Send(*this, __func__, &IMWPBtMessageListener::OnMessageDownloadStatus, status);
}
void MWPBtClient::OnMessageDownloadCountChanged(int current, int total) {
  Send(*this, __func__, &IMWPBtMessageListener::OnMessageDownloadCountChanged, current, total);
}
void MWPBtClient::OnMessageStatusNotify(MWPBtType::MsgStatus status, std::string handle) {
  Send(*this, __func__, &IMWPBtMessageListener::OnMessageStatusNotify, status, handle);
}
void MWPBtClient::OnMessageSetPropertyStatus(MWPBtType::SetMsgProStatus status) {
  Send(*this, __func__, &IMWPBtMessageListener::OnMessageSetPropertyStatus, status);
}

// To IMWPBtSppListener

void MWPBtClient::OnSppConnectStatus(const std::string& address, MWPBtType::SupportType type, int connected) {
  Send(*this, __func__, &IMWPBtSppListener::OnSppConnectStatus, address, type, connected);
}
void MWPBtClient::OnSppReceiveBufferChanged(const std::string& address, char* buffer, int length) {
  Send(*this, __func__, &IMWPBtSppListener::OnSppReceiveBufferChanged, address, buffer, length);
}
void MWPBtClient::OnHIDCalibration(int success) {
  Send(*this, __func__, &IMWPBtSppListener::OnHIDCalibration, success);
}
void MWPBtClient::OnHIDConnection(std::string address, int status) {
  Send(*this, __func__, &IMWPBtSppListener::OnHIDConnection, address, status);
}

// To IMWPBtBleListener

void MWPBtClient::OnBleDiscoveryResponse(int started, int result) {
  Send(*this, __func__, &IMWPBtBleListener::OnBleDiscoveryResponse, started, result);
}
void MWPBtClient::OnBleConnectStatusChanged(const std::string& address, int status) {
  Send(*this, __func__, &IMWPBtBleListener::OnBleConnectStatusChanged, address, status);
}
void MWPBtClient::OnBleAllService(int count) {
  Send(*this, __func__, &IMWPBtBleListener::OnBleAllService, count);
}
void MWPBtClient::OnBleSmpNotify(MWPBtType::SmpEvent event, const std::string& address,
                                 unsigned char addressType, unsigned int passkey) {
  Send(*this, __func__, &IMWPBtBleListener::OnBleSmpNotify, event, address, addressType, passkey);
}
void MWPBtClient::OnBleCharNotify(unsigned short handle, std::vector<unsigned char> data,
                                  unsigned int length) {
  const unsigned char* const bytes = data.data();
  Send(*this, __func__, &IMWPBtBleListener::OnBleCharNotify, handle, bytes, length);
}
void MWPBtClient::OnBleGAttribResultNotify(unsigned char result, std::vector<unsigned char> data,
                                           unsigned short length) {
  const unsigned char* const bytes = data.data();
  Send(*this, __func__, &IMWPBtBleListener::OnBleGAttribResultNotify, result, bytes, length);
}

// To nobody

void MWPBtClient::OnSupportProfilesInfoChanged(
    const std::string&, const std::map<MWPBtType::ProfileId, MWPBtType::ProfileVersion>&) {}
void MWPBtClient::OnLocalAddressChanged(const std::string&) {}
void MWPBtClient::OnCallInfoListChanged() {}
