#ifndef QT_MUSIC_H
#define QT_MUSIC_H

#include <QList>
#include <QString>
#include <memory>

#include <btasync/Mirror.h>

#include "Subject.h"

namespace btqt {

/// The player of the phone.
class BTASYNCQT_API Music : public Subject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("BtService.music is one")
  /// The player's phone, an address, empty if none is connected.
  Q_PROPERTY(QString player READ player NOTIFY playerChanged)
  Q_PROPERTY(State state READ state NOTIFY stateChanged)
  Q_PROPERTY(QString title READ title NOTIFY trackChanged)
  Q_PROPERTY(QString artist READ artist NOTIFY trackChanged)
  Q_PROPERTY(QString album READ album NOTIFY trackChanged)
  /// In milliseconds; 0 if it is not known.
  Q_PROPERTY(int length READ length NOTIFY lengthChanged)
  /// Where the player is, in milliseconds; 0 unless positionWanted.
  Q_PROPERTY(int position READ position NOTIFY positionChanged)
  /// Somebody shows the position. As long as nobody does, nothing wakes the application for it. True asks the
  /// service to report it each second, to all applications; false does not switch that off again, as another
  /// application may show the position as well.
  Q_PROPERTY(bool positionWanted READ isPositionWanted WRITE setPositionWanted NOTIFY positionWantedChanged)
  Q_PROPERTY(Repeat repeat READ repeat NOTIFY repeatChanged)
  Q_PROPERTY(Shuffle shuffle READ shuffle NOTIFY shuffleChanged)
  /// Those that the player can be set to; empty if it has none.
  Q_PROPERTY(QList<int> repeatModes READ repeatModes NOTIFY repeatModesChanged)
  Q_PROPERTY(QList<int> shuffleModes READ shuffleModes NOTIFY shuffleModesChanged)

 public:
  /// As btasync::MusicPlayStatus.
  enum State { Stopped, Playing, Paused, FastForward, FastReverse, Error = 255 };
  Q_ENUM(State)
  /// The values of the player's setting.
  enum Repeat { RepeatUnknown, RepeatOff, RepeatTrack, RepeatAll, RepeatGroup };
  Q_ENUM(Repeat)
  enum Shuffle { ShuffleUnknown, ShuffleOff, ShuffleAll, ShuffleGroup };
  Q_ENUM(Shuffle)
  enum Wind { WindBackward = -1, WindStop = 0, WindForward = 1 };
  Q_ENUM(Wind)

  explicit Music(BtService& service);
  ~Music() override;

  QString player() const { return m_player; }
  State state() const { return m_state; }
  QString title() const { return m_title; }
  QString artist() const { return m_artist; }
  QString album() const { return m_album; }
  int length() const { return m_length; }
  int position() const { return m_position; }
  bool isPositionWanted() const { return m_positionMirror != nullptr; }
  void setPositionWanted(bool wanted);
  Repeat repeat() const { return m_repeat; }
  Shuffle shuffle() const { return m_shuffle; }
  QList<int> repeatModes() const { return m_repeatModes; }
  QList<int> shuffleModes() const { return m_shuffleModes; }

  Q_INVOKABLE void play(btqt::Operation* operation = nullptr);
  Q_INVOKABLE void pause(btqt::Operation* operation = nullptr);
  Q_INVOKABLE void next(btqt::Operation* operation = nullptr);
  Q_INVOKABLE void previous(btqt::Operation* operation = nullptr);
  /// Winds until WindStop.
  Q_INVOKABLE void wind(btqt::Music::Wind direction, btqt::Operation* operation = nullptr);
  Q_INVOKABLE void setRepeat(btqt::Music::Repeat repeat, btqt::Operation* operation = nullptr);
  Q_INVOKABLE void setShuffle(btqt::Music::Shuffle shuffle, btqt::Operation* operation = nullptr);

 Q_SIGNALS:
  void playerChanged();
  void stateChanged();
  void trackChanged();
  void lengthChanged();
  void positionChanged();
  void positionWantedChanged();
  void repeatChanged();
  void shuffleChanged();
  void repeatModesChanged();
  void shuffleModesChanged();

 private:
  void show(const btasync::State& state, unsigned parts) override;
  void showPosition(const btasync::PlayPosition& position);
  void showLength(Changes<Music>& changes);

  QString m_player;
  State m_state = Stopped;
  QString m_title;
  QString m_artist;
  QString m_album;
  int m_trackLength = 0;     ///< as the track's information says
  int m_reportedLength = 0;  ///< with the position
  int m_length = 0;
  int m_position = 0;
  Repeat m_repeat = RepeatUnknown;
  Shuffle m_shuffle = ShuffleUnknown;
  QList<int> m_repeatModes;
  QList<int> m_shuffleModes;
  /// A mirror of its own: it can be left again, unlike a part of the service's.
  std::unique_ptr<btasync::Mirror> m_positionMirror;
};

}  // namespace btqt

#endif
