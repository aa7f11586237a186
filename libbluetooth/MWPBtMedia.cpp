// Facade of audio streaming, remote control and browsing.

#include <bluetooth/MWPBtMedia.h>

#include "libbluetooth/ForwardToClient.h"

MWPBtMedia::MWPBtMedia() = default;

MWPBtMedia::~MWPBtMedia() = default;

MWPTypeConnectionState MWPBtMedia::GetMediaConnectionState() {
  return ForwardToClient(&MWPBtClient::GetMediaConnectionState);
}

int MWPBtMedia::EnableAudioDevice(int enable) {
  return ForwardToClient(&MWPBtClient::EnableAudioDevice, enable);
}

int MWPBtMedia::PlayMusic(int command, int confirmation) {
  return ForwardToClient(&MWPBtClient::PlayMusic, command, confirmation);
}

int MWPBtMedia::StopMusic(int mute) { return ForwardToClient(&MWPBtClient::StopMusic, mute); }

int MWPBtMedia::PreviousMusic() { return ForwardToClient(&MWPBtClient::PreviousMusic); }

int MWPBtMedia::NextMusic() { return ForwardToClient(&MWPBtClient::NextMusic); }

int MWPBtMedia::StartFastForward() { return ForwardToClient(&MWPBtClient::StartFastForward); }

int MWPBtMedia::StopFastForward() { return ForwardToClient(&MWPBtClient::StopFastForward); }

int MWPBtMedia::StartFastReverse() { return ForwardToClient(&MWPBtClient::StartFastReverse); }

int MWPBtMedia::StopFastReverse() { return ForwardToClient(&MWPBtClient::StopFastReverse); }

int MWPBtMedia::GetMusicPlayStatus() { return ForwardToClient(&MWPBtClient::GetMusicPlayStatus); }

int MWPBtMedia::RegGetPlayStatus(int enable, int milliseconds) {
  return ForwardToClient(&MWPBtClient::RegGetPlayStatus, enable, milliseconds);
}

int MWPBtMedia::GetCurPlayPosition(int& position, int& totalLength) {
  return ForwardToClient(&MWPBtClient::GetCurPlayPosition, position, totalLength);
}

int MWPBtMedia::RegGetMediaInfo(int enable, int milliseconds) {
  return ForwardToClient(&MWPBtClient::RegGetMediaInfo, enable, milliseconds);
}

int MWPBtMedia::GetMediaInfo(MWPTypeMediaInfo& info) {
  return ForwardToClient(&MWPBtClient::GetMediaInfo, info);
}

int MWPBtMedia::GetCurPlayMode(std::vector<MWPTypePlayMode>& modes) {
  return ForwardToClient(&MWPBtClient::GetCurPlayMode, modes);
}

int MWPBtMedia::SetCurPlayMode(MWPTypePlayMode mode) {
  return ForwardToClient(&MWPBtClient::SetCurPlayMode, mode);
}

int MWPBtMedia::GetSupportPlayMode(std::vector<MWPTypePlayMode>& modes) {
  return ForwardToClient(&MWPBtClient::GetSupportPlayMode, modes);
}

int MWPBtMedia::IsSupportAvrcpNotify(MWPBtType::SupportAvrcpEvent event) {
  return ForwardToClient(&MWPBtClient::IsSupportAvrcpNotify, event);
}

int MWPBtMedia::IsSupportBrowserInfo() { return ForwardToClient(&MWPBtClient::IsSupportBrowserInfo); }

int MWPBtMedia::RootDirectory(int startPosition, int maxCount) {
  return ForwardToClient(&MWPBtClient::RootDirectory, startPosition, maxCount);
}

int MWPBtMedia::IsRootDirectory() { return ForwardToClient(&MWPBtClient::IsRootDirectory); }

int MWPBtMedia::FolderUp(int startPosition, int maxCount) {
  return ForwardToClient(&MWPBtClient::FolderUp, startPosition, maxCount);
}

int MWPBtMedia::FolderDown(const std::string& uid, int startPosition, int maxCount) {
  return ForwardToClient(&MWPBtClient::FolderDown, uid, startPosition, maxCount);
}

int MWPBtMedia::BrowsingSearch(const std::string& uid, const std::string& keyWords, int startPosition,
                               int maxCount) {
  return ForwardToClient(&MWPBtClient::BrowsingSearch, uid, keyWords, startPosition, maxCount);
}

int MWPBtMedia::BrowsingNowPlayingList(int startPosition, int maxCount) {
  return ForwardToClient(&MWPBtClient::BrowsingNowPlayingList, startPosition, maxCount);
}

int MWPBtMedia::PlayItem(const std::string& uid, MWPBtType::BrowserScopeType scope) {
  return ForwardToClient(&MWPBtClient::PlayItem, uid, scope);
}

int MWPBtMedia::AddMediaItemToNowPlaying(const std::string& uid, MWPBtType::BrowserScopeType scope) {
  return ForwardToClient(&MWPBtClient::AddMediaItemToNowPlaying, uid, scope);
}

int MWPBtMedia::GetCurMediaItemList(std::list<MWPTypeMediaItem>& items, MWPBtType::BrowserScopeType scope) {
  return ForwardToClient(&MWPBtClient::GetMediaItemList, items, scope);
}

int MWPBtMedia::GetBrowsingFolderItemTotal(const std::string& uid) {
  return ForwardToClient(&MWPBtClient::GetBrowsingFolderItemTotal, uid);
}
