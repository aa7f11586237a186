#include "service/simulation/music/Browser.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <tuple>
#include <utility>

namespace btservice {
namespace {

const FolderData* FindSubfolder(const FolderData& folder, const std::string& uid) {
  const auto place = std::find_if(folder.folders.begin(), folder.folders.end(),
                                  [&](const FolderData& sub) { return sub.uid == uid; });
  return place != folder.folders.end() ? &*place : nullptr;
}

/// The folder with this uid, at any depth.
const FolderData* FindFolder(const FolderData& folder, const std::string& uid) {
  if (folder.uid == uid) {
    return &folder;
  }
  for (const FolderData& sub : folder.folders) {
    if (const FolderData* const found = FindFolder(sub, uid)) {
      return found;
    }
  }
  return nullptr;
}

/// The folder that holds the track with this uid, and the place of the track in it.
std::pair<const FolderData*, std::size_t> FindTrack(const FolderData& folder, const std::string& uid) {
  for (std::size_t i = 0; i < folder.tracks.size(); ++i) {
    if (folder.tracks[i].uid == uid) {
      return {&folder, i};
    }
  }
  for (const FolderData& sub : folder.folders) {
    if (const auto found = FindTrack(sub, uid); found.first != nullptr) {
      return found;
    }
  }
  return {nullptr, 0};
}

std::vector<BrowserItem> ItemsOf(const std::vector<TrackData>& tracks) {
  std::vector<BrowserItem> items;
  items.reserve(tracks.size());
  for (const TrackData& track : tracks) {
    items.push_back({track.uid, track.title, false});
  }
  return items;
}

std::vector<BrowserItem> ItemsOf(const FolderData& folder) {
  std::vector<BrowserItem> items;
  for (const FolderData& sub : folder.folders) {
    items.push_back({sub.uid, sub.name, true});
  }
  const std::vector<BrowserItem> tracks = ItemsOf(folder.tracks);
  items.insert(items.end(), tracks.begin(), tracks.end());
  return items;
}

std::string LowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  return text;
}

void CollectMatches(const FolderData& folder, const std::string& words, std::vector<TrackData>& matches) {
  for (const TrackData& track : folder.tracks) {
    if (LowerCase(track.title + "\n" + track.artist + "\n" + track.album).find(words) != std::string::npos) {
      matches.push_back(track);
    }
  }
  for (const FolderData& sub : folder.folders) {
    CollectMatches(sub, words, matches);
  }
}

bool SameItems(const std::vector<BrowserItem>& left, const std::vector<BrowserItem>& right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](const BrowserItem& one, const BrowserItem& other) {
                      return std::tie(one.uid, one.name, one.isFolder) ==
                             std::tie(other.uid, other.name, other.isFolder);
                    });
}

std::vector<BrowserItem> Part(const std::vector<BrowserItem>& items, ItemRange range) {
  const std::size_t start = std::min<std::size_t>(range.start, items.size());
  const std::size_t count = std::min<std::size_t>(range.count, items.size() - start);
  const auto first = items.begin() + static_cast<std::ptrdiff_t>(start);
  return {first, first + static_cast<std::ptrdiff_t>(count)};
}

bool IsRange(ItemRange range) { return range.start >= 0 && range.count > 0; }

}  // namespace

Browser::Browser(ModelContext& context, Player& player, Connections& connections)
    : m_context(context), m_player(player), m_tasks(context.scheduler) {
  connections.onChanged.Add([this](RemoteDevice&, ProfileId profile, ConnStatus) {
    if (profile == BT_PROFILE_AVRCP) {
      m_tasks.CancelAll();
      m_path.clear();
      m_items.clear();
      m_queueRange.reset();
    }
  });
}

const FolderData* Browser::Root() const {
  DevicePlayer* const player = m_player.InUse();
  return player != nullptr ? &player->Device().data.music : nullptr;
}

const FolderData* Browser::Current() const {
  const FolderData* folder = Root();
  for (const std::string& uid : m_path) {
    folder = folder != nullptr ? FindSubfolder(*folder, uid) : nullptr;
  }
  return folder;
}

const FolderData* Browser::Folder(const std::string& uid) const {
  const FolderData* const root = Root();
  return root == nullptr || uid.empty() ? Current() : FindFolder(*root, uid);
}

bool Browser::Later(std::function<void()> action) {
  if (Root() == nullptr) {
    return false;
  }
  m_tasks.After(m_context.delays.browse, std::move(action));
  return true;
}

