#ifndef BTASYNC_SERVICE_H
#define BTASYNC_SERVICE_H

#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include <btasync/Answer.h>
#include <btasync/Availability.h>
#include <btasync/Events.h>
#include <btasync/Export.h>
#include <btasync/Records.h>
#include <btasync/Request.h>
#include <btasync/Scope.h>
#include <btasync/Subscription.h>
#include <btasync/Text.h>

struct _GMainContext;

namespace btasync {
inline namespace v0 {

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
  /// Never blocks and never fails: OnAvailability reports what is there.
  /// @param context null for the thread's default one, which a program runs that uses GLib's loop, or Qt's
  /// where that is GLib's; PollLoop.h has one for others
  explicit Service(_GMainContext* context = nullptr);
  Service(const Service&) = delete;
  Service& operator=(const Service&) = delete;
  /// Drops what is under way: no completion and no event runs any more. If another thread destroys it, an
  /// error is logged, and nothing begins to run after that.
  ~Service();

  /// What is known now; Unknown to another thread than the loop's.
  /// @returns as OnAvailability would report it
  Availability Now() const;
  /// Calls back by the loop: soon, with what is known then, and at each change, before the calls that fail by
  /// it.
  /// @param scope holds the subscription
  /// @param callback void(Availability)
  template <typename Function>
  void OnAvailability(Scope& scope, Function callback) {
    if (MaySubscribe(scope)) {
      Subscribe(detail::KindOf<Availability>(), scope,
                *new detail::AvailabilitySubscription<Function>(*this, *m_backend, std::move(callback)));
    }
  }
  /// Calls back, by the loop, for each event of a kind: service.On<PowerChanged>(scope, [](const
  /// PowerChanged& event) { … }). The bus delivers only what somebody has subscribed.
  /// @param scope holds the subscription
  /// @param callback void(const Event&)
  template <typename Event, typename Function>
  void On(Scope& scope, Function callback) {
    if (MaySubscribe(scope)) {
      Subscribe(detail::KindOf<Event>(), scope,
                *new detail::EventSubscription<Event, Function>(std::move(callback)));
    }
  }
  /// The deadline of requests that name none; at first 25 seconds.
  /// @param time from the sending on
  void SetDeadline(std::chrono::milliseconds time);

  // ----- Adapter

  /// Asks the service to report its state by events. Every application hears them: ask for what you need
  /// instead, or use Mirror.h, which does.
  /// @returns accepted: the service has no other answer
  Request<> GetBluetoothServiceStatus();
  /// Switches the adapter; refused if it is in that state or on its way. Then PowerChanged.
  /// @param on true to switch it on
  /// @returns accepted or refused
  Request<> SetPower(bool on);
  /// The state of the adapter.
  /// @returns on, off, or on its way to either
  Request<PowerStatus> GetPowerStatus();
  /// Then CapabilityChanged.
  /// @param capability which one
  /// @param on its new value
  /// @returns accepted or refused
  Request<> SetCapability(Capability capability, bool on);
  /// Whether a capability is on.
  /// @param capability which one
  /// @returns whether it is on
  Request<bool> GetCapability(Capability capability);
  /// An attribute, in UTF-8.
  /// @param attribute which one
  /// @returns its text; refused for one that the service does not have
  Request<std::string> GetAttribute(Attribute attribute);
  /// Then AttributeChanged.
  /// @param attribute which one; the service refuses those that cannot be changed
  /// @param value its new text
  /// @returns accepted or refused
  Request<> SetAttribute(Attribute attribute, Text value);
  /// Whether paired devices are connected by themselves.
  /// @param on true for by themselves
  /// @returns accepted or refused
  Request<> SetAutoConnect(bool on);
  /// Allows all profiles to be connected (EnableProfile). Then ProfilesEnabledChanged.
  /// @returns accepted: the service has no other answer
  Request<> EnableProfiles();
  /// Disconnects the profiles of a device and keeps them from being connected (DisableProfile). Then
  /// ProfilesEnabledChanged.
  /// @param address of a paired device
  /// @returns accepted: the service has no other answer
  Request<> DisableProfiles(const Address& address);
  /// Puts the adapter into its test mode.
  /// @returns accepted or refused
  Request<> EnterTestMode();

  // ----- Search and pairing

  /// Begins or ends the search for devices. Then ScanChanged, and DeviceFound for each find.
  /// @param start true to begin, false to end
  /// @returns accepted or refused
  Request<> SetScanAction(bool start);
  /// Forgets all devices that were found (ClearScanedDeviceList).
  /// @returns accepted: the service has no other answer
  Request<> ClearFoundDevices();
  /// Forgets one that was found (RemoveDevice).
  /// @param address of the device
  /// @returns accepted: the service has no other answer
  Request<> RemoveFoundDevice(const Address& address);
  /// Begins to pair. pinCode is for devices without Secure Simple Pairing. Then PairRequested, and
  /// PairChanged.
  /// @param address of the device
  /// @param pinCode what the device expects, or empty
  /// @returns accepted or refused
  Request<> Pair(const Address& address, const PinCode& pinCode = PinCode());
  /// Accepts a pairing; question is that of PairRequested. The address comes first, unlike in
  /// MWPBtCom::AnswerPair.
  /// @param address of the device
  /// @param question PairRequested::question
  /// @param pinCode PairRequested::digits, what the user has typed, or empty
  /// @returns accepted or refused
  Request<> AnswerPair(const Address& address, PairRequestState question, const PinCode& pinCode = PinCode());
  /// Refuses a pairing.
  /// @param address of the device
  /// @param question PairRequested::question
  /// @returns accepted or refused
  Request<> RejectPair(const Address& address, PairRequestState question);
  /// Hands over a link key that was exchanged out of band (SetDeviceOOBLinkKey). Then OutOfBandKeySet.
  /// @param address of the device
  /// @param linkKey the key; Bluetooth has keys of 16 bytes, which is not checked here
  /// @returns accepted or refused
  Request<> SetOutOfBandKey(const Address& address, const Bytes& linkKey);

  // ----- Paired devices and connections

  /// The paired devices with the state of their connections, in their order. Read from shared memory, and
  /// answered by the loop some turns later. No service call, but GetPowerStatus once after the service has
  /// come: a service puts right what another has left behind before it answers. NoService or NoBus while
  /// Now() says so, even if there is a list from before. Malformed if the service is there and has no list,
  /// or one whose addresses are none.
  /// @returns the devices; none is an empty list
  Request<std::vector<MWPTypeDevice>> PairedDevices();
  /// A paired device (GetPairDeviceInfoByAddress); refused if there is none with this address.
  /// @param address of the device
  /// @returns the device
  Request<MWPTypeDevice> GetPairedDevice(const Address& address);
  /// The name of a paired device (GetRemotePairDeviceName); refused if it is not known.
  /// @param address of the device
  /// @returns the name
  Request<std::string> GetPairedDeviceName(const Address& address);
  /// The place of a device in the list of paired ones, counted from 0 (GetPairListIndexByAddress); refused if
  /// it is not there.
  /// @param address of the device
  /// @returns the place
  Request<int> GetPairedDeviceIndex(const Address& address);
  /// Moves a paired device to a place in the list, counted from 0 (MovePairDevicePosion).
  /// @param address of the device
  /// @param position its new place, counted from 0
  /// @returns accepted or refused
  Request<> MovePairedDevice(const Address& address, int position);
  /// Deletes a paired device (DeletePairDevice). Then PairedDevicesDeleted.
  /// @param address of the device
  /// @returns accepted or refused
  Request<> DeletePairedDevice(const Address& address);
  /// Deletes all paired devices (DeletePairDeviceList). Then PairedDevicesDeleted.
  /// @returns accepted or refused
  Request<> DeletePairedDevices();
  /// Connects a profile; only: disconnects other devices first. Then ConnectionChanged, for
  /// BT_PROFILE_HFP_A2DP for each of the two.
  /// @param address of the device
  /// @param profile one profile, or BT_PROFILE_HFP_A2DP for calls and music
  /// @param only true to disconnect other devices first
  /// @returns accepted or refused
  Request<> Connect(const Address& address, ProfileId profile = BT_PROFILE_HFP_A2DP, bool only = false);
  /// Disconnects a profile (DisConnect). Then ConnectionChanged.
  /// @param address of the device
  /// @param profile one profile, or BT_PROFILE_HFP_A2DP for calls and music
  /// @returns accepted or refused
  Request<> Disconnect(const Address& address, ProfileId profile = BT_PROFILE_HFP_A2DP);
  /// Connects a profile again (ReConnect). Then ConnectionChanged.
  /// @param address of the device
  /// @param profile one profile, or BT_PROFILE_HFP_A2DP for calls and music
  /// @returns accepted or refused
  Request<> Reconnect(const Address& address, ProfileId profile = BT_PROFILE_HFP_A2DP);
  /// The device that a profile is connected with (GetCurConnectDevInfo); refused if there is none.
  /// @param profile one profile
  /// @returns its address
  Request<Address> GetConnectedDevice(ProfileId profile);

  // ----- Wireless projection

  /// Says whether wireless projection is running.
  /// @param running whether it is running
  /// @returns accepted or refused
  Request<> SetAndroidAutoStatus(bool running);
  /// Asks for the pairing that wireless projection needs. Then AndroidAutoPairingAnswered.
  /// @param address of the device
  /// @param pairingMethod how to pair, as the projection numbers it
  /// @returns accepted or refused
  Request<> RequestAndroidAutoPairing(const Address& address, int pairingMethod);
  /// Allows wireless projection from a device, or not.
  /// @param address of the device
  /// @param on true to allow it
  /// @returns accepted: the service has no other answer
  Request<> SetWirelessEnable(const Address& address, bool on);

  // ----- Calls

  /// The connection of the phone for calls.
  /// @returns the connection for calls, and the phone
  Request<ConnectionState> GetPhoneConnectionState();
  /// Accepts the incoming or waiting call. Then CallStatusChanged.
  /// @returns accepted or refused
  Request<> AcceptCall();
  /// Rejects the incoming or waiting call. Then CallStatusChanged.
  /// @returns accepted or refused
  Request<> RejectCall();
  /// Ends the call that is being dialed, or else the active one, or else rejects the one that rings or waits.
  /// Then CallStatusChanged.
  /// @returns accepted or refused
  Request<> TerminateCall();
  /// Dials. Then CallStatusChanged.
  /// @param number as it is to be dialed: digits, *, #, +
  /// @returns accepted or refused
  Request<> DialCall(Text number);
  /// Dials the last number again. Then CallStatusChanged.
  /// @returns accepted or refused
  Request<> RedialCall();
  /// Swaps, joins or releases calls (MultipleWayCall). callId: 0 for those that the action concerns by
  /// itself. CallActionChanged reports which actions are possible.
  /// @param action what to do with them
  /// @param callId as in CallStatusChanged, or 0 for the calls that the action concerns by itself
  /// @returns accepted or refused
  Request<> SwitchCalls(CallAction action, int callId = 0);
  /// The state of a call (GetCurCallStatus); BT_CALL_IDLE if no call has this id.
  /// @param callId as in CallStatusChanged
  /// @returns the state
  Request<CallStatus> GetCallStatus(int callId);
  /// The number of calls (GetCurCallCount).
  /// @returns 0 or more
  Request<unsigned> GetCallCount();
  /// The current calls, read as PairedDevices is.
  /// @returns the number of calls, and a slot for each of two; a slot without a call has the id 0
  Request<MWPTypeCallInfo> CurrentCalls();
  /// Sends one tone: a character of 0-9, *, #, A-D.
  /// @param tone one of 0-9, *, #, A-D; not checked here
  /// @returns accepted or refused
  Request<> SendDTMF(char tone);
  /// Moves the sound of the call to the phone, or to the head unit. Then AudioChanged.
  /// @param onPhone true for the phone, false for the head unit
  /// @returns accepted or refused
  Request<> SetAudioPrivacy(bool onPhone);
  /// Whether the sound of the call is on the phone.
  /// @returns true for the phone, false for the head unit
  Request<bool> GetAudioIsPrivacy();
  /// Starts the voice recognition of the phone. Then VoiceRecognitionChanged.
  /// @returns accepted: the service has no other answer
  Request<> StartVoiceRecognition();
  /// Ends it. Then VoiceRecognitionChanged.
  /// @returns accepted: the service has no other answer
  Request<> StopVoiceRecognition();
  /// The phone's own number (GetCurrentMobilePhoneNumber); refused if it is not known.
  /// @returns the number
  Request<std::string> GetOwnNumber();
  /// Plays the ring tone of an incoming call.
  /// @returns accepted or refused
  Request<> PlayRingtone();
  /// Ends it.
  /// @returns accepted or refused
  Request<> StopRingtone();
  /// Plays a ring tone from a file, to let the user choose.
  /// @param path absolute path of the file
  /// @returns accepted or refused
  Request<> PlayPreviewRingtone(Text path);
  /// Ends the preview.
  /// @returns accepted or refused
  Request<> StopPreviewRingtone();

  // ----- Music

  /// The connection of the player.
  /// @returns the connection for music, and the phone
  Request<ConnectionState> GetMediaConnectionState();
  /// Opens or closes the audio output for Bluetooth music.
  /// @param on true to open it
  /// @returns accepted or refused
  Request<> EnableAudioDevice(bool on);
  /// Plays (PlayMusic). The audio focus, which commands of MWPBtMedia::PlayMusic handle, stays behind that
  /// library. Then MusicChanged.
  /// @returns accepted or refused
  Request<> Play();
  /// Pauses (StopMusic). Then MusicChanged.
  /// @param mute is passed on to the service; btservice pauses in either case
  /// @returns accepted or refused
  Request<> Pause(bool mute = false);
  /// To the previous track (PreviousMusic).
  /// @returns accepted or refused
  Request<> Previous();
  /// To the next track (NextMusic).
  /// @returns accepted or refused
  Request<> Next();
  /// Begins to wind forward.
  /// @returns accepted or refused
  Request<> StartFastForward();
  /// Ends it.
  /// @returns accepted or refused
  Request<> StopFastForward();
  /// Begins to wind back.
  /// @returns accepted or refused
  Request<> StartFastReverse();
  /// Ends it.
  /// @returns accepted or refused
  Request<> StopFastReverse();
  /// What the player does.
  /// @returns whether it plays, is paused, stopped, or winds
  Request<MusicPlayStatus> GetMusicPlayStatus();
  /// PositionChanged comes at this interval, or no more (RegGetPlayStatus). An interval is the service's, for
  /// all applications.
  /// @param on false: no more
  /// @param interval how often
  /// @returns accepted or refused
  Request<> ReportPosition(bool on, std::chrono::milliseconds interval);
  /// MediaInfoChanged comes at this interval, or no more (RegGetMediaInfo).
  /// @param on false: no more
  /// @param interval how often
  /// @returns accepted or refused
  Request<> ReportMediaInfo(bool on, std::chrono::milliseconds interval);
  /// Where the player is (GetCurPlayPosition).
  /// @returns position and length of the track
  Request<PlayPosition> GetPlayPosition();
  /// The track that is played.
  /// @returns its texts, each empty if it is not known
  Request<MWPTypeMediaInfo> GetMediaInfo();
  /// The play modes in force (GetCurPlayMode).
  /// @returns one value for each type
  Request<std::vector<MWPTypePlayMode>> GetPlayModes();
  /// Those that are possible (GetSupportPlayMode).
  /// @returns all values of each type
  Request<std::vector<MWPTypePlayMode>> GetSupportedPlayModes();
  /// Changes one play mode (SetCurPlayMode); type and value are within one byte each. Then PlayModeChanged.
  /// @param mode which mode, and its new value
  /// @returns accepted or refused
  Request<> SetPlayMode(const MWPTypePlayMode& mode);
  /// Whether the player supports the notification (IsSupportAvrcpNotify).
  /// @param event which one
  /// @returns whether it does
  Request<bool> SupportsAvrcpEvent(SupportAvrcpEvent event);

  // ----- Browsing. The interface has no way to carry the items; BrowsedItemsChanged says that there are
  // others.

  /// Whether the player can be browsed (IsSupportBrowserInfo).
  /// @returns whether it can
  Request<bool> SupportsBrowsing();
  /// Goes to the root folder and asks for count of its items (RootDirectory). Then FolderChanged,
  /// BrowsedItemsChanged.
  /// @param start the first item that is wanted, counted from 0
  /// @param count how many items are wanted at most
  /// @returns accepted or refused
  Request<> BrowseRoot(int start, int count);
  /// Whether the browsed folder is the root (IsRootDirectory).
  /// @returns whether it is
  Request<bool> IsAtRoot();
  /// Goes one folder up (FolderUp). Then FolderChanged, BrowsedItemsChanged.
  /// @param start the first item that is wanted, counted from 0
  /// @param count how many items are wanted at most
  /// @returns accepted or refused
  Request<> BrowseUp(int start, int count);
  /// Goes into a folder (FolderDown). Then FolderChanged, BrowsedItemsChanged.
  /// @param uid MWPTypeMediaItem::strUid of the folder
  /// @param start the first item that is wanted, counted from 0
  /// @param count how many items are wanted at most
  /// @returns accepted or refused
  Request<> BrowseDown(Text uid, int start, int count);
  /// Searches a folder (BrowsingSearch). Then FolderChanged, BrowsedItemsChanged.
  /// @param uid MWPTypeMediaItem::strUid of the folder
  /// @param words what to search for
  /// @param start the first item that is wanted, counted from 0
  /// @param count how many items are wanted at most
  /// @returns accepted or refused
  Request<> BrowseSearch(Text uid, Text words, int start, int count);
  /// Asks for items of the queue (BrowsingNowPlayingList). Then BrowsedItemsChanged.
  /// @param start the first item that is wanted, counted from 0
  /// @param count how many items are wanted at most
  /// @returns accepted or refused
  Request<> BrowseNowPlaying(int start, int count);
  /// Asks for the items of a scope (GetCurMediaItemList). Then BrowsedItemsChanged, if they are others than
  /// before.
  /// @param scope which items
  /// @returns accepted or refused
  Request<> BrowseScope(BrowserScopeType scope);
  /// Asks how many items a folder has (GetBrowsingFolderItemTotal). Then FolderItemsCounted.
  /// @param uid MWPTypeMediaItem::strUid of the folder
  /// @returns accepted or refused
  Request<> CountFolderItems(Text uid);
  /// Plays an item. Then ItemPlayed.
  /// @param uid MWPTypeMediaItem::strUid of the item
  /// @param scope where the item was found
  /// @returns accepted or refused
  Request<> PlayItem(Text uid, BrowserScopeType scope);
  /// Puts an item into the queue (AddMediaItemToNowPlaying). Then AddedToNowPlaying.
  /// @param uid MWPTypeMediaItem::strUid of the item
  /// @param scope where the item was found
  /// @returns accepted or refused
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
  /// @param type what to download
  /// @returns accepted or refused
  Request<> StartPhoneBookDownload(PbapType type = BT_PBAP_ALL);
  /// Ends it. Then DownloadChanged.
  /// @returns accepted or refused
  Request<> StopPhoneBookDownload();
  /// The phone book (GetContactList).
  /// @returns the contacts; none is an empty list
  Request<std::vector<MWPTypeContact>> Contacts();
  /// The favourite contacts (GetFavContactList).
  /// @returns the contacts; none is an empty list
  Request<std::vector<MWPTypeContact>> FavoriteContacts();
  /// One contact, by its place in the phone book, counted from 0 (GetContactByIndex); refused if there is
  /// none.
  /// @param index from 0 to below GetContactCount
  /// @returns the contact
  Request<MWPTypeContact> GetContact(int index);
  /// The number of contacts in the phone book.
  /// @returns 0 or more
  Request<int> GetContactCount();
  /// Deletes a contact (DeleteContactById). Then PhoneBookDeleted.
  /// @param contactId MWPTypeContact::nContactId
  /// @returns accepted or refused
  Request<> DeleteContact(int contactId);
  /// Deletes all contacts (ClearContact). Then PhoneBookDeleted.
  /// @returns accepted or refused
  Request<> DeleteContacts();
  /// Makes a contact a favourite, or no more. Then FavoriteChanged.
  /// @param contactId MWPTypeContact::nContactId
  /// @param favorite false: no more
  /// @returns accepted or refused
  Request<> SetContactFavorite(int contactId, bool favorite);
  /// A call log (GetCallLogList).
  /// @param type which log
  /// @returns the entries; none is an empty list
  Request<std::vector<MWPTypeCallLog>> CallLogs(CallLogType type);
  /// One entry (GetCallLogById), by its nLogId; refused if there is none.
  /// @param logId MWPTypeCallLog::nLogId
  /// @returns the entry
  Request<MWPTypeCallLog> GetCallLog(int logId);
  /// The number of entries in a call log.
  /// @param type which log
  /// @returns 0 or more
  Request<int> GetCallLogCount(CallLogType type);
  /// Deletes an entry (DeleteCallLogById). Then CallLogsChanged.
  /// @param logId MWPTypeCallLog::nLogId
  /// @returns accepted or refused
  Request<> DeleteCallLog(int logId);
  /// Deletes a call log (ClearCallLog). Then CallLogsChanged.
  /// @param type which log
  /// @returns accepted or refused
  Request<> DeleteCallLogs(CallLogType type);

  // ----- Serial channels and input

  /// Offers a serial-port service under this UUID.
  /// @param uuid as a text such as 00001101-0000-1000-8000-00805f9b34fb
  /// @returns accepted or refused
  Request<> SetRfCommUuid(Text uuid);
  /// Sends a text over the serial channel of a device.
  /// @param address of the device
  /// @param text what to send
  /// @returns accepted or refused
  Request<> SppSendText(const Address& address, Text text);
  /// Sends bytes over the serial channel of a device.
  /// @param address of the device
  /// @param bytes what to send; may hold zeros
  /// @returns accepted or refused
  Request<> SppSendBuffer(const Address& address, const Bytes& bytes);
  /// Calibrates the input (SetHIDCalibration). Then HidCalibrated.
  /// @param address of the device
  /// @param type the kind of input device
  /// @returns accepted or refused
  Request<> SetHidCalibration(const Address& address, HIDTYPE type);
  /// Sends a position or movement and the state of the buttons (SetHIDSendXY).
  /// @param address of the device
  /// @param type the kind of input device
  /// @param x of the position, or the movement to the right
  /// @param y of the position, or the movement down
  /// @param buttons a bit for each button that is down
  /// @returns accepted or refused
  Request<> SendHidPosition(const Address& address, HIDTYPE type, int x, int y, unsigned char buttons);
  /// Sends a key (SetHIDSendKey).
  /// @param address of the device
  /// @param key its code, which the two ends agree on
  /// @returns accepted or refused
  Request<> SendHidKey(const Address& address, int key);

  /// For the library and for tests: a service with another end than the bus.
  /// @param backend the other end, of which it takes a reference over
  explicit Service(detail::Backend& backend);
  /// For the library: the other end.
  /// @returns the other end, which lives as long as the service object
  detail::Backend& End() const { return *m_backend; }

 private:
  bool MaySubscribe(const Scope& scope) const;
  void Subscribe(const detail::EventKind& kind, Scope& scope, detail::Subscription& subscription);

  detail::Backend* m_backend;
};

}  // namespace v0
}  // namespace btasync

#endif
