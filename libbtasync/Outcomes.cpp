// The requests that an event ends.

#include <string>
#include <utility>

#include <btasync/Outcome.h>

#include "libbtasync/OutcomeJudge.h"
#include "libbtasync/SignalOf.h"

namespace btasync {
inline namespace v0 {
namespace {

/// A person has to answer, at the device or here.
constexpr std::chrono::seconds kPerson{60};
constexpr std::chrono::minutes kLongTransfer{10};

/// How many values an event has.
template <typename Event>
constexpr std::size_t kValues = wire::SignalOf<Event>::out.size();

/// The request and the event that ends it. first: the request's first argument, if it decides what ends it.
template <typename Event>
Outcome<Event> Ended(Service& service, Request<> request, int first = 0) {
  const char* const name = request.Parts().Name();
  detail::OutcomeJudge judge(*FindRequestOutcome(name, first), detail::ArgumentsOf(request.Parts()));
  return {detail::Outgoing(service.End(), name,
                           std::make_unique<detail::FollowedRequest>(
                               std::move(request), detail::HandlingOf<Event>(),
                               [judge = std::move(judge)](const void* event) mutable {
                                 return judge.Judge(
                                     detail::ValuesOf<kValues<Event>>(*static_cast<const Event*>(event)));
                               })),
          nullptr};
}

}  // namespace

Outcome<PowerChanged> SwitchPower(Service& service, bool on) {
  return Ended<PowerChanged>(service, service.SetPower(on), on);
}
Outcome<CapabilityChanged> SwitchCapability(Service& service, Capability capability, bool on) {
  return Ended<CapabilityChanged>(service, service.SetCapability(capability, on));
}
Outcome<AttributeChanged> ChangeAttribute(Service& service, Attribute attribute, Text value) {
  return Ended<AttributeChanged>(service, service.SetAttribute(attribute, value));
}
Outcome<ProfilesEnabledChanged> AllowProfiles(Service& service) {
  return Ended<ProfilesEnabledChanged>(service, service.EnableProfiles());
}
Outcome<ProfilesEnabledChanged> ForbidProfiles(Service& service, const Address& address) {
  return Ended<ProfilesEnabledChanged>(service, service.DisableProfiles(address));
}

Outcome<ScanChanged> StartScan(Service& service) {
  return Ended<ScanChanged>(service, service.SetScanAction(true), 1);
}
Outcome<ScanChanged> StopScan(Service& service) {
  return Ended<ScanChanged>(service, service.SetScanAction(false), 0);
}
Outcome<PairChanged> PairDevice(Service& service, const Address& address, const PinCode& pinCode) {
  return Ended<PairChanged>(service, service.Pair(address, pinCode)).Within(kPerson);
}
Outcome<OutOfBandKeySet> PassOutOfBandKey(Service& service, const Address& address, const Bytes& linkKey) {
  return Ended<OutOfBandKeySet>(service, service.SetOutOfBandKey(address, linkKey));
}
Outcome<AndroidAutoPairingAnswered> PairForProjection(Service& service, const Address& address,
                                                      int pairingMethod) {
  return Ended<AndroidAutoPairingAnswered>(service, service.RequestAndroidAutoPairing(address, pairingMethod))
      .Within(kPerson);
}

Outcome<ConnectionChanged> ConnectDevice(Service& service, const Address& address, ProfileId profile,
                                         bool only) {
  return Ended<ConnectionChanged>(service, service.Connect(address, profile, only)).Within(kPerson);
}
Outcome<ConnectionChanged> DisconnectDevice(Service& service, const Address& address, ProfileId profile) {
  return Ended<ConnectionChanged>(service, service.Disconnect(address, profile));
}
Outcome<ConnectionChanged> ReconnectDevice(Service& service, const Address& address, ProfileId profile) {
  return Ended<ConnectionChanged>(service, service.Reconnect(address, profile)).Within(kPerson);
}
Outcome<PairedDevicesDeleted> DeleteDevice(Service& service, const Address& address) {
  return Ended<PairedDevicesDeleted>(service, service.DeletePairedDevice(address));
}
Outcome<PairedDevicesDeleted> DeleteDevices(Service& service) {
  return Ended<PairedDevicesDeleted>(service, service.DeletePairedDevices());
}

Outcome<CallStatusChanged> Dial(Service& service, Text number) {
  return Ended<CallStatusChanged>(service, service.DialCall(number));
}
Outcome<CallStatusChanged> Redial(Service& service) {
  return Ended<CallStatusChanged>(service, service.RedialCall());
}
Outcome<CallStatusChanged> TakeCall(Service& service) {
  return Ended<CallStatusChanged>(service, service.AcceptCall());
}
Outcome<CallStatusChanged> DeclineCall(Service& service) {
  return Ended<CallStatusChanged>(service, service.RejectCall());
}
Outcome<CallStatusChanged> HangUp(Service& service) {
  return Ended<CallStatusChanged>(service, service.TerminateCall());
}
Outcome<AudioChanged> MoveCallAudio(Service& service, bool toPhone) {
  return Ended<AudioChanged>(service, service.SetAudioPrivacy(toPhone), toPhone);
}
Outcome<VoiceRecognitionChanged> BeginVoiceRecognition(Service& service) {
  return Ended<VoiceRecognitionChanged>(service, service.StartVoiceRecognition());
}
Outcome<VoiceRecognitionChanged> EndVoiceRecognition(Service& service) {
  return Ended<VoiceRecognitionChanged>(service, service.StopVoiceRecognition());
}

Outcome<PlayModeChanged> ChangePlayMode(Service& service, const MWPTypePlayMode& mode) {
  return Ended<PlayModeChanged>(service, service.SetPlayMode(mode));
}
Outcome<FolderChanged> GoToRoot(Service& service, int start, int count) {
  return Ended<FolderChanged>(service, service.BrowseRoot(start, count));
}
Outcome<FolderChanged> GoUp(Service& service, int start, int count) {
  return Ended<FolderChanged>(service, service.BrowseUp(start, count));
}
Outcome<FolderChanged> GoDown(Service& service, Text uid, int start, int count) {
  return Ended<FolderChanged>(service, service.BrowseDown(uid, start, count));
}
Outcome<BrowsedItemsChanged> SearchFolder(Service& service, Text uid, Text words, int start, int count) {
  return Ended<BrowsedItemsChanged>(service, service.BrowseSearch(uid, words, start, count));
}
Outcome<BrowsedItemsChanged> ShowNowPlaying(Service& service, int start, int count) {
  return Ended<BrowsedItemsChanged>(service, service.BrowseNowPlaying(start, count));
}
Outcome<FolderItemsCounted> CountItems(Service& service, Text uid) {
  return Ended<FolderItemsCounted>(service, service.CountFolderItems(uid));
}
Outcome<ItemPlayed> PlayFolderItem(Service& service, Text uid, BrowserScopeType scope) {
  return Ended<ItemPlayed>(service, service.PlayItem(uid, scope));
}
Outcome<AddedToNowPlaying> QueueItem(Service& service, Text uid, BrowserScopeType scope) {
  return Ended<AddedToNowPlaying>(service, service.AddToNowPlaying(uid, scope));
}

Outcome<DownloadChanged> DownloadPhoneBook(Service& service, PbapType type) {
  return Ended<DownloadChanged>(service, service.StartPhoneBookDownload(type)).Within(kLongTransfer);
}
Outcome<DownloadChanged> StopDownload(Service& service) {
  return Ended<DownloadChanged>(service, service.StopPhoneBookDownload());
}
Outcome<FavoriteChanged> MarkFavorite(Service& service, int contactId, bool favorite) {
  return Ended<FavoriteChanged>(service, service.SetContactFavorite(contactId, favorite));
}
Outcome<PhoneBookDeleted> EraseContact(Service& service, int contactId) {
  return Ended<PhoneBookDeleted>(service, service.DeleteContact(contactId));
}
Outcome<PhoneBookDeleted> EraseContacts(Service& service) {
  return Ended<PhoneBookDeleted>(service, service.DeleteContacts());
}
Outcome<CallLogsChanged> EraseCallLog(Service& service, int logId) {
  return Ended<CallLogsChanged>(service, service.DeleteCallLog(logId));
}
Outcome<CallLogsChanged> EraseCallLogs(Service& service, CallLogType type) {
  return Ended<CallLogsChanged>(service, service.DeleteCallLogs(type));
}

Outcome<HidCalibrated> CalibrateHid(Service& service, const Address& address, HIDTYPE type) {
  return Ended<HidCalibrated>(service, service.SetHidCalibration(address, type));
}

}  // namespace v0
}  // namespace btasync
