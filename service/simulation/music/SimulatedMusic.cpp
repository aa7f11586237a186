#include "service/simulation/music/SimulatedMusic.h"

#include <algorithm>

#include "service/simulation/music/Browser.h"
#include "service/simulation/music/Player.h"

namespace btservice {
namespace {

const std::vector<PlayMode> kSupportedModes{{PLAYER_REPEAT, REPEAT_OFF},
                                            {PLAYER_REPEAT, REPEAT_TRACK},
                                            {PLAYER_REPEAT, REPEAT_ALL},
                                            {PLAYER_SHUFFLE, SHUFFLE_OFF},
                                            {PLAYER_SHUFFLE, SHUFFLE_ALL}};

class SimulatedMusic final : public MusicControl {
 public:
  SimulatedMusic(Player& player, Browser& browser) : m_player(player), m_browser(browser) {}

  bool EnableOutput(bool on) override { return m_player.SetOutput(on); }
  bool Play() override { return m_player.Command(&DevicePlayer::Play); }
  bool Pause() override { return m_player.Command(&DevicePlayer::Pause); }
  bool Previous() override { return m_player.Command(&DevicePlayer::Previous); }
  bool Next() override { return m_player.Command(&DevicePlayer::Next); }
  bool FastForward(bool on) override { return Wind(BT_MUSIC_FAST_FORWARD, on); }
  bool FastReverse(bool on) override { return Wind(BT_MUSIC_FAST_REVERSE, on); }

  MusicPlayStatus Status() const override {
    const DevicePlayer* const player = m_player.InUse();
    return player != nullptr ? player->Status() : BT_MUSIC_STOPPED;
  }
  std::optional<std::pair<int, int>> Position() const override {
    const DevicePlayer* const player = m_player.InUse();
    if (player == nullptr) {
      return std::nullopt;
    }
    return std::pair(static_cast<int>(player->Position().count()),
                     static_cast<int>(player->Length().count()));
  }
  std::optional<TrackInfo> CurrentTrack() const override {
    const DevicePlayer* const player = m_player.InUse();
    return player != nullptr ? std::optional<TrackInfo>(player->Info()) : std::nullopt;
  }
  bool ReportPosition(bool on, int periodMs) override {
    return m_player.Ticks().ReportPosition(on, Milliseconds(periodMs));
  }
  bool ReportTrackInfo(bool on, int periodMs) override {
    return m_player.Ticks().ReportTrackInfo(on, Milliseconds(periodMs));
  }

  std::vector<PlayMode> PlayModes() const override {
    const DevicePlayer* const player = m_player.InUse();
    return player != nullptr ? player->Modes() : std::vector<PlayMode>();
  }
  std::vector<PlayMode> SupportedPlayModes() const override {
    return m_player.InUse() != nullptr ? kSupportedModes : std::vector<PlayMode>();
  }
  bool SetPlayMode(PlayMode mode) override {
    const bool supported = std::any_of(
        kSupportedModes.begin(), kSupportedModes.end(),
        [&](const PlayMode& one) { return one.attribute == mode.attribute && one.value == mode.value; });
    return supported && m_player.Command([mode](DevicePlayer& player) { player.SetMode(mode); });
  }
  bool SupportsNotification(SupportAvrcpEvent event) const override {
    return m_player.InUse() != nullptr && Player::Supports(event);
  }

  bool SupportsBrowsing() const override { return m_player.InUse() != nullptr; }
  bool IsRootFolder() const override { return m_player.InUse() != nullptr && m_browser.IsRoot(); }
  bool ToRootFolder(ItemRange range) override { return m_browser.ToRoot(range); }
  bool FolderUp(ItemRange range) override { return m_browser.Up(range); }
  bool FolderDown(const std::string& uid, ItemRange range) override { return m_browser.Down(uid, range); }
  bool Search(const std::string& uid, const std::string& words, ItemRange range) override {
    return m_browser.Search(uid, words, range);
  }
  bool BrowseQueue(ItemRange range) override { return m_browser.BrowseQueue(range); }
  bool FetchItems(BrowserScopeType scope) override { return m_browser.Fetch(scope); }
  std::vector<BrowserItem> Items(BrowserScopeType scope) const override { return m_browser.Items(scope); }
  bool CountFolder(const std::string& uid) override { return m_browser.CountFolder(uid); }
  bool PlayItem(const std::string& uid, BrowserScopeType scope) override {
    return m_browser.PlayItem(uid, scope);
  }
  bool QueueItem(const std::string& uid, BrowserScopeType /*scope*/) override {
    return m_browser.QueueItem(uid);
  }

 private:
  /// Winding begins from playing or pausing; what ends must have begun.
  bool Wind(MusicPlayStatus direction, bool on) {
    const MusicPlayStatus status = Status();
    if (on) {
      return (status == BT_MUSIC_PLAYING || status == BT_MUSIC_PAUSED) &&
             m_player.Command([direction](DevicePlayer& player) { player.Wind(direction); });
    }
    return status == direction && m_player.Command(&DevicePlayer::Play);
  }

  Player& m_player;
  Browser& m_browser;
};

}  // namespace

std::unique_ptr<MusicControl> MakeSimulatedMusic(Player& player, Browser& browser) {
  return std::make_unique<SimulatedMusic>(player, browser);
}

}  // namespace btservice
