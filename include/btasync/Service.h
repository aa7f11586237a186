#ifndef BTASYNC_SERVICE_H
#define BTASYNC_SERVICE_H

#include <chrono>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <btasync/Answer.h>
#include <btasync/Events.h>
#include <btasync/Export.h>
#include <btasync/Records.h>
#include <btasync/Request.h>
#include <btasync/Scope.h>
#include <btasync/Text.h>
#include <btasync/Timer.h>

struct _GMainContext;

namespace btasync {
inline namespace v0 {

/// Whether the Bluetooth service is there.
enum class Availability {
  Unknown,  ///< not known yet: the first moments
  NoBus,    ///< no session bus, or the connection to it was lost; tried again every second
  Absent,   ///< nobody on the bus has the service's name
  Present,  ///< somebody has; what was known of the service before is void
};

/// A word for it: "absent".
BTASYNC_API const char* ToText(Availability availability);

namespace detail {

struct EventKind;

class Subscribers;

/// What waits for a kind of event.
class BTASYNC_API Subscription : public Held {
 public:
  /// Runs what waits, with an event of the subscription's kind. Nothing that is thrown there goes further.
  void Run(const void* event);
  void Drop() override;

 protected:
  Subscription() = default;
  /// Runs, with the availability that is known now.
  void RunWithNow(const Backend& backend);
  ~Subscription() override;
  virtual void Deliver(const void* event) = 0;

 private:
  friend class Subscribers;
  Subscribers* m_subscribers = nullptr;
  Subscription* m_nextOfKind = nullptr;
  Subscription* m_previousOfKind = nullptr;
  unsigned long m_number = 0;
  int m_runs = 0;
  bool m_isDropped = false;
};

template <typename Event, typename Function>
class EventSubscription final : public Subscription {
 public:
  explicit EventSubscription(Function&& function) : m_function(std::move(function)) {}

 private:
  void Deliver(const void* event) override { m_function(*static_cast<const Event*>(event)); }

  Function m_function;
};

/// Runs once by itself, with what is known then, and at each change.
template <typename Function>
class AvailabilitySubscription final : public Subscription {
 public:
  AvailabilitySubscription(Service& service, Function&& function);

 private:
  void Deliver(const void* event) override {
    m_first.Stop();
    m_function(*static_cast<const Availability*>(event));
  }

  Function m_function;
  Timer m_first;
};

/// The kind of an event; there is one for each structure of Events.h, and for Availability.
template <typename Event>
BTASYNC_API const EventKind& KindOf();

}  // namespace detail

/// The Bluetooth service, without ever waiting for it. One object per loop is enough. It may live beside the
/// MWPBt… facades, with which it shares nothing.
///
/// All of it belongs to the thread that makes it, which has to be the one that runs the context: completions
/// and events are called there. What another thread calls is refused, with an error in the log. A completion
/// or event may destroy everything: its scope, this object, itself. Requests, scopes, calls and coroutines
/// may outlive this object.
///
/// A request is sent by Request::Then, Send or co_await. Where a comment names an event ("then
/// PowerChanged"), the answer only says that the service accepted the request, and the event what came of it.
/// Outcome.h has both as one.
///
/// Each makes the service call of its own name, unless another one is named.
class BTASYNC_API Service {
 public:
  /// context: null for the thread's default one, which a program runs that uses GLib's loop, or Qt's where
  /// that is GLib's; PollLoop.h has one for others. Never blocks and never fails: OnAvailability reports what
  /// is there.
  explicit Service(_GMainContext* context = nullptr);
  Service(const Service&) = delete;
  Service& operator=(const Service&) = delete;
  /// Drops what is under way: no completion and no event runs any more. If another thread destroys it, an
  /// error is logged, and nothing begins to run after that.
  ~Service();

  /// What is known now; Unknown to another thread than the loop's.
  Availability Now() const;
  /// Calls back by the loop: soon, with what is known then, and at each change, before the calls that fail by
  /// it.
  template <typename Function>
  void OnAvailability(Scope& scope, Function callback) {
    if (MaySubscribe(scope)) {
      Subscribe(detail::KindOf<Availability>(), scope,
                *new detail::AvailabilitySubscription<Function>(*this, std::move(callback)));
    }
  }
  /// Calls back, by the loop, for each event of a kind: service.On<PowerChanged>(scope, [](const
  /// PowerChanged& event) { … }). The bus delivers only what somebody has subscribed.
  template <typename Event, typename Function>
  void On(Scope& scope, Function callback) {
    if (MaySubscribe(scope)) {
      Subscribe(detail::KindOf<Event>(), scope,
                *new detail::EventSubscription<Event, Function>(std::move(callback)));
    }
  }
  /// The deadline of requests that name none; at first 25 seconds.
  void SetDeadline(std::chrono::milliseconds time);

  // ----- Adapter

  /// Asks the service to report its state by events. Every application hears them: ask for what you need
  /// instead, or use Mirror.h, which does.
  Request<> GetBluetoothServiceStatus();
  /// Switches the adapter; refused if it is in that state or on its way. Then PowerChanged.
  Request<> SetPower(bool on);
  Request<PowerStatus> GetPowerStatus();
  /// Then CapabilityChanged.
  Request<> SetCapability(Capability capability, bool on);
  Request<bool> GetCapability(Capability capability);
  Request<std::string> GetAttribute(Attribute attribute);
  /// Then AttributeChanged.
  Request<> SetAttribute(Attribute attribute, Text value);
  /// Whether paired devices are connected by themselves.
  Request<> SetAutoConnect(bool on);
  /// Allows all profiles to be connected (EnableProfile). Then ProfilesEnabledChanged.
  Request<> EnableProfiles();
  /// Disconnects the profiles of a device and keeps them from being connected (DisableProfile). Then
  /// ProfilesEnabledChanged.
  Request<> DisableProfiles(const Address& address);
  Request<> EnterTestMode();

  // ----- Search and pairing

  /// Begins or ends the search for devices. Then ScanChanged, and DeviceFound for each find.
  Request<> SetScanAction(bool start);
  /// Forgets all devices that were found (ClearScanedDeviceList).
  Request<> ClearFoundDevices();
  /// Forgets one that was found (RemoveDevice).
  Request<> RemoveFoundDevice(const Address& address);
  /// Begins to pair. pinCode is for devices without Secure Simple Pairing. Then PairRequested, and
  /// PairChanged.
  Request<> Pair(const Address& address, const PinCode& pinCode = PinCode());
  /// Accepts a pairing; question is that of PairRequested. The address comes first, unlike in
  /// MWPBtCom::AnswerPair.
  Request<> AnswerPair(const Address& address, PairRequestState question, const PinCode& pinCode = PinCode());
  /// Refuses a pairing.
  Request<> RejectPair(const Address& address, PairRequestState question);
  /// Hands over a link key that was exchanged out of band (SetDeviceOOBLinkKey). Then OutOfBandKeySet.
  Request<> SetOutOfBandKey(const Address& address, const Bytes& linkKey);

  // ----- Paired devices and connections

  /// The paired devices with the state of their connections, in their order. Read from shared memory, and
  /// answered by the loop some turns later. No service call, but GetPowerStatus once after the service has
  /// come: a service puts right what another has left behind before it answers. NoService or NoBus while
  /// Now() says so, even if there is a list from before. Malformed if the service is there and has no list,
  /// or one whose addresses are none.
  Request<std::vector<MWPTypeDevice>> PairedDevices();
  /// A paired device (GetPairDeviceInfoByAddress); refused if there is none with this address.
  Request<MWPTypeDevice> GetPairedDevice(const Address& address);
  /// The name of a paired device (GetRemotePairDeviceName); refused if it is not known.
  Request<std::string> GetPairedDeviceName(const Address& address);
  /// The place of a device in the list of paired ones, counted from 0 (GetPairListIndexByAddress); refused if
  /// it is not there.
  Request<int> GetPairedDeviceIndex(const Address& address);
  /// Moves a paired device to a place in the list, counted from 0 (MovePairDevicePosion).
  Request<> MovePairedDevice(const Address& address, int position);
  /// Deletes a paired device (DeletePairDevice). Then PairedDevicesDeleted.
  Request<> DeletePairedDevice(const Address& address);
  /// Deletes all paired devices (DeletePairDeviceList). Then PairedDevicesDeleted.
  Request<> DeletePairedDevices();
  /// Connects a profile; only: disconnects other devices first. Then ConnectionChanged, for
  /// BT_PROFILE_HFP_A2DP for each of the two.
  Request<> Connect(const Address& address, ProfileId profile = BT_PROFILE_HFP_A2DP, bool only = false);
  /// Disconnects a profile (DisConnect). Then ConnectionChanged.
  Request<> Disconnect(const Address& address, ProfileId profile = BT_PROFILE_HFP_A2DP);
  /// Connects a profile again (ReConnect). Then ConnectionChanged.
  Request<> Reconnect(const Address& address, ProfileId profile = BT_PROFILE_HFP_A2DP);
  /// The device that a profile is connected with (GetCurConnectDevInfo); refused if there is none.
  Request<Address> GetConnectedDevice(ProfileId profile);

  // ----- Wireless projection

  /// Says whether wireless projection is running.
  Request<> SetAndroidAutoStatus(bool running);
  /// Asks for the pairing that wireless projection needs. Then AndroidAutoPairingAnswered.
  Request<> RequestAndroidAutoPairing(const Address& address, int pairingMethod);
  /// Allows wireless projection from a device, or not.
  Request<> SetWirelessEnable(const Address& address, bool on);

  // ----- Calls

  Request<ConnectionState> GetPhoneConnectionState();
  /// Accepts the incoming or waiting call. Then CallStatusChanged.
  Request<> AcceptCall();
  /// Rejects the incoming or waiting call. Then CallStatusChanged.
  Request<> RejectCall();
  /// Ends the call that is being dialed, or else the active one, or else rejects the one that rings or waits.
  /// Then CallStatusChanged.
  Request<> TerminateCall();
  /// Dials. Then CallStatusChanged.
  Request<> DialCall(Text number);
  /// Dials the last number again. Then CallStatusChanged.
  Request<> RedialCall();
  /// Swaps, joins or releases calls (MultipleWayCall). callId: 0 for those that the action concerns by
  /// itself. CallActionChanged reports which actions are possible.
  Request<> SwitchCalls(CallAction action, int callId = 0);
  /// The state of a call (GetCurCallStatus); BT_CALL_IDLE if no call has this id.
  Request<CallStatus> GetCallStatus(int callId);
  /// The number of calls (GetCurCallCount).
  Request<unsigned> GetCallCount();
  /// The current calls, read as PairedDevices is.
  Request<MWPTypeCallInfo> CurrentCalls();
  /// Sends one tone: a character of 0-9, *, #, A-D.
  Request<> SendDTMF(char tone);
  /// Moves the sound of the call to the phone, or to the head unit. Then AudioChanged.
  Request<> SetAudioPrivacy(bool onPhone);
  /// Whether the sound of the call is on the phone.
  Request<bool> GetAudioIsPrivacy();
  /// Starts the voice recognition of the phone. Then VoiceRecognitionChanged.
  Request<> StartVoiceRecognition();
  /// Ends it. Then VoiceRecognitionChanged.
  Request<> StopVoiceRecognition();
  /// The phone's own number (GetCurrentMobilePhoneNumber); refused if it is not known.
  Request<std::string> GetOwnNumber();
  Request<> PlayRingtone();
  Request<> StopRingtone();
  /// Plays a ring tone from a file, to let the user choose.
  Request<> PlayPreviewRingtone(Text path);
  Request<> StopPreviewRingtone();

  // ----- Music

  Request<ConnectionState> GetMediaConnectionState();
  /// Opens or closes the audio output for Bluetooth music.
  Request<> EnableAudioDevice(bool on);
  /// Plays (PlayMusic). The audio focus, which commands of MWPBtMedia::PlayMusic handle, stays behind that
  /// library. Then MusicChanged.
  Request<> Play();
  /// Pauses (StopMusic). Then MusicChanged.
  Request<> Pause(bool mute = false);
  /// To the previous track (PreviousMusic).
  Request<> Previous();
  /// To the next track (NextMusic).
  Request<> Next();
  Request<> StartFastForward();
  Request<> StopFastForward();
  Request<> StartFastReverse();
  Request<> StopFastReverse();
  Request<MusicPlayStatus> GetMusicPlayStatus();
  /// PositionChanged comes at this interval, or no more (RegGetPlayStatus). An interval is the service's, for
  /// all applications.
  Request<> ReportPosition(bool on, std::chrono::milliseconds interval);
  /// MediaInfoChanged comes at this interval, or no more (RegGetMediaInfo).
  Request<> ReportMediaInfo(bool on, std::chrono::milliseconds interval);
  /// Where the player is (GetCurPlayPosition).
  Request<PlayPosition> GetPlayPosition();
  Request<MWPTypeMediaInfo> GetMediaInfo();
  /// The play modes in force (GetCurPlayMode).
  Request<std::vector<MWPTypePlayMode>> GetPlayModes();
  /// Those that are possible (GetSupportPlayMode).
  Request<std::vector<MWPTypePlayMode>> GetSupportedPlayModes();
  /// Changes one play mode (SetCurPlayMode); type and value are within one byte each. Then PlayModeChanged.
  Request<> SetPlayMode(const MWPTypePlayMode& mode);
  /// Whether the player supports the notification (IsSupportAvrcpNotify).
  Request<bool> SupportsAvrcpEvent(SupportAvrcpEvent event);

  // ----- Browsing. The interface has no way to carry the items; BrowsedItemsChanged says that there are
  // others.

  /// Whether the player can be browsed (IsSupportBrowserInfo).
  Request<bool> SupportsBrowsing();
  /// Goes to the root folder and asks for count of its items (RootDirectory). Then FolderChanged,
  /// BrowsedItemsChanged.
  Request<> BrowseRoot(int start, int count);
  /// Whether the browsed folder is the root (IsRootDirectory).
  Request<bool> IsAtRoot();
  /// Goes one folder up (FolderUp). Then FolderChanged, BrowsedItemsChanged.
  Request<> BrowseUp(int start, int count);
  /// Goes into a folder (FolderDown). Then FolderChanged, BrowsedItemsChanged.
  Request<> BrowseDown(Text uid, int start, int count);
  /// Searches a folder (BrowsingSearch). Then FolderChanged, BrowsedItemsChanged.
  Request<> BrowseSearch(Text uid, Text words, int start, int count);
  /// Asks for items of the queue (BrowsingNowPlayingList). Then BrowsedItemsChanged.
  Request<> BrowseNowPlaying(int start, int count);
  /// Asks for the items of a scope (GetCurMediaItemList). Then BrowsedItemsChanged, if they are others than
  /// before.
  Request<> BrowseScope(BrowserScopeType scope);
  /// Asks how many items a folder has (GetBrowsingFolderItemTotal). Then FolderItemsCounted.
  Request<> CountFolderItems(Text uid);
  /// Plays an item. Then ItemPlayed.
  Request<> PlayItem(Text uid, BrowserScopeType scope);
  /// Puts an item into the queue (AddMediaItemToNowPlaying). Then AddedToNowPlaying.
  Request<> AddToNowPlaying(Text uid, BrowserScopeType scope);

  // ----- Phone book and call logs
  //
  // The service publishes each list that it is asked for in shared memory, in one place for all applications,
  // and nothing is locked there. The library asks for a list, reads it, asks how many records the service
  // has, and reads it again. If the two differ, if the number is not right, or if a log has entries of
  // another type, it asks for the list again, three times at most; then the answer is Malformed, never a part
  // of a list. The deadline is that of all this together. The requests of a process for one place go one
  // after the other. 5,000 contacts do not hold up the loop: GLib's threads read and decode them.
  //
  // Some things cannot be found out. If another application asks at the same moment for another single
  // contact, that one may be answered, since a contact does not say at which index it is. The same is true of
  // two call logs with equally many entries, unless nValue2 means what btservice means by it. Of the
  // favourites the service does not say how many there are. And a list that does not fit into its place is
  // cut by the service: it is answered as it is; compare its size with GetContactCount or GetCallLogCount.

  /// Begins a download. Then DownloadChanged and DownloadProgress.
  Request<> StartPhoneBookDownload(PbapType type = BT_PBAP_ALL);
  /// Ends it. Then DownloadChanged.
  Request<> StopPhoneBookDownload();
  /// The phone book (GetContactList).
  Request<std::vector<MWPTypeContact>> Contacts();
  /// The favourite contacts (GetFavContactList).
  Request<std::vector<MWPTypeContact>> FavoriteContacts();
  /// One contact, by its place in the phone book, counted from 0 (GetContactByIndex); refused if there is
  /// none.
  Request<MWPTypeContact> GetContact(int index);
  Request<int> GetContactCount();
  /// Deletes a contact (DeleteContactById). Then PhoneBookDeleted.
  Request<> DeleteContact(int contactId);
  /// Deletes all contacts (ClearContact). Then PhoneBookDeleted.
  Request<> DeleteContacts();
  /// Makes a contact a favourite, or no more. Then FavoriteChanged.
  Request<> SetContactFavorite(int contactId, bool favorite);
  /// A call log (GetCallLogList).
  Request<std::vector<MWPTypeCallLog>> CallLogs(CallLogType type);
  /// One entry (GetCallLogById), by its nLogId; refused if there is none.
  Request<MWPTypeCallLog> GetCallLog(int logId);
  /// The number of entries in a call log.
  Request<int> GetCallLogCount(CallLogType type);
  /// Deletes an entry (DeleteCallLogById). Then CallLogsChanged.
  Request<> DeleteCallLog(int logId);
  /// Deletes a call log (ClearCallLog). Then CallLogsChanged.
  Request<> DeleteCallLogs(CallLogType type);

  // ----- Serial channels and input

  /// Offers a serial-port service under this UUID.
  Request<> SetRfCommUuid(Text uuid);
  Request<> SppSendText(const Address& address, Text text);
  Request<> SppSendBuffer(const Address& address, const Bytes& bytes);
  /// Calibrates the input (SetHIDCalibration). Then HidCalibrated.
  Request<> SetHidCalibration(const Address& address, HIDTYPE type);
  /// Sends a position or movement and the state of the buttons (SetHIDSendXY).
  Request<> SendHidPosition(const Address& address, HIDTYPE type, int x, int y, unsigned char buttons);
  /// Sends a key (SetHIDSendKey).
  Request<> SendHidKey(const Address& address, int key);

  /// For the library and for tests: a service with another end than the bus.
  explicit Service(detail::Backend& backend);
  detail::Backend& End() const { return *m_backend; }

 private:
  bool MaySubscribe(const Scope& scope) const;
  void Subscribe(const detail::EventKind& kind, Scope& scope, detail::Subscription& subscription);

  detail::Backend* m_backend;
};

namespace detail {

template <typename Function>
AvailabilitySubscription<Function>::AvailabilitySubscription(Service& service, Function&& function)
    : m_function(std::move(function)), m_first(service) {
  m_first.Start(std::chrono::milliseconds(0), [this, &end = service.End()] { RunWithNow(end); });
}

}  // namespace detail

}  // namespace v0
}  // namespace btasync

#endif
