#ifndef SERVICE_STACK_MUSICCONTROL_H
#define SERVICE_STACK_MUSICCONTROL_H

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "service/stack/StackTypes.h"

namespace btservice {

/// The player of the connected device, and what can be browsed in it. Without one everything but the audio
/// output is refused. What holds for all requests is said at BluetoothStack.
class MusicControl {
 public:
  virtual ~MusicControl() = default;

  /// Opens or closes the audio output; music flows only while it is open. StreamChanged follows if music
  /// runs.
  virtual bool EnableOutput(bool /*on*/) { return false; }
  /// The keys of a remote control. The player does as it likes: PlayStatusChanged, TrackChanged,
  /// TrackInfoChanged say what it has done.
  virtual bool Play() { return false; }
  virtual bool Pause() { return false; }
  virtual bool Previous() { return false; }
  virtual bool Next() { return false; }
  /// Winds while on; only one direction at a time.
  virtual bool FastForward(bool /*on*/) { return false; }
  virtual bool FastReverse(bool /*on*/) { return false; }

  /// What the player does; stopped if there is none.
  virtual MusicPlayStatus Status() const { return BT_MUSIC_STOPPED; }
  /// Position and length in milliseconds; nothing without a player.
  virtual std::optional<std::pair<int, int>> Position() const { return {}; }
  /// Nothing without a player; empty texts if it has no track.
  virtual std::optional<TrackInfo> CurrentTrack() const { return {}; }
  /// Report the position, or the texts of the track, again and again while on (PositionChanged,
  /// TrackInfoChanged). The period is in milliseconds; one that is too short is refused.
  virtual bool ReportPosition(bool /*on*/, int /*periodMs*/) { return false; }
  virtual bool ReportTrackInfo(bool /*on*/, int /*periodMs*/) { return false; }

  /// The settings of the player, such as repeat, with their present values; and those that it has at all.
  virtual std::vector<PlayMode> PlayModes() const { return {}; }
  virtual std::vector<PlayMode> SupportedPlayModes() const { return {}; }
  /// PlayModeChanged follows. Refused if the player has no such setting, or not with this value.
  virtual bool SetPlayMode(PlayMode /*mode*/) { return false; }
  /// Whether the player reports this by itself.
  virtual bool SupportsNotification(SupportAvrcpEvent /*event*/) const { return false; }

  // Browsing. Going to a folder, searching and the queue report BrowserPathChanged where a folder is entered,
  // and BrowserItemsArrived once Items has them. Requests are refused without a player, and for a range that
  // is empty or begins below 0.

  virtual bool SupportsBrowsing() const { return false; }
  virtual bool IsRootFolder() const { return false; }
  /// To the top of the tree; to the folder above, which fails at the top; into a folder of the current one.
  virtual bool ToRootFolder(ItemRange /*range*/) { return false; }
  virtual bool FolderUp(ItemRange /*range*/) { return false; }
  virtual bool FolderDown(const std::string& /*uid*/, ItemRange /*range*/) { return false; }
  /// Searches in a folder and below it; an empty uid is the current folder.
  virtual bool Search(const std::string& /*uid*/, const std::string& /*words*/, ItemRange /*range*/) {
    return false;
  }
  /// Lists what the player goes through.
  virtual bool BrowseQueue(ItemRange /*range*/) { return false; }
  /// Asks for the items of a scope again. BrowserItemsArrived follows only if they differ from those reported
  /// last, since an application asks for them when it hears of that event.
  virtual bool FetchItems(BrowserScopeType /*scope*/) { return false; }
  /// What the last request for items of this scope has brought.
  virtual std::vector<BrowserItem> Items(BrowserScopeType /*scope*/) const { return {}; }
  /// Counts what is in a folder; an empty uid is the current one. BrowserFolderTotal follows.
  virtual bool CountFolder(const std::string& /*uid*/) { return false; }
  /// Play an item, or put it at the end of the queue. ItemPlayed or ItemQueued follows: if there is no such
  /// item any more, with failure.
  virtual bool PlayItem(const std::string& /*uid*/, BrowserScopeType /*scope*/) { return false; }
  virtual bool QueueItem(const std::string& /*uid*/, BrowserScopeType /*scope*/) { return false; }
};

}  // namespace btservice

#endif
