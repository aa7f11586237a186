#ifndef BTASYNC_OUTCOME_H
#define BTASYNC_OUTCOME_H

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include <btasync/Service.h>

// A request and the event that ends it, as one thing.

namespace btasync {
inline namespace v0 {

/// A request whose answer is the event that ends it. It is used as any other request: Within, Then, Send,
/// co_await; Call::Cancel. Nothing is sent before.
///
/// It subscribes the event, sends the request, and ends once:
/// - accepted, with the event by which the service reports that it is done, once the service has accepted the
///   request too. The event may come before the answer.
/// - refused, if the service refuses the request, or if the event reports a failure. Answer::RefusedBy then
///   is that event: of PairDevice with the reason (PairFailedReson), of ConnectDevice with what became of the
///   connection, of DownloadPhoneBook with whether it was stopped, failed or refused.
/// - failed, as every request; with TimedOut if the event does not come in time; with ServiceGone or NoBus if
///   the service or the bus goes in between. What was begun may still be done then.
///
/// Only an event that fits the arguments of the request counts, where the interface lets them be compared.
template <typename Event>
using Outcome = Request<Event>;

/// What an event says about a request.
enum class Verdict {
  NotYet,   ///< nothing, or that it is under way
  Reached,  ///< it is done
  Missed,   ///< it has failed
};

namespace detail {

/// What is done with an event whose type only the templates know.
struct EventHandling {
  const EventKind* kind;
  std::shared_ptr<const void> (*copy)(const void* event);
  /// Completes a call as accepted with the event, or as refused by it; by nothing if it is null.
  void (*complete)(PendingCall& call, bool isAccepted, const void* event);
};

template <typename Event>
EventHandling HandlingOf() {
  return {&KindOf<Event>(),
          [](const void* event) -> std::shared_ptr<const void> {
            return std::make_shared<const Event>(*static_cast<const Event*>(event));
          },
          [](PendingCall& call, bool isAccepted, const void* event) {
            Answer<Event> answer{Refusal()};
            if (event != nullptr) {
              const Event& own = *static_cast<const Event*>(event);
              answer = isAccepted ? Answer<Event>(own) : Answer<Event>(Refusal(), own);
            }
            Reply reply;
            reply.answer = &answer;
            call.Complete(reply);
          }};
}

BTASYNC_API Outgoing Follow(Service& service, Request<> request, const EventHandling& handling,
                            std::function<Verdict(const void* event)> judge);

}  // namespace detail

/// An outcome of one's own: the request, and what decides about each event of a kind that comes from its
/// sending on. That may destroy everything, as any callback. What it throws is logged: the event does not
/// count.
///
///   const auto isDone = [](const CallActionChanged& event) {
///     return event.action == BT_CALL_ADD_HELD && !event.possible ? Verdict::Reached : Verdict::NotYet;
///   };
///   Follow<CallActionChanged>(service, service.SwitchCalls(BT_CALL_ADD_HELD), isDone).Then(scope, …);
template <typename Event>
Outcome<Event> Follow(Service& service, Request<> request, std::function<Verdict(const Event&)> judge) {
  return {detail::Follow(service, std::move(request), detail::HandlingOf<Event>(),
                         [judge = std::move(judge)](const void* event) {
                           return judge(*static_cast<const Event*>(event));
                         }),
          nullptr};
}

// Each of these makes the request of Service that its comment names, with the same arguments. Those that wait
// for a person or for a long transfer have a deadline of their own, which is named; the others have the
// service's.
//
// Service::Play, Pause and BrowseScope have none: where nothing changes, no event reports that they are done.

// ----- Adapter

/// SetPower. Refused if the adapter is in that state or on its way.
BTASYNC_API Outcome<PowerChanged> SwitchPower(Service& service, bool on);
/// SetCapability.
BTASYNC_API Outcome<CapabilityChanged> SwitchCapability(Service& service, Capability capability, bool on);
/// SetAttribute.
BTASYNC_API Outcome<AttributeChanged> ChangeAttribute(Service& service, Attribute attribute, Text value);
/// EnableProfiles.
BTASYNC_API Outcome<ProfilesEnabledChanged> AllowProfiles(Service& service);
/// DisableProfiles.
BTASYNC_API Outcome<ProfilesEnabledChanged> ForbidProfiles(Service& service, const Address& address);

// ----- Search and pairing

/// SetScanAction(true): until the search runs.
BTASYNC_API Outcome<ScanChanged> StartScan(Service& service);
/// SetScanAction(false).
BTASYNC_API Outcome<ScanChanged> StopScan(Service& service);
/// Pair. A person answers at both ends: 60 seconds. The question comes as PairRequested.
BTASYNC_API Outcome<PairChanged> PairDevice(Service& service, const Address& address,
                                            const PinCode& pinCode = PinCode());
/// SetOutOfBandKey.
BTASYNC_API Outcome<OutOfBandKeySet> PassOutOfBandKey(Service& service, const Address& address,
                                                      const Bytes& linkKey);
/// RequestAndroidAutoPairing. A person may answer: 60 seconds. Accepted, whatever the status says.
BTASYNC_API Outcome<AndroidAutoPairingAnswered> PairForProjection(Service& service, const Address& address,
                                                                  int pairingMethod);

// ----- Paired devices and connections

/// Connect. The phone may ask its user: 60 seconds. For BT_PROFILE_HFP_A2DP it ends once both profiles have
/// ended, with the last event: accepted if both are connected. A device that has only one of them reports
/// only that one: it ends a second after it.
BTASYNC_API Outcome<ConnectionChanged> ConnectDevice(Service& service, const Address& address,
                                                     ProfileId profile = BT_PROFILE_HFP_A2DP,
                                                     bool only = false);
/// Disconnect. BT_PROFILE_HFP_A2DP as with ConnectDevice.
BTASYNC_API Outcome<ConnectionChanged> DisconnectDevice(Service& service, const Address& address,
                                                        ProfileId profile = BT_PROFILE_HFP_A2DP);
/// Reconnect: until it is connected again; 60 seconds. BT_PROFILE_HFP_A2DP as with ConnectDevice.
BTASYNC_API Outcome<ConnectionChanged> ReconnectDevice(Service& service, const Address& address,
                                                       ProfileId profile = BT_PROFILE_HFP_A2DP);
/// DeletePairedDevice.
BTASYNC_API Outcome<PairedDevicesDeleted> DeleteDevice(Service& service, const Address& address);
/// DeletePairedDevices.
BTASYNC_API Outcome<PairedDevicesDeleted> DeleteDevices(Service& service);

// ----- Calls. The events do not tell which of several calls a request was about.

/// DialCall: until the phone dials.
BTASYNC_API Outcome<CallStatusChanged> Dial(Service& service, Text number);
/// RedialCall: until the phone dials.
BTASYNC_API Outcome<CallStatusChanged> Redial(Service& service);
/// AcceptCall: until a call is active.
BTASYNC_API Outcome<CallStatusChanged> TakeCall(Service& service);
/// RejectCall: until a call has ended.
BTASYNC_API Outcome<CallStatusChanged> DeclineCall(Service& service);
/// TerminateCall: until a call has ended.
BTASYNC_API Outcome<CallStatusChanged> HangUp(Service& service);
/// SetAudioPrivacy. If the sound is there already, no event says so, and it ends with TimedOut: look at
/// AudioState::onPhone before.
BTASYNC_API Outcome<AudioChanged> MoveCallAudio(Service& service, bool toPhone);
/// StartVoiceRecognition. The service cannot refuse it: if it runs already, or cannot begin (a call, no
/// phone), it ends with TimedOut.
BTASYNC_API Outcome<VoiceRecognitionChanged> BeginVoiceRecognition(Service& service);
/// StopVoiceRecognition. The service cannot refuse it: if it does not run, it ends with TimedOut.
BTASYNC_API Outcome<VoiceRecognitionChanged> EndVoiceRecognition(Service& service);

// ----- Music and browsing

/// SetPlayMode.
BTASYNC_API Outcome<PlayModeChanged> ChangePlayMode(Service& service, const MWPTypePlayMode& mode);
/// BrowseRoot.
BTASYNC_API Outcome<FolderChanged> GoToRoot(Service& service, int start, int count);
/// BrowseUp.
BTASYNC_API Outcome<FolderChanged> GoUp(Service& service, int start, int count);
/// BrowseDown.
BTASYNC_API Outcome<FolderChanged> GoDown(Service& service, Text uid, int start, int count);
/// BrowseSearch: until there are items.
BTASYNC_API Outcome<BrowsedItemsChanged> SearchFolder(Service& service, Text uid, Text words, int start,
                                                      int count);
/// BrowseNowPlaying: until there are items.
BTASYNC_API Outcome<BrowsedItemsChanged> ShowNowPlaying(Service& service, int start, int count);
/// CountFolderItems.
BTASYNC_API Outcome<FolderItemsCounted> CountItems(Service& service, Text uid);
/// PlayItem.
BTASYNC_API Outcome<ItemPlayed> PlayFolderItem(Service& service, Text uid, BrowserScopeType scope);
/// AddToNowPlaying.
BTASYNC_API Outcome<AddedToNowPlaying> QueueItem(Service& service, Text uid, BrowserScopeType scope);

// ----- Phone book and call logs

/// StartPhoneBookDownload: until it is complete; 10 minutes. DownloadProgress tells how far it is.
BTASYNC_API Outcome<DownloadChanged> DownloadPhoneBook(Service& service, PbapType type = BT_PBAP_ALL);
/// StopPhoneBookDownload.
BTASYNC_API Outcome<DownloadChanged> StopDownload(Service& service);
/// SetContactFavorite.
BTASYNC_API Outcome<FavoriteChanged> MarkFavorite(Service& service, int contactId, bool favorite);
/// DeleteContact.
BTASYNC_API Outcome<PhoneBookDeleted> EraseContact(Service& service, int contactId);
/// DeleteContacts.
BTASYNC_API Outcome<PhoneBookDeleted> EraseContacts(Service& service);
/// DeleteCallLog.
BTASYNC_API Outcome<CallLogsChanged> EraseCallLog(Service& service, int logId);
/// DeleteCallLogs.
BTASYNC_API Outcome<CallLogsChanged> EraseCallLogs(Service& service, CallLogType type);

// ----- Input

/// SetHidCalibration.
BTASYNC_API Outcome<HidCalibrated> CalibrateHid(Service& service, const Address& address, HIDTYPE type);

}  // namespace v0
}  // namespace btasync

#endif
