#ifndef BLUETOOTH_MWPBTMEDIA_H
#define BLUETOOTH_MWPBTMEDIA_H

#include <list>
#include <string>
#include <vector>

#include <bluetooth/MWPBtExport.h>
#include <bluetooth/MWPBtRecords.h>
#include <bluetooth/MWPBtType.h>

/// Audio streaming, remote control and browsing of the player. The events are in IMWPBtMediaListener.
///
/// The object carries no state: construct one wherever it is needed. Until MWP_CreateBlueTooth() has
/// succeeded, and after MWP_DestroyBlueTooth(), a method does nothing, leaves its out arguments as they are,
/// and answers 0. Every request blocks until the service has answered (at most 25 seconds), may be made from
/// any thread, and makes the service call of its own name unless said otherwise; a failed call is logged and
/// answered with 0. A result that is not 0 means that the service accepted the request; the outcome arrives
/// as an event.
///
/// Pass 0 or 1 where an argument means yes or no: only its lowest byte reaches the service, so 256 counts as
/// 0.
class MWP_BT_API MWPBtMedia {
 public:
  MWPBtMedia();
  ~MWPBtMedia();

  /// Connection of the player and its address. Status 6 and no address while the library is not initialised;
  /// status 0 and no address if the call fails, which is not logged.
  /// @return an MWPBtType::ConnStatus and the address of the player
  MWPTypeConnectionState GetMediaConnectionState();
  /// Opens (1) or closes (0) the audio output for Bluetooth music.
  /// @param enable 1 or 0
  /// @return not 0 if the service accepted the request, else 0
  int EnableAudioDevice(int enable);
  /// Three commands concern the audio focus. -1 requests it from the audio source manager, 3 confirms it
  /// (passing on confirmation) and opens the audio output, 4 confirms its loss (passing on confirmation). Any
  /// other command is sent to the service as it is, without confirmation: btservice plays, whichever number
  /// it gets, so use 0. Answers 1 in every case once the library is started, whether or not the player obeys;
  /// watch for OnBtMusicPlayChanged.
  /// @param command -1, 3 or 4 for the audio focus, else a command of the player
  /// @param confirmation what is passed on to the audio source manager with 3 and 4
  /// @return 1
  int PlayMusic(int command, int confirmation);
  /// Pauses the player. Answers 1 whatever the service answers; a failed call is not logged. mute is sent to
  /// the service; btservice pauses in either case.
  /// @param mute 1 or 0
  /// @return 1 once the library is started, else 0
  int StopMusic(int mute);
  /// To the previous track.
  /// @return not 0 if the service accepted the request, else 0
  int PreviousMusic();
  /// To the next track.
  /// @return not 0 if the service accepted the request, else 0
  int NextMusic();
  /// Begins to wind forward.
  /// @return not 0 if the service accepted the request, else 0
  int StartFastForward();
  /// Ends it.
  /// @return not 0 if the service accepted the request, else 0
  int StopFastForward();
  /// Begins to wind back.
  /// @return not 0 if the service accepted the request, else 0
  int StartFastReverse();
  /// Ends it.
  /// @return not 0 if the service accepted the request, else 0
  int StopFastReverse();
  /// The MWPBtType::MusicPlayStatus of the player.
  /// @return the status; BT_MUSIC_STOPPED as well if it could not be read
  int GetMusicPlayStatus();
  /// Requests (enable 1) that OnCurPositionChanged arrives at this interval, or cancels that (0).
  /// @param enable 1 or 0
  /// @param milliseconds the interval
  /// @return not 0 if the service accepted the request, else 0
  int RegGetPlayStatus(int enable, int milliseconds);
  /// Position in the track and its length in milliseconds; both 0 if the call fails.
  /// @param position receives the position, in milliseconds
  /// @param totalLength receives the length of the track, in milliseconds
  /// @return the result of the service, not 0 for success; 0 if the call failed
  int GetCurPlayPosition(int& position, int& totalLength);
  /// Requests (enable 1) that OnMediaInfoChanged arrives at this interval, or cancels that (0).
  /// @param enable 1 or 0
  /// @param milliseconds the interval
  /// @return not 0 if the service accepted the request, else 0
  int RegGetMediaInfo(int enable, int milliseconds);
  /// The track being played; info stays as it was if the call fails.
  /// @param info receives the track
  /// @return the result of the service, not 0 for success; 0 if the call failed
  int GetMediaInfo(MWPTypeMediaInfo& info);
  /// Appends the play modes in force to modes, which is not cleared first. Prints the type of each to
  /// standard output.
  /// @param modes what the modes are appended to
  /// @return the result of the service, not 0 for success; 0 if the call failed
  int GetCurPlayMode(std::vector<MWPTypePlayMode>& modes);
  /// Changes one play mode. The outcome is OnPlayModeChanged.
  /// @param mode which mode, and its new value; each within one byte
  /// @return not 0 if the service accepted the request, else 0
  int SetCurPlayMode(MWPTypePlayMode mode);
  /// Appends the play modes that are possible to modes, which is not cleared first. Prints the type of each
  /// to standard output.
  /// @param modes what the modes are appended to
  /// @return the result of the service, not 0 for success; 0 if the call failed
  int GetSupportPlayMode(std::vector<MWPTypePlayMode>& modes);
  /// 1 if the player supports the notification.
  /// @param event which one
  /// @return 1 or 0
  int IsSupportAvrcpNotify(MWPBtType::SupportAvrcpEvent event);
  /// 1 if the player can be browsed.
  /// @return 1 or 0
  int IsSupportBrowserInfo();
  /// Goes to the root folder and asks for maxCount of its items. OnCurBrowserPathChanged and
  /// OnBrowserMediaInfoChanged follow.
  /// @param startPosition position of the first item that is wanted, from 0
  /// @param maxCount number of items that are wanted at most
  /// @return not 0 if the service accepted the request, else 0
  int RootDirectory(int startPosition, int maxCount);
  /// 1 if the browsed folder is the root.
  /// @return 1 or 0
  int IsRootDirectory();
  /// Goes one folder up and asks for items as RootDirectory does.
  /// @param startPosition position of the first item that is wanted, from 0
  /// @param maxCount number of items that are wanted at most
  /// @return not 0 if the service accepted the request, else 0
  int FolderUp(int startPosition, int maxCount);
  /// Goes into a folder and asks for items as RootDirectory does.
  /// @param uid MWPTypeMediaItem::strUid of the folder
  /// @param startPosition position of the first item that is wanted, from 0
  /// @param maxCount number of items that are wanted at most
  /// @return not 0 if the service accepted the request, else 0
  int FolderDown(const std::string& uid, int startPosition, int maxCount);
  /// Searches a folder and asks for items as RootDirectory does.
  /// @param uid MWPTypeMediaItem::strUid of the folder
  /// @param keyWords what to search for, in UTF-8
  /// @param startPosition position of the first item that is wanted, from 0
  /// @param maxCount number of items that are wanted at most
  /// @return not 0 if the service accepted the request, else 0
  int BrowsingSearch(const std::string& uid, const std::string& keyWords, int startPosition, int maxCount);
  /// Asks for items of the queue.
  /// @param startPosition position of the first item that is wanted, from 0
  /// @param maxCount number of items that are wanted at most
  /// @return not 0 if the service accepted the request, else 0
  int BrowsingNowPlayingList(int startPosition, int maxCount);
  /// Plays an item. The outcome is OnSendPlayItemStatus.
  /// @param uid MWPTypeMediaItem::strUid of the item
  /// @param scope where the item was found
  /// @return not 0 if the service accepted the request, else 0
  int PlayItem(const std::string& uid, MWPBtType::BrowserScopeType scope);
  /// Puts an item into the queue. The outcome is OnMediaItemToNowPlayingStatus.
  /// @param uid MWPTypeMediaItem::strUid of the item
  /// @param scope where the item was found
  /// @return not 0 if the service accepted the request, else 0
  int AddMediaItemToNowPlaying(const std::string& uid, MWPBtType::BrowserScopeType scope);
  /// Asks the service for the items of a scope. The list stays as it is: the interface has no way to carry
  /// the items. btservice reports OnBrowserMediaInfoChanged only if the items differ from those it reported
  /// last. Another service may report it after every request: making this request whenever that event comes
  /// then never ends.
  /// @param items stays as it is
  /// @param scope which items
  /// @return not 0 if the service accepted the request, else 0
  int GetCurMediaItemList(std::list<MWPTypeMediaItem>& items, MWPBtType::BrowserScopeType scope);
  /// Asks for the number of items in a folder; OnBrowserFolderItemTotalChanged follows.
  /// @param uid MWPTypeMediaItem::strUid of the folder
  /// @return not 0 if the service accepted the request, else 0
  int GetBrowsingFolderItemTotal(const std::string& uid);
};

#endif
