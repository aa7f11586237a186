// Music and browsing.

#include "libbtasync/MakeRequest.h"

namespace btasync {
inline namespace v0 {
namespace {

/// The command of PlayMusic that plays. Others concern the audio focus.
constexpr int kPlay = 0;

}  // namespace

using wire::Ask;
using wire::AskFor;
using wire::AskForChecked;

Request<> Service::EnableAudioDevice(bool on) { return Ask<wire::EnableAudioDevice>(*this, on); }
Request<> Service::Play() { return Ask<wire::PlayMusic>(*this, kPlay); }
Request<> Service::Pause(bool mute) { return Ask<wire::StopMusic>(*this, mute); }
Request<> Service::Previous() { return Ask<wire::PreviousMusic>(*this); }
Request<> Service::Next() { return Ask<wire::NextMusic>(*this); }
Request<> Service::StartFastForward() { return Ask<wire::StartFastForward>(*this); }
Request<> Service::StopFastForward() { return Ask<wire::StopFastForward>(*this); }
Request<> Service::StartFastReverse() { return Ask<wire::StartFastReverse>(*this); }
Request<> Service::StopFastReverse() { return Ask<wire::StopFastReverse>(*this); }
Request<MusicPlayStatus> Service::GetMusicPlayStatus() {
  return AskFor<MusicPlayStatus, wire::GetMusicPlayStatus>(*this);
}
Request<> Service::ReportPosition(bool on, std::chrono::milliseconds interval) {
  return Ask<wire::RegGetPlayStatus>(*this, on, detail::ToTimeout(interval));
}
Request<> Service::ReportMediaInfo(bool on, std::chrono::milliseconds interval) {
  return Ask<wire::RegGetMediaInfo>(*this, on, detail::ToTimeout(interval));
}
Request<PlayPosition> Service::GetPlayPosition() {
  return AskForChecked<PlayPosition, wire::GetCurPlayPosition>(*this);
}
Request<MWPTypeMediaInfo> Service::GetMediaInfo() {
  return AskForChecked<MWPTypeMediaInfo, wire::GetMediaInfo>(*this);
}
Request<std::vector<MWPTypePlayMode>> Service::GetPlayModes() {
  return AskForChecked<std::vector<MWPTypePlayMode>, wire::GetCurPlayMode>(*this);
}
Request<std::vector<MWPTypePlayMode>> Service::GetSupportedPlayModes() {
  return AskForChecked<std::vector<MWPTypePlayMode>, wire::GetSupportPlayMode>(*this);
}
Request<> Service::SetPlayMode(const MWPTypePlayMode& mode) { return Ask<wire::SetCurPlayMode>(*this, mode); }
Request<bool> Service::SupportsAvrcpEvent(SupportAvrcpEvent event) {
  return AskFor<bool, wire::IsSupportAvrcpNotify>(*this, event);
}

Request<bool> Service::SupportsBrowsing() { return AskFor<bool, wire::IsSupportBrowserInfo>(*this); }
Request<> Service::BrowseRoot(int start, int count) { return Ask<wire::RootDirectory>(*this, start, count); }
Request<bool> Service::IsAtRoot() { return AskFor<bool, wire::IsRootDirectory>(*this); }
Request<> Service::BrowseUp(int start, int count) { return Ask<wire::FolderUp>(*this, start, count); }
Request<> Service::BrowseDown(Text uid, int start, int count) {
  return Ask<wire::FolderDown>(*this, uid, start, count);
}
Request<> Service::BrowseSearch(Text uid, Text words, int start, int count) {
  return Ask<wire::BrowsingSearch>(*this, uid, words, start, count);
}
Request<> Service::BrowseNowPlaying(int start, int count) {
  return Ask<wire::BrowsingNowPlayingList>(*this, start, count);
}
Request<> Service::BrowseScope(BrowserScopeType scope) {
  return Ask<wire::GetCurMediaItemList>(*this, scope);
}
Request<> Service::CountFolderItems(Text uid) { return Ask<wire::GetBrowsingFolderItemTotal>(*this, uid); }
Request<> Service::PlayItem(Text uid, BrowserScopeType scope) {
  return Ask<wire::PlayItem>(*this, uid, scope);
}
Request<> Service::AddToNowPlaying(Text uid, BrowserScopeType scope) {
  return Ask<wire::AddMediaItemToNowPlaying>(*this, uid, scope);
}
Request<ConnectionState> Service::GetMediaConnectionState() {
  return {wire::Prepare<wire::GetMediaConnectionState>(End()),
          &wire::Structure<wire::GetMediaConnectionState, ConnectionState>};
}

}  // namespace v0
}  // namespace btasync
