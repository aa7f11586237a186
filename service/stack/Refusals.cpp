// What a stack answers to the requests that it does not know: it cannot. So a new stack begins with the few
// that it can, and grows.

#include "service/stack/BluetoothStack.h"

namespace btservice {

bool AdapterControl::SetPower(bool) { return false; }
PowerStatus AdapterControl::Power() const { return BT_POWER_OFF; }
void AdapterControl::ReportStatus() {}
bool AdapterControl::SetCapability(Capability, int) { return false; }
int AdapterControl::GetCapability(Capability) const { return 0; }
bool AdapterControl::SetAttribute(Attribute, const std::string&) { return false; }
bool AdapterControl::GetAttribute(Attribute, std::string&) const { return false; }
bool AdapterControl::SetScanning(bool) { return false; }
void AdapterControl::ForgetFoundDevices() {}
bool AdapterControl::EnterTestMode() { return false; }

bool DeviceControl::Pair(const std::string&, const std::string&) { return false; }
bool DeviceControl::AcceptPairing(const std::string&, const std::string&, PairRequestState) { return false; }
bool DeviceControl::RejectPairing(const std::string&, PairRequestState) { return false; }
bool DeviceControl::SetOobLinkKey(const std::string&, const Bytes&) { return false; }
std::vector<DeviceInfo> DeviceControl::PairedDevices() const { return {}; }
std::optional<DeviceInfo> DeviceControl::FindDevice(const std::string&) const { return {}; }
bool DeviceControl::DeletePairings() { return false; }
bool DeviceControl::DeletePairing(const std::string&) { return false; }
bool DeviceControl::MovePairing(const std::string&, int) { return false; }
void DeviceControl::RemoveDevice(const std::string&) {}
bool DeviceControl::Connect(const std::string&, ProfileId, bool) { return false; }
bool DeviceControl::Disconnect(const std::string&, ProfileId) { return false; }
bool DeviceControl::Reconnect(const std::string&, ProfileId) { return false; }
void DeviceControl::EnableProfiles() {}
void DeviceControl::DisableProfiles(const std::string&) {}
ConnectionState DeviceControl::Connection(ProfileId) const { return {}; }
bool DeviceControl::SetProjectionRunning(bool) { return false; }
bool DeviceControl::RequestProjectionPairing(const std::string&, int) { return false; }
void DeviceControl::SetProjectionAllowed(const std::string&, bool) {}

bool CallControl::Accept() { return false; }
bool CallControl::Reject() { return false; }
bool CallControl::HangUp() { return false; }
bool CallControl::Dial(const std::string&) { return false; }
bool CallControl::Redial() { return false; }
bool CallControl::Perform(CallAction, int) { return false; }
bool CallControl::SendTone(char) { return false; }
std::vector<CallInfo> CallControl::Calls() const { return {}; }
bool CallControl::SetPrivate(bool) { return false; }
bool CallControl::IsPrivate() const { return false; }
void CallControl::StartVoiceRecognition() {}
void CallControl::StopVoiceRecognition() {}
std::optional<std::string> CallControl::OwnNumber() const { return {}; }
bool CallControl::PlayRingtone() { return false; }
bool CallControl::StopRingtone() { return false; }
bool CallControl::PlayPreview(const std::string&) { return false; }
bool CallControl::StopPreview() { return false; }

bool MusicControl::EnableOutput(bool) { return false; }
bool MusicControl::Play() { return false; }
bool MusicControl::Pause() { return false; }
bool MusicControl::Previous() { return false; }
bool MusicControl::Next() { return false; }
bool MusicControl::FastForward(bool) { return false; }
bool MusicControl::FastReverse(bool) { return false; }
MusicPlayStatus MusicControl::Status() const { return BT_MUSIC_STOPPED; }
std::optional<std::pair<int, int>> MusicControl::Position() const { return {}; }
std::optional<TrackInfo> MusicControl::CurrentTrack() const { return {}; }
bool MusicControl::ReportPosition(bool, int) { return false; }
bool MusicControl::ReportTrackInfo(bool, int) { return false; }
std::vector<PlayMode> MusicControl::PlayModes() const { return {}; }
std::vector<PlayMode> MusicControl::SupportedPlayModes() const { return {}; }
bool MusicControl::SetPlayMode(PlayMode) { return false; }
bool MusicControl::SupportsNotification(SupportAvrcpEvent) const { return false; }
bool MusicControl::SupportsBrowsing() const { return false; }
bool MusicControl::IsRootFolder() const { return false; }
bool MusicControl::ToRootFolder(ItemRange) { return false; }
bool MusicControl::FolderUp(ItemRange) { return false; }
bool MusicControl::FolderDown(const std::string&, ItemRange) { return false; }
bool MusicControl::Search(const std::string&, const std::string&, ItemRange) { return false; }
bool MusicControl::BrowseQueue(ItemRange) { return false; }
bool MusicControl::FetchItems(BrowserScopeType) { return false; }
std::vector<BrowserItem> MusicControl::Items(BrowserScopeType) const { return {}; }
bool MusicControl::CountFolder(const std::string&) { return false; }
bool MusicControl::PlayItem(const std::string&, BrowserScopeType) { return false; }
bool MusicControl::QueueItem(const std::string&, BrowserScopeType) { return false; }

bool PhoneBookControl::StartDownload(PbapType) { return false; }
bool PhoneBookControl::StopDownload() { return false; }
const std::vector<Contact>& PhoneBookControl::Contacts() const {
  static const std::vector<Contact> none;
  return none;
}
std::vector<Contact> PhoneBookControl::Favorites() const { return {}; }
bool PhoneBookControl::DeleteContact(int) { return false; }
bool PhoneBookControl::ClearContacts() { return false; }
bool PhoneBookControl::SetFavorite(int, bool) { return false; }
std::vector<CallLogEntry> PhoneBookControl::CallLogs(CallLogType) const { return {}; }
bool PhoneBookControl::DeleteCallLog(int) { return false; }
bool PhoneBookControl::ClearCallLogs(CallLogType) { return false; }

bool SerialControl::OfferService(const std::string&) { return false; }
bool SerialControl::Send(const std::string&, const Bytes&) { return false; }
bool SerialControl::CalibrateHid(const std::string&, HIDTYPE) { return false; }
bool SerialControl::SendHidPosition(const std::string&, HIDTYPE, int, int, int) { return false; }
bool SerialControl::SendHidKey(const std::string&, int) { return false; }

}  // namespace btservice
