// The requests about music, browsing and ring tones: one call of the service each.
// ServiceCall.h says how they are read.

#define MWP_LOG_SOURCE "ipc/BtClientIpcAdapter"
#include <mwp/MWPLog.h>

#include "glib/Owned.h"
#include "ipc/BtClientIpcAdapter.h"
#include "ipc/ServiceCall.h"

namespace {

/// Makes room for so many further modes; false, with an error in the log, if there is no memory for them.
bool MakeRoom(const MWPLogSite& site, std::vector<MWPTypePlayMode>& modes, std::size_t count) {
  try {
    modes.reserve(modes.size() + count);
    return true;
  } catch (const std::bad_alloc&) {
    MWPLogWrite(site, MWP_LOG_ERROR, "%s: there is no memory for %zu play modes", site.function, count);
    return false;
  }
}

/// Appends the play modes that the service answers with, and prints the type of each, under the name of the
/// adapter's method, to standard output.
template <typename Function>
int AskPlayModes(const MWPLogSite& site, const char* name, Function call,
                 std::vector<MWPTypePlayMode>& modes) {
  OwnedVariant answer;
  gboolean result = 0;
  if (!CallService(site, name, call, answer.Out(), &result)) {
    return result;
  }
  const gsize count = g_variant_n_children(answer.get());
  if (!MakeRoom(site, modes, count)) {
    return result;
  }
  for (gsize i = 0; i < count; ++i) {
    const OwnedVariant child(g_variant_get_child_value(answer.get(), i));
    g_print("%s type '%s'\n", site.function, g_variant_get_type_string(child.get()));
    if (g_variant_is_container(child.get())) {
      guchar type = 0;
      guchar value = 0;
      g_variant_get(child.get(), "(yy)", &type, &value);
      MWPTypePlayMode mode;
      mode.nType = type;
      mode.nValue = value;
      modes.push_back(mode);
    }
  }
  return result;
}

}  // namespace

MWPTypeConnectionState BtClientIpcAdapter::GetMediaConnectionState() {
  return AskConnectionState(BT_REQUEST_SITE, com_zelk_linux_bluetooth_call_get_media_connection_state_sync);
}

// The answer of the service is not asked for: callers see 1 in every case.
int BtClientIpcAdapter::PlayMusic(int command) {
  CallService(BT_CALL(play_music), command, static_cast<gboolean*>(nullptr));
  return 1;
}

// As PlayMusic, and a failure is not even logged.
int BtClientIpcAdapter::StopMusic(int mute) {
  OwnedError ignored;
  gboolean result = 0;
  CallSilently(ignored, com_zelk_linux_bluetooth_call_stop_music_sync, mute, &result);
  return 1;
}

int BtClientIpcAdapter::PreviousMusic() { return CallForResult<gboolean>(BT_CALL(previous_music)); }

int BtClientIpcAdapter::NextMusic() { return CallForResult<gboolean>(BT_CALL(next_music)); }

int BtClientIpcAdapter::StartFastForward() { return CallForResult<gboolean>(BT_CALL(start_fast_forward)); }

int BtClientIpcAdapter::StopFastForward() { return CallForResult<gboolean>(BT_CALL(stop_fast_forward)); }

int BtClientIpcAdapter::StartFastReverse() { return CallForResult<gboolean>(BT_CALL(start_fast_reverse)); }

int BtClientIpcAdapter::StopFastReverse() { return CallForResult<gboolean>(BT_CALL(stop_fast_reverse)); }

int BtClientIpcAdapter::GetMusicPlayStatus() { return CallForResult<guchar>(BT_CALL(get_music_play_status)); }

int BtClientIpcAdapter::RegGetPlayStatus(int enable, int milliseconds) {
  return CallForResult<gboolean>(BT_CALL(reg_get_play_status), enable, milliseconds);
}

int BtClientIpcAdapter::RegGetMediaInfo(int enable, int milliseconds) {
  return CallForResult<gboolean>(BT_CALL(reg_get_media_info), enable, milliseconds);
}

int BtClientIpcAdapter::GetCurPlayPosition(int& position, int& totalLength) {
  position = 0;
  totalLength = 0;
  return CallForResult<gboolean>(BT_CALL(get_cur_play_position), &position, &totalLength);
}

