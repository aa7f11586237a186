#ifndef BLUETOOTH_IMWPBTMEDIALISTENER_H
#define BLUETOOTH_IMWPBTMEDIALISTENER_H

#include <string>

#include <bluetooth/IMWPBtListenerBase.h>
#include <bluetooth/MWPBtExport.h>
#include <bluetooth/MWPBtType.h>

/// Events of music and browsing; the requests are in MWPBtMedia. Override what is needed: every method does
/// nothing by default. IMWPBtListenerBase describes when and on which thread they are called.
class MWP_BT_API IMWPBtMediaListener : public IMWPBtListenerBase {
 public:
  IMWPBtMediaListener();
  ~IMWPBtMediaListener() override;

  /// The audio stream of a device began (1) or ended (0).
  /// @param address Bluetooth address of the device
  /// @param started 1 or 0
  virtual void OnMediaAudioStateChanged(const std::string& address, int started);
  /// The player began, paused or stopped.
  /// @param status the new status
  virtual void OnBtMusicPlayChanged(MWPBtType::MusicPlayStatus status);
  /// Another track plays: read it with MWPBtMedia::GetMediaInfo.
  virtual void OnAudioTrackChanged();
  /// The play modes changed: read them with MWPBtMedia::GetCurPlayMode.
  virtual void OnPlayModeChanged();
  /// Other play modes are possible: read them with MWPBtMedia::GetSupportPlayMode.
  virtual void OnSupportPlayModeChanged();
  /// The information on the track changed: read it with MWPBtMedia::GetMediaInfo.
  virtual void OnMediaInfoChanged();
  /// The cover image of the track has been downloaded.
  virtual void OnCoverImageDownloadCompleted();
  /// Position in the track and its length, in milliseconds.
  /// @param position in milliseconds
  /// @param totalLength in milliseconds
  virtual void OnCurPositionChanged(int position, int totalLength);
  /// The player supports (1) a notification, or not (0).
  /// @param event which notification
  /// @param supported 1 or 0
  virtual void OnSupportAvrcpNotify(MWPBtType::SupportAvrcpEvent event, int supported);
  /// Fast forward became possible (1) or impossible (0).
  /// @param supported 1 if it is possible, else 0
  virtual void OnFastForwardChanged(int supported);
  /// Fast rewind became possible (1) or impossible (0).
  /// @param supported 1 if it is possible, else 0
  virtual void OnFastRewindChanged(int supported);
  /// Browsing became possible (1) or impossible (0).
  /// @param supported 1 if it is possible, else 0
  virtual void OnSupportBrowserStatusChanged(int supported);
  /// Another player of the phone is addressed.
  virtual void OnPlayerInfoChanged();
  /// Items arrived: of the browsed folder, of a search or of the queue. Do not answer it with
  /// MWPBtMedia::GetCurMediaItemList, which with some services makes it come again at once.
  virtual void OnBrowserMediaInfoChanged();
  /// Outcome (1 or 0) of a change of folder.
  /// @param success 1 for success, 0 for failure
  virtual void OnCurBrowserPathChanged(int success);
  /// Number of items in the browsed folder.
  /// @param total number of items
  virtual void OnBrowserFolderItemTotalChanged(int total);
  /// Outcome (1 or 0) of MWPBtMedia::AddMediaItemToNowPlaying.
  /// @param success 1 for success, 0 for failure
  virtual void OnMediaItemToNowPlayingStatus(int success);
  /// Outcome (1 or 0) of MWPBtMedia::PlayItem.
  /// @param success 1 for success, 0 for failure
  virtual void OnSendPlayItemStatus(int success);
};

#endif
