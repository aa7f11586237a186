#include <bluetooth/MWPBtMedia.h>

#include "contract/RequestCases.h"

namespace bttest {

using F = MWPBtMedia;
using C = MWPBtClient;

std::vector<RequestCase> MediaRequests() {
  const auto queue = MWPBtType::BT_BROWSER_NOW_PLAYING;
  const MWPTypeMediaInfo song{"a", "b", "c", "d", "e", "f", "g"};
  const std::vector<MWPTypePlayMode> oneMode(1);
  const std::list<MWPTypeMediaItem> oneItem(1);
  return {
      {"GetMediaConnectionState", Asks(&F::GetMediaConnectionState, &C::GetMediaConnectionState),
       "GetMediaConnectionState()", "(200, 'address')", "{200, 'address'}"},
      {"EnableAudioDevice", Asks(&F::EnableAudioDevice, &C::EnableAudioDevice, 1), "EnableAudioDevice(true,)",
       "(true,)", "1"},
      // These two answer 1 whatever the service says.
      {"PlayMusic", Asks(&F::PlayMusic, &C::PlayMusic, 2, 5), "PlayMusic(2,)", "(false,)", "1"},
      {"StopMusic", Asks(&F::StopMusic, &C::StopMusic, 1), "StopMusic(true,)", "(false,)", "1"},
      {"PreviousMusic", Asks(&F::PreviousMusic, &C::PreviousMusic), "PreviousMusic()", "(true,)", "1"},
      {"NextMusic", Asks(&F::NextMusic, &C::NextMusic), "NextMusic()", "(true,)", "1"},
      {"StartFastForward", Asks(&F::StartFastForward, &C::StartFastForward), "StartFastForward()", "(true,)",
       "1"},
      {"StopFastForward", Asks(&F::StopFastForward, &C::StopFastForward), "StopFastForward()", "(true,)",
       "1"},
      {"StartFastReverse", Asks(&F::StartFastReverse, &C::StartFastReverse), "StartFastReverse()", "(true,)",
       "1"},
      {"StopFastReverse", Asks(&F::StopFastReverse, &C::StopFastReverse), "StopFastReverse()", "(true,)",
       "1"},
      {"GetMusicPlayStatus", Asks(&F::GetMusicPlayStatus, &C::GetMusicPlayStatus), "GetMusicPlayStatus()",
       "(200,)", "200"},
      {"RegGetPlayStatus", Asks(&F::RegGetPlayStatus, &C::RegGetPlayStatus, 1, 1000),
       "RegGetPlayStatus(true, 1000)", "(true,)", "1"},
      {"GetCurPlayPosition", Asks(&F::GetCurPlayPosition, &C::GetCurPlayPosition, 11, 12),
       "GetCurPlayPosition()", "(-1, 2147483647, true)", "1 -> -1, 2147483647"},
      {"RegGetMediaInfo", Asks(&F::RegGetMediaInfo, &C::RegGetMediaInfo, 0, -1), "RegGetMediaInfo(false, -1)",
       "(true,)", "1"},
      {"GetMediaInfo", Asks(&F::GetMediaInfo, &C::GetMediaInfo, song), "GetMediaInfo()",
       "('1', '2', '3', '4', '5', '6', '7', true)", "1 -> {'1', '2', '3', '4', '5', '6', '7'}"},
      {"GetCurPlayMode", Asks(&F::GetCurPlayMode, &C::GetCurPlayMode, oneMode), "GetCurPlayMode()",
       "([(2, 200)], true)", "1 -> [{0, 0}, {2, 200}]"},
      {"SetCurPlayMode", Asks(&F::SetCurPlayMode, &C::SetCurPlayMode, MWPTypePlayMode{2, 200}),
       "SetCurPlayMode((byte 0x02, byte 0xc8),)", "(true,)", "1"},
      {"GetSupportPlayMode", Asks(&F::GetSupportPlayMode, &C::GetSupportPlayMode, oneMode),
       "GetSupportPlayMode()", "([(1, 2), (3, 4)], true)", "1 -> [{0, 0}, {1, 2}, {3, 4}]"},
      {"IsSupportAvrcpNotify",
       Asks(&F::IsSupportAvrcpNotify, &C::IsSupportAvrcpNotify, MWPBtType::BT_AVRCP_EVENT_VOLUME_CHANGED),
       "IsSupportAvrcpNotify(byte 0x0d,)", "(true,)", "1"},
      {"IsSupportBrowserInfo", Asks(&F::IsSupportBrowserInfo, &C::IsSupportBrowserInfo),
       "IsSupportBrowserInfo()", "(true,)", "1"},
      {"RootDirectory", Asks(&F::RootDirectory, &C::RootDirectory, 1, 20), "RootDirectory(1, 20)", "(true,)",
       "1"},
      {"IsRootDirectory", Asks(&F::IsRootDirectory, &C::IsRootDirectory), "IsRootDirectory()", "(true,)",
       "1"},
      {"FolderUp", Asks(&F::FolderUp, &C::FolderUp, 1, 20), "FolderUp(1, 20)", "(true,)", "1"},
      {"FolderDown", Asks(&F::FolderDown, &C::FolderDown, "uid", 1, 20), "FolderDown('uid', 1, 20)",
       "(true,)", "1"},
      {"BrowsingSearch", Asks(&F::BrowsingSearch, &C::BrowsingSearch, "uid", "words", 1, 20),
       "BrowsingSearch('uid', 'words', 1, 20)", "(true,)", "1"},
      {"BrowsingNowPlayingList", Asks(&F::BrowsingNowPlayingList, &C::BrowsingNowPlayingList, 1, 20),
       "BrowsingNowPlayingList(1, 20)", "(true,)", "1"},
      {"PlayItem", Asks(&F::PlayItem, &C::PlayItem, "uid", queue), "PlayItem('uid', byte 0x03)", "(true,)",
       "1"},
      {"AddMediaItemToNowPlaying",
       Asks(&F::AddMediaItemToNowPlaying, &C::AddMediaItemToNowPlaying, "uid", queue),
       "AddMediaItemToNowPlaying('uid', byte 0x03)", "(true,)", "1"},
      // The facade's method and the service's have another name than the client's. The list stays as it is.
      {"GetMediaItemList", Asks(&F::GetCurMediaItemList, &C::GetMediaItemList, oneItem, queue),
       "GetCurMediaItemList(byte 0x03,)", "(true,)", "1"},
      {"GetBrowsingFolderItemTotal",
       Asks(&F::GetBrowsingFolderItemTotal, &C::GetBrowsingFolderItemTotal, "uid"),
       "GetBrowsingFolderItemTotal('uid',)", "(true,)", "1"},
  };
}

}  // namespace bttest
