// The requests that an event ends.

#include <string>
#include <utility>

#include <btasync/Outcome.h>

#include "WireNames.h"
#include "libbtasync/OutcomeJudge.h"

namespace btasync {
inline namespace v0 {
namespace {

/// A person has to answer, at the device or here.
constexpr std::chrono::seconds kPerson{60};
constexpr std::chrono::minutes kLongTransfer{10};

/// The request and the event that ends it, which comes from Signal. first: the request's first argument, if
/// it decides what ends it.
template <typename Event, typename Signal>
Outcome<Event> Ended(Service& service, Request<> request, int first = 0) {
  const char* const name = request.Parts().Name();
  detail::OutcomeJudge judge(*FindRequestOutcome(name, first), detail::ArgumentsOf(request.Parts()));
  return {detail::Outgoing(service.End(), name,
                           std::make_unique<detail::FollowedRequest>(
                               std::move(request), detail::HandlingOf<Event>(),
                               [judge = std::move(judge)](const void* event) mutable {
                                 return judge.Judge(
                                     detail::ValuesOf<Signal::out.size()>(*static_cast<const Event*>(event)));
                               })),
          nullptr};
}

}  // namespace

// clang-format off
Outcome<PowerChanged> SwitchPower(Service& service, bool on) { return Ended<PowerChanged, wire::OnOpenBtStatusChanged>(service, service.SetPower(on), on); }
Outcome<CapabilityChanged> SwitchCapability(Service& service, Capability capability, bool on) { return Ended<CapabilityChanged, wire::OnBtCapabilityChanged>(service, service.SetCapability(capability, on)); }
Outcome<AttributeChanged> ChangeAttribute(Service& service, Attribute attribute, Text value) { return Ended<AttributeChanged, wire::OnBtAttributeChanged>(service, service.SetAttribute(attribute, value)); }
Outcome<ProfilesEnabledChanged> AllowProfiles(Service& service) { return Ended<ProfilesEnabledChanged, wire::OnBtProfileEnableStatusChanged>(service, service.EnableProfiles()); }
Outcome<ProfilesEnabledChanged> ForbidProfiles(Service& service, const Address& address) { return Ended<ProfilesEnabledChanged, wire::OnBtProfileEnableStatusChanged>(service, service.DisableProfiles(address)); }

Outcome<ScanChanged> StartScan(Service& service) { return Ended<ScanChanged, wire::OnScanStatusChanged>(service, service.SetScanAction(true), 1); }
Outcome<ScanChanged> StopScan(Service& service) { return Ended<ScanChanged, wire::OnScanStatusChanged>(service, service.SetScanAction(false), 0); }
Outcome<PairChanged> PairDevice(Service& service, const Address& address, const PinCode& pinCode) { return Ended<PairChanged, wire::OnPairStatusChanged>(service, service.Pair(address, pinCode)).Within(kPerson); }
Outcome<OutOfBandKeySet> PassOutOfBandKey(Service& service, const Address& address, const Bytes& linkKey) { return Ended<OutOfBandKeySet, wire::OnSetDeviceOOBLinkKeyChanged>(service, service.SetOutOfBandKey(address, linkKey)); }
Outcome<AndroidAutoPairingAnswered> PairForProjection(Service& service, const Address& address, int pairingMethod) { return Ended<AndroidAutoPairingAnswered, wire::OnAndroidAutoPairingResponse>(service, service.RequestAndroidAutoPairing(address, pairingMethod)).Within(kPerson); }

Outcome<ConnectionChanged> ConnectDevice(Service& service, const Address& address, ProfileId profile, bool only) { return Ended<ConnectionChanged, wire::OnConnectStatusChanged>(service, service.Connect(address, profile, only)).Within(kPerson); }
Outcome<ConnectionChanged> DisconnectDevice(Service& service, const Address& address, ProfileId profile) { return Ended<ConnectionChanged, wire::OnConnectStatusChanged>(service, service.Disconnect(address, profile)); }
Outcome<ConnectionChanged> ReconnectDevice(Service& service, const Address& address, ProfileId profile) { return Ended<ConnectionChanged, wire::OnConnectStatusChanged>(service, service.Reconnect(address, profile)).Within(kPerson); }
Outcome<PairedDevicesDeleted> DeleteDevice(Service& service, const Address& address) { return Ended<PairedDevicesDeleted, wire::OnDeletePairStatusChanged>(service, service.DeletePairedDevice(address)); }
Outcome<PairedDevicesDeleted> DeleteDevices(Service& service) { return Ended<PairedDevicesDeleted, wire::OnDeletePairStatusChanged>(service, service.DeletePairedDevices()); }

Outcome<CallStatusChanged> Dial(Service& service, Text number) { return Ended<CallStatusChanged, wire::OnCallStatusChanged>(service, service.DialCall(number)); }
Outcome<CallStatusChanged> Redial(Service& service) { return Ended<CallStatusChanged, wire::OnCallStatusChanged>(service, service.RedialCall()); }
Outcome<CallStatusChanged> TakeCall(Service& service) { return Ended<CallStatusChanged, wire::OnCallStatusChanged>(service, service.AcceptCall()); }
Outcome<CallStatusChanged> DeclineCall(Service& service) { return Ended<CallStatusChanged, wire::OnCallStatusChanged>(service, service.RejectCall()); }
Outcome<CallStatusChanged> HangUp(Service& service) { return Ended<CallStatusChanged, wire::OnCallStatusChanged>(service, service.TerminateCall()); }
Outcome<AudioChanged> MoveCallAudio(Service& service, bool toPhone) { return Ended<AudioChanged, wire::OnAudioStatusChanged>(service, service.SetAudioPrivacy(toPhone), toPhone); }
Outcome<VoiceRecognitionChanged> BeginVoiceRecognition(Service& service) { return Ended<VoiceRecognitionChanged, wire::OnVoiceStatusChanged>(service, service.StartVoiceRecognition()); }
Outcome<VoiceRecognitionChanged> EndVoiceRecognition(Service& service) { return Ended<VoiceRecognitionChanged, wire::OnVoiceStatusChanged>(service, service.StopVoiceRecognition()); }

Outcome<PlayModeChanged> ChangePlayMode(Service& service, const MWPTypePlayMode& mode) { return Ended<PlayModeChanged, wire::OnPlayModeChanged>(service, service.SetPlayMode(mode)); }
Outcome<FolderChanged> GoToRoot(Service& service, int start, int count) { return Ended<FolderChanged, wire::OnCurBrowserPathChanged>(service, service.BrowseRoot(start, count)); }
Outcome<FolderChanged> GoUp(Service& service, int start, int count) { return Ended<FolderChanged, wire::OnCurBrowserPathChanged>(service, service.BrowseUp(start, count)); }
Outcome<FolderChanged> GoDown(Service& service, Text uid, int start, int count) { return Ended<FolderChanged, wire::OnCurBrowserPathChanged>(service, service.BrowseDown(uid, start, count)); }
Outcome<BrowsedItemsChanged> SearchFolder(Service& service, Text uid, Text words, int start, int count) { return Ended<BrowsedItemsChanged, wire::OnBrowserMediaInfoChanged>(service, service.BrowseSearch(uid, words, start, count)); }
Outcome<BrowsedItemsChanged> ShowNowPlaying(Service& service, int start, int count) { return Ended<BrowsedItemsChanged, wire::OnBrowserMediaInfoChanged>(service, service.BrowseNowPlaying(start, count)); }
Outcome<FolderItemsCounted> CountItems(Service& service, Text uid) { return Ended<FolderItemsCounted, wire::OnBrowserFolderItemTotalChanged>(service, service.CountFolderItems(uid)); }
Outcome<ItemPlayed> PlayFolderItem(Service& service, Text uid, BrowserScopeType scope) { return Ended<ItemPlayed, wire::OnSendPlayItemStatus>(service, service.PlayItem(uid, scope)); }
Outcome<AddedToNowPlaying> QueueItem(Service& service, Text uid, BrowserScopeType scope) { return Ended<AddedToNowPlaying, wire::OnMediaItemToNowPlayingStatus>(service, service.AddToNowPlaying(uid, scope)); }

Outcome<DownloadChanged> DownloadPhoneBook(Service& service, PbapType type) { return Ended<DownloadChanged, wire::OnPBDownloadStatus>(service, service.StartPhoneBookDownload(type)).Within(kLongTransfer); }
Outcome<DownloadChanged> StopDownload(Service& service) { return Ended<DownloadChanged, wire::OnPBDownloadStatus>(service, service.StopPhoneBookDownload()); }
Outcome<FavoriteChanged> MarkFavorite(Service& service, int contactId, bool favorite) { return Ended<FavoriteChanged, wire::OnContactFavoriteChanged>(service, service.SetContactFavorite(contactId, favorite)); }
Outcome<PhoneBookDeleted> EraseContact(Service& service, int contactId) { return Ended<PhoneBookDeleted, wire::OnDeletePhoneBookChanged>(service, service.DeleteContact(contactId)); }
Outcome<PhoneBookDeleted> EraseContacts(Service& service) { return Ended<PhoneBookDeleted, wire::OnDeletePhoneBookChanged>(service, service.DeleteContacts()); }
Outcome<CallLogsChanged> EraseCallLog(Service& service, int logId) { return Ended<CallLogsChanged, wire::OnBtCallLogListChanged>(service, service.DeleteCallLog(logId)); }
Outcome<CallLogsChanged> EraseCallLogs(Service& service, CallLogType type) { return Ended<CallLogsChanged, wire::OnBtCallLogListChanged>(service, service.DeleteCallLogs(type)); }

Outcome<HidCalibrated> CalibrateHid(Service& service, const Address& address, HIDTYPE type) { return Ended<HidCalibrated, wire::OnHIDCalibration>(service, service.SetHidCalibration(address, type)); }
// clang-format on

}  // namespace v0
}  // namespace btasync