int BtClientIpcAdapter::GetMediaInfo(MWPTypeMediaInfo& info) {
  const MWPLogSite site = BT_REQUEST_SITE;
  OutText title(site), artist(site), album(site), track(site), numOfTracks(site), genre(site), duration(site);
  gboolean result = 0;
  if (CallService(BT_CALL(get_media_info), title.Out(), artist.Out(), album.Out(), track.Out(),
                  numOfTracks.Out(), genre.Out(), duration.Out(), &result)) {
    info = {title.Text(),       artist.Text(), album.Text(),   track.Text(),
            numOfTracks.Text(), genre.Text(),  duration.Text()};
  }
  return result;
}

int BtClientIpcAdapter::SetCurPlayMode(MWPTypePlayMode mode) {
  const OwnedVariant pair(g_variant_new("(yy)", AsByte(mode.nType), AsByte(mode.nValue)));
  return CallForResult<gboolean>(BT_CALL(set_cur_play_mode), pair.get());
}

int BtClientIpcAdapter::GetSupportPlayMode(std::vector<MWPTypePlayMode>& modes) {
  return AskPlayModes(BT_CALL(get_support_play_mode), modes);
}

int BtClientIpcAdapter::GetCurPlayMode(std::vector<MWPTypePlayMode>& modes) {
  return AskPlayModes(BT_CALL(get_cur_play_mode), modes);
}

int BtClientIpcAdapter::IsSupportAvrcpNotify(MWPBtType::SupportAvrcpEvent event) {
  return CallForResult<gboolean>(BT_CALL(is_support_avrcp_notify), AsByte(event));
}

int BtClientIpcAdapter::IsSupportBrowserInfo() {
  return CallForResult<gboolean>(BT_CALL(is_support_browser_info));
}

int BtClientIpcAdapter::IsRootDirectory() { return CallForResult<gboolean>(BT_CALL(is_root_directory)); }

int BtClientIpcAdapter::RootDirectory(int startPosition, int maxCount) {
  return CallForResult<gboolean>(BT_CALL(root_directory), startPosition, maxCount);
}

int BtClientIpcAdapter::FolderUp(int startPosition, int maxCount) {
  return CallForResult<gboolean>(BT_CALL(folder_up), startPosition, maxCount);
}

int BtClientIpcAdapter::BrowsingNowPlayingList(int startPosition, int maxCount) {
  return CallForResult<gboolean>(BT_CALL(browsing_now_playing_list), startPosition, maxCount);
}

int BtClientIpcAdapter::FolderDown(const std::string& uid, int startPosition, int maxCount) {
  return CallForResult<gboolean>(BT_CALL(folder_down), uid.c_str(), startPosition, maxCount);
}

int BtClientIpcAdapter::BrowsingSearch(const std::string& uid, const std::string& keyWords, int startPosition,
                                       int maxCount) {
  return CallForResult<gboolean>(BT_CALL(browsing_search), uid.c_str(), keyWords.c_str(), startPosition,
                                 maxCount);
}

int BtClientIpcAdapter::PlayItem(const std::string& uid, MWPBtType::BrowserScopeType scope) {
  return CallForResult<gboolean>(BT_CALL(play_item), uid.c_str(), AsByte(scope));
}

int BtClientIpcAdapter::AddMediaItemToNowPlaying(const std::string& uid, MWPBtType::BrowserScopeType scope) {
  return CallForResult<gboolean>(BT_CALL(add_media_item_to_now_playing), uid.c_str(), AsByte(scope));
}

// Answers whether the service accepts; the items have no way back, and the list stays as it is.
int BtClientIpcAdapter::GetCurMediaItemList(std::list<MWPTypeMediaItem>&, MWPBtType::BrowserScopeType scope) {
  return CallForResult<gboolean>(BT_CALL(get_cur_media_item_list), AsByte(scope));
}

int BtClientIpcAdapter::GetBrowsingFolderItemTotal(const std::string& uid) {
  return CallForResult<gboolean>(BT_CALL(get_browsing_folder_item_total), uid.c_str());
}

int BtClientIpcAdapter::EnableAudioDevice(int enable) {
  return CallForResult<gboolean>(BT_CALL(enable_audio_device), enable);
}

int BtClientIpcAdapter::PlayRingtone() { return CallForResult<gboolean>(BT_CALL(play_ringtone)); }

int BtClientIpcAdapter::StopRingtone() { return CallForResult<gboolean>(BT_CALL(stop_ringtone)); }

int BtClientIpcAdapter::StopPreviewRingtone() {
  return CallForResult<gboolean>(BT_CALL(stop_preview_ringtone));
}

int BtClientIpcAdapter::PlayPreviewRingtone(const std::string& path) {
  return CallForResult<gboolean>(BT_CALL(play_preview_ringtone), path.c_str());
}
