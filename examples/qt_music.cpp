// The position in the music of a phone, in a program with Qt's main loop.
//
// On Linux, Qt runs its loop on GLib's default main context, unless it was built without GLib or QT_NO_GLIB
// is set. So events arrive on the thread of the QCoreApplication, when the library is started there, and a
// callback may touch the objects that live on it. A request would hold the loop, and with it the screen,
// until the service has answered: those that the user asks for are made on a thread of the pool, one after
// the other.

#include <bluetooth/IMWPBtMediaListener.h>
#include <bluetooth/MWPBluetooth.h>
#include <bluetooth/MWPBtMedia.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QThreadPool>
#include <QTimer>

#include "PhoneConnection.h"

namespace {

using namespace MWPBtType;

/// Shows what is played, a few positions long, and then pauses.
class Screen : public QObject, public IMWPBtMediaListener {
 public:
  Screen() { m_requests.setMaxThreadCount(1); }

  void Play() {
    m_requests.start([] {
      MWPBtMedia media;
      media.PlayMusic(-1, 0);  // asks for the audio focus
      media.PlayMusic(3, 1);   // confirms it
      ShowRequest("RegGetPlayStatus", media.RegGetPlayStatus(1, 200));
      ShowRequest("PlayMusic", media.PlayMusic(1, 0));
    });
  }

 private:
  static constexpr int kPositions = 5;

  void OnCurPositionChanged(int position, int totalLength) override {
    ShowEvent("OnCurPositionChanged", position, totalLength);
    if (++m_positions == kPositions) {
      m_requests.start([] { ShowRequest("StopMusic", MWPBtMedia().StopMusic(0)); });
    }
  }

  void OnBtMusicPlayChanged(MusicPlayStatus status) override {
    ShowEvent("OnBtMusicPlayChanged", status);
    if (status == BT_MUSIC_PLAYING) {
      m_requests.start([this] { FetchTrack(); });
    } else if (status == BT_MUSIC_PAUSED && m_positions >= kPositions) {
      QCoreApplication::quit();
    }
  }

  /// On the thread of the requests. What it has fetched is handed to the loop.
  void FetchTrack() {
    MWPTypeMediaInfo track;
    MWPBtMedia().GetMediaInfo(track);
    QMetaObject::invokeMethod(this, [track] { ShowLine("title: " + track.title + ", by " + track.artist); });
  }

  int m_positions = 0;
  QThreadPool m_requests;  // comes last: its destructor waits for the requests, which use the others
};

/// Without GLib, Qt's loop does not run the context on which the library's events arrive.
bool QtUsesGlib() {
  return QString(QAbstractEventDispatcher::instance()->metaObject()->className()).contains("Glib");
}

int Run(const std::string& phone) {
  Screen screen;
  PhoneConnection connection(
      phone, BT_PROFILE_AVRCP, [&screen] { screen.Play(); }, [] { QCoreApplication::exit(1); });
  if (MWP_CreateBlueTooth() == 0) {
    return 1;
  }
  connection.Begin();
  QTimer::singleShot(60 * 1000, [] {
    std::fprintf(stderr, "not all that was expected has come: giving up\n");
    QCoreApplication::exit(1);
  });
  return QCoreApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  if (!QtUsesGlib()) {
    std::fprintf(stderr,
                 "warning: Qt does not use GLib's main loop (was it built without GLib, or is QT_NO_GLIB "
                 "set?): no Bluetooth event will arrive\n");
    return 1;
  }
  const int status = Run(argc > 1 ? argv[1] : "00:1A:7D:DA:71:13");
  MWP_DestroyBlueTooth();
  return status;
}
