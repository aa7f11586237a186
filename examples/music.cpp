// Plays the music of a phone: shows each track and the position in it, goes on to the next one, and pauses.
//
// All is done on the thread of the main loop: a small program that has nothing else to do may block it.

#include <bluetooth/IMWPBtMediaListener.h>
#include <bluetooth/MWPBtMedia.h>

#include "Loop.h"
#include "PhoneConnection.h"

namespace {

using namespace MWPBtType;

// Commands of PlayMusic.
constexpr int kAskForFocus = -1;
constexpr int kConfirmFocus = 3;
constexpr int kPlay = 1;

/// Hears two tracks, each for a few positions.
class Hearing : public IMWPBtMediaListener {
 public:
  explicit Hearing(Loop& loop) : m_loop(loop) {}

 private:
  static constexpr int kPositionsOfATrack = 5;
  static constexpr int kTracks = 2;

  void OnAudioTrackChanged() override {
    ShowEvent("OnAudioTrackChanged");
    ShowTrack();
  }

  void OnCurPositionChanged(int position, int totalLength) override {
    ShowEvent("OnCurPositionChanged", position, totalLength);
    if (++m_positions == kPositionsOfATrack * kTracks) {
      ShowRequest("StopMusic", m_media.StopMusic(0));
    } else if (m_positions % kPositionsOfATrack == 0) {
      ShowRequest("NextMusic", m_media.NextMusic());
    }
  }

  void OnBtMusicPlayChanged(MusicPlayStatus status) override {
    ShowEvent("OnBtMusicPlayChanged", status);
    if (status == BT_MUSIC_PLAYING) {
      ShowTrack();
    } else if (status == BT_MUSIC_PAUSED && m_positions >= kPositionsOfATrack * kTracks) {
      m_loop.End(true);
    }
  }

  void ShowTrack() {
    MWPTypeMediaInfo track;
    m_media.GetMediaInfo(track);
    ShowLine("track " + track.track + " of " + track.numOfTracks + ": " + track.title + ", by " +
             track.artist);
  }

  Loop& m_loop;
  MWPBtMedia m_media;
  int m_positions = 0;
};

/// On a head unit the audio source manager grants the focus some time after it was asked for, and only then
/// is it confirmed.
void Play() {
  MWPBtMedia media;
  media.PlayMusic(kAskForFocus, 0);
  media.PlayMusic(kConfirmFocus, 1);
  ShowRequest("RegGetPlayStatus", media.RegGetPlayStatus(1, 200));
  ShowRequest("PlayMusic", media.PlayMusic(kPlay, 0));
}

bool Run(const std::string& phone) {
  Loop loop;
  Hearing hearing(loop);
  PhoneConnection connection(phone, BT_PROFILE_AVRCP, Play, [&loop] { loop.End(false); });
  if (MWP_CreateBlueTooth() == 0) {
    return false;
  }
  connection.Begin();
  return loop.Run(60);
}

}  // namespace

int main(int argc, char** argv) {
  const bool hasWorked = Run(argc > 1 ? argv[1] : "00:1A:7D:DA:71:13");
  MWP_DestroyBlueTooth();
  return hasWorked ? 0 : 1;
}
