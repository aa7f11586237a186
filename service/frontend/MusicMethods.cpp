#include "service/frontend/Methods.h"

namespace btservice {

void BindMusicMethods(ServiceBinder binder, MusicControl& music) {
  using M = MusicControl;
  binder.Bind(BT_METHOD(enable_audio_device), music, &M::EnableOutput);
  // Whatever the flag, playing is what is asked for; to stop, muted or not, is to pause.
  binder.Bind(BT_METHOD(play_music), [&music](gint) { return music.Play(); });
  binder.Bind(BT_METHOD(stop_music), [&music](gboolean) { return music.Pause(); });
  binder.Bind(BT_METHOD(previous_music), music, &M::Previous);
  binder.Bind(BT_METHOD(next_music), music, &M::Next);
  binder.Bind(BT_METHOD(start_fast_forward), [&music] { return music.FastForward(true); });
  binder.Bind(BT_METHOD(stop_fast_forward), [&music] { return music.FastForward(false); });
  binder.Bind(BT_METHOD(start_fast_reverse), [&music] { return music.FastReverse(true); });
  binder.Bind(BT_METHOD(stop_fast_reverse), [&music] { return music.FastReverse(false); });

  binder.Bind(BT_METHOD(get_music_play_status), music, &M::Status);
  binder.Bind(BT_METHOD(reg_get_play_status), music, &M::ReportPosition);
  binder.Bind(BT_METHOD(reg_get_media_info), music, &M::ReportTrackInfo);
  binder.Bind(BT_METHOD(get_cur_play_position), [&music] {
    const auto position = music.Position();
    const auto [current, length] = position.value_or(std::pair(0, 0));
    return std::tuple(current, length, position.has_value());
  });
  binder.Bind(BT_METHOD(get_media_info), [&music] {
    const std::optional<TrackInfo> track = music.CurrentTrack();
    const TrackInfo info = track.value_or(TrackInfo());
    return std::tuple(info.title, info.artist, info.album, info.number, info.count, info.genre, info.duration,
                      track.has_value());
  });

  binder.Bind(BT_METHOD(get_cur_play_mode), [&music] {
    const std::vector<PlayMode> modes = music.PlayModes();
    return std::tuple(modes, !modes.empty());
  });
  binder.Bind(BT_METHOD(get_support_play_mode), [&music] {
    const std::vector<PlayMode> modes = music.SupportedPlayModes();
    return std::tuple(modes, !modes.empty());
  });
  binder.Bind(BT_METHOD(set_cur_play_mode), [&music](GVariant* pair) {
    PlayMode mode;
    g_variant_get(pair, "(yy)", &mode.attribute, &mode.value);
    return music.SetPlayMode(mode);
  });
  binder.Bind(BT_METHOD(is_support_avrcp_notify), music, &M::SupportsNotification);
}

}  // namespace btservice
