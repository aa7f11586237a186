#ifndef SERVICE_SIMULATION_MUSIC_SIMULATEDMUSIC_H
#define SERVICE_SIMULATION_MUSIC_SIMULATEDMUSIC_H

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "service/simulation/music/Browser.h"
#include "service/simulation/music/Player.h"
#include "service/stack/MusicControl.h"

namespace btservice {

/// Passes the requests for music on to the parts of the model that carry them out. Commands reach the player
/// a moment after the request.
class SimulatedMusic : public MusicControl {
 public:
  SimulatedMusic(Player& player, Browser& browser) : m_player(player), m_browser(browser) {}

  bool EnableOutput(bool on) override { return m_player.SetOutput(on); }
  bool Play() override { return m_player.Command(&DevicePlayer::Play); }
  bool Pause() override { return m_player.Command(&DevicePlayer::Pause); }
  bool Previous() override { return m_player.Command(&DevicePlayer::Previous); }
  bool Next() override { return m_player.Command(&DevicePlayer::Next); }
  bool FastForward(bool on) override { return Wind(BT_MUSIC_FAST_FORWARD, on); }
  bool FastReverse(bool on) override { return Wind(BT_MUSIC_FAST_REVERSE, on); }

  MusicPlayStatus Status() const override;
  std::optional<std::pair<int, int>> Position() const override;
  std::optional<TrackInfo> CurrentTrack() const override;
  bool ReportPosition(bool on, int periodMs) override;
  bool ReportTrackInfo(bool on, int periodMs) override;

  std::vector<PlayMode> PlayModes() const override;
  std::vector<PlayMode> SupportedPlayModes() const override;
  bool SetPlayMode(PlayMode mode) override;
  bool SupportsNotification(SupportAvrcpEvent event) const override;

  bool SupportsBrowsing() const override { return m_player.InUse() != nullptr; }
  bool IsRootFolder() const override { return m_player.InUse() != nullptr && m_browser.IsRoot(); }
  bool ToRootFolder(ItemRange range) override { return m_browser.ToRoot(range); }
  bool FolderUp(ItemRange range) override { return m_browser.Up(range); }
  bool FolderDown(const std::string& uid, ItemRange range) override { return m_browser.Down(uid, range); }
  bool Search(const std::string& uid, const std::string& words, ItemRange range) override;
  bool BrowseQueue(ItemRange range) override { return m_browser.BrowseQueue(range); }
  bool FetchItems(BrowserScopeType scope) override { return m_browser.Fetch(scope); }
  std::vector<BrowserItem> Items(BrowserScopeType scope) const override { return m_browser.Items(scope); }
  bool CountFolder(const std::string& uid) override { return m_browser.CountFolder(uid); }
  bool PlayItem(const std::string& uid, BrowserScopeType scope) override;
  bool QueueItem(const std::string& uid, BrowserScopeType scope) override;

 private:
  bool Wind(MusicPlayStatus direction, bool on);

  Player& m_player;
  Browser& m_browser;
};

}  // namespace btservice

#endif
