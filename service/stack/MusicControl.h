#ifndef SERVICE_STACK_MUSICCONTROL_H
#define SERVICE_STACK_MUSICCONTROL_H

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "service/stack/StackTypes.h"

namespace btservice {

/// The player of the connected device, and what can be browsed in it.
class MusicControl {
 public:
  virtual ~MusicControl() = default;

  /// Opens or closes the audio output.
  virtual bool EnableOutput(bool on) = 0;
  virtual bool Play() = 0;
  virtual bool Pause() = 0;
  virtual bool Previous() = 0;
  virtual bool Next() = 0;
  /// Winds while on; only one direction at a time.
  virtual bool FastForward(bool on) = 0;
  virtual bool FastReverse(bool on) = 0;

  virtual MusicPlayStatus Status() const = 0;
  /// Position and length in milliseconds; nothing without a player.
  virtual std::optional<std::pair<int, int>> Position() const = 0;
  virtual std::optional<TrackInfo> CurrentTrack() const = 0;
  /// Reports the position, or the texts of the track, again and again while on.
  virtual bool ReportPosition(bool on, int periodMs) = 0;
  virtual bool ReportTrackInfo(bool on, int periodMs) = 0;

  virtual std::vector<PlayMode> PlayModes() const = 0;
  virtual std::vector<PlayMode> SupportedPlayModes() const = 0;
  virtual bool SetPlayMode(PlayMode mode) = 0;
  virtual bool SupportsNotification(SupportAvrcpEvent event) const = 0;

  virtual bool SupportsBrowsing() const = 0;
  virtual bool IsRootFolder() const = 0;
  virtual bool ToRootFolder(ItemRange range) = 0;
  virtual bool FolderUp(ItemRange range) = 0;
  virtual bool FolderDown(const std::string& uid, ItemRange range) = 0;
  /// Searches in a folder and below it; an empty uid is the current folder.
  virtual bool Search(const std::string& uid, const std::string& words, ItemRange range) = 0;
  virtual bool BrowseQueue(ItemRange range) = 0;
  /// Asks for the items of a scope again, and for what the last such request brought.
  virtual bool FetchItems(BrowserScopeType scope) = 0;
  virtual std::vector<BrowserItem> Items(BrowserScopeType scope) const = 0;
  virtual bool CountFolder(const std::string& uid) = 0;
  virtual bool PlayItem(const std::string& uid, BrowserScopeType scope) = 0;
  virtual bool QueueItem(const std::string& uid, BrowserScopeType scope) = 0;
};

}  // namespace btservice

#endif
