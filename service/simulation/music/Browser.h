#ifndef SERVICE_SIMULATION_MUSIC_BROWSER_H
#define SERVICE_SIMULATION_MUSIC_BROWSER_H

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "service/simulation/music/Player.h"

namespace btservice {

/// Browsing the music of the player in use: its folders, a search, its queue.
class Browser {
 public:
  Browser(ModelContext& context, Player& player, Connections& connections);

  /// Whether the current folder is the top; also without a player.
  bool IsRoot() const { return m_path.empty(); }

  // The requests of MusicControl. False without a player, or for a range that makes no sense; else what comes
  // of it is reported a moment later.

  bool ToRoot(ItemRange range);
  bool Up(ItemRange range);
  bool Down(const std::string& uid, ItemRange range);
  bool Search(const std::string& uid, const std::string& words, ItemRange range);
  bool BrowseQueue(ItemRange range);
  /// Reports items only if they differ from those that were reported last in this scope. A screen that
  /// fetches the items whenever it hears of them would otherwise hear of them for ever.
  bool Fetch(BrowserScopeType scope);
  std::vector<BrowserItem> Items(BrowserScopeType scope) const;
  bool CountFolder(const std::string& uid);
  bool PlayItem(const std::string& uid, BrowserScopeType scope);
  bool QueueItem(const std::string& uid);

 private:
  /// Null without a player.
  const FolderData* Root() const;
  const FolderData* Current() const;
  /// The folder with this uid, or the current one if it is empty; null if there is none. Not to be kept: a
  /// phone can have other music from one moment to the next.
  const FolderData* Folder(const std::string& uid) const;
  bool Later(std::function<void()> action);
  bool GoTo(bool possible, const std::vector<std::string>& path, ItemRange range);
  void Show(BrowserScopeType scope, const std::vector<BrowserItem>& items, ItemRange range);
  std::vector<BrowserItem> Fetched(BrowserScopeType scope) const;
  void Arrive(BrowserScopeType scope, std::vector<BrowserItem> items);
  bool PlayNow(DevicePlayer& player, const std::string& uid, BrowserScopeType scope);

  ModelContext& m_context;
  Player& m_player;
  TaskGroup m_tasks;
  std::vector<std::string> m_path;  ///< uids of the folders from the root to the current one
  std::map<BrowserScopeType, std::vector<BrowserItem>> m_items;  ///< as they were reported last
  std::optional<ItemRange> m_queueRange;                         ///< the part of the queue that was asked for
};

}  // namespace btservice

#endif