bool Browser::GoTo(bool possible, const std::vector<std::string>& path, ItemRange range) {
  return IsRange(range) && Later([this, possible, path, range] {
           if (possible) {
             m_path = path;
           }
           // Another device may have taken over meanwhile, which has no such folder.
           const FolderData* const current = Current();
           const bool success = possible && current != nullptr;
           m_context.Report(BrowserPathChanged{success});
           if (success) {
             Show(BT_BROWSER_FILE_SYSTEM, ItemsOf(*current), range);
           } else if (current == nullptr) {
             m_path.clear();
           }
         });
}

bool Browser::ToRoot(ItemRange range) { return GoTo(true, {}, range); }

bool Browser::Up(ItemRange range) {
  std::vector<std::string> path = m_path;
  if (!path.empty()) {
    path.pop_back();
  }
  return GoTo(!m_path.empty(), path, range);
}

bool Browser::Down(const std::string& uid, ItemRange range) {
  const FolderData* const current = Current();
  std::vector<std::string> path = m_path;
  path.push_back(uid);
  return current != nullptr && GoTo(FindSubfolder(*current, uid) != nullptr, path, range);
}

bool Browser::Search(const std::string& uid, const std::string& words, ItemRange range) {
  return Folder(uid) != nullptr && !words.empty() && IsRange(range) && Later([this, uid, words, range] {
           std::vector<TrackData> matches;
           if (const FolderData* const folder = Folder(uid)) {
             CollectMatches(*folder, LowerCase(words), matches);
           }
           Show(BT_BROWSER_SEARCH, ItemsOf(matches), range);
         });
}

bool Browser::BrowseQueue(ItemRange range) {
  return IsRange(range) && Later([this, range] {
           m_queueRange = range;
           Show(BT_BROWSER_NOW_PLAYING, ItemsOf(m_player.InUse()->Queue().Tracks()), range);
         });
}

bool Browser::Fetch(BrowserScopeType scope) {
  return scope >= BT_BROWSER_PLAYER_LIST && scope <= BT_BROWSER_NOW_PLAYING && Later([this, scope] {
           std::vector<BrowserItem> items = Fetched(scope);
           const auto last = m_items.find(scope);
           if (last == m_items.end() || !SameItems(last->second, items)) {
             Arrive(scope, std::move(items));
           }
         });
}

/// The items of a scope as they are by now: a queue can have grown since, folders and matches stay as they
/// are.
std::vector<BrowserItem> Browser::Fetched(BrowserScopeType scope) const {
  if (scope == BT_BROWSER_PLAYER_LIST) {
    return {{"1", m_player.InUse()->Device().data.name, false}};
  }
  if (scope == BT_BROWSER_NOW_PLAYING && m_queueRange) {
    return Part(ItemsOf(m_player.InUse()->Queue().Tracks()), *m_queueRange);
  }
  return Items(scope);
}

std::vector<BrowserItem> Browser::Items(BrowserScopeType scope) const {
  const auto entry = m_items.find(scope);
  return entry != m_items.end() ? entry->second : std::vector<BrowserItem>();
}

void Browser::Show(BrowserScopeType scope, const std::vector<BrowserItem>& items, ItemRange range) {
  Arrive(scope, Part(items, range));
}

void Browser::Arrive(BrowserScopeType scope, std::vector<BrowserItem> items) {
  m_items[scope] = std::move(items);
  m_context.Report(BrowserItemsArrived{});
}

bool Browser::CountFolder(const std::string& uid) {
  return Folder(uid) != nullptr && Later([this, uid] {
           const FolderData* const folder = Folder(uid);
           m_context.Report(
               BrowserFolderTotal{folder != nullptr ? static_cast<int>(ItemsOf(*folder).size()) : 0});
         });
}

bool Browser::PlayItem(const std::string& uid, BrowserScopeType scope) {
  return Later([this, uid, scope] { m_context.Report(ItemPlayed{PlayNow(*m_player.InUse(), uid, scope)}); });
}

bool Browser::PlayNow(DevicePlayer& player, const std::string& uid, BrowserScopeType scope) {
  if (scope == BT_BROWSER_NOW_PLAYING) {
    if (!player.Queue().Select(uid)) {
      return false;
    }
  } else {
    const auto [folder, place] = FindTrack(*Root(), uid);
    if (folder == nullptr) {
      return false;
    }
    player.Queue().Set(folder->tracks, place);
  }
  player.PlayFromStart();
  return true;
}

bool Browser::QueueItem(const std::string& uid) {
  return Later([this, uid] {
    const auto [folder, place] = FindTrack(*Root(), uid);
    const bool success = folder != nullptr && m_player.InUse()->Queue().Append(folder->tracks[place]);
    m_context.Report(ItemQueued{success});
  });
}

}  // namespace btservice
